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

class WebSessions : public WebTest {
 protected:
  // A browser with an open session, past the first message.
  std::unique_ptr<WebClient> Open(const std::string& cookie) {
    auto client = std::make_unique<WebClient>(port());
    EXPECT_EQ(client->Upgrade(cookie).status, 101);
    EXPECT_EQ(client->ReadText(), "first");
    return client;
  }
  // The close frame that comes next, if any. The browser closes the connection upon it.
  static WebClient::Frame Closing(WebClient& client) {
    WebClient::Frame frame;
    do frame = client.ReadFrame();
    while (frame.opcode != 8 && frame.opcode != -1);
    client.Leave();
    return frame;
  }
  bool Ended(int count) {
    return Eventually([this, count] { return ended_ == count; });
  }
};

TEST_F(WebSessions, MessagesGoToTheSessionAndBack) {
  Start();
  const auto client = Open(LetIn());
  const std::string large(300'000, 'x');
  for (const std::string& text : {std::string("{\"do\":\"select\"}"), std::string("\xC3\xA4\xE2\x82\xAC"),
                                  std::string(), large, std::string("short")}) {
    client->SendText(text);
    EXPECT_EQ(client->ReadText(), text);
  }
}

TEST_F(WebSessions, EachBrowserHasARunOfItsOwn) {
  Start({}, [](Carrier& carrier) {
    int count = 0;
    carrier.Send("first");
    while (carrier.Receive()) carrier.Send(std::to_string(++count));
  });
  const std::string cookie = LetIn();
  std::vector<std::unique_ptr<WebClient>> clients;
  for (int i = 0; i < 20; ++i) clients.push_back(Open(cookie));
  for (std::size_t i = 0; i < clients.size(); ++i) {
    for (std::size_t k = 0; k < i; ++k) clients[i]->SendText("x");
  }
  for (std::size_t i = 0; i < clients.size(); ++i) {
    for (std::size_t k = 0; k < i; ++k) EXPECT_EQ(clients[i]->ReadText(), std::to_string(k + 1));
  }
  EXPECT_EQ(started_, 20);
  clients.clear();
  EXPECT_TRUE(Ended(20));
}

TEST_F(WebSessions, ABrowserThatGoesAwayEndsItsRun) {
  Start();
  const std::string cookie = LetIn();
  auto idle = Open(cookie), inside = Open(cookie), polite = Open(cookie);
  inside->SendText("dialog");
  EXPECT_EQ(inside->ReadText(), "dialog");
  inside->SendText("still here");
  EXPECT_EQ(inside->ReadText(), "still here");
  EXPECT_EQ(ended_, 0);
  inside.reset();
  EXPECT_TRUE(Ended(1));
  idle.reset();
  EXPECT_TRUE(Ended(2));
  polite->SendFrame(8, std::string("\x03\xE8", 2));
  EXPECT_EQ(Closing(*polite).code(), 1000);
  EXPECT_TRUE(Ended(3));
  // And it can come again.
  const auto again = Open(cookie);
  again->SendText("hello");
  EXPECT_EQ(again->ReadText(), "hello");
}

TEST_F(WebSessions, ABusyRunIsInterruptedWhenItsBrowserGoes) {
  Start({}, [](Carrier& carrier) {
    carrier.Send("first");
    while (carrier.Receive()) {
      while (!*carrier.Interrupt()) std::this_thread::sleep_for(1ms);
    }
  });
  auto client = Open(LetIn());
  client->SendText("run");
  std::this_thread::sleep_for(50ms);
  EXPECT_EQ(ended_, 0);
  client.reset();
  EXPECT_TRUE(Ended(1));
}

TEST_F(WebSessions, AStopInterruptsWhatCameBeforeIt) {
  Start({}, [](Carrier& carrier) {
    carrier.Send("first");
    while (const auto message = carrier.Receive()) {
      bool interrupted = *carrier.Interrupt();
      const bool at_once = interrupted;
      while (*message == "run" && !interrupted) {
        std::this_thread::sleep_for(1ms);
        interrupted = *carrier.Interrupt();
      }
      carrier.Send(*message + (at_once ? " at once" : interrupted ? " stopped" : " done"));
    }
  });
  const auto client = Open(LetIn());
  client->SendText("run");
  client->SendText("waiting");
  std::this_thread::sleep_for(50ms);
  client->SendText("{\"stop\":true}");
  EXPECT_EQ(client->ReadText(), "run stopped");
  EXPECT_EQ(client->ReadText(), "waiting at once");
  client->SendText("next");
  EXPECT_EQ(client->ReadText(), "next done");
  // One that finds nothing to stop is forgotten, and what only looks like one is a message.
  client->SendText("{\"stop\":true}");
  client->SendText("{\"stop\":false}");
  EXPECT_EQ(client->ReadText(), "{\"stop\":false} done");
  client->SendText("{\"do\":\"set\",\"text\":\"\\\"stop\\\":true\"}");
  EXPECT_EQ(client->ReadText(), "{\"do\":\"set\",\"text\":\"\\\"stop\\\":true\"} done");
}

TEST_F(WebSessions, ATooLargeMessageCloses) {
  WebOptions options;
  options.max_message_bytes = 1000;
  Start(options);
  const auto client = Open(LetIn());
  client->SendText(std::string(1000, 'x'));
  EXPECT_EQ(client->ReadText(), std::string(1000, 'x'));
  client->SendText(std::string(1001, 'x'));
  EXPECT_EQ(Closing(*client).code(), 1009);
  EXPECT_TRUE(Ended(1));
}

TEST_F(WebSessions, OneMebibyteIsTheUsualLimit) {
  Start();
  const auto client = Open(LetIn());
  const std::string most(1 << 20, 'x');
  client->SendText(most);
  EXPECT_EQ(client->ReadText(), most);
  client->SendText(most + "x");
  EXPECT_EQ(Closing(*client).code(), 1009);
}

TEST_F(WebSessions, WhatIsNoTextCloses) {
  Start();
  const std::string cookie = LetIn();
  auto client = Open(cookie);
  client->SendFrame(2, "binary");
  EXPECT_EQ(Closing(*client).code(), 1003);
  client = Open(cookie);
  client->SendText("\xFF");
  EXPECT_EQ(Closing(*client).code(), 1007);
  EXPECT_TRUE(Ended(2));
}

TEST_F(WebSessions, ASilentBrowserIsPingedAndThenGivenUp) {
  WebOptions options;
  options.silence = 600ms;
  Start(options);
  const std::string cookie = LetIn();
  const auto silent = Open(cookie), alive = Open(cookie);
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < 4; ++i) {
    const auto frame = alive->ReadFrame();
    ASSERT_EQ(frame.opcode, 9);
    alive->SendFrame(10, frame.payload);
  }
  EXPECT_GT(std::chrono::steady_clock::now() - start, 900ms);
  EXPECT_TRUE(Ended(1));
  EXPECT_EQ(silent->ReadFrame().opcode, 9);
  EXPECT_EQ(silent->ReadFrame().opcode, -1);
  alive->SendText("hello");
  EXPECT_EQ(alive->ReadText(), "hello");
}

