#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qv {

// What lies between the sockets and the site that answers on them, so that a site knows nothing of the library that
// carries it. Everything here is called on the one thread that runs the transport, unless it says otherwise.

struct WebRequest {
  std::string_view method;
  std::string_view target;                 // the path with its query, as given
  std::optional<std::string_view> host;    // nothing when the header is missing or given several times
  std::optional<std::string_view> origin;  // likewise
  std::string cookies;                     // all cookie headers, separated by ";"
  std::string_view if_none_match;
  std::string_view accept_encoding;
  bool upgrade = false;  // wants to become a WebSocket
};

struct WebReply {
  int status = 200;
  std::vector<std::pair<std::string_view, std::string>> headers;  // all but the length and the connection's
  std::string text;                                               // the body
  std::string_view bytes;                                         // the body, when it lasts as long as the program
  bool session = false;  // the request becomes a session; nothing else counts then
};

// A browser at the other end of a WebSocket.
class WebPeer {
 public:
  virtual ~WebPeer() = default;
  virtual void Send(std::string message) = 0;
  // Tells the browser why, and goes on to WebSession::Gone.
  virtual void Close(int code, std::string_view reason) = 0;
};

class WebSession {
 public:
  virtual ~WebSession() = default;
  virtual void Take(std::string message) = 0;
  // A message of so many bytes has left.
  virtual void Sent(std::size_t bytes) = 0;
  // The browser has gone. The last call.
  virtual void Gone() = 0;
};

class WebSite {
 public:
  virtual ~WebSite() = default;
  virtual WebReply Answer(const WebRequest& request) = 0;
  // Starts a session. Raises RuntimeError when that cannot be.
  virtual std::shared_ptr<WebSession> Open(std::weak_ptr<WebPeer> peer) = 0;
};

struct TransportOptions {
  std::string address = "127.0.0.1";
  unsigned short port = 0;  // 0 takes any that is free
  std::size_t max_connections = 500;
  std::size_t max_header_bytes = 16 << 10;
  std::size_t max_message_bytes = 1 << 20;
  std::chrono::milliseconds request_time{15'000};  // for a request to come, and for its answer to leave
  std::chrono::milliseconds silence{30'000};       // of a WebSocket before it is given up; half-way it is pinged
  std::chrono::milliseconds farewell{3'000};       // for the connections to close at the end
};

class Transport {
 public:
  virtual ~Transport() = default;
  virtual unsigned short port() const = 0;
  // Serves the site until Stop, and returns when the connections are closed and every session has been told.
  virtual void Run(WebSite& site) = 0;
  // Has the work done by the thread that runs the transport. From any thread; once Run has returned nothing more is
  // done.
  virtual void Post(std::function<void()> work) = 0;
  // Closes the door and every connection.
  virtual void Stop() = 0;
  // Stops at SIGINT and SIGTERM, the first time; a second one takes the program's default way.
  virtual void StopOnSignals() = 0;
  // Calls the handler for every line that comes in on a terminal.
  virtual void OnLine(int terminal, std::function<void()> handler) = 0;
};

// Listens for plain HTTP. Raises RuntimeError when the address or the port can't be had.
std::unique_ptr<Transport> ListenPlain(const TransportOptions& options);

}  // namespace qv
