#include "tests/app/app_fixture.h"

namespace qv {
namespace {

// The commands on a script's file, which need no server.
class ScriptTest : public AppTest {
 protected:
  std::string Put(const std::string& name, const std::string& bytes) const {
    const fs::path path = directory.path() / name;
    std::ofstream(path, std::ios::binary) << bytes;
    return path.string();
  }
};

TEST_F(ScriptTest, AFaultIsToldWithItsPlace) {
  const std::string good = Put("good.vbs", "Dim x\r\nx = 1 + 1\r\n");
  EXPECT_EQ(Out({"script", "check", good}), "");
  const std::string bad = Put("bad.vbs", "Dim x\r\nx = 1 +\r\n");
  EXPECT_EQ(Refused({"script", "check", bad}), "DIR/bad.vbs:2:8: error 1002: Syntax error\n");
  EXPECT_EQ(Refused({"script", "run", bad}), "DIR/bad.vbs:2:8: error 1002: Syntax error\n");
}

TEST_F(ScriptTest, RunPrints) {
  EXPECT_EQ(Out({"script", "run", Put("print.vbs", "Print 1 + 1, \"a\" & \"b\"\nPrint")}), "2 ab\n\n");
}

TEST_F(ScriptTest, PlainHasBracketedNames) {
  const std::string path = Put("names.vbs", "[a b] = 3\nPrint [a b]");
  EXPECT_EQ(Out({"script", "run", "--plain", path}), "3\n");
  EXPECT_EQ(Out({"script", "check", "--plain", path}), "");
  EXPECT_EQ(Refused({"script", "check", path}), "DIR/names.vbs:1:1: error 1032: Invalid character\n");
}

TEST_F(ScriptTest, AFileIsUtf8OrElseInTheServersCodePage) {
  EXPECT_EQ(Out({"script", "run",
                 Put("utf8.vbs",
                     "Print \"Gr\xC3\xBC\xC3\x9F"
                     "e \xE2\x82\xAC\", Len(\"\xC3\xBC\")")}),
            "Gr\xC3\xBC\xC3\x9F"
            "e \xE2\x82\xAC 1\n");
  EXPECT_EQ(Out({"script", "run",
                 Put("1252.vbs",
                     "Print \"Gr\xFC\xDF"
                     "e \x80\", Len(\"\xFC\")")}),
            "Gr\xC3\xBC\xC3\x9F"
            "e \xE2\x82\xAC 1\n");
}

TEST_F(ScriptTest, WhatCanNotBeRead) {
  const std::string missing = (directory.path() / "missing.vbs").string();
  EXPECT_EQ(Refused({"script", "check", missing}), "DIR/missing.vbs: cannot be read\n");
  EXPECT_EQ(Refused({"script", "run", directory.path().string()}), "DIR: cannot be read\n");
}

}  // namespace
}  // namespace qv
