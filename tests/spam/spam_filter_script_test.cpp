#include "spam/spam_filter_script.h"

#include "tests/spam/spam_fixture.h"

namespace qv::test {
namespace {

const std::vector<std::string> kAllWrites = {kValuesPath, kSwitchedOffPath, kActivePath};

using RebuildTest = SpamFixture;

TEST_F(RebuildTest, OfDefaults) {
  RebuildSpamFilter(run);
  EXPECT_EQ(Active(), Golden("script_of_defaults.txt"));
  EXPECT_EQ(SwitchedOff(), Golden("script_of_defaults.txt"));
  EXPECT_EQ(files.writes, kAllWrites);
}

TEST_F(RebuildTest, OfValuesAndStoredThresholds) {
  files.Put(kValuesPath, "[RBL]\t71\t2\r\n[TRUSTED]\t3\t8");
  StoreOption("SpamThresholdLow", " 25 ");
  StoreOption("SpamThresholdMedium", "");
  StoreOption("SpamThresholdHigh", "95.5");
  RebuildSpamFilter(run);
  EXPECT_EQ(Active(), Golden("script_of_values.txt"));
  EXPECT_EQ(SwitchedOff(), Golden("script_of_values.txt"));
  EXPECT_EQ(Values(), "[RBL]\t71\t2\r\n[NOSUBJECT]\t10\t1\r\n[TRUSTED]\t3\t8");
}

TEST_F(RebuildTest, ThresholdsComeFromTheServerOfTheConsole) {
  run.ServerHost = "FAR";
  StoreOption("SpamThresholdLow", "11");
  StoreOption("SpamThresholdLow", "22", "FAR");
  files.Put(kTemplatePath, "[QV_LOWSPAM]");
  RebuildSpamFilter(run);
  EXPECT_EQ(Active(), "22");
  const std::vector<std::string> expected = {
      "Option.Create",
      "Option.SetHost@FAR",
      "Option.GetOption@FAR(0,GLOBAL,SpamThresholdLow)",
      "Option.SetHost@FAR",
      "Option.GetOption@FAR(0,GLOBAL,SpamThresholdMedium)",
      "Option.SetHost@FAR",
      "Option.GetOption@FAR(0,GLOBAL,SpamThresholdHigh)",
  };
  EXPECT_EQ(store.calls, expected);
}

TEST_F(RebuildTest, AThresholdThatIsNoNumberIsReplacedByItsDefault) {
  for (const char* name : {"SpamThresholdLow", "SpamThresholdMedium", "SpamThresholdHigh"}) StoreOption(name, "high");
  files.Put(kTemplatePath, "[QV_HISPAM][QV_MEDSPAM][QV_LOWSPAM]");
  RebuildSpamFilter(run);
  EXPECT_EQ(Active(), "806040");
}

TEST_F(RebuildTest, WeightsAreNotTestedForNumbers) {
  files.Put(kDefaultsPath, "[A]\tOne\tmany\tfew");
  files.Put(kTemplatePath, "[A_POS],[A_NEG]");
  RebuildSpamFilter(run);
  EXPECT_EQ(Active(), "many,few");
}

TEST_F(RebuildTest, AMissingNegativeWeightReplacesItsTokenByNothing) {
  files.Put(kValuesPath, "[RBL]\t71");
  files.Put(kTemplatePath, "<[RBL_POS]|[RBL_NEG]>");
  RebuildSpamFilter(run);
  EXPECT_EQ(Active(), "<71|>");
}

TEST_F(RebuildTest, AValueMayHoldALaterToken) {
  files.Put(kDefaultsPath, "[A]\tOne\t[A_NEG]\t[QV_LOWSPAM]\r\n[B]\tTwo\t[A_POS]\t4");
  files.Put(kTemplatePath, "[A_POS] [A_NEG] [B_POS] [B_NEG]");
  RebuildSpamFilter(run);
  EXPECT_EQ(Active(), "40 40 [A_POS] 4");
}

TEST_F(RebuildTest, ATokenWithoutABracketTakesThePositiveWeight) {
  files.Put(kDefaultsPath, "WORD\tA word\t1\t2\r\n[B]\tTwo\t3\t4");
  files.Put(kTemplatePath, "WORD [B_POS]");
  RebuildSpamFilter(run);
  EXPECT_EQ(Active(), "1 3");
}

TEST_F(RebuildTest, WithoutATemplateBothScriptsAreEmpty) {
  files.Delete(kTemplatePath);
  files.Put(kActivePath, "old");
  RebuildSpamFilter(run);
  EXPECT_EQ(Active(), "");
  EXPECT_EQ(SwitchedOff(), "");
  EXPECT_EQ(files.writes, kAllWrites);
  EXPECT_EQ(store.CountOf("Option.GetOption"), 3);
}

TEST_F(RebuildTest, AnEmptyTemplateStopsBehindTheWeights) {
  files.Put(kTemplatePath, "");
  EXPECT_EQ(ErrorOf([this] { RebuildSpamFilter(run); }), "62 Input past end of file");
  EXPECT_EQ(files.writes, std::vector<std::string>{kValuesPath});
  EXPECT_EQ(store.calls, std::vector<std::string>{});
}

TEST_F(RebuildTest, AnErrorOfTheOptionsLeavesTheWeightsWritten) {
  store.Raise("Option.GetOption", "No answer.");
  EXPECT_EQ(ErrorOf([this] { RebuildSpamFilter(run); }), "440 No answer.");
  EXPECT_EQ(files.writes, std::vector<std::string>{kValuesPath});
}

TEST_F(RebuildTest, AServerThatIsNotKnownIsAnError) {
  run.ServerHost = "NOWHERE";
  EXPECT_EQ(ErrorOf([this] { RebuildSpamFilter(run); }), "440 The server 'NOWHERE' is not known.");
}

TEST_F(RebuildTest, ScriptsThatCannotBeWrittenPassInSilence) {
  MemoryFiles bare;
  bare.Put(kDefaultsPath, "[A]\tOne\t1\t2");
  qv::Run other(Platform{desktop, registry, bare, guids, scripts, store});
  RebuildSpamFilter(other);
  EXPECT_EQ(bare.writes, std::vector<std::string>{kValuesPath});
}

TEST_F(RebuildTest, RaisesNoReloadSignalAndDoesNotAskForTheFilter) {
  RebuildSpamFilter(run);
  EXPECT_EQ(registry.TakeReloads(), 0);
  EXPECT_EQ(store.CountOf("Filter.getfilter"), 0);
}

TEST_F(RebuildTest, WithoutDefaultsLeavesTheTestsTokens) {
  files.Delete(kDefaultsPath);
  files.Put(kValuesPath, "[RBL]\t71\t2");
  files.Put(kTemplatePath, "[RBL_POS] [QV_LOWSPAM]");
  RebuildSpamFilter(run);
  EXPECT_EQ(Values(), "");
  EXPECT_EQ(Active(), "[RBL_POS] 40");
}

using UpdateTest = SpamFixture;

TEST_F(UpdateTest, WritesTheChangeAndTheScript) {
  files.Put(kValuesPath, "[TRUSTED]\t3\t8");
  StoreOption("SpamThresholdLow", "25");
  StoreOption("SpamThresholdHigh", "95.5");
  UpdateSpamWeight(run, "[RBL]", "71", "2");
  EXPECT_EQ(Values(), "[RBL]\t71\t2\r\n[NOSUBJECT]\t10\t1\r\n[TRUSTED]\t3\t8");
  EXPECT_EQ(Active(), Golden("script_of_values.txt"));
  EXPECT_EQ(SwitchedOff(), Golden("script_of_values.txt"));
  EXPECT_EQ(files.writes, kAllWrites);
  EXPECT_EQ(registry.TakeReloads(), 0);
}

TEST_F(UpdateTest, AnEmptyWeightReplacesItsTokenByNothing) {
  UpdateSpamWeight(run, "[RBL]", "", "7");
  EXPECT_EQ(Values(), "[RBL]\t\t7\r\n[NOSUBJECT]\t10\t1\r\n[TRUSTED]\t0\t1000");
  EXPECT_EQ(Active(), Golden("script_of_empty_weight.txt"));
}

TEST_F(UpdateTest, AnUnknownTokenChangesNoWeight) {
  UpdateSpamWeight(run, "[OTHER]", "1", "2");
  EXPECT_EQ(Values(), "[RBL]\t50\t0\r\n[NOSUBJECT]\t10\t1\r\n[TRUSTED]\t0\t1000");
  EXPECT_EQ(Active(), Golden("script_of_defaults.txt"));
}

TEST_F(UpdateTest, AnEmptyTemplateStopsBeforeTheWeights) {
  files.Put(kTemplatePath, "");
  EXPECT_EQ(ErrorOf([this] { UpdateSpamWeight(run, "[RBL]", "71", "2"); }), "62 Input past end of file");
  EXPECT_EQ(files.writes, std::vector<std::string>{});
}

TEST_F(UpdateTest, WeightsThatCannotBeWrittenAreAnError) {
  files.fail = "Write";
  EXPECT_EQ(ErrorOf([this] { UpdateSpamWeight(run, "[RBL]", "71", "2"); }), "70 Permission denied");
  EXPECT_EQ(Active(), "(missing)");
}

using WriteScriptTest = SpamFixture;

TEST_F(WriteScriptTest, WritesTheSwitchedOffFileFirst) {
  WriteSystemFilterScript(run, "CRT1", "text");
  const std::vector<std::string> expected = {"C:\\Config\\Filters\\Criteria\\CRT1.QV_",
                                             "C:\\Config\\Filters\\Criteria\\CRT1.QVS"};
  EXPECT_EQ(files.writes, expected);
  EXPECT_EQ(files.Get(expected[0]), "text");
  EXPECT_EQ(files.Get(expected[1]), "text");
}

TEST_F(WriteScriptTest, IgnoresErrors) {
  files.fail = "Write";
  EXPECT_EQ(ErrorOf([this] { WriteSystemFilterScript(run, "CRT1", "text"); }), "no error");
}

}  // namespace
}  // namespace qv::test
