#include "editor/script_files.h"

#include <gtest/gtest.h>

#include "services/text_files.h"
#include "tests/support/test_run.h"

namespace qv {
namespace {

using test::TestRun;

const std::string kActive = "C:\\Config\\Filters\\Criteria\\CRT1.QVS";
const std::string kOff = "C:\\Config\\Filters\\Criteria\\CRT1.QV_";
const std::string kPostofficeActive = "C:\\Config\\postoffices\\abc\\rules\\Criteria\\CRT1.QVS";
const std::string kPostofficeOff = "C:\\Config\\postoffices\\abc\\rules\\Criteria\\CRT1.QV_";

class ScriptFiles : public testing::Test {
 protected:
  void SetUp() override {
    run.files.MakeFolder("C:\\Config\\Filters\\Criteria");
    run.files.MakeFolder("C:\\Config\\postoffices\\abc\\rules\\Criteria");
  }
  int State(const std::string& postoffice = "") { return GetCriteriaScriptState(run.run, "CRT1", postoffice); }
  // What the two files hold: "-" for a file that isn't there.
  std::string Both() {
    return "active " + run.files.Get(kActive).value_or("-") + ", off " + run.files.Get(kOff).value_or("-");
  }
  TestRun run;
};

TEST_F(ScriptFiles, TheStateFollowsFromTheFiles) {
  EXPECT_EQ(State(), 0);
  run.files.Put(kOff, "x");
  EXPECT_EQ(State(), 2);
  run.files.Put(kActive, "x");
  EXPECT_EQ(State(), 1);
  run.files.Delete(kOff);
  EXPECT_EQ(State(), 1);
}

TEST_F(ScriptFiles, OfAPostofficeStandBelowIt) {
  run.files.Put(kPostofficeActive, "of abc");
  EXPECT_EQ(State(), 0);
  EXPECT_EQ(State("abc"), 1);
  EXPECT_EQ(ReadCriteriaScript(run.run, "CRT1", "abc"), "of abc");
  DisableCriteriaScript(run.run, "CRT1", true, "abc");
  EXPECT_EQ(run.files.Get(kPostofficeOff), "of abc");
  EXPECT_EQ(State("abc"), 2);
}

TEST_F(ScriptFiles, AnEmptyFileCounts) {
  run.files.Put(kOff, "");
  EXPECT_EQ(State(), 2);
  EXPECT_EQ(ReadCriteriaScript(run.run, "CRT1", ""), "");
  run.files.Put(kActive, "");
  EXPECT_EQ(State(), 1);
  EXPECT_EQ(ReadCriteriaScript(run.run, "CRT1", ""), "");
}

TEST_F(ScriptFiles, ReadingFollowsTheState) {
  EXPECT_EQ(ReadCriteriaScript(run.run, "CRT1", ""), "");
  run.files.Put(kOff, "off");
  EXPECT_EQ(ReadCriteriaScript(run.run, "CRT1", ""), "off");
  run.files.Put(kActive, "on");
  EXPECT_EQ(ReadCriteriaScript(run.run, "CRT1", ""), "on");
}

TEST_F(ScriptFiles, ANewScriptIsBornSwitchedOff) {
  WriteCriteriaScript(run.run, "CRT1", "a\r\nb", "");
  EXPECT_EQ(Both(), "active -, off a\r\nb");
}

TEST_F(ScriptFiles, SavingASwitchedOffScriptLeavesNoActiveFile) {
  run.files.Put(kOff, "old");
  WriteCriteriaScript(run.run, "CRT1", "new", "");
  EXPECT_EQ(Both(), "active -, off new");
}

TEST_F(ScriptFiles, SavingAnActiveScriptWritesBothFilesTheSpareFirst) {
  run.files.Put(kActive, "old");
  WriteCriteriaScript(run.run, "CRT1", "new", "");
  EXPECT_EQ(Both(), "active new, off new");
  EXPECT_EQ(run.files.writes, (std::vector<std::string>{kOff, kActive}));
  EXPECT_EQ(State(), 1);
}

TEST_F(ScriptFiles, EnablingMovesTheFile) {
  run.files.Put(kOff, "text");
  EnableCriteriaScript(run.run, "CRT1", true, "");
  EXPECT_EQ(Both(), "active text, off -");
}

TEST_F(ScriptFiles, DisablingReplacesASpareFile) {
  run.files.Put(kActive, "active");
  run.files.Put(kOff, "stale");
  DisableCriteriaScript(run.run, "CRT1", true, "");
  EXPECT_EQ(Both(), "active -, off active");
}

TEST_F(ScriptFiles, EnablingReplacesAnActiveFileOnlyWhenTold) {
  run.files.Put(kActive, "active");
  run.files.Put(kOff, "off");
  EnableCriteriaScript(run.run, "CRT1", false, "");
  EXPECT_EQ(Both(), "active active, off off");
  DisableCriteriaScript(run.run, "CRT1", false, "");
  EXPECT_EQ(Both(), "active active, off off");
  EnableCriteriaScript(run.run, "CRT1", true, "");
  EXPECT_EQ(Both(), "active off, off -");
}

TEST_F(ScriptFiles, WithoutAScriptNothingHappens) {
  EnableCriteriaScript(run.run, "CRT1", true, "");
  DisableCriteriaScript(run.run, "CRT1", true, "");
  EXPECT_EQ(State(), 0);
}

TEST_F(ScriptFiles, EnablingWithoutASwitchedOffFileLosesTheActiveOne) {
  run.files.Put(kActive, "active");
  EnableCriteriaScript(run.run, "CRT1", true, "");
  EXPECT_EQ(State(), 0);
}

TEST_F(ScriptFiles, FailuresPassInSilence) {
  run.files.Put(kOff, "off");
  run.files.fail = "Rename";
  EnableCriteriaScript(run.run, "CRT1", true, "");
  EXPECT_EQ(Both(), "active -, off off");
  run.files.Put(kActive, "active");
  run.files.fail = "Delete";
  EnableCriteriaScript(run.run, "CRT1", true, "");
  EXPECT_EQ(Both(), "active active, off off");
  run.files.fail = "Write";
  WriteCriteriaScript(run.run, "CRT1", "new", "");
  EXPECT_EQ(Both(), "active active, off off");
  run.files.fail = "ReadAll";
  EXPECT_EQ(ReadCriteriaScript(run.run, "CRT1", ""), "");
  EXPECT_TRUE(run.desktop.messages.empty());
}

TEST_F(ScriptFiles, AMissingFolderIsNotMade) {
  WriteCriteriaScript(run.run, "CRT1", "text", "nowhere");
  EXPECT_EQ(GetCriteriaScriptState(run.run, "CRT1", "nowhere"), 0);
}

TEST_F(ScriptFiles, AreOfTheLocalMachineWhateverTheServer) {
  run.run.ServerHost = "MAIL2";
  run.files.Put(kActive, "here");
  EXPECT_EQ(State(), 1);
}

TEST_F(ScriptFiles, TheScriptingStatusIsOfTheLocalMachine) {
  const std::string key = "SOFTWARE\\quillvane\\quillvane\\agents\\mta\\filters\\MTAFILTER";
  EXPECT_EQ(GetScriptingStatus(run.run), 0);
  run.run.ServerHost = "MAIL2";
  run.registry.SetWord(key, "Scripting Status", 2);
  EXPECT_EQ(GetScriptingStatus(run.run), 2);
  run.registry.SetText(key, "Scripting Status", "1");
  EXPECT_EQ(GetScriptingStatus(run.run), 0);
}

TEST(TextFiles, AreReadAndWrittenWhole) {
  TestRun run;
  run.files.MakeFolder("C:\\Config");
  WriteTextFile(run.run, "C:\\Config\\a.txt", "one\r\ntwo\r\n");
  EXPECT_EQ(ReadTextFile(run.run, "C:\\Config\\a.txt"), "one\r\ntwo\r\n");
  WriteTextFile(run.run, "C:\\Config\\a.txt", "3");
  EXPECT_EQ(ReadTextFile(run.run, "C:\\Config\\a.txt"), "3");
}

TEST(TextFiles, PassFailuresInSilence) {
  TestRun run;
  WriteTextFile(run.run, "C:\\Nowhere\\a.txt", "text");
  EXPECT_EQ(ReadTextFile(run.run, "C:\\Nowhere\\a.txt"), "");
  run.files.Put("C:\\Config\\empty.txt", "");
  EXPECT_EQ(ReadTextFile(run.run, "C:\\Config\\empty.txt"), "");
  EXPECT_FALSE(run.files.FileExists("C:\\Nowhere\\a.txt"));
}

}  // namespace
}  // namespace qv
