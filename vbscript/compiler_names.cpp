#include "vbscript/compiler.h"
#include "vbscript/failure.h"

namespace qv::vbscript {

// A name that belongs to the activation in which this text is executed.
bool Compiler::IsScopedName(Atom atom) const {
  if (!executed_in_) return false;
  for (const LocalName& local : executed_in_->procedure->locals) {
    if (local.name != atom) continue;
    if (local.declared || !executed_in_->registers[local.slot].Is(Type::Empty)) return true;
    const GlobalName* global = globals_.Find(atom);
    return !global || global->kind == GlobalName::Kind::kUnknown;
  }
  return executed_in_->made && executed_in_->made->count(atom) != 0;
}

Compiler::Name Compiler::Resolve(Atom atom) const {
  if (const auto local = locals_.find(atom); local != locals_.end()) return local->second;
  if (executed_in_ && decl_->kind == ProcKind::kMain) {
    for (const auto& [name, value] : executed_in_->procedure->local_constants) {
      if (name != atom) continue;
      Name found;
      found.kind = Name::Kind::kConst;
      found.value = value;
      return found;
    }
  }
  if (owner_) {
    if (const auto member = owner_->members.find(atom); member != owner_->members.end()) {
      Name found;
      found.kind = member->second.is_field ? Name::Kind::kDirect : Name::Kind::kOwn;
      if (member->second.is_field) found.operand = MakeOperand(Table::kField, member->second.field);
      return found;
    }
  }
  return ResolveGlobal(atom);
}

Compiler::Name Compiler::ResolveGlobal(Atom atom) const {
  Name found;
  GlobalName::Kind kind = GlobalName::Kind::kUnknown;
  const Value* constant = nullptr;
  if (const auto declared = new_definitions_.find(atom); declared != new_definitions_.end()) {
    const Unit::Definition& definition = unit_.definitions[declared->second];
    found.number = definition.number;
    kind = definition.name.kind;
    constant = &definition.value;
  } else if (const GlobalName* known = globals_.Find(atom)) {
    kind = known->kind;
    found.number = globals_.Number(atom);
    constant = &globals_.values()[found.number];
  }
  switch (kind) {
    case GlobalName::Kind::kVariable:
      found.kind = Name::Kind::kDirect;
      found.operand = MakeOperand(Table::kGlobal, found.number);
      return found;
    case GlobalName::Kind::kConst:
      found.kind = Name::Kind::kConst;
      found.value = *constant;
      return found;
    case GlobalName::Kind::kProcedure:
      found.kind = Name::Kind::kProcedure;
      return found;
    case GlobalName::Kind::kClass:
      found.kind = Name::Kind::kClass;
      return found;
    case GlobalName::Kind::kUnknown:
      break;
  }
  if (const Value* built_in = library_.Constant(atom)) {
    found.kind = Name::Kind::kConst;
    found.value = *built_in;
    return found;
  }
  if (const int function = library_.Function(atom); function >= 0) {
    found.kind = Name::Kind::kIntrinsic;
    found.number = static_cast<std::uint32_t>(function);
    return found;
  }
  found.number = globals_.Number(atom);
  if (found.number == Globals::kMost) FailTooLarge();
  return found;
}

Operand Compiler::Temp() {
  if (next_temp_ >= kMostSlots) FailTooLarge();
  const Operand made = TempAt(next_temp_++);
  if (next_temp_ > code_->registers) code_->registers = next_temp_;
  return made;
}

// The register may hold something counted when the statement ends, and is then emptied.
void Compiler::Dirty(Operand operand) {
  if (IsTemp(operand) && SlotOf(operand) >= dirty_end_) dirty_end_ = SlotOf(operand) + 1;
}

Operand Compiler::Constant(const Value& value) {
  const bool is_integer = value.Is(Type::Integer);
  if (is_integer) {
    if (const auto known = integer_constants_.find(value.n()); known != integer_constants_.end()) return known->second;
  }
  code_->constants.push_back(value);
  const auto slot = static_cast<std::uint32_t>(code_->constants.size()) - 1;
  if (slot >= kMostSlots) FailTooLarge();
  const Operand made = MakeOperand(Table::kConstant, slot);
  if (is_integer) integer_constants_.emplace(value.n(), made);
  return made;
}

std::uint32_t Compiler::Emit(Op op, std::uint32_t a, std::uint32_t b, std::uint32_t c, std::uint32_t n) {
  if (n > 0xffff) FailTooLarge();
  code_->code.push_back({op, static_cast<std::uint16_t>(n), a, b, c});
  return Here() - 1;
}

// The next instruction's name in messages.
void Compiler::NameHere(std::string name) {
  if (!name.empty()) code_->names.emplace_back(Here(), std::move(name));
}

std::size_t Compiler::Mark(Place place) {
  code_->marks.push_back({Here(), Here(), next_temp_, place});
  return code_->marks.size() - 1;
}

void Compiler::EndStatement(std::size_t mark, std::uint32_t first_temp) {
  if (dirty_end_ > first_temp) Emit(Op::kClear, TempAt(first_temp), 0, 0, dirty_end_ - first_temp);
  dirty_end_ = next_temp_ = first_temp;
  ResumeHere(mark);
}

void Compiler::PatchHere(const std::vector<std::uint32_t>& jumps) {
  for (const std::uint32_t jump : jumps) code_->code[jump].a = Here();
}

}  // namespace qv::vbscript
