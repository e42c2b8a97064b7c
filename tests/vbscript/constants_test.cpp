#include "tests/vbscript/script_fixture.h"

namespace qv::vbscript {
namespace {

TEST(Constants, AreNumbers) {
  constexpr ValueRow kRows[] = {
      {"vbTrue", "-1 Integer"},
      {"vbFalse", "0 Integer"},
      {"vbUseDefault", "-2 Integer"},
      {"vbBinaryCompare", "0 Integer"},
      {"vbTextCompare", "1 Integer"},
      {"vbDatabaseCompare", "2 Integer"},
      {"vbSunday", "1 Integer"},
      {"vbMonday", "2 Integer"},
      {"vbTuesday", "3 Integer"},
      {"vbWednesday", "4 Integer"},
      {"vbThursday", "5 Integer"},
      {"vbFriday", "6 Integer"},
      {"vbSaturday", "7 Integer"},
      {"vbUseSystem", "0 Integer"},
      {"vbUseSystemDayOfWeek", "0 Integer"},
      {"vbFirstJan1", "1 Integer"},
      {"vbFirstFourDays", "2 Integer"},
      {"vbFirstFullWeek", "3 Integer"},
      {"vbGeneralDate", "0 Integer"},
      {"vbLongDate", "1 Integer"},
      {"vbShortDate", "2 Integer"},
      {"vbLongTime", "3 Integer"},
      {"vbShortTime", "4 Integer"},
      {"vbEmpty", "0 Integer"},
      {"vbNull", "1 Integer"},
      {"vbInteger", "2 Integer"},
      {"vbLong", "3 Integer"},
      {"vbSingle", "4 Integer"},
      {"vbDouble", "5 Integer"},
      {"vbCurrency", "6 Integer"},
      {"vbDate", "7 Integer"},
      {"vbString", "8 Integer"},
      {"vbObject", "9 Integer"},
      {"vbError", "10 Integer"},
      {"vbBoolean", "11 Integer"},
      {"vbVariant", "12 Integer"},
      {"vbDataObject", "13 Integer"},
      {"vbDecimal", "14 Integer"},
      {"vbByte", "17 Integer"},
      {"vbArray", "8192 Integer"},
      {"vbObjectError", "-2147221504 Long"},
      {"vbOKOnly", "0 Integer"},
      {"vbOKCancel", "1 Integer"},
      {"vbAbortRetryIgnore", "2 Integer"},
      {"vbYesNoCancel", "3 Integer"},
      {"vbYesNo", "4 Integer"},
      {"vbRetryCancel", "5 Integer"},
      {"vbCritical", "16 Integer"},
      {"vbQuestion", "32 Integer"},
      {"vbExclamation", "48 Integer"},
      {"vbInformation", "64 Integer"},
      {"vbDefaultButton1", "0 Integer"},
      {"vbDefaultButton2", "256 Integer"},
      {"vbDefaultButton3", "512 Integer"},
      {"vbDefaultButton4", "768 Integer"},
      {"vbApplicationModal", "0 Integer"},
      {"vbSystemModal", "4096 Integer"},
      {"vbMsgBoxHelpButton", "16384 Long"},
      {"vbMsgBoxSetForeground", "65536 Long"},
      {"vbMsgBoxRight", "524288 Long"},
      {"vbMsgBoxRtlReading", "1048576 Long"},
      {"vbOK", "1 Integer"},
      {"vbCancel", "2 Integer"},
      {"vbAbort", "3 Integer"},
      {"vbRetry", "4 Integer"},
      {"vbIgnore", "5 Integer"},
      {"vbYes", "6 Integer"},
      {"vbNo", "7 Integer"},
      {"vbBlack", "0 Long"},
      {"vbRed", "255 Long"},
      {"vbGreen", "65280 Long"},
      {"vbYellow", "65535 Long"},
      {"vbBlue", "16711680 Long"},
      {"vbMagenta", "16711935 Long"},
      {"vbCyan", "16776960 Long"},
      {"vbWhite", "16777215 Long"},
  };
  CheckValues(kRows);
}

TEST(Constants, AreTexts) {
  constexpr ValueRow kRows[] = {
      {"Len(vbCrLf)", "2 Long"},
      {"Asc(vbTab)", "9 Integer"},
      {"Asc(vbFormFeed)", "12 Integer"},
      {"Asc(vbVerticalTab)", "11 Integer"},
      {"Asc(vbNullChar)", "0 Integer"},
      {"Len(vbNullString)", "0 Long"},
      {"vbCr & vbLf = vbCrLf", "True Boolean"},
      {"vbNewLine = vbCrLf", "True Boolean"},
      {"vbObjectError + 5", "-2147221499 Long"},
  };
  CheckValues(kRows);
  EXPECT_EQ(Told("vbRed = 1"), "[501 at 1:0]");
  EXPECT_EQ(Told("Dim vbRed\nvbRed = 1\nPrint vbRed"), "1\n");
}

}  // namespace
}  // namespace qv::vbscript
