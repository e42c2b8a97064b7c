#include <charconv>
#include <cmath>
#include <string>

#include "vbscript/convert.h"
#include "vbscript/dates.h"
#include "vbscript/lexer.h"

namespace qv::vbscript {
namespace {

int DigitValue(char16_t c) {
  if (c >= u'0' && c <= u'9') return c - u'0';
  const char16_t lower = static_cast<char16_t>(c | 32);
  return lower >= u'a' && lower <= u'f' ? lower - u'a' + 10 : 16;
}

bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

}  // namespace

Token Lexer::Number() {
  const std::size_t start = at_;
  bool whole = true;
  while (IsDigit(Peek())) ++at_;
  if (Peek() == u'.') {
    whole = false;
    ++at_;
    while (IsDigit(Peek())) ++at_;
  }
  if (Peek() == u'e' || Peek() == u'E') {
    whole = false;
    ++at_;
    if (Peek() == u'+' || Peek() == u'-') ++at_;
    if (!IsDigit(Peek())) Fail(1031, At(at_));
    while (IsDigit(Peek())) ++at_;
  }
  Token token = Make(Tok::kNumber, start);
  const double number = DecimalToDouble(token.text);
  if (std::isinf(number)) Fail(1031, At(at_));
  if (whole && number <= 32767) {
    token.value = Value::Integer(static_cast<int>(number));
  } else if (whole && number <= static_cast<double>(kMaxLong)) {
    token.value = Value::Long(static_cast<std::int32_t>(number));
  } else {
    token.value = Value::Double(number);
  }
  return token;
}

bool Lexer::StartsRadixLiteral() const {
  const char16_t c = Peek(1);
  if (c == u'h' || c == u'H') return DigitValue(Peek(2)) < 16;
  if (c == u'o' || c == u'O') return Peek(2) >= u'0' && Peek(2) <= u'7';
  return c >= u'0' && c <= u'7';
}

Token Lexer::RadixLiteral() {
  const std::size_t start = at_++;
  const bool hex = (Peek() | 32) == u'h';
  if (!IsDigit(Peek())) ++at_;
  std::uint64_t bits = 0;
  for (; DigitValue(Peek()) < (hex ? 16 : 10); ++at_) {
    const int digit = DigitValue(Peek());
    bits = bits * (hex ? 16 : 8) + static_cast<std::uint64_t>(digit);
    if ((!hex && digit > 7) || bits > 0xffffffff) Fail(1002, At(start));
  }
  const bool is_long = Peek() == u'&';
  if (is_long) ++at_;
  Token token = Make(Tok::kNumber, start);
  const auto word = static_cast<std::int32_t>(static_cast<std::uint32_t>(bits));
  if (!is_long && bits == 0x8000) {
    token.value = Value::Long(-32768);
  } else if (!is_long && bits <= 0xffff) {
    token.value = Value::Integer(static_cast<std::int16_t>(static_cast<std::uint16_t>(bits)));
  } else if (is_long && word >= -32768 && word <= 32767) {
    token.value = Value::Integer(word);
  } else {
    token.value = Value::Long(word);
  }
  return token;
}

Token Lexer::DateLiteral() {
  const std::size_t start = at_++;
  while (!AtLineEnd() && text_[at_] != u'#') ++at_;
  double date = 0;
  if (AtLineEnd() || !ParseDate(text_.substr(start + 1, at_ - start - 1), date)) Fail(1002, At(start));
  ++at_;
  Token token = Make(Tok::kDate, start);
  token.value = Value::Date(date);
  return token;
}

}  // namespace qv::vbscript
