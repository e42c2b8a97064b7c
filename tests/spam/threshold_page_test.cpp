#include "spam/threshold_page.h"

#include <algorithm>

#include "tests/spam/spam_fixture.h"

namespace qv::test {
namespace {

class ThresholdPageTest : public SpamFixture {
 protected:
  ThresholdPageTest() { AddFilter("", 1); }

  void AddFilter(const std::string& host, int status) {
    FilterRow filter;
    filter.FilterEntryID = "{SPAM_FILTER}";
    filter.CriteriaID = "CRT0";
    filter.ActionID = "A";
    filter.Description = "Spam filter";
    filter.Note = "kept";
    filter.Status = status;
    store.server(host).filters.push_back(filter);
  }

  void Start(const std::string& host = "") {
    Dictionary data;
    data.Add("mailbox", "");
    data.Add("postoffice", "");
    data.Add("host", host);
    page.Load();
    page.IMMCPropertyPage_Initialize(data);
    store.calls.clear();
  }

  std::vector<std::string> Texts() const { return {page.txtLow.Text(), page.txtMedium.Text(), page.txtHigh.Text()}; }
  void Set(const std::string& low, const std::string& medium, const std::string& high) {
    person.Set("txtLow", low);
    person.Set("txtMedium", medium);
    person.Set("txtHigh", high);
  }
  std::vector<std::string> Options(const std::string& host = "") {
    std::vector<std::string> options;
    for (const OptionRow& row : store.server(host).options) {
      options.push_back(std::to_string(row.Scope) + " " + row.Query + " " + row.ValueName + "=" + row.Value);
    }
    return options;
  }
  int Status(const std::string& host = "") { return store.server(host).filters.at(0).Status; }

  // Applies and expects a refusal with a message and the focus in a box, and that nothing has been saved.
  void ExpectRefusal(const std::string& text, const TextBox& box) {
    page.SetChanged(false);
    EXPECT_FALSE(page.ApplyChanges());
    const ShownMessage expected = {text, "Warning!", MessageIcon::Exclamation, MessageButtons::Ok};
    EXPECT_EQ(desktop.TakeMessages(), std::vector<ShownMessage>{expected});
    EXPECT_EQ(page.Focus(), &box);
    EXPECT_TRUE(page.Changed());
    EXPECT_EQ(store.calls, std::vector<std::string>{});
    EXPECT_EQ(files.writes, std::vector<std::string>{});
    EXPECT_EQ(registry.writes, std::vector<std::string>{});
  }

