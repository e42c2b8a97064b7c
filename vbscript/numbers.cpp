#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>
#include <string>

#include "vbscript/convert.h"

namespace qv::vbscript {
namespace {

bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }
bool IsBlank(char16_t c) { return c == u' ' || (c >= 9 && c <= 13) || c == 0x3000; }

bool ParseRadix(std::u16string_view text, double& number) {
  if (text.size() < 3 || text[0] != u'&') return false;
  const char16_t letter = static_cast<char16_t>(text[1] | 32);
  const unsigned base = letter == u'h' ? 16 : letter == u'o' ? 8 : 0;
  if (base == 0) return false;
  std::uint64_t bits = 0;
  for (const char16_t c : text.substr(2)) {
    const char16_t lower = static_cast<char16_t>(c | 32);
    const unsigned digit = IsDigit(c) ? c - u'0' : lower >= u'a' && lower <= u'f' ? lower - u'a' + 10U : 99U;
    if (digit >= base) return false;
    bits = bits * base + digit;
    if (bits > 0xffffffffU) return false;
  }
  number = bits <= 0xffff ? static_cast<std::int16_t>(static_cast<std::uint16_t>(bits))
                          : static_cast<double>(static_cast<std::int32_t>(static_cast<std::uint32_t>(bits)));
  return true;
}

// The sign, digits, point and exponent of a text; false if it is no decimal number.
bool ReadDecimal(const Context& context, std::u16string_view text, std::u16string& digits, bool& negative) {
  const char16_t decimal = context.decimal_mark();
  const char16_t thousands = decimal == u'.' ? u',' : u'.';
  bool in_brackets = false;
  if (text.size() > 1 && text.front() == u'(' && text.back() == u')') {
    in_brackets = true;
    text = text.substr(1, text.size() - 2);
  }
  std::size_t i = 0;
  bool has_sign = in_brackets;
  bool has_currency = false;
  for (; i < text.size(); ++i) {
    if (!has_sign && (text[i] == u'-' || text[i] == u'+')) {
      has_sign = true;
      negative = text[i] == u'-';
    } else if (!has_currency && text[i] == u'$') {
      has_currency = true;
    } else if (text[i] != u' ') {
      break;
    }
  }
  bool any = false;
  for (; i < text.size() && (IsDigit(text[i]) || text[i] == thousands); ++i) {
    if (text[i] == thousands && !any) return false;
    any = true;
    if (text[i] != thousands) digits.push_back(text[i]);
  }
  if (i < text.size() && text[i] == decimal) {
    digits.push_back(u'.');
    for (++i; i < text.size() && IsDigit(text[i]); ++i) {
      any = true;
      digits.push_back(text[i]);
    }
  }
  if (!any) return false;
  if (i < text.size() && (text[i] == u'e' || text[i] == u'E' || text[i] == u'd' || text[i] == u'D')) {
    digits.push_back(u'e');
    ++i;
    if (i < text.size() && (text[i] == u'+' || text[i] == u'-')) {
      if (text[i] == u'-') digits.push_back(u'-');
      ++i;
    }
    if (i >= text.size() || !IsDigit(text[i])) return false;
    for (; i < text.size() && IsDigit(text[i]); ++i) digits.push_back(text[i]);
  }
  while (i < text.size() && text[i] == u' ') ++i;
  if (i < text.size() && !has_sign && (text[i] == u'-' || text[i] == u'+')) {
    negative = text[i] == u'-';
    ++i;
  }
  if (i != text.size()) return false;
  negative = negative || in_brackets;
  return true;
}

std::u16string_view WithoutBlanks(std::u16string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

}  // namespace

double DecimalToDouble(std::u16string_view digits) {
  const std::string ascii(digits.begin(), digits.end());
  double number = 0;
  const auto [end, error] = std::from_chars(ascii.data(), ascii.data() + ascii.size(), number);
  static_cast<void>(end);
  if (error != std::errc::result_out_of_range) return number;
  // Out of range is too large, or too small to be told from nothing.
  const std::size_t exponent = ascii.find_first_of("eE");
  const bool tiny = exponent != std::string::npos && exponent + 1 < ascii.size() && ascii[exponent + 1] == '-';
  const bool zero_front = ascii.find_first_of("123456789") > ascii.find('.') && exponent == std::string::npos;
  return tiny || zero_front ? 0.0 : std::numeric_limits<double>::infinity();
}

bool ParseNumber(const Context& context, std::u16string_view text, double& number) {
  text = WithoutBlanks(text);
  if (ParseRadix(text, number)) return true;
  std::u16string digits;
  bool negative = false;
  if (!ReadDecimal(context, text, digits, negative)) return false;
  number = DecimalToDouble(digits);
  if (negative) number = -number;
  return true;
}

bool ParseCurrency(const Context& context, std::u16string_view text, std::int64_t& scaled) {
  std::u16string digits;
  bool negative = false;
  if (!ReadDecimal(context, WithoutBlanks(text), digits, negative)) return false;
  std::size_t point = digits.find(u'.');
  if (point == std::u16string::npos) {
    point = digits.size();
  } else {
    digits.erase(point, 1);
  }
  constexpr std::uint64_t kMost = 9223372036854775807U;
  std::uint64_t units = 0;
  char16_t next = u'0';  // the first digit that is not kept
  bool more = false;     // something follows it
  for (std::size_t i = 0; i < std::max(digits.size(), point + 4); ++i) {
    const char16_t c = i < digits.size() ? digits[i] : u'0';
    if (!IsDigit(c)) return false;
    if (i < point + 4) {
      if (units > kMost / 10) return false;
      units = units * 10 + (c - u'0');
    } else if (i == point + 4) {
      next = c;
    } else {
      more = more || c != u'0';
    }
  }
  if (next > u'5' || (next == u'5' && (more || units % 2 != 0))) ++units;
  if (units > kMost + (negative ? 1U : 0U)) return false;
  scaled = static_cast<std::int64_t>(negative ? 0 - units : units);
  return true;
}

// Plain digits as long as they hold what the digits allow, an exponent otherwise.
std::u16string NumberText(double number, int digits, char16_t decimal_mark) {
  if (number == 0) return u"0";
  char scientific[40];
  const int length = std::snprintf(scientific, sizeof scientific, "%.*e", digits - 1, std::fabs(number));
  std::string all(scientific, static_cast<std::size_t>(length));
  const std::size_t e = all.find('e');
  const int exponent = std::stoi(all.substr(e + 1));
  std::string mantissa = all.substr(0, 1) + all.substr(2, e - 2);
  while (mantissa.size() > 1 && mantissa.back() == '0') mantissa.pop_back();
  const int decimals = static_cast<int>(mantissa.size()) - 1;
  std::string out = number < 0 ? "-" : "";
  const bool scientific_form = exponent >= digits || (exponent < -4 && -exponent + decimals >= digits);
  if (scientific_form) {
    out += mantissa.substr(0, 1);
    if (decimals > 0) out.append(1, '.').append(mantissa, 1);
    out += exponent < 0 ? "E-" : "E+";
    if (std::abs(exponent) < 10) out += '0';
    out += std::to_string(std::abs(exponent));
  } else if (exponent < 0) {
    out.append("0.").append(static_cast<std::size_t>(-exponent - 1), '0').append(mantissa);
  } else if (decimals <= exponent) {
    out.append(mantissa).append(static_cast<std::size_t>(exponent - decimals), '0');
  } else {
    const auto whole = static_cast<std::size_t>(exponent) + 1;
    out.append(mantissa, 0, whole).append(1, '.').append(mantissa, whole);
  }
  std::u16string text(out.begin(), out.end());
  for (char16_t& c : text) {
    if (c == u'.') c = decimal_mark;
  }
  return text;
}

std::u16string CurrencyText(std::int64_t scaled, char16_t decimal_mark) {
  const bool negative = scaled < 0;
  const std::uint64_t units = negative ? 0 - static_cast<std::uint64_t>(scaled) : static_cast<std::uint64_t>(scaled);
  std::string out;
  if (negative) out += '-';
  out += std::to_string(units / 10000);
  std::string fraction = std::to_string(units % 10000 + 10000).substr(1);
  while (!fraction.empty() && fraction.back() == '0') fraction.pop_back();
  std::u16string text(out.begin(), out.end());
  if (!fraction.empty()) {
    text.push_back(decimal_mark);
    text.append(fraction.begin(), fraction.end());
  }
  return text;
}

}  // namespace qv::vbscript
