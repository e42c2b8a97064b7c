#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

// A great many names in the order of adding, each of which takes little more memory than its bytes. They hold 4 GB at
// most.
class NameList {
 public:
  void Add(std::string_view name) {
    text_ += name;
    ends_.push_back(static_cast<std::uint32_t>(text_.size()));
  }
  // Gives back the memory that only adding takes.
  void Settle() {
    text_.shrink_to_fit();
    ends_.shrink_to_fit();
  }

  std::size_t size() const { return ends_.size(); }
  std::string_view operator[](std::size_t n) const {
    const std::size_t start = n == 0 ? 0 : ends_[n - 1];
    return std::string_view(text_).substr(start, ends_[n] - start);
  }

 private:
  std::string text_;
  std::vector<std::uint32_t> ends_;  // where each name ends
};

}  // namespace qv
