#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "desktop/file_handle.h"
#include "platform/files.h"
#include "platform/registry.h"

namespace qv {

// The files below the configuration directory, which the registry names as this platform writes it. A path is that
// text and what lies below it, written with backslashes.
//
// Below the directory a name is found as it is written, else as the first in sorted order that differs in case only.
// Links and everything but regular files and folders are no files; no path leads out.
class DesktopFiles : public Files {
 public:
  explicit DesktopFiles(std::unique_ptr<Registry> registry) : registry_(std::move(registry)) {}

  bool FileExists(const std::string& path) override;
  bool FolderExists(const std::string& path) override;
  // Sorted without regard to case.
  std::vector<std::string> FileNames(const std::string& folder) override;
  std::string ReadAll(const std::string& path) override;
  void Write(const std::string& path, const std::string& text) override;
  void Delete(const std::string& path) override;
  void Rename(const std::string& from, const std::string& to) override;

 private:
  // A path taken apart.
  struct Parts {
    enum class Kind { Outside, BadName, Below } kind = Kind::Outside;
    std::string root;
    std::vector<std::string> names;
  };
  // Where a file is or would be: its folder, if there is one, and the name in it as on disk or else as given.
  struct Place {
    FileHandle folder;
    std::string name;
  };

  Parts Take(const std::string& path);
  static FileHandle OpenFolder(const Parts& parts, std::size_t count);
  static Place Find(const Parts& parts);

  std::unique_ptr<Registry> registry_;
};

}  // namespace qv
