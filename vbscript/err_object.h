#pragma once

#include <string>

#include "vbscript/object.h"

namespace qv::vbscript {

struct Failure;

// The content of the Err object.
struct ErrorState {
  std::int32_t number = 0;
  std::string description;
  std::string source;
  std::string help_file;
  std::int32_t help_context = 0;

  void Clear() { *this = {}; }
  void Take(const Failure& failure);
};

class ErrObject final : public Object {
 public:
  using Object::Object;
  Value Invoke(Machine& machine, Atom member, Access access, const Value* args, int count) override;

 private:
  [[noreturn]] static void RaiseError(Machine& machine, const Value* args, int count);
};

}  // namespace qv::vbscript
