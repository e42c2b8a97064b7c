#include "vbscript/search.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "tests/vbscript/script_fixture.h"
#include "vbscript/machine.h"
#include "vbscript/text.h"

namespace qv::vbscript {
namespace {

std::u16string RandomText(std::mt19937& random, std::size_t length, std::u16string_view letters) {
  std::u16string text;
  for (; length > 0; --length) text.push_back(letters[random() % letters.size()]);
  return text;
}

TEST(Search, FindsTheFirstPlace) {
  Machine machine(EngineOptions{});
  std::mt19937 random(5);
  constexpr std::u16string_view kLetters[] = {u"ab", u"abcdefgh ", u"a\x100", u"\x6161\x0061\x6100", u"e\x0101\x0001"};
  int found = 0;
  for (int round = 0; round < 20000; ++round) {
    const std::u16string_view letters = kLetters[random() % 5];
    const std::u16string text = RandomText(random, random() % 300, letters);
    const std::u16string find = RandomText(random, random() % 6, letters);
    const std::size_t from = random() % 310;
    const std::size_t expected = text.find(find, from);
    EXPECT_EQ(Finder(machine, find).In(text, from), expected) << ToUtf8(text) << " / " << ToUtf8(find);
    EXPECT_EQ(Search(machine, text, find, from, false), expected);
    found += expected == std::u16string::npos ? 0 : 1;
  }
  EXPECT_GT(found, 5000);
}

// Long texts that are searched often are searched in another form.
TEST(Search, FindsTheSameInALongTextHoweverOftenItIsSearched) {
  Machine machine(EngineOptions{});
  std::mt19937 random(6);
  constexpr std::u16string_view kLetters[] = {u"ab", u"abcdefgh ", u"a\xe4", u"a\x100"};
  for (int round = 0; round < 40; ++round) {
    const std::u16string_view letters = kLetters[static_cast<std::size_t>(round) % 4];
    std::u16string text = RandomText(random, 4000 + random() % 2000, letters);
    Value value = MakeText(machine, text);
    for (int search = 0; search < 40; ++search) {
      const std::u16string find = RandomText(random, 1 + random() % 14, letters);
      const std::size_t from = random() % (text.size() + 3);
      EXPECT_EQ(Finder(machine, find).In(value, from), text.find(find, from)) << search;
      EXPECT_EQ(Finder(machine, u"b\x161").In(value, 0), text.find(u"b\x161"));
      if (search % 10 != 9) continue;
      // It grows, now and then by a character that needs more than a byte, and its front is searched too.
      const Value front = FrontOf(value, text.size() - 10);
      const std::u16string more = search == 29 ? u"ab\x162z" : RandomText(random, 50, letters);
      value = Join(machine, value, MakeText(machine, more));
      EXPECT_EQ(Finder(machine, more).In(front, 0), text.substr(0, text.size() - 10).find(more));
      text += more;
      EXPECT_EQ(Finder(machine, more).In(value, 0), text.find(more));
    }
  }
}

TEST(Search, GivesBackWhatItTook) {
  EngineOptions options;
  options.memory_limit = 4U << 20;
  EXPECT_EQ(
      Told("For i = 1 To 200\ns = String(100000, \"a\") & i\nFor j = 1 To 10\nn = n + InStr(s, \"b\")\nNext\nNext\n"
           "Print n",
           options),
      "0\n");
}

TEST(Search, DoesWithoutMemory) {
  EngineOptions options;
  options.memory_limit = 2600000;
  EXPECT_EQ(Told("t = String(500000, \"a\")\ns = t & \"b\"\nFor j = 1 To 10\nn = n + InStr(s, \"b\")\nNext\nPrint n",
                 options),
            "5000010\n");
}

TEST(Search, IgnoresCase) {
  EXPECT_EQ(ValueOf("InStr(1, String(5000, \"x\") & \"NeeDLE\", \"needle\", 1)"), "5001 Long");
  EXPECT_EQ(ValueOf("InStr(2, \"\xc3\x84\xc3\xa4\", \"\xc3\x84\", 1)"), "2 Long");
  EXPECT_EQ(ValueOf("Replace(\"aXbxc\", \"X\", \"--\", 1, -1, 1)"), "a--b--c String");
}

TEST(Search, ReplacesAndSplitsLongTexts) {
  EXPECT_EQ(Told("s = Replace(Space(5000), \" \", \"ab\")\nPrint Len(s), Len(Replace(s, \"b\", \"\")), "
                 "Len(Replace(s, \"ab\", \"abc\")), Right(Replace(s, \"ba\", \"-\"), 4), UBound(Split(s, \"a\"))"),
            "10000 5000 15000 ---b 5000\n");
}

}  // namespace
}  // namespace qv::vbscript
