#include "vbscript/compare.h"

#include "vbscript/convert.h"
#include "vbscript/failure.h"
#include "vbscript/text.h"

namespace qv::vbscript {
namespace {

enum class Order : unsigned char { kLess, kEqual, kGreater, kNull };

Order OrderOf(double left, double right) {
  return left < right ? Order::kLess : left > right ? Order::kGreater : Order::kEqual;
}

Order OrderOf(std::u16string_view left, std::u16string_view right) {
  const int order = left.compare(right);
  return order < 0 ? Order::kLess : order > 0 ? Order::kGreater : Order::kEqual;
}

Order Reversed(Order order) {
  return order == Order::kLess ? Order::kGreater : order == Order::kGreater ? Order::kLess : order;
}

double NumberIn(Context& context, const Value& text) {
  double number = 0;
  if (!ParseNumber(context, text.text(), number)) RaiseAbout(kTypeMismatch, Described(text));
  return number;
}

// Text on the left, something else than text on the right.
Order TextWithOther(Context& context, const Value& text, bool text_literal, const Value& other, bool other_literal) {
  if (other.Is(Type::Empty)) return OrderOf(text.text(), std::u16string_view());
  if (other.Is(Type::Boolean)) {
    if (!text_literal && !other_literal) return Order::kGreater;
    return OrderOf(text.text(), ToText(context, other).text());
  }
  if (other_literal) return OrderOf(NumberIn(context, text), ToDouble(context, other));
  if (text_literal) return OrderOf(text.text(), ToText(context, other).text());
  return Order::kGreater;
}

Order OrderOf(Context& context, const Value& left, const Value& right, unsigned literals) {
  if (left.Is(Type::Object)) return OrderOf(context, context.DefaultValue(left), right, literals & ~kLeftLiteral);
  if (right.Is(Type::Object)) return OrderOf(context, left, context.DefaultValue(right), literals & ~kRightLiteral);
  for (const Value* side : {&left, &right}) {
    if (side->Is(Type::Array) || side->Is(Type::Missing)) RaiseAbout(kTypeMismatch, Described(*side));
  }
  if (left.Is(Type::Null) || right.Is(Type::Null)) return Order::kNull;
  const bool left_text = left.Is(Type::String);
  const bool right_text = right.Is(Type::String);
  if (left_text && right_text) return OrderOf(left.text(), right.text());
  if (left_text) {
    return TextWithOther(context, left, literals & kLeftLiteral, right, literals & kRightLiteral);
  }
  if (right_text) {
    return Reversed(TextWithOther(context, right, literals & kRightLiteral, left, literals & kLeftLiteral));
  }
  if (left.Is(Type::Currency) && right.Is(Type::Currency)) {
    return left.n() < right.n() ? Order::kLess : left.n() > right.n() ? Order::kGreater : Order::kEqual;
  }
  return OrderOf(ToDouble(context, left), ToDouble(context, right));
}

bool Fits(Comparison kind, Order order) {
  switch (kind) {
    case Comparison::kEqual:
      return order == Order::kEqual;
    case Comparison::kNotEqual:
      return order != Order::kEqual;
    case Comparison::kLess:
      return order == Order::kLess;
    case Comparison::kGreater:
      return order == Order::kGreater;
    case Comparison::kLessEqual:
      return order != Order::kGreater;
    default:
      return order != Order::kLess;
  }
}

}  // namespace

Value CompareValues(Context& context, Comparison kind, const Value& left, const Value& right, unsigned literals) {
  const Order order = OrderOf(context, left, right, literals);
  return order == Order::kNull ? Value::Null() : Value::Boolean(Fits(kind, order));
}

bool Holds(Context& context, Comparison kind, const Value& left, const Value& right, unsigned literals) {
  const Order order = OrderOf(context, left, right, literals);
  return order != Order::kNull && Fits(kind, order);
}

Value SameObject(const Value& left, const Value& right) {
  for (const Value* side : {&left, &right}) {
    if (!side->Is(Type::Object)) RaiseAbout(kObjectRequired, Described(*side));
  }
  return Value::Boolean(left.object() == right.object());
}

}  // namespace qv::vbscript