TEST_F(WebSessions, MoreSessionsThanAllowedAreRefused) {
  WebOptions options;
  options.max_sessions = 2;
  Start(options);
  const std::string cookie = LetIn();
  auto first = Open(cookie);
  const auto second = Open(cookie);
  WebClient third(port());
  EXPECT_EQ(third.Upgrade(cookie).status, 503);
  first.reset();
  EXPECT_TRUE(Ended(1));
  EXPECT_TRUE(Eventually([&] { return WebClient(port()).Upgrade(cookie).status == 101; }));
}

TEST_F(WebSessions, MoreConnectionsThanAllowedAreClosed) {
  WebOptions options;
  options.max_connections = 3;
  Start(options);
  const std::string cookie = LetIn();
  ASSERT_TRUE(Eventually([&] { return WebClient(port()).Get("/").status == 401; }));
  std::this_thread::sleep_for(50ms);
  WebClient a(port()), b(port()), c(port());
  EXPECT_EQ(a.Get("/").status, 401);
  EXPECT_EQ(b.Get("/").status, 401);
  EXPECT_EQ(c.Get("/").status, 401);
  WebClient d(port());
  EXPECT_EQ(d.Get("/").status, 0);
  EXPECT_EQ(a.Get("/").status, 401);
}

TEST_F(WebSessions, AFloodOfUnansweredMessagesCloses) {
  WebOptions options;
  options.limits.waiting_messages = 10;
  std::atomic<bool> go{false};
  Start(options, [&go](Carrier& carrier) {
    carrier.Send("first");
    while (!go) std::this_thread::sleep_for(1ms);
    while (carrier.Receive()) {
    }
  });
  const auto client = Open(LetIn());
  for (int i = 0; i < 11; ++i) client->SendText("x");
  const auto frame = Closing(*client);
  EXPECT_EQ(frame.code(), 1008);
  EXPECT_EQ(frame.reason(), "Too many messages wait for their answers.");
  go = true;
  EXPECT_TRUE(Ended(1));
}

