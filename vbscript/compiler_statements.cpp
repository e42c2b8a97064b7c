#include "vbscript/compiler.h"
#include "vbscript/failure.h"
#include "vbscript/text.h"

namespace qv::vbscript {

void Compiler::Statements(const std::vector<Stmt*>& body) {
  for (const Stmt* stmt : body) Statement(*stmt);
}

// What a block binds is bound no more behind it, because the block may not have run.
void Compiler::Block(const std::vector<Stmt*>& body) {
  const std::size_t bound = bound_.size();
  Statements(body);
  for (; bound_.size() > bound; bound_.pop_back()) is_bound_.erase(bound_.back());
}

void Compiler::Bind(Atom atom) {
  if (program_.option_explicit) return;
  if (is_bound_.insert(atom).second) bound_.push_back(atom);
}

void Compiler::Statement(const Stmt& stmt) {
  const std::size_t mark = Mark(stmt.place);
  const std::uint32_t first_temp = next_temp_;
  dirty_end_ = first_temp;
  switch (stmt.kind) {
    case StmtKind::kLet:
    case StmtKind::kSet:
      Assign(stmt);
      break;
    case StmtKind::kCall:
      if (stmt.value->left->kind == ExprKind::kName) {
        CallNamed(stmt.value->left, stmt.value->args, true, kNoOperand);
      } else {
        CallResult(stmt.value, true);
      }
      break;
    case StmtKind::kIf:
      return If(stmt, mark);
    case StmtKind::kSelect:
      return Select(stmt, mark);
    case StmtKind::kFor:
      return For(stmt, mark);
    case StmtKind::kForEach:
      return ForEach(stmt, mark);
    case StmtKind::kWhile:
      return While(stmt, mark);
    case StmtKind::kDo:
      return Do(stmt, mark);
    case StmtKind::kWith:
      return With(stmt, mark);
    case StmtKind::kExit:
      Exit(stmt);
      break;
    case StmtKind::kResumeNext:
      Emit(Op::kResumeNext);
      break;
    case StmtKind::kGoToZero:
      Emit(Op::kGoToZero);
      break;
    case StmtKind::kReDim:
      ReDim(stmt);
      break;
    case StmtKind::kErase: {
      const Operand variable = TargetVariable(stmt.target);
      NameHere(Spelled(stmt.target));
      if (variable != kNoOperand) Emit(Op::kErase, variable);
      break;
    }
  }
  EndStatement(mark, first_temp);
}

// The variable to write to, made if need be; kNoOperand, with the error in the code, for what is no variable.
Operand Compiler::TargetVariable(const Expr* expr) {
  const Name name = Resolve(expr->name);
  switch (name.kind) {
    case Name::Kind::kDirect:
      return name.operand;
    case Name::Kind::kReference:
      if (name.scoped && !is_bound_.count(expr->name)) {
        NameHere(Spelled(expr));
        Emit(Op::kBindScoped, name.operand, static_cast<std::uint32_t>(expr->name), 0, 1);
        Bind(expr->name);
      }
      return name.operand;
    case Name::Kind::kUnknown: {
      const std::uint32_t number = globals_.Number(expr->name);
      const bool bound = is_bound_.count(expr->name) != 0;
      if (!bound) NameHere(Spelled(expr));
      if (name.operand != kNoOperand) {
        if (!bound) Emit(Op::kBindWrite, name.operand, number);
        Bind(expr->name);
        return name.operand;
      }
      if (!bound) Emit(Op::kTouch, number);
      Bind(expr->name);
      return MakeOperand(Table::kGlobal, number);
    }
    default:
      NameHere(Spelled(expr));
      Emit(Op::kRaise, kIllegalAssignment);
      return kNoOperand;
  }
}

void Compiler::Assign(const Stmt& stmt) {
  const bool is_set = stmt.kind == StmtKind::kSet;
  const Expr* target = stmt.target;
  switch (target->kind) {
    case ExprKind::kName:
      return AssignName(stmt, is_set);
    case ExprKind::kMember:
      return AssignMember(target->left, target->name, {}, target, stmt.value, is_set);
    case ExprKind::kCall:
      if (target->left->kind == ExprKind::kMember) {
        const Expr* member = target->left;
        return AssignMember(member->left, member->name, target->args, member, stmt.value, is_set);
      }
      return AssignElement(target, stmt.value, is_set);
    default:
      Emit(Op::kRaise, kIllegalAssignment);
  }
}

void Compiler::AssignName(const Stmt& stmt, bool is_set) {
  const Expr* target = stmt.target;
  const Name name = Resolve(target->name);
  if (name.kind == Name::Kind::kOwn) {
    const ClassMember& member = owner_->members.at(target->name);
    if (!member.is_method) {
      const Operand t = Temp();
      Emit(Op::kMe, t);
      Dirty(t);
      ToTemp(stmt.value);
      NameHere(Spelled(target));
      Emit(is_set ? Op::kMemberSet : Op::kMemberLet, t, static_cast<std::uint32_t>(target->name), 1, 0);
      return;
    }
  }
  const Operand variable = TargetVariable(target);
  if (variable == kNoOperand) return;
  const Expr* value = stmt.value;
  if (is_set) {
    const Operand from = Evaluate(value);
    NameHere(value->kind == ExprKind::kName ? Spelled(value) : std::string());
    Emit(Op::kSet, variable, from);
    return;
  }
  while (value->kind == ExprKind::kGroup) value = value->left;
  bool plain = value->kind == ExprKind::kBinary || (value->kind == ExprKind::kUnary && value->op != Tok::kPlus);
  const Expr* callee = value->kind == ExprKind::kCall ? value->left : value;
  if (callee->kind == ExprKind::kName) {
    const Name called = Resolve(callee->name);
    plain = called.kind == Name::Kind::kIntrinsic && !library_.function(called.number).gives_object;
  }
  // What gives no object or shared array goes straight into a variable that is no reference.
  if (plain && name.kind != Name::Kind::kReference &&
      !(name.kind == Name::Kind::kUnknown && name.operand != kNoOperand)) {
    Evaluate(value, variable);
    return;
  }
  const Operand from = Evaluate(value);
  Emit(IsTemp(from) ? Op::kLetMove : Op::kLet, variable, from);
  // The register has been emptied.
  if (IsTemp(from) && dirty_end_ == SlotOf(from) + 1) dirty_end_ = SlotOf(from);
}

void Compiler::AssignMember(const Expr* object, Atom member, const std::vector<Expr*>& args, const Expr* target,
                            const Expr* value, bool is_set) {
  const Operand t = Temp();
  if (object) {
    Evaluate(object, t);
  } else {
    Settle(WithObject(), t);
  }
  Dirty(t);
  next_temp_ = SlotOf(t) + 1;
  Arguments(args);
  ToTemp(value);
  NameHere(Spelled(target));
  Emit(is_set ? Op::kMemberSet : Op::kMemberLet, t, static_cast<std::uint32_t>(member), 0,
       static_cast<std::uint32_t>(args.size()));
}

// Something whose elements can be written where they are, if it is a variable or an element of one.
Operand Compiler::Container(const Expr* expr) {
  if (expr->kind == ExprKind::kName) {
    const Name name = Resolve(expr->name);
    if (name.kind == Name::Kind::kDirect || name.kind == Name::Kind::kReference || name.kind == Name::Kind::kUnknown) {
      return TargetVariable(expr);
    }
    if (name.kind == Name::Kind::kConst) return Constant(name.value);
  }
  if (expr->kind == ExprKind::kCall && expr->left->kind != ExprKind::kMember && !expr->args.empty()) {
    const Operand slot = Temp();
    const Operand array = Container(expr->left);
    const Operand first = TempAt(next_temp_);
    for (const Expr* index : expr->args) ToTemp(index);
    if (expr->args.size() > kCountMask) FailTooLarge();
    Emit(Op::kElementRef, slot, array, first, static_cast<std::uint32_t>(expr->args.size()));
    Dirty(slot);
    next_temp_ = SlotOf(slot) + 1;
    return slot;
  }
  return ToTemp(expr);
}

void Compiler::AssignElement(const Expr* target, const Expr* value, bool is_set) {
  const Expr* callee = target->left;
  if (callee->kind == ExprKind::kName) {
    const Name name = Resolve(callee->name);
    if (name.kind == Name::Kind::kOwn) {
      const Operand t = Temp();
      Emit(Op::kMe, t);
      Dirty(t);
      Arguments(target->args);
      ToTemp(value);
      NameHere(Spelled(callee));
      Emit(is_set ? Op::kMemberSet : Op::kMemberLet, t, static_cast<std::uint32_t>(callee->name), 1,
           static_cast<std::uint32_t>(target->args.size()));
      return;
    }
    if (name.kind == Name::Kind::kProcedure || name.kind == Name::Kind::kIntrinsic) {
      NameHere(Spelled(callee));
      Emit(Op::kRaise, kIllegalAssignment);
      return;
    }
  }
  const Operand container = Container(callee);
  if (container == kNoOperand) return;
  const std::string name = callee->kind == ExprKind::kName ? Spelled(callee) : std::string();
  if (target->args.size() == 1) {
    Operand index = Evaluate(target->args[0]);
    if (!IsTemp(index) && TableOf(index) != Table::kConstant && MayCall(value)) index = Settle(index, Temp());
    const Operand from = Evaluate(value);
    NameHere(name);
    Emit(Op::kIndexLet, container, index, from, is_set ? 1 : 0);
    return;
  }
  const Operand first = TempAt(next_temp_);
  for (const Expr* arg : target->args) ToTemp(arg);
  ToTemp(value);
  if (target->args.size() > kCountMask) FailTooLarge();
  NameHere(name);
  Emit(Op::kIndexLetN, container, first, is_set ? 1 : 0, static_cast<std::uint32_t>(target->args.size()));
}

void Compiler::ReDim(const Stmt& stmt) {
  for (const ReDimItem& item : stmt.redims) {
    const Name name = Resolve(item.name->name);
    const std::uint32_t base = next_temp_;
    Operand variable = kNoOperand;
    if (name.kind == Name::Kind::kUnknown && !is_bound_.count(item.name->name)) {
      // ReDim declares the name, also where names must be declared.
      const std::uint32_t number = globals_.Number(item.name->name);
      const bool in_register = name.operand != kNoOperand;
      variable = in_register ? name.operand : MakeOperand(Table::kGlobal, number);
      NameHere(Spelled(item.name));
      Emit(in_register ? Op::kBindWrite : Op::kTouch, in_register ? name.operand : number, number, 0, 1);
      if (is_bound_.insert(item.name->name).second) bound_.push_back(item.name->name);
    } else {
      variable = TargetVariable(item.name);
    }
    if (variable == kNoOperand) return;
    const Operand first = TempAt(next_temp_);
    for (const Expr* bound : item.bounds) ToTemp(bound);
    if (item.bounds.size() > 60) {
      Emit(Op::kRaise, kSubscript);
      return;
    }
    Emit(Op::kReDim, variable, first, stmt.preserve ? 1 : 0, static_cast<std::uint32_t>(item.bounds.size()));
    next_temp_ = base;
  }
}

}  // namespace qv::vbscript
