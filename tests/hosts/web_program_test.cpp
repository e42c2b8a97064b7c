#include <gmock/gmock.h>
#include <signal.h>

#include <memory>

#include "tests/hosts/child_program.h"
#include "tests/hosts/web_client.h"

namespace qv::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

class WebProgram : public ::testing::Test {
 protected:
  // A browser that has redeemed the next address and opened a session.
  std::unique_ptr<WebClient> LetIn() {
    const std::string line = program_.Line();
    EXPECT_THAT(line, StartsWith("Open http://127.0.0.1:"));
    const auto at = line.find("/?token=");
    const auto port = static_cast<unsigned short>(std::stoi(line.substr(line.rfind(':', at) + 1)));
    auto client = std::make_unique<WebClient>(port);
    const std::string cookie = client->Get(line.substr(at, line.find(' ', at) - at)).headers["set-cookie"];
    cookie_ = cookie.substr(0, cookie.find(';'));
    EXPECT_EQ(client->Upgrade(cookie_).status, 101);
    EXPECT_THAT(client->ReadText(), StartsWith(R"({"state":{"tree":{"id":"servers",)"));
    return client;
  }
  static std::string Ask(WebClient& client, const std::string& message) {
    client.SendText(message);
    return client.ReadText();
  }

  DemoServer server_;
  ChildProgram program_{{"serve", "--data", server_.data()}};
  std::string cookie_;
};

TEST_F(WebProgram, ServesTheConsoleUntilItIsTerminated) {
  const auto client = LetIn();
  EXPECT_THAT(Ask(*client, R"({"do":"expand","node":"server:LOCALHOST","id":1})"), HasSubstr(R"("id":1)"));
  EXPECT_THAT(Ask(*client, "no json"), StartsWith(R"({"error":)"));
  kill(program_.id(), SIGTERM);
  const auto frame = client->ReadFrame();
  EXPECT_EQ(frame.opcode, 8);
  EXPECT_EQ(frame.code(), 1001);
  client->Leave();
  EXPECT_EQ(program_.Wait(), 0);
  EXPECT_EQ(program_.Errors(), "");
}

TEST_F(WebProgram, TwoBrowsersInDialogsDoNotMindEachOther) {
  const auto first = LetIn(), second = LetIn();
  for (WebClient* client : {first.get(), second.get()}) {
    Ask(*client, R"({"do":"expand","node":"server:LOCALHOST"})");
    Ask(*client, R"({"do":"select","node":"server:LOCALHOST/filters"})");
    Ask(*client, R"({"do":"menu","on":"node"})");
    EXPECT_THAT(Ask(*client, R"({"do":"choose","name":"mnuFilterAdd"})"), HasSubstr(R"("dialogs":[{)"));
  }
  first->Leave();
  EXPECT_THAT(Ask(*second, R"({"do":"close"})"), HasSubstr(R"("dialogs":[])"));
  kill(program_.id(), SIGINT);
  EXPECT_EQ(second->ReadFrame().code(), 1001);
  second->Leave();
  EXPECT_EQ(program_.Wait(), 0);
  EXPECT_EQ(program_.Errors(), "");
}

TEST_F(WebProgram, AWordFileIsWrittenBesideTheConsole) {
  const auto client = LetIn();
  const std::string path = server_.data() + R"(/config\\filters\\patterns\\QVFILTER-New.TXT)";
  const auto message = [&path](const std::string& what) {
    return R"({"file":)" + what + R"(,"path":")" + path + R"("})";
  };
  EXPECT_THAT(Ask(*client, message(R"("read")")), HasSubstr(R"("exists":false)"));
  EXPECT_THAT(Ask(*client, message(R"("write","text":"gr\u00fcn\n","version":"")")), HasSubstr(R"("version":")"));
  std::FILE* file = std::fopen((server_.data() + "/config/Filters/patterns/QVFILTER-New.TXT").c_str(), "rb");
  ASSERT_NE(file, nullptr);
  char bytes[16] = "";
  const std::size_t count = std::fread(bytes, 1, sizeof bytes, file);
  std::fclose(file);
  EXPECT_EQ(std::string(bytes, count), "gr\xFCn\r\n");
  EXPECT_THAT(Ask(*client, message(R"("read")")), HasSubstr("\"text\":\"gr\xC3\xBCn\\r\\n\""));
}

}  // namespace
}  // namespace qv::testing
