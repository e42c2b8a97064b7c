#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "vbscript/context.h"

namespace qv::vbscript {

// Conversions between subtypes. All take an object's default property, raise 94 for Null, 91 for Nothing, 13 for what
// cannot be converted and 6 for what does not fit.
double ToDouble(Context& context, const Value& value);
std::int32_t ToLong(Context& context, const Value& value);
bool ToBoolean(Context& context, const Value& value);
// A condition: as above, but Null is false.
bool ToCondition(Context& context, const Value& value);
// A string.
Value ToText(Context& context, const Value& value);
// A number of some subtype: text becomes a Double, Empty and Boolean an Integer.
Value ToNumber(Context& context, const Value& value);
// Days since 1899-12-30. Text is read as a date.
double ToDate(Context& context, const Value& value);
// Units of a ten thousandth.
std::int64_t ToCurrency(Context& context, const Value& value);
std::int64_t CurrencyOf(double number);
// The quotient to the nearest whole number, the even one of two; the divisor is above 0.
std::int64_t DivideToEven(std::int64_t number, std::int64_t divisor);

// The nearest whole number, the even one of two. Raises 6 if it is no 32-bit one.
std::int32_t RoundToLong(double number);

// Reads a whole text as a number: blanks around it, sign, separators, exponent, &H and &O. False if it is none.
bool ParseNumber(const Context& context, std::u16string_view text, double& number);
// The same in units of a ten thousandth, where the text has no exponent and few enough digits to be exact.
bool ParseCurrency(const Context& context, std::u16string_view text, std::int64_t& scaled);
// A literal's digits, point and exponent. Infinity for what is too large.
double DecimalToDouble(std::u16string_view digits);

// A number with at most that many significant digits.
std::u16string NumberText(double number, int digits, char16_t decimal_mark);
std::u16string CurrencyText(std::int64_t scaled, char16_t decimal_mark);

// A value without a name, for messages: [number: 5], [string: "abc"], [undefined].
std::string Described(const Value& value);

}  // namespace qv::vbscript
