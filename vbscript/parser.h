#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "vbscript/ast.h"
#include "vbscript/lexer.h"

namespace qv::vbscript {

struct ParserOptions {
  bool bracketed_names = true;
  bool procedures_clash = false;  // two procedures of one name in one text are 1041
  bool in_procedure = false;      // the text is executed within a procedure
  // What an earlier text has declared under the name, if it cannot be told yet nothing.
  std::function<std::optional<DeclKind>(Atom)> declared;
};

// Makes a Program of a text. Raises compile errors, the first one met.
class Parser {
 public:
  Parser(Context& context, Atoms& atoms, Program& program, ParserOptions options);

  void ParseText();
  void ParseExpressionText();

 private:
  enum class Block : unsigned char { kIf, kSelect, kFor, kWhile, kDo, kWith, kProcedure, kClass };
  struct OpenBlock {
    Block block;
    ProcKind procedure;
  };
  class Nested;

  // The tokens.
  void Advance();
  const Token& Ahead();
  bool At(Tok kind) const { return token_.kind == kind; }
  bool AtStatementEnd() const { return At(Tok::kLineEnd) || At(Tok::kColon) || At(Tok::kEnd); }
  bool AtNameOf(const char16_t* word) const;
  bool Accept(Tok kind);
  void Expect(Tok kind, int error);
  Token ExpectName();
  [[noreturn]] void Fail(int number, Place place) const { lexer_.Fail(number, place); }
  [[noreturn]] void Fail(int number) const { Fail(number, token_.place); }

  // Expressions.
  Expr* Expression() { return Binary(0, nullptr); }
  Expr* Binary(int lowest, Expr* left);
  Expr* Operand();
  Expr* Primary();
  Expr* Postfix(Expr* start);
  Expr* Literal(Value value, bool bare);
  Expr* NameExpr(const Token& name);
  void Arguments(std::vector<Expr*>& args);
  Expr* CallOf(Expr* callee, std::vector<Expr*> args, Place place);

  // Statements.
  void Statements(std::vector<Stmt*>& body, bool one_line);
  bool AtBlockEnd();
  void EndStatement(bool one_line);
  void Statement(std::vector<Stmt*>& body, bool one_line);
  void WordStatement(std::vector<Stmt*>& body);
  void ExpressionStatement(std::vector<Stmt*>& body, bool one_line);
  bool AtCallEnd(bool one_line);
  void BareArguments(std::vector<Expr*>& args);
  void CallStatement(std::vector<Stmt*>& body);
  void SetStatement(std::vector<Stmt*>& body);
  void IfStatement(std::vector<Stmt*>& body);
  void BlockIf(Stmt* made);
  void LineIf(Stmt* made);
  void SelectStatement(std::vector<Stmt*>& body);
  void ForStatement(std::vector<Stmt*>& body);
  void ForEachStatement(Stmt* made);
  Expr* LoopVariable();
  void WhileStatement(std::vector<Stmt*>& body);
  void DoStatement(std::vector<Stmt*>& body);
  void WithStatement(std::vector<Stmt*>& body);
  void ExitStatement(std::vector<Stmt*>& body);
  void OnErrorStatement(std::vector<Stmt*>& body);
  void ReDimStatement(std::vector<Stmt*>& body);
  void EraseStatement(std::vector<Stmt*>& body);
  bool Inside(Block block) const;
  bool AtEndOf(Tok word);
  bool AtDeclarationEnd();
  void CloseBlock(Tok word, int error);
  void CloseLoop(Tok word, int error);
  [[noreturn]] void FailUnclosed(int error);
  [[noreturn]] void FailStray();

  // Declarations.
  void DimList(bool is_public);
  std::vector<std::int64_t> FixedBounds();
  void ConstStatement();
  Expr* ConstantValue();
  void OptionStatement();
  void Declaration();
  void ProcedureDeclaration(bool is_public, bool is_default, Place start);
  void ProcedureHead(ProcDecl& made);
  void Parameters(ProcDecl& made);
  void ProcedureBody(ProcDecl& made, bool separated);
  void ClassDeclaration();
  void ClassMember();
  void PropertyDeclaration(bool is_public, bool is_default);
  void CheckProperty(const ClassDecl& owner, const ProcDecl& made) const;
  void AddMember(ClassDecl& owner, ProcDecl* made, Place place);
  void Declare(Scope& scope, Atom name, DeclKind kind, Place place);
  Scope& CurrentScope();

  Program& program_;
  ParserOptions options_;
  Lexer lexer_;
  Token token_;
  Token ahead_;
  bool has_ahead_ = false;
  Place last_end_;               // behind the token before the current one
  bool first_statement_ = true;  // of the whole text
  int depth_ = 0;
  bool bare_call_ = false;  // the last statement was a call without arguments
  bool is_callee_ = false;  // the next chain starts a statement
  int else_line_ = 0;       // the line of the last Else or ElseIf of a block
  std::vector<OpenBlock> open_;
  ProcDecl* procedure_ = nullptr;
  ClassDecl* class_ = nullptr;
};

}  // namespace qv::vbscript
