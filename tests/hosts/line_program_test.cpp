#include <gmock/gmock.h>

#include "tests/hosts/child_program.h"

namespace qv::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

class LineProgram : public ::testing::Test {
 protected:
  void End(int status = 0) {
    console_.CloseInput();
    EXPECT_EQ(console_.Line(), "");
    EXPECT_EQ(console_.Errors(), "");
    EXPECT_EQ(console_.Wait(), status);
  }
  std::string Ask(const std::string& line) {
    console_.Write(line + "\n");
    return console_.Line();
  }

  DemoServer server_;
  ChildProgram console_{{"console", "--data", server_.data()}};
};

TEST_F(LineProgram, StartsWithAStateAndEndsWithTheInput) {
  EXPECT_THAT(console_.Line(), StartsWith(R"({"state":{"tree":{"id":"servers",)"));
  End();
}

TEST_F(LineProgram, AnswersABadLineWithAnErrorAndGoesOn) {
  console_.Line();
  for (const char* bad : {"", "no json", "[1]", "{\"do\":", "\xFF"})
    EXPECT_THAT(Ask(bad), StartsWith(R"({"error":)")) << bad;
  EXPECT_THAT(Ask(R"({"do":"nothing","id":5})"), HasSubstr(R"("id":5)"));
  EXPECT_THAT(Ask(R"({"do":"expand","node":"server:LOCALHOST","id":6})"), StartsWith(R"({"state":)"));
  End();
}

TEST_F(LineProgram, EndsInsideADialog) {
  console_.Line();
  Ask(R"({"do":"expand","node":"server:LOCALHOST"})");
  Ask(R"({"do":"select","node":"server:LOCALHOST/filters"})");
  Ask(R"({"do":"menu","on":"node"})");
  EXPECT_THAT(Ask(R"({"do":"choose","name":"mnuFilterAdd"})"), HasSubstr(R"("dialogs":[{)"));
  End();
}

TEST_F(LineProgram, EndsQuietlyWhenNobodyReads) {
  console_.Line();
  console_.CloseOutput();
  console_.Write("{\"do\":\"expand\",\"node\":\"server:LOCALHOST\"}\n");
  EXPECT_EQ(console_.Errors(), "");
  EXPECT_EQ(console_.Wait(), 0);
}

}  // namespace
}  // namespace qv::testing
