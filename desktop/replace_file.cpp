#include "desktop/replace_file.h"

#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "desktop/file_errors.h"
#include "desktop/file_handle.h"

namespace qv {

namespace {

// A file beside the one to be replaced, gone again unless it takes its place.
class Beside {
 public:
  explicit Beside(int folder) : folder_(folder) {
    unsigned count = 0;
    do {
      name_ = ".qv-" + std::to_string(::getpid()) + "-" + std::to_string(count++) + ".tmp";
      file_ = FileHandle(::openat(folder, name_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666));
    } while (!file_ && errno == EEXIST);
    there_ = static_cast<bool>(file_);
  }
  Beside(const Beside&) = delete;
  Beside& operator=(const Beside&) = delete;
  ~Beside() {
    if (there_) ::unlinkat(folder_, name_.c_str(), 0);
  }

  explicit operator bool() const { return there_; }
  int number() const { return file_.number(); }

  // False, with errno, where it can't.
  bool TakePlaceOf(const std::string& name) {
    if (::renameat(folder_, name_.c_str(), folder_, name.c_str()) != 0) return false;
    there_ = false;
    return true;
  }

 private:
  int folder_;
  std::string name_;
  FileHandle file_;
  bool there_ = false;
};

void WriteAll(int file, const std::string& bytes) {
  for (std::size_t written = 0; written < bytes.size();) {
    const ssize_t count = ::write(file, bytes.data() + written, bytes.size() - written);
    if (count < 0) {
      if (errno == EINTR) continue;
      RaiseErrno(errno);
    }
    written += static_cast<std::size_t>(count);
  }
  if (::fsync(file) != 0 && errno != EINVAL && errno != EROFS) RaiseErrno(errno);
}

// Rights and owner of the file that goes, as far as this process may give them.
bool TakeOver(int file, const struct stat& old) {
  if (::fchown(file, old.st_uid, old.st_gid) != 0 && (::geteuid() != old.st_uid || ::getegid() != old.st_gid))
    return false;
  return ::fchmod(file, old.st_mode & 07777) == 0;
}

void WriteInPlace(int folder, const std::string& name, const std::string& bytes) {
  const FileHandle file(::openat(folder, name.c_str(), O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
  if (!file) RaiseErrno(errno);
  if (::ftruncate(file.number(), 0) != 0) RaiseErrno(errno);
  WriteAll(file.number(), bytes);
}

}  // namespace

void ReplaceFile(int folder, const std::string& name, const std::string& bytes) {
  struct stat old {};
  const bool replaces = ::fstatat(folder, name.c_str(), &old, AT_SYMLINK_NOFOLLOW) == 0;
  Beside fresh(folder);
  if (!fresh && !(replaces && (errno == EACCES || errno == EPERM))) RaiseErrno(errno);
  if (!fresh || (replaces && !TakeOver(fresh.number(), old))) {
    WriteInPlace(folder, name, bytes);
    return;
  }
  WriteAll(fresh.number(), bytes);
  if (!fresh.TakePlaceOf(name)) RaiseErrno(errno);
}

}  // namespace qv
