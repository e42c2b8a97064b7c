#pragma once

#include <string>
#include <string_view>

#include "vbscript/context.h"
#include "vbscript/token.h"

namespace qv::vbscript {

// Cuts a text into tokens, one at a call. Raises compile errors.
class Lexer {
 public:
  Lexer(Context& context, Atoms& atoms, std::u16string_view text, bool bracketed_names);

  Token Next();
  // Raises a compile error there, with the source line as its text.
  [[noreturn]] void Fail(int number, Place place) const;

 private:
  Token Scan();
  void SkipBlanks();
  void SkipToLineEnd();
  bool ContinueLine();
  Token LineEnd();
  Token Name();
  Token BracketedName();
  Token String();
  Token DateLiteral();
  Token Number();
  bool StartsRadixLiteral() const;
  Token RadixLiteral();
  Token Symbol();
  bool IsRem(const Token& token) const;

  Token Make(Tok kind, std::size_t start) const;
  Place At(std::size_t position) const { return {line_, static_cast<int>(position - line_start_)}; }
  char16_t Peek(std::size_t ahead = 0) const { return at_ + ahead < text_.size() ? text_[at_ + ahead] : u'\0'; }
  bool AtEnd() const { return at_ >= text_.size(); }
  bool AtLineEnd() const { return AtEnd() || text_[at_] == u'\r' || text_[at_] == u'\n'; }

  Context& context_;
  Atoms& atoms_;
  std::u16string_view text_;
  bool bracketed_names_;
  std::size_t at_ = 0;
  std::size_t line_start_ = 0;
  int line_ = 1;
  Tok last_ = Tok::kLineEnd;
};

}  // namespace qv::vbscript
