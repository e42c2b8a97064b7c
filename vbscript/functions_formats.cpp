#include <charconv>
#include <cmath>
#include <cstdio>
#include <string>

#include "vbscript/dates.h"
#include "vbscript/intrinsic_arguments.h"

namespace qv::vbscript {
namespace {

struct NumberFormat {
  int digits = 2;
  bool leading_zero = true;
  bool parentheses = false;
  bool group = true;
};

// A choice of -1 True, 0 False or -2 what the locale has.
bool Choice(Machine& machine, const Args& args, int i, bool locale) {
  const std::int32_t choice = LongOr(machine, args, i, -2);
  if (choice < -2 || choice > 0) Raise(kInvalidCall);
  return choice == -2 ? locale : choice == -1;
}

NumberFormat FormatOf(Machine& machine, const Args& args, bool parentheses) {
  NumberFormat format;
  const std::int32_t digits = LongOr(machine, args, 1, -1);
  if (digits < -1 || digits > 255) Raise(kInvalidCall);
  if (digits >= 0) format.digits = digits;
  format.leading_zero = Choice(machine, args, 2, true);
  format.parentheses = Choice(machine, args, 3, parentheses);
  format.group = Choice(machine, args, 4, true);
  return format;
}

double Number(Machine& machine, const Value& argument) {
  const Value value = Plain(machine, argument);
  if (value.Is(Type::Null)) Raise(kTypeMismatch);
  return ToDouble(machine, value);
}

// The digits, rounded half away from zero as they would be written with 15 of them.
std::string Rounded(double number, int digits) {
  char text[40];
  std::snprintf(text, sizeof text, "%.14e", std::fabs(number));
  const std::string all(text);
  const std::size_t e = all.find('e');
  const int exponent = std::stoi(all.substr(e + 1));
  std::string mantissa = all.substr(0, 1) + all.substr(2, e - 2);
  // mantissa is d.ddd times ten to the exponent; `point` digits stand before the point.
  int point = exponent + 1;
  if (point < 0) {
    mantissa.insert(0, static_cast<std::size_t>(-point), '0');
    point = 0;
  }
  const std::size_t keep = static_cast<std::size_t>(point) + static_cast<std::size_t>(digits);
  if (mantissa.size() > keep) {
    const bool up = mantissa[keep] >= '5';
    mantissa.resize(keep);
    if (up) {
      std::size_t i = keep;
      while (i > 0 && mantissa[i - 1] == '9') mantissa[--i] = '0';
      if (i > 0) {
        ++mantissa[i - 1];
      } else {
        mantissa.insert(0, 1, '1');
        ++point;
      }
    }
  } else {
    mantissa.append(keep - mantissa.size(), '0');
  }
  return mantissa.substr(0, static_cast<std::size_t>(point)) + "." + mantissa.substr(static_cast<std::size_t>(point));
}

// `prefix` and `suffix` stand inside the sign.
Value Formatted(Machine& machine, double number, const NumberFormat& format, const std::string& prefix,
                const std::string& suffix) {
  std::string text = Rounded(number, format.digits);
  std::size_t point = text.find('.');
  const bool negative = number < 0 && text.find_first_of("123456789") != std::string::npos;
  if (point == 0 && (format.leading_zero || format.digits == 0)) {
    text.insert(0, 1, '0');
    point = 1;
  }
  if (format.digits == 0) text.resize(point);
  if (format.group) {
    for (std::size_t i = point; i > 3; i -= 3) text.insert(i - 3, 1, ',');
  }
  text = prefix + text + suffix;
  if (negative) text = format.parentheses ? "(" + text + ")" : "-" + text;
  std::u16string wide(text.begin(), text.end());
  const char16_t mark = machine.decimal_mark();
  if (mark != u'.') {
    for (char16_t& c : wide) {
      c = c == u'.' ? mark : c == u',' ? u'.' : c;
    }
  }
  return MakeText(machine, wide);
}

Value FormatNumber(Machine& machine, const Args& args) {
  const double number = Number(machine, args[0]);
  return Formatted(machine, number, FormatOf(machine, args, false), "", "");
}

Value FormatCurrency(Machine& machine, const Args& args) {
  const double number = Number(machine, args[0]);
  return Formatted(machine, number, FormatOf(machine, args, true), "$", "");
}

Value FormatPercent(Machine& machine, const Args& args) {
  const double number = Number(machine, args[0]) * 100;
  if (!std::isfinite(number)) Raise(kOverflow);
  return Formatted(machine, number, FormatOf(machine, args, false), "", "%");
}

Value FormatDateTime(Machine& machine, const Args& args) {
  const std::int32_t format = LongOr(machine, args, 1, 0);
  if (format < 0 || format > 4) Raise(kInvalidCall);
  const Value value = Plain(machine, args[0]);
  if (value.Is(Type::Null)) Raise(kTypeMismatch);
  const double date = ToDate(machine, value);
  const DateParts parts = PartsOf(date);
  switch (format) {
    case 1:
      return MakeText(machine, LongDateText(parts));
    case 2:
      return MakeText(machine, ShortDateText(parts));
    case 3:
      return MakeText(machine, LongTimeText(parts));
    case 4:
      return MakeText(machine, ShortTimeText(parts));
    default:
      return MakeText(machine, DateText(date));
  }
}

constexpr FunctionRow kRows[] = {
    {u"FormatNumber", 1, 5, FormatNumber},
    {u"FormatCurrency", 1, 5, FormatCurrency},
    {u"FormatPercent", 1, 5, FormatPercent},
    {u"FormatDateTime", 1, 2, FormatDateTime},
};

}  // namespace

void AddFormats(Library& library) { AddRows(library, kRows); }

}  // namespace qv::vbscript
