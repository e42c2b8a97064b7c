#include "vbscript/parser_nested.h"

namespace qv::vbscript {

// A word that closes or continues a block stands where none of its kind is open.
void Parser::FailStray() {
  switch (token_.kind) {
    case Tok::kLoop:
      Fail(1038);
    case Tok::kNext:
      Fail(1055);
    default:
      Fail(1024);
  }
}

// The innermost block is not closed where it should be: at the text's end, or at a word that closes an outer block.
void Parser::FailUnclosed(int error) {
  if ((At(Tok::kLoop) && !Inside(Block::kDo)) || (At(Tok::kNext) && !Inside(Block::kFor)) ||
      (At(Tok::kWend) && !Inside(Block::kWhile)) || (At(Tok::kCase) && !Inside(Block::kSelect)) ||
      ((At(Tok::kElse) || At(Tok::kElseIf)) && !Inside(Block::kIf))) {
    FailStray();
  }
  Fail(error);
}

// Reads `End` and the word that belongs to the innermost block.
void Parser::CloseBlock(Tok word, int error) {
  if (!At(Tok::kEndWord)) FailUnclosed(1014);
  Advance();
  Expect(word, error);
  open_.pop_back();
}

void Parser::CloseLoop(Tok word, int error) {
  if (!At(word)) {
    if (At(Tok::kEndWord) && !AtEndOf(Tok::kIf) && !AtEndOf(Tok::kSelect) && !AtEndOf(Tok::kWith) &&
        !AtDeclarationEnd()) {
      Fail(1024);
    }
    FailUnclosed(error);
  }
  Advance();
  open_.pop_back();
}

void Parser::IfStatement(std::vector<Stmt*>& body) {
  Stmt* made = program_.NewStmt(StmtKind::kIf, token_.place);
  Branch first;
  first.place = token_.place;
  Advance();
  first.values.push_back(Expression());
  Expect(Tok::kThen, 1017);
  made->branches.push_back(std::move(first));
  open_.push_back({Block::kIf, ProcKind::kMain});
  while (Accept(Tok::kColon)) {
  }
  if (At(Tok::kLineEnd) || At(Tok::kEnd)) {
    BlockIf(made);
  } else {
    LineIf(made);
  }
  body.push_back(made);
}

void Parser::BlockIf(Stmt* made) {
  Statements(made->branches.back().body, false);
  while (At(Tok::kElse) || At(Tok::kElseIf)) {
    if (made->branches.back().is_else) Fail(1024);
    Branch branch;
    branch.place = token_.place;
    branch.is_else = At(Tok::kElse);
    else_line_ = token_.place.line;
    Advance();
    if (!branch.is_else) {
      branch.values.push_back(Expression());
      Expect(Tok::kThen, 1017);
    }
    if (At(Tok::kEndWord)) Fail(1024);
    made->branches.push_back(std::move(branch));
    Statements(made->branches.back().body, false);
  }
  CloseBlock(Tok::kIf, 1012);
}

void Parser::LineIf(Stmt* made) {
  if (AtBlockEnd()) FailStray();
  Statements(made->branches.back().body, true);
  if (At(Tok::kElse)) {
    Branch branch;
    branch.place = token_.place;
    branch.is_else = true;
    Advance();
    made->branches.push_back(std::move(branch));
    Statements(made->branches.back().body, true);
  }
  if (AtEndOf(Tok::kIf)) {
    Advance();
    Advance();
  } else if (!AtStatementEnd() && !AtDeclarationEnd() && !At(Tok::kElse)) {
    FailStray();
  }
  bare_call_ = false;
  open_.pop_back();
}

void Parser::SelectStatement(std::vector<Stmt*>& body) {
  Stmt* made = program_.NewStmt(StmtKind::kSelect, token_.place);
  Advance();
  Expect(Tok::kCase, 1021);
  made->value = Expression();
  open_.push_back({Block::kSelect, ProcKind::kMain});
  if (!AtStatementEnd()) Fail(1025);
  while (At(Tok::kColon) || At(Tok::kLineEnd)) Advance();
  while (At(Tok::kCase)) {
    if (!made->branches.empty() && made->branches.back().is_else) Fail(1024);
    Branch branch;
    branch.place = token_.place;
    Advance();
    branch.is_else = Accept(Tok::kElse);
    if (!branch.is_else) {
      do branch.values.push_back(Expression());
      while (Accept(Tok::kComma));
    }
    made->branches.push_back(std::move(branch));
    Statements(made->branches.back().body, false);
  }
  if (!AtBlockEnd()) Fail(1021);
  CloseBlock(Tok::kSelect, 1022);
  body.push_back(made);
}

// A plain variable; what is more than a name is refused behind it.
Expr* Parser::LoopVariable() {
  if (!At(Tok::kName)) Fail(1010);
  Expr* variable = Primary();
  if (variable->kind != ExprKind::kName) Fail(1040);
  return variable;
}

void Parser::ForStatement(std::vector<Stmt*>& body) {
  Stmt* made = program_.NewStmt(StmtKind::kFor, token_.place);
  Advance();
  if (Accept(Tok::kEach)) {
    ForEachStatement(made);
  } else {
    made->target = LoopVariable();
    Expect(Tok::kEqual, 1011);
    made->value = Expression();
    Expect(Tok::kTo, 1013);
    made->limit = Expression();
    if (AtNameOf(u"step")) {
      Advance();
      made->step = Expression();
    }
  }
  if (!AtStatementEnd()) Fail(1025);
  open_.push_back({Block::kFor, ProcKind::kMain});
  Statements(made->body, false);
  made->end_place = token_.place;
  CloseLoop(Tok::kNext, 1020);
  body.push_back(made);
}

void Parser::ForEachStatement(Stmt* made) {
  made->kind = StmtKind::kForEach;
  made->target = LoopVariable();
  Expect(Tok::kIn, 1046);
  made->value = Expression();
}

void Parser::WhileStatement(std::vector<Stmt*>& body) {
  Stmt* made = program_.NewStmt(StmtKind::kWhile, token_.place);
  Advance();
  made->value = Expression();
  if (!AtStatementEnd()) Fail(1025);
  open_.push_back({Block::kWhile, ProcKind::kMain});
  Statements(made->body, false);
  made->end_place = token_.place;
  CloseLoop(Tok::kWend, 1018);
  body.push_back(made);
}

void Parser::DoStatement(std::vector<Stmt*>& body) {
  Stmt* made = program_.NewStmt(StmtKind::kDo, token_.place);
  Advance();
  if (At(Tok::kWhile) || At(Tok::kUntil)) {
    made->until = At(Tok::kUntil);
    Advance();
    made->value = Expression();
    if (!AtStatementEnd()) Fail(1025);
  } else if (!AtStatementEnd()) {
    Fail(1028);
  }
  open_.push_back({Block::kDo, ProcKind::kMain});
  Statements(made->body, false);
  made->end_place = token_.place;
  CloseLoop(Tok::kLoop, 1019);
  if (!made->value && (At(Tok::kWhile) || At(Tok::kUntil))) {
    made->until = At(Tok::kUntil);
    made->at_end = true;
    Advance();
    made->value = Expression();
  }
  body.push_back(made);
}

void Parser::WithStatement(std::vector<Stmt*>& body) {
  Stmt* made = program_.NewStmt(StmtKind::kWith, token_.place);
  Advance();
  made->value = Expression();
  if (!AtStatementEnd()) Fail(1025);
  open_.push_back({Block::kWith, ProcKind::kMain});
  Statements(made->body, false);
  CloseBlock(Tok::kWith, 1029);
  body.push_back(made);
}

}  // namespace qv::vbscript
