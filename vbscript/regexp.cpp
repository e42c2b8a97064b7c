#include "vbscript/regexp.h"

#include "vbscript/regexp_matcher.h"
#include "vbscript/search.h"

namespace qv::vbscript {

bool RegExp::Set::Has(char16_t c) const {
  return std::any_of(ranges.begin(), ranges.end(),
                     [c](const auto& range) { return c >= range.first && c <= range.second; });
}

bool RegExp::Fits(const Instr& test, char16_t c) const {
  switch (test.op) {
    case Op::kChar:
      return (flags_.ignore_case ? UpperCase(c) : c) == test.a;
    case Op::kAny:
      return c != u'\n';
    default: {
      const Set& set = sets_[test.a];
      const bool has = set.Has(c) || (flags_.ignore_case && (set.Has(LowerCase(c)) || set.Has(UpperCase(c))));
      return has != set.negated;
    }
  }
}

bool RegExp::Find(Context& context, std::u16string_view text, std::size_t from, std::vector<Span>& spans) const {
  RegExpMatcher matcher(*this, context, text);
  // A pattern that starts with a plain character is only tried where that stands.
  const bool plain_start = code_.size() > 1 && code_[1].op == Op::kChar && !flags_.ignore_case;
  // Where a pattern that starts with any number of something has failed, it also fails at the places behind, up to that
  // number's end: what follows was tried from all of them.
  std::size_t start = 1;
  while (code_[start].op == Op::kSave) ++start;
  const bool run_start = code_[start].op == Op::kRepeat && code_[start].max == kNoLimit && !has_back_references_;
  for (std::size_t at = from; at <= text.size(); ++at) {
    if (plain_start) {
      const char16_t first = static_cast<char16_t>(code_[1].a);
      at = Search(context, text, {&first, 1}, at, false);
      if (at == std::u16string_view::npos) return false;
    }
    if (!matcher.MatchAt(at)) {
      if (run_start) {
        std::size_t end = at;
        while (end < text.size() && Fits(code_[start + 1], text[end])) ++end;
        context.Poll(static_cast<int>((end - at) / 16));
        if (end > at) at = end - 1;
      }
      continue;
    }
    spans.clear();
    for (std::size_t group = 0; group <= groups_; ++group) spans.push_back(matcher.SpanOf(group));
    return true;
  }
  return false;
}

}  // namespace qv::vbscript
