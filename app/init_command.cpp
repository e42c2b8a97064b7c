#include <CLI/CLI.hpp>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <system_error>

#include "app/commands.h"
#include "app/data_directory.h"
#include "app/demo/demo_server.h"
#include "desktop/code_page.h"
#include "platform/text.h"
#include "services/server_context.h"
#include "store/database.h"
#include "store/exchange.h"
#include "store/registry_values.h"

namespace qv {

namespace fs = std::filesystem;

namespace {

struct InitOptions {
  std::string directory;
  bool demo = false;
  int variant = 1;
};

// What stands below the configuration directory, under the names that it has there already in whatever case.
fs::path Below(fs::path folder, const fs::path& relative) {
  for (const fs::path& name : relative) folder = EntryOf(folder, name.string());
  return folder;
}

void WriteFile(const fs::path& path, const std::string& text) {
  MakeFolder(path.parent_path());
  std::ofstream file(path, std::ios::binary);
  file << ToCodePage(text);
  file.close();
  if (!file) throw Refusal("the file '" + path.string() + "' can't be written");
}

// Fills a new server. Files are written as they stand; an existing file is replaced.
void FillDemo(Database& database, const fs::path& configuration, int variant) {
  const DemoServer demo = MakeDemoServer(variant);
  StoreDataSet(database, demo.data);
  for (const std::string& folder : demo.folders) MakeFolder(Below(configuration, folder));
  for (const auto& [path, text] : demo.files) WriteFile(Below(configuration, path), text);
}

void Fill(const fs::path& database_file, const fs::path& configuration, const InitOptions& options) {
  Database::Create(database_file);
  Database database(database_file);
  if (options.demo) FillDemo(database, configuration, options.variant);
  WriteRegistryValue(database, std::string(keys::kConfiguration), kConfigurationDirectory,
                     {RegistryKind::String, 0, configuration.string()});
}

void Init(const InitOptions& options) {
  std::error_code none;
  const fs::path directory = fs::weakly_canonical(fs::absolute(options.directory, none), none);
  if (directory.empty() || ValidUtf8(directory.string()) != directory.string()) {
    throw Refusal("the directory '" + ValidUtf8(options.directory) + "' has no usable name");
  }
  const fs::path database_file = DatabaseFile(directory);
  if (fs::exists(fs::symlink_status(database_file, none))) {
    throw Refusal("there is a database '" + database_file.string() + "' already");
  }
  const fs::path configuration = directory / "config";
  for (const char* folder : {"Filters/Criteria", "Filters/templates", "Filters/patterns"}) {
    MakeFolder(Below(configuration, folder));
  }
  try {
    Fill(database_file, configuration, options);
  } catch (...) {
    // Half a server would stand in the way of the next attempt.
    for (const char* suffix : {"", "-wal", "-shm"}) fs::remove(database_file.string() + suffix, none);
    throw;
  }
  std::cout << "Made the server '" << directory.string() << "'" << (options.demo ? " with demonstration data" : "")
            << ".\n";
}

}  // namespace

void AddInitCommand(CLI::App& program) {
  auto options = std::make_shared<InitOptions>();
  CLI::App* command = program.add_subcommand("init", "Make the data directory of a server");
  AddDataOption(*command, options->directory);
  CLI::Option* demo = command->add_flag("--demo", options->demo, "Fill it with demonstration data");
  command->add_option("--demo-variant", options->variant, "Which demonstration server")
      ->check(CLI::Range(1, kDemoServers))
      ->needs(demo)
      ->capture_default_str();
  command->callback([options] { Init(*options); });
}

}  // namespace qv
