#include <gmock/gmock.h>

#include "tests/hosts/web_fixture.h"

namespace qv::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

class WebPages : public WebTest {
 protected:
  // The status of a GET with exactly these header lines.
  int Status(const std::string& path, const std::string& headers, const std::string& method = "GET") {
    WebClient client(port());
    client.Write(method + " " + path + " HTTP/1.1\r\n" + headers + "\r\n");
    return client.Read(method == "HEAD").status;
  }
  std::string Host() const { return "Host: 127.0.0.1:" + std::to_string(port()) + "\r\n"; }
};

TEST_F(WebPages, TheFirstLineIsTheAddressToOpen) {
  Start();
  EXPECT_THAT(output_.Text(), ::testing::MatchesRegex("Open http://127\\.0\\.0\\.1:" + std::to_string(port()) +
                                                      "/\\?token=[0-9a-f]{64} in your browser\\.\n"));
}

TEST_F(WebPages, TheAddressLetsOneBrowserIn) {
  Start();
  const std::string target = TokenTarget();
  WebClient first(port()), second(port());
  auto reply = first.Get(target);
  EXPECT_EQ(reply.status, 303);
  EXPECT_EQ(reply.headers["location"], "/");
  EXPECT_EQ(reply.headers["cache-control"], "no-store");
  EXPECT_EQ(reply.headers["referrer-policy"], "no-referrer");
  EXPECT_THAT(reply.headers["set-cookie"], ::testing::MatchesRegex("qv_session_" + std::to_string(port()) +
                                                                   "=[0-9a-f]{64}; HttpOnly; SameSite=Strict; Path=/"));
  const std::string cookie = reply.headers["set-cookie"].substr(0, reply.headers["set-cookie"].find(';'));
  EXPECT_EQ(first.Get("/", "Cookie: " + cookie + "\r\n").status, 200);

  reply = second.Get(target);
  EXPECT_EQ(reply.status, 403);
  EXPECT_EQ(reply.headers.count("set-cookie"), 0u);
  EXPECT_THAT(reply.body, HasSubstr("Open the address that the program prints"));
  // In the browser that has been let in, the address leads to the console again.
  reply = second.Get(target, "Cookie: " + cookie + "\r\n");
  EXPECT_EQ(reply.status, 303);
  EXPECT_EQ(reply.headers.count("set-cookie"), 0u);
}

TEST_F(WebPages, AnotherAddressIsPrintedOnceOneIsUsed) {
  Start();
  const std::string first = LetIn();
  ASSERT_TRUE(Eventually([this] { return output_.Text().find("in another browser.\n") != std::string::npos; }));
  const std::string second = LetIn();
  EXPECT_EQ(second.size(), first.size());
  EXPECT_NE(second, first);
  EXPECT_EQ(Status("/", Host() + "Cookie: " + first + "\r\n"), 200);
  EXPECT_EQ(Status("/", Host() + "Cookie: " + second + "\r\n"), 200);
}

TEST_F(WebPages, AHeadRequestUsesNoAddressUp) {
  Start();
  EXPECT_EQ(Status(TokenTarget(), Host(), "HEAD"), 401);
  EXPECT_EQ(Status(TokenTarget(), Host()), 303);
}

TEST_F(WebPages, NothingIsShownWithoutACookie) {
  Start();
  const std::string cookie = LetIn();
  for (const char* path : {"/", "/app.js", "/console", "/help/filters.html", "/nothing", "/?tokens=1"}) {
    EXPECT_EQ(Status(path, Host()), 401) << path;
    EXPECT_EQ(Status(path, Host() + "Cookie: qv_session=1; a; =\r\n"), 401) << path;
  }
  const std::string other = "qv_session_1" + cookie.substr(cookie.find('='));
  EXPECT_EQ(Status("/", Host() + "Cookie: " + other + "\r\n"), 401);
  EXPECT_EQ(Status("/", Host() + "Cookie: " + cookie.substr(0, cookie.size() - 1) + "\r\n"), 401);
  EXPECT_EQ(Status("/", Host() + "Cookie: " + cookie.substr(0, cookie.find('=') + 1) + "\r\n"), 401);
  EXPECT_EQ(Status("/", Host() + "Cookie: a=b; " + cookie + "; c=d\r\n"), 200);
  EXPECT_EQ(Status("/", Host() + "Cookie: a=b\r\nCookie: " + cookie + "\r\n"), 200);
  WebClient client(port());
  EXPECT_THAT(client.Get("/").body, HasSubstr("Open the address that the program prints"));
}

