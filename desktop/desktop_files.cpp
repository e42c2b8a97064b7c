#include "desktop/desktop_files.h"

#include <dirent.h>
#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <functional>

#include "desktop/code_page.h"
#include "desktop/file_errors.h"
#include "desktop/replace_file.h"
#include "platform/text.h"
#include "services/server_context.h"

namespace qv {

namespace {

// Whether a name of a path may stand for an entry of a folder.
bool Usable(const std::string& name) {
  if (name.empty() || name == "." || name == ".." || name.size() > 255 || ValidUtf8(name) != name) return false;
  return std::none_of(name.begin(), name.end(), [](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 || byte == 0x7F || c == '/' || c == ':';
  });
}

enum class Entry { None, File, Folder, Other };

Entry EntryAt(int folder, const std::string& name) {
  struct stat found {};
  if (::fstatat(folder, name.c_str(), &found, AT_SYMLINK_NOFOLLOW) != 0) return Entry::None;
  return S_ISREG(found.st_mode) ? Entry::File : S_ISDIR(found.st_mode) ? Entry::Folder : Entry::Other;
}

void ForEachName(int folder, const std::function<void(const std::string&)>& visit) {
  const int copy = ::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  DIR* listing = copy < 0 ? nullptr : ::fdopendir(copy);
  if (!listing) {
    const int error = errno;
    if (copy >= 0) ::close(copy);
    RaiseErrno(error);
  }
  while (const dirent* entry = ::readdir(listing)) {
    const std::string name = entry->d_name;
    if (name != "." && name != "..") visit(name);
  }
  ::closedir(listing);
}

// The name of a folder's entry as it stands on disk; the name as given where there is no such entry.
std::string NameOnDisk(int folder, const std::string& wanted) {
  if (EntryAt(folder, wanted) != Entry::None) return wanted;
  const std::string folded = UpperCase(wanted);
  std::string best;
  ForEachName(folder, [&](const std::string& name) {
    if (UpperCase(name) == folded && (best.empty() || name < best)) best = name;
  });
  return best.empty() ? wanted : best;
}

// Opens a file that is regular, neither waiting for nor following anything else. Raises 53 where there is none.
FileHandle OpenRegular(int folder, const std::string& name, int flags) {
  FileHandle file(::openat(folder, name.c_str(), flags | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  if (!file) {
    if (errno == ENOENT) RaiseFileError(53);
    RaiseFileError(70);
  }
  struct stat opened {};
  if (::fstat(file.number(), &opened) != 0 || !S_ISREG(opened.st_mode)) RaiseFileError(53);
  return file;
}

}  // namespace

DesktopFiles::Parts DesktopFiles::Take(const std::string& path) {
  const std::optional<RegistryValue> value =
      registry_->Read(std::string(keys::kConfiguration), kConfigurationDirectory);
  if (!value || value->kind != RegistryKind::String || !StartsWith(value->text, "/")) return {};
  Parts parts;
  parts.root = value->text.substr(0, value->text.find_last_not_of('/') + 1);
  if (parts.root.empty()) return {};
  std::string rest;
  if (StartsWith(path, value->text)) {
    rest = path.substr(value->text.size());
  } else if (StartsWith(path, parts.root)) {
    rest = path.substr(parts.root.size());
  } else {
    return {};
  }
  if (rest.empty()) {
    parts.kind = Parts::Kind::Below;
    return parts;
  }
  if (rest[0] != '\\') return {};
  parts.names = Split(std::string_view(rest).substr(1), "\\");
  const bool usable = std::all_of(parts.names.begin(), parts.names.end(), Usable);
  parts.kind = usable ? Parts::Kind::Below : Parts::Kind::BadName;
  return parts;
}

// The folder to which the first names lead; no handle where they don't lead to one.
FileHandle DesktopFiles::OpenFolder(const Parts& parts, std::size_t count) {
  if (parts.kind != Parts::Kind::Below) return FileHandle();
  FileHandle folder(::open(parts.root.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  for (std::size_t i = 0; i < count && folder; ++i) {
    const std::string name = NameOnDisk(folder.number(), parts.names[i]);
    folder = FileHandle(::openat(folder.number(), name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  }
  return folder;
}

DesktopFiles::Place DesktopFiles::Find(const Parts& parts) {
  if (parts.names.empty()) return {};
  Place place{OpenFolder(parts, parts.names.size() - 1), parts.names.back()};
  if (place.folder) place.name = NameOnDisk(place.folder.number(), place.name);
  return place;
}

bool DesktopFiles::FileExists(const std::string& path) {
  const Place place = Find(Take(path));
  return place.folder && EntryAt(place.folder.number(), place.name) == Entry::File;
}

bool DesktopFiles::FolderExists(const std::string& path) {
  const Parts parts = Take(path);
  return static_cast<bool>(OpenFolder(parts, parts.names.size()));
}

std::vector<std::string> DesktopFiles::FileNames(const std::string& folder) {
  const Parts parts = Take(folder);
  const FileHandle opened = OpenFolder(parts, parts.names.size());
  if (!opened) RaiseFileError(76);
  std::vector<std::string> names;
  ForEachName(opened.number(), [&](const std::string& name) {
    if (Usable(name) && EntryAt(opened.number(), name) == Entry::File) names.push_back(name);
  });
  std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
    const std::string upper_a = UpperCase(a), upper_b = UpperCase(b);
    return upper_a != upper_b ? upper_a < upper_b : a < b;
  });
  return names;
}

std::string DesktopFiles::ReadAll(const std::string& path) {
  const Place place = Find(Take(path));
  if (!place.folder || EntryAt(place.folder.number(), place.name) != Entry::File) RaiseFileError(53);
  const FileHandle file = OpenRegular(place.folder.number(), place.name, O_RDONLY);
  std::string bytes;
  char buffer[65536];
  for (;;) {
    const ssize_t count = ::read(file.number(), buffer, sizeof buffer);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) RaiseErrno(errno);
    if (count == 0) break;
    bytes.append(buffer, static_cast<std::size_t>(count));
  }
  if (bytes.empty()) RaiseFileError(62);
  return FromCodePage(bytes);
}

void DesktopFiles::Write(const std::string& path, const std::string& text) {
  const Parts parts = Take(path);
  if (parts.kind == Parts::Kind::BadName) RaiseFileError(52);
  const Place place = Find(parts);
  if (!place.folder) RaiseFileError(76);
  const int folder = place.folder.number();
  switch (EntryAt(folder, place.name)) {
    case Entry::None:
      break;
    case Entry::File:
      OpenRegular(folder, place.name, O_WRONLY);  // raises where the file may not be written
      break;
    case Entry::Folder:
    case Entry::Other:
      RaiseFileError(70);
  }
  ReplaceFile(folder, place.name, ToCodePage(text));
}

void DesktopFiles::Delete(const std::string& path) {
  const Place place = Find(Take(path));
  if (!place.folder || EntryAt(place.folder.number(), place.name) != Entry::File) RaiseFileError(53);
  if (::unlinkat(place.folder.number(), place.name.c_str(), 0) == 0) return;
  if (errno == ENOENT) RaiseFileError(53);
  RaiseErrno(errno);
}

void DesktopFiles::Rename(const std::string& from, const std::string& to) {
  const Place source = Find(Take(from));
  if (!source.folder || EntryAt(source.folder.number(), source.name) != Entry::File) RaiseFileError(53);
  const Parts parts = Take(to);
  if (parts.kind == Parts::Kind::BadName) RaiseFileError(52);
  const Place target = Find(parts);
  if (!target.folder) RaiseFileError(76);
  if (EntryAt(target.folder.number(), target.name) != Entry::None) RaiseFileError(58);
  if (::renameat2(source.folder.number(), source.name.c_str(), target.folder.number(), target.name.c_str(),
                  RENAME_NOREPLACE) == 0) {
    return;
  }
  // A file system without the check: the look above has to do.
  if (errno == EINVAL &&
      ::renameat(source.folder.number(), source.name.c_str(), target.folder.number(), target.name.c_str()) == 0) {
    return;
  }
  RaiseErrno(errno);
}

}  // namespace qv
