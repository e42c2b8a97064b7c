#include <csignal>

#include "hosts/console/session.h"
#include "hosts/line/line_host.h"

namespace qv {

int RunLine(Servers& servers) {
  // A reader that has gone is an end like any other.
  std::signal(SIGPIPE, SIG_IGN);
  return RunLine([&servers](Carrier& carrier) { RunSession(servers, carrier); }, stdin, stdout);
}

}  // namespace qv
