#include <optional>

#include "vbscript/failure.h"
#include "vbscript/machine_frames.h"
#include "vbscript/parser.h"
#include "vbscript/text.h"

namespace qv::vbscript {
namespace {

// A text takes many times its size while it is compiled.
constexpr std::size_t kTextCost = 40;

}  // namespace

// Compiles without defining anything.
Unit Machine::Compile(std::u16string text, bool expression, const ExecutedIn* executed_in) {
  const std::size_t cost = text.size() * kTextCost;
  Program program;
  program.text = std::move(text);
  ParserOptions options;
  options.bracketed_names = options_.bracketed_names;
  options.procedures_clash = options_.procedures_clash;
  options.in_procedure = executed_in != nullptr;
  options.declared = [this](Atom atom) -> std::optional<DeclKind> {
    const GlobalName* name = globals_.Find(atom);
    if (!name) return std::nullopt;
    switch (name->kind) {
      case GlobalName::Kind::kVariable:
        return name->declared ? std::optional(DeclKind::kVariable) : std::nullopt;
      case GlobalName::Kind::kConst:
        return DeclKind::kConst;
      case GlobalName::Kind::kProcedure:
        return DeclKind::kProcedure;
      case GlobalName::Kind::kClass:
        return DeclKind::kClass;
      default:
        return std::nullopt;
    }
  };
  Charge(cost, kOutOfMemory);
  try {
    Parser parser(*this, atoms_, program, options);
    if (expression) {
      parser.ParseExpressionText();
    } else {
      parser.ParseText();
    }
    Unit unit = Compiler(*this, atoms_, globals_, library_, program, executed_in).Compile();
    Discharge(cost);
    return unit;
  } catch (...) {
    Discharge(cost);
    throw;
  }
}

// Makes the definitions known; what they need stays for good. Procedures of a text that is executed in a procedure are
// known to that activation only. The outer statements are left to the caller.
std::unique_ptr<Procedure> Machine::PutInForce(Unit unit, int activation) {
  std::size_t kept = 0;
  for (auto& procedure : unit.procedures) {
    kept += sizeof(Procedure) + procedure->code.size() * sizeof(Instr) + procedure->constants.size() * sizeof(Value) +
            procedure->marks.size() * sizeof(StatementMark);
  }
  kept += unit.classes.size() * sizeof(ClassDef);
  if (kept) Charge(kept, kOutOfMemory);
  for (auto& procedure : unit.procedures) procedures_.push_back(std::move(procedure));
  for (auto& class_def : unit.classes) classes_.push_back(std::move(class_def));
  for (Unit::Definition& definition : unit.definitions) {
    GlobalName& name = globals_.name(definition.number);
    const bool was_variable = name.kind == GlobalName::Kind::kVariable;
    name = definition.name;
    if (activation >= 0 && name.kind == GlobalName::Kind::kProcedure) {
      Value procedure = Value::TakeObject(Make<ProcedureReference>(0, *name.procedure, true));
      ScopedVariable(frames_[static_cast<std::size_t>(activation)], name.atom) = std::move(procedure);
      continue;
    }
    globals_.Rename(name.atom, definition.number);
    if (!(was_variable && name.kind == GlobalName::Kind::kVariable)) {
      globals_.values()[definition.number] = definition.value;
    }
  }
  return std::move(unit.main);
}

Value Machine::RunMain(std::unique_ptr<Procedure> main, int activation) {
  if (native_depth_ >= 100) RaiseBare(kOutOfStack);
  Value* t = StackTop();
  const std::size_t base = Depth();
  ScriptObject* me = activation >= 0 ? frames_[static_cast<std::size_t>(activation)].me : nullptr;
  Enter(*main, t, 0, me);
  frame().activation = activation;
  ++native_depth_;
  try {
    RunFrom(base);
  } catch (...) {
    --native_depth_;
    throw;
  }
  --native_depth_;
  return std::move(*t);
}

void Machine::Run(std::string_view utf8) {
  error_.Clear();
  RunMain(PutInForce(Compile(ToUtf16(utf8), false, nullptr), -1), -1);
  SayFarewells();
}

void Machine::End() {
  std::optional<Failure> first;
  for (std::uint32_t number = 0; number < globals_.count(); ++number) {
    if (globals_.name(number).kind == GlobalName::Kind::kVariable) globals_.values()[number].Clear();
    while (HasFarewells()) {
      try {
        SayFarewells();
      } catch (const Failure& failure) {
        if (!failure.catchable) throw;
        if (!first) first = failure;
      }
    }
  }
  if (first) throw Failure(*first);
}

void Machine::CheckText(std::string_view utf8) { Compile(ToUtf16(utf8), false, nullptr); }

Value Machine::EvaluateText(std::string_view utf8) {
  error_.Clear();
  return RunMain(PutInForce(Compile(ToUtf16(utf8), true, nullptr), -1), -1);
}

// The frame of the procedure whose names an executed text sees; -1 outside of procedures.
int Machine::Activation() const {
  const Frame& caller = frame();
  if (caller.activation >= 0) return caller.activation;
  return caller.procedure->kind == ProcKind::kMain ? -1 : static_cast<int>(Depth()) - 1;
}

Value Machine::ExecuteText(const Value& text, bool expression, bool global) {
  Value held = text.Is(Type::Object) ? DefaultValue(text) : text;
  if (!held.Is(Type::String)) {
    if (!expression) Raise(kTypeMismatch);
    return held;
  }
  const int activation = global ? -1 : Activation();
  ExecutedIn executed_in;
  if (activation >= 0) {
    const Frame& owner = frames_[static_cast<std::size_t>(activation)];
    executed_in.procedure = owner.procedure;
    executed_in.registers = owner.registers;
    executed_in.made = owner.made;
  }
  Unit unit = Compile(std::u16string(held.text()), expression, activation >= 0 ? &executed_in : nullptr);
  return RunMain(PutInForce(std::move(unit), activation), activation);
}

void Machine::Execute(const Value& text, bool global) { ExecuteText(text, false, global); }

Value Machine::Eval(const Value& expression) { return ExecuteText(expression, true, false); }

Value Machine::ReferenceTo(const Value& name) {
  if (!name.Is(Type::String)) Raise(kTypeMismatch);
  const GlobalName* global = globals_.Find(atoms_.Find(name.text()));
  if (!global || global->kind != GlobalName::Kind::kProcedure) Raise(kInvalidCall);
  return Value::TakeObject(Make<ProcedureReference>(0, *global->procedure));
}

}  // namespace qv::vbscript
