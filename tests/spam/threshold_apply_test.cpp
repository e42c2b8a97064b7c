#include "tests/spam/threshold_page_fixture.h"

namespace qv::test {
namespace {

using ThresholdApplyTest = ThresholdPageTest;

const char* const kProcess = "SOFTWARE\\quillvane\\quillvane\\connectors\\sf|Process Mailbox Spam Filters=";
const char* const kReloadWrite = "SOFTWARE\\quillvane\\quillvane\\Agents\\MTA\\Filters\\MTAFILTER|Reload=1";

TEST_F(ThresholdApplyTest, ApplyRefusesALowThreshold) {
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

TEST_F(ThresholdApplyTest, ApplyRefusesAMediumThreshold) {
  Start();
  Set("1", "", "");
  ExpectRefusal("You need to enter a medium threshold.", page.txtMedium);
  Set("1", "0", "");
  ExpectRefusal("You need to enter a medium threshold greater than zero.", page.txtMedium);
  Set("1", "101", "");
  ExpectRefusal("You need to enter a medium threshold less than 100.", page.txtMedium);
}

TEST_F(ThresholdApplyTest, ApplyRefusesAHighThreshold) {
  Start();
  Set("1", "1", "");
  ExpectRefusal("You need to enter a high threshold.", page.txtHigh);
  Set("1", "1", "0");
  ExpectRefusal("You need to enter a high threshold greater than zero.", page.txtHigh);
  Set("1", "1", "101");
  ExpectRefusal("You need to enter a high threshold less than 100.", page.txtHigh);
}

TEST_F(ThresholdApplyTest, ApplySavesInOrder) {
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

TEST_F(ThresholdApplyTest, NumbersOfAnyFormAreStoredAsTheyStand) {
  Start();
  Set(" 7 ", "1e2", "&H64");
  EXPECT_TRUE(page.ApplyChanges());
  EXPECT_EQ(Options(), (std::vector<std::string>{"0 GLOBAL SpamThresholdLow= 7 ", "0 GLOBAL SpamThresholdMedium=1e2",
                                                 "0 GLOBAL SpamThresholdHigh=&H64"}));
  store.calls.clear();
  files.writes.clear();
  registry.writes.clear();
  Set("(5)", "", "");
  ExpectRefusal("You need to enter a low threshold greater than zero.", page.txtLow);
  Set("1,000", "", "");
  ExpectRefusal("You need to enter a low threshold less than 100.", page.txtLow);
  Set("5 0", "", "");
  ExpectRefusal("You need to enter a low threshold.", page.txtLow);
}

TEST_F(ThresholdApplyTest, ThresholdsAreNotComparedWithEachOther) {
  Start();
  Set("90", "50", "10");
  EXPECT_TRUE(page.ApplyChanges());
  EXPECT_EQ(Options(), (std::vector<std::string>{"0 GLOBAL SpamThresholdLow=90", "0 GLOBAL SpamThresholdMedium=50",
                                                 "0 GLOBAL SpamThresholdHigh=10"}));
}

TEST_F(ThresholdApplyTest, TheScriptHasTheNewThresholds) {
  files.Put(kValuesPath, "[RBL]\t71\t2\r\n[TRUSTED]\t3\t8");
  Start();
  Set("25", "60", "95.5");
  EXPECT_TRUE(page.ApplyChanges());
  EXPECT_EQ(Active(), Golden("script_of_values.txt"));
}

TEST_F(ThresholdApplyTest, SwitchedOffStoresTheBoxesUntested) {
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

TEST_F(ThresholdApplyTest, OnARemoteServerThresholdsAreSavedOnTheDefaultOne) {
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

TEST_F(ThresholdApplyTest, FailuresOfTheStoreGoUnnoticed) {
  Start();
  store.server().filters.clear();
  store.Refuse("Option.SetOption", 0);
  person.Set("txtLow", "41");
  EXPECT_TRUE(page.ApplyChanges());
  EXPECT_EQ(desktop.messages, std::vector<ShownMessage>{});
  EXPECT_EQ(files.writes.size(), 3u);
  EXPECT_EQ(registry.TakeReloads(), 1);
}

TEST_F(ThresholdApplyTest, AnErrorOfTheScriptLeavesWhatWasSavedAndRaisesNoSignal) {
  Start();
  files.Put(kTemplatePath, "");
  Set("1", "2", "3");
  EXPECT_EQ(ErrorOf([this] { page.ApplyChanges(); }), "62 Input past end of file");
  EXPECT_EQ(Options().size(), 3u);
  EXPECT_EQ(registry.TakeReloads(), 0);
}

}  // namespace
}  // namespace qv::test
