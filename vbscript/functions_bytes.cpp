#include <algorithm>
#include <cmath>

#include "vbscript/code_page.h"
#include "vbscript/intrinsic_arguments.h"

namespace qv::vbscript {
namespace {

std::size_t Count(Machine& machine, const Value& value) {
  const std::int32_t count = ToLong(machine, value);
  if (count < 0) Raise(kInvalidCall);
  return static_cast<std::size_t>(count);
}

Value LenB(Machine& machine, const Args& args) {
  const Value value = Plain(machine, args[0]);
  if (value.Is(Type::Null)) return value;
  return Value::Long(static_cast<std::int32_t>(ToText(machine, value).bytes()));
}

Value LeftB(Machine& machine, const Args& args) {
  const std::size_t count = Count(machine, args[1]);
  const Value value = Plain(machine, args[0]);
  if (value.Is(Type::Null)) return value;
  return MakeBytes(machine, ToText(machine, value).byte_text().substr(0, count));
}

Value RightB(Machine& machine, const Args& args) {
  const std::size_t count = Count(machine, args[1]);
  const Value value = Plain(machine, args[0]);
  if (value.Is(Type::Null)) return value;
  const Value text = ToText(machine, value);
  return MakeBytes(machine, text.byte_text().substr(text.bytes() - std::min<std::size_t>(count, text.bytes())));
}

Value MidB(Machine& machine, const Args& args) {
  const std::int32_t start = ToLong(machine, args[1]);
  const std::int32_t length = LongOr(machine, args, 2, 0x7fffffff);
  if (start < 1 || length < 0) Raise(kInvalidCall);
  const Value value = Plain(machine, args[0]);
  if (value.Is(Type::Null)) return value;
  const Value text = ToText(machine, value);
  const auto from = static_cast<std::size_t>(start) - 1;
  if (from >= text.bytes()) return MakeText(machine, {});
  return MakeBytes(machine, text.byte_text().substr(from, static_cast<std::size_t>(length)));
}

Value InStrB(Machine& machine, const Args& args) {
  const bool has_start = args.count() > 2;
  const int first = has_start ? 1 : 0;
  IgnoresCase(machine, args, 3);
  const std::int32_t start = has_start ? ToLong(machine, args[0]) : 1;
  const Value a = Plain(machine, args[first]);
  const Value b = Plain(machine, args[first + 1]);
  if (start < 1) Raise(kInvalidCall);
  if (a.Is(Type::Null) || b.Is(Type::Null)) return Value::Null();
  const Value text = ToText(machine, a);
  const Value find = ToText(machine, b);
  const auto from = static_cast<std::size_t>(start) - 1;
  if (from >= text.bytes()) return Value::Long(0);
  if (find.bytes() == 0) return Value::Long(start);
  const std::string_view haystack = text.byte_text();
  const std::string_view needle = find.byte_text();
  for (std::size_t at = from; at + needle.size() <= haystack.size(); ++at) {
    machine.Poll(1 + static_cast<int>(std::min<std::size_t>(needle.size() / 64, 1024)));
    if (haystack.compare(at, needle.size(), needle) == 0) return Value::Long(static_cast<std::int32_t>(at) + 1);
  }
  return Value::Long(0);
}

Value Asc(Machine& machine, const Args& args) {
  const TextArgument text(machine, args[0]);
  if (text.view().empty()) Raise(kInvalidCall);
  return Value::Integer(CodePageByte(text.view()[0]));
}

Value AscW(Machine& machine, const Args& args) {
  const TextArgument text(machine, args[0]);
  if (text.view().empty()) Raise(kInvalidCall);
  return Value::Integer(static_cast<std::int16_t>(text.view()[0]));
}

Value AscB(Machine& machine, const Args& args) {
  const Value text = ToText(machine, args[0]);
  if (text.bytes() == 0) Raise(kInvalidCall);
  return Value::Byte(static_cast<unsigned char>(text.byte_text()[0]));
}

Value Chr(Machine& machine, const Args& args) {
  const std::int32_t code = ToLong(machine, args[0]);
  if (code < 0 || code > 255) Raise(kInvalidCall);
  const char16_t c = CodePageCharacter(static_cast<unsigned char>(code));
  return MakeText(machine, {&c, 1});
}

Value ChrW(Machine& machine, const Args& args) {
  const std::int32_t code = ToLong(machine, args[0]);
  if (code < -32768 || code > 65535) Raise(kInvalidCall);
  const auto c = static_cast<char16_t>(code & 0xffff);
  return MakeText(machine, {&c, 1});
}

Value ChrB(Machine& machine, const Args& args) {
  const std::int32_t code = ToLong(machine, args[0]);
  if (code < 0 || code > 255) Raise(kOverflow);
  const char c = static_cast<char>(code);
  return MakeBytes(machine, {&c, 1});
}

// Digits of the value as 16 bits where it fits an Integer above the lowest one, else as 32 bits.
Value Digits(Machine& machine, const Args& args, unsigned bits_a_digit) {
  const Value value = Plain(machine, args[0]);
  if (value.Is(Type::Null)) return value;
  const std::int32_t n = ToLong(machine, value);
  std::uint32_t bits = n > -32768 && n <= 32767 ? static_cast<std::uint16_t>(n) : static_cast<std::uint32_t>(n);
  std::u16string text;
  do {
    text.insert(text.begin(), u"0123456789ABCDEF"[bits & ((1U << bits_a_digit) - 1)]);
    bits >>= bits_a_digit;
  } while (bits);
  return MakeText(machine, text);
}

Value Hex(Machine& machine, const Args& args) { return Digits(machine, args, 4); }
Value Oct(Machine& machine, const Args& args) { return Digits(machine, args, 3); }

constexpr FunctionRow kRows[] = {
    {u"LenB", 1, 1, LenB},     {u"LeftB", 2, 2, LeftB}, {u"RightB", 2, 2, RightB}, {u"MidB", 2, 3, MidB},
    {u"InStrB", 2, 4, InStrB}, {u"Asc", 1, 1, Asc},     {u"AscW", 1, 1, AscW},     {u"AscB", 1, 1, AscB},
    {u"Chr", 1, 1, Chr},       {u"ChrW", 1, 1, ChrW},   {u"ChrB", 1, 1, ChrB},     {u"Hex", 1, 1, Hex},
    {u"Oct", 1, 1, Oct},
};

}  // namespace

void AddByteFunctions(Library& library) { AddRows(library, kRows); }

}  // namespace qv::vbscript
