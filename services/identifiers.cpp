#include "services/identifiers.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "platform/runtime_error.h"
#include "platform/text.h"
#include "services/text_utilities.h"

namespace qv {

namespace {

std::string Hexadecimal(std::uint32_t number) {
  static constexpr char kDigits[] = "0123456789ABCDEF";
  std::string digits;
  do {
    digits.insert(digits.begin(), kDigits[number % 16]);
    number /= 16;
  } while (number != 0);
  return digits;
}

std::string Padded(std::uint32_t number, int width) {
  const std::string digits = Hexadecimal(number);
  return ZeroPad(width, static_cast<int>(digits.size())) + digits;
}

// The number format "00", which pads only what reads as a number: a single letter digit stays as it is.
std::string TwoDigits(const std::string& digits) {
  return digits.size() == 1 && IsNumeric(digits) ? "0" + digits : digits;
}

}  // namespace

std::string ZeroPad(int width, int length) {
  return std::string(static_cast<std::size_t>(std::max(0, width - length)), '0');
}

std::string NewGuidString(GuidSource& guids) {
  Guid guid;
  std::string text = "00000000";
  IgnoreErrors([&] {
    if (!guids.NewGuid(guid)) return;
    text = Padded(guid.Data1, 8) + Padded(guid.Data2, 4) + Padded(guid.Data3, 4);
    for (std::uint8_t byte : guid.Data4) text += TwoDigits(Hexadecimal(byte));
  });
  return text;
}

std::string GetToken(std::string_view text, std::string_view delimiter, int index) {
  const std::vector<std::string> tokens = Split(text, delimiter);
  if (index < 1 || static_cast<std::size_t>(index) > tokens.size()) return "";
  return tokens[static_cast<std::size_t>(index - 1)];
}

bool GetTaggedValue(std::string_view text, std::string_view tag, std::string& value) {
  const std::string mark = std::string(tag) + "-";
  const std::size_t found = text.find(mark);
  std::size_t start = mark.size();
  if (found != std::string_view::npos) {
    start += found;
  } else {
    // The place counts from 1, and a missing mark counts as place 0, so the text begins one character earlier.
    --start;
  }
  start = std::min(start, text.size());
  const std::size_t end = text.find('-', start);
  value = std::string(text.substr(start, end == std::string_view::npos ? end : end - start));
  return true;
}

}  // namespace qv
