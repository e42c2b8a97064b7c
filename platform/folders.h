#pragma once

#include <string>
#include <vector>

namespace qv {

// The drives and folders of the machine that runs the console, as a picker of folders walks through them. Paths are
// full paths written with backslashes; a drive is a letter with its colon, such as "C:".
class Folders {
 public:
  virtual ~Folders() = default;

  // The full path that a path stands for, seen from the current folder. Nothing needs to be there.
  virtual std::string GetAbsolutePathName(const std::string& path) = 0;
  // The drive that a path begins with; empty when it names none.
  virtual std::string GetDriveName(const std::string& path) = 0;

  virtual std::vector<std::string> DriveNames() = 0;
  // The current folder of a drive. Raises RuntimeError when the device can't be used.
  virtual std::string CurrentFolder(const std::string& drive) = 0;
  // The names of the folders in a folder. Raises RuntimeError when there is no such folder.
  virtual std::vector<std::string> FolderNames(const std::string& folder) = 0;
};

}  // namespace qv
