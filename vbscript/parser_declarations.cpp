#include "vbscript/arithmetic.h"
#include "vbscript/parser_nested.h"

namespace qv::vbscript {
namespace {

constexpr std::size_t kMostDimensions = 60;

}  // namespace

void Parser::Declare(Scope& scope, Atom name, DeclKind kind, Place place) {
  const auto [known, is_new] = scope.names.emplace(name, kind);
  if (!is_new) {
    const bool both_procedures = known->second == DeclKind::kProcedure && kind == DeclKind::kProcedure;
    if (!both_procedures || options_.procedures_clash) Fail(1041, place);
    return;
  }
  if (&scope != &program_.main.scope || options_.in_procedure || !options_.declared) return;
  const std::optional<DeclKind> earlier = options_.declared(name);
  if (!earlier || kind == DeclKind::kVariable) return;
  if (kind == DeclKind::kProcedure && *earlier != DeclKind::kClass) return;
  Fail(1041, place);
}

void Parser::OptionStatement() {
  if (!first_statement_) Fail(1024);
  first_statement_ = false;
  Advance();
  if (!AtNameOf(u"explicit")) Fail(1002);
  Advance();
  program_.option_explicit = true;
}

// Everything that Dim, Const, Public, Private, Default, Sub, Function or Class starts.
void Parser::Declaration() {
  const Place start = token_.place;
  bool is_public = true;
  bool is_default = false;
  bool has_access = false;
  switch (token_.kind) {
    case Tok::kDim:
      Advance();
      return DimList(true);
    case Tok::kConst:
      return ConstStatement();
    case Tok::kClass:
      return ClassDeclaration();
    case Tok::kPublic:
    case Tok::kPrivate:
      if (procedure_) Fail(1002);
      has_access = true;
      is_public = At(Tok::kPublic);
      Advance();
      break;
    default:
      break;
  }
  if (AtNameOf(u"default") && (has_access ? Ahead().kind != Tok::kComma && Ahead().kind != Tok::kLeft : true) &&
      (IsWord(Ahead().kind) || Ahead().kind == Tok::kName)) {
    const bool public_before = has_access && is_public;
    const Place place = token_.place;
    Advance();
    is_default = true;
    if (!public_before) Fail(1057, place);
    if (!At(Tok::kSub) && !At(Tok::kFunction) && !AtNameOf(u"property")) Fail(1056);
  }
  if (At(Tok::kSub) || At(Tok::kFunction)) return ProcedureDeclaration(is_public, is_default, start);
  if (class_ && AtNameOf(u"property")) return PropertyDeclaration(is_public, is_default);
  if (At(Tok::kConst)) return ConstStatement();
  if (AtNameOf(u"property") && (Ahead().kind == Tok::kGet || Ahead().kind == Tok::kLet || Ahead().kind == Tok::kSet)) {
    Advance();
    Fail(1048);
  }
  DimList(is_public);
}

void Parser::DimList(bool is_public) {
  Scope& scope = class_ && !procedure_ ? class_->scope : CurrentScope();
  do {
    const Token name = ExpectName();
    Declare(scope, name.atom, DeclKind::kVariable, name.place);
    DimDecl made;
    made.name = name.atom;
    made.spelling = name.text;
    made.place = name.place;
    made.is_public = is_public;
    if (At(Tok::kLeft)) {
      made.is_array = true;
      made.bounds = FixedBounds();
    }
    scope.dims.push_back(std::move(made));
  } while (Accept(Tok::kComma));
}

std::vector<std::int64_t> Parser::FixedBounds() {
  std::vector<std::int64_t> bounds;
  Advance();
  if (Accept(Tok::kRight)) return bounds;
  do {
    if (!At(Tok::kNumber) || !token_.value.IsInt() || token_.value.n() < 0) Fail(1026);
    if (bounds.size() == kMostDimensions) Fail(1002);
    bounds.push_back(token_.value.n());
    Advance();
  } while (Accept(Tok::kComma));
  Expect(Tok::kRight, 1006);
  return bounds;
}

void Parser::ConstStatement() {
  if (class_ && !procedure_) Fail(1002);
  Advance();
  do {
    const Token name = ExpectName();
    Declare(CurrentScope(), name.atom, DeclKind::kConst, name.place);
    Expect(Tok::kEqual, 1011);
    CurrentScope().constants[name.atom] = ConstantValue()->value;
  } while (Accept(Tok::kComma));
}

Expr* Parser::ConstantValue() {
  Expr* expr = Expression();
  bool negative = false;
  bool is_signed = false;
  Expr* number = expr;
  for (; number->kind == ExprKind::kUnary && number->op != Tok::kNot; number = number->left) {
    is_signed = true;
    negative ^= number->op == Tok::kMinus;
  }
  const Type type = number->value.type();
  const bool is_number = type == Type::Integer || type == Type::Long || type == Type::Double;
  if (number->kind != ExprKind::kLiteral || (is_signed && !is_number)) Fail(1045);
  if (negative) number->value = Negate(number->value);
  return number;
}

void Parser::ProcedureDeclaration(bool is_public, bool is_default, Place start) {
  bool nested = procedure_ != nullptr;
  for (const OpenBlock& open : open_) {
    nested = nested || (open.block != Block::kIf && open.block != Block::kSelect && open.block != Block::kClass);
  }
  if (nested) Fail(1002, start);
  const Nested depth(*this);
  ProcDecl* made = program_.NewProc();
  made->kind = At(Tok::kSub) ? ProcKind::kSub : ProcKind::kFunction;
  made->is_public = is_public;
  made->is_default = is_default;
  const Place place = token_.place;
  Advance();
  if (!At(Tok::kName)) Fail(1010);
  made->place = token_.place;
  made->name = token_.atom;
  made->spelling = token_.text;
  if (class_) {
    AddMember(*class_, made, place);
  } else {
    Declare(program_.main.scope, made->name, DeclKind::kProcedure, made->place);
    program_.procedures.push_back(made);
  }
  ProcedureHead(*made);
}

// The name, which has been looked at, the parameters and the body.
void Parser::ProcedureHead(ProcDecl& made) {
  Advance();
  if (made.kind == ProcKind::kFunction || made.kind == ProcKind::kGet) {
    made.scope.names.emplace(made.name, DeclKind::kArgument);
  }
  const bool has_list = At(Tok::kLeft);
  if (has_list) {
    Parameters(made);
  } else if (!AtStatementEnd()) {
    Fail(1005);
  }
  if (class_) CheckProperty(*class_, made);
  procedure_ = &made;
  open_.push_back({Block::kProcedure, made.kind});
  Statements(made.body, false);
  switch (made.kind) {
    case ProcKind::kSub:
      if (!At(Tok::kEndWord)) FailUnclosed(1014);
      Advance();
      Expect(Tok::kSub, 1016);
      break;
    case ProcKind::kFunction:
      if (!At(Tok::kEndWord)) FailUnclosed(1014);
      Advance();
      Expect(Tok::kFunction, 1015);
      break;
    default:
      if (!At(Tok::kEndWord)) FailUnclosed(1014);
      Advance();
      if (!AtNameOf(u"property")) Fail(1050);
      Advance();
      break;
  }
  open_.pop_back();
  procedure_ = nullptr;
}

void Parser::Parameters(ProcDecl& made) {
  Advance();
  if (Accept(Tok::kRight)) return;
  do {
    Param param;
    param.by_value = At(Tok::kByVal);
    if (At(Tok::kByVal) || At(Tok::kByRef)) Advance();
    const Token name = ExpectName();
    Declare(made.scope, name.atom, DeclKind::kArgument, name.place);
    param.name = name.atom;
    if (Accept(Tok::kLeft)) Expect(Tok::kRight, 1006);
    made.params.push_back(param);
  } while (Accept(Tok::kComma));
  Expect(Tok::kRight, 1006);
}

}  // namespace qv::vbscript
