#include <vector>

#include "vbscript/arithmetic.h"
#include "vbscript/compiler.h"
#include "vbscript/text.h"

namespace qv::vbscript {
namespace {

struct BinaryOp {
  Tok token;
  Op op;
};

constexpr BinaryOp kBinaryOps[] = {
    {Tok::kPlus, Op::kAdd},
    {Tok::kMinus, Op::kSubtract},
    {Tok::kStar, Op::kMultiply},
    {Tok::kSlash, Op::kDivide},
    {Tok::kBackslash, Op::kIntDivide},
    {Tok::kMod, Op::kModulo},
    {Tok::kCaret, Op::kPower},
    {Tok::kAmpersand, Op::kConcat},
    {Tok::kAnd, Op::kAnd},
    {Tok::kOr, Op::kOr},
    {Tok::kXor, Op::kXor},
    {Tok::kEqv, Op::kEqv},
    {Tok::kImp, Op::kImp},
    {Tok::kEqual, Op::kEqual},
    {Tok::kNotEqual, Op::kNotEqual},
    {Tok::kLess, Op::kLess},
    {Tok::kGreater, Op::kGreater},
    {Tok::kLessEqual, Op::kLessEqual},
    {Tok::kGreaterEqual, Op::kGreaterEqual},
    {Tok::kIs, Op::kIs},
};

Op OpOf(Tok token) {
  for (const BinaryOp& row : kBinaryOps) {
    if (row.token == token) return row.op;
  }
  return Op::kIs;
}

bool IsComparison(Tok op) { return OpOf(op) >= Op::kEqual && OpOf(op) < Op::kIs; }

constexpr auto Distance(Op from, Op to) { return static_cast<std::uint16_t>(to) - static_cast<std::uint16_t>(from); }

}  // namespace

Operand Compiler::Settle(Operand from, Operand want) {
  if (want == kNoOperand || want == from) return from;
  Emit(Op::kLoad, want, from);
  Dirty(want);
  return want;
}

Operand Compiler::ToTemp(const Expr* expr) {
  const Operand temp = Temp();
  Evaluate(expr, temp);
  next_temp_ = SlotOf(temp) + 1;
  return temp;
}

Operand Compiler::Evaluate(const Expr* expr, Operand want) {
  switch (expr->kind) {
    case ExprKind::kLiteral:
    case ExprKind::kMissing:
      return Leaf(expr, want);
    case ExprKind::kName:
      return NameValue(expr, want);
    case ExprKind::kGroup:
      return Evaluate(expr->left, want);
    case ExprKind::kBinary:
      return BinaryValue(expr, want);
    case ExprKind::kUnary:
      return UnaryValue(expr, want);
    case ExprKind::kCall:
      if (expr->left->kind == ExprKind::kName) return CallNamed(expr->left, expr->args, false, want);
      return Settle(CallResult(expr, false), want);
    case ExprKind::kMember:
      return Settle(MemberResult(expr, {}, false, false), want);
    case ExprKind::kNew:
      return Settle(NewObject(expr), want);
    case ExprKind::kMe: {
      const Operand into = want == kNoOperand ? Temp() : want;
      Emit(Op::kMe, into);
      Dirty(into);
      return into;
    }
  }
  return want;
}

Operand Compiler::Leaf(const Expr* expr, Operand want) {
  return Settle(Constant(expr->kind == ExprKind::kMissing ? Value::Missing() : expr->value), want);
}

// The variable behind a name, bound if it has to be. kNoOperand when only the run can tell what the name is.
Operand Compiler::BoundVariable(const Name& name) {
  if (name.kind == Name::Kind::kDirect) return name.operand;
  if (name.kind == Name::Kind::kReference) return name.operand;
  return kNoOperand;
}

Operand Compiler::NameValue(const Expr* expr, Operand want) {
  const Name name = Resolve(expr->name);
  switch (name.kind) {
    case Name::Kind::kReference:
      if (name.scoped && !is_bound_.count(expr->name)) {
        NameHere(Spelled(expr));
        Emit(Op::kBindScoped, name.operand, static_cast<std::uint32_t>(expr->name));
      }
      return Settle(name.operand, want);
    case Name::Kind::kDirect:
      return Settle(name.operand, want);
    case Name::Kind::kConst:
      return Settle(Constant(name.value), want);
    case Name::Kind::kUnknown: {
      if (is_bound_.count(expr->name)) {
        return Settle(name.operand != kNoOperand ? name.operand : MakeOperand(Table::kGlobal, name.number), want);
      }
      const Operand temp = Temp();
      NameHere(Spelled(expr));
      Emit(Op::kLoadName, temp, name.operand, globals_.Number(expr->name));
      Dirty(temp);
      return Settle(temp, want);
    }
    default:
      return CallNamed(expr, {}, false, want);
  }
}

// Whether working it out may run other code of the script, which may change any variable.
bool Compiler::MayCall(const Expr* expr) const {
  for (; expr; expr = expr->left) {
    switch (expr->kind) {
      case ExprKind::kLiteral:
      case ExprKind::kMissing:
      case ExprKind::kMe:
        return false;
      case ExprKind::kMember:
      case ExprKind::kNew:
        return true;
      case ExprKind::kName: {
        const Name name = Resolve(expr->name);
        return name.kind == Name::Kind::kProcedure || name.kind == Name::Kind::kOwn ||
               (name.kind == Name::Kind::kUnknown && !is_bound_.count(expr->name));
      }
      case ExprKind::kCall: {
        if (expr->left->kind != ExprKind::kName) return true;
        const Name name = Resolve(expr->left->name);
        if (name.kind == Name::Kind::kIntrinsic && library_.function(name.number).gives_object) return true;
        if (name.kind == Name::Kind::kIntrinsic && library_.function(name.number).host) return true;
        if (name.is_result || (name.kind != Name::Kind::kDirect && name.kind != Name::Kind::kIntrinsic)) return true;
        for (const Expr* arg : expr->args) {
          if (MayCall(arg)) return true;
        }
        return false;
      }
      case ExprKind::kBinary:
        if (MayCall(expr->right)) return true;
        break;
      default:
        break;
    }
  }
  return false;
}

std::uint32_t Compiler::Flag(const Expr* left, const Expr* right) const {
  return (left->bare_literal ? 1U : 0U) | (right->bare_literal ? 2U : 0U);
}

// An operand that the next instruction uses up: an element of an array is then looked at where it is.
Operand Compiler::Element(const Expr* expr) {
  if (expr->kind != ExprKind::kCall || expr->left->kind != ExprKind::kName || expr->args.size() != 1) {
    return Evaluate(expr);
  }
  const Name name = Resolve(expr->left->name);
  if (name.kind != Name::Kind::kDirect || name.is_result) return Evaluate(expr);
  const Operand into = Temp();
  const Operand index = Evaluate(expr->args[0]);
  NameHere(Spelled(expr->left));
  Emit(Op::kIndexRef, into, name.operand, index);
  next_temp_ = SlotOf(into) + 1;
  return into;
}

// Makes one instruction of the reference to an element, just emitted, and the addition that it is for.
bool Compiler::AddsElement(Operand into, Operand left, Operand right) {
  if (code_->code.empty()) return false;
  Instr& last = code_->code.back();
  if (last.a != right || last.op != Op::kIndexRef || TableOf(last.c) != Table::kRegister || SlotOf(last.c) > 0xffff)
    return false;
  last = {Op::kAddElement, static_cast<std::uint16_t>(SlotOf(last.c)), into, left, last.b};
  return true;
}

// Long chains such as a & b & c lean to the left, so that side is walked by a loop.
Operand Compiler::BinaryValue(const Expr* expr, Operand want) {
  std::vector<const Expr*> chain;
  const Expr* first = expr;
  for (; first->kind == ExprKind::kBinary; first = first->left) chain.push_back(first);
  const std::uint32_t base = next_temp_;
  Operand left = Evaluate(first);
  for (auto node = chain.rbegin(); node != chain.rend(); ++node) {
    const Expr* right_side = (*node)->right;
    if (!IsTemp(left) && TableOf(left) != Table::kConstant && MayCall(right_side)) left = Settle(left, Temp());
    const Operand right = Element(right_side);
    const bool last = *node == expr;
    next_temp_ = base;
    const Operand into = last && want != kNoOperand ? want : Temp();
    if (right_side->kind == ExprKind::kCall && (*node)->op == Tok::kPlus && AddsElement(into, left, right)) {
      left = into;
      continue;
    }
    const std::uint32_t flags = IsComparison((*node)->op) ? Flag((*node)->left, right_side) : 0;
    Emit(OpOf((*node)->op), into, left, right, flags);
    left = into;
  }
  return left;
}

Operand Compiler::UnaryValue(const Expr* expr, Operand want) {
  const std::uint32_t base = next_temp_;
  if (expr->op == Tok::kMinus && expr->left->kind == ExprKind::kLiteral) {
    const Type type = expr->left->value.type();
    if (type == Type::Integer || type == Type::Long || type == Type::Double) {
      return Settle(Constant(Negate(expr->left->value)), want);
    }
  }
  const Operand operand = Evaluate(expr->left);
  next_temp_ = base;
  const Operand into = want != kNoOperand ? want : Temp();
  Emit(expr->op == Tok::kMinus ? Op::kNegate : expr->op == Tok::kPlus ? Op::kPlus : Op::kNot, into, operand);
  if (expr->op == Tok::kPlus) Dirty(into);
  return into;
}

void Compiler::JumpOn(const Expr* condition, bool sense, std::uint32_t target) {
  while (condition->kind == ExprKind::kGroup) condition = condition->left;
  const std::uint32_t base = next_temp_;
  if (condition->kind == ExprKind::kBinary && IsComparison(condition->op)) {
    Operand left = Evaluate(condition->left);
    if (!IsTemp(left) && TableOf(left) != Table::kConstant && MayCall(condition->right)) left = Settle(left, Temp());
    const Operand right = Element(condition->right);
    const auto shift = Distance(Op::kEqual, OpOf(condition->op));
    const Op first = sense ? Op::kJumpEqual : Op::kUnlessEqual;
    Emit(static_cast<Op>(static_cast<std::uint16_t>(first) + shift), target, left, right,
         Flag(condition->left, condition->right));
  } else {
    const Operand value = Evaluate(condition);
    Emit(sense ? Op::kJumpIf : Op::kJumpUnless, target, value);
  }
  next_temp_ = base;
}

void Compiler::JumpUnless(const Expr* condition, Labels& target) {
  JumpOn(condition, false, 0);
  target.jumps.push_back(Here() - 1);
}

void Compiler::JumpIf(const Expr* condition, std::uint32_t target) { JumpOn(condition, true, target); }

// The name of a callee for messages: as written, and with its object where that is simple.
std::string Compiler::Spelled(const Expr* expr) {
  std::u16string text(expr->spelling);
  int links = 0;
  for (const Expr* left = expr->left; expr->kind == ExprKind::kMember; left = left->left) {
    if (!left || (left->kind != ExprKind::kName && left->kind != ExprKind::kMember) || ++links > 20) {
      return ToUtf8(text);
    }
    text = std::u16string(left->spelling) + u"." + text;
    expr = left;
  }
  return ToUtf8(text);
}

}  // namespace qv::vbscript