TEST_F(WebPages, WhatIsAskedIsAnswered) {
  Start();
  const std::string known = Host() + "Cookie: " + LetIn() + "\r\n";
  EXPECT_EQ(Status("/", known), 200);
  EXPECT_EQ(Status("/index.html", known), 200);
  EXPECT_EQ(Status("/app.js?v=1", known), 200);
  EXPECT_EQ(Status("/help/filters.html", known), 200);
  EXPECT_EQ(Status("/help/other.html", known), 404);
  EXPECT_EQ(Status("/nothing", known), 404);
  EXPECT_EQ(Status("/app.js/", known), 404);
  EXPECT_EQ(Status("//app.js", known), 404);
  EXPECT_EQ(Status("/help/../app.js", known), 404);
  EXPECT_EQ(Status("/../../etc/passwd", known), 404);
  EXPECT_EQ(Status("/%2e%2e/app.js", known), 404);
  EXPECT_EQ(Status("http://" + Origin() + "/", known), 404);
  EXPECT_EQ(Status("/console", known), 426);
  EXPECT_EQ(Status("/", known, "HEAD"), 200);
  for (const char* method : {"POST", "PUT", "DELETE", "OPTIONS", "TRACE", "PATCH", "BREW"})
    EXPECT_EQ(Status("/", known, method), 405) << method;
  EXPECT_EQ(Status("/", known + "Content-Length: 5\r\n", "POST"), 405);
}

TEST_F(WebPages, AHostOfAnotherNameIsRefused) {
  Start();
  const std::string cookie = "Cookie: " + LetIn() + "\r\n";
  const std::string mine = ":" + std::to_string(port());
  for (const char* name : {"127.0.0.1", "localhost", "LocalHost", "[::1]"})
    EXPECT_EQ(Status("/", "Host: " + std::string(name) + mine + "\r\n" + cookie), 200) << name;
  const std::string wrong[] = {
      "127.0.0.1", "localhost",        "127.0.0.1:1",       "localhost:80",   "example.com" + mine,
      "[::1]",     "127.0.0.2" + mine, "localhost." + mine, "0.0.0.0" + mine, "x@localhost" + mine};
  for (const std::string& host : wrong) {
    EXPECT_EQ(Status("/", "Host: " + host + "\r\n" + cookie), 421) << host;
    EXPECT_EQ(Status(TokenTarget(), "Host: " + host + "\r\n"), 421) << host;
  }
  EXPECT_EQ(Status("/", cookie), 400);
  EXPECT_EQ(Status("/", Host() + Host() + cookie), 400);
  // The address was not used up by any of it.
  EXPECT_EQ(Status(TokenTarget(), Host()), 303);
}

TEST_F(WebPages, AHostNameThatTheServerIsGivenCounts) {
  WebOptions options;
  options.host_names = {"Admin.example.com"};
  Start(options);
  EXPECT_THAT(output_.Text(), StartsWith("Open http://admin.example.com:" + std::to_string(port()) + "/?token="));
  const std::string cookie = "Cookie: " + LetIn() + "\r\n";
  EXPECT_EQ(Status("/", "Host: admin.EXAMPLE.com:" + std::to_string(port()) + "\r\n" + cookie), 200);
  EXPECT_EQ(Status("/", "Host: example.com:" + std::to_string(port()) + "\r\n" + cookie), 421);
}

TEST_F(WebPages, AFileThatCannotBeUnpackedIsAnErrorOfTheServer) {
  Start();
  const std::string known = Host() + "Cookie: " + LetIn() + "\r\n";
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(Status("/broken.txt", known), 500);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "A request failed: An embedded file is damaged.\n");
  EXPECT_EQ(Status("/", known), 200);
}

TEST_F(WebPages, ASocketOpensFromOwnPagesOnly) {
  Start();
  const std::string cookie = "Cookie: " + LetIn() + "\r\n";
  const std::string upgrade =
      "Upgrade: websocket\r\nConnection: Upgrade\r\nSec-WebSocket-Version: 13\r\nSec-WebSocket-Key: "
      "dGhlIHNhbXBsZSBub25jZQ==\r\n";
  const std::string mine = ":" + std::to_string(port());
  const std::string wrong[] = {"http://127.0.0.1:1",
                               "http://127.0.0.1",
                               "https://127.0.0.1" + mine,
                               "http://localhost" + mine,
                               "http://example.com" + mine,
                               "null",
                               "http://127.0.0.1" + mine + "/",
                               "127.0.0.1" + mine};
  for (const std::string& origin : wrong)
    EXPECT_EQ(Status("/console", Host() + cookie + upgrade + "Origin: " + origin + "\r\n"), 403) << origin;
  EXPECT_EQ(Status("/console", Host() + cookie + upgrade), 403);
  const std::string right = "Origin: " + Origin() + "\r\n";
  EXPECT_EQ(Status("/console", Host() + cookie + upgrade + right + right), 403);
  EXPECT_EQ(Status("/console", Host() + upgrade + right), 401);
  EXPECT_EQ(Status("/console", Host() + cookie + upgrade + right), 101);
  EXPECT_EQ(Status("/console",
                   "Host: localhost" + mine + "\r\n" + cookie + upgrade + "Origin: http://localhost" + mine + "\r\n"),
            101);
  EXPECT_EQ(Status("/other", Host() + cookie + upgrade + right), 404);
  EXPECT_TRUE(Eventually([this] { return started_ == 2; }));
}