  ppgSpamProtection page{run};
  Person person{page};
};

const char* const kProcess = "SOFTWARE\\quillvane\\quillvane\\connectors\\sf|Process Mailbox Spam Filters=";
const char* const kReloadWrite = "SOFTWARE\\quillvane\\quillvane\\Agents\\MTA\\Filters\\MTAFILTER|Reload=1";

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

TEST_F(ThresholdPageTest, ApplyRefusesALowThreshold) {
  Start();
  for (const char* text : {"", "x", " "}) {
    Set(text, "", "");
    ExpectRefusal("You need to enter a low threshold.", page.txtLow);
  }
  for (const char* text : {"0", "-1"}) {
    Set(text, "", "");
    ExpectRefusal("You need to enter a low threshold greater than zero.", page.txtLow);
  }
  for (const char* text : {"101", "100.01"}) {
    Set(text, "", "");
    ExpectRefusal("You need to enter a low threshold less than 100.", page.txtLow);
  }
}

TEST_F(ThresholdPageTest, ApplyRefusesAMediumThreshold) {
  Start();
  Set("1", "", "");
  ExpectRefusal("You need to enter a medium threshold.", page.txtMedium);
  Set("1", "0", "");
  ExpectRefusal("You need to enter a medium threshold greater than zero.", page.txtMedium);
  Set("1", "101", "");
  ExpectRefusal("You need to enter a medium threshold less than 100.", page.txtMedium);
}

TEST_F(ThresholdPageTest, ApplyRefusesAHighThreshold) {
  Start();
  Set("1", "1", "");
  ExpectRefusal("You need to enter a high threshold.", page.txtHigh);
  Set("1", "1", "0");
  ExpectRefusal("You need to enter a high threshold greater than zero.", page.txtHigh);
  Set("1", "1", "101");
  ExpectRefusal("You need to enter a high threshold less than 100.", page.txtHigh);
}

TEST_F(ThresholdPageTest, ApplySavesInOrder) {
  Start();
  Set("1.5", "0050", "100");
  EXPECT_TRUE(page.ApplyChanges());
  const std::vector<std::string> expected = {
      "Filter.Create",
      "Filter.SetHost@",
      "Filter.getfilter@({SPAM_FILTER})",
      "Filter.Create",
      "Filter.SetHost@",
      "Filter.EditFilter@({SPAM_FILTER},1,Spam filter,A,kept,CRT0,0)",
      "Option.Create",
      "Option.SetOption@(0,GLOBAL,SpamThresholdLow,1.5)",
      "Option.SetOption@(0,GLOBAL,SpamThresholdMedium,0050)",
      "Option.SetOption@(0,GLOBAL,SpamThresholdHigh,100)",
      "Option.Create",
      "Option.SetHost@",
      "Option.GetOption@(0,GLOBAL,SpamThresholdLow)",
      "Option.SetHost@",
      "Option.GetOption@(0,GLOBAL,SpamThresholdMedium)",
      "Option.SetHost@",
      "Option.GetOption@(0,GLOBAL,SpamThresholdHigh)",
  };
  EXPECT_EQ(store.calls, expected);
  EXPECT_EQ(files.writes, (std::vector<std::string>{kValuesPath, kSwitchedOffPath, kActivePath}));
  EXPECT_EQ(registry.writes, (std::vector<std::string>{std::string(kProcess) + "1", kReloadWrite}));
  EXPECT_EQ(desktop.messages, std::vector<ShownMessage>{});
}

TEST_F(ThresholdPageTest, ThresholdsAreNotComparedWithEachOther) {
  Start();
  Set("90", "50", "10");
  EXPECT_TRUE(page.ApplyChanges());
  EXPECT_EQ(Options(), (std::vector<std::string>{"0 GLOBAL SpamThresholdLow=90", "0 GLOBAL SpamThresholdMedium=50",
                                                 "0 GLOBAL SpamThresholdHigh=10"}));
}

TEST_F(ThresholdPageTest, TheScriptHasTheNewThresholds) {
  files.Put(kValuesPath, "[RBL]\t71\t2\r\n[TRUSTED]\t3\t8");
  Start();
  Set("25", "60", "95.5");
  EXPECT_TRUE(page.ApplyChanges());
  EXPECT_EQ(Active(), Golden("script_of_values.txt"));
}

TEST_F(ThresholdPageTest, SwitchedOffStoresTheBoxesUntested) {
  Start();
  person.Click("chkEnabled");
  Set("", "x", "101");
  files.Put(kTemplatePath, "[QV_LOWSPAM] [QV_MEDSPAM] [QV_HISPAM]");
  EXPECT_TRUE(page.ApplyChanges());
  EXPECT_EQ(Status(), 0);
  EXPECT_EQ(Options(), (std::vector<std::string>{"0 GLOBAL SpamThresholdLow=", "0 GLOBAL SpamThresholdMedium=x",
                                                 "0 GLOBAL SpamThresholdHigh=101"}));
  EXPECT_EQ(Active(), "40 60 101");
  EXPECT_EQ(registry.writes, (std::vector<std::string>{std::string(kProcess) + "0", kReloadWrite}));

  ppgSpamProtection next(run);
  next.Load();
  next.IMMCPropertyPage_Initialize(Dictionary());
  EXPECT_EQ(next.txtLow.Text(), "40");
  EXPECT_EQ(next.txtMedium.Text(), "60");
  EXPECT_EQ(next.txtHigh.Text(), "101");
  EXPECT_FALSE(next.chkEnabled.Checked());
}

TEST_F(ThresholdPageTest, OnARemoteServerThresholdsAreSavedOnTheDefaultOne) {
  run.ServerHost = "FAR";
  AddFilter("FAR", 0);
  StoreOption("SpamThresholdLow", "33", "FAR");
  files.Put(kTemplatePath, "[QV_LOWSPAM]");
  Start("FAR");
  EXPECT_EQ(page.txtLow.Text(), "33");
  person.Click("chkEnabled");
  person.Set("txtLow", "44");
  EXPECT_TRUE(page.ApplyChanges());
  EXPECT_EQ(Options("FAR"), std::vector<std::string>{"0 GLOBAL SpamThresholdLow=33"});
  EXPECT_EQ(Options(), (std::vector<std::string>{"0 GLOBAL SpamThresholdLow=44", "0 GLOBAL SpamThresholdMedium=60",
                                                 "0 GLOBAL SpamThresholdHigh=80"}));
  EXPECT_EQ(Status("FAR"), 1);
  EXPECT_EQ(Active(), "33");
  EXPECT_EQ(store.server("FAR").words,
            (std::map<std::string, std::string>{
                {"software\\quillvane\\quillvane\\connectors\\sf|process mailbox spam filters", "1"}}));
  EXPECT_EQ(registry.writes, std::vector<std::string>{kReloadWrite});
}

TEST_F(ThresholdPageTest, FailuresOfTheStoreGoUnnoticed) {
  Start();
  store.server().filters.clear();
  store.Refuse("Option.SetOption", 0);
  person.Set("txtLow", "41");
  EXPECT_TRUE(page.ApplyChanges());
  EXPECT_EQ(desktop.messages, std::vector<ShownMessage>{});
  EXPECT_EQ(files.writes.size(), 3u);
  EXPECT_EQ(registry.TakeReloads(), 1);
}

TEST_F(ThresholdPageTest, AnErrorOfTheScriptLeavesWhatWasSavedAndRaisesNoSignal) {
  Start();
  files.Put(kTemplatePath, "");
  Set("1", "2", "3");
  EXPECT_EQ(ErrorOf([this] { page.ApplyChanges(); }), "62 Input past end of file");
  EXPECT_EQ(Options().size(), 3u);
  EXPECT_EQ(registry.TakeReloads(), 0);
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

}  // namespace
}  // namespace qv::test
