#include "desktop/code_page.h"

#include <algorithm>
#include <iterator>

#include "platform/text.h"

namespace qv {

namespace {

// The characters of the bytes from 0x80 to 0x9F. All other bytes are the characters of their own number.
constexpr char32_t kMiddle[] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};
static_assert(std::size(kMiddle) == 32);

}  // namespace

std::string FromCodePage(std::string_view bytes) {
  std::u32string characters;
  characters.reserve(bytes.size());
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    characters += byte >= 0x80 && byte <= 0x9F ? kMiddle[byte - 0x80] : byte;
  }
  return FromCharacters(characters);
}

std::string ToCodePage(std::string_view text) {
  std::string bytes;
  for (const char32_t c : ToCharacters(text)) {
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) {
      bytes += static_cast<char>(c);
      continue;
    }
    const auto* found = std::find(std::begin(kMiddle), std::end(kMiddle), c);
    bytes += found == std::end(kMiddle) ? '?' : static_cast<char>(0x80 + (found - std::begin(kMiddle)));
  }
  return bytes;
}

}  // namespace qv
