#include "tests/vbscript/script_fixture.h"

namespace qv::vbscript {
namespace {

TEST(RegularExpressions, Members) {
  constexpr ScriptRow kRows[] = {
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
  CheckScripts(kRows);
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

TEST(RegularExpressions, Replacing) {
  constexpr ScriptRow kRows[] = {
      {"Set r = New RegExp\nr.Pattern=\"a\"\nr.Global=True\nPrint r.Replace(\"banana\",\"o\")", "bonono\n"},
      {"Set r = New RegExp\nr.Pattern=\"(a)(n)\"\nr.Global=True\nPrint r.Replace(\"banana\",\"$2$1\")", "bnanaa\n"},
      {"Set r = New RegExp\nr.Pattern=\"\"\nr.Global=True\nPrint r.Replace(\"ab\",\"-\")", "-a-b-\n"},
      {"Set r = New RegExp\nr.Pattern=\"\"\nPrint r.Replace(\"ab\",\"-\")", "-ab\n"},
      {"Set r = New RegExp\nr.Pattern=\"x*\"\nr.Global=True\nPrint r.Replace(\"axb\",\"-\")", "-a--b-\n"},
      {"Set r = New RegExp\nr.Pattern=\"b\"\nPrint r.Replace(\"abc\",\"[$&]\"), r.Replace(\"abc\",\"[$`]\"), "
       "r.Replace(\"abc\",\"[$']\"), r.Replace(\"abc\",\"$$\"), r.Replace(\"abc\",\"$1\"), r.Replace(\"abc\",\"$\")",
       "a[b]c a[a]c a[c]c a$c a$1c a$c\n"},
      {"Set r = New RegExp\nr.Pattern=\"b\"\nPrint r.Replace(\"abc\",5), r.Replace(\"abc\",True), "
       "r.Replace(\"abc\",1.5)",
       "a5c a-1c a1.5c\n"},
      {"Set r = New RegExp\nr.Pattern=\"b\"\nx = r.Replace(\"abc\",Null)", "[94 at 3:0]"},
      {"Set r = New RegExp\nr.Pattern=\"1\"\nPrint r.Test(123), r.Test(Empty)", "True False\n"},
      {"Set r = New RegExp\nx = r.Test(Null)", "[94 at 2:0]"},
      {"Set r = New RegExp\nr.Pattern = Null", "[94 at 2:0]"},
      {"Set r = New RegExp\nr.Pattern = 5\nPrint r.Pattern, TypeName(r.Pattern)", "5 String\n"},
      {"Set r = New RegExp\nr.Global = 1\nPrint r.Global\nr.Global = \"x\"", "True\n[13 at 4:0]"},
      {"Set r = New RegExp\nr.Pattern = \"(\"\nPrint 1\nx = r.Test(\"a\")", "1\n[5020 at 4:0]"},
      {"Set r = New RegExp\nr.Pattern=\"a|ab\"\nPrint r.Execute(\"abc\")(0)", "a\n"},
      {"Set r = New RegExp\nr.Pattern=\"(a|ab)(c|bcd)(d*)\"\nPrint r.Execute(\"abcd\")(0), "
       "r.Execute(\"abcd\")(0).SubMatches(0)",
       "abcd a\n"},
      {"Set r = New RegExp\nr.Pattern=\"((a)|(b))*\"\nSet m = r.Execute(\"ab\")(0)\nPrint IsEmpty(m.SubMatches(1)), "
       "m.SubMatches(2)",
       "True b\n"},
      {"Set r = New RegExp\nr.Pattern=\"(z)((a+)?(b+)?(c))*\"\nSet m = r.Execute(\"zaacbbbcac\")(0)\nPrint "
       "m.SubMatches(1), m.SubMatches(2), IsEmpty(m.SubMatches(3)), m.SubMatches(4)",
       "ac a True c\n"},
      {"Set r = New RegExp\nr.Pattern=\"^\\s*(\\w+)\\s*=\\s*(.*?)\\s*$\"\nSet m = r.Execute(\"  key = some value  "
       "\")(0)\nPrint \"[\" & m.SubMatches(0) & \"|\" & m.SubMatches(1) & \"]\"",
       "[key|some value]\n"},
      {"Set r = New RegExp\nr.IgnoreCase=True\nr.Pattern=\"[a-z]+\"\nPrint r.Execute(\"ABC\")(0)", "ABC\n"},
      {"Set r = New RegExp\nr.IgnoreCase=True\nr.Pattern=\"ä\"\nPrint r.Test(\"Ä\")", "True\n"},
      {"Set r = New RegExp\nr.IgnoreCase=True\nr.Pattern=\"(a)\\1\"\nPrint r.Test(\"aA\")", "True\n"},
      {"Set r = New RegExp\nr.Pattern=\"a.c\"\nPrint r.Test(\"a\" & vbLf & \"c\"), r.Test(\"a\" & vbCr & \"c\")",
       "False True\n"},
      {"Set r = New RegExp\nr.Pattern=\"a$\"\nPrint r.Test(\"a\" & vbLf), r.Test(\"a\" & vbCrLf & "
       "\"b\")\nr.Multiline=True\nPrint r.Test(\"a\" & vbLf & \"b\")",
       "False False\nTrue\n"},
      {"Set r = New RegExp\nr.Pattern=\"[]\"\nPrint r.Test(\"a\")", "False\n"},
      {"Set r = New RegExp\nr.Pattern=\"x{2,3}\"\nPrint r.Execute(\"xxxx\")(0)", "xxx\n"},
      {"Set r = New RegExp\nr.Pattern=\"x{0}\"\nPrint \"[\" & r.Execute(\"xxxx\")(0) & \"]\"", "[]\n"},
      {"Set r = New RegExp\nr.Pattern=\"\\u00e4\"\nPrint r.Test(\"ä\")", "True\n"},
      {"Set r = New RegExp\nr.Pattern=\"[\\u0041-\\u0043]+\"\nPrint r.Execute(\"xABCD\")(0)", "ABC\n"},
      {"Set r = New RegExp\nr.Pattern=\"\\$\\d+\\.\\d{2}\"\nPrint r.Execute(\"cost $12.50!\")(0)", "$12.50\n"},
      {"Set r = New RegExp\nr.Pattern=\"(?=a)b|a\"\nPrint r.Execute(\"a\")(0)", "a\n"},
      {"Set r = New RegExp\nr.Pattern=\"^(?!.*spam).*$\"\nPrint r.Test(\"ham\"), r.Test(\"my spam\")", "True False\n"},
      {"Set r = New RegExp\nr.Pattern=\"(\\d+)-(\\d+)\"\nSet ms = r.Execute(\"10-20\")\nPrint ms.Count, "
       "ms(0).SubMatches.Count, ms.Item(0).Value",
       "1 2 10-20\n"},
      {"Set r = New RegExp\nr.Pattern=\"z\"\nSet ms = r.Execute(\"a\")\nPrint ms.Count\nFor Each m In ms\nPrint "
       "1\nNext",
       "0\n"},
      {"Set r = New RegExp\nr.Pattern=\"a\"\nSet m = r.Execute(\"a\")(0)\nPrint m.SubMatches(0)", "[5 at 4:0]"},
      {"Set r = New RegExp\nr.Pattern=\"a\"\nSet m = r.Execute(\"a\")\nPrint m(-1)", "[5 at 4:0]"},
      {"Set r = New RegExp\nr.Pattern=\"a\"\nPrint TypeName(r.Execute(\"a\")), TypeName(r.Execute(\"a\")(0)), "
       "TypeName(r.Execute(\"a\")(0).SubMatches)",
       "IMatchCollection2 IMatch2 ISubMatches\n"},
      {"Set r = New RegExp\nPrint r.Test", "[450 at 2:0]"},
      {"Set r = New RegExp\nr.Pattern=\"a+b\"\nPrint r.Test(String(50000,\"a\"))", "False\n"},
      {"Set r = New RegExp\nr.Pattern=\"\\bfoo\\b\"\nPrint r.Test(\"a foo!\"), r.Test(\"afoo\")", "True False\n"},
      {"Set r = New RegExp\nr.Pattern=\"a{,3}\"\nPrint r.Test(\"a{,3}\"), r.Test(\"aaa\")", "True False\n"},
      {"Set r = New RegExp\nr.Pattern=\"[a-\\d]\"\nPrint r.Test(\"-\")", "True\n"},
      {"Set r = New RegExp\nr.Pattern=\"[z-a]\"\nPrint r.Test(\"-\")", "[5021 at 3:0]"},
      {"Set r = New RegExp\nr.Pattern=\"a{2,1}\"\nPrint r.Test(\"-\")", "[5017 at 3:0]"},
      {"Set r = New RegExp\nr.Pattern=\"+a\"\nPrint r.Test(\"-\")", "[5018 at 3:0]"},
      {"Set r = New RegExp\nr.Pattern=\"(?<=a)b\"\nPrint r.Test(\"-\")", "[5017 at 3:0]"},
      {"Set r = New RegExp\nr.Pattern=\"(?<n>a)\"\nPrint r.Test(\"-\")", "[5017 at 3:0]"},
      {"Set r = New RegExp\nr.Pattern=\")\"\nPrint r.Test(\"-\")", "[5017 at 3:0]"},
      {"Set r = New RegExp\nr.Pattern=\"a++\"\nPrint r.Test(\"-\")", "[5018 at 3:0]"},
  };
  CheckScripts(kRows);
}

}  // namespace
}  // namespace qv::vbscript
