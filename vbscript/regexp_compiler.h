#pragma once

#include "vbscript/regexp.h"
#include "vbscript/text.h"

namespace qv::vbscript {

// Makes the program of a pattern.
class RegExpCompiler {
 public:
  RegExpCompiler(RegExp& made, std::u16string_view pattern) : made_(made), pattern_(pattern) { CountGroups(); }

  // Raises 5017 to 5021 for a bad pattern.
  void Compile();

 private:
  using Op = RegExp::Op;
  using Instr = RegExp::Instr;
  using Set = RegExp::Set;
  static constexpr std::uint32_t kNoLimit = RegExp::kNoLimit;
  static constexpr int kSyntax = 5017;
  static constexpr int kUnexpectedQuantifier = 5018;
  static constexpr int kExpectedBracket = 5019;
  static constexpr int kExpectedParenthesis = 5020;
  static constexpr int kBadRange = 5021;

  // The pattern and the code.
  void CountGroups();
  bool AtEnd() const { return at_ >= pattern_.size(); }
  char16_t Peek(std::size_t ahead = 0) const { return at_ + ahead < pattern_.size() ? pattern_[at_ + ahead] : u'\0'; }
  bool Has(char16_t c) const { return !AtEnd() && pattern_[at_] == c; }
  std::uint32_t Here() const { return static_cast<std::uint32_t>(made_.code_.size()); }
  void Emit(Instr instr);
  void Insert(std::uint32_t position, Instr instr);

  // Terms.
  void Alternatives();
  void Sequence();
  void Term();
  bool StartsQuantifier();
  bool Quantifier(std::uint32_t& min, std::uint32_t& max);
  bool Bounds(std::uint32_t& min, std::uint32_t& max);
  bool ReadNumber(std::uint32_t& number);
  void Repeat(std::uint32_t start, std::uint32_t first_group, std::uint32_t min, std::uint32_t max, bool lazy);
  bool Atom();
  bool Group();
  void Close();

  // Characters and sets.
  void Character(char16_t c) { Emit({Op::kChar, false, made_.flags_.ignore_case ? UpperCase(c) : c, 0, 0, 0}); }
  void AddSet(Set set);
  static bool NamedSet(char16_t letter, Set& set);
  bool EscapeAtom();
  char16_t EscapedCharacter();
  char16_t HexCharacter(std::size_t digits, char16_t letter);
  void SetAtom();
  bool SetMember(Set& set, char16_t& c);

  RegExp& made_;
  std::u16string_view pattern_;
  std::size_t at_ = 0;
  std::uint32_t groups_ = 0;
  std::uint32_t total_groups_ = 0;
  int depth_ = 0;
};

}  // namespace qv::vbscript
