#include "tests/app/app_fixture.h"

namespace qv {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class ConsoleCommandTest : public AppTest {
 protected:
  void SetUp() override {
    Init();
    Out({"init", "--data", other});
  }
  std::string other = (directory.path() / "other").string();
};

TEST_F(ConsoleCommandTest, ShowsTheServersOfTheCommandLine) {
  const std::string out = Out({"console", "--data", data, "--server", "Branch=" + other, "--server", "Third=" + other});
  EXPECT_THAT(out, StartsWith("{\"state\":"));
  for (const char* id : {"server:LOCALHOST", "server:Branch", "server:Third"}) EXPECT_THAT(out, HasSubstr(id));
}

TEST_F(ConsoleCommandTest, RefusesServersThatItCantAdminister) {
  for (const char* command : {"console", "serve"}) {
    EXPECT_EQ(Refused({command, "--data", data, "--server", "LocalHost=" + other}),
              "qvadmin: The name 'LocalHost' is the local server's.\n");
    EXPECT_EQ(Refused({command, "--data", data, "--server", "A=" + other, "--server", "a=" + other}),
              "qvadmin: There is a server 'A' already.\n");
    EXPECT_EQ(Refused({command, "--data", data, "--server", "A=" + other + "/none"}),
              "qvadmin: The database 'DIR/other/none/quillvane.db' is missing.\n");
    EXPECT_EQ(Refused({command, "--data", directory.path().string()}),
              "qvadmin: The database 'DIR/quillvane.db' is missing.\n");
    EXPECT_EQ(Run({command, "--data", data, "--server", "A"}).status, 2);
    EXPECT_EQ(Run({command, "--data", data, "--server", "=" + other}).status, 2);
    EXPECT_EQ(Run({command}).status, 2);
  }
}

}  // namespace
}  // namespace qv
