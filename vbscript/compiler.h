#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "vbscript/code.h"
#include "vbscript/library.h"

namespace qv::vbscript {

// What a text was compiled to. Nothing of it is known to the globals before it is put in force.
struct Unit {
  struct Definition {
    std::uint32_t number = 0;
    GlobalName name;
    Value value;
  };

  std::unique_ptr<Procedure> main;
  std::vector<std::unique_ptr<Procedure>> procedures;
  std::vector<std::unique_ptr<ClassDef>> classes;
  std::vector<Definition> definitions;
};

// The procedure activation in which a text is executed.
struct ExecutedIn {
  const Procedure* procedure = nullptr;
  const Value* registers = nullptr;
  const std::unordered_map<Atom, std::unique_ptr<Value>>* made = nullptr;  // variables that such texts made
};

// Makes code of a Program. Raises 1001 for a text that is too large for the code.
class Compiler {
 public:
  Compiler(Context& context, Atoms& atoms, Globals& globals, const Library& library, Program& program,
           const ExecutedIn* executed_in);

  Unit Compile();

 private:
  struct Name {
    enum class Kind : unsigned char {
      kDirect,     // a variable
      kReference,  // a register that refers to the variable once it is bound
      kUnknown,    // told at run time
      kConst,
      kProcedure,
      kClass,
      kOwn,  // a method or property of the class at hand
      kIntrinsic,
    };
    Kind kind = Kind::kUnknown;
    Operand operand = kNoOperand;  // the variable, or the register that is kept for it
    std::uint32_t number = 0;      // of the global name or of the intrinsic
    bool scoped = false;           // looked up in the activation that executes the text
    bool is_result = false;        // the procedure's own name
    Value value;
  };
  struct Loop {
    Tok word;
    std::uint32_t keep;  // the first register behind the loop's own
    std::vector<std::uint32_t> exits;
  };
  struct Labels {
    std::vector<std::uint32_t> jumps;
  };

  // Units and scopes.
  void CompileProcedure(const ProcDecl& decl, Procedure& made, ClassDef* owner);
  void CompileClass(const ClassDecl& decl, ClassDef& made);
  void DeclareGlobals();
  void Define(Atom atom, GlobalName name, Value value);
  std::uint32_t NumberFor(Atom atom, GlobalName::Kind kind);
  void OpenRegisters(const ProcDecl& decl);
  void OpenArrays(const Scope& scope);
  Name Resolve(Atom atom) const;
  Name ResolveGlobal(Atom atom) const;
  bool IsScopedName(Atom atom) const;
  [[noreturn]] void FailTooLarge() const;

  // Registers, code and marks.
  Operand Temp();
  Operand TempAt(std::uint32_t slot) const { return MakeOperand(Table::kRegister, slot); }
  bool IsTemp(Operand operand) const { return TableOf(operand) == Table::kRegister && SlotOf(operand) >= first_temp_; }
  void Dirty(Operand operand);
  Operand Constant(const Value& value);
  std::uint32_t Emit(Op op, std::uint32_t a = 0, std::uint32_t b = 0, std::uint32_t c = 0, std::uint32_t n = 0);
  std::uint32_t Here() const { return static_cast<std::uint32_t>(code_->code.size()); }
  void NameHere(std::string name);
  std::size_t Mark(Place place);
  void ResumeHere(std::size_t mark) { code_->marks[mark].resume = Here(); }
  void EndStatement(std::size_t mark, std::uint32_t first_temp);
  void PatchHere(const std::vector<std::uint32_t>& jumps);

  // Expressions. `want` asks for the result in that variable or register.
  Operand Evaluate(const Expr* expr, Operand want = kNoOperand);
  Operand ToTemp(const Expr* expr);
  Operand Element(const Expr* expr);
  bool AddsElement(Operand into, Operand left, Operand right);
  Operand Leaf(const Expr* expr, Operand want);
  Operand NameValue(const Expr* expr, Operand want);
  Operand BinaryValue(const Expr* expr, Operand want);
  Operand UnaryValue(const Expr* expr, Operand want);
  Operand CallResult(const Expr* expr, bool statement);
  Operand MemberResult(const Expr* expr, const std::vector<Expr*>& args, bool statement, bool has_list);
  Operand CallNamed(const Expr* callee, const std::vector<Expr*>& args, bool statement, Operand want);
  Operand CallVariable(const Name& name, const Expr* callee, const std::vector<Expr*>& args, bool statement);
  Operand CallIntrinsic(const Name& name, const Expr* callee, const std::vector<Expr*>& args, bool statement,
                        Operand want);
  Operand NewObject(const Expr* expr);
  Operand WithObject();
  std::uint32_t Flag(const Expr* left, const Expr* right) const;
  void Arguments(const std::vector<Expr*>& args);
  void Argument(const Expr* arg, Operand slot);
  void ReferTo(const Expr* arg, Operand slot);
  Operand Settle(Operand from, Operand want);
  bool MayCall(const Expr* expr) const;
  static std::string Spelled(const Expr* expr);
  Operand BoundVariable(const Name& name);
  Operand TargetVariable(const Expr* expr);
  void JumpUnless(const Expr* condition, Labels& target);
  void JumpIf(const Expr* condition, std::uint32_t target);
  void JumpOn(const Expr* condition, bool sense, std::uint32_t target);

  // Statements.
  void Statements(const std::vector<Stmt*>& body);
  void Statement(const Stmt& stmt);
  void Assign(const Stmt& stmt);
  void AssignName(const Stmt& stmt, bool is_set);
  void AssignMember(const Expr* object, Atom member, const std::vector<Expr*>& args, const Expr* target,
                    const Expr* value, bool is_set);
  void AssignElement(const Expr* target, const Expr* value, bool is_set);
  Operand Container(const Expr* expr);
  void Bind(Atom atom);
  void If(const Stmt& stmt, std::size_t mark);
  void Select(const Stmt& stmt, std::size_t mark);
  void For(const Stmt& stmt, std::size_t mark);
  void ForEach(const Stmt& stmt, std::size_t mark);
  void While(const Stmt& stmt, std::size_t mark);
  void Do(const Stmt& stmt, std::size_t mark);
  void With(const Stmt& stmt, std::size_t mark);
  void Exit(const Stmt& stmt);
  void ReDim(const Stmt& stmt);
  void Block(const std::vector<Stmt*>& body);

  Context& context_;
  Atoms& atoms_;
  Globals& globals_;
  const Library& library_;
  Program& program_;
  const ExecutedIn* executed_in_;
  Unit unit_;
  std::unordered_map<Atom, std::size_t> new_definitions_;  // global names that this text declares
  std::unordered_map<const ProcDecl*, Procedure*> made_;

  // The procedure at hand.
  Procedure* code_ = nullptr;
  const ProcDecl* decl_ = nullptr;
  ClassDef* owner_ = nullptr;
  std::unordered_map<Atom, Name> locals_;
  std::vector<Atom> bound_;  // names that certainly exist here
  std::unordered_set<Atom> is_bound_;
  std::uint32_t first_temp_ = 0;
  std::uint32_t next_temp_ = 0;
  std::uint32_t dirty_end_ = 0;
  std::vector<Loop> loops_;
  std::vector<Operand> withs_;
  std::unordered_map<std::int64_t, Operand> integer_constants_;
};

}  // namespace qv::vbscript
