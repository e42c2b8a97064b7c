#include "hosts/console/json_writer.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace qv {

namespace {

bool NeedsEscape(unsigned char c) { return c < 0x20 || c == '"' || c == '\\'; }

// Whether one of eight bytes needs escaping.
bool AnyNeedsEscape(std::uint64_t bytes) {
  constexpr std::uint64_t kOnes = 0x0101010101010101, kHighBits = 0x8080808080808080;
  const auto any_below = [](std::uint64_t eight, std::uint64_t bound) {
    return (eight - bound * kOnes) & ~eight & kHighBits;
  };
  return (any_below(bytes, 0x20) | any_below(bytes ^ ('"' * kOnes), 1) | any_below(bytes ^ ('\\' * kOnes), 1)) != 0;
}

// The most that a byte takes, escaped.
constexpr std::size_t kLongest = 6;

char* WriteEscaped(unsigned char c, char* to) {
  constexpr char kDigits[] = "0123456789abcdef";
  *to++ = '\\';
  switch (c) {
    case '"':
    case '\\':
      *to++ = static_cast<char>(c);
      break;
    case '\n':
      *to++ = 'n';
      break;
    case '\r':
      *to++ = 'r';
      break;
    case '\t':
      *to++ = 't';
      break;
    default:
      for (const char piece : {'u', '0', '0', kDigits[c >> 4], kDigits[c & 15]}) *to++ = piece;
  }
  return to;
}

// Copies the bytes before the first that needs escaping and takes them off the text.
char* CopyPlain(std::string_view& text, char* to) {
  const char* from = text.data();
  const char* const end = from + text.size();
  for (std::uint64_t eight = 0; end - from >= static_cast<std::ptrdiff_t>(sizeof eight); from += sizeof eight) {
    std::memcpy(&eight, from, sizeof eight);
    if (AnyNeedsEscape(eight)) break;
    std::memcpy(to, &eight, sizeof eight);
    to += sizeof eight;
  }
  while (from != end && !NeedsEscape(static_cast<unsigned char>(*from))) *to++ = *from++;
  text.remove_prefix(static_cast<std::size_t>(from - text.data()));
  return to;
}

}  // namespace

void JsonWriter::Value(std::string_view text) {
  char* to = Room(text.size() + 3);
  if (separate_) *to++ = ',';
  *to++ = '"';
  for (;;) {
    to = CopyPlain(text, to);
    if (text.empty()) break;
    Used(to, true);
    to = WriteEscaped(static_cast<unsigned char>(text.front()), Room(kLongest + text.size()));
    text.remove_prefix(1);
  }
  *to++ = '"';
  Used(to, true);
}

void JsonWriter::Grow(std::size_t bytes) { text_.resize(2 * text_.size() + bytes); }

}  // namespace qv
