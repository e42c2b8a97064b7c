#include <cmath>

#include "vbscript/arithmetic.h"
#include "vbscript/compare.h"
#include "vbscript/convert.h"
#include "vbscript/failure.h"
#include "vbscript/machine.h"
#include "vbscript/text.h"

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

inline bool IsTrue(Context& context, const Value& value) {
  return value.Is(Type::Boolean) ? value.n() != 0 : ToCondition(context, value);
}

}  // namespace

// Every instruction has its fast path here, on the operands as they stand; references, conversions and whatever else
// may go wrong is behind the calls. The instruction is noted in the frame before anything that may throw.
void Machine::Loop(std::size_t base) {
  const char* tables[4];
  Value* registers = nullptr;
  const Instr* i = nullptr;
  Frame* here = nullptr;

  const auto load = [&]() __attribute__((always_inline)) {
    here = &frame();
    registers = here->registers;
    tables[0] = reinterpret_cast<const char*>(registers);
    tables[1] = reinterpret_cast<const char*>(here->procedure->constants.data()) - 1;
    tables[2] = reinterpret_cast<const char*>(globals_.values()) - 2;
    tables[3] = here->me ? reinterpret_cast<const char*>(here->me->fields()) - 3 : nullptr;
    i = here->pc;
  };
  const auto at = [&](Operand operand) __attribute__((always_inline)) -> Value& {
    return *const_cast<Value*>(reinterpret_cast<const Value*>(tables[operand & 3] + operand));
  };
  const auto code = [&](std::uint32_t index) __attribute__((always_inline)) { return here->procedure->code.data() + index; };

#define QV_SAVE here->pc = i

  load();
  for (;; ++i) {
  again:
    switch (i->op) {
      case Op::kLoad: {
        at(i->a) = at(i->b).Deref();
        break;
      }
      case Op::kLet:
      case Op::kLetMove: {
        Value& target = at(i->a);
        const Value& value = at(i->b);
        if (target.IsSimple() && value.IsSimple()) {
          target = value;
          break;
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
        break;
      }
      case Op::kSet:
        QV_SAVE;
        Set(at(i->a).Target(), at(i->b).Deref());
        if (HasFarewells()) SayFarewells();
        break;
      case Op::kMakeRef: {
        Value& variable = at(i->b);
        at(i->a).SetRef(variable.IsRef() ? variable.target() : &variable);
        break;
      }
      case Op::kElementRef:
        QV_SAVE;
        ReferToElement(at(i->a), at(i->b).Target(), &at(i->c), i->n);
        break;
      case Op::kLoadName:
        QV_SAVE;
        if (LoadName(at(i->a), i->b == kNoOperand ? nullptr : &at(i->b), i->c, i->n != 0)) {
          load();
          goto again;
        }
        break;
      case Op::kBindWrite:
        QV_SAVE;
        BindWrite(at(i->a), i->b, i->n != 0);
        break;
      case Op::kTouch:
        QV_SAVE;
        Touch(i->a, i->n != 0);
        break;
      case Op::kBindScoped:
        QV_SAVE;
        BindScoped(at(i->a), static_cast<Atom>(i->b), i->n != 0);
        break;

#define QV_ARITHMETIC(op_name, routine, sign)                                      \
  case Op::op_name: {                                                              \
    const Value* left = &at(i->b);                                                 \
    const Value* right = &at(i->c);                                                \
    if (!(left->IsInt() && right->IsInt())) {                                      \
      left = &left->Deref();                                                       \
      right = &right->Deref();                                                     \
    }                                                                              \
    if (left->IsInt() && right->IsInt()) {                                         \
      SetWhole(at(i->a), left->n() sign right->n(), BothShort(*left, *right));     \
      break;                                                                       \
    }                                                                              \
    if (left->Is(Type::Double) && right->Is(Type::Double)) {                       \
      const double result = left->d() sign right->d();                             \
      if (std::isfinite(result)) {                                                 \
        at(i->a).SetPlain(Type::Double, result);                                   \
        break;                                                                     \
      }                                                                            \
    }                                                                              \
    QV_SAVE;                                                                       \
    at(i->a) = routine(*this, *left, *right);                                      \
    break;                                                                         \
  }
        QV_ARITHMETIC(kAdd, Add, +)
        QV_ARITHMETIC(kSubtract, Subtract, -)
        QV_ARITHMETIC(kMultiply, Multiply, *)
#undef QV_ARITHMETIC
      case Op::kDivide:
        QV_SAVE;
        at(i->a) = Divide(*this, at(i->b).Deref(), at(i->c).Deref());
        break;
      case Op::kIntDivide:
      case Op::kModulo: {
        const Value& left = at(i->b);
        const Value& right = at(i->c);
        if (left.IsInt() && right.IsInt() && right.n() > 0) {
          const std::int64_t n = i->op == Op::kModulo ? left.n() % right.n() : left.n() / right.n();
          at(i->a).SetPlain(BothShort(left, right) ? Type::Integer : Type::Long, n);
          break;
        }
        QV_SAVE;
        at(i->a) = i->op == Op::kModulo ? Modulo(*this, left.Deref(), right.Deref())
                                        : IntDivide(*this, left.Deref(), right.Deref());
        break;
      }
      case Op::kPower:
        QV_SAVE;
        at(i->a) = Power(*this, at(i->b).Deref(), at(i->c).Deref());
        break;
      case Op::kConcat: {
        const Value& left = at(i->b);
        const Value& right = at(i->c);
        QV_SAVE;
        at(i->a) = left.Is(Type::String) && right.Is(Type::String) ? Join(*this, left, right)
                                                                   : Concat(*this, left.Deref(), right.Deref());
        break;
      }
      case Op::kAnd:
      case Op::kOr:
      case Op::kXor:
      case Op::kEqv:
      case Op::kImp: {
        const Value& left = at(i->b);
        const Value& right = at(i->c);
        if (left.Is(Type::Boolean) && right.Is(Type::Boolean) && i->op <= Op::kOr) {
          at(i->a).SetPlain(Type::Boolean, i->op == Op::kAnd ? left.n() & right.n() : left.n() | right.n());
          break;
        }
        QV_SAVE;
        at(i->a) = Logic(*this, i->op, left.Deref(), right.Deref());
        break;
      }
      case Op::kNegate:
        QV_SAVE;
        at(i->a) = Negate(*this, at(i->b).Deref());
        break;
      case Op::kPlus:
        QV_SAVE;
        at(i->a) = at(i->b).Deref().Is(Type::Object) ? DefaultValue(at(i->b).Deref()) : at(i->b).Deref();
        break;
      case Op::kNot: {
        const Value& operand = at(i->b);
        if (operand.Is(Type::Boolean)) {
          at(i->a).SetPlain(Type::Boolean, ~operand.n());
          break;
        }
        QV_SAVE;
        at(i->a) = Not(*this, operand.Deref());
        break;
      }

#define QV_HOLDS(sign, kind)                                                     \
  const Value* left = &at(i->b);                                                 \
  const Value* right = &at(i->c);                                                \
  if (!(left->IsInt() && right->IsInt())) {                                      \
    left = &left->Deref();                                                       \
    right = &right->Deref();                                                     \
  }                                                                              \
  bool holds;                                                                    \
  if (left->IsInt() && right->IsInt()) {                                         \
    holds = left->n() sign right->n();                                           \
  } else {                                                                       \
    QV_SAVE;                                                                     \
    holds = Holds(*this, kind, *left, *right, i->n);                             \
  }
#define QV_COMPARISON(value_op, jump_op, unless_op, sign, kind)                                       \
  case Op::value_op: {                                                                                \
    const Value& left = at(i->b);                                                                     \
    const Value& right = at(i->c);                                                                    \
    if (left.IsInt() && right.IsInt()) {                                                              \
      at(i->a).SetPlain(Type::Boolean, left.n() sign right.n() ? std::int64_t{-1} : std::int64_t{0}); \
      break;                                                                                          \
    }                                                                                                 \
    QV_SAVE;                                                                                          \
    at(i->a) = CompareValues(*this, kind, left.Deref(), right.Deref(), i->n);                         \
    break;                                                                                            \
  }                                                                                                   \
  case Op::jump_op: {                                                                                 \
    QV_HOLDS(sign, kind)                                                                              \
    if (!holds) break;                                                                                \
    i = code(i->a);                                                                                   \
    goto again;                                                                                       \
  }                                                                                                   \
  case Op::unless_op: {                                                                               \
    QV_HOLDS(sign, kind)                                                                              \
    if (holds) break;                                                                                 \
    i = code(i->a);                                                                                   \
    goto again;                                                                                       \
  }
        QV_COMPARISON(kEqual, kJumpEqual, kUnlessEqual, ==, Comparison::kEqual)
        QV_COMPARISON(kNotEqual, kJumpNotEqual, kUnlessNotEqual, !=, Comparison::kNotEqual)
        QV_COMPARISON(kLess, kJumpLess, kUnlessLess, <, Comparison::kLess)
        QV_COMPARISON(kGreater, kJumpGreater, kUnlessGreater, >, Comparison::kGreater)
        QV_COMPARISON(kLessEqual, kJumpLessEqual, kUnlessLessEqual, <=, Comparison::kLessEqual)
        QV_COMPARISON(kGreaterEqual, kJumpGreaterEqual, kUnlessGreaterEqual, >=, Comparison::kGreaterEqual)
#undef QV_COMPARISON
#undef QV_HOLDS
      case Op::kIs:
        QV_SAVE;
        at(i->a) = SameObject(at(i->b).Deref(), at(i->c).Deref());
        break;
      case Op::kLoopJump:
        QV_SAVE;
        Poll();
        i = code(i->a);
        goto again;
      case Op::kJump:
        i = code(i->a);
        goto again;
      case Op::kJumpIf:
        QV_SAVE;
        if (IsTrue(*this, at(i->b).Deref())) {
          i = code(i->a);
          goto again;
        }
        break;
      case Op::kJumpUnless:
        QV_SAVE;
        if (!IsTrue(*this, at(i->b).Deref())) {
          i = code(i->a);
          goto again;
        }
        break;
      case Op::kForInit:
        QV_SAVE;
        if (!ForInit(&at(i->b), at(i->c).Target())) {
          i = code(i->a);
          goto again;
        }
        break;
      case Op::kForNext: {
        QV_SAVE;
        Poll();
        Value& variable = at(i->c);
        Value* limits = &at(i->b);
        if (variable.IsInt() && limits[1].IsInt() && limits[2].IsInt()) {
          const std::int64_t n = variable.n() + limits[2].n();
          SetWhole(variable, n, BothShort(variable, limits[2]));
          if (limits[2].n() >= 0 ? n > limits[1].n() : n < limits[1].n()) break;
        } else if (!ForNext(limits, variable.Target())) {
          break;
        }
        i = code(i->a);
        goto again;
      }
      case Op::kEachInit:
        QV_SAVE;
        EachInit(&at(i->b), at(i->c).Deref());
        break;
      case Op::kEachNext:
        QV_SAVE;
        Poll();
        if (EachNext(&at(i->b), at(i->c).Target())) {
          i = code(i->a);
          goto again;
        }
        break;
      case Op::kWithInit: {
        QV_SAVE;
        const Value& object = at(i->c).Deref();
        if (!object.Is(Type::Object)) RaiseNamed(kObjectRequired, Described(object));
        at(i->b) = object;
        break;
      }
      case Op::kSubject: {
        QV_SAVE;
        const Value& subject = at(i->c).Deref();
        at(i->b) = subject.Is(Type::Object) ? DefaultValue(subject) : subject;
        break;
      }
      case Op::kIndex: {
        const Value& container = at(i->b);
        const Value& index = at(i->c);
        if (container.Is(Type::Array) && index.IsInt()) {
          ArrayRep* array = container.array();
          if (array->dimensions() == 1 && static_cast<std::uint64_t>(index.n()) < array->count()) {
            at(i->a) = array->elements()[index.n()];
            break;
          }
        }
        QV_SAVE;
        Index(at(i->a), container.Deref(), &index, 1);
        break;
      }
      case Op::kIndexN:
        QV_SAVE;
        Index(at(i->a), at(i->b).Deref(), &at(i->c), i->n);
        break;
      case Op::kIndexLet: {
        Value& container = at(i->a);
        const Value& index = at(i->b);
        const Value& value = at(i->c);
        if (container.Is(Type::Array) && index.IsInt() && !value.IsCounted() && !value.IsRef() && i->n == 0) {
          ArrayRep* array = container.array();
          if (array->dimensions() == 1 && !array->shared() && static_cast<std::uint64_t>(index.n()) < array->count()) {
            array->elements()[index.n()] = value;
            break;
          }
        }
        QV_SAVE;
        IndexLet(container.Target(), &index, 1, value.Deref(), i->n != 0);
        if (HasFarewells()) SayFarewells();
        break;
      }
      case Op::kIndexLetN: {
        QV_SAVE;
        Value* indexes = &at(i->b);
        IndexLet(at(i->a).Target(), indexes, i->n, indexes[i->n].Deref(), i->c != 0);
        if (HasFarewells()) SayFarewells();
        break;
      }
      case Op::kCallName: {
        QV_SAVE;
        Value* t = &at(i->a);
        const GlobalName& name = globals_.name(i->b);
        if (name.kind == GlobalName::Kind::kProcedure && (i->c == kNoOperand || at(i->c).Is(Type::Empty))) {
          Enter(*name.procedure, t, i->n & kCountMask, nullptr);
        } else if (!CallName(t, i->b, i->c == kNoOperand ? nullptr : &at(i->c), i->n)) {
          break;
        }
        load();
        goto again;
      }
      case Op::kCallValue:
        QV_SAVE;
        if (!CallValue(&at(i->a), i->n)) break;
        load();
        goto again;
      case Op::kCallOwn:
        QV_SAVE;
        if (!CallOwn(&at(i->a), static_cast<Atom>(i->b), i->n)) break;
        load();
        goto again;
      case Op::kIntrinsic:
        QV_SAVE;
        CallIntrinsic(at(i->a), &at(i->b), i->c, i->n);
        break;
      case Op::kMemberGet:
        QV_SAVE;
        if (!CallMember(&at(i->a), static_cast<Atom>(i->b), i->n)) break;
        load();
        goto again;
      case Op::kMemberLet:
      case Op::kMemberSet:
        QV_SAVE;
        if (!AssignMember(&at(i->a), static_cast<Atom>(i->b), i->n, i->op == Op::kMemberSet, i->c != 0)) break;
        load();
        goto again;
      case Op::kNew:
        QV_SAVE;
        NewObject(at(i->a), i->b);
        break;
      case Op::kNewRegExp:
        QV_SAVE;
        NewRegExp(at(i->a));
        break;
      case Op::kMe:
        at(i->a) = here->me ? Value::OfObject(here->me) : script_object_;
        break;
      case Op::kDimArray:
        QV_SAVE;
        DimArray(at(i->a).Target(), here->procedure->bounds[i->c]);
        break;
      case Op::kReDim:
        QV_SAVE;
        ReDimension(at(i->a).Target(), &at(i->b), i->n, i->c != 0);
        if (HasFarewells()) SayFarewells();
        break;
      case Op::kErase:
        QV_SAVE;
        Erase(at(i->a).Target());
        if (HasFarewells()) SayFarewells();
        break;
      case Op::kByValue: {
        Value& argument = at(i->a);
        if (argument.IsRef()) {
          QV_SAVE;
          Value copy = CopyOf(*argument.target());
          argument = std::move(copy);
        }
        break;
      }
      case Op::kResumeNext:
        here->resume_next = true;
        error_.Clear();
        break;
      case Op::kGoToZero:
        here->resume_next = false;
        error_.Clear();
        break;
      case Op::kRaise:
        QV_SAVE;
        Raise(static_cast<int>(i->a));
      case Op::kClear: {
        Value* first = &at(i->a);
        for (std::uint32_t k = 0; k < i->n; ++k) first[k].Clear();
        if (HasFarewells()) {
          QV_SAVE;
          SayFarewells();
        }
        break;
      }
      case Op::kReturn:
        QV_SAVE;
        Leave();
        if (depth_ == base) return;
        load();
        if (HasFarewells()) SayFarewells();
        break;
    }
  }
#undef QV_SAVE
}

}  // namespace qv::vbscript
