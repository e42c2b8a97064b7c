#pragma once

#include "vbscript/context.h"

namespace qv::vbscript {

enum class Comparison : unsigned char { kEqual, kNotEqual, kLess, kGreater, kLessEqual, kGreaterEqual };

// Which sides are bare literals in the text, which decides how text and numbers are compared.
inline constexpr unsigned kLeftLiteral = 1;
inline constexpr unsigned kRightLiteral = 2;

// A Boolean, or Null if a side is Null. Raises 13 for arrays and for text that should be a number.
Value CompareValues(Context& context, Comparison kind, const Value& left, const Value& right, unsigned literals);
// Whether the comparison holds; Null does not.
bool Holds(Context& context, Comparison kind, const Value& left, const Value& right, unsigned literals);
// The operator Is: a Boolean. Raises 424 unless both are objects.
Value SameObject(const Value& left, const Value& right);

}  // namespace qv::vbscript
