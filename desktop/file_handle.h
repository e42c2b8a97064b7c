#pragma once

#include <unistd.h>

#include <utility>

namespace qv {

// An open file or folder, closed at the end. A negative number is none.
class FileHandle {
 public:
  FileHandle() = default;
  explicit FileHandle(int number) : number_(number) {}
  FileHandle(FileHandle&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  FileHandle& operator=(FileHandle&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  ~FileHandle() {
    if (number_ >= 0) ::close(number_);
  }

  explicit operator bool() const { return number_ >= 0; }
  int number() const { return number_; }

 private:
  int number_ = -1;
};

}  // namespace qv
