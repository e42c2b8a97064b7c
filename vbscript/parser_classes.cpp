#include <algorithm>

#include "vbscript/parser_nested.h"

namespace qv::vbscript {

void Parser::ClassDeclaration() {
  if (!open_.empty() || procedure_ || class_) Fail(1002);
  Advance();
  const Token name = ExpectName();
  Declare(program_.main.scope, name.atom, DeclKind::kClass, name.place);
  ClassDecl* made = program_.NewClass();
  made->name = name.atom;
  made->spelling = name.text;
  program_.classes.push_back(made);
  if (!AtStatementEnd()) Fail(1024);
  class_ = made;
  open_.push_back({Block::kClass, ProcKind::kMain});
  for (;;) {
    while (At(Tok::kColon) || At(Tok::kLineEnd)) Advance();
    if (AtBlockEnd()) break;
    ClassMember();
    if (!AtStatementEnd() && !AtDeclarationEnd()) Fail(1025);
  }
  CloseBlock(Tok::kClass, 1047);
  class_ = nullptr;
}

void Parser::ClassMember() {
  switch (token_.kind) {
    case Tok::kDim:
    case Tok::kPublic:
    case Tok::kPrivate:
    case Tok::kSub:
    case Tok::kFunction:
      return Declaration();
    default:
      if (AtNameOf(u"property") || AtNameOf(u"default")) return Declaration();
      Fail(1002);
  }
}

void Parser::PropertyDeclaration(bool is_public, bool is_default) {
  const Place place = token_.place;
  Advance();
  ProcDecl* made = program_.NewProc();
  switch (token_.kind) {
    case Tok::kGet:
      made->kind = ProcKind::kGet;
      break;
    case Tok::kLet:
      made->kind = ProcKind::kLet;
      break;
    case Tok::kSet:
      made->kind = ProcKind::kSet;
      break;
    default:
      Fail(1049);
  }
  if (is_default && made->kind != ProcKind::kGet) Fail(1058);
  made->is_public = is_public;
  made->is_default = is_default;
  Advance();
  if (!At(Tok::kName)) Fail(1010);
  made->place = token_.place;
  made->name = token_.atom;
  made->spelling = token_.text;
  AddMember(*class_, made, place);
  ProcedureHead(*made);
}

void Parser::AddMember(ClassDecl& owner, ProcDecl* made, Place place) {
  const auto is_property = [](const ProcDecl& proc) {
    return proc.kind == ProcKind::kGet || proc.kind == ProcKind::kLet || proc.kind == ProcKind::kSet;
  };
  const bool clashes = std::any_of(owner.members.begin(), owner.members.end(), [&](const ProcDecl* other) {
    return other->name == made->name && (other->kind == made->kind || !is_property(*other) || !is_property(*made));
  });
  if (clashes) Fail(1041, made->place);
  const bool is_first = std::none_of(owner.members.begin(), owner.members.end(),
                                     [&](const ProcDecl* other) { return other->name == made->name; });
  if (is_first) Declare(owner.scope, made->name, DeclKind::kProcedure, made->place);
  if (made->is_default && std::any_of(owner.members.begin(), owner.members.end(),
                                      [](const ProcDecl* other) { return other->is_default; })) {
    Fail(1052, place);
  }
  owner.members.push_back(made);
}

// Judges the number of parameters, at the place behind them.
void Parser::CheckProperty(const ClassDecl& owner, const ProcDecl& made) const {
  if (made.kind == ProcKind::kSub && !made.params.empty()) {
    const std::u16string name = FoldAscii(made.spelling);
    if (name == u"class_initialize" || name == u"class_terminate") Fail(1053);
  }
  const bool assigns = made.kind == ProcKind::kLet || made.kind == ProcKind::kSet;
  if (assigns && made.params.empty()) Fail(1054);
  const auto values = [](const ProcDecl& proc) { return proc.params.size() + (proc.kind == ProcKind::kGet ? 1 : 0); };
  for (const ProcDecl* other : owner.members) {
    if (other != &made && other->name == made.name && values(*other) != values(made)) Fail(1051);
  }
}

}  // namespace qv::vbscript
