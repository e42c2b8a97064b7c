#include "vbscript/machine.h"

#include <algorithm>
#include <cstdlib>
#include <new>

#include "vbscript/failure.h"
#include "vbscript/machine_frames.h"
#include "vbscript/text.h"

namespace qv::vbscript {
namespace {

// How often running may nest in the program's own stack, through default properties, executed texts and the like.
constexpr int kNativeDepth = 100;

// Registers for all frames together: many for each, and enough for a few large ones.
std::size_t StackSize(const EngineOptions& options) {
  return static_cast<std::size_t>(std::clamp(options.depth_limit, 16, 4096)) * 256;
}

}  // namespace

Machine::Machine(const EngineOptions& options)
    : Context(options.memory_limit, options.string_limit, options.interrupt, options.step_limit, options.match_limit),
      options_(options),
      library_(atoms_),
      stack_(static_cast<Value*>(std::calloc(StackSize(options), sizeof(Value)))),
      stack_end_(stack_ + StackSize(options)) {
  if (!stack_) throw std::bad_alloc();
  frames_.resize(static_cast<std::size_t>(std::max(options.depth_limit, 1)));
  free_frame_ = frames_.data();
  frames_end_ = frames_.data() + frames_.size();
  AddStringFunctions(library_);
  AddByteFunctions(library_);
  AddMathFunctions(library_);
  AddDateFunctions(library_);
  AddConversions(library_);
  AddFormats(library_);
  AddArrayFunctions(library_);
  AddEngineFunctions(library_);
  AddConstants(*this, library_);
  script_object_ = Value::TakeObject(Make<ScriptScope>(0));
}

Machine::~Machine() {
  // Objects go before the classes that they are of.
  DropEverything();
  globals_.DropValues();
  script_object_.Clear();
  std::free(stack_);
}

Value* Machine::StackTop() { return Depth() == 0 ? stack_ : frame().registers + frame().procedure->registers; }

void Machine::FailToEnter(const Procedure& procedure, int number) { RaiseNamed(number, procedure.spelling); }

// Runs the innermost frame and what it calls until it is left.
void Machine::RunFrom(std::size_t base) {
  for (;;) {
    try {
      Loop(base);
      return;
    } catch (Failure& failure) {
      if (!Handle(failure, base)) throw;
    } catch (const std::bad_alloc&) {
      Failure failure;
      failure.number = kOutOfMemory;
      failure.description = RuntimeErrorText(kOutOfMemory);
      failure.source = kRuntimeSource;
      if (!Handle(failure, base)) throw failure;
    }
  }
}

void Machine::Locate(Failure& failure) const {
  if (failure.placed) return;
  failure.placed = true;
  const Frame& innermost = frame();
  const Procedure& procedure = *innermost.procedure;
  const auto index = static_cast<std::uint32_t>(innermost.pc - procedure.code.data());
  const auto mark = std::upper_bound(procedure.marks.begin(), procedure.marks.end(), index,
                                     [](std::uint32_t at, const StatementMark& m) { return at < m.start; });
  failure.place = mark == procedure.marks.begin() ? Place{1, 0} : std::prev(mark)->place;
  if (!failure.takes_name || !failure.name.empty()) return;
  failure.name = NameHere();
  if (failure.name.empty()) failure.name = failure.value_name;
}

std::string Machine::NameHere() const {
  const Frame& innermost = frame();
  const auto& names = innermost.procedure->names;
  const auto index = static_cast<std::uint32_t>(innermost.pc - innermost.procedure->code.data());
  const auto name = std::lower_bound(names.begin(), names.end(), index,
                                     [](const auto& entry, std::uint32_t at) { return entry.first < at; });
  return name != names.end() && name->first == index ? name->second : std::string();
}

// Finds the frame that goes on behind the error; without one, drops all frames above `base`.
bool Machine::Handle(Failure& failure, std::size_t base) {
  Locate(failure);
  while (Depth() > base) {
    Frame& top = frame();
    const Procedure& procedure = *top.procedure;
    const auto index = static_cast<std::uint32_t>(top.pc - procedure.code.data());
    const auto mark = std::upper_bound(procedure.marks.begin(), procedure.marks.end(), index,
                                       [](std::uint32_t at, const StatementMark& m) { return at < m.start; });
    if (failure.catchable && top.resume_next && mark != procedure.marks.begin()) {
      const StatementMark& statement = *std::prev(mark);
      error_.Take(failure);
      for (std::uint32_t k = statement.first_temp; k < procedure.registers; ++k) top.registers[k].Clear();
      top.pc = procedure.code.data() + statement.resume;
      return true;
    }
    for (std::uint32_t k = 0; k < procedure.registers; ++k) top.registers[k].Clear();
    top.result->Clear();
    Drop();
  }
  return false;
}

Value Machine::Call(Procedure& procedure, ScriptObject* me, const Value* args, int count) {
  if (native_depth_ >= kNativeDepth) RaiseNamed(kOutOfStack, procedure.spelling);
  Value* t = StackTop();
  if (stack_end_ - t < count + 64) RaiseNamed(kOutOfStack, procedure.spelling);
  for (int k = 0; k < count; ++k) t[k + 1] = args[k];
  const std::size_t base = Depth();
  try {
    Enter(procedure, t, static_cast<std::uint32_t>(count), me);
  } catch (...) {
    for (int k = 0; k < count; ++k) t[k + 1].Clear();
    throw;
  }
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

// Class_Terminate of the objects that nobody holds any more.
void Machine::SayFarewells() {
  while (HasFarewells()) {
    auto* object = static_cast<ScriptObject*>(TakeFarewell());
    const Value holder = Value::TakeObject(object);
    object->BeginFarewell();
    Call(*object->definition().terminate, object, nullptr, 0);
  }
}

void Machine::SetLocale(int id, char16_t decimal_mark) {
  locale_ = id;
  decimal_mark_ = decimal_mark;
}

}  // namespace qv::vbscript
