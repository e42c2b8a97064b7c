#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>

#include "tests/vbscript/script_fixture.h"

namespace qv::vbscript {
namespace {

EngineOptions Small() {
  EngineOptions options;
  options.memory_limit = 8U << 20;
  options.string_limit = 1U << 20;
  return options;
}

TEST(Limits, MemoryAndStringsAreBounded) {
  EXPECT_EQ(Told("s = \"x\"\nDo\ns = s & s\nLoop", Small()), "[14 at 3:0]");
  EXPECT_EQ(Told("s = Space(10000000)", Small()), "[14 at 1:0]");
  EXPECT_EQ(Told("ReDim a(100000000)", Small()), "[7 at 1:0]");
  EXPECT_EQ(Told("ReDim a(2147483647, 2147483647)", Small()), "[7 at 1:0]");
  EXPECT_EQ(Told("Dim a(1000)\nDo\na(i) = Space(100000)\ni = i + 1\nLoop", Small()), "[14 at 3:0]");
  EXPECT_EQ(
      Told("Class K\nPublic x\nEnd Class\nSet o = Nothing\nDo\nSet n = New K\nSet n.x = o\nSet o = n\nLoop", Small()),
      "[7 at 6:0]");
  EXPECT_EQ(Told("Do\nExecuteGlobal \"Sub S\" & vbLf & \"End Sub\"\nLoop", Small()), "[7 at 2:0]");
  EXPECT_EQ(Told("On Error Resume Next\nReDim a(100000000)\nPrint Err.Number", Small()), "7\n");
}

TEST(Limits, WhatIsFreedCanBeUsedAgain) {
  EXPECT_EQ(Told("For i = 1 To 1000\nReDim a(10000)\ns = Space(100000)\nNext\nPrint 1", Small()), "1\n");
  EXPECT_EQ(Told("For i = 1 To 3000\nExecute \"x = \"\"\" & Space(1000) & \"\"\"\"\nNext\nPrint 1", Small()), "1\n");
}

TEST(Limits, DepthIsBounded) {
  EXPECT_EQ(RunScript("x = " + std::string(100000, '(') + "1").error->number, 1001);
  EXPECT_EQ(Told("x = " + std::string(100, '(') + "1" + std::string(100, ')') + "\nPrint x"), "1\n");
  EXPECT_EQ(RunScript("x = " + std::string(100000, '-') + "1").error->number, 1001);
  std::string ifs;
  for (int i = 0; i < 10000; ++i) ifs += "If 1 Then\n";
  EXPECT_EQ(RunScript(ifs).error->number, 1001);
  std::string chain = "x = 1";
  for (int i = 0; i < 20000; ++i) chain += " + 1";
  EXPECT_EQ(Told(chain + "\nPrint x"), "20001\n");
  std::string members = "x = a";
  for (int i = 0; i < 20000; ++i) members += ".b";
  EXPECT_EQ(RunScript(members).error->number, 1001);
}

// Each runs for ever, or nearly, unless it is interrupted.
TEST(Limits, EveryLoopCanBeInterrupted) {
  for (const char* script :
       {"Do\nLoop", "While True\nWend", "For i = 1 To 1 Step 0\nNext", "Do\nOn Error Resume Next\nx = 1 / 0\nLoop",
        "Sub S\nEnd Sub\nDo\nS\nLoop", "Do\nExecute \"x = 1\"\nLoop",
        "Set r = New RegExp\nr.Pattern = \"(a+)+(a+)+(a+)+b\"\nx = r.Test(String(60, \"a\"))",
        "Set r = New RegExp\nr.Pattern = \"(?:(?=(a*)*b)a|a)*c\"\nDo\nx = r.Test(String(60, \"a\"))\nLoop",
        "s = String(1000000, \"a\")\nt = String(500000, \"a\") & \"b\" & String(400000, \"a\")\nDo\nx = InStr(s, "
        "t)\nLoop",
        "s = String(100000, \"a\")\nDo\nx = Replace(s, \"a\", \"b\")\nLoop"}) {
    std::atomic<bool> interrupt{false};
    EngineOptions options;
    options.interrupt = &interrupt;
    std::thread host([&interrupt] {
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
      interrupt = true;
    });
    const auto start = std::chrono::steady_clock::now();
    const Outcome outcome = RunScript(script, options);
    const auto taken = std::chrono::steady_clock::now() - start;
    host.join();
    ASSERT_TRUE(outcome.error) << script;
    EXPECT_EQ(outcome.error->number, 18) << script;
    EXPECT_EQ(outcome.error->description, "The script was interrupted") << script;
    EXPECT_LT(std::chrono::duration_cast<std::chrono::milliseconds>(taken).count(), 3000) << script;
  }
}

TEST(Limits, AnInterruptCannotBeHandled) {
  std::atomic<bool> interrupt{true};
  EngineOptions options;
  options.interrupt = &interrupt;
  const Outcome outcome = RunScript("On Error Resume Next\nDo\nLoop\nPrint 1", options);
  ASSERT_TRUE(outcome.error);
  EXPECT_EQ(outcome.error->number, 18);
  EXPECT_EQ(outcome.printed, "");
}

TEST(Limits, ARegularExpressionThatTriesForEverEnds) {
  const std::string script =
      "Set r = New RegExp\nr.Pattern = \"(a+)+$\"\nPrint r.Test(String(40, \"a\"))\nPrint r.Test(String(40, \"a\") & "
      "\"b\")";
  EngineOptions options;
  options.match_limit = 100000;
  const Outcome outcome = RunScript(script, options);
  EXPECT_EQ(outcome.printed, "True\n");
  ASSERT_TRUE(outcome.error);
  EXPECT_EQ(outcome.error->number, 5017);
  EXPECT_EQ(outcome.error->line, 4);
  EXPECT_EQ(Told("On Error Resume Next\n" + script + "\nPrint Err.Number", options), "True\n5017\n");
  // Places that fail at once cost nothing, however many.
  options.match_limit = 10;
  EXPECT_EQ(Told("Set r = New RegExp\nr.Pattern = \"[bc]d\"\nPrint r.Test(String(100000, \"a\"))", options), "False\n");
}

TEST(Limits, StepsCanBeCounted) {
  EngineOptions options;
  options.step_limit = 100000;
  EXPECT_EQ(RunScript("Do\nLoop", options).error->number, 18);
  EXPECT_EQ(Told("For i = 1 To 1000\nNext\nPrint 1", options), "1\n");
}

}  // namespace
}  // namespace qv::vbscript
