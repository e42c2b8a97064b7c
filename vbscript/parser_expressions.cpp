#include "vbscript/parser_nested.h"

namespace qv::vbscript {
namespace {

// How tightly a binary operator binds; 0 for what is none.
int Rank(Tok op) {
  switch (op) {
    case Tok::kImp:
      return 1;
    case Tok::kEqv:
      return 2;
    case Tok::kXor:
      return 3;
    case Tok::kOr:
      return 4;
    case Tok::kAnd:
      return 5;
    case Tok::kEqual:
    case Tok::kNotEqual:
    case Tok::kLess:
    case Tok::kGreater:
    case Tok::kLessEqual:
    case Tok::kGreaterEqual:
    case Tok::kIs:
      return 7;
    case Tok::kAmpersand:
      return 8;
    case Tok::kPlus:
    case Tok::kMinus:
      return 9;
    case Tok::kMod:
      return 10;
    case Tok::kBackslash:
      return 11;
    case Tok::kStar:
    case Tok::kSlash:
      return 12;
    case Tok::kCaret:
      return 13;
    default:
      return 0;
  }
}

constexpr int kNotRank = 6;
// Chains of members, calls and indexes are compiled by recursion along the chain.
constexpr int kLongestChain = 1000;

}  // namespace

// Reads operators that bind at least as tightly as `lowest`. A left operand that was read already may be given.
Expr* Parser::Binary(int lowest, Expr* left) {
  const Nested nested(*this);
  if (!left) left = Operand();
  for (;;) {
    const int rank = Rank(token_.kind);
    if (rank == 0 || rank < lowest) return left;
    Expr* made = program_.NewExpr(ExprKind::kBinary, left->place);
    made->op = token_.kind;
    Advance();
    made->left = left;
    made->right = Binary(rank + 1, nullptr);
    left = made;
  }
}

Expr* Parser::Operand() {
  const Place place = token_.place;
  if (At(Tok::kNot)) {
    const Nested nested(*this);
    Advance();
    Expr* made = program_.NewExpr(ExprKind::kUnary, place);
    made->op = Tok::kNot;
    // Also to the right of a tighter operator, Not takes all that its own rank takes.
    made->left = Binary(kNotRank, nullptr);
    return made;
  }
  if (At(Tok::kMinus) || At(Tok::kPlus)) {
    const Nested nested(*this);
    Expr* made = program_.NewExpr(ExprKind::kUnary, place);
    made->op = token_.kind;
    Advance();
    made->left = Operand();
    return made;
  }
  return Primary();
}

Expr* Parser::Literal(Value value, bool bare) {
  Expr* made = program_.NewExpr(ExprKind::kLiteral, token_.place);
  made->value = std::move(value);
  made->bare_literal = bare;
  Advance();
  return made;
}

Expr* Parser::NameExpr(const Token& name) {
  Expr* made = program_.NewExpr(ExprKind::kName, name.place);
  made->name = name.atom;
  made->spelling = name.text;
  (procedure_ ? procedure_ : &program_.main)->used.push_back(name.atom);
  return made;
}

Expr* Parser::Primary() {
  const Place place = token_.place;
  switch (token_.kind) {
    case Tok::kNumber:
    case Tok::kString:
      return Literal(token_.value, true);
    case Tok::kDate:
      return Literal(token_.value, false);
    case Tok::kTrue:
      return Literal(Value::Boolean(true), true);
    case Tok::kFalse:
      return Literal(Value::Boolean(false), true);
    case Tok::kEmpty:
      return Literal(Value::Empty(), false);
    case Tok::kNull:
      return Literal(Value::Null(), false);
    case Tok::kNothing:
      return Literal(Value::OfObject(nullptr), false);
    case Tok::kLeft: {
      const Nested nested(*this);
      Advance();
      Expr* made = program_.NewExpr(ExprKind::kGroup, place);
      made->left = Expression();
      Expect(Tok::kRight, 1006);
      return Postfix(made);
    }
    case Tok::kNew: {
      Advance();
      const Token name = ExpectName();
      Expr* made = program_.NewExpr(ExprKind::kNew, place);
      made->name = name.atom;
      made->spelling = name.text;
      return made;
    }
    case Tok::kMe: {
      Advance();
      return Postfix(program_.NewExpr(ExprKind::kMe, place));
    }
    case Tok::kName: {
      const Token name = ExpectName();
      return Postfix(NameExpr(name));
    }
    case Tok::kDot:
      return Postfix(nullptr);
    default:
      Fail(1002);
  }
}

// Members, calls and indexes behind `start`; without a start, a member of the innermost With comes first.
Expr* Parser::Postfix(Expr* start) {
  const bool is_callee = is_callee_;
  is_callee_ = false;
  Expr* expr = start;
  for (int links = 0;; ++links) {
    if (links > kLongestChain) Fail(1001);
    if (At(Tok::kDot)) {
      // Within With, `callee .member` is a call whose first argument is that member.
      const bool apart = token_.place.line == last_end_.line && token_.place.column > last_end_.column;
      if (is_callee && apart && expr && expr->kind != ExprKind::kCall && Inside(Block::kWith)) return expr;
      const Place place = expr ? expr->place : token_.place;
      Advance();
      const Token name = ExpectName();
      Expr* made = program_.NewExpr(ExprKind::kMember, place);
      made->left = expr;
      made->name = name.atom;
      made->spelling = name.text;
      expr = made;
    } else if (At(Tok::kLeft)) {
      const Nested nested(*this);
      Advance();
      std::vector<Expr*> args;
      if (!At(Tok::kRight)) Arguments(args);
      Expect(Tok::kRight, 1006);
      expr = CallOf(expr, std::move(args), expr->place);
    } else {
      return expr;
    }
  }
}

Expr* Parser::CallOf(Expr* callee, std::vector<Expr*> args, Place place) {
  Expr* made = program_.NewExpr(ExprKind::kCall, place);
  made->left = callee;
  made->args = std::move(args);
  return made;
}

// A list in which arguments may be left out.
void Parser::Arguments(std::vector<Expr*>& args) {
  for (;;) {
    if (At(Tok::kComma)) {
      args.push_back(program_.NewExpr(ExprKind::kMissing, token_.place));
    } else {
      args.push_back(Expression());
    }
    if (!Accept(Tok::kComma)) return;
  }
}

}  // namespace qv::vbscript
