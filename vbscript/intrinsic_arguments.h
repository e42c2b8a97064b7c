#pragma once

#include <string_view>

#include "vbscript/convert.h"
#include "vbscript/failure.h"
#include "vbscript/library.h"
#include "vbscript/machine.h"
#include "vbscript/text.h"

namespace qv::vbscript {

// A text argument, kept alive as long as this stands. Null raises 94.
class TextArgument {
 public:
  TextArgument(Machine& machine, const Value& value) : text_(ToText(machine, value)) {}
  operator std::u16string_view() const { return text_.text(); }
  std::u16string_view view() const { return text_.text(); }
  const Value& value() const { return text_; }

 private:
  Value text_;
};

// The argument with an object's default property taken.
inline Value Plain(Machine& machine, const Value& value) {
  return value.Is(Type::Object) ? machine.DefaultValue(value) : value;
}

inline std::int32_t LongOr(Machine& machine, const Args& args, int i, std::int32_t otherwise) {
  return args.Has(i) ? ToLong(machine, args[i]) : otherwise;
}

// The compare argument: true for text comparison. Raises 5 for what is neither 0 nor 1.
inline bool IgnoresCase(Machine& machine, const Args& args, int i) {
  const std::int32_t mode = LongOr(machine, args, i, 0);
  if (mode != 0 && mode != 1) Raise(kInvalidCall);
  return mode == 1;
}

struct FunctionRow {
  const char16_t* name;
  int fewest;
  int most;
  Value (*function)(Machine&, const Args&);
};

template <std::size_t N>
void AddRows(Library& library, const FunctionRow (&rows)[N]) {
  for (const FunctionRow& row : rows) {
    Intrinsic made;
    made.name = ToUtf8(row.name);
    made.fewest = row.fewest;
    made.most = row.most;
    made.plain = row.function;
    library.AddFunction(row.name, std::move(made));
  }
}

}  // namespace qv::vbscript
