#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <ostream>

#include "hosts/console/session.h"
#include "hosts/web/web_server.h"
#include "store/servers.h"

namespace qv {
namespace {

constexpr std::size_t kPages = 300;

}  // namespace

int RunWeb(Servers& servers, WebOptions options, std::ostream& out) {
  // Pages are fetched beside the sessions.
  options.max_connections = std::max(options.max_connections, options.max_sessions + kPages);
  // A reader of the output that goes away must not take the sessions along.
  std::signal(SIGPIPE, SIG_IGN);
  // Sessions mostly wait: a heap for each core would only scatter what they keep.
  mallopt(M_ARENA_MAX, 4);
  WebServer server([&servers](Carrier& carrier) { RunSession(servers, carrier); },
                   [&servers] { return servers.MakeFiles(); }, EmbeddedAssets(), options, out);
  server.MindSignals();
  if (isatty(STDIN_FILENO)) server.MindTerminal(STDIN_FILENO);
  server.Run();
  return 0;
}

}  // namespace qv
