#pragma once

#include <string>
#include <vector>

namespace qv {

// The files of the machine that runs the console, by full paths written with backslashes. Text is single-byte text in
// the system's default code page on disk and UTF-8 here; a character that the code page lacks is written as "?".
// Names are found without regard to case. What lies outside the configuration directory is no file at all.
//
// Error numbers are the desktop runtime's: 52 bad file name, 53 file not found, 58 file already exists, 61 disk full,
// 62 input past end of file, 70 permission denied, 76 path not found.
class Files {
 public:
  virtual ~Files() = default;

  virtual bool FileExists(const std::string& path) = 0;
  virtual bool FolderExists(const std::string& path) = 0;

  // The names of the files of a folder, without its folders, in the order of the folder's listing. Raises 76 when
  // there is no such folder.
  virtual std::vector<std::string> FileNames(const std::string& folder) = 0;

  // Opens for reading and reads everything. Raises 53 when the file is missing and 62 when it is empty.
  virtual std::string ReadAll(const std::string& path) = 0;

  // Opens for writing, creating or replacing the file, and writes the text in one call. Raises 76 when the folder is
  // missing, 61 when the disk is full.
  virtual void Write(const std::string& path, const std::string& text) = 0;

  // Raises 53 when the file is missing.
  virtual void Delete(const std::string& path) = 0;

  // Raises 53 when the file is missing and 58 when there is a file of the new name.
  virtual void Rename(const std::string& from, const std::string& to) = 0;
};

}  // namespace qv
