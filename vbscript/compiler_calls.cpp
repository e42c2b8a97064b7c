#include "vbscript/compiler.h"
#include "vbscript/failure.h"
#include "vbscript/text.h"

namespace qv::vbscript {

// The arguments in the registers from the next one on; variables and elements go by reference.
void Compiler::Arguments(const std::vector<Expr*>& args) {
  if (args.size() > kCountMask) FailTooLarge();
  for (const Expr* arg : args) {
    const Operand slot = Temp();
    Argument(arg, slot);
    next_temp_ = SlotOf(slot) + 1;
  }
}

void Compiler::Argument(const Expr* arg, Operand slot) {
  if (arg->kind == ExprKind::kName) return ReferTo(arg, slot);
  if (arg->kind == ExprKind::kCall && arg->left->kind == ExprKind::kName && !arg->args.empty()) {
    const Name name = Resolve(arg->left->name);
    const bool bound = name.kind == Name::Kind::kUnknown && is_bound_.count(arg->left->name);
    if ((name.kind == Name::Kind::kDirect || name.kind == Name::Kind::kReference || bound) && !name.is_result) {
      const Operand array = TargetVariable(arg->left);
      const Operand first = TempAt(next_temp_);
      for (const Expr* index : arg->args) ToTemp(index);
      NameHere(Spelled(arg->left));
      Emit(Op::kElementRef, slot, array, first, static_cast<std::uint32_t>(arg->args.size()));
      return;
    }
  }
  Evaluate(arg, slot);
}

void Compiler::ReferTo(const Expr* arg, Operand slot) {
  const Name name = Resolve(arg->name);
  const bool bound = is_bound_.count(arg->name) != 0;
  if (name.kind == Name::Kind::kUnknown && !bound) {
    NameHere(Spelled(arg));
    Emit(Op::kLoadName, slot, name.operand, globals_.Number(arg->name), 1);
  } else if (name.kind == Name::Kind::kDirect || name.kind == Name::Kind::kReference ||
             name.kind == Name::Kind::kUnknown) {
    Emit(Op::kMakeRef, slot, TargetVariable(arg));
  } else {
    Evaluate(arg, slot);
  }
}

// A call of, or an index into, what a name stands for.
Operand Compiler::CallNamed(const Expr* callee, const std::vector<Expr*>& args, bool statement, Operand want) {
  const Name name = Resolve(callee->name);
  const auto as_statement = static_cast<std::uint32_t>(statement ? kAsStatement : 0);
  Op op = Op::kCallName;
  std::uint32_t target = name.number;
  Operand slot = kNoOperand;
  switch (name.kind) {
    case Name::Kind::kIntrinsic:
      return CallIntrinsic(name, callee, args, statement, want);
    case Name::Kind::kOwn:
      op = Op::kCallOwn;
      target = static_cast<std::uint32_t>(callee->name);
      break;
    case Name::Kind::kProcedure:
      break;
    case Name::Kind::kClass:
      NameHere(Spelled(callee));
      Emit(Op::kRaise, kTypeMismatch);
      return Settle(Constant({}), want);
    case Name::Kind::kUnknown:
      if (is_bound_.count(callee->name)) return Settle(CallVariable(name, callee, args, statement), want);
      slot = name.operand;
      target = globals_.Number(callee->name);
      break;
    default:
      if (!name.is_result) return Settle(CallVariable(name, callee, args, statement), want);
      // Behind its own name, arguments mean that the procedure calls itself.
      op = owner_ ? Op::kCallOwn : Op::kCallName;
      target = owner_ ? static_cast<std::uint32_t>(callee->name) : ResolveGlobal(callee->name).number;
      break;
  }
  const Operand t = Temp();
  Arguments(args);
  NameHere(Spelled(callee));
  Emit(op, t, target, slot, static_cast<std::uint32_t>(args.size()) | as_statement);
  Dirty(t);
  next_temp_ = SlotOf(t) + 1;
  return Settle(t, want);
}

Operand Compiler::CallVariable(const Name& name, const Expr* callee, const std::vector<Expr*>& args, bool statement) {
  const Operand variable = name.kind == Name::Kind::kConst ? Constant(name.value) : TargetVariable(callee);
  const Operand into = Temp();
  if (statement || args.empty()) {
    Emit(Op::kLoad, into, variable);
    Arguments(args);
    NameHere(Spelled(callee));
    Emit(Op::kCallValue, into, 0, 0, static_cast<std::uint32_t>(args.size()) | (statement ? kAsStatement : 0U));
  } else if (args.size() == 1) {
    const Operand index = Evaluate(args[0]);
    NameHere(Spelled(callee));
    Emit(Op::kIndex, into, variable, index);
  } else {
    const Operand first = TempAt(next_temp_);
    for (const Expr* arg : args) ToTemp(arg);
    NameHere(Spelled(callee));
    Emit(Op::kIndexN, into, variable, first, static_cast<std::uint32_t>(args.size()));
  }
  Dirty(into);
  next_temp_ = SlotOf(into) + 1;
  return into;
}

Operand Compiler::CallIntrinsic(const Name& name, const Expr* callee, const std::vector<Expr*>& args, bool statement,
                                Operand want) {
  const Intrinsic& function = library_.function(name.number);
  const std::uint32_t base = next_temp_;
  const Operand first = TempAt(base);
  for (const Expr* arg : args) ToTemp(arg);
  next_temp_ = base;
  const Operand into = want != kNoOperand ? want : Temp();
  if (args.size() > kCountMask) FailTooLarge();
  NameHere(Spelled(callee));
  Emit(Op::kIntrinsic, into, first, name.number, static_cast<std::uint32_t>(args.size()));
  Dirty(into);
  if ((statement && function.no_statement) || (!statement && function.statement_only)) {
    NameHere(Spelled(callee));
    Emit(Op::kRaise, static_cast<std::uint32_t>(statement ? kBadAutomationType : kTypeMismatch));
  }
  return into;
}

Operand Compiler::WithObject() {
  if (!withs_.empty()) return withs_.back();
  Emit(Op::kRaise, kInvalidReference);
  return Constant({});
}

Operand Compiler::MemberResult(const Expr* expr, const std::vector<Expr*>& args, bool statement, bool has_list) {
  const Operand t = Temp();
  if (expr->left) {
    Evaluate(expr->left, t);
  } else {
    Settle(WithObject(), t);
  }
  next_temp_ = SlotOf(t) + 1;
  Arguments(args);
  NameHere(Spelled(expr));
  Emit(Op::kMemberGet, t, static_cast<std::uint32_t>(expr->name), 0,
       static_cast<std::uint32_t>(args.size()) | (statement ? kAsStatement : 0U) | (has_list ? kWithList : 0U));
  Dirty(t);
  next_temp_ = SlotOf(t) + 1;
  return t;
}

// A call whose callee is no plain name.
Operand Compiler::CallResult(const Expr* expr, bool statement) {
  if (expr->left->kind == ExprKind::kMember) return MemberResult(expr->left, expr->args, statement, true);
  const Operand t = ToTemp(expr->left);
  Arguments(expr->args);
  Emit(Op::kCallValue, t, 0, 0, static_cast<std::uint32_t>(expr->args.size()) | (statement ? kAsStatement : 0U));
  Dirty(t);
  next_temp_ = SlotOf(t) + 1;
  return t;
}

Operand Compiler::NewObject(const Expr* expr) {
  const Operand into = Temp();
  Dirty(into);
  if (FoldAscii(expr->spelling) == u"regexp") {
    Emit(Op::kNewRegExp, into);
    return into;
  }
  const Name name = Resolve(expr->name);
  NameHere(Spelled(expr));
  if (name.kind == Name::Kind::kClass) {
    Emit(Op::kNew, into, name.number);
  } else if (name.kind == Name::Kind::kUnknown) {
    Emit(Op::kNew, into, globals_.Number(expr->name));
  } else {
    Emit(Op::kRaise, kClassNotDefined);
  }
  return into;
}

}  // namespace qv::vbscript
