#include <cmath>

#include "vbscript/array.h"
#include "vbscript/dates.h"
#include "vbscript/intrinsic_arguments.h"
#include "vbscript/object.h"

namespace qv::vbscript {
namespace {

Value CBool(Machine& machine, const Args& args) { return Value::Boolean(ToBoolean(machine, args[0])); }

// Rounded to the even of two and within bounds.
double Bounded(Machine& machine, const Value& value, double low, double high) {
  const double rounded = std::nearbyint(ToDouble(machine, value));
  if (!(rounded >= low && rounded <= high)) Raise(kOverflow);
  return rounded;
}

Value CByte(Machine& machine, const Args& args) {
  const Value value = Plain(machine, args[0]);
  if (value.Is(Type::Boolean)) return Value::Byte(value.n() ? 255 : 0);
  return Value::Byte(static_cast<int>(Bounded(machine, value, 0, 255)));
}

Value CInt(Machine& machine, const Args& args) {
  return Value::Integer(static_cast<int>(Bounded(machine, args[0], -32768, 32767)));
}

Value CLng(Machine& machine, const Args& args) { return Value::Long(ToLong(machine, args[0])); }
Value CDbl(Machine& machine, const Args& args) { return Value::Double(ToDouble(machine, args[0])); }

Value CSng(Machine& machine, const Args& args) {
  const double number = ToDouble(machine, args[0]);
  if (std::isinf(static_cast<float>(number))) Raise(kOverflow);
  return Value::Single(number);
}

Value CCur(Machine& machine, const Args& args) { return Value::Currency(ToCurrency(machine, Plain(machine, args[0]))); }

Value CDate(Machine& machine, const Args& args) { return Value::Date(ToDate(machine, args[0])); }
Value CStr(Machine& machine, const Args& args) { return ToText(machine, args[0]); }

Value IsArray(Machine&, const Args& args) { return Value::Boolean(args[0].Is(Type::Array)); }
Value IsEmpty(Machine&, const Args& args) { return Value::Boolean(args[0].Is(Type::Empty)); }
Value IsNull(Machine&, const Args& args) { return Value::Boolean(args[0].Is(Type::Null)); }
Value IsObject(Machine&, const Args& args) { return Value::Boolean(args[0].Is(Type::Object)); }

Value IsDate(Machine& machine, const Args& args) {
  if (args[0].IsNothing()) return Value::Boolean(false);
  const Value value = Plain(machine, args[0]);
  double date = 0;
  return Value::Boolean(value.Is(Type::Date) || (value.Is(Type::String) && ParseDate(value.text(), date)));
}

Value IsNumeric(Machine& machine, const Args& args) {
  Value value = args[0];
  if (value.Is(Type::Object)) {
    if (value.IsNothing()) return Value::Boolean(false);
    try {
      value = machine.DefaultValue(value);
    } catch (const Failure& failure) {
      // An object without a default property is no number; other errors are the property's own.
      if (failure.number != kNoSuchMember) throw;
      return Value::Boolean(false);
    }
  }
  switch (value.type()) {
    case Type::Empty:
    case Type::Integer:
    case Type::Long:
    case Type::Single:
    case Type::Double:
    case Type::Currency:
    case Type::Boolean:
    case Type::Byte:
      return Value::Boolean(true);
    case Type::String: {
      double number = 0;
      return Value::Boolean(ParseNumber(machine, value.text(), number));
    }
    default:
      return Value::Boolean(false);
  }
}

int TypeNumber(const Value& value) {
  switch (value.type()) {
    case Type::Empty:
      return 0;
    case Type::Null:
      return 1;
    case Type::Integer:
      return 2;
    case Type::Long:
      return 3;
    case Type::Single:
      return 4;
    case Type::Double:
      return 5;
    case Type::Currency:
      return 6;
    case Type::Date:
      return 7;
    case Type::String:
      return 8;
    case Type::Object:
      return 9;
    case Type::Boolean:
      return 11;
    case Type::Byte:
      return 17;
    case Type::Array:
      return 8204;
    default:
      return 10;
  }
}

Value VarType(Machine& machine, const Args& args) {
  if (args[0].Is(Type::Object) && !args[0].IsNothing()) {
    try {
      return Value::Integer(TypeNumber(machine.DefaultValue(args[0])));
    } catch (const Failure& failure) {
      if (failure.number != kNoSuchMember) throw;
    }
  }
  return Value::Integer(TypeNumber(args[0]));
}

Value TypeName(Machine& machine, const Args& args) {
  const Value& value = args[0];
  if (value.IsNothing()) return MakeText(machine, u"Nothing");
  if (value.Is(Type::Object)) return MakeText(machine, value.object()->KindName());
  static constexpr const char16_t* kNames[] = {u"Empty",    u"Null", u"Integer", u"Long",   u"Single", u"Double",
                                               u"Currency", u"Date", u"String",  u"Object", u"Error",  u"Boolean"};
  const int number = TypeNumber(value);
  return MakeText(machine, number == 17 ? u"Byte" : number == 8204 ? u"Variant()" : kNames[number]);
}

constexpr FunctionRow kRows[] = {
    {u"CBool", 1, 1, CBool},         {u"CStr", 1, 1, CStr},         {u"IsArray", 1, 1, IsArray},
    {u"IsDate", 1, 1, IsDate},       {u"IsEmpty", 1, 1, IsEmpty},   {u"IsNull", 1, 1, IsNull},
    {u"IsNumeric", 1, 1, IsNumeric}, {u"IsObject", 1, 1, IsObject}, {u"VarType", 1, 1, VarType},
    {u"TypeName", 1, 1, TypeName},
};

// These are refused as statements.
constexpr FunctionRow kExpressionRows[] = {
    {u"CByte", 1, 1, CByte}, {u"CCur", 1, 1, CCur}, {u"CDate", 1, 1, CDate}, {u"CDbl", 1, 1, CDbl},
    {u"CInt", 1, 1, CInt},   {u"CLng", 1, 1, CLng}, {u"CSng", 1, 1, CSng},
};

}  // namespace

void AddConversions(Library& library) {
  AddRows(library, kRows);
  for (const FunctionRow& row : kExpressionRows) {
    Intrinsic made;
    made.name = ToUtf8(row.name);
    made.fewest = row.fewest;
    made.most = row.most;
    made.plain = row.function;
    made.no_statement = true;
    library.AddFunction(row.name, std::move(made));
  }
}

}  // namespace qv::vbscript
