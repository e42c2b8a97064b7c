#include "tests/hosts/web_fixture.h"

namespace qv::testing {
namespace {

using namespace std::chrono_literals;

class WebLimits : public WebTest {};

TEST_F(WebLimits, MoreSessionsThanAllowedAreRefused) {
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

TEST_F(WebLimits, MoreConnectionsThanAllowedAreClosed) {
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

TEST_F(WebLimits, AFloodOfUnansweredMessagesCloses) {
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

TEST_F(WebLimits, ASessionWaitsForABrowserThatReadsSlowly) {
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

TEST_F(WebLimits, ARequestThatDoesNotEndIsGivenUp) {
  WebOptions options;
  options.request_time = 200ms;
  Start(options);
  WebClient client(port());
  client.Write("GET / HTTP/1.1\r\nHost:");
  EXPECT_EQ(client.Read().status, 0);
}

TEST_F(WebLimits, BadRequestsAreRefused) {
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

}  // namespace
}  // namespace qv::testing
