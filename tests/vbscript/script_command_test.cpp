#include "vbscript/script_command.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace qv::vbscript {
namespace {

class ScriptCommand : public testing::Test {
 protected:
  static std::string path() { return "rules/script.vbs"; }

  int Check(const std::string& text, const EngineOptions& options = {}) { return Do(ScriptCheck, text, options); }
  int Run(const std::string& text, const EngineOptions& options = {}) { return Do(ScriptRun, text, options); }

  std::string out_;
  std::string err_;

 private:
  int Do(decltype(ScriptRun)* command, const std::string& text, const EngineOptions& options) {
    std::ostringstream out;
    std::ostringstream err;
    const int status = command(path(), text, options, out, err);
    out_ = out.str();
    err_ = err.str();
    return status;
  }
};

EngineOptions TrialRun() {
  EngineOptions options;
  options.bracketed_names = false;
  options.procedures_clash = true;
  return options;
}

TEST_F(ScriptCommand, CheckRunsNothing) {
  EXPECT_EQ(Check("Print 1\r\nx = 1 / 0\r\n"), 0);
  EXPECT_EQ(out_, "");
  EXPECT_EQ(err_, "");
}

TEST_F(ScriptCommand, CheckTellsWhereTheScriptIsAtFault) {
  EXPECT_EQ(Check("If CriteriaMet(QV_VARIABLE,\"*x*\") Then\r\n  FilterResult = 1\r\n"), 1);
  EXPECT_EQ(err_, path() + ":3:1: error 1014: Expected 'End'\n");
  EXPECT_EQ(Check("x = \"\xc3\xa4\" @"), 1);
  EXPECT_EQ(err_, path() + ":1:9: error 1032: Invalid character\n");
  EXPECT_EQ(out_, "");
}

TEST_F(ScriptCommand, RunPrints) {
  EXPECT_EQ(Run("Print 1, \"a\", True, Null, Empty, 1.5, 1/3, CSng(1/3), CCur(2.5), #1/2/2003#\nPrint\nPrint "
                "\"\xe2\x82\xac\""),
            0);
  EXPECT_EQ(out_, "1 a True Null  1.5 0.333333333333333 0.3333333 2.5 1/2/2003\n\n\xe2\x82\xac\n");
  EXPECT_EQ(err_, "");
}

TEST_F(ScriptCommand, RunTellsOfTheErrorBehindWhatWasPrinted) {
  EXPECT_EQ(Run("Print 1\n  x = CInt(\"q\")\nPrint 2"), 1);
  EXPECT_EQ(out_, "1\n");
  EXPECT_EQ(err_, path() + ":2:3: error 13: Type mismatch: 'CInt'\n");
  EXPECT_EQ(Run("Print 1\nIf"), 1);
  EXPECT_EQ(out_, "");
  EXPECT_EQ(err_, path() + ":2:3: error 1002: Syntax error\n");
}

TEST_F(ScriptCommand, RunEndsTheObjects) {
  const std::string text =
      "Class K\nPublic n\nPrivate Sub Class_Terminate\nPrint \"gone\", n\nIf n = 2 Then n = n / 0\nEnd Sub\nEnd "
      "Class\nSet a = New K\na.n = 2\nSet b = New K\nPrint \"end\"\n";
  EXPECT_EQ(Run(text), 1);
  EXPECT_EQ(out_, "end\ngone 2\ngone \n");
  EXPECT_EQ(err_, path() + ":5:15: error 11: Division by zero\n");
  EXPECT_EQ(Run(text + "x = CByte(300)"), 1);
  EXPECT_EQ(out_, "end\ngone 2\ngone \n");
  EXPECT_EQ(err_, path() + ":12:1: error 6: Overflow: 'CByte'\n");
}

TEST_F(ScriptCommand, TheTrialRunHasRulesOfItsOwn) {
  EXPECT_EQ(Check("x = [QV_SUBJECT]"), 0);
  EXPECT_EQ(Check("x = [QV_SUBJECT]", TrialRun()), 1);
  EXPECT_EQ(err_, path() + ":1:5: error 1032: Invalid character\n");
  const std::string twice = "Function A\nEnd Function\nSub a\nEnd Sub";
  EXPECT_EQ(Run(twice), 0);
  EXPECT_EQ(Run(twice, TrialRun()), 1);
  EXPECT_EQ(err_, path() + ":3:5: error 1041: Name redefined\n");
  EXPECT_EQ(Run("Set o = CreateObject(\"A.B\")", TrialRun()), 1);
  EXPECT_EQ(err_, path() + ":1:1: error 429: ActiveX component can't create object: 'A.B'\n");
}

}  // namespace
}  // namespace qv::vbscript
