#include "vbscript/arithmetic.h"
#include "vbscript/compare.h"
#include "vbscript/convert.h"
#include "vbscript/failure.h"
#include "vbscript/machine.h"

namespace qv::vbscript {
namespace {

constexpr std::size_t kMostIndexes = 64;

}  // namespace

// An object's default property may run code that changes what the other operand stands for, so that both are copied
// where one is an object.
Value Machine::Binary(Op op, const Value& left_operand, const Value& right_operand, unsigned literals) {
  const Value& left = left_operand.Deref();
  const Value& right = right_operand.Deref();
  if (left.Is(Type::Object) || right.Is(Type::Object)) {
    const Value left_copy = left;
    const Value right_copy = right;
    const Value left_value = left_copy.Is(Type::Object) ? DefaultValue(left_copy) : left_copy;
    const Value right_value = right_copy.Is(Type::Object) ? DefaultValue(right_copy) : right_copy;
    return Binary(op, left_value, right_value, literals);
  }
  switch (op) {
    case Op::kAdd:
      return Add(*this, left, right);
    case Op::kSubtract:
      return Subtract(*this, left, right);
    case Op::kMultiply:
      return Multiply(*this, left, right);
    case Op::kDivide:
      return Divide(*this, left, right);
    case Op::kIntDivide:
      return IntDivide(*this, left, right);
    case Op::kModulo:
      return Modulo(*this, left, right);
    case Op::kPower:
      return Power(*this, left, right);
    case Op::kConcat:
      return Concat(*this, left, right);
    case Op::kEqual:
      return CompareValues(*this, Comparison::kEqual, left, right, literals);
    case Op::kNotEqual:
      return CompareValues(*this, Comparison::kNotEqual, left, right, literals);
    case Op::kLess:
      return CompareValues(*this, Comparison::kLess, left, right, literals);
    case Op::kGreater:
      return CompareValues(*this, Comparison::kGreater, left, right, literals);
    case Op::kLessEqual:
      return CompareValues(*this, Comparison::kLessEqual, left, right, literals);
    case Op::kGreaterEqual:
      return CompareValues(*this, Comparison::kGreaterEqual, left, right, literals);
    default:
      return Logic(*this, op, left, right);
  }
}

Value Machine::AddIndexed(const Value& left, const Value& container, const Value& index) {
  Value element;
  Index(element, container, &index, 1);
  return Binary(Op::kAdd, left, element, 0);
}

bool Machine::Compared(Comparison kind, const Value& left, const Value& right, unsigned literals) {
  if (!left.Is(Type::Object) && !right.Is(Type::Object)) return Holds(*this, kind, left, right, literals);
  const Value left_copy = left;
  const Value right_copy = right;
  const Value left_value = left_copy.Is(Type::Object) ? DefaultValue(left_copy) : left_copy;
  const Value right_value = right_copy.Is(Type::Object) ? DefaultValue(right_copy) : right_copy;
  return Holds(*this, kind, left_value, right_value, literals);
}

void Machine::Let(Value& target, const Value& value) {
  if (value.Is(Type::Object)) {
    target = DefaultValue(value);
  } else {
    target = CopyOf(value);
  }
}

void Machine::Set(Value& target, const Value& value) {
  if (!value.Is(Type::Object)) {
    const std::string name = NameHere();
    RaiseNamed(kObjectRequired, name.empty() ? Described(value) : name);
  }
  target = value;
}

// Working out the indexes may run code that puts something else into the variable.
std::uint32_t Machine::Position(const Value& container, const Value* indexes, std::uint32_t n) {
  if (n == 0 || n > kMostIndexes) Raise(kSubscript);
  std::int64_t numbers[kMostIndexes];
  for (std::uint32_t k = 0; k < n; ++k) numbers[k] = ToLong(*this, indexes[k].Deref());
  if (!container.Is(Type::Array)) Raise(kTypeMismatch);
  return container.array()->Position({numbers, n});
}

void Machine::Index(Value& into, const Value& container, const Value* indexes, std::uint32_t n) {
  if (container.Is(Type::Array)) {
    const std::uint32_t position = Position(container, indexes, n);
    into = Value(container.array()->elements()[position]);
    return;
  }
  if (!container.Is(Type::Object)) Raise(kTypeMismatch);
  if (container.IsNothing()) Raise(kObjectNotSet);
  const Value holder = container;
  std::vector<Value> args;
  for (std::uint32_t k = 0; k < n; ++k) args.push_back(indexes[k].Deref());
  into = GetMember(holder, kDefaultMember, args.data(), static_cast<int>(n));
}

void Machine::IndexLet(Value& container, const Value* indexes, std::uint32_t n, const Value& value, bool is_set) {
  if (is_set && !value.Is(Type::Object)) RaiseNamed(kObjectRequired, Described(value));
  if (container.Is(Type::Array)) {
    Value stored = !is_set && value.Is(Type::Object) ? DefaultValue(value) : CopyOf(value);
    const std::uint32_t position = Position(container, indexes, n);
    Value& element = OwnArray(container)->elements()[position].Target();
    element.Swap(stored);
    return;
  }
  if (!container.Is(Type::Object)) Raise(kTypeMismatch);
  if (container.IsNothing()) Raise(kObjectNotSet);
  const Value holder = container;
  std::vector<Value> args;
  for (std::uint32_t k = 0; k < n; ++k) args.push_back(indexes[k].Deref());
  args.push_back(value);
  if (!holder.object()->IsScriptObject()) {
    holder.object()->Invoke(*this, kDefaultMember, is_set ? Access::Set : Access::Let, args.data(),
                            static_cast<int>(n) + 1);
    return;
  }
  auto* object = static_cast<ScriptObject*>(holder.object());
  const Procedure* get = object->definition().default_member;
  if (!get) Raise(kNoSuchMember);
  const ClassMember& member = object->definition().members.at(get->name);
  Procedure* assign = is_set ? member.set : member.let;
  if (!assign) Raise(kNoSuchMember);
  Call(*assign, object, args.data(), static_cast<int>(n) + 1);
}

// What is no array gives a value, which then goes without being referred to.
void Machine::ReferToElement(Value& into, Value& container, const Value* indexes, std::uint32_t n) {
  if (!container.Is(Type::Array)) {
    Index(into, container, indexes, n);
    for (std::uint32_t k = 0; k < n; ++k) const_cast<Value&>(indexes[k]).Clear();
    return;
  }
  const std::uint32_t position = Position(container, indexes, n);
  into = Value::ElementOf(OwnArray(container), position);
  for (std::uint32_t k = 0; k < n; ++k) const_cast<Value&>(indexes[k]).Clear();
}

void Machine::ReDimension(Value& variable, const Value* bounds, std::uint32_t n, bool preserve) {
  std::int64_t numbers[kMostIndexes];
  for (std::uint32_t k = 0; k < n; ++k) {
    const Value& bound = bounds[k].Deref();
    if (preserve && bound.Is(Type::String)) {
      double number = 0;
      if (!ParseNumber(*this, bound.text(), number)) Raise(kInvalidCall);
    }
    numbers[k] = ToLong(*this, bound);
  }
  Redimension(*this, variable, {numbers, n}, preserve);
}

void Machine::DimArray(Value& variable, const std::vector<std::int64_t>& bounds) {
  if (variable.Is(Type::Array)) Raise(kTypeMismatch);
  Value made = Value::TakeArray(ArrayRep::Create(*this, bounds));
  if (!bounds.empty()) made.MarkFixed();
  variable = std::move(made);
}

void Machine::Erase(Value& variable) {
  if (!variable.Is(Type::Array)) Raise(kTypeMismatch);
  if (variable.array()->locks) Raise(kArrayLocked);
  if (variable.fixed()) {
    OwnArray(variable)->DropContents();
  } else {
    variable = Value::TakeArray(ArrayRep::Create(*this, {}));
  }
}

// The registers hold from, limit and step. The loop runs with numbers only in the latter two.
bool Machine::ForInit(Value* registers, Value& variable) {
  Value from = registers[0].Is(Type::Object) ? DefaultValue(registers[0]) : registers[0];
  Value limit = ToNumber(*this, registers[1].Deref());
  Value step = ToNumber(*this, registers[2].Deref());
  const double start = ToDouble(*this, from);
  if (from.Is(Type::Empty)) from = Value::Integer(0);
  variable = std::move(from);
  registers[0].Clear();
  registers[1] = limit;
  registers[2] = step;
  const double end = ToDouble(*this, limit);
  return ToDouble(*this, step) >= 0 ? start <= end : start >= end;
}

bool Machine::ForNext(Value* registers, Value& variable) {
  if (registers[2].Is(Type::Empty)) RaiseBare(kLoopNotInitialized);
  Value next = Add(*this, ToNumber(*this, variable), registers[2]);
  const double reached = ToDouble(*this, next);
  variable = std::move(next);
  const double end = ToDouble(*this, registers[1]);
  return ToDouble(*this, registers[2]) >= 0 ? reached <= end : reached >= end;
}

void Machine::EachInit(Value* registers, const Value& source) {
  if (source.Is(Type::Object) && !source.IsNothing() && source.object()->IsCollection()) {
    registers[0] = source;
  } else if (source.Is(Type::Array)) {
    registers[0] = CopyOf(source);
  } else {
    RaiseBare(kNotACollection);
  }
  registers[1].SetPlain(Type::Long, std::int64_t{0});
}

bool Machine::EachNext(Value* registers, Value& variable) {
  const auto index = static_cast<std::size_t>(registers[1].n());
  if (registers[0].Is(Type::Array)) {
    ArrayRep* array = registers[0].array();
    if (index >= array->count()) return false;
    variable = CopyOf(array->elements()[index]);
  } else if (registers[0].Is(Type::Object)) {
    Value item;
    if (!registers[0].object()->Item(*this, index, item)) {
      variable.Clear();
      return false;
    }
    variable = std::move(item);
  } else {
    RaiseBare(kNotACollection);
  }
  registers[1].SetPlain(Type::Long, static_cast<std::int64_t>(index + 1));
  return true;
}

}  // namespace qv::vbscript
