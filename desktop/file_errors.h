#pragma once

namespace qv {

// Raises the RuntimeError of a file operation: 52, 53, 58, 61, 62, 70, 76, or 57 for any other number.
[[noreturn]] void RaiseFileError(long number);

// The same for an errno of the system.
[[noreturn]] void RaiseErrno(int error);

}  // namespace qv
