#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "vbscript/array.h"
#include "vbscript/class_object.h"
#include "vbscript/code.h"
#include "vbscript/compare.h"
#include "vbscript/compiler.h"
#include "vbscript/engine.h"
#include "vbscript/err_object.h"
#include "vbscript/library.h"
#include "vbscript/random.h"

namespace qv::vbscript {

// Runs code. All of an engine's state hangs on it.
class Machine final : public Context {
 public:
  explicit Machine(const EngineOptions& options);
  ~Machine() override;

  // Compiles a text and runs its outer statements. Throws Failure.
  void Run(std::string_view utf8);
  void CheckText(std::string_view utf8);
  // Empties the variables, one after the other, so that what they alone held goes with its Class_Terminate. Throws the
  // first Failure there was when all have gone, but an interrupt at once.
  void End();
  Value EvaluateText(std::string_view utf8);

  // What an error left behind.
  ErrorState& error() { return error_; }
  Random& random() { return random_; }
  Atoms& atoms() { return atoms_; }
  Library& library() { return library_; }
  Globals& globals() { return globals_; }
  int locale() const { return locale_; }
  void SetLocale(int id, char16_t decimal_mark);

  // For the intrinsics of the same names: the text is executed where the calling procedure stands.
  void Execute(const Value& text, bool global);
  Value Eval(const Value& expression);
  Value ReferenceTo(const Value& name);

  // Calls a procedure from the program's own code and returns its result.
  Value Call(Procedure& procedure, ScriptObject* me, const Value* args, int count);
  // Reads or calls a member of any object; kDefaultMember for the default one.
  Value GetMember(const Value& object, Atom member, const Value* args, int count);
  Value DefaultValue(const Value& object) override;

 private:
  struct Frame {
    const Procedure* procedure = nullptr;
    const Instr* pc = nullptr;  // the instruction at work; before the loop takes the frame up, the next one
    Value* registers = nullptr;
    ScriptObject* me = nullptr;
    Value* result = nullptr;
    std::unordered_map<Atom, std::unique_ptr<Value>>* made = nullptr;  // by texts executed here; owned
    int activation = -1;  // of an executed text: the frame in which it is executed
    bool resume_next = false;
  };

  // Running.
  void RunFrom(std::size_t base);
  void Loop(std::size_t base);
  void Enter(const Procedure& procedure, Value* t, std::uint32_t count, ScriptObject* me);
  [[noreturn]] static void FailToEnter(const Procedure& procedure, int number);
  void Leave();
  Value* StackTop();
  bool Handle(Failure& failure, std::size_t base);
  void Locate(Failure& failure) const;
  void SayFarewells();
  Frame& frame() { return free_frame_[-1]; }
  const Frame& frame() const { return free_frame_[-1]; }
  std::size_t Depth() const { return static_cast<std::size_t>(free_frame_ - frames_.data()); }
  void Drop();

  // Texts.
  Unit Compile(std::u16string text, bool expression, const ExecutedIn* executed_in);
  std::unique_ptr<Procedure> PutInForce(Unit unit, int activation);
  Value RunMain(std::unique_ptr<Procedure> main, int activation);
  Value ExecuteText(const Value& text, bool expression, bool global);
  int Activation() const;

  // The parts of instructions that are not fast. Each that may enter a procedure tells whether it did.
  bool LoadName(Value& into, Value* slot, std::uint32_t number, bool by_reference);
  void BindWrite(Value& slot, std::uint32_t number, bool always);
  void Touch(std::uint32_t number, bool always);
  void BindScoped(Value& slot, Atom name, bool always);
  static Value* FindScoped(Frame& activation, Atom name);
  static Value& ScopedVariable(Frame& activation, Atom name);
  bool CallName(Value* t, std::uint32_t number, Value* slot, std::uint32_t n);
  bool CallValue(Value* t, std::uint32_t n);
  bool CallOwn(Value* t, Atom member, std::uint32_t n);
  bool CallMember(Value* t, Atom member, std::uint32_t n);
  bool AssignMember(Value* t, Atom member, std::uint32_t n, bool is_set, bool own);
  bool CallNative(Value* t, Object& object, Atom member, Access access, std::uint32_t n);
  void CallIntrinsic(Value& into, Value* args, std::uint32_t number, std::uint32_t n);
  Value Binary(Op op, const Value& left, const Value& right, unsigned literals);
  Value AddIndexed(const Value& left, const Value& container, const Value& index);
  bool Compared(Comparison kind, const Value& left, const Value& right, unsigned literals);
  void Let(Value& target, const Value& value);
  void Set(Value& target, const Value& value);
  void Index(Value& into, const Value& container, const Value* indexes, std::uint32_t n);
  void IndexLet(Value& container, const Value* indexes, std::uint32_t n, const Value& value, bool is_set);
  void ReferToElement(Value& into, Value& container, const Value* indexes, std::uint32_t n);
  std::uint32_t Position(const Value& container, const Value* indexes, std::uint32_t n);
  void ReDimension(Value& variable, const Value* bounds, std::uint32_t n, bool preserve);
  void DimArray(Value& variable, const std::vector<std::int64_t>& bounds);
  void Erase(Value& variable);
  void NewObject(Value& into, std::uint32_t number);
  void NewRegExp(Value& into);
  bool ForInit(Value* registers, Value& variable);
  bool ForNext(Value* registers, Value& variable);
  void EachInit(Value* registers, const Value& source);
  bool EachNext(Value* registers, Value& variable);
  [[noreturn]] void FailMember(int number) const;
  std::string NameHere() const;

  EngineOptions options_;
  Atoms atoms_;
  Library library_;
  Globals globals_;
  std::vector<std::unique_ptr<Procedure>> procedures_;
  std::vector<std::unique_ptr<ClassDef>> classes_;
  std::vector<Frame> frames_;
  Frame* free_frame_ = nullptr;  // those in front of it are in use
  const Frame* frames_end_ = nullptr;
  Value* stack_;
  Value* stack_end_;
  int native_depth_ = 0;
  ErrorState error_;
  Random random_;
  int locale_ = 1033;
  Value script_object_;
};

}  // namespace qv::vbscript
