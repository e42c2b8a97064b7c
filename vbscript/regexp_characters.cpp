#include "vbscript/failure.h"
#include "vbscript/regexp_compiler.h"

namespace qv::vbscript {
namespace {

int HexDigit(char16_t c) {
  if (c >= u'0' && c <= u'9') return c - u'0';
  const char16_t lower = static_cast<char16_t>(c | 32);
  return lower >= u'a' && lower <= u'f' ? lower - u'a' + 10 : -1;
}

}  // namespace

void RegExpCompiler::AddSet(Set set) {
  made_.sets_.push_back(std::move(set));
  Emit({Op::kSet, false, static_cast<std::uint32_t>(made_.sets_.size()) - 1, 0, 0, 0});
}

// The ranges of \d, \w and \s; capital letters name the rest.
bool RegExpCompiler::NamedSet(char16_t letter, Set& set) {
  static const std::pair<char16_t, char16_t> kDigits[] = {{u'0', u'9'}};
  static const std::pair<char16_t, char16_t> kWord[] = {{u'0', u'9'}, {u'A', u'Z'}, {u'_', u'_'}, {u'a', u'z'}};
  static const std::pair<char16_t, char16_t> kSpace[] = {{9, 13}, {u' ', u' '}};
  std::vector<std::pair<char16_t, char16_t>> ranges;
  switch (letter | 32) {
    case u'd':
      ranges.assign(std::begin(kDigits), std::end(kDigits));
      break;
    case u'w':
      ranges.assign(std::begin(kWord), std::end(kWord));
      break;
    case u's':
      ranges.assign(std::begin(kSpace), std::end(kSpace));
      break;
    default:
      return false;
  }
  if (letter < u'a') {
    char32_t next = 0;
    for (const auto& [low, high] : ranges) {
      if (low > next) set.ranges.emplace_back(static_cast<char16_t>(next), static_cast<char16_t>(low - 1));
      next = high + 1U;
    }
    set.ranges.emplace_back(static_cast<char16_t>(next), u'\xffff');
  } else {
    set.ranges.insert(set.ranges.end(), ranges.begin(), ranges.end());
  }
  return true;
}

bool RegExpCompiler::EscapeAtom() {
  if (at_ + 1 >= pattern_.size()) RaiseBare(kSyntax);
  const char16_t c = pattern_[at_ + 1];
  Set set;
  if (c == u'b' || c == u'B') {
    at_ += 2;
    Emit({c == u'b' ? Op::kWordEdge : Op::kNoWordEdge, false, 0, 0, 0, 0});
    return false;
  }
  if (NamedSet(c, set)) {
    at_ += 2;
    AddSet(std::move(set));
    return true;
  }
  if (c >= u'1' && c <= u'9') {
    const std::size_t start = at_++;
    std::uint32_t group = 0;
    ReadNumber(group);
    if (group <= total_groups_) {
      Emit({Op::kBackReference, false, group, 0, 0, 0});
      made_.has_back_references_ = true;
      return true;
    }
    at_ = start;
  }
  ++at_;
  Character(EscapedCharacter());
  return true;
}

// The character behind a backslash.
char16_t RegExpCompiler::EscapedCharacter() {
  if (AtEnd()) RaiseBare(kSyntax);
  const char16_t c = pattern_[at_++];
  switch (c) {
    case u'n':
      return u'\n';
    case u'r':
      return u'\r';
    case u't':
      return u'\t';
    case u'f':
      return u'\f';
    case u'v':
      return u'\v';
    case u'c':
      if (HexDigit(Peek()) < 0 && !((Peek() | 32) >= u'a' && (Peek() | 32) <= u'z')) return c;
      return static_cast<char16_t>(pattern_[at_++] & 31);
    case u'x':
      return HexCharacter(2, c);
    case u'u':
      return HexCharacter(4, c);
    default:
      break;
  }
  if (c < u'0' || c > u'7') return c;
  int code = c - u'0';
  for (int i = 0; i < 2 && Peek() >= u'0' && Peek() <= u'7' && code < 32; ++i)
    code = code * 8 + (pattern_[at_++] - u'0');
  return static_cast<char16_t>(code);
}

char16_t RegExpCompiler::HexCharacter(std::size_t digits, char16_t letter) {
  int code = 0;
  for (std::size_t i = 0; i < digits; ++i) {
    const int digit = HexDigit(Peek(i));
    if (digit < 0) return letter;
    code = code * 16 + digit;
  }
  at_ += digits;
  return static_cast<char16_t>(code);
}

void RegExpCompiler::SetAtom() {
  ++at_;
  Set set;
  if (Has(u'^')) {
    set.negated = true;
    ++at_;
  }
  while (!Has(u']')) {
    if (AtEnd()) RaiseBare(kExpectedBracket);
    char16_t low = 0;
    if (!SetMember(set, low)) continue;
    char16_t high = low;
    if (Has(u'-') && Peek(1) != u']' && at_ + 1 < pattern_.size()) {
      ++at_;
      if (!SetMember(set, high)) {
        set.ranges.emplace_back(low, low);
        set.ranges.emplace_back(u'-', u'-');
        continue;
      }
      if (high < low) RaiseBare(kBadRange);
    }
    set.ranges.emplace_back(low, high);
  }
  ++at_;
  AddSet(std::move(set));
}

// One character of a set; false for a named set, which is added as a whole.
bool RegExpCompiler::SetMember(Set& set, char16_t& c) {
  c = pattern_[at_++];
  if (c != u'\\') return true;
  if (AtEnd()) RaiseBare(kExpectedBracket);
  if (NamedSet(pattern_[at_], set)) {
    ++at_;
    return false;
  }
  if (pattern_[at_] == u'b') {
    ++at_;
    c = u'\b';
    return true;
  }
  c = EscapedCharacter();
  return true;
}

}  // namespace qv::vbscript
