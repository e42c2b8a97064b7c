#pragma once

#include "vbscript/parser.h"

namespace qv::vbscript {

// Counts how deep the parser has called itself, so that no text can exhaust the program's own stack.
class Parser::Nested {
 public:
  explicit Nested(Parser& parser) : parser_(parser) {
    if (parser_.depth_ >= kDeepest) parser_.Fail(1001);
    ++parser_.depth_;
  }
  Nested(const Nested&) = delete;
  Nested& operator=(const Nested&) = delete;
  ~Nested() { --parser_.depth_; }

 private:
  static constexpr int kDeepest = 500;
  Parser& parser_;
};

}  // namespace qv::vbscript
