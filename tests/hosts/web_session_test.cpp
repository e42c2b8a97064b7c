#include <vector>

#include "tests/hosts/web_fixture.h"

namespace qv::testing {
namespace {

using namespace std::chrono_literals;

class WebSessions : public WebTest {};

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

}  // namespace
}  // namespace qv::testing
