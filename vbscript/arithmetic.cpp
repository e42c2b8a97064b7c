#include "vbscript/arithmetic.h"

#include <cmath>

#include "vbscript/convert.h"
#include "vbscript/dates.h"
#include "vbscript/failure.h"
#include "vbscript/text.h"

namespace qv::vbscript {
namespace {

bool IsWhole(Type type) {
  return type == Type::Integer || type == Type::Long || type == Type::Byte || type == Type::Boolean ||
         type == Type::Empty;
}

// The number of a whole type. What Empty has stored means nothing.
std::int64_t WholeOf(const Value& value) { return value.Is(Type::Empty) ? 0 : value.n(); }

// The larger of two whole types; Boolean and Empty count as Integer.
Type LargerWhole(Type left, Type right) {
  if (left == Type::Long || right == Type::Long) return Type::Long;
  if (left == Type::Byte && right == Type::Byte) return Type::Byte;
  return Type::Integer;
}

Value Whole(Type type, std::int64_t n) {
  if (type == Type::Byte && n >= 0 && n <= 255) return Value::Of(type, n);
  if (type != Type::Long && n >= -32768 && n <= 32767) return Value::Of(Type::Integer, n);
  if (n >= kMinLong && n <= kMaxLong) return Value::Of(Type::Long, n);
  return Value::Double(static_cast<double>(n));
}

Value Floating(double result) {
  if (!std::isfinite(result)) RaiseBare(kOverflow);
  return Value::Double(result);
}

Value SingleOr(double result) {
  if (!std::isfinite(static_cast<float>(result))) return Floating(result);
  return Value::Single(result);
}

Value DateOf(double date) {
  if (!IsDateInRange(date)) RaiseBare(kOverflow);
  return Value::Date(date);
}

// Both are Single or whole and small enough for a Single.
bool StaysSingle(Type left, Type right) {
  const auto fits = [](Type type) {
    return type == Type::Single || type == Type::Byte || type == Type::Integer || type == Type::Boolean ||
           type == Type::Empty;
  };
  return fits(left) && fits(right) && (left == Type::Single || right == Type::Single);
}

// Objects give their default property; arrays are no operands. True if either operand is Null.
bool Prepare(Context& context, const Value*& left, const Value*& right, Value (&held)[2]) {
  for (const Value** side : {&left, &right}) {
    if ((*side)->Is(Type::Object)) {
      Value& own = held[side == &left ? 0 : 1];
      own = context.DefaultValue(**side);
      *side = &own;
    }
    if ((*side)->Is(Type::Array) || (*side)->Is(Type::Missing)) RaiseAbout(kTypeMismatch, Described(**side));
  }
  return left->Is(Type::Null) || right->Is(Type::Null);
}

Value CurrencyUnless(bool overflow, std::int64_t exact) {
  if (overflow) RaiseBare(kOverflow);
  return Value::Currency(exact);
}

std::int64_t CurrencyProduct(std::int64_t left, std::int64_t right) {
  __extension__ using Wide = __int128;
  const Wide product = Wide{left} * right;
  const Wide rest = product % 10000;
  Wide rounded = product / 10000;
  const Wide size = rest < 0 ? -rest : rest;
  if (size > 5000 || (size == 5000 && rounded % 2 != 0)) rounded += product < 0 ? -1 : 1;
  if (rounded < INT64_MIN || rounded > INT64_MAX) RaiseBare(kOverflow);
  return static_cast<std::int64_t>(rounded);
}

Value AddOrSubtract(Context& context, const Value& left, const Value& right, bool subtract) {
  const Type l = left.type();
  const Type r = right.type();
  if (IsWhole(l) && IsWhole(r)) {
    return Whole(LargerWhole(l, r), subtract ? WholeOf(left) - WholeOf(right) : WholeOf(left) + WholeOf(right));
  }
  const double a = ToDouble(context, left);
  const double b = ToDouble(context, right);
  const double result = subtract ? a - b : a + b;
  if (l == Type::Date || r == Type::Date) {
    return subtract && l == r ? Floating(result) : DateOf(result);
  }
  if (l == Type::Currency || r == Type::Currency) {
    std::int64_t exact = 0;
    const std::int64_t x = ToCurrency(context, left);
    const std::int64_t y = ToCurrency(context, right);
    const bool overflow = subtract ? __builtin_sub_overflow(x, y, &exact) : __builtin_add_overflow(x, y, &exact);
    return CurrencyUnless(overflow, exact);
  }
  return StaysSingle(l, r) ? SingleOr(result) : Floating(result);
}

}  // namespace

Value Add(Context& context, const Value& left_operand, const Value& right_operand) {
  const Value* left = &left_operand;
  const Value* right = &right_operand;
  Value held[2];
  if (Prepare(context, left, right, held)) return Value::Null();
  const bool left_text = left->Is(Type::String);
  const bool right_text = right->Is(Type::String);
  if ((left_text && (right_text || right->Is(Type::Empty))) || (right_text && left->Is(Type::Empty))) {
    return Join(context, ToText(context, *left), ToText(context, *right));
  }
  return AddOrSubtract(context, *left, *right, false);
}

Value Subtract(Context& context, const Value& left_operand, const Value& right_operand) {
  const Value* left = &left_operand;
  const Value* right = &right_operand;
  Value held[2];
  if (Prepare(context, left, right, held)) return Value::Null();
  return AddOrSubtract(context, *left, *right, true);
}

Value Multiply(Context& context, const Value& left_operand, const Value& right_operand) {
  const Value* left = &left_operand;
  const Value* right = &right_operand;
  Value held[2];
  if (Prepare(context, left, right, held)) return Value::Null();
  const Type l = left->type();
  const Type r = right->type();
  if (IsWhole(l) && IsWhole(r)) return Whole(LargerWhole(l, r), WholeOf(*left) * WholeOf(*right));
  if ((l == Type::Currency && (IsWhole(r) || r == l)) || (r == Type::Currency && IsWhole(l))) {
    std::int64_t exact = 0;
    if (l == r) return Value::Currency(CurrencyProduct(left->n(), right->n()));
    const bool overflow = __builtin_mul_overflow(WholeOf(*left), WholeOf(*right), &exact);
    return CurrencyUnless(overflow, exact);
  }
  const double result = ToDouble(context, *left) * ToDouble(context, *right);
  return StaysSingle(l, r) ? SingleOr(result) : Floating(result);
}

Value Divide(Context& context, const Value& left_operand, const Value& right_operand) {
  const Value* left = &left_operand;
  const Value* right = &right_operand;
  Value held[2];
  if (Prepare(context, left, right, held)) return Value::Null();
  const double a = ToDouble(context, *left);
  const double b = ToDouble(context, *right);
  if (b == 0) RaiseBare(a == 0 && !right->Is(Type::Empty) ? kOverflow : kDivisionByZero);
  return StaysSingle(left->type(), right->type()) ? SingleOr(a / b) : Floating(a / b);
}

namespace {

Value WholeDivision(Context& context, const Value& left_operand, const Value& right_operand, bool remainder) {
  const Value* left = &left_operand;
  const Value* right = &right_operand;
  Value held[2];
  if (Prepare(context, left, right, held)) return Value::Null();
  const Type type =
      IsWhole(left->type()) && IsWhole(right->type()) ? LargerWhole(left->type(), right->type()) : Type::Long;
  const std::int64_t a = ToLong(context, *left);
  const std::int64_t b = ToLong(context, *right);
  if (b == 0) RaiseBare(kDivisionByZero);
  const std::int64_t result = remainder ? a % b : a / b;
  if (result > kMaxLong) RaiseBare(kOverflow);
  return Whole(type, result);
}

}  // namespace

Value IntDivide(Context& context, const Value& left, const Value& right) {
  return WholeDivision(context, left, right, false);
}

Value Modulo(Context& context, const Value& left, const Value& right) {
  return WholeDivision(context, left, right, true);
}

Value Power(Context& context, const Value& left_operand, const Value& right_operand) {
  const Value* left = &left_operand;
  const Value* right = &right_operand;
  Value held[2];
  if (Prepare(context, left, right, held)) return Value::Null();
  const double base = ToDouble(context, *left);
  const double exponent = ToDouble(context, *right);
  if (base < 0 && exponent != std::trunc(exponent)) RaiseBare(kInvalidCall);
  if (base == 0 && exponent < 0) RaiseBare(kInvalidCall);
  return Floating(std::pow(base, exponent));
}

Value Concat(Context& context, const Value& left_operand, const Value& right_operand) {
  const Value* left = &left_operand;
  const Value* right = &right_operand;
  Value held[2];
  if (Prepare(context, left, right, held) && left->Is(Type::Null) && right->Is(Type::Null)) return Value::Null();
  const Value nothing = Value::TakeString(nullptr, 0);
  return Join(context, left->Is(Type::Null) ? nothing : ToText(context, *left),
              right->Is(Type::Null) ? nothing : ToText(context, *right));
}

Value Negate(const Value& number) {
  if (number.Is(Type::Integer) || number.Is(Type::Long)) return Whole(number.type(), -number.n());
  return Value::Double(-number.d());
}

Value Negate(Context& context, const Value& operand) {
  switch (operand.type()) {
    case Type::Null:
      return Value::Null();
    case Type::Empty:
      return Value::Integer(0);
    case Type::Boolean:
    case Type::Byte:
      return Value::Integer(static_cast<int>(-operand.n()));
    case Type::Integer:
    case Type::Long:
    case Type::Double:
      return Negate(operand);
    case Type::Single:
      return Value::Single(-operand.d());
    case Type::Date:
      return DateOf(-operand.d());
    case Type::Currency:
      if (operand.n() == INT64_MIN) RaiseBare(kOverflow);
      return Value::Currency(-operand.n());
    case Type::Object:
      return Negate(context, context.DefaultValue(operand));
    default:
      return Floating(-ToDouble(context, operand));
  }
}

}  // namespace qv::vbscript
