#pragma once

#include "vbscript/code.h"
#include "vbscript/context.h"

namespace qv::vbscript {

// The operators on values. Operands are variables' contents, never references. Each raises what its conversions raise.
Value Add(Context& context, const Value& left, const Value& right);
Value Subtract(Context& context, const Value& left, const Value& right);
Value Multiply(Context& context, const Value& left, const Value& right);
Value Divide(Context& context, const Value& left, const Value& right);
Value IntDivide(Context& context, const Value& left, const Value& right);
Value Modulo(Context& context, const Value& left, const Value& right);
Value Power(Context& context, const Value& left, const Value& right);
Value Concat(Context& context, const Value& left, const Value& right);
Value Negate(Context& context, const Value& operand);
// Of a literal number.
Value Negate(const Value& number);
// And, Or, Xor, Eqv, Imp.
Value Logic(Context& context, Op op, const Value& left, const Value& right);
Value Not(Context& context, const Value& operand);

}  // namespace qv::vbscript
