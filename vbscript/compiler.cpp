#include "vbscript/compiler.h"

#include "vbscript/failure.h"
#include "vbscript/text.h"

namespace qv::vbscript {

Compiler::Compiler(Context& context, Atoms& atoms, Globals& globals, const Library& library, Program& program,
                   const ExecutedIn* executed_in)
    : context_(context),
      atoms_(atoms),
      globals_(globals),
      library_(library),
      program_(program),
      executed_in_(executed_in) {}

Unit Compiler::Compile() {
  for (std::size_t i = 0; i < program_.classes.size(); ++i) unit_.classes.push_back(std::make_unique<ClassDef>());
  for (const ProcDecl* decl : program_.procedures) {
    unit_.procedures.push_back(std::make_unique<Procedure>());
    made_[decl] = unit_.procedures.back().get();
  }
  DeclareGlobals();
  unit_.main = std::make_unique<Procedure>();
  ClassDef* executing_class = executed_in_ ? executed_in_->procedure->owner : nullptr;
  CompileProcedure(program_.main, *unit_.main, executing_class);
  for (const ProcDecl* decl : program_.procedures) CompileProcedure(*decl, *made_[decl], nullptr);
  for (std::size_t i = 0; i < program_.classes.size(); ++i) CompileClass(*program_.classes[i], *unit_.classes[i]);
  return std::move(unit_);
}

void Compiler::FailTooLarge() const {
  Failure failure;
  failure.number = 1001;
  failure.description = CompileErrorText(1001);
  failure.source = kCompileSource;
  failure.place = {1, 0};
  failure.placed = true;
  failure.takes_name = false;
  throw failure;
}

// A name that changes its nature gets a number of its own, so that code compiled before keeps its meaning. So does a
// procedure that only one activation knows.
std::uint32_t Compiler::NumberFor(Atom atom, GlobalName::Kind kind) {
  const GlobalName* known = globals_.Find(atom);
  const bool changes = known && known->kind != GlobalName::Kind::kUnknown && known->kind != kind;
  const bool is_local = executed_in_ && kind == GlobalName::Kind::kProcedure;
  const std::uint32_t number = changes || is_local ? globals_.Spare(atom) : globals_.Number(atom);
  if (number == Globals::kMost) FailTooLarge();
  return number;
}

void Compiler::Define(Atom atom, GlobalName name, Value value) {
  name.atom = atom;
  Unit::Definition made;
  made.number = NumberFor(atom, name.kind);
  new_definitions_[atom] = unit_.definitions.size();
  made.name = name;
  made.value = std::move(value);
  unit_.definitions.push_back(std::move(made));
}

void Compiler::DeclareGlobals() {
  const bool local_scope = executed_in_ != nullptr;
  for (std::size_t i = 0; i < program_.procedures.size(); ++i) {
    GlobalName name;
    name.kind = GlobalName::Kind::kProcedure;
    name.procedure = unit_.procedures[i].get();
    Define(program_.procedures[i]->name, name, {});
  }
  for (std::size_t i = 0; i < program_.classes.size(); ++i) {
    GlobalName name;
    name.kind = GlobalName::Kind::kClass;
    name.class_def = unit_.classes[i].get();
    Define(program_.classes[i]->name, name, {});
  }
  if (local_scope) return;
  for (const auto& [atom, value] : program_.main.scope.constants) {
    GlobalName name;
    name.kind = GlobalName::Kind::kConst;
    Define(atom, name, value);
  }
  for (const DimDecl& dim : program_.main.scope.dims) {
    GlobalName name;
    name.kind = GlobalName::Kind::kVariable;
    name.declared = true;
    Define(dim.name, name, {});
  }
}

void Compiler::CompileProcedure(const ProcDecl& decl, Procedure& made, ClassDef* owner) {
  code_ = &made;
  decl_ = &decl;
  owner_ = owner;
  made.kind = decl.kind;
  made.name = decl.name;
  made.spelling = ToUtf8(decl.spelling);
  made.params = static_cast<std::uint32_t>(decl.params.size());
  made.option_explicit = program_.option_explicit;
  made.owner = owner;
  locals_.clear();
  bound_.clear();
  is_bound_.clear();
  loops_.clear();
  withs_.clear();
  integer_constants_.clear();
  OpenRegisters(decl);
  OpenArrays(decl.scope);
  if (program_.expression && decl.kind == ProcKind::kMain) {
    const std::size_t mark = Mark(program_.expression->place);
    Evaluate(program_.expression, MakeOperand(Table::kRegister, made.result));
    EndStatement(mark, first_temp_);
  }
  Statements(decl.body);
  Emit(Op::kReturn);
  if (made.registers > kMostSlots || made.code.size() > kMostSlots * 16 || made.constants.size() > kMostSlots) {
    FailTooLarge();
  }
}

// The parameters come first, then the result, the declared names and those that no declaration names.
void Compiler::OpenRegisters(const ProcDecl& decl) {
  std::uint32_t slot = 0;
  const auto add = [&](Atom atom, Name::Kind kind) -> Name& {
    Name& name = locals_[atom];
    name.kind = kind;
    name.operand = MakeOperand(Table::kRegister, slot++);
    return name;
  };
  for (const Param& param : decl.params) add(param.name, param.by_value ? Name::Kind::kDirect : Name::Kind::kReference);
  code_->result = slot++;
  const bool has_result = decl.kind == ProcKind::kFunction || decl.kind == ProcKind::kGet;
  if (has_result && !locals_.count(decl.name)) {
    Name& name = locals_[decl.name];
    name.kind = Name::Kind::kDirect;
    name.operand = MakeOperand(Table::kRegister, code_->result);
    name.is_result = true;
  }
  const bool is_main = decl.kind == ProcKind::kMain;
  if (!is_main) {
    for (const DimDecl& dim : decl.scope.dims) add(dim.name, Name::Kind::kDirect);
  }
  if (!is_main || executed_in_) {
    for (const auto& [atom, value] : decl.scope.constants) {
      Name& name = locals_[atom];
      name.kind = Name::Kind::kConst;
      name.value = value;
      code_->local_constants.emplace_back(atom, value);
    }
    for (const Atom atom : decl.used) {
      if (locals_.count(atom)) continue;
      const bool scoped = is_main && IsScopedName(atom);
      if (scoped || Resolve(atom).kind == Name::Kind::kUnknown) {
        add(atom, is_main ? Name::Kind::kReference : Name::Kind::kUnknown).scoped = is_main;
      }
    }
    if (is_main) {
      for (const DimDecl& dim : decl.scope.dims) {
        if (!locals_.count(dim.name)) add(dim.name, Name::Kind::kReference).scoped = true;
      }
    }
  }
  for (const auto& [atom, name] : locals_) {
    if (name.kind == Name::Kind::kConst) continue;
    code_->locals.push_back({atom, SlotOf(name.operand), name.kind != Name::Kind::kUnknown});
  }
  first_temp_ = next_temp_ = dirty_end_ = slot;
  code_->registers = slot;
  for (const Param& param : decl.params) {
    if (param.by_value) Emit(Op::kByValue, locals_[param.name].operand);
  }
  if (!is_main || !executed_in_) return;
  // A text executed in a procedure looks its names up in that activation before anything else.
  for (const DimDecl& dim : decl.scope.dims) {
    Emit(Op::kBindScoped, locals_[dim.name].operand, static_cast<std::uint32_t>(dim.name), 0, 1);
    is_bound_.insert(dim.name);
  }
}

void Compiler::OpenArrays(const Scope& scope) {
  for (const DimDecl& dim : scope.dims) {
    if (!dim.is_array) continue;
    const std::size_t mark = Mark(dim.place);
    code_->bounds.push_back(dim.bounds);
    Emit(Op::kDimArray, Resolve(dim.name).operand, 0, static_cast<std::uint32_t>(code_->bounds.size()) - 1);
    ResumeHere(mark);
  }
}

void Compiler::CompileClass(const ClassDecl& decl, ClassDef& made) {
  made.name = std::u16string(decl.spelling);
  for (const DimDecl& dim : decl.scope.dims) {
    ClassMember& member = made.members[dim.name];
    member.is_public = dim.is_public;
    member.is_field = true;
    member.field = made.fields++;
    if (dim.is_array) made.arrays.emplace_back(member.field, dim.bounds);
  }
  for (const ProcDecl* proc : decl.members) {
    unit_.procedures.push_back(std::make_unique<Procedure>());
    Procedure* code = unit_.procedures.back().get();
    made_[proc] = code;
    ClassMember& member = made.members[proc->name];
    member.is_public = proc->is_public;
    member.is_method = proc->kind == ProcKind::kSub || proc->kind == ProcKind::kFunction;
    (proc->kind == ProcKind::kLet ? member.let : proc->kind == ProcKind::kSet ? member.set : member.get) = code;
    if (proc->is_default) made.default_member = code;
    const std::u16string_view name = atoms_.Name(proc->name);
    if (proc->kind == ProcKind::kSub && name == u"class_initialize") made.initialize = code;
    if (proc->kind == ProcKind::kSub && name == u"class_terminate") made.terminate = code;
  }
  for (const ProcDecl* proc : decl.members) CompileProcedure(*proc, *made_[proc], &made);
}

}  // namespace qv::vbscript
