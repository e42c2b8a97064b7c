#pragma once

#include <string>

#include "platform/console.h"
#include "platform/runtime_error.h"

namespace qv {

// What a node of the console offers to its extensions.
class NodeData : public DataObject {
 public:
  NodeData(std::string format, std::string text) : format_(std::move(format)), text_(std::move(text)) {}
  bool GetFormat(const std::string& format) const override { return format == format_; }
  std::string GetData(const std::string& format) const override {
    if (format != format_) throw RuntimeError("The format '" + format + "' is not offered.");
    return text_;
  }

 private:
  std::string format_, text_;
};

}  // namespace qv
