#include "desktop/file_errors.h"

#include <cerrno>

#include "platform/runtime_error.h"

namespace qv {

void RaiseFileError(long number) {
  switch (number) {
    case 52:
      throw RuntimeError(number, "Bad file name or number");
    case 53:
      throw RuntimeError(number, "File not found");
    case 58:
      throw RuntimeError(number, "File already exists");
    case 61:
      throw RuntimeError(number, "Disk full");
    case 62:
      throw RuntimeError(number, "Input past end of file");
    case 70:
      throw RuntimeError(number, "Permission denied");
    case 76:
      throw RuntimeError(number, "Path not found");
    default:
      throw RuntimeError(57, "Device I/O error");
  }
}

void RaiseErrno(int error) {
  switch (error) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      RaiseFileError(61);
    case ENOENT:
    case ENOTDIR:
      RaiseFileError(76);
    case ENAMETOOLONG:
      RaiseFileError(52);
    case EEXIST:
      RaiseFileError(58);
    case EIO:
      RaiseFileError(57);
    default:
      RaiseFileError(70);
  }
}

}  // namespace qv
