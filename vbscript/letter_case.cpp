#include "vbscript/text.h"

namespace qv::vbscript {
namespace {

// Capital letters from `first` to `last`, each `step`-th character, and how far behind them their small letters stand.
struct Capitals {
  char16_t first;
  char16_t last;
  int step;
  int distance;
};

// The living alphabets that have capitals; sorted.
constexpr Capitals kCapitals[] = {
    {0x00c0, 0x00d6, 1, 32}, {0x00d8, 0x00de, 1, 32}, {0x0100, 0x012e, 2, 1},    {0x0132, 0x0136, 2, 1},
    {0x0139, 0x0147, 2, 1},  {0x014a, 0x0176, 2, 1},  {0x0178, 0x0178, 1, -121}, {0x0179, 0x017d, 2, 1},
    {0x01a0, 0x01a4, 2, 1},  {0x01af, 0x01af, 1, 1},  {0x01cd, 0x01db, 2, 1},    {0x01de, 0x01ee, 2, 1},
    {0x01f8, 0x021e, 2, 1},  {0x0222, 0x0232, 2, 1},  {0x0386, 0x0386, 1, 38},   {0x0388, 0x038a, 1, 37},
    {0x038c, 0x038c, 1, 64}, {0x038e, 0x038f, 1, 63}, {0x0391, 0x03a1, 1, 32},   {0x03a3, 0x03ab, 1, 32},
    {0x0400, 0x040f, 1, 80}, {0x0410, 0x042f, 1, 32}, {0x0460, 0x0480, 2, 1},    {0x048a, 0x04be, 2, 1},
    {0x04c0, 0x04c0, 1, 15}, {0x04c1, 0x04cd, 2, 1},  {0x04d0, 0x052e, 2, 1},    {0x0531, 0x0556, 1, 48},
    {0x1e00, 0x1e94, 2, 1},  {0x1ea0, 0x1efe, 2, 1},  {0xff21, 0xff3a, 1, 32},
};

bool IsOneOf(int c, int first, int last, int step) { return c >= first && c <= last && (c - first) % step == 0; }

}  // namespace

char16_t LowerCaseWide(char16_t c) {
  for (const Capitals& row : kCapitals) {
    if (c < row.first) return c;
    if (IsOneOf(c, row.first, row.last, row.step)) return static_cast<char16_t>(c + row.distance);
  }
  return c;
}

char16_t UpperCaseWide(char16_t c) {
  constexpr char16_t kFinalSigma = 0x03c2;
  if (c == kFinalSigma) return 0x03a3;
  for (const Capitals& row : kCapitals) {
    const int distance = row.distance;
    if (IsOneOf(c, row.first + distance, row.last + distance, row.step)) return static_cast<char16_t>(c - distance);
  }
  return c;
}

}  // namespace qv::vbscript
