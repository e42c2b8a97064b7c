// How long the system spam filter's script takes to generate, as ratios to plain passes over the same text. Prints
// "name ratio limit" a line and fails when a ratio is over its limit.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text.h"
#include "spam/spam_filter_script.h"
#include "spam/token_replacement.h"
#include "tests/support/test_run.h"

namespace {

constexpr int kTests = 1000;
constexpr int kRuns = 30;
constexpr std::size_t kTemplateBytes = 1 << 20;

// The best of some runs, in seconds.
double Best(int runs, const std::function<void()>& step) {
  double best = 1e9;
  for (int run = 0; run < runs; ++run) {
    const auto start = std::chrono::steady_clock::now();
    step();
    best = std::min(best, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
  }
  return best;
}

std::string TestName(int test) { return "SPAM_TEST_" + std::to_string(test); }

// A script that uses each test's two tokens in turn, up to the wanted size, with lines of comment in between.
std::string MakeTemplate(int comment_lines) {
  std::string text;
  for (int test = 0; text.size() < kTemplateBytes; test = (test + 1) % kTests) {
    text += "  If MatchesTest(Message, \"" + TestName(test) + "\") Then\r\n    Score = Score + [" + TestName(test) +
            "_POS]\r\n  Else\r\n    Score = Score - [" + TestName(test) + "_NEG]\r\n  End If\r\n";
    for (int line = 0; line < comment_lines; ++line) text += "  ' The score is the sum of the weights.\r\n";
  }
  return text + "If Score >= [QV_HISPAM] Then CriteriaMet = True ' [QV_MEDSPAM] [QV_LOWSPAM]\r\n";
}

std::vector<qv::TokenValue> MakePairs() {
  std::vector<qv::TokenValue> pairs;
  for (int test = 0; test < kTests; ++test) {
    pairs.push_back({"[" + TestName(test) + "_POS]", std::to_string(test % 90 + 1)});
    pairs.push_back({"[" + TestName(test) + "_NEG]", std::to_string(test % 7)});
  }
  for (const char* token : {"[QV_LOWSPAM]", "[QV_MEDSPAM]", "[QV_HISPAM]"}) pairs.push_back({token, "50"});
  return pairs;
}

// One pass over the text that copies it character by character.
std::string CopyOut(std::string_view text) {
  std::string copy;
  copy.reserve(text.size());
  for (const char c : text) copy += c;
  return copy;
}

// The replacements one after the other, each in a pass of its own.
std::string ReplaceOneByOne(std::string text, const std::vector<qv::TokenValue>& pairs) {
  for (const qv::TokenValue& pair : pairs) text = qv::Replace(text, pair.token, pair.value);
  return text;
}

// Prints the ratio of two times; false when it is over its limit.
bool Report(const char* name, double seconds, double reference, double limit) {
  const double ratio = seconds / reference;
  std::printf("%s %.3f %.3f\n", name, ratio, limit);
  return ratio <= limit;
}

}  // namespace

int main() {
  bool good = true;
  std::size_t kept = 0;  // so that no pass can be left out
  const std::vector<qv::TokenValue> pairs = MakePairs();
  std::vector<qv::TokenValue> with_odd_one = pairs;
  with_odd_one.insert(with_odd_one.begin() + kTests, {"; a comment among the tests", ""});

  const auto time_replacing = [&](const char* name, const std::string& text,
                                  const std::vector<qv::TokenValue>& values) {
    const std::string result = qv::ReplaceTokens(text, values);
    const double copy = Best(kRuns, [&] { kept += CopyOut(result).size(); });
    const double replace = Best(kRuns, [&] { kept += qv::ReplaceTokens(text, values).size(); });
    good &= Report(name, replace, copy, 3);
  };
  const std::string text = MakeTemplate(16);
  time_replacing("spam_replace_tokens", text, pairs);
  time_replacing("spam_replace_tokens_dense", MakeTemplate(0), pairs);
  time_replacing("spam_replace_tokens_with_odd_one", text, with_odd_one);

  const double one_by_one = Best(1, [&] { kept += ReplaceOneByOne(text, pairs).size(); });
  const double at_once = Best(kRuns, [&] { kept += qv::ReplaceTokens(text, pairs).size(); });
  good &= Report("spam_replace_tokens_to_one_by_one", at_once, one_by_one, 0.05);

  qv::test::TestRun stand_ins;
  std::string defaults;
  for (int test = 0; test < kTests; ++test) {
    defaults += "[" + TestName(test) + "]\tThe message fails test " + std::to_string(test) + "\t5\t1\r\n";
  }
  stand_ins.files.Put("C:\\Config\\SPAMVAL.DEF", defaults);
  stand_ins.files.Put("C:\\Config\\Filters\\templates\\{SPAM_FILTER}.QVS", text);
  stand_ins.files.MakeFolder("C:\\Config\\Filters\\Criteria");
  qv::RebuildSpamFilter(stand_ins.run);
  const std::string script = *stand_ins.files.Get("C:\\Config\\Filters\\Criteria\\{SPAM_FILTER}.QVS");
  const double copy = Best(kRuns, [&] { kept += CopyOut(script).size(); });
  const double whole = Best(kRuns, [&] { qv::RebuildSpamFilter(stand_ins.run); });
  good &= Report("spam_rebuild_filter", whole, copy, 3);

  return good && kept > 0 ? 0 : 1;
}
