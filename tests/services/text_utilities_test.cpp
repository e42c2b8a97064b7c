#include "services/text_utilities.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "platform/text.h"
#include "tests/support/test_run.h"

namespace qv {
namespace {

struct NumberCase {
  const char* text;
  double value;
};

TEST(NumericText, ReadsAsTheDesktopDoes) {
  const std::vector<NumberCase> cases = {{"0", 0},
                                         {"5", 5},
                                         {"007", 7},
                                         {" 5 ", 5},
                                         {"\t5", 5},
                                         {"+5", 5},
                                         {"-5", -5},
                                         {"5-", -5},
                                         {"5+", 5},
                                         {"- 5", -5},
                                         {"(5)", -5},
                                         {"( 5 )", -5},
                                         {"$5", 5},
                                         {"-$5", -5},
                                         {"$-5", -5},
                                         {"1,000", 1000},
                                         {"1,0", 10},
                                         {"1,234.5", 1234.5},
                                         {".5", 0.5},
                                         {"5.", 5},
                                         {"0.01", 0.01},
                                         {"100.5", 100.5},
                                         {"-.5", -0.5},
                                         {"1e2", 100},
                                         {"1E+2", 100},
                                         {"1d2", 100},
                                         {"1D-2", 0.01},
                                         {"2.5e-1", 0.25},
                                         {"&H10", 16},
                                         {"&hff", 255},
                                         {"&HFFFF", -1},
                                         {"&HFFFF&", 65535},
                                         {"&H10000", 65536},
                                         {"&HFFFFFFFF", -1},
                                         {"&O17", 15},
                                         {"&o17", 15},
                                         {"&17", 15},
                                         {" &H10 ", 16},
                                         {"2047483647", 2047483647},
                                         {"99999999999999999999", 1e20}};
  for (const NumberCase& one : cases) {
    EXPECT_TRUE(IsNumeric(one.text)) << one.text;
    EXPECT_DOUBLE_EQ(NumericValue(one.text).value_or(-12345), one.value) << one.text;
  }
}

TEST(NumericText, RefusesWhatTheDesktopRefuses) {
  for (const char* text :
       {"",    " ",  "a",  "5a",   "a5",    "1.2.3", "..",    ".",  "1e", "1e+", "e5",  "--5",  "-5-",
        "+-5", "(5", "5)", "(-5)", "-(5)",  "$",     "$$5",   "+",  "*",  "1 2", "&H",  "&HG",  "&O8",
        "&",   "&8", ",",  ",5",   "1e400", "0x10",  "1_000", "5%", "½",  "٣",   "1:2", "True", "&H100000000"}) {
    EXPECT_FALSE(IsNumeric(text)) << text;
    EXPECT_FALSE(NumericValue(text)) << text;
  }
}

TEST(NumericText, PlainDigitsAreANumberHoweverMany) {
  const std::string nines(400, '9'), zeros(400, '0');
  EXPECT_EQ(NumericValue(nines), std::numeric_limits<double>::infinity());
  EXPECT_EQ(NumericValue("-" + nines + ".5"), -std::numeric_limits<double>::infinity());
  EXPECT_EQ(NumericValue(zeros + "7"), 7);
  EXPECT_EQ(NumericValue("0." + zeros + "1"), 0);
  EXPECT_EQ(NumericValue("." + zeros + "1"), 0);
  EXPECT_EQ(NumericValue(zeros + "." + zeros + "1"), 0);
  EXPECT_FALSE(IsNumeric(nines + "x"));
  EXPECT_FALSE(IsNumeric("1e-400"));
}

RC_GTEST_PROP(NumericText, EveryWholeNumberIsItself, (int number)) {
  RC_ASSERT(NumericValue(std::to_string(number)) == static_cast<double>(number));
}

RC_GTEST_PROP(NumericText, AnyTextIsReadWithoutHarm, (const std::string& text)) {
  RC_ASSERT(IsNumeric(text) == NumericValue(text).has_value());
}

TEST(GetTagContents, GivesTheTextBetweenTheTags) {
  EXPECT_EQ(GetTagContents("<FILE>QVFILTER-a.TXT</FILE>", "<FILE>"), "QVFILTER-a.TXT");
  EXPECT_EQ(GetTagContents("x<A>1</A>y<A>2</A>", "<A>"), "1");
  EXPECT_EQ(GetTagContents("<REFERENCE><FILE>f</FILE></REFERENCE>", "<REFERENCE>"), "<FILE>f</FILE>");
  EXPECT_EQ(GetTagContents("<A> </A>", "<A>"), " ");
  EXPECT_EQ(GetTagContents("<A>ü</A>", "<A>"), "ü");
}

TEST(GetTagContents, GivesNothingForAnEmptyElementOrAMissingTag) {
  EXPECT_EQ(GetTagContents("<A></A>", "<A>"), "");
  EXPECT_EQ(GetTagContents("<A>text", "<A>"), "");
  EXPECT_EQ(GetTagContents("text</A>", "<A>"), "");
  EXPECT_EQ(GetTagContents("</A><A>text", "<A>"), "");
  EXPECT_EQ(GetTagContents("<a>text</a>", "<A>"), "");
  EXPECT_EQ(GetTagContents("", "<A>"), "");
}

TEST(StripSmtpAddress, TakesTheFormAway) {
  EXPECT_EQ(StripSmtpAddress("[SMTP:joe@abc.com]"), "joe@abc.com");
  EXPECT_EQ(StripSmtpAddress("[SMTP:joe@abc.com"), "joe@abc.com");
  EXPECT_EQ(StripSmtpAddress("[SMTP:joe@abc.com]]"), "joe@abc.com]");
  EXPECT_EQ(StripSmtpAddress("[SMTP"), "");
  EXPECT_EQ(StripSmtpAddress("[SMTP:]"), "");
}

TEST(StripSmtpAddress, DropsTheFirstSixCharactersWhereverTheFormStands) {
  EXPECT_EQ(StripSmtpAddress("Joe [SMTP:joe@abc.com]"), "MTP:joe@abc.com");
  EXPECT_EQ(StripSmtpAddress("ü[SMTP:a]"), ":a");
}

TEST(StripSmtpAddress, LeavesAnyOtherAddressAlone) {
  EXPECT_EQ(StripSmtpAddress("joe@abc.com"), "joe@abc.com");
  EXPECT_EQ(StripSmtpAddress("[joe@abc.com]"), "[joe@abc.com]");
  EXPECT_EQ(StripSmtpAddress("[smtp:joe@abc.com]"), "[smtp:joe@abc.com]");
  EXPECT_EQ(StripSmtpAddress(""), "");
}

class ControlForm : public Form {
 public:
  explicit ControlForm(Toolkit& toolkit) : Form(toolkit, "frmTest", "Test") {}
  ComboBox cbo{*this, "cbo"};
  TextBox txt{*this, "txt"};
};

struct ControlHelpers : ::testing::Test, test::TestRun {
  ControlForm form{desktop};
  void SetUp() override {
    form.Load();
    for (const char* item : {"a", "b", "B", "b"}) form.cbo.AddItem(item);
  }
};

TEST_F(ControlHelpers, SelectComboEntrySelectsTheFirstEqualEntry) {
  SelectComboEntry(form.cbo, "b");
  EXPECT_EQ(form.cbo.ListIndex(), 1);
  SelectComboEntry(form.cbo, "B");
  EXPECT_EQ(form.cbo.ListIndex(), 2);
}

TEST_F(ControlHelpers, SelectComboEntryLeavesTheSelectionWhereThereIsNone) {
  SelectComboEntry(form.cbo, "x");
  EXPECT_EQ(form.cbo.ListIndex(), -1);
  form.cbo.SetListIndex(3);
  SelectComboEntry(form.cbo, "A");
  EXPECT_EQ(form.cbo.ListIndex(), 3);
}

TEST_F(ControlHelpers, IsTabKeyDownAsksThePlatform) {
  EXPECT_FALSE(IsTabKeyDown(run));
  desktop.tab = true;
  EXPECT_TRUE(IsTabKeyDown(run));
}

TEST_F(ControlHelpers, SelectAllOnTabNeedsATextAndTheKey) {
  form.txt.SetText("añb");
  SelectAllOnTab(run, form.txt);
  EXPECT_EQ(form.txt.SelLength(), 0u);
  desktop.tab = true;
  SelectAllOnTab(run, form.txt);
  EXPECT_EQ(form.txt.SelStart(), 0u);
  EXPECT_EQ(form.txt.SelLength(), 3u);
  form.txt.SetText("");
  SelectAllOnTab(run, form.txt);
  EXPECT_EQ(form.txt.SelLength(), 0u);
}

}  // namespace
}  // namespace qv
