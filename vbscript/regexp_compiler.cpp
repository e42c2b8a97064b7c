#include "vbscript/regexp_compiler.h"

#include <algorithm>

#include "vbscript/failure.h"

namespace qv::vbscript {
namespace {

constexpr int kDeepest = 200;
constexpr std::size_t kLongestCode = 1U << 20;

bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

}  // namespace

void RegExpCompiler::Compile() {
  Emit({RegExp::Op::kSave, false, 0, 0, 0, 0});
  Alternatives();
  if (!AtEnd()) RaiseBare(kSyntax);
  Emit({RegExp::Op::kSave, false, 1, 0, 0, 0});
  Emit({RegExp::Op::kMatch, false, 0, 0, 0, 0});
  made_.groups_ = groups_;
}

// Back references may stand before their group, so that the number of groups is known first.
void RegExpCompiler::CountGroups() {
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

void RegExpCompiler::Emit(Instr instr) {
  if (made_.code_.size() >= kLongestCode) RaiseBare(kOutOfMemory);
  made_.code_.push_back(instr);
}

void RegExpCompiler::Insert(std::uint32_t position, Instr instr) {
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

void RegExpCompiler::Alternatives() {
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

void RegExpCompiler::Sequence() {
  while (!AtEnd() && !Has(u'|') && !Has(u')')) Term();
}

void RegExpCompiler::Term() {
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

bool RegExpCompiler::StartsQuantifier() {
  const std::size_t at = at_;
  std::uint32_t min = 0;
  std::uint32_t max = 0;
  const bool starts = Quantifier(min, max);
  at_ = at;
  return starts;
}

bool RegExpCompiler::Quantifier(std::uint32_t& min, std::uint32_t& max) {
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
bool RegExpCompiler::Bounds(std::uint32_t& min, std::uint32_t& max) {
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

bool RegExpCompiler::ReadNumber(std::uint32_t& number) {
  if (!IsDigit(Peek())) return false;
  std::uint64_t value = 0;
  for (; IsDigit(Peek()); ++at_) value = std::min<std::uint64_t>(value * 10 + (Peek() - u'0'), kNoLimit - 1);
  number = static_cast<std::uint32_t>(value);
  return true;
}

void RegExpCompiler::Repeat(std::uint32_t start, std::uint32_t first_group, std::uint32_t min, std::uint32_t max,
                            bool lazy) {
  const bool single = Here() == start + 1 && (made_.code_[start].op == Op::kChar || made_.code_[start].op == Op::kAny ||
                                              made_.code_[start].op == Op::kSet);
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
bool RegExpCompiler::Atom() {
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

bool RegExpCompiler::Group() {
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

void RegExpCompiler::Close() {
  if (!Has(u')')) RaiseBare(kExpectedParenthesis);
  ++at_;
}

RegExp::RegExp(std::u16string_view pattern, RegExpFlags flags) : flags_(flags) {
  RegExpCompiler(*this, pattern).Compile();
}

}  // namespace qv::vbscript