TEST_F(WebPages, PagesCarryTheProtectiveHeaders) {
  Start();
  const std::string cookie = "Cookie: " + LetIn() + "\r\n";
  WebClient client(port());
  for (auto reply : {client.Get("/", cookie), client.Get("/nothing", cookie), client.Get("/"), client.Get("/?token=1"),
                     client.Get(TokenTarget()), client.Get("/app.js", cookie + "If-None-Match: *\r\n")}) {
    EXPECT_EQ(reply.headers["content-security-policy"],
              "default-src 'none'; script-src 'self'; style-src 'self'; style-src-attr 'unsafe-inline'; connect-src "
              "'self'; img-src 'self' data:; font-src 'self'; base-uri 'none'; form-action 'self'; frame-ancestors "
              "'none'; require-trusted-types-for 'script'");
    EXPECT_EQ(reply.headers["x-content-type-options"], "nosniff");
    EXPECT_EQ(reply.headers["referrer-policy"], "no-referrer");
    EXPECT_EQ(reply.headers["cross-origin-opener-policy"], "same-origin");
    EXPECT_EQ(reply.headers["cross-origin-resource-policy"], "same-origin");
    EXPECT_EQ(reply.headers["connection"], "keep-alive");
    EXPECT_THAT(reply.headers["date"], ::testing::EndsWith(" GMT"));
  }
}

TEST_F(WebPages, AnAssetComesCompressedAndOnce) {
  Start();
  const std::string cookie = "Cookie: " + LetIn() + "\r\n";
  WebClient client(port());
  auto reply = client.Get("/app.js", cookie);
  EXPECT_EQ(reply.status, 200);
  EXPECT_EQ(reply.headers["content-type"], "text/javascript; charset=utf-8");
  EXPECT_EQ(reply.headers["content-encoding"], "gzip");
  EXPECT_EQ(reply.headers["cache-control"], "no-cache");
  EXPECT_EQ(reply.headers["vary"], "Accept-Encoding");
  EXPECT_EQ(reply.headers["etag"], "\"bbb\"");
  EXPECT_EQ(reply.headers["content-length"], "26");
  EXPECT_EQ(reply.body, kHelloGzip);
  for (const char* held : {"\"bbb\"", "W/\"bbb\"", "\"x\", \"bbb\"", "*"}) {
    reply = client.Get("/app.js", cookie + "If-None-Match: " + held + "\r\n");
    EXPECT_EQ(reply.status, 304) << held;
    EXPECT_EQ(reply.headers["etag"], "\"bbb\"");
    EXPECT_EQ(reply.headers.count("content-length"), 0u);
  }
  EXPECT_EQ(client.Get("/app.js", cookie + "If-None-Match: \"bbbb\"\r\n").status, 200);
  client.Write("HEAD /app.js HTTP/1.1\r\n" + Host() + "Accept-Encoding: gzip\r\n" + cookie + "\r\n");
  reply = client.Read(true);
  EXPECT_EQ(reply.headers["content-length"], "26");
  // The connection stands in the right place for the next.
  EXPECT_EQ(client.Get("/", cookie).status, 200);
}

TEST_F(WebPages, AClientWithoutGzipGetsTheTextItself) {
  Start();
  const std::string cookie = "Cookie: " + LetIn() + "\r\n";
  WebClient client(port());
  client.Write("GET /app.js HTTP/1.1\r\n" + Host() + cookie + "\r\n");
  auto reply = client.Read();
  EXPECT_EQ(reply.status, 200);
  EXPECT_EQ(reply.headers.count("content-encoding"), 0u);
  EXPECT_EQ(reply.headers["etag"], "\"bbb-plain\"");
  EXPECT_EQ(reply.body, "hello\n");
}

}  // namespace
}  // namespace qv::testing
