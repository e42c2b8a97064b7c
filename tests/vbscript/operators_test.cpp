#include "tests/vbscript/script_fixture.h"

namespace qv::vbscript {
namespace {

TEST(Operators, Ranks) {
  constexpr ValueRow kRows[] = {
      {"-3^2", "9 Double"},
      {"2^3^2", "64 Double"},
      {"2 + 3 * 4", "14 Integer"},
      {"7 \\ 2 * 3", "1 Integer"},
      {"10 Mod 7 \\ 2", "1 Integer"},
      {"1 + 7 Mod 4", "4 Integer"},
      {"1 & 2 + 3", "15 String"},
      {"1 & 2 = \"12\"", "True Boolean"},
      {"Not 1 = 2", "True Boolean"},
      {"1 > Not 5 > 3", "True Boolean"},
      {"True Or False And False", "True Boolean"},
      {"True Xor True Or True", "False Boolean"},
      {"2 ^ -1", "0.5 Double"},
      {"3 > 2 > 1", "False Boolean"},
      {"False Imp False Eqv False", "True Boolean"},
      {"6 / 2 * 3", "9 Double"},
      {"- - 3", "3 Integer"},
  };
  CheckValues(kRows);
  EXPECT_EQ(Told("Function T\nPrint \"T\"\nT = True\nEnd Function\nx = True Or T()\nx = False And T()"), "T\nT\n");
}

TEST(Operators, TypesOfWholeNumbers) {
  constexpr ValueRow kRows[] = {
      {"1 + 1", "2 Integer"},
      {"32767 + 1", "32768 Long"},
      {"32767 * 2", "65534 Long"},
      {"2147483647 + 1", "2147483648 Double"},
      {"2147483647 * 2", "4294967294 Double"},
      {"CByte(200) + CByte(100)", "300 Integer"},
      {"CByte(1) + CByte(2)", "3 Byte"},
      {"CByte(1) - CByte(2)", "-1 Integer"},
      {"CByte(1) + 2", "3 Integer"},
      {"True + True", "-2 Integer"},
      {"True + CByte(3)", "2 Integer"},
      {"1 + CLng(2)", "3 Long"},
      {"-32768", "-32768 Long"},
      {"-CInt(-32768)", "32768 Long"},
      {"-CLng(-2147483648)", "2147483648 Double"},
      {"-Empty", "0 Integer"},
      {"-True", "1 Integer"},
      {"-\"5\"", "-5 Double"},
      {"+\"a\"", "a String"},
      {"+Empty", " Empty"},
      {"Empty + Empty", "0 Integer"},
      {"1 + Null", "Null"},
      {"-Null", "Null"},
      {"1 + Array(1)", "!13"},
  };
  CheckValues(kRows);
}

TEST(Operators, TypesOfOtherNumbers) {
  constexpr ValueRow kRows[] = {
      {"CSng(1.5) + 1", "2.5 Single"},
      {"CSng(1.5) + CLng(1)", "2.5 Double"},
      {"CSng(1.5) + \"1\"", "2.5 Double"},
      {"1.5 + 1", "2.5 Double"},
      {"CCur(1.5) + 1", "2.5 Currency"},
      {"CCur(1.5) + 1.25", "2.75 Currency"},
      {"CCur(1.5) * 2", "3 Currency"},
      {"CCur(1.5) * 2.5", "3.75 Double"},
      {"CCur(922337203685477) + 1", "!6"},
      {"#1/1/2000# + 1", "1/2/2000 Date"},
      {"#1/2/2000# - #1/1/2000#", "1 Double"},
      {"#1/2/2000# - 1", "1/1/2000 Date"},
      {"#1/1/2000# * 1", "36526 Double"},
      {"1e308 * 10", "!6"},
      {"\"a\" + \"b\"", "ab String"},
      {"\"1\" + 2", "3 Double"},
      {"\"a\" + 2", "!13"},
      {"\"a\" + Empty", "a String"},
      {"\"5\" - 2", "3 Double"},
      {"\"5\" * \"2\"", "10 Double"},
      {"4 / 2", "2 Double"},
      {"CSng(3) / 2", "1.5 Single"},
      {"CSng(3) / CLng(2)", "1.5 Double"},
      {"1 / 0", "!11"},
      {"0 / 0", "!6"},
      {"1 / Empty", "!11"},
      {"2 ^ 0.5 > 1.41", "True Boolean"},
      {"(-8) ^ (1/3)", "!5"},
  };
  CheckValues(kRows);
}

TEST(Operators, WholeDivision) {
  constexpr ValueRow kRows[] = {
      {"4.6 \\ 1.5", "2 Long"},
      {"4.6 \\ 1.49", "5 Long"},
      {"7 \\ 2", "3 Integer"},
      {"-7 \\ 2", "-3 Integer"},
      {"-7 Mod 2", "-1 Integer"},
      {"7 Mod -2", "1 Integer"},
      {"7 \\ CLng(2)", "3 Long"},
      {"\"7\" \\ 2", "3 Long"},
      {"CByte(7) \\ CByte(2)", "3 Byte"},
      {"7 \\ 0", "!11"},
      {"7 Mod 0", "!11"},
      {"3000000000 \\ 1", "!6"},
      {"CLng(-2147483648) \\ -1", "!6"},
  };
  CheckValues(kRows);
}

TEST(Operators, Joining) {
  constexpr ValueRow kRows[] = {
      {"1 & 2", "12 String"},        {"Null & \"a\"", "a String"}, {"Null & Null", "Null"},
      {"Empty & \"x\"", "x String"}, {"True & 1", "True1 String"}, {"1.5 & \"\"", "1.5 String"},
      {"Nothing & 1", "!91"},        {"Array(1) & 1", "!13"},
  };
  CheckValues(kRows);
}

TEST(Operators, Logic) {
  constexpr ValueRow kRows[] = {
      {"True And False", "False Boolean"},
      {"5 And 3", "1 Integer"},
      {"5 Or CLng(2)", "7 Long"},
      {"5 Xor 1", "4 Integer"},
      {"5 Eqv 3", "-7 Integer"},
      {"5 Imp 3", "-5 Integer"},
      {"1.5 And 3", "2 Long"},
      {"\"5\" And \"3\"", "1 Long"},
      {"\"True\" And True", "True Boolean"},
      {"\"x\" And True", "!13"},
      {"Empty And False", "0 Long"},
      {"Not Empty", "-1 Long"},
      {"Not 5", "-6 Integer"},
      {"Not True", "False Boolean"},
      {"False And Null", "False Boolean"},
      {"0 And Null", "0 Integer"},
      {"True And Null", "Null"},
      {"True Or Null", "True Boolean"},
      {"False Or Null", "Null"},
      {"True Xor Null", "Null"},
      {"True Eqv Null", "Null"},
      {"False Imp Null", "True Boolean"},
      {"Null Imp True", "True Boolean"},
      {"True Imp Null", "Null"},
      {"Not Null", "Null"},
      {"CByte(5) Imp Null", "250 Byte"},
      {"CByte(1) And CByte(3)", "1 Byte"},
  };
  CheckValues(kRows);
}

TEST(Operators, Comparisons) {
  constexpr struct {
    const char* script;
    const char* told;
  } kRows[] = {
      {"Print 1 = 1.0, True = -1, #1/1/2000# = 36526, Empty = 0", "True True True True\n"},
      {"Print \"a\" = \"A\", \"a\" > \"B\", \"ab\" > \"a\"", "False True True\n"},
      {"Print Empty = \"\", Empty = Empty, Empty < \"a\"", "True True True\n"},
      {"Print IsNull(1 = Null), IsNull(Null = Null)", "True True\n"},
      {"s = \"010\"\nPrint s = 10, 10 = s, s > 9", "True True True\n"},
      {"s = \"abc\"\nx = (s = 5)", "[13 at 2:0]"},
      {"x = (\"\" = 5)", "[13 at 1:0]"},
      {"n = 10\nPrint \"010\" = n, \"10\" = n, \"10\" > n, n = \"10\"", "False True False True\n"},
      {"n = 5\nPrint \"10\" > n", "False\n"},
      {"s = \"5\"\nn = 5\nPrint s = n, s > n, n < s, n > s", "False True True False\n"},
      {"n = 5\nPrint \"5\" = (n), (\"5\") = 5, (\"5\") = (5)", "True True False\n"},
      {"s = \"-5\"\nPrint s = -5", "False\n"},
      {"Print \"True\" = True, \"true\" = True, \"-1\" = True", "True False False\n"},
      {"s = \"True\"\nb = True\nPrint s = b, s > b, b < s", "False True True\n"},
      {"b = CByte(5)\nc = CCur(5)\nPrint \"5\" = b, \"x\" = b, \"5\" = c, \"y\" = c", "True False True False\n"},
      {"x = (Array(1) = 1)", "[13 at 1:0]"},
      {"x = (Array(1) = Null)", "[13 at 1:0]"},
      {"Const k = 5\ns = \"5\"\nPrint s = k", "False\n"},
      {"Class K\nPublic Default Function V\nV = 5\nEnd Function\nEnd Class\nSet o = New K\nPrint o = 5, o > 4",
       "True True\n"},
      {"x = (New RegExp = 5)", "[438 at 1:0]"},
  };
  for (const auto& row : kRows) EXPECT_EQ(Told(row.script), row.told) << row.script;
}

TEST(Operators, NumbersAsText) {
  constexpr ValueRow kRows[] = {
      {"CStr(1/3)", "0.333333333333333 String"},
      {"CStr(0.1 + 0.2)", "0.3 String"},
      {"CStr(1e15)", "1E+15 String"},
      {"CStr(123456789012345)", "123456789012345 String"},
      {"CStr(1234567890123456)", "1.23456789012346E+15 String"},
      {"CStr(0.000005)", "0.000005 String"},
      {"CStr(0.00001234567890123)", "1.234567890123E-05 String"},
      {"CStr(1e-15)", "1E-15 String"},
      {"CStr(1e-14)", "0.00000000000001 String"},
      {"CStr(1e300)", "1E+300 String"},
      {"CStr(-0.5)", "-0.5 String"},
      {"CStr(0 * -1.5)", "0 String"},
      {"CStr(CSng(1/3))", "0.3333333 String"},
      {"CStr(CSng(1e7))", "1E+07 String"},
      {"CStr(CSng(0.1))", "0.1 String"},
      {"CStr(CCur(\"12.3450\"))", "12.345 String"},
      {"CStr(True)", "True String"},
      {"CStr(#1/15/2024 2:30:00 PM#)", "1/15/2024 2:30:00 PM String"},
      {"CStr(#14:30#)", "2:30:00 PM String"},
      {"CStr(#1/15/2024#)", "1/15/2024 String"},
  };
  CheckValues(kRows);
  EXPECT_EQ(Told("x = SetLocale(1031)\nPrint CStr(1.5), CDbl(\"2,5\") * 2, x"), "1,5 5 1033\n");
}

}  // namespace
}  // namespace qv::vbscript
