#include "spam/token_replacement.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace qv::test {
namespace {

TEST(ReplaceTokens, ReplacesEveryOccurrence) {
  EXPECT_EQ(ReplaceTokens("[A] and [B], [A][A]", {{"[A]", "1"}, {"[B]", ""}}), "1 and , 11");
}

TEST(ReplaceTokens, ComparesExactlyAndLeavesOthersAlone) {
  EXPECT_EQ(ReplaceTokens("[a] [A] [AB] [A [] ] [", {{"[A]", "1"}}), "[a] 1 [AB] [A [] ] [");
}

TEST(ReplaceTokens, WithoutPairsOrTextChangesNothing) {
  EXPECT_EQ(ReplaceTokens("[A]", {}), "[A]");
  EXPECT_EQ(ReplaceTokens("", {{"[A]", "1"}, {"", "2"}, {"x", "3"}}), "");
}

TEST(ReplaceTokens, AnEmptyTokenChangesNothing) { EXPECT_EQ(ReplaceTokens("a[B]", {{"", "x"}, {"[B]", "2"}}), "a2"); }

TEST(ReplaceTokens, TheFirstOfTwoPairsOfATokenTakesIt) {
  EXPECT_EQ(ReplaceTokens("[A][A]", {{"[A]", "1"}, {"[A]", "2"}}), "11");
}

TEST(ReplaceTokens, AValueMayHoldATokenOfALaterPair) {
  EXPECT_EQ(ReplaceTokens("[A][B]", {{"[A]", "<[B]>"}, {"[B]", "2"}}), "<2>2");
  EXPECT_EQ(ReplaceTokens("[A][B]", {{"[B]", "2"}, {"[A]", "<[B]>"}}), "<[B]>2");
}

TEST(ReplaceTokens, AValueMayFormATokenOfALaterPairWithItsSurroundings) {
  EXPECT_EQ(ReplaceTokens("[A[B]C]", {{"[B]", "x"}, {"[AxC]", "1"}}), "1");
  EXPECT_EQ(ReplaceTokens("[A[B]C]", {{"[AxC]", "1"}, {"[B]", "x"}}), "[AxC]");
  EXPECT_EQ(ReplaceTokens("[A[B]C]", {{"[B]", ""}, {"[AC]", "1"}}), "1");
  EXPECT_EQ(ReplaceTokens("[A[B]C] [AC]", {{"[AC]", "1"}, {"[B]", ""}}), "[AC] 1");
}

TEST(ReplaceTokens, FormedTokensCountTheLatestValueInside) {
  EXPECT_EQ(ReplaceTokens("[[A][B]]", {{"[A]", "a"}, {"[ab]", "1"}, {"[B]", "b"}}), "[ab]");
  EXPECT_EQ(ReplaceTokens("[[A][B]]", {{"[A]", "a"}, {"[B]", "b"}, {"[ab]", "1"}}), "1");
  EXPECT_EQ(ReplaceTokens("[[[A]]]", {{"[A]", "a"}, {"[a]", "b"}, {"[b]", "c"}}), "c");
  EXPECT_EQ(ReplaceTokens("[[[A]]]", {{"[A]", "a"}, {"[b]", "c"}, {"[a]", "b"}}), "[b]");
}

TEST(ReplaceTokens, ABracketThatStaysEndsWhatWasOpen) {
  EXPECT_EQ(ReplaceTokens("[x] [A] [y", {{"[A]", "1"}}), "[x] 1 [y");
  EXPECT_EQ(ReplaceTokens("If InStr(s, \"[\") Then [A]", {{"[A]", "1"}}), "If InStr(s, \"[\") Then 1");
}

TEST(ReplaceTokens, TokensOfAnyFormAreReplacedInTurn) {
  EXPECT_EQ(ReplaceTokens("aab[A]", {{"aa", "a"}, {"[A]", "1"}, {"ab", "2"}}), "21");
  EXPECT_EQ(ReplaceTokens("[A]B]", {{"[A]", "1"}, {"[A]B]", "2"}}), "1B]");
  EXPECT_EQ(ReplaceTokens("[A]B]", {{"[A]B]", "2"}, {"[A]", "1"}}), "2");
}

// The same by hand: each pair in a walk of its own from the left.
std::string InTurn(std::string text, const std::vector<TokenValue>& pairs) {
  for (const TokenValue& pair : pairs) {
    std::string replaced;
    for (std::size_t at = 0; at < text.size();) {
      if (!pair.token.empty() && text.compare(at, pair.token.size(), pair.token) == 0) {
        replaced += pair.value;
        at += pair.token.size();
      } else {
        replaced += text[at++];
      }
    }
    text = replaced;
  }
  return text;
}

rc::Gen<std::string> TextOf(const std::string& characters, int longest) {
  return rc::gen::mapcat(rc::gen::inRange(0, longest + 1), [characters](int length) {
    return rc::gen::container<std::string>(static_cast<std::size_t>(length), rc::gen::elementOf(characters));
  });
}

// Few pairs with short values: each of them may lengthen the text by the length of its value.
RC_GTEST_PROP(ReplaceTokens, EqualsReplacingInTurnOfAnything, ()) {
  std::vector<TokenValue> pairs;
  const int count = *rc::gen::inRange(0, 6);
  for (int i = 0; i < count; ++i) pairs.push_back({*TextOf("[]AB", 4), *TextOf("[]AB", 3)});
  const std::string text = *TextOf("[]AB", 60);
  RC_ASSERT(ReplaceTokens(text, pairs) == InTurn(text, pairs));
}

// Mostly plain pairs in a text that is full of their tokens, one inside the other.
RC_GTEST_PROP(ReplaceTokens, EqualsReplacingInTurnOfNestedTokens, ()) {
  const std::vector<std::string> words = {"A", "B", "AB", "BA", "AA", ""};
  std::vector<TokenValue> pairs;
  const int count = *rc::gen::inRange(0, 8);
  for (int i = 0; i < count; ++i) {
    const std::string value =
        *rc::gen::weightedElement<std::string>({{4, "A"}, {4, "B"}, {4, ""}, {1, "[A]"}, {1, "]"}});
    pairs.push_back({"[" + *rc::gen::elementOf(words) + "]", value});
  }
  std::string text;
  const int pieces = *rc::gen::inRange(0, 40);
  for (int i = 0; i < pieces; ++i) {
    text += *rc::gen::weightedElement<std::string>(
        {{3, "["}, {3, "]"}, {2, "A"}, {2, "B"}, {2, "[A]"}, {2, "[B]"}, {1, "[AB]"}, {1, "[]"}, {1, "[[A][B]]"}});
  }
  RC_ASSERT(ReplaceTokens(text, pairs) == InTurn(text, pairs));
}

}  // namespace
}  // namespace qv::test
