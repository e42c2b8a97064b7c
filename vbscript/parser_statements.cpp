#include "vbscript/parser_nested.h"

namespace qv::vbscript {

// Statements up to a word that closes a block or begins its next part; on one line, up to the line's end too.
void Parser::Statements(std::vector<Stmt*>& body, bool one_line) {
  for (;;) {
    while (At(Tok::kColon) || (!one_line && At(Tok::kLineEnd))) Advance();
    if ((one_line && At(Tok::kLineEnd)) || AtBlockEnd()) return;
    Statement(body, one_line);
    EndStatement(one_line);
  }
}

bool Parser::AtBlockEnd() {
  switch (token_.kind) {
    case Tok::kEnd:
    case Tok::kEndWord:
    case Tok::kElse:
    case Tok::kElseIf:
    case Tok::kCase:
    case Tok::kNext:
    case Tok::kLoop:
    case Tok::kWend:
      return true;
    default:
      return false;
  }
}

bool Parser::AtEndOf(Tok word) { return At(Tok::kEndWord) && Ahead().kind == word; }

bool Parser::AtDeclarationEnd() {
  return AtEndOf(Tok::kSub) || AtEndOf(Tok::kFunction) || AtEndOf(Tok::kClass) ||
         (At(Tok::kEndWord) && FoldAscii(Ahead().text) == u"property");
}

void Parser::EndStatement(bool one_line) {
  if (AtStatementEnd() || AtDeclarationEnd()) return;
  if (one_line) {
    if (At(Tok::kElse)) {
      if (bare_call_) Fail(1002);
      return;
    }
    if (AtEndOf(Tok::kIf)) return;
  }
  if (At(Tok::kEndWord)) {
    const bool closes_if = AtEndOf(Tok::kIf);
    if (closes_if && token_.place.line == else_line_ && !open_.empty() && open_.back().block == Block::kIf) return;
    if (closes_if || AtEndOf(Tok::kSelect) || AtEndOf(Tok::kWith)) Fail(1042);
    Fail(1024);
  }
  Fail(1025);
}

void Parser::Statement(std::vector<Stmt*>& body, bool one_line) {
  const Nested nested(*this);
  bare_call_ = false;
  if (At(Tok::kOption)) return OptionStatement();
  first_statement_ = false;
  switch (token_.kind) {
    case Tok::kMe:
    case Tok::kDot:
      return ExpressionStatement(body, one_line);
    case Tok::kName:
      if (AtNameOf(u"erase") && Ahead().kind == Tok::kName) return EraseStatement(body);
      if (AtNameOf(u"property") &&
          (Ahead().kind == Tok::kGet || Ahead().kind == Tok::kLet || Ahead().kind == Tok::kSet)) {
        Advance();
        Fail(1048);
      }
      if (AtNameOf(u"default") && (IsWord(Ahead().kind) || Ahead().kind == Tok::kName)) return Declaration();
      return ExpressionStatement(body, one_line);
    case Tok::kLess:
      // The mark that hides a script from old browsers has no meaning here.
      Fail(1002);
    default:
      return WordStatement(body);
  }
}

void Parser::WordStatement(std::vector<Stmt*>& body) {
  switch (token_.kind) {
    case Tok::kDim:
    case Tok::kConst:
    case Tok::kPublic:
    case Tok::kPrivate:
    case Tok::kSub:
    case Tok::kFunction:
    case Tok::kClass:
      return Declaration();
    case Tok::kReDim:
      return ReDimStatement(body);
    case Tok::kCall:
      return CallStatement(body);
    case Tok::kSet:
      return SetStatement(body);
    case Tok::kIf:
      return IfStatement(body);
    case Tok::kSelect:
      return SelectStatement(body);
    case Tok::kFor:
      return ForStatement(body);
    case Tok::kWhile:
      return WhileStatement(body);
    case Tok::kDo:
      return DoStatement(body);
    case Tok::kWith:
      return WithStatement(body);
    case Tok::kExit:
      return ExitStatement(body);
    case Tok::kOn:
      return OnErrorStatement(body);
    case Tok::kStop:
      return Advance();
    default:
      Fail(1024);
  }
}

bool Parser::AtCallEnd(bool one_line) {
  return AtStatementEnd() || AtDeclarationEnd() || At(Tok::kEndWord) || (one_line && At(Tok::kElse));
}

// An assignment or a call. Behind the callee, `(a)` may be its arguments or the start of the first one.
void Parser::ExpressionStatement(std::vector<Stmt*>& body, bool one_line) {
  const Place place = token_.place;
  is_callee_ = true;
  Expr* target = Primary();
  if (At(Tok::kEqual)) {
    if (target->kind == ExprKind::kMe) Fail(1037);
    Advance();
    Stmt* made = program_.NewStmt(StmtKind::kLet, place);
    made->target = target;
    made->value = Expression();
    body.push_back(made);
    return;
  }
  Stmt* made = program_.NewStmt(StmtKind::kCall, place);
  body.push_back(made);
  made->value = target;
  const bool has_list = target->kind == ExprKind::kCall;
  if (has_list && target->args.size() > 1) Fail(1044, last_end_);
  if (has_list && target->args.size() == 1 && target->args[0]->kind != ExprKind::kMissing) {
    Expr* group = program_.NewExpr(ExprKind::kGroup, target->args[0]->place);
    group->left = target->args[0];
    target->args[0] = group;
    if (AtCallEnd(one_line)) return;
    target->args[0] = Binary(0, group);
    if (Accept(Tok::kComma)) BareArguments(target->args);
    return;
  }
  if (!has_list) made->value = CallOf(target, {}, place);
  bare_call_ = !has_list;
  if (has_list || AtCallEnd(one_line)) return;
  bare_call_ = false;
  BareArguments(made->value->args);
}

// The rest of an argument list without parentheses.
void Parser::BareArguments(std::vector<Expr*>& args) {
  for (;;) {
    if (At(Tok::kComma)) {
      args.push_back(program_.NewExpr(ExprKind::kMissing, token_.place));
    } else {
      args.push_back(Expression());
    }
    if (!Accept(Tok::kComma)) return;
  }
}

void Parser::CallStatement(std::vector<Stmt*>& body) {
  Stmt* made = program_.NewStmt(StmtKind::kCall, token_.place);
  Advance();
  if (!At(Tok::kName) && !At(Tok::kDot) && !At(Tok::kMe)) Fail(1010);
  made->value = Primary();
  if (made->value->kind != ExprKind::kCall) made->value = CallOf(made->value, {}, made->value->place);
  body.push_back(made);
}

void Parser::SetStatement(std::vector<Stmt*>& body) {
  Stmt* made = program_.NewStmt(StmtKind::kSet, token_.place);
  Advance();
  if (!At(Tok::kName) && !At(Tok::kDot) && !At(Tok::kMe)) Fail(1010);
  made->target = Primary();
  if (made->target->kind == ExprKind::kMe) Fail(1037);
  Expect(Tok::kEqual, 1011);
  made->value = Expression();
  body.push_back(made);
}

void Parser::ReDimStatement(std::vector<Stmt*>& body) {
  Stmt* made = program_.NewStmt(StmtKind::kReDim, token_.place);
  Advance();
  made->preserve = Accept(Tok::kPreserve);
  do {
    ReDimItem item;
    item.name = NameExpr(ExpectName());
    Expect(Tok::kLeft, 1005);
    do item.bounds.push_back(Expression());
    while (Accept(Tok::kComma));
    Expect(Tok::kRight, 1006);
    made->redims.push_back(std::move(item));
  } while (Accept(Tok::kComma));
  body.push_back(made);
}

void Parser::EraseStatement(std::vector<Stmt*>& body) {
  Stmt* made = program_.NewStmt(StmtKind::kErase, token_.place);
  Advance();
  made->target = NameExpr(ExpectName());
  body.push_back(made);
}

void Parser::OnErrorStatement(std::vector<Stmt*>& body) {
  const Place place = token_.place;
  Advance();
  if (!AtNameOf(u"error")) Fail(1002);
  Advance();
  if (Accept(Tok::kResume)) {
    Expect(Tok::kNext, 1020);
    body.push_back(program_.NewStmt(StmtKind::kResumeNext, place));
    return;
  }
  if (!Accept(Tok::kGoTo) || !At(Tok::kNumber) || token_.value.n() != 0) Fail(1002);
  Advance();
  body.push_back(program_.NewStmt(StmtKind::kGoToZero, place));
}

bool Parser::Inside(Block block) const {
  for (auto open = open_.rbegin(); open != open_.rend(); ++open) {
    if (open->block == block) return true;
    if (open->block == Block::kProcedure) return false;
  }
  return false;
}

void Parser::ExitStatement(std::vector<Stmt*>& body) {
  Stmt* made = program_.NewStmt(StmtKind::kExit, token_.place);
  Advance();
  made->word = token_.kind;
  bool fits = false;
  const ProcKind kind = procedure_ ? procedure_->kind : ProcKind::kMain;
  switch (token_.kind) {
    case Tok::kDo:
      fits = Inside(Block::kDo);
      break;
    case Tok::kFor:
      fits = Inside(Block::kFor);
      break;
    case Tok::kSub:
      fits = kind == ProcKind::kSub;
      break;
    case Tok::kFunction:
      fits = kind == ProcKind::kFunction;
      break;
    default:
      fits = AtNameOf(u"property") && (kind == ProcKind::kGet || kind == ProcKind::kLet || kind == ProcKind::kSet);
      break;
  }
  if (!fits) Fail(1039);
  Advance();
  body.push_back(made);
}

}  // namespace qv::vbscript
