#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "vbscript/ast.h"
#include "vbscript/context.h"

namespace qv::vbscript {

// An operand names a variable: the low bits say in which table, the rest is the offset of the value in bytes.
using Operand = std::uint32_t;

enum class Table : std::uint32_t { kRegister, kConstant, kGlobal, kField };

constexpr Operand MakeOperand(Table table, std::uint32_t slot) { return slot << 4 | static_cast<std::uint32_t>(table); }
constexpr Table TableOf(Operand operand) { return static_cast<Table>(operand & 3); }
constexpr std::uint32_t SlotOf(Operand operand) { return operand >> 4; }

inline constexpr Operand kNoOperand = 0xffffffff;
inline constexpr std::uint32_t kMostSlots = 1U << 20;

// The machine's instructions. a, b and c are operands unless said otherwise; n is a count or flags. A call's
// registers start at t: the result comes to t, and the arguments stand behind it.
enum class Op : std::uint16_t {
  kLoad,        // a = b as it is
  kLet,         // a = b as assignment has it
  kLetMove,     // the same, and b is a register that may be emptied
  kSet,         // Set a = b
  kMakeRef,     // a refers to the variable b
  kElementRef,  // a refers to the element c of b; n > 1: the n indexes stand from c on
  kLoadName,    // a = what the name c (global number) is; b is its own slot or none
  kBindWrite,   // finds or makes the variable for the slot a and the name b (global number)
  kTouch,       // makes the global a (number) exist for writing
  kBindScoped,  // a refers to the variable named b (atom) of the procedure that executes this text; n: for writing
  kAdd,
  kSubtract,
  kMultiply,
  kDivide,
  kIntDivide,
  kModulo,
  kPower,
  kConcat,
  kAnd,
  kOr,
  kXor,
  kEqv,
  kImp,
  kNegate,  // a = -b
  kPlus,
  kNot,
  kEqual,  // a = (b = c); n tells which sides are bare literals
  kNotEqual,
  kLess,
  kGreater,
  kLessEqual,
  kGreaterEqual,
  kIs,
  kJump,        // to a (code index)
  kLoopJump,    // to a, back
  kJumpIf,      // to a if b
  kJumpUnless,  // to a unless b
  kJumpEqual,   // to a if b = c; in the order of the comparisons
  kJumpNotEqual,
  kJumpLess,
  kJumpGreater,
  kJumpLessEqual,
  kJumpGreaterEqual,
  kUnlessEqual,  // to a unless b = c
  kUnlessNotEqual,
  kUnlessLess,
  kUnlessGreater,
  kUnlessLessEqual,
  kUnlessGreaterEqual,
  kForInit,     // from, limit and step stand from b on; c is the variable; to a if nothing is to do
  kForNext,     // to a if there is another round
  kEachInit,    // b and the next hold the collection c and the position
  kEachNext,    // c = the next item, to a; falls through at the end
  kWithInit,    // b = the object c
  kSubject,     // b = the value c that is compared with the cases
  kIndex,       // a = b(c)
  kIndexRef,    // a refers to b(c), for the next instruction only
  kAddElement,  // a = b + c(register n)
  kIndexN,      // a = b(n indexes from c on)
  kIndexLet,    // a(b) = c; n: Set
  kIndexLetN,   // a(n indexes from b on) = the value behind them; c: Set
  kCallName,    // t = a; the name b (global number); c its own slot or none
  kCallValue,   // t = a holds what is called or indexed
  kCallOwn,     // t = a; the member b of the object's class
  kIntrinsic,   // a = the intrinsic c with n arguments from b on
  kMemberGet,   // t = a holds the object; the member b (atom)
  kMemberLet,   // the value stands behind the arguments
  kMemberSet,
  kNew,  // a = a new object of the class b (global number)
  kNewRegExp,
  kMe,
  kDimArray,  // the array a gets the bounds c
  kReDim,     // a gets n bounds from b on; c: keep the elements
  kErase,
  kByValue,  // the argument a is no reference any more
  kResumeNext,
  kGoToZero,
  kRaise,  // a is the number
  kClear,  // n registers from a on
  kReturn,
};

// Flags in n of a call.
inline constexpr std::uint16_t kCountMask = 0x3fff;
inline constexpr std::uint16_t kAsStatement = 0x4000;
inline constexpr std::uint16_t kWithList = 0x8000;  // parentheses follow the member, empty ones too

struct Instr {
  Op op;
  std::uint16_t n;
  std::uint32_t a;
  std::uint32_t b;
  std::uint32_t c;
};

// Where a statement's code starts, where it stands in the text, and where the script goes on behind an error in it.
struct StatementMark {
  std::uint32_t start;
  std::uint32_t resume;
  std::uint32_t first_temp;  // the registers from here on are its own
  Place place;
};

struct ClassDef;

// A name of a procedure and its register.
struct LocalName {
  Atom name;
  std::uint32_t slot;
  bool declared;  // otherwise it may turn out to be a global name
};

struct Procedure {
  ProcKind kind = ProcKind::kMain;
  Atom name = kNoAtom;
  std::string spelling;
  std::uint32_t params = 0;
  std::uint32_t registers = 0;
  std::uint32_t result = 0;  // its register
  bool option_explicit = false;
  std::vector<Instr> code;
  std::vector<Value> constants;
  std::vector<StatementMark> marks;                          // by start
  std::vector<std::pair<std::uint32_t, std::string>> names;  // the name for messages, by instruction
  std::vector<std::vector<std::int64_t>> bounds;
  std::vector<LocalName> locals;  // for executed text
  std::vector<std::pair<Atom, Value>> local_constants;
  ClassDef* owner = nullptr;
};

struct ClassMember {
  bool is_public = true;
  bool is_field = false;
  std::uint32_t field = 0;
  Procedure* get = nullptr;  // also a Sub or Function
  Procedure* let = nullptr;
  Procedure* set = nullptr;
  bool is_method = false;
};

struct ClassDef {
  std::u16string name;
  std::unordered_map<Atom, ClassMember> members;
  std::uint32_t fields = 0;
  std::vector<std::pair<std::uint32_t, std::vector<std::int64_t>>> arrays;  // fields declared with bounds
  std::vector<Procedure*> procedures;
  Procedure* default_member = nullptr;
  Procedure* initialize = nullptr;
  Procedure* terminate = nullptr;
};

// What a global name means.
struct GlobalName {
  enum class Kind : std::uint8_t { kUnknown, kVariable, kConst, kProcedure, kClass };
  Kind kind = Kind::kUnknown;
  bool declared = false;  // a variable by Dim
  Atom atom = kNoAtom;
  Procedure* procedure = nullptr;
  ClassDef* class_def = nullptr;
};

// The global names of an engine, by number. Their values stand in a table of the same numbers that never moves.
class Globals {
 public:
  static constexpr std::uint32_t kMost = 1U << 15;

  Globals();
  ~Globals();
  Globals(const Globals&) = delete;
  Globals& operator=(const Globals&) = delete;

  // The number of the name, made if it is new; kMost when there is no room.
  std::uint32_t Number(Atom atom);
  // A new number that takes the old one's name at the time that Rename is called.
  std::uint32_t Spare(Atom atom);
  void Rename(Atom atom, std::uint32_t number) { numbers_[atom] = number; }
  const GlobalName* Find(Atom atom) const;
  GlobalName& name(std::uint32_t number) { return names_[number]; }
  std::uint32_t count() const { return static_cast<std::uint32_t>(names_.size()); }
  Value* values() { return values_; }
  void DropValues();

 private:
  std::unordered_map<Atom, std::uint32_t> numbers_;
  std::vector<GlobalName> names_;
  Value* values_;
};

}  // namespace qv::vbscript
