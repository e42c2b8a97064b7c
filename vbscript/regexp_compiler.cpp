#include <algorithm>

#include "vbscript/failure.h"
#include "vbscript/regexp.h"
#include "vbscript/text.h"

namespace qv::vbscript {
namespace {

constexpr int kSyntax = 5017;
constexpr int kUnexpectedQuantifier = 5018;
constexpr int kExpectedBracket = 5019;
constexpr int kExpectedParenthesis = 5020;
constexpr int kBadRange = 5021;
constexpr std::uint32_t kNoLimit = 0xffffffff;
constexpr int kDeepest = 200;
constexpr std::size_t kLongestCode = 1U << 20;

bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

int HexDigit(char16_t c) {
  if (IsDigit(c)) return c - u'0';
  const char16_t lower = static_cast<char16_t>(c | 32);
  return lower >= u'a' && lower <= u'f' ? lower - u'a' + 10 : -1;
}

}  // namespace

class RegExpCompiler {
 public:
  RegExpCompiler(RegExp& made, std::u16string_view pattern) : made_(made), pattern_(pattern) { CountGroups(); }

  void Compile() {
    Emit({RegExp::Op::kSave, false, 0, 0, 0, 0});
    Alternatives();
    if (!AtEnd()) RaiseBare(kSyntax);
    Emit({RegExp::Op::kSave, false, 1, 0, 0, 0});
    Emit({RegExp::Op::kMatch, false, 0, 0, 0, 0});
    made_.groups_ = groups_;
  }

 private:
  using Op = RegExp::Op;
  using Instr = RegExp::Instr;
  using Set = RegExp::Set;

  // Back references may stand before their group, so that the number of groups is known first.
  void CountGroups() {
    bool in_set = false;
    for (std::size_t i = 0; i < pattern_.size(); ++i) {
      const char16_t c = pattern_[i];
      if (c == u'\\') {
        ++i;
      } else if (in_set) {
        in_set = c != u']';
      } else if (c == u'[') {
        in_set = true;
      } else if (c == u'(' && (i + 1 >= pattern_.size() || pattern_[i + 1] != u'?')) {
        ++total_groups_;
      }
    }
  }

  bool AtEnd() const { return at_ >= pattern_.size(); }
  char16_t Peek(std::size_t ahead = 0) const { return at_ + ahead < pattern_.size() ? pattern_[at_ + ahead] : u'\0'; }
  bool Has(char16_t c) const { return !AtEnd() && pattern_[at_] == c; }
  std::uint32_t Here() const { return static_cast<std::uint32_t>(made_.code_.size()); }

  void Emit(Instr instr) {
    if (made_.code_.size() >= kLongestCode) RaiseBare(kOutOfMemory);
    made_.code_.push_back(instr);
  }

  void Insert(std::uint32_t position, Instr instr) {
    if (made_.code_.size() >= kLongestCode) RaiseBare(kOutOfMemory);
    made_.code_.insert(made_.code_.begin() + position, instr);
    for (std::uint32_t i = position + 1; i < Here(); ++i) {
      Instr& moved = made_.code_[i];
      const bool jumps_a = moved.op == Op::kJump || moved.op == Op::kSplit || moved.op == Op::kLook;
      const bool jumps_b = moved.op == Op::kSplit || moved.op == Op::kCountLoop || moved.op == Op::kCountEnd;
      if (jumps_a && moved.a >= position) ++moved.a;
      if (jumps_b && moved.b >= position) ++moved.b;
    }
  }

  void Alternatives() {
    if (++depth_ > kDeepest) RaiseBare(kOutOfMemory);
    const std::uint32_t start = Here();
    Sequence();
    std::vector<std::uint32_t> ends;
    std::uint32_t branch = start;
    while (Has(u'|')) {
      ++at_;
      Insert(branch, {Op::kSplit, false, branch + 1, 0, 0, 0});
      for (std::uint32_t& end : ends) end += end >= branch ? 1 : 0;
      ends.push_back(Here());
      Emit({Op::kJump, false, 0, 0, 0, 0});
      made_.code_[branch].b = Here();
      branch = Here();
      Sequence();
    }
    for (const std::uint32_t end : ends) made_.code_[end].a = Here();
    --depth_;
  }

  void Sequence() {
    while (!AtEnd() && !Has(u'|') && !Has(u')')) Term();
  }

  void Term() {
    const std::uint32_t start = Here();
    const std::uint32_t first_group = groups_;
    const bool repeatable = Atom();
    std::uint32_t min = 0;
    std::uint32_t max = 0;
    if (!Quantifier(min, max)) return;
    if (!repeatable) RaiseBare(kUnexpectedQuantifier);
    const bool lazy = Has(u'?');
    if (lazy) ++at_;
    if (StartsQuantifier()) RaiseBare(kUnexpectedQuantifier);
    Repeat(start, first_group, min, max, lazy);
  }

  bool StartsQuantifier() {
    const std::size_t at = at_;
    std::uint32_t min = 0;
    std::uint32_t max = 0;
    const bool starts = Quantifier(min, max);
    at_ = at;
    return starts;
  }

  bool Quantifier(std::uint32_t& min, std::uint32_t& max) {
    if (AtEnd()) return false;
    switch (Peek()) {
      case u'*':
        min = 0;
        max = kNoLimit;
        break;
      case u'+':
        min = 1;
        max = kNoLimit;
        break;
      case u'?':
        min = 0;
        max = 1;
        break;
      case u'{':
        return Bounds(min, max);
      default:
        return false;
    }
    ++at_;
    return true;
  }

