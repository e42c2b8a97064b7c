#include "vbscript/convert.h"

#include <cmath>

#include "vbscript/dates.h"
#include "vbscript/failure.h"
#include "vbscript/text.h"

namespace qv::vbscript {
namespace {

constexpr double kCurrencyScale = 10000;

double TextToDouble(Context& context, const Value& value) {
  double number = 0;
  if (!ParseNumber(context, value.text(), number)) RaiseAbout(kTypeMismatch, Described(value));
  if (std::isinf(number)) Raise(kOverflow);
  return number;
}

// The Boolean that a text names, if it names one.
bool IsBooleanText(std::u16string_view text, bool& value) {
  for (const auto* word : {u"True", u"#TRUE#"}) {
    if (Compare(text, word, true) == 0) {
      value = true;
      return true;
    }
  }
  for (const auto* word : {u"False", u"#FALSE#"}) {
    if (Compare(text, word, true) == 0) {
      value = false;
      return true;
    }
  }
  return false;
}

}  // namespace

double ToDouble(Context& context, const Value& value) {
  switch (value.type()) {
    case Type::Empty:
      return 0;
    case Type::Integer:
    case Type::Long:
    case Type::Boolean:
    case Type::Byte:
      return static_cast<double>(value.n());
    case Type::Single:
    case Type::Double:
    case Type::Date:
      return value.d();
    case Type::Currency:
      return static_cast<double>(value.n()) / kCurrencyScale;
    case Type::Null:
      Raise(kInvalidNull);
    case Type::String:
      return TextToDouble(context, value);
    case Type::Object:
      return ToDouble(context, context.DefaultValue(value));
    case Type::Ref:
    case Type::ElementRef:
      return ToDouble(context, value.Deref());
    default:
      Raise(kTypeMismatch);
  }
}

std::int32_t RoundToLong(double number) {
  const double rounded = std::nearbyint(number);
  if (!(rounded >= static_cast<double>(kMinLong) && rounded <= static_cast<double>(kMaxLong))) Raise(kOverflow);
  return static_cast<std::int32_t>(rounded);
}

std::int32_t ToLong(Context& context, const Value& value) {
  if (value.IsInt()) return static_cast<std::int32_t>(value.n());
  return RoundToLong(ToDouble(context, value));
}

bool ToBoolean(Context& context, const Value& value) {
  switch (value.type()) {
    case Type::String: {
      bool named = false;
      if (IsBooleanText(value.text(), named)) return named;
      return TextToDouble(context, value) != 0;
    }
    case Type::Object:
      return ToBoolean(context, context.DefaultValue(value));
    default:
      return ToDouble(context, value) != 0;
  }
}

bool ToCondition(Context& context, const Value& value) {
  if (value.Is(Type::Null)) return false;
  if (value.Is(Type::Object)) return ToCondition(context, context.DefaultValue(value));
  return ToBoolean(context, value);
}

Value ToText(Context& context, const Value& value) {
  switch (value.type()) {
    case Type::String:
      return value;
    case Type::Empty:
      return MakeText(context, {});
    case Type::Boolean:
      return MakeText(context, value.n() ? u"True" : u"False");
    case Type::Integer:
    case Type::Long:
    case Type::Byte: {
      char16_t digits[12];
      char16_t* at = digits + 12;
      std::int64_t rest = value.n() < 0 ? -value.n() : value.n();
      do {
        *--at = static_cast<char16_t>(u'0' + rest % 10);
        rest /= 10;
      } while (rest);
      if (value.n() < 0) *--at = u'-';
      return MakeText(context, {at, static_cast<std::size_t>(digits + 12 - at)});
    }
    case Type::Single:
      return MakeText(context, NumberText(value.d(), 7, context.decimal_mark()));
    case Type::Double:
      return MakeText(context, NumberText(value.d(), 15, context.decimal_mark()));
    case Type::Currency:
      return MakeText(context, CurrencyText(value.n(), context.decimal_mark()));
    case Type::Date:
      return MakeText(context, DateText(value.d()));
    case Type::Null:
      Raise(kInvalidNull);
    case Type::Object:
      return ToText(context, context.DefaultValue(value));
    case Type::Ref:
    case Type::ElementRef:
      return ToText(context, value.Deref());
    default:
      Raise(kTypeMismatch);
  }
}

Value ToNumber(Context& context, const Value& value) {
  switch (value.type()) {
    case Type::Empty:
      return Value::Integer(0);
    case Type::Boolean:
      return Value::Integer(static_cast<int>(value.n()));
    case Type::String:
      return Value::Double(TextToDouble(context, value));
    case Type::Object:
      return ToNumber(context, context.DefaultValue(value));
    case Type::Ref:
    case Type::ElementRef:
      return ToNumber(context, value.Deref());
    case Type::Null:
      Raise(kInvalidNull);
    case Type::Array:
    case Type::Missing:
      Raise(kTypeMismatch);
    default:
      return value;
  }
}

double ToDate(Context& context, const Value& value) {
  double date = 0;
  if (value.Is(Type::Object)) return ToDate(context, context.DefaultValue(value));
  if (value.Is(Type::String)) {
    if (!ParseDate(value.text(), date) && !ParseNumber(context, value.text(), date)) {
      RaiseAbout(kTypeMismatch, Described(value));
    }
  } else {
    date = ToDouble(context, value);
  }
  if (!IsDateInRange(date)) Raise(kOverflow);
  return date;
}

std::int64_t CurrencyOf(double number) {
  const double scaled = std::nearbyint(number * kCurrencyScale);
  if (!(scaled >= -9223372036854775808.0 && scaled < 9223372036854775808.0)) Raise(kOverflow);
  return static_cast<std::int64_t>(scaled);
}

std::int64_t DivideToEven(std::int64_t number, std::int64_t divisor) {
  const std::int64_t quotient = number / divisor;
  const std::int64_t rest = number % divisor < 0 ? -(number % divisor) : number % divisor;
  const bool away = rest > divisor - rest || (rest == divisor - rest && quotient % 2 != 0);
  return quotient + (away ? (number < 0 ? -1 : 1) : 0);
}

std::int64_t ToCurrency(Context& context, const Value& value) {
  if (value.Is(Type::Currency)) return value.n();
  std::int64_t scaled = 0;
  if (value.Is(Type::String) && ParseCurrency(context, value.text(), scaled)) return scaled;
  return CurrencyOf(ToDouble(context, value));
}

std::string Described(const Value& value) {
  const Value& v = value.Deref();
  switch (v.type()) {
    case Type::Empty:
      return "[undefined]";
    case Type::Null:
      return "[null]";
    case Type::Boolean:
      return v.n() ? "[boolean: True]" : "[boolean: False]";
    case Type::Integer:
    case Type::Long:
    case Type::Byte:
      return "[number: " + std::to_string(v.n()) + "]";
    case Type::Single:
      return "[number: " + ToUtf8(NumberText(v.d(), 7, u'.')) + "]";
    case Type::Double:
      return "[number: " + ToUtf8(NumberText(v.d(), 15, u'.')) + "]";
    case Type::Currency:
      return "[number: " + ToUtf8(CurrencyText(v.n(), u'.')) + "]";
    case Type::Date:
      return "[date: " + ToUtf8(DateText(v.d())) + "]";
    case Type::String: {
      constexpr std::size_t kShown = 60;
      const bool whole = v.text().size() <= kShown;
      return "[string: \"" + ToUtf8(v.text().substr(0, kShown)) + (whole ? "\"]" : "...\"]");
    }
    case Type::Object:
      return v.IsNothing() ? "[nothing]" : "[object]";
    case Type::Array:
      return "[array]";
    default:
      return "[missing]";
  }
}

}  // namespace qv::vbscript
