#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "vbscript/token.h"

namespace qv::vbscript {

enum class ExprKind : std::uint8_t {
  kLiteral,
  kName,
  kMember,  // left.name; without a left side a member of the innermost With
  kCall,    // left(args): a call or an index
  kUnary,   // op left
  kBinary,  // left op right
  kNew,
  kMe,
  kMissing,  // an argument left out
  kGroup,    // (left)
};

// Expressions and statements live as long as their Program and refer to its text.
struct Expr {
  ExprKind kind = ExprKind::kLiteral;
  Tok op = Tok::kEnd;
  Place place;
  Atom name = kNoAtom;
  std::u16string_view spelling;
  Expr* left = nullptr;
  Expr* right = nullptr;
  std::vector<Expr*> args;
  Value value;
  bool bare_literal = false;  // a number or string token as it stands
};

enum class StmtKind : std::uint8_t {
  kLet,
  kSet,
  kCall,
  kIf,
  kSelect,
  kFor,
  kForEach,
  kWhile,
  kDo,
  kWith,
  kExit,
  kResumeNext,
  kGoToZero,
  kReDim,
  kErase,
};

struct Stmt;

// If: a condition and its statements. Select: the values of one Case. No values is the Else of either.
struct Branch {
  Place place;
  std::vector<Expr*> values;
  std::vector<Stmt*> body;
  bool is_else = false;
};

struct ReDimItem {
  Expr* name = nullptr;
  std::vector<Expr*> bounds;
};

struct Stmt {
  StmtKind kind = StmtKind::kCall;
  Place place;
  Place end_place;       // of the closing Next, Loop or Wend
  Tok word = Tok::kEnd;  // what is exited
  bool at_end = false;   // Do: the condition stands at the Loop
  bool until = false;
  bool preserve = false;
  Expr* target = nullptr;
  Expr* value = nullptr;  // the right side, the condition, the subject or the call
  Expr* limit = nullptr;
  Expr* step = nullptr;
  std::vector<Branch> branches;
  std::vector<Stmt*> body;
  std::vector<ReDimItem> redims;
};

enum class DeclKind : std::uint8_t { kVariable, kConst, kProcedure, kClass, kArgument };

struct DimDecl {
  Atom name = kNoAtom;
  std::u16string_view spelling;
  Place place;
  bool is_array = false;
  bool is_public = true;
  std::vector<std::int64_t> bounds;
};

// The names that one text, procedure or class declares.
struct Scope {
  std::unordered_map<Atom, DeclKind> names;
  std::unordered_map<Atom, Value> constants;
  std::vector<DimDecl> dims;
};

struct Param {
  Atom name = kNoAtom;
  bool by_value = false;
};

enum class ProcKind : std::uint8_t { kMain, kSub, kFunction, kGet, kLet, kSet };

struct ProcDecl {
  ProcKind kind = ProcKind::kMain;
  Atom name = kNoAtom;
  std::u16string_view spelling;
  Place place;
  bool is_public = true;
  bool is_default = false;
  std::vector<Param> params;
  Scope scope;
  std::vector<Atom> used;  // the names that its statements mention, repeated as they come
  std::vector<Stmt*> body;
};

struct ClassDecl {
  Atom name = kNoAtom;
  std::u16string_view spelling;
  Scope scope;  // its fields are the dims
  std::vector<ProcDecl*> members;
};

struct Program {
  std::u16string text;
  bool option_explicit = false;
  ProcDecl main;
  std::vector<ProcDecl*> procedures;
  std::vector<ClassDecl*> classes;
  Expr* expression = nullptr;  // of Eval

  Expr* NewExpr(ExprKind kind, Place place);
  Stmt* NewStmt(StmtKind kind, Place place);
  ProcDecl* NewProc() { return &procs_.emplace_back(); }
  ClassDecl* NewClass() { return &class_decls_.emplace_back(); }

 private:
  std::deque<Expr> exprs_;
  std::deque<Stmt> stmts_;
  std::deque<ProcDecl> procs_;
  std::deque<ClassDecl> class_decls_;
};

inline Expr* Program::NewExpr(ExprKind kind, Place place) {
  Expr& made = exprs_.emplace_back();
  made.kind = kind;
  made.place = place;
  return &made;
}

inline Stmt* Program::NewStmt(StmtKind kind, Place place) {
  Stmt& made = stmts_.emplace_back();
  made.kind = kind;
  made.place = place;
  return &made;
}

}  // namespace qv::vbscript
