#include "tests/vbscript/script_fixture.h"

namespace qv::vbscript {
namespace {

TEST(Values, NumbersAsText) {
  constexpr ValueRow kRows[] = {
      {"1/3", "0.333333333333333 Double"},
      {"2/3", "0.666666666666667 Double"},
      {"1e21", "1E+21 Double"},
      {"123456789.123456789", "123456789.123457 Double"},
      {"0.1", "0.1 Double"},
      {"1E-5", "0.00001 Double"},
      {"1.5e-7", "0.00000015 Double"},
      {"1/7", "0.142857142857143 Double"},
      {"100000000000000", "100000000000000 Double"},
      {"999999999999999.9", "1E+15 Double"},
      {"-1e-20", "-1E-20 Double"},
      {"1.7976931348623157e308", "1.79769313486232E+308 Double"},
      {"5e-324", "4.94065645841247E-324 Double"},
      {"CSng(3.14159265)", "3.141593 Single"},
      {"CSng(16777216)", "1.677722E+07 Single"},
      {"CSng(1e-5)", "0.00001 Single"},
      {"CSng(123456.7)", "123456.7 Single"},
      {"CDbl(CSng(0.1))", "0.100000001490116 Double"},
  };
  CheckValues(kRows);
}

TEST(Values, Currency) {
  constexpr ValueRow kRows[] = {
      {"CCur(1.5)", "1.5 Currency"},
      {"CCur(\"922337203685477.5807\")", "922337203685477.5807 Currency"},
      {"CCur(\"-922337203685477.5808\")", "-922337203685477.5808 Currency"},
      {"CCur(\"922337203685477.5808\")", "!6"},
      {"CCur(0.00005)", "0 Currency"},
      {"CCur(1)/3", "0.333333333333333 Double"},
      {"CCur(2)*CCur(3)", "6 Currency"},
      {"-CCur(2)", "-2 Currency"},
      {"CCur(7) Mod 4", "3 Long"},
      {"CCur(7.5) \\ 2", "4 Long"},
  };
  CheckValues(kRows);
}

TEST(Values, Arithmetic) {
  constexpr ValueRow kRows[] = {
      {"5 \\ 2", "2 Integer"},
      {"-5 \\ 2", "-2 Integer"},
      {"-5 Mod 3", "-2 Integer"},
      {"5 Mod -3", "2 Integer"},
      {"5.5 Mod 2", "0 Long"},
      {"2.5 Mod 2", "0 Long"},
      {"3.5 Mod 3", "1 Long"},
      {"\"5\" Mod 3", "2 Long"},
      {"True Mod 2", "-1 Integer"},
      {"10 Mod 3.5", "2 Long"},
      {"2147483648 Mod 3", "!6"},
      {"1 Mod Empty", "!11"},
      {"CByte(10) Mod CByte(3)", "1 Byte"},
      {"CByte(10) * CByte(10)", "100 Byte"},
      {"CByte(20) * CByte(20)", "400 Integer"},
      {"CByte(255) * CByte(255)", "65025 Long"},
      {"32767 * 32767", "1073676289 Long"},
      {"65536 * 65536", "4294967296 Double"},
      {"-32768 - 1", "-32769 Long"},
      {"True * 2", "-2 Integer"},
      {"True + 1", "0 Integer"},
      {"\"3\" + \"4\"", "34 String"},
      {"\"3\" * \"4\"", "12 Double"},
      {"\"3\" + 4", "7 Double"},
      {"3 & 4", "34 String"},
      {"3 - \"1\"", "2 Double"},
      {"\"1,000\" + 1", "1001 Double"},
      {"\"$5\" + 1", "6 Double"},
      {"\"&H10\" + 0", "16 Double"},
      {"\" 7 \" + 0", "7 Double"},
      {"\"7x\" + 0", "!13"},
      {"\"\" + 1", "!13"},
      {"Empty + \"a\"", "a String"},
      {"Empty & Empty", " String"},
      {"Empty * 5", "0 Integer"},
      {"Empty - 5", "-5 Integer"},
      {"Null + \"a\"", "Null"},
      {"Null & \"a\"", "a String"},
      {"1 + True", "0 Integer"},
      {"1.5 + True", "0.5 Double"},
      {"#1/1/2000# + #1/1/2000#", "1/2/2100 Date"},
      {"#1/1/2000# - \"1\"", "12/31/1999 Date"},
      {"#1/1/2000# + \"1\"", "1/2/2000 Date"},
      {"1 + #1/1/2000#", "1/2/2000 Date"},
      {"#1/1/2000# / 2", "18263 Double"},
      {"-#1/1/1900#", "12/28/1899 Date"},
      {"5 - #1/1/1900#", "1/2/1900 Date"},
      {"2 ^ 10", "1024 Double"},
      {"2 ^ 0", "1 Double"},
      {"0 ^ 0", "1 Double"},
      {"\"2\" ^ 2", "4 Double"},
      {"2 ^ Null", "Null"},
      {"(-8) ^ 0.5", "!5"},
      {"(-2) ^ 3", "-8 Double"},
      {"10 ^ 309", "!6"},
  };
  CheckValues(kRows);
}

TEST(Values, LogicAndComparison) {
  constexpr ValueRow kRows[] = {
      {"Not 0", "-1 Integer"},
      {"Not 1.5", "-3 Long"},
      {"Not \"5\"", "-6 Long"},
      {"Not \"True\"", "False Boolean"},
      {"Not CByte(1)", "254 Byte"},
      {"7 And True", "7 Integer"},
      {"3.5 Or 0", "4 Long"},
      {"CByte(1) Or 256", "257 Integer"},
      {"#1/1/2000# And 255", "174 Long"},
      {"Null Or 5", "5 Integer"},
      {"0 Or Null", "Null"},
      {"5 And Null", "Null"},
      {"Null And 0", "0 Integer"},
      {"Null Imp 0", "Null"},
      {"Null Imp 5", "5 Integer"},
      {"0 Imp Null", "-1 Integer"},
      {"-1 Imp Null", "Null"},
      {"Null Imp Null", "Null"},
      {"Empty Or Null", "Null"},
      {"Empty And Null", "0 Long"},
      {"Empty Xor Empty", "0 Long"},
      {"\"3000000000\" And 1", "!6"},
      {"1 = 1 = True", "True Boolean"},
      {"1 < 2 = True", "True Boolean"},
      {"Not 1 = 1", "False Boolean"},
      {"\"a\" < \"b\"", "True Boolean"},
      {"\"Z\" < \"a\"", "True Boolean"},
      {"\"\" = Empty", "True Boolean"},
      {"\"abc\" = \"ABC\"", "False Boolean"},
      {"Null = Null", "Null"},
      {"Null <> 1", "Null"},
      {"1 Is 1", "!424"},
      {"Nothing Is Nothing", "True Boolean"},
  };
  CheckValues(kRows);
}

}  // namespace
}  // namespace qv::vbscript
