#pragma once

#include <string>
#include <string_view>

#include "vbscript/context.h"

namespace qv::vbscript {

// Strings as values. Each raises 14 when the text becomes too long.
Value MakeText(Context& context, std::u16string_view text);
Value MakeBytes(Context& context, std::string_view bytes);
// The front of a string, without copying.
Value FrontOf(const Value& text, std::size_t characters);
// Both sides are strings. Appends in place where the left one ends its storage.
Value Join(Context& context, const Value& left, const Value& right);

// Builds a string of pieces with one piece of storage that grows.
class TextBuilder {
 public:
  explicit TextBuilder(Context& context) : context_(context) {}
  void Append(std::u16string_view text);
  void Append(char16_t c, std::size_t times);
  Value Take() { return std::move(text_); }

 private:
  Context& context_;
  Value text_ = Value::TakeString(nullptr, 0);
};

// UTF-8 becomes UTF-16 and back; what is no valid text becomes U+FFFD.
std::u16string ToUtf16(std::string_view utf8);
std::string ToUtf8(std::u16string_view text);

// One character to one, whatever the locale.
char16_t UpperCase(char16_t c);
char16_t LowerCase(char16_t c);
// Below, at or above 0, by character code or without regard to case.
int Compare(std::u16string_view left, std::u16string_view right, bool ignore_case);
// The first place at or behind `from`; npos if none. Polls the context.
std::size_t Search(Context& context, std::u16string_view text, std::u16string_view find, std::size_t from,
                   bool ignore_case);

}  // namespace qv::vbscript
