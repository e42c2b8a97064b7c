#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/vbscript/regexp_maker.h"
#include "vbscript/machine.h"
#include "vbscript/regexp.h"
#include "vbscript/text.h"

namespace qv::vbscript::regexp_model {
namespace {

// The spans as text, or "none".
std::string Shown(bool found, const std::vector<Span>& spans) {
  if (!found) return "none";
  std::string shown;
  for (const Span& span : spans) shown += std::to_string(span.start) + "-" + std::to_string(span.end) + " ";
  return shown;
}

TEST(RegularExpressions, FindWhatTheModelFinds) {
  constexpr unsigned kPatterns = 6000;
  Machine machine(EngineOptions{});
  int compared = 0;
  int found_some = 0;
  for (unsigned seed = 0; seed < kPatterns; ++seed) {
    Maker maker(seed);
    std::u16string pattern;
    const std::unique_ptr<Node> node = maker.Pattern(pattern, 3);
    const RegExpFlags flags{maker.Below(3) == 0, maker.Below(3) == 0};
    const RegExp expression(pattern, flags);
    ASSERT_EQ(expression.groups(), static_cast<std::size_t>(maker.groups())) << ToUtf8(pattern);
    for (int round = 0; round < 5; ++round) {
      const std::u16string text = maker.Text();
      Model model(text, flags.ignore_case, flags.multiline);
      bool expected = false;
      std::vector<Span> expected_spans;
      const int from = round % 2 == 0 ? 0 : maker.Below(static_cast<int>(text.size()) + 1);
      for (int at = from; at <= static_cast<int>(text.size()) && !expected; ++at) {
        State state;
        state.at = at;
        state.groups.resize(static_cast<std::size_t>(maker.groups()) + 1);
        expected = model.Match(*node, state, [&](const State& end) {
          expected_spans = end.groups;
          expected_spans[0] = {at, end.at};
          return true;
        });
      }
      if (model.budget < 0) continue;
      std::vector<RegExp::Span> spans;
      const bool found = expression.Find(machine, text, static_cast<std::size_t>(from), spans);
      std::vector<Span> found_spans;
      for (const RegExp::Span& span : spans) {
        const bool took_part = span.start != std::u16string_view::npos;
        found_spans.push_back(took_part ? Span{static_cast<int>(span.start), static_cast<int>(span.end)} : Span{});
      }
      EXPECT_EQ(Shown(found, found_spans), Shown(expected, expected_spans))
          << ToUtf8(pattern) << "\n on: " << ToUtf8(text) << "\n from " << from << ", flags: " << flags.ignore_case
          << flags.multiline;
      if (testing::Test::HasFailure()) return;
      ++compared;
      found_some += expected ? 1 : 0;
    }
  }
  EXPECT_GT(compared, 25000);
  EXPECT_GT(found_some, 10000);
}

}  // namespace
}  // namespace qv::vbscript::regexp_model
