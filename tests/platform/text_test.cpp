#include "platform/text.h"

#include <gmock/gmock.h>

namespace qv {
namespace {

using testing::ElementsAre;

TEST(TextTest, LengthCountsCharacters) {
  EXPECT_EQ(TextLength(""), 0u);
  EXPECT_EQ(TextLength("abc"), 3u);
  EXPECT_EQ(TextLength("Grüße"), 5u);
  EXPECT_EQ(TextLength("€😀"), 2u);
  EXPECT_EQ(TextLength(std::string_view("a\0b", 3)), 3u);
}

TEST(TextTest, BytesThatAreNoUtf8CountAsOneEach) {
  EXPECT_EQ(TextLength("\xFF\xFE"), 2u);
  EXPECT_EQ(TextLength("\xC3"), 1u);
  EXPECT_EQ(TextLength("\xE2\x82"), 2u);
  EXPECT_EQ(TextLength("\xC0\xAF"), 2u) << "overlong";
  EXPECT_EQ(TextLength("\xE0\x80\xAF"), 3u) << "overlong";
  EXPECT_EQ(TextLength("\xF0\x80\x80\xAF"), 4u) << "overlong";
  EXPECT_EQ(TextLength("\xED\xA0\x80"), 3u) << "a surrogate";
  EXPECT_EQ(TextLength("\xF4\x90\x80\x80"), 4u) << "beyond the last character";
  EXPECT_EQ(TextLength("\xF4\x8F\xBF\xBF"), 1u);
  EXPECT_EQ(TextLength("\x80"
                       "a"),
            2u);
}

TEST(TextTest, Pieces) {
  EXPECT_EQ(Mid("Grüße", 2, 2), "üß");
  EXPECT_EQ(Mid("Grüße", 2), "üße");
  EXPECT_EQ(Mid("Grüße", 5, 1), "");
  EXPECT_EQ(Mid("Grüße", 9), "");
  EXPECT_EQ(Mid("abc", 0, 0), "");
  EXPECT_EQ(Left("Grüße", 3), "Grü");
  EXPECT_EQ(Left("ab", 9), "ab");
  EXPECT_EQ(Right("Grüße", 2), "ße");
  EXPECT_EQ(Right("ab", 9), "ab");
  EXPECT_EQ(Right("ab", 0), "");
  EXPECT_EQ(Mid("a\xFF"
                "b",
                1, 1),
            "\xFF");
}

TEST(TextTest, Case) {
  EXPECT_EQ(UpperCase("abc xyz 019 @[`{"), "ABC XYZ 019 @[`{");
  EXPECT_EQ(LowerCase("ABC XYZ 019 @[`{"), "abc xyz 019 @[`{");
  EXPECT_EQ(UpperCase("äöüéñøþÿ"), "ÄÖÜÉÑØÞŸ");
  EXPECT_EQ(LowerCase("ÄÖÜÉÑØÞŸ"), "äöüéñøþÿ");
  EXPECT_EQ(UpperCase("ß÷×"), "ß÷×");
  EXPECT_EQ(LowerCase("ß÷×"), "ß÷×");
  EXPECT_EQ(UpperCase("šžœłőđ"), "ŠŽŒŁŐĐ");
  EXPECT_EQ(LowerCase("ŠŽŒŁŐĐ"), "šžœłőđ");
  EXPECT_EQ(UpperCase("αβγάώσς"), "ΑΒΓΆΏΣΣ");
  EXPECT_EQ(LowerCase("ΑΒΓΆΏΣ"), "αβγάώσ");
  EXPECT_EQ(UpperCase("абвёяђ"), "АБВЁЯЂ");
  EXPECT_EQ(LowerCase("АБВЁЯЂ"), "абвёяђ");
  EXPECT_EQ(UpperCase("ạỹ"), "ẠỸ");
  EXPECT_EQ(UpperCase("\xFF"
                      "a"),
            "\xFF"
            "A");
}

TEST(TextTest, NoLetterIsTheOtherCaseOfAnAsciiOne) {
  EXPECT_EQ(UpperCase("ı"), "ı");
  EXPECT_EQ(LowerCase("İ"), "İ");
  EXPECT_EQ(UpperCase("ſ"), "ſ");
  EXPECT_EQ(UpperCase("µ"), "µ");
}

TEST(TextTest, PairsMapBothWays) {
  int pairs = 0;
  for (char32_t code = 0; code < 0x20000; ++code) {
    if (code >= 0xD800 && code <= 0xDFFF) continue;
    const std::string text = FromCharacters(std::u32string(1, code));
    const std::string upper = UpperCase(text), lower = LowerCase(text);
    EXPECT_TRUE(upper == text || lower == text) << text;
    EXPECT_EQ(TextLength(upper), 1u);
    if (upper == text || text == "ς") continue;
    EXPECT_EQ(LowerCase(upper), text);
    ++pairs;
  }
  EXPECT_GT(pairs, 700);
}

TEST(TextTest, TrimTakesBlanksOnly) {
  EXPECT_EQ(Trim("  a b  "), "a b");
  EXPECT_EQ(Trim("   "), "");
  EXPECT_EQ(Trim(""), "");
  EXPECT_EQ(Trim("\t a \n"), "\t a \n");
  EXPECT_EQ(Trim("\xC2\xA0 a"), "\xC2\xA0 a");
}

TEST(TextTest, SplitAndJoin) {
  EXPECT_THAT(Split("a,,b,", ","), ElementsAre("a", "", "b", ""));
  EXPECT_THAT(Split("", ","), ElementsAre(""));
  EXPECT_THAT(Split("abc", ","), ElementsAre("abc"));
  EXPECT_THAT(Split("a\r\nb\nc", "\r\n"), ElementsAre("a", "b\nc"));
  EXPECT_THAT(Split("abc", ""), ElementsAre("abc"));
  EXPECT_THAT(Split("aaa", "aa"), ElementsAre("", "a"));
  EXPECT_EQ(Join({"a", "", "b"}, ", "), "a, , b");
  EXPECT_EQ(Join({}, ","), "");
}

TEST(TextTest, ReplaceGoesOnBehindWhatItPutIn) {
  EXPECT_EQ(Replace("a.b.c", ".", "->"), "a->b->c");
  EXPECT_EQ(Replace("aaa", "a", "aa"), "aaaaaa");
  EXPECT_EQ(Replace("aaa", "aa", "b"), "ba");
  EXPECT_EQ(Replace("abc", "", "x"), "abc");
  EXPECT_EQ(Replace("abc", "B", "x"), "abc");
  EXPECT_EQ(Replace("", "a", "x"), "");
}

TEST(TextTest, Ends) {
  EXPECT_TRUE(StartsWith("abc", "ab"));
  EXPECT_TRUE(StartsWith("abc", ""));
  EXPECT_FALSE(StartsWith("ab", "abc"));
  EXPECT_FALSE(StartsWith("ABC", "ab"));
  EXPECT_TRUE(EndsWith("abc", "bc"));
  EXPECT_TRUE(EndsWith("abc", ""));
  EXPECT_FALSE(EndsWith("bc", "abc"));
}

TEST(TextTest, ValidTextStaysAndTheRestIsReplaced) {
  EXPECT_EQ(ValidUtf8("Grüße€😀"), "Grüße€😀");
  EXPECT_EQ(ValidUtf8("a\xFF"
                      "b\xC3"),
            "a\xEF\xBF\xBD"
            "b\xEF\xBF\xBD");
  EXPECT_EQ(ValidUtf8("\xED\xA0\x80"), "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD");
  EXPECT_EQ(ValidUtf8(std::string_view("\0", 1)), std::string(1, '\0'));
}

TEST(TextTest, Characters) {
  EXPECT_EQ(ToCharacters("aü€😀\xFF"), U"a\u00FC\u20AC\U0001F600\uFFFD");
  EXPECT_EQ(FromCharacters(U"a\u00FC\u20AC\U0001F600"), "aü€😀");
  EXPECT_EQ(FromCharacters(std::u32string{0xD800, 0x110000, 0x7F}), "\xEF\xBF\xBD\xEF\xBF\xBD\x7F");
}

}  // namespace
}  // namespace qv
