#include "vbscript/arithmetic.h"
#include "vbscript/convert.h"
#include "vbscript/failure.h"

namespace qv::vbscript {
namespace {

// An operand as bits. Text that names a Boolean counts as one among Booleans; Empty is a Long.
struct Bits {
  Type type = Type::Long;
  std::int64_t n = 0;
  bool null = false;
};

Bits BitsOf(Context& context, const Value& value) {
  switch (value.type()) {
    case Type::Null:
      return {Type::Null, 0, true};
    case Type::Boolean:
    case Type::Byte:
    case Type::Integer:
    case Type::Long:
      return {value.type(), value.n(), false};
    case Type::Empty:
      return {Type::Long, 0, false};
    case Type::String: {
      double number = 0;
      if (ParseNumber(context, value.text(), number)) return {Type::Long, RoundToLong(number), false};
      return {Type::Boolean, ToBoolean(context, value) ? -1 : 0, false};
    }
    case Type::Object:
      return BitsOf(context, context.DefaultValue(value));
    default:
      return {Type::Long, ToLong(context, value), false};
  }
}

Type Wider(Type left, Type right) {
  if (left == right) return left;
  if (left == Type::Long || right == Type::Long) return Type::Long;
  return Type::Integer;
}

std::int64_t Combine(Op op, std::int64_t a, std::int64_t b) {
  switch (op) {
    case Op::kAnd:
      return a & b;
    case Op::kOr:
      return a | b;
    case Op::kXor:
      return a ^ b;
    case Op::kEqv:
      return ~(a ^ b);
    default:
      return ~a | b;
  }
}

Value Made(Type type, std::int64_t n) {
  if (type == Type::Byte) n &= 0xff;
  return Value::Of(type, n);
}

// One side is Null: the result is known only where the other side settles it.
Value WithNull(Op op, const Bits& left, const Bits& right) {
  const Bits& other = left.null ? right : left;
  if (other.null) return Value::Null();
  const bool all = other.type == Type::Byte ? other.n == 0xff : other.n == -1;
  switch (op) {
    case Op::kAnd:
      return other.n == 0 ? Made(other.type, 0) : Value::Null();
    case Op::kOr:
      return other.n != 0 ? Made(other.type, other.n) : Value::Null();
    case Op::kImp:
      if (right.null) return all ? Value::Null() : Made(left.type, ~left.n);
      return right.n != 0 ? Made(right.type, right.n) : Value::Null();
    default:
      return Value::Null();
  }
}

}  // namespace

Value Logic(Context& context, Op op, const Value& left, const Value& right) {
  const Bits a = BitsOf(context, left);
  const Bits b = BitsOf(context, right);
  if (a.null || b.null) return WithNull(op, a, b);
  return Made(Wider(a.type, b.type), Combine(op, a.n, b.n));
}

Value Not(Context& context, const Value& operand) {
  const Bits bits = BitsOf(context, operand);
  return bits.null ? Value::Null() : Made(bits.type, ~bits.n);
}

}  // namespace qv::vbscript