TEST_F(WebSessions, ASessionWaitsForABrowserThatReadsSlowly) {
  WebOptions options;
  options.limits.unsent_bytes = 1 << 20;
  std::atomic<int> sent{0};
  Start(options, [&sent](Carrier& carrier) {
    carrier.Send("first");
    carrier.Receive();
    for (; sent < 100; ++sent) carrier.Send(std::string(1 << 20, 'x'));
    carrier.Receive();
  });
  const auto client = Open(LetIn());
  client->SendText("go");
  std::this_thread::sleep_for(300ms);
  // The system's own buffers take some.
  EXPECT_LT(sent, 50);
  for (int i = 0; i < 100; ++i) ASSERT_EQ(client->ReadText().size(), 1u << 20);
  EXPECT_EQ(sent, 100);
}

TEST_F(WebSessions, ASessionThatEndsOrFailsClosesItsBrowser) {
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

TEST_F(WebSessions, StoppingSaysGoodbyeToEveryBrowser) {
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

TEST_F(WebSessions, StoppingInTheMiddleOfAnUpgradeIsHarmless) {
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

TEST_F(WebSessions, StoppingDoesNotWaitForABrowserThatHangs) {
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

TEST_F(WebSessions, ASignalStopsTheServer) {
  for (const int signal : {SIGTERM, SIGINT}) {
    WebServer server(Echo, nullptr, kAssets, WebOptions(), out_);
    server.MindSignals();
    std::thread thread([&server] { server.Run(); });
    ASSERT_TRUE(Eventually([this] { return output_.Text().find('\n') != std::string::npos; }));
    kill(getpid(), signal);
    thread.join();
  }
}

TEST_F(WebSessions, EnterInTheTerminalPrintsAnotherAddress) {
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

TEST_F(WebSessions, ARequestThatDoesNotEndIsGivenUp) {
  WebOptions options;
  options.request_time = 200ms;
  Start(options);
  WebClient client(port());
  client.Write("GET / HTTP/1.1\r\nHost:");
  EXPECT_EQ(client.Read().status, 0);
}

TEST_F(WebSessions, BadRequestsAreRefused) {
  Start();
  const auto status = [this](const std::string& bytes) {
    WebClient client(port());
    client.Write(bytes);
    return client.Read().status;
  };
  EXPECT_EQ(status("hello\r\n\r\n"), 400);
  EXPECT_EQ(status("GET / HTTP/1.1\r\nHost 1\r\n\r\n"), 400);
  EXPECT_EQ(status("GET / HTTP/9.9\r\n\r\n"), 400);
  EXPECT_EQ(status("GET / HTTP/1.1\r\nX: " + std::string(20'000, 'x') + "\r\n\r\n"), 431);
  EXPECT_EQ(status("GET /" + std::string(100'000, 'x') + " HTTP/1.1\r\n\r\n"), 431);
}

TEST_F(WebSessions, AnAddressThatCannotBeHadIsTold) {
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
