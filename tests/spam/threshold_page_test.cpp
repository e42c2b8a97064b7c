#include <algorithm>

#include "tests/spam/threshold_page_fixture.h"

namespace qv::test {
namespace {

TEST_F(ThresholdPageTest, Captions) {
  EXPECT_EQ(page.Label1.Caption(),
            "Spam protection will score emails that are likely to be spam when they fail one or more tests. Thresholds "
            "determine at what level the emails are marked.");
  EXPECT_EQ(page.chkEnabled.Caption(), "Enable spam protection");
  EXPECT_EQ(page.Label2.Caption(), "Low threshold:");
  EXPECT_EQ(page.Label4.Caption(), "Medium threshold:");
  EXPECT_EQ(page.Label6.Caption(), "High threshold:");
  for (const Label* hint : {&page.Label3, &page.Label5, &page.Label7}) EXPECT_EQ(hint->Caption(), "(1..100)");
}

TEST_F(ThresholdPageTest, LoadsDefaults) {
  Start();
  EXPECT_TRUE(page.chkEnabled.Checked());
  EXPECT_EQ(Texts(), (std::vector<std::string>{"40", "60", "80"}));
  EXPECT_FALSE(page.Changed());
}

TEST_F(ThresholdPageTest, LoadsStoredValuesThatAreNumbers) {
  StoreOption("SpamThresholdLow", "1.5");
  StoreOption("SpamThresholdMedium", "medium");
  StoreOption("SpamThresholdHigh", "250");
  Start();
  EXPECT_EQ(Texts(), (std::vector<std::string>{"1.5", "60", "250"}));
  EXPECT_FALSE(page.Changed());
}

TEST_F(ThresholdPageTest, LoadsStoredValuesWithoutTheBlanksAtTheirEnds) {
  StoreOption("SpamThresholdLow", " 33 ");
  StoreOption("SpamThresholdMedium", "  ");
  Start();
  EXPECT_EQ(Texts(), (std::vector<std::string>{"33", "60", "80"}));
}

TEST_F(ThresholdPageTest, OnlyAFilterThatIsOnTicksTheBox) {
  store.server().filters.at(0).Status = 2;
  Start();
  EXPECT_FALSE(page.chkEnabled.Checked());
}

TEST_F(ThresholdPageTest, ReadsTheFilterFromTheConsolesServerAndThresholdsFromThePagesHost) {
  run.ServerHost = "ONE";
  AddFilter("ONE", 0);
  StoreOption("SpamThresholdLow", "11", "ONE");
  StoreOption("SpamThresholdLow", "22", "TWO");
  Dictionary data;
  data.Add("host", "TWO");
  page.Load();
  page.IMMCPropertyPage_Initialize(data);
  EXPECT_FALSE(page.chkEnabled.Checked());
  EXPECT_EQ(page.txtLow.Text(), "22");
  const std::vector<std::string> expected = {
      "Filter.Create",
      "Filter.SetHost@ONE",
      "Filter.getfilter@ONE({SPAM_FILTER})",
      "Option.Create",
      "Option.SetHost@TWO",
      "Option.GetOption@TWO(0,GLOBAL,SpamThresholdLow)",
      "Option.SetHost@TWO",
      "Option.GetOption@TWO(0,GLOBAL,SpamThresholdMedium)",
      "Option.SetHost@TWO",
      "Option.GetOption@TWO(0,GLOBAL,SpamThresholdHigh)",
  };
  EXPECT_EQ(store.calls, expected);
}

TEST_F(ThresholdPageTest, AMissingFilterReadsAsOff) {
  store.server().filters.clear();
  Start();
  EXPECT_FALSE(page.chkEnabled.Checked());
}

TEST_F(ThresholdPageTest, AnErrorWhileLoadingGoesOn) {
  EXPECT_EQ(ErrorOf([this] { Start("NOWHERE"); }), "440 The server 'NOWHERE' is not known.");
}

TEST_F(ThresholdPageTest, EveryControlMarksThePageChanged) {
  Start();
  for (const std::string box : {"txtLow", "txtMedium", "txtHigh"}) {
    page.SetChanged(false);
    person.Type(box, "1");
    EXPECT_TRUE(page.Changed()) << box;
  }
  page.SetChanged(false);
  person.Click("chkEnabled");
  EXPECT_TRUE(page.Changed());
}

TEST_F(ThresholdPageTest, BoxesTakeDigitsBackspaceAndReturnFromTheKeyboard) {
  Start();
  for (const std::string box : {"txtLow", "txtMedium", "txtHigh"}) {
    person.Set(box, "");
    person.Type(box, "-1a.2 3\b\r4");
  }
  EXPECT_EQ(Texts(), (std::vector<std::string>{"124", "124", "124"}));
}

TEST_F(ThresholdPageTest, BoxesStayEnabledWhenProtectionIsOff) {
  Start();
  person.Click("chkEnabled");
  EXPECT_TRUE(page.txtLow.Usable() && page.txtMedium.Usable() && page.txtHigh.Usable());
}

TEST_F(ThresholdPageTest, HelpOpensTheFiltersTopic) {
  Start();
  page.IMMCPropertyPage_Help();
  EXPECT_EQ(desktop.topics, std::vector<std::string>{"qvhelp.chm::/mailboxfilters.htm"});
}

void Collect(const Layout& layout, std::vector<const Control*>& controls) {
  for (const Control* control : {layout.control, layout.label}) {
    if (control) controls.push_back(control);
  }
  controls.insert(controls.end(), layout.controls.begin(), layout.controls.end());
  for (const Layout& item : layout.items) Collect(item, controls);
}

TEST_F(ThresholdPageTest, EveryControlIsLaidOutOnce) {
  std::vector<const Control*> controls;
  Collect(page.Arrange(), controls);
  EXPECT_EQ(controls.size(), page.controls().size());
  for (const Control* control : page.controls()) {
    EXPECT_EQ(std::count(controls.begin(), controls.end(), control), 1) << control->name();
  }
}

TEST_F(ThresholdPageTest, EachThresholdSaysWhatItMeans) {
  std::vector<std::string> notes;
  for (const Layout& item : page.Arrange().items) {
    if (item.kind == Layout::Kind::Field) notes.push_back(item.control->name() + ": " + item.note);
  }
  EXPECT_EQ(notes, (std::vector<std::string>{"txtLow: Low from here on", "txtMedium: Medium from here on",
                                             "txtHigh: High from here on"}));
}

}  // namespace
}  // namespace qv::test
