#include "app/data_directory.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <system_error>

#include "app/commands.h"
#include "platform/text.h"
#include "services/server_context.h"
#include "store/database.h"
#include "store/registry_values.h"

namespace qv {

namespace fs = std::filesystem;

CLI::Option* AddDataOption(CLI::App& command, std::string& directory) {
  return command.add_option("--data", directory, "The server's data directory")->required()->type_name("DIR");
}

fs::path ConfigurationDirectory(Database& database) {
  const std::optional<RegistryValue> value =
      ReadRegistryValue(database, std::string(keys::kConfiguration), kConfigurationDirectory);
  if (!value || value->kind != RegistryKind::String || !StartsWith(value->text, "/")) {
    throw Refusal("the registry value \"Configuration Directory\" names no directory");
  }
  return value->text;
}

void CheckName(const std::string& what, const std::string& name) {
  const auto refuse = [&](const std::string& why) { throw Refusal("the name of a " + what + " " + why); };
  if (name.empty()) refuse("can't be empty");
  if (ValidUtf8(name) != name) refuse("must be UTF-8 text");
  if (name.size() > 255) refuse("can't be longer than 255 bytes");
  for (const char c : name) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x20 || byte == 0x7F) refuse("can't hold control characters");
    if (std::string_view(R"(/\:*?"<>|)").find(c) != std::string_view::npos) {
      refuse(std::string("can't hold \"") + c + "\"");
    }
  }
  if (name.front() == '.' || name.back() == '.') refuse("can't begin or end with a dot");
  if (name.front() == ' ' || name.back() == ' ') refuse("can't begin or end with a blank");
}

std::string FindName(const std::vector<std::string>& names, const std::string& name) {
  const auto found = std::find_if(names.begin(), names.end(),
                                  [&](const std::string& other) { return UpperCase(other) == UpperCase(name); });
  return found == names.end() ? "" : *found;
}

fs::path EntryOf(const fs::path& folder, const std::string& name) {
  std::error_code none;
  if (fs::exists(fs::symlink_status(folder / name, none))) return folder / name;
  std::vector<std::string> names;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder, none)) {
    names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  const std::string found = FindName(names, name);
  return folder / (found.empty() ? name : found);
}

void MakeFolder(const fs::path& folder) {
  std::error_code error;
  fs::create_directories(folder, error);
  if (error || !fs::is_directory(folder, error)) {
    throw Refusal("the folder '" + folder.string() +
                  "' can't be made: " + (error ? error.message() : std::string("it is no folder")));
  }
}

std::size_t FilesBelow(const fs::path& folder) {
  std::error_code none;
  std::size_t files = 0;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder, none)) {
    if (!fs::is_directory(entry.symlink_status())) ++files;
  }
  return files;
}

void RemoveFolder(const fs::path& folder) {
  std::error_code error;
  fs::remove_all(folder, error);
  if (error) throw Refusal("the folder '" + folder.string() + "' can't be removed: " + error.message());
}

}  // namespace qv
