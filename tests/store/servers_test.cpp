#include "store/servers.h"

#include <gmock/gmock.h>

#include "platform/runtime_error.h"
#include "tests/store/store_fixture.h"

namespace qv {
namespace {

class ServersTest : public StoreTest {
 protected:
  std::string Refused(const std::string& name) {
    try {
      servers.Add(name, remote_directory.path());
    } catch (const RuntimeError& error) {
      return error.description();
    }
    return "taken";
  }
};

TEST_F(ServersTest, TheLocalServerIsFirst) {
  EXPECT_EQ(Refused("Another"), "taken");
  EXPECT_THAT(servers.Names(), testing::ElementsAre("LOCALHOST", "Remote", "Another"));
}

TEST_F(ServersTest, NamesThatAreRefused) {
  EXPECT_EQ(Refused(""), "A server needs a name.");
  EXPECT_EQ(Refused("LocalHost"), "The name 'LocalHost' is the local server's.");
  EXPECT_EQ(Refused("REMOTE"), "There is a server 'Remote' already.");
  EXPECT_THAT(servers.Names(), testing::ElementsAre("LOCALHOST", "Remote"));
}

TEST_F(ServersTest, AServerWithoutADatabaseIsRefused) {
  TemporaryDirectory empty;
  EXPECT_THROW(servers.Add("Empty", empty.path()), RuntimeError);
  EXPECT_THROW(Servers{empty.path()}, RuntimeError);
  EXPECT_THAT(servers.Names(), testing::ElementsAre("LOCALHOST", "Remote"));
}

TEST_F(ServersTest, HostsAreFoundWithoutRegardToCase) {
  Database& local = servers.Of("");
  EXPECT_EQ(&servers.Of("LOCALHOST"), &local);
  EXPECT_EQ(&servers.Of("localHost"), &local);
  EXPECT_EQ(&servers.Of("rEMOTE"), &servers.Of("Remote"));
  EXPECT_NE(&servers.Of("Remote"), &local);
  EXPECT_THROW(servers.Of("Remote "), RuntimeError);
}

TEST_F(ServersTest, TheFilesAreThoseOfTheLocalServersDirectory) {
  std::filesystem::create_directory(directory.path() / "config");
  const auto registry = servers.MakeRegistry();
  const auto files = servers.MakeFiles();
  const std::string root = (directory.path() / "config").string();
  EXPECT_FALSE(files->FolderExists(root));
  registry->Write(R"(SOFTWARE\Quillvane\Quillvane)", "Configuration Directory", {RegistryKind::String, 0, root});
  EXPECT_TRUE(files->FolderExists(root));
  files->Write(root + "\\SPAMVAL.TAB", "text");
  EXPECT_TRUE(std::filesystem::exists(directory.path() / "config" / "SPAMVAL.TAB"));
}

}  // namespace
}  // namespace qv
