#include <cmath>

#include "vbscript/arithmetic.h"
#include "vbscript/compare.h"
#include "vbscript/convert.h"
#include "vbscript/failure.h"
#include "vbscript/machine_frames.h"
#include "vbscript/text.h"

#pragma GCC diagnostic ignored "-Wpedantic"  // labels as values

namespace qv::vbscript {
namespace {

inline bool IsShort(std::int64_t n) { return n == static_cast<std::int16_t>(n); }
inline bool IsWord(std::int64_t n) { return n == static_cast<std::int32_t>(n); }

// The result of whole numbers in the smallest type that the operands' types allow.
inline void SetWhole(Value& into, std::int64_t n, bool both_short) {
  if (both_short && IsShort(n)) {
    into.SetPlain(Type::Integer, n);
  } else if (IsWord(n)) {
    into.SetPlain(Type::Long, n);
  } else {
    into.SetPlain(Type::Double, static_cast<double>(n));
  }
}

inline bool BothShort(const Value& left, const Value& right) {
  return left.Is(Type::Integer) && right.Is(Type::Integer);
}

// The element of a table with two numbers as its indexes; a null pointer for anything else.
inline Value* TableElement(const Value& container, const Value* indexes, std::uint32_t n) {
  if (!container.Is(Type::Array) || n != 2 || !indexes[0].IsInt() || !indexes[1].IsInt()) return nullptr;
  ArrayRep* array = container.array();
  if (array->dimensions() != 2) return nullptr;
  const auto column = static_cast<std::uint64_t>(indexes[0].n());
  const auto row = static_cast<std::uint64_t>(indexes[1].n());
  if (column >= array->size(0) || row >= array->size(1)) return nullptr;
  return array->elements() + row * array->size(0) + column;
}

inline bool IsTrue(Context& context, const Value& value) {
  return value.Is(Type::Boolean) ? value.n() != 0 : ToCondition(context, value);
}

}  // namespace

// Every instruction has its fast path here, on the operands as they stand; references, conversions and whatever else
// may go wrong is behind the calls. The instruction is noted in the frame before anything that may throw.
void Machine::Loop(std::size_t base) {
  std::uintptr_t tables[4];
  Value* registers = nullptr;
  const Instr* i = nullptr;
  Frame* here = nullptr;
  const Frame* const base_frame = frames_.data() + base;

  const auto load = [&]() __attribute__((always_inline)) {
    here = &frame();
    registers = here->registers;
    tables[0] = reinterpret_cast<std::uintptr_t>(registers);
    tables[1] = reinterpret_cast<std::uintptr_t>(here->procedure->constants.data()) - 1;
    tables[2] = reinterpret_cast<std::uintptr_t>(globals_.values()) - 2;
    tables[3] = here->me ? reinterpret_cast<std::uintptr_t>(here->me->fields()) - 3 : 0;
    i = here->pc;
  };
  const auto at = [&](Operand operand) __attribute__((always_inline))->Value& {
    return *reinterpret_cast<Value*>(tables[operand & 3] + operand);
  };
  const auto code = [&](std::uint32_t index) __attribute__((always_inline)) {
    return here->procedure->code.data() + index;
  };

  // In the order of Op.
  // clang-format off
  static const void* const kLabels[] = {
      &&kLoad, &&kLet, &&kLetMove, &&kSet, &&kMakeRef, &&kElementRef, &&kLoadName, &&kBindWrite, &&kTouch,
      &&kBindScoped, &&kAdd, &&kSubtract, &&kMultiply, &&kDivide, &&kIntDivide, &&kModulo, &&kPower, &&kConcat,
      &&kAnd, &&kOr, &&kXor, &&kEqv, &&kImp, &&kNegate, &&kPlus, &&kNot, &&kEqual, &&kNotEqual, &&kLess, &&kGreater,
      &&kLessEqual, &&kGreaterEqual, &&kIs, &&kJump, &&kLoopJump, &&kJumpIf, &&kJumpUnless, &&kJumpEqual,
      &&kJumpNotEqual, &&kJumpLess, &&kJumpGreater, &&kJumpLessEqual, &&kJumpGreaterEqual, &&kUnlessEqual,
      &&kUnlessNotEqual, &&kUnlessLess, &&kUnlessGreater, &&kUnlessLessEqual, &&kUnlessGreaterEqual, &&kForInit,
      &&kForNext, &&kEachInit, &&kEachNext, &&kWithInit, &&kSubject, &&kIndex, &&kIndexRef, &&kAddElement, &&kIndexN,
      &&kIndexLet, &&kIndexLetN, &&kCallName, &&kCallValue, &&kCallOwn, &&kIntrinsic, &&kMemberGet, &&kMemberLet,
      &&kMemberSet, &&kNew, &&kNewRegExp, &&kMe, &&kDimArray, &&kReDim, &&kErase, &&kByValue, &&kResumeNext,
      &&kGoToZero, &&kRaise, &&kClear, &&kReturn,
  };
  // clang-format on
  static_assert(sizeof(kLabels) / sizeof(kLabels[0]) == static_cast<std::size_t>(Op::kReturn) + 1);

// Each instruction jumps to the next one's code by itself, so that the processor can tell the jumps apart. No variable
// with a destructor may be in scope there: it would not run.
#define QV_CASE(name) \
  name:
#define QV_DISPATCH() goto* kLabels[static_cast<std::size_t>(i->op)]
#define QV_NEXT    \
  do {             \
    ++i;           \
    QV_DISPATCH(); \
  } while (false)
#define QV_SAVE here->pc = i

  load();
  QV_DISPATCH();
  QV_CASE(kLoad) {
    at(i->a) = at(i->b).Deref();
    QV_NEXT;
  }
  QV_CASE(kLet)
  QV_CASE(kLetMove) {
    Value& target = at(i->a);
    const Value& value = at(i->b);
    if (target.IsSimple() && value.IsSimple()) {
      target = value;
      QV_NEXT;
    }
    QV_SAVE;
    Value& variable = target.Target();
    if (i->op == Op::kLetMove && value.Is(Type::String)) {
      variable = std::move(at(i->b));
    } else {
      Let(variable, value.Deref());
      if (i->op == Op::kLetMove) at(i->b).Clear();
    }
    if (HasFarewells()) SayFarewells();
    QV_NEXT;
  }
  QV_CASE(kSet)
  QV_SAVE;
  Set(at(i->a).Target(), at(i->b).Deref());
  if (HasFarewells()) SayFarewells();
  QV_NEXT;
  QV_CASE(kMakeRef) {
    Value& variable = at(i->b);
    at(i->a).SetRef(variable.IsRef() ? variable.target() : &variable);
    QV_NEXT;
  }
  QV_CASE(kElementRef)
  QV_SAVE;
  ReferToElement(at(i->a), at(i->b).Target(), &at(i->c), i->n);
  QV_NEXT;
  QV_CASE(kLoadName)
  QV_SAVE;
  if (LoadName(at(i->a), i->b == kNoOperand ? nullptr : &at(i->b), i->c, i->n != 0)) {
    load();
    QV_DISPATCH();
  }
  QV_NEXT;
  QV_CASE(kBindWrite)
  QV_SAVE;
  BindWrite(at(i->a), i->b, i->n != 0);
  QV_NEXT;
  QV_CASE(kTouch)
  QV_SAVE;
  Touch(i->a, i->n != 0);
  QV_NEXT;
  QV_CASE(kBindScoped)
  QV_SAVE;
  BindScoped(at(i->a), static_cast<Atom>(i->b), i->n != 0);
  QV_NEXT;

#define QV_ARITHMETIC(op_name, sign)                                                                  \
  QV_CASE(op_name) {                                                                                  \
    const Value* left = &at(i->b);                                                                    \
    const Value* right = &at(i->c);                                                                   \
    if (!(left->IsInt() && right->IsInt()) && !(left->Is(Type::Double) && right->Is(Type::Double))) { \
      left = &left->Deref();                                                                          \
      right = &right->Deref();                                                                        \
    }                                                                                                 \
    if (left->IsInt() && right->IsInt()) {                                                            \
      SetWhole(at(i->a), left->n() sign right->n(), BothShort(*left, *right));                        \
      QV_NEXT;                                                                                        \
    }                                                                                                 \
    if (left->Is(Type::Double) && right->Is(Type::Double)) {                                          \
      const double result = left->d() sign right->d();                                                \
      if (std::isfinite(result)) {                                                                    \
        at(i->a).SetPlain(Type::Double, result);                                                      \
        QV_NEXT;                                                                                      \
      }                                                                                               \
    }                                                                                                 \
    QV_SAVE;                                                                                          \
    at(i->a) = Binary(i->op, *left, *right, 0);                                                       \
    QV_NEXT;                                                                                          \
  }
  QV_ARITHMETIC(kAdd, +)
  QV_ARITHMETIC(kSubtract, -)
  QV_ARITHMETIC(kMultiply, *)
#undef QV_ARITHMETIC
  QV_CASE(kDivide)
  QV_SAVE;
  at(i->a) = Binary(i->op, at(i->b), at(i->c), 0);
  QV_NEXT;
  QV_CASE(kIntDivide)
  QV_CASE(kModulo) {
    const Value& left = at(i->b);
    const Value& right = at(i->c);
    if (left.IsInt() && right.IsInt() && right.n() > 0) {
      const std::int64_t n = i->op == Op::kModulo ? left.n() % right.n() : left.n() / right.n();
      at(i->a).SetPlain(BothShort(left, right) ? Type::Integer : Type::Long, n);
      QV_NEXT;
    }
    QV_SAVE;
    at(i->a) = Binary(i->op, left, right, 0);
    QV_NEXT;
  }
  QV_CASE(kPower)
  QV_SAVE;
  at(i->a) = Binary(i->op, at(i->b), at(i->c), 0);
  QV_NEXT;
  QV_CASE(kConcat) {
    const Value& left = at(i->b);
    const Value& right = at(i->c);
    QV_SAVE;
    at(i->a) =
        left.Is(Type::String) && right.Is(Type::String) ? Join(*this, left, right) : Binary(i->op, left, right, 0);
    QV_NEXT;
  }
  QV_CASE(kAnd)
  QV_CASE(kOr)
  QV_CASE(kXor)
  QV_CASE(kEqv)
  QV_CASE(kImp) {
    const Value& left = at(i->b);
    const Value& right = at(i->c);
    if (left.Is(Type::Boolean) && right.Is(Type::Boolean) && i->op <= Op::kOr) {
      at(i->a).SetPlain(Type::Boolean, i->op == Op::kAnd ? left.n() & right.n() : left.n() | right.n());
      QV_NEXT;
    }
    QV_SAVE;
    at(i->a) = Binary(i->op, left, right, 0);
    QV_NEXT;
  }
  QV_CASE(kNegate)
  QV_SAVE;
  at(i->a) = Negate(*this, at(i->b).Deref());
  QV_NEXT;
  QV_CASE(kPlus)
  QV_SAVE;
  at(i->a) = at(i->b).Deref().Is(Type::Object) ? DefaultValue(at(i->b).Deref()) : at(i->b).Deref();
  QV_NEXT;
  QV_CASE(kNot) {
    const Value& operand = at(i->b);
    if (operand.Is(Type::Boolean)) {
      at(i->a).SetPlain(Type::Boolean, ~operand.n());
      QV_NEXT;
    }
    QV_SAVE;
    at(i->a) = Not(*this, operand.Deref());
    QV_NEXT;
  }

#define QV_HOLDS(sign, kind)                     \
  const Value* left = &at(i->b);                 \
  const Value* right = &at(i->c);                \
  if (!(left->IsInt() && right->IsInt())) {      \
    left = &left->Deref();                       \
    right = &right->Deref();                     \
  }                                              \
  bool holds;                                    \
  if (left->IsInt() && right->IsInt()) {         \
    holds = left->n() sign right->n();           \
  } else {                                       \
    QV_SAVE;                                     \
    holds = Compared(kind, *left, *right, i->n); \
  }
#define QV_COMPARISON(value_op, jump_op, unless_op, sign, kind)                                       \
  QV_CASE(value_op) {                                                                                 \
    const Value& left = at(i->b);                                                                     \
    const Value& right = at(i->c);                                                                    \
    if (left.IsInt() && right.IsInt()) {                                                              \
      at(i->a).SetPlain(Type::Boolean, left.n() sign right.n() ? std::int64_t{-1} : std::int64_t{0}); \
      QV_NEXT;                                                                                        \
    }                                                                                                 \
    QV_SAVE;                                                                                          \
    at(i->a) = Binary(i->op, left, right, i->n);                                                      \
    QV_NEXT;                                                                                          \
  }                                                                                                   \
  QV_CASE(jump_op) {                                                                                  \
    QV_HOLDS(sign, kind)                                                                              \
    if (!holds) QV_NEXT;                                                                              \
    i = code(i->a);                                                                                   \
    QV_DISPATCH();                                                                                    \
  }                                                                                                   \
  QV_CASE(unless_op) {                                                                                \
    QV_HOLDS(sign, kind)                                                                              \
    if (holds) QV_NEXT;                                                                               \
    i = code(i->a);                                                                                   \
    QV_DISPATCH();                                                                                    \
  }
  QV_COMPARISON(kEqual, kJumpEqual, kUnlessEqual, ==, Comparison::kEqual)
  QV_COMPARISON(kNotEqual, kJumpNotEqual, kUnlessNotEqual, !=, Comparison::kNotEqual)
  QV_COMPARISON(kLess, kJumpLess, kUnlessLess, <, Comparison::kLess)
  QV_COMPARISON(kGreater, kJumpGreater, kUnlessGreater, >, Comparison::kGreater)
  QV_COMPARISON(kLessEqual, kJumpLessEqual, kUnlessLessEqual, <=, Comparison::kLessEqual)
  QV_COMPARISON(kGreaterEqual, kJumpGreaterEqual, kUnlessGreaterEqual, >=, Comparison::kGreaterEqual)
#undef QV_COMPARISON
#undef QV_HOLDS
  QV_CASE(kIs)
  QV_SAVE;
  at(i->a) = SameObject(at(i->b).Deref(), at(i->c).Deref());
  QV_NEXT;
  QV_CASE(kLoopJump)
  QV_SAVE;
  Poll();
  i = code(i->a);
  QV_DISPATCH();
  QV_CASE(kJump)
  i = code(i->a);
  QV_DISPATCH();
  QV_CASE(kJumpIf)
  QV_SAVE;
  if (IsTrue(*this, at(i->b).Deref())) {
    i = code(i->a);
    QV_DISPATCH();
  }
  QV_NEXT;
  QV_CASE(kJumpUnless)
  QV_SAVE;
  if (!IsTrue(*this, at(i->b).Deref())) {
    i = code(i->a);
    QV_DISPATCH();
  }
  QV_NEXT;
  QV_CASE(kForInit)
  QV_SAVE;
  if (!ForInit(&at(i->b), at(i->c).Target())) {
    i = code(i->a);
    QV_DISPATCH();
  }
  QV_NEXT;
  QV_CASE(kForNext) {
    QV_SAVE;
    Poll();
    Value& variable = at(i->c);
    Value* limits = &at(i->b);
    if (variable.IsInt() && limits[1].IsInt() && limits[2].IsInt()) {
      const std::int64_t n = variable.n() + limits[2].n();
      SetWhole(variable, n, BothShort(variable, limits[2]));
      if (limits[2].n() >= 0 ? n > limits[1].n() : n < limits[1].n()) QV_NEXT;
    } else if (!ForNext(limits, variable.Target())) {
      QV_NEXT;
    }
    i = code(i->a);
    QV_DISPATCH();
  }
  QV_CASE(kEachInit)
  QV_SAVE;
  EachInit(&at(i->b), at(i->c).Deref());
  QV_NEXT;
  QV_CASE(kEachNext)
  QV_SAVE;
  Poll();
  if (EachNext(&at(i->b), at(i->c).Target())) {
    i = code(i->a);
    QV_DISPATCH();
  }
  QV_NEXT;
  QV_CASE(kWithInit) {
    QV_SAVE;
    const Value& object = at(i->c).Deref();
    if (!object.Is(Type::Object)) RaiseNamed(kObjectRequired, Described(object));
    at(i->b) = object;
    QV_NEXT;
  }
  QV_CASE(kSubject) {
    QV_SAVE;
    const Value& subject = at(i->c).Deref();
    at(i->b) = subject.Is(Type::Object) ? DefaultValue(subject) : subject;
    QV_NEXT;
  }
  QV_CASE(kIndex) {
    const Value& container = at(i->b);
    const Value& index = at(i->c);
    if (container.Is(Type::Array) && index.IsInt()) {
      ArrayRep* array = container.array();
      if (array->dimensions() == 1 && static_cast<std::uint64_t>(index.n()) < array->count()) {
        at(i->a) = array->elements()[index.n()];
        QV_NEXT;
      }
    }
    QV_SAVE;
    Index(at(i->a), container.Deref(), &index, 1);
    QV_NEXT;
  }
  QV_CASE(kIndexRef) {
    const Value& container = at(i->b);
    const Value& index = at(i->c);
    if (container.Is(Type::Array) && index.IsInt()) {
      ArrayRep* array = container.array();
      if (array->dimensions() == 1 && static_cast<std::uint64_t>(index.n()) < array->count()) {
        at(i->a).SetRef(array->elements() + index.n());
        QV_NEXT;
      }
    }
    QV_SAVE;
    Index(at(i->a), container.Deref(), &index, 1);
    QV_NEXT;
  }
  QV_CASE(kAddElement) {
    const Value& left = at(i->b);
    const Value& container = at(i->c);
    const Value& index = registers[i->n];
    if (container.Is(Type::Array) && index.IsInt()) {
      ArrayRep* array = container.array();
      if (array->dimensions() == 1 && static_cast<std::uint64_t>(index.n()) < array->count()) {
        const Value& element = array->elements()[index.n()];
        if (left.IsInt() && element.IsInt()) {
          SetWhole(at(i->a), left.n() + element.n(), BothShort(left, element));
          QV_NEXT;
        }
      }
    }
    QV_SAVE;
    at(i->a) = AddIndexed(left, container.Deref(), index);
    QV_NEXT;
  }
  QV_CASE(kIndexN) {
    const Value& container = at(i->b).Deref();
    const Value* indexes = &at(i->c);
    if (const Value* element = TableElement(container, indexes, i->n)) {
      at(i->a) = *element;
      QV_NEXT;
    }
    QV_SAVE;
    Index(at(i->a), container, indexes, i->n);
    QV_NEXT;
  }
  QV_CASE(kIndexLet) {
    Value& container = at(i->a);
    const Value& index = at(i->b);
    const Value& value = at(i->c);
    if (container.Is(Type::Array) && index.IsInt() && !value.IsCounted() && !value.IsRef() && i->n == 0) {
      ArrayRep* array = container.array();
      if (array->dimensions() == 1 && !array->shared() && static_cast<std::uint64_t>(index.n()) < array->count()) {
        Value& element = array->elements()[index.n()];
        if (element.IsSimple()) {
          element = value;
          QV_NEXT;
        }
      }
    }
    QV_SAVE;
    IndexLet(container.Target(), &index, 1, value.Deref(), i->n != 0);
    if (HasFarewells()) SayFarewells();
    QV_NEXT;
  }
  QV_CASE(kIndexLetN) {
    Value* indexes = &at(i->b);
    const Value& value = indexes[i->n];
    Value& container = at(i->a).Target();
    if (!value.IsCounted() && !value.IsRef() && i->c == 0) {
      Value* element = TableElement(container, indexes, i->n);
      if (element && element->IsSimple() && !container.array()->shared()) {
        *element = value;
        QV_NEXT;
      }
    }
    QV_SAVE;
    IndexLet(at(i->a).Target(), indexes, i->n, indexes[i->n].Deref(), i->c != 0);
    if (HasFarewells()) SayFarewells();
    QV_NEXT;
  }
  QV_CASE(kCallName) {
    QV_SAVE;
    Value* t = &at(i->a);
    const GlobalName& name = globals_.name(i->b);
    if (name.kind == GlobalName::Kind::kProcedure && (i->c == kNoOperand || at(i->c).Is(Type::Empty))) {
      Enter(*name.procedure, t, i->n & kCountMask, nullptr);
    } else if (!CallName(t, i->b, i->c == kNoOperand ? nullptr : &at(i->c), i->n)) {
      QV_NEXT;
    }
    load();
    QV_DISPATCH();
  }
  QV_CASE(kCallValue)
  QV_SAVE;
  if (!CallValue(&at(i->a), i->n)) QV_NEXT;
  load();
  QV_DISPATCH();
  QV_CASE(kCallOwn)
  QV_SAVE;
  if (!CallOwn(&at(i->a), static_cast<Atom>(i->b), i->n)) QV_NEXT;
  load();
  QV_DISPATCH();
  QV_CASE(kIntrinsic)
  QV_SAVE;
  CallIntrinsic(at(i->a), &at(i->b), i->c, i->n);
  QV_NEXT;
  QV_CASE(kMemberGet)
  QV_SAVE;
  if (!CallMember(&at(i->a), static_cast<Atom>(i->b), i->n)) QV_NEXT;
  load();
  QV_DISPATCH();
  QV_CASE(kMemberLet)
  QV_CASE(kMemberSet)
  QV_SAVE;
  if (!AssignMember(&at(i->a), static_cast<Atom>(i->b), i->n, i->op == Op::kMemberSet, i->c != 0)) QV_NEXT;
  load();
  QV_DISPATCH();
  QV_CASE(kNew)
  QV_SAVE;
  NewObject(at(i->a), i->b);
  QV_NEXT;
  QV_CASE(kNewRegExp)
  QV_SAVE;
  NewRegExp(at(i->a));
  QV_NEXT;
  QV_CASE(kMe)
  at(i->a) = here->me ? Value::OfObject(here->me) : script_object_;
  QV_NEXT;
  QV_CASE(kDimArray)
  QV_SAVE;
  DimArray(at(i->a).Target(), here->procedure->bounds[i->c]);
  QV_NEXT;
  QV_CASE(kReDim)
  QV_SAVE;
  ReDimension(at(i->a).Target(), &at(i->b), i->n, i->c != 0);
  if (HasFarewells()) SayFarewells();
  QV_NEXT;
  QV_CASE(kErase)
  QV_SAVE;
  Erase(at(i->a).Target());
  if (HasFarewells()) SayFarewells();
  QV_NEXT;
  QV_CASE(kByValue) {
    Value& argument = at(i->a);
    if (argument.IsRef()) {
      QV_SAVE;
      Value copy = CopyOf(*argument.target());
      argument = std::move(copy);
    }
    QV_NEXT;
  }
  QV_CASE(kResumeNext)
  here->resume_next = true;
  error_.Clear();
  QV_NEXT;
  QV_CASE(kGoToZero)
  here->resume_next = false;
  error_.Clear();
  QV_NEXT;
  QV_CASE(kRaise)
  QV_SAVE;
  Raise(static_cast<int>(i->a));
  QV_CASE(kClear) {
    Value* first = &at(i->a);
    for (std::uint32_t k = 0; k < i->n; ++k) first[k].Clear();
    if (HasFarewells()) {
      QV_SAVE;
      SayFarewells();
    }
    QV_NEXT;
  }
  QV_CASE(kReturn)
  QV_SAVE;
  Leave();
  if (free_frame_ == base_frame) return;
  load();
  if (HasFarewells()) SayFarewells();
  QV_NEXT;
#undef QV_SAVE
#undef QV_CASE
#undef QV_DISPATCH
#undef QV_NEXT
}

}  // namespace qv::vbscript
