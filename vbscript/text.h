#pragma once

#include <cstring>
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

// The text as bytes, if each of its characters fits one and it has been searched so often that a copy pays; empty
// otherwise. `searching` is how many characters are to be searched now.
std::string_view NarrowText(Context& context, const Value& text, std::size_t searching);

// Builds a string of pieces with one piece of storage that grows.
class TextBuilder {
 public:
  explicit TextBuilder(Context& context) : context_(context) {}
  // With storage for that many characters from the start.
  TextBuilder(Context& context, std::size_t characters);
  TextBuilder(const TextBuilder&) = delete;
  TextBuilder& operator=(const TextBuilder&) = delete;
  ~TextBuilder() { Take(); }
  void Append(std::u16string_view text) {
    const std::size_t bytes = text.size() * sizeof(char16_t);
    if (bytes > room_) Grow(bytes);
    if (bytes) std::memcpy(end_, text.data(), bytes);
    end_ += bytes;
    room_ -= bytes;
  }
  void Append(char16_t c, std::size_t times);
  Value Take() noexcept;

 private:
  void Grow(std::size_t bytes);

  Context& context_;
  StringRep* rep_ = nullptr;
  char* end_ = nullptr;
  std::size_t room_ = 0;  // bytes
};

// UTF-8 becomes UTF-16 and back; what is no valid text becomes U+FFFD.
std::u16string ToUtf16(std::string_view utf8);
std::string ToUtf8(std::u16string_view text);

// One character to one, whatever the locale. The wide ones are for characters beyond ASCII.
char16_t UpperCaseWide(char16_t c);
char16_t LowerCaseWide(char16_t c);
inline char16_t UpperCase(char16_t c) {
  if (c >= 0x80) return UpperCaseWide(c);
  return c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - 32) : c;
}
inline char16_t LowerCase(char16_t c) {
  if (c >= 0x80) return LowerCaseWide(c);
  return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c;
}
// Below, at or above 0, by character code or without regard to case.
int Compare(std::u16string_view left, std::u16string_view right, bool ignore_case);
}  // namespace qv::vbscript
