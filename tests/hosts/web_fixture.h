#pragma once

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <mutex>
#include <sstream>
#include <string>
#include <thread>

#include "hosts/web/web_server.h"
#include "platform/runtime_error.h"
#include "tests/hosts/web_client.h"

namespace qv::testing {

// Output that another thread may look at.
class SharedOutput : public std::stringbuf {
 public:
  std::string Text() {
    std::lock_guard lock(mutex_);
    return text_;
  }

 protected:
  std::streamsize xsputn(const char* bytes, std::streamsize count) override {
    std::lock_guard lock(mutex_);
    text_.append(bytes, static_cast<std::size_t>(count));
    return count;
  }
  int overflow(int c) override {
    std::lock_guard lock(mutex_);
    text_ += static_cast<char>(c);
    return c;
  }

 private:
  std::mutex mutex_;
  std::string text_;
};

// A gzip file of the text "hello\n", without a name.
inline constexpr std::string_view kHelloGzip{
    "\x1f\x8b\x08\x00\x00\x00\x00\x00\x02\x03\xcb\x48\xcd\xc9\xc9\xe7\x02\x00\x20\x30\x3a\x36\x06\x00\x00\x00", 26};

inline constexpr Asset kAssets[] = {
    {"/index.html", "text/html; charset=utf-8", "aaa", kHelloGzip},
    {"/app.js", "text/javascript; charset=utf-8", "bbb", kHelloGzip},
    {"/help/filters.html", "text/html; charset=utf-8", "ccc", kHelloGzip},
    {"/broken.txt", "text/plain; charset=utf-8", "ddd", "no gzip"},
};

// The wait for something that another thread brings about.
template <class Condition>
bool Eventually(Condition&& condition) {
  for (int i = 0; i < 1000; ++i) {
    if (condition()) return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  return false;
}

// A server on a free port with a session of the test's own. The default one sends "first", echoes, and has a "dialog"
// that takes messages until "close".
class WebTest : public ::testing::Test {
 protected:
  ~WebTest() override { StopServer(); }

  void Start(const WebOptions& options = {}, WebServer::Session session = nullptr, OpenFiles files = nullptr) {
    server_ = std::make_unique<WebServer>(
        [this, session = std::move(session)](Carrier& carrier) {
          ++started_;
          struct Count {
            std::atomic<int>& ended;
            ~Count() { ++ended; }
          } count{ended_};
          session ? session(carrier) : Echo(carrier);
        },
        std::move(files), kAssets, options, out_);
    thread_ = std::thread([this] { server_->Run(); });
    ASSERT_TRUE(Eventually([this] { return output_.Text().find('\n') != std::string::npos; }));
  }

  void StopServer() {
    if (!thread_.joinable()) return;
    server_->Stop();
    thread_.join();
  }

  static void Echo(Carrier& carrier) {
    carrier.Send("first");
    while (const auto message = carrier.Receive()) {
      carrier.Send(*message);
      if (*message == "dialog") {
        for (std::string text; text != "close";) {
          const auto next = carrier.Receive();
          if (!next) throw RunEnded();
          carrier.Send(text = *next);
        }
      }
      if (*message == "end") return;
      if (*message == "fail") throw std::runtime_error("by order");
    }
  }

  unsigned short port() const { return server_->port(); }
  // The target of the address printed last.
  std::string TokenTarget() {
    const std::string text = output_.Text();
    const auto at = text.rfind("/?token=");
    return text.substr(at, text.find(' ', at) - at);
  }
  // The cookie of a browser that redeems the address printed last.
  std::string LetIn() {
    WebClient client(port());
    const std::string cookie = client.Get(TokenTarget()).headers["set-cookie"];
    return cookie.substr(0, cookie.find(';'));
  }
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
  std::string Origin() const { return "http://127.0.0.1:" + std::to_string(port()); }

  SharedOutput output_;
  std::ostream out_{&output_};
  std::atomic<int> started_{0}, ended_{0};
  std::unique_ptr<WebServer> server_;
  std::thread thread_;
};

}  // namespace qv::testing
