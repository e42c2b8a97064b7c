#include "vbscript/parser.h"

#include <utility>

#include "vbscript/parser_nested.h"

namespace qv::vbscript {

Parser::Parser(Context& context, Atoms& atoms, Program& program, ParserOptions options)
    : program_(program), options_(std::move(options)), lexer_(context, atoms, program.text, options_.bracketed_names) {}

void Parser::ParseText() {
  Advance();
  Statements(program_.main.body, false);
  if (!At(Tok::kEnd)) FailStray();
}

void Parser::ParseExpressionText() {
  Advance();
  while (At(Tok::kLineEnd)) Advance();
  program_.expression = Expression();
  while (AtStatementEnd() && !At(Tok::kEnd)) Advance();
  if (!At(Tok::kEnd)) Fail(1025);
}

void Parser::Advance() {
  last_end_ = token_.end;
  if (has_ahead_) {
    token_ = std::move(ahead_);
    has_ahead_ = false;
  } else {
    token_ = lexer_.Next();
  }
}

const Token& Parser::Ahead() {
  if (!has_ahead_) {
    ahead_ = lexer_.Next();
    has_ahead_ = true;
  }
  return ahead_;
}

bool Parser::AtNameOf(const char16_t* word) const { return At(Tok::kName) && FoldAscii(token_.text) == word; }

bool Parser::Accept(Tok kind) {
  if (!At(kind)) return false;
  Advance();
  return true;
}

void Parser::Expect(Tok kind, int error) {
  if (!Accept(kind)) Fail(error);
}

Token Parser::ExpectName() {
  if (!At(Tok::kName)) Fail(1010);
  Token name = token_;
  Advance();
  return name;
}

Scope& Parser::CurrentScope() {
  if (procedure_) return procedure_->scope;
  return program_.main.scope;
}

}  // namespace qv::vbscript
