#include "vbscript/code_page.h"

namespace qv::vbscript {
namespace {

// 0x80 to 0x9f; the holes stand for themselves.
constexpr char16_t kUpper[32] = {0x20ac, 0x81,   0x201a, 0x192,  0x201e, 0x2026, 0x2020, 0x2021, 0x2c6,  0x2030, 0x160,
                                 0x2039, 0x152,  0x8d,   0x17d,  0x8f,   0x90,   0x2018, 0x2019, 0x201c, 0x201d, 0x2022,
                                 0x2013, 0x2014, 0x2dc,  0x2122, 0x161,  0x203a, 0x153,  0x9d,   0x17e,  0x178};

}  // namespace

char16_t CodePageCharacter(unsigned char byte) {
  return byte >= 0x80 && byte < 0xa0 ? kUpper[byte - 0x80] : static_cast<char16_t>(byte);
}

unsigned char CodePageByte(char16_t character) {
  for (unsigned i = 0; i < 32; ++i) {
    if (kUpper[i] == character) return static_cast<unsigned char>(0x80 + i);
  }
  return character < 0x100 ? static_cast<unsigned char>(character) : static_cast<unsigned char>('?');
}

}  // namespace qv::vbscript
