#pragma once

#include <functional>
#include <iosfwd>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "hosts/console/carrier.h"
#include "hosts/web/assets.h"
#include "hosts/web/browser_carrier.h"
#include "hosts/web/text_files.h"
#include "hosts/web/transport.h"

namespace qv {

class Servers;

struct WebOptions : TransportOptions {
  // Further names, such as "admin.example.com", that the server answers to in an address.
  std::vector<std::string> host_names;
  // What is sent can be read on the way, so only this machine is served unless this says otherwise.
  bool allow_remote = false;
  std::size_t max_sessions = 200;
  std::size_t session_stack = 1 << 20;  // reserved for each session; what isn't used takes no memory
  BrowserCarrier::Limits limits;
};

// Serves the console to browsers: each WebSocket is a run of the session function on a thread of its own, which ends
// when the browser goes away. What it prints begins with the address to open.
class WebServer {
 public:
  using Session = std::function<void(Carrier&)>;

  // Listens. Raises RuntimeError when the address can't be had or may not be served.
  WebServer(Session session, OpenFiles files, std::span<const Asset> assets, WebOptions options, std::ostream& out);
  ~WebServer();

  unsigned short port() const;
  // Prints an address and serves until Stop or, when it minds them, a signal. Every session has ended on return.
  void Run();
  // From any thread while Run runs.
  void Stop();
  // Before Run: SIGINT and SIGTERM stop the server.
  void MindSignals();
  // Before Run: prints a fresh address for every Enter on this terminal.
  void MindTerminal(int terminal);

 private:
  class Site;
  std::unique_ptr<Transport> transport_;
  std::unique_ptr<Site> site_;
};

// Serves the servers' console until SIGINT or SIGTERM and returns the exit status. Raises RuntimeError as WebServer.
int RunWeb(Servers& servers, WebOptions options, std::ostream& out);

}  // namespace qv
