#include <gmock/gmock.h>
#include <pty.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <iostream>
#include <vector>

#include "tests/hosts/web_fixture.h"

namespace qv::testing {
namespace {

using namespace std::chrono_literals;

class WebEndings : public WebTest {};

TEST_F(WebEndings, ASessionThatEndsOrFailsClosesItsBrowser) {
  Start();
  const std::string cookie = LetIn();
  auto client = Open(cookie);
  client->SendText("end");
  EXPECT_EQ(client->ReadText(), "end");
  EXPECT_EQ(Closing(*client).code(), 1000);
  ::testing::internal::CaptureStderr();
  client = Open(cookie);
  client->SendText("fail");
  EXPECT_EQ(client->ReadText(), "fail");
  EXPECT_EQ(Closing(*client).code(), 1011);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "A session failed: by order\n");
}

TEST_F(WebEndings, StoppingSaysGoodbyeToEveryBrowser) {
  Start();
  const std::string cookie = LetIn();
  const auto idle = Open(cookie), inside = Open(cookie);
  inside->SendText("dialog");
  EXPECT_EQ(inside->ReadText(), "dialog");
  WebClient page(port());
  EXPECT_EQ(page.Get("/").status, 401);
  server_->Stop();
  for (WebClient* client : {idle.get(), inside.get()}) {
    const auto frame = Closing(*client);
    EXPECT_EQ(frame.code(), 1001);
    EXPECT_EQ(frame.reason(), "The server is stopping.");
  }
  thread_.join();
  EXPECT_EQ(ended_, 2);
  EXPECT_EQ(page.Get("/").status, 0);
}

TEST_F(WebEndings, StoppingInTheMiddleOfAnUpgradeIsHarmless) {
  for (int i = 0; i < 100; ++i) {
    Start();
    const std::string cookie = LetIn();
    std::vector<std::unique_ptr<WebClient>> clients;
    for (int k = 0; k < 10; ++k) {
      clients.push_back(std::make_unique<WebClient>(port()));
      clients.back()->Write("GET /console HTTP/1.1\r\nHost: " + clients.back()->host() + "\r\nOrigin: " + Origin() +
                            "\r\nCookie: " + cookie +
                            "\r\nUpgrade: websocket\r\nConnection: Upgrade\r\nSec-WebSocket-Version: 13\r\n"
                            "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\n\r\n");
    }
    // At ever later a moment, so that some stop comes while an upgrade is under way.
    std::this_thread::sleep_for(std::chrono::microseconds(4 * i));
    server_->Stop();
    clients.clear();
    thread_.join();
    EXPECT_EQ(started_, ended_);
  }
}

TEST_F(WebEndings, StoppingDoesNotWaitForABrowserThatHangs) {
  WebOptions options;
  options.farewell = 200ms;
  Start(options);
  const auto hanging = Open(LetIn());
  WebClient half(port());
  half.Write("GET / HTTP/1.1\r\n");
  const auto start = std::chrono::steady_clock::now();
  StopServer();
  EXPECT_LT(std::chrono::steady_clock::now() - start, 2s);
  EXPECT_EQ(ended_, 1);
}

TEST_F(WebEndings, ASignalStopsTheServer) {
  for (const int signal : {SIGTERM, SIGINT}) {
    WebServer server(Echo, nullptr, kAssets, WebOptions(), out_);
    server.MindSignals();
    std::thread thread([&server] { server.Run(); });
    ASSERT_TRUE(Eventually([this] { return output_.Text().find('\n') != std::string::npos; }));
    kill(getpid(), signal);
    thread.join();
  }
}

TEST_F(WebEndings, EnterInTheTerminalPrintsAnotherAddress) {
  int terminal = -1;
  const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
  if (child == 0) {
    alarm(20);
    WebServer server(Echo, nullptr, kAssets, WebOptions(), std::cout);
    server.MindSignals();
    server.MindTerminal(STDIN_FILENO);
    server.Run();
    std::cout << "ended" << std::endl;
    _exit(7);
  }
  std::FILE* screen = fdopen(terminal, "r+");
  const auto line = [screen] {
    char text[256] = "";
    return std::string(std::fgets(text, sizeof text, screen) ? text : "");
  };
  const std::string first = line();
  EXPECT_THAT(first, ::testing::EndsWith(" in your browser.\r\n"));
  EXPECT_EQ(line(), "Press Enter for another address, Ctrl+C to end.\r\n");
  ASSERT_EQ(write(terminal, "\n", 1), 1);
  EXPECT_EQ(line(), "\r\n");  // the terminal's echo
  const std::string second = line();
  EXPECT_THAT(second, ::testing::EndsWith(" in another browser.\r\n"));
  EXPECT_NE(first.substr(0, 100), second.substr(0, 100));
  // Redeeming prints nothing by itself here.
  const auto colon = first.find(':', first.find("127.0.0.1"));
  WebClient client(static_cast<unsigned short>(std::stoi(first.substr(colon + 1))));
  const auto at = second.find("/?token=");
  EXPECT_EQ(client.Get(second.substr(at, second.find(' ', at) - at)).status, 303);
  ASSERT_EQ(write(terminal, "\x03", 1), 1);  // Ctrl+C
  EXPECT_THAT(line(), ::testing::EndsWith("ended\r\n"));
  int status = -1;
  waitpid(child, &status, 0);
  EXPECT_EQ(WEXITSTATUS(status), 7);
  std::fclose(screen);
}

TEST_F(WebEndings, AnAddressThatCannotBeHadIsTold) {
  const auto reason = [this](const WebOptions& options) -> std::string {
    try {
      WebServer server(Echo, nullptr, kAssets, options, out_);
    } catch (const RuntimeError& error) {
      return error.description();
    }
    return "";
  };
  Start();
  WebOptions taken;
  taken.port = port();
  EXPECT_EQ(reason(taken),
            "The server cannot listen on 127.0.0.1, port " + std::to_string(port()) + ": Address already in use.");
  WebOptions remote;
  remote.address = "0.0.0.0";
  EXPECT_EQ(reason(remote),
            "The address 0.0.0.0 can be reached from other machines, and what is sent there could be read on the way.");
  remote.allow_remote = true;
  EXPECT_EQ(reason(remote), "");
  remote.address = "no address";
  EXPECT_EQ(reason(remote), "The server cannot listen on no address, port 0: Invalid argument.");
}

}  // namespace
}  // namespace qv::testing