  // {n}, {n,} or {n,m}; anything else behind a brace is plain text.
  bool Bounds(std::uint32_t& min, std::uint32_t& max) {
    const std::size_t start = at_++;
    if (!ReadNumber(min)) {
      at_ = start;
      return false;
    }
    max = min;
    if (Has(u',')) {
      ++at_;
      if (!ReadNumber(max)) max = kNoLimit;
    }
    if (!Has(u'}')) {
      at_ = start;
      return false;
    }
    ++at_;
    if (max < min) RaiseBare(kSyntax);
    return true;
  }

  bool ReadNumber(std::uint32_t& number) {
    if (!IsDigit(Peek())) return false;
    std::uint64_t value = 0;
    for (; IsDigit(Peek()); ++at_) value = std::min<std::uint64_t>(value * 10 + (Peek() - u'0'), kNoLimit - 1);
    number = static_cast<std::uint32_t>(value);
    return true;
  }

  void Repeat(std::uint32_t start, std::uint32_t first_group, std::uint32_t min, std::uint32_t max, bool lazy) {
    const bool single = Here() == start + 1 && (made_.code_[start].op == Op::kChar ||
                                                made_.code_[start].op == Op::kAny || made_.code_[start].op == Op::kSet);
    if (single) {
      Insert(start, {Op::kRepeat, lazy, 0, 0, min, max});
      return;
    }
    const std::uint32_t counter = made_.counters_++;
    if (groups_ > first_group) {
      Insert(start, {Op::kClearGroups, false, first_group + 1, groups_ + 1, 0, 0});
    }
    Insert(start, {Op::kCountLoop, lazy, counter, 0, min, max});
    Emit({Op::kCountEnd, false, counter, start, 0, 0});
    made_.code_[start].b = Here();
    Insert(start, {Op::kCountStart, false, counter, 0, 0, 0});
  }

  // False for what cannot be repeated.
  bool Atom() {
    const char16_t c = pattern_[at_];
    switch (c) {
      case u'^':
        ++at_;
        Emit({Op::kLineStart, false, 0, 0, 0, 0});
        return false;
      case u'$':
        ++at_;
        Emit({Op::kLineEnd, false, 0, 0, 0, 0});
        return false;
      case u'.':
        ++at_;
        Emit({Op::kAny, false, 0, 0, 0, 0});
        return true;
      case u'(':
        return Group();
      case u'[':
        SetAtom();
        return true;
      case u'\\':
        return EscapeAtom();
      case u'*':
      case u'+':
      case u'?':
        RaiseBare(kUnexpectedQuantifier);
      default:
        if (c == u'{' && StartsQuantifier()) RaiseBare(kUnexpectedQuantifier);
        ++at_;
        Character(c);
        return true;
    }
  }

  void Character(char16_t c) { Emit({Op::kChar, false, made_.flags_.ignore_case ? UpperCase(c) : c, 0, 0, 0}); }

  bool Group() {
    ++at_;
    if (Has(u'?')) {
      const char16_t kind = Peek(1);
      if (kind != u':' && kind != u'=' && kind != u'!') RaiseBare(kSyntax);
      at_ += 2;
      if (kind == u':') {
        Alternatives();
        Close();
        return true;
      }
      const std::uint32_t look = Here();
      Emit({Op::kLook, false, 0, kind == u'!' ? 1U : 0U, 0, 0});
      Alternatives();
      Close();
      Emit({Op::kLookEnd, false, 0, 0, 0, 0});
      made_.code_[look].a = Here();
      return true;
    }
    const std::uint32_t group = ++groups_;
    Emit({Op::kSave, false, group * 2, 0, 0, 0});
    Alternatives();
    Close();
    Emit({Op::kSave, false, group * 2 + 1, 0, 0, 0});
    return true;
  }

  void Close() {
    if (!Has(u')')) RaiseBare(kExpectedParenthesis);
    ++at_;
  }

  void AddSet(Set set) {
    made_.sets_.push_back(std::move(set));
    Emit({Op::kSet, false, static_cast<std::uint32_t>(made_.sets_.size()) - 1, 0, 0, 0});
  }

  // The ranges of \d, \w and \s; capital letters name the rest.
  static bool NamedSet(char16_t letter, Set& set) {
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

  bool EscapeAtom() {
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
        return true;
      }
      at_ = start;
    }
    ++at_;
    Character(EscapedCharacter());
    return true;
  }

  // The character behind a backslash.
  char16_t EscapedCharacter() {
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

  char16_t HexCharacter(std::size_t digits, char16_t letter) {
    int code = 0;
    for (std::size_t i = 0; i < digits; ++i) {
      const int digit = HexDigit(Peek(i));
      if (digit < 0) return letter;
      code = code * 16 + digit;
    }
    at_ += digits;
    return static_cast<char16_t>(code);
  }

  void SetAtom() {
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
  bool SetMember(Set& set, char16_t& c) {
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

  RegExp& made_;
  std::u16string_view pattern_;
  std::size_t at_ = 0;
  std::uint32_t groups_ = 0;
  std::uint32_t total_groups_ = 0;
  int depth_ = 0;
};

RegExp::RegExp(std::u16string_view pattern, RegExpFlags flags) : flags_(flags) {
  RegExpCompiler(*this, pattern).Compile();
}

}  // namespace qv::vbscript
