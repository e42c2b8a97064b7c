#include <gtest/gtest.h>

#include "tests/vbscript/script_fixture.h"

namespace qv::vbscript {
namespace {

struct Row {
  const char* script;
  const char* told;
};

template <std::size_t N>
void Check(const Row (&rows)[N]) {
  for (const Row& row : rows) EXPECT_EQ(Told(row.script), row.told) << row.script;
}

TEST(ErrObject, Raise) {
  constexpr Row kRows[] = {
      {"On Error Resume Next\nErr.Raise 0\nPrint Err.Number", "5\n"},
      {"On Error Resume Next\nErr.Raise 65535\nPrint Err.Number", "65535\n"},
      {"On Error Resume Next\nErr.Raise 65536\nPrint Err.Number", "5\n"},
      {"On Error Resume Next\nErr.Raise 3000000000\nPrint Err.Number", "6\n"},
      {"On Error Resume Next\nErr.Raise &H800A000D\nPrint Err.Number, Err.Description", "13 Type mismatch\n"},
      {"On Error Resume Next\nErr.Raise &H80070005\nPrint Err.Number", "70\n"},
      {"On Error Resume Next\nErr.Raise &H80020009\nPrint Err.Number", "-2147352567\n"},
      {"On Error Resume Next\nErr.Raise\nPrint Err.Number", "450\n"},
      {"On Error Resume Next\nErr.Raise 1000\nPrint Err.Description", "Unknown runtime error\n"},
      {"On Error Resume Next\nErr.Raise 9, \"me\", \"what\", \"f.hlp\", 7\n"
       "Print Err.Number, Err.Source, Err.Description, Err.HelpFile, Err.HelpContext",
       "9 me what f.hlp 7\n"},
      {"On Error Resume Next\nErr.Raise 6\nIf Err Then Print Err", "6\n"},
      {"On Error Resume Next\nErr.Number = 4\nErr.Description = \"d\"\nErr.Source = \"s\"\nPrint Err, Err.Description, "
       "Err.Source",
       "4 d s\n"},
      {"On Error Resume Next\nx = Err.Nope\nPrint Err.Number", "438\n"},
      {"Err.Raise 5", "[5 at 1:0]"},
  };
  Check(kRows);
  const Outcome outcome = RunScript("Err.Raise 9, \"me\", \"what\"");
  ASSERT_TRUE(outcome.error);
  EXPECT_EQ(outcome.error->source, "me");
  EXPECT_EQ(outcome.error->description, "what");
}

TEST(ErrObject, MapsThePlatformsResults) {
  struct Mapping {
    const char* result;
    int number;
  };
  constexpr Mapping kMappings[] = {
      {"&H80004001", 445}, {"&H80004002", 430}, {"&H80070057", 5},   {"&H8007000E", 7},   {"&H80070005", 70},
      {"&H80020001", 438}, {"&H80020003", 438}, {"&H80020006", 438}, {"&H80020004", 448}, {"&H80020005", 13},
      {"&H80020007", 446}, {"&H80020008", 458}, {"&H8002000A", 6},   {"&H8002000B", 9},   {"&H8002000C", 447},
      {"&H8002000D", 10},  {"&H8002000E", 450}, {"&H8002000F", 449}, {"&H80020011", 451}, {"&H80020012", 11},
      {"&H80040154", 429}, {"&H800401F3", 429}, {"&H800706BA", 462}, {"&H800A01B6", 438},
  };
  for (const Mapping& row : kMappings) {
    EXPECT_EQ(Told(std::string("On Error Resume Next\nErr.Raise ") + row.result + "\nPrint Err.Number"),
              std::to_string(row.number) + "\n")
        << row.result;
  }
}

TEST(RegularExpressions, Members) {
  constexpr Row kRows[] = {
      {"Set r = New RegExp\nPrint r.Pattern, r.IgnoreCase, r.Global, r.Multiline", " False False False\n"},
      {"Set r = New RegExp\nr.Pattern = \"b+\"\nPrint r.Test(\"abbc\"), r.Test(\"ac\")", "True False\n"},
      {"Set r = New RegExp\nr.Pattern = \"(a)(x)?\"\nSet m = r.Execute(\"ba\")\n"
       "Print m.Count, m(0).Value, m.Item(0).FirstIndex, m(0).Length, m(0).SubMatches.Count, m(0).SubMatches(0), "
       "IsEmpty(m(0).SubMatches(1))",
       "1 a 1 1 2 a True\n"},
      {"Set r = New RegExp\nr.Global = True\nPrint r.Execute(\"abc\").Count", "4\n"},
      {"Set r = New RegExp\nr.Pattern = \"z\"\nPrint r.Execute(\"abc\").Count\nx = r.Execute(\"abc\").Item(0)",
       "0\n[5 at "
       "4:0]"},
      {"Set r = New RegExp\nr.Pattern = \"(b)(c)?\"\nPrint r.Replace(\"abd\", \"[$1|$&|$`|$'|$$|$3|$2]\")",
       "a[b|b|a|d|$|$3|]d\n"},
      {"Set r = New RegExp\nr.Pattern = \"a\"\nr.Global = True\nPrint r.Replace(\"aba\", \"x\"), r.Replace(\"aba\", "
       "True)",
       "xbx -1b-1\n"},
      {"Set r = New RegExp\nr.Pattern = \"A\"\nr.IgnoreCase = True\nPrint r.Test(\"a\")", "True\n"},
      {"Set r = New RegExp\nr.Pattern = \"^b\"\nPrint r.Test(\"a\" & vbLf & \"b\")\nr.Multiline = True\n"
       "Print r.Test(\"a\" & vbLf & \"b\")",
       "False\nTrue\n"},
      {"Set r = New RegExp\nr.Nope = 1", "[438 at 2:0]"},
  };
  Check(kRows);
}

TEST(RegularExpressions, Patterns) {
  struct Match {
    const char* pattern;
    const char* text;
    const char* found;  // "-" for nothing
  };
  constexpr Match kMatches[] = {
      {"a.c", "xabc", "abc"},     {"a*", "baa", ""},
      {"a+?", "aaa", "a"},        {"a{2}", "aaa", "aa"},
      {"a{2,}", "aaaa", "aaaa"},  {"a{1,2}?", "aaa", "a"},
      {"(ab)+", "ababx", "abab"}, {"(a|b)*c", "abac", "abac"},
      {"x|y|z", "z", "z"},        {"\\bfoo\\b", "a foo b", "foo"},
      {"\\Boo", "foo", "oo"},     {"\\d+", "ab12c", "12"},
      {"\\D+", "12ab", "ab"},     {"\\w+", "-a_1-", "a_1"},
      {"\\W", "a-", "-"},         {"\\s", "a b", " "},
      {"\\S+", " ab ", "ab"},     {"[a-c]+", "xabcd", "abc"},
      {"[^a-c]+", "abxyc", "xy"}, {"[\\d-]+", "a1-2", "1-2"},
      {"(?:ab)c", "abc", "abc"},  {"a(?=b)", "acab", "a"},
      {"a(?!b)", "abac", "a"},    {"(a)\\1", "aa", "aa"},
      {"(a)|b\\1", "b", "b"},     {"\\x41\\u0042", "AB", "AB"},
      {"\\cJ", "\n", "\n"},       {"^a$", "a", "a"},
      {"^a$", "ab", "-"},         {"a{", "a{", "a{"},
      {"(a*)*b", "aaab", "aaab"}, {"(?:a?)*?b", "ab", "ab"},
      {"(a?){3}b", "aab", "aab"}, {"[\\]]", "]", "]"},
      {"\\.", "a.", "."},         {"(.+)(\\d)", "ab12", "ab12"},
      {"<.+?>", "<a><b>", "<a>"}, {"(\\w+)\\s\\1", "the the", "the the"},
  };
  for (const Match& row : kMatches) {
    std::string pattern(row.pattern);
    std::string text(row.text);
    if (text == "\n") text = "\" & vbLf & \"";
    const std::string told = Told("Set r = New RegExp\nr.Pattern = \"" + pattern + "\"\nSet m = r.Execute(\"" + text +
                                  "\")\nIf m.Count = 0 Then\nPrint \"-\"\nElse\nPrint m(0).Value\nEnd If");
    EXPECT_EQ(told, std::string(row.found) + "\n") << row.pattern;
  }
}

TEST(RegularExpressions, BadPatterns) {
  struct Bad {
    const char* pattern;
    int number;
  };
  constexpr Bad kBad[] = {{"*a", 5018}, {"a**", 5018}, {"[a", 5019},    {"(a", 5020},    {"[b-a]", 5021},
                          {"a)", 5017}, {"\\", 5017},  {"(?<a)", 5017}, {"a{2,1}", 5017}};
  for (const Bad& row : kBad) {
    EXPECT_EQ(Told(std::string("Set r = New RegExp\nr.Pattern = \"") + row.pattern + "\"\nPrint 1\nx = r.Test(\"a\")"),
              "1\n[" + std::to_string(row.number) + " at 4:0]")
        << row.pattern;
  }
}

}  // namespace
}  // namespace qv::vbscript
