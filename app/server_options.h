#pragma once

#include <memory>
#include <string>
#include <vector>

#include "store/servers.h"

namespace CLI {
class App;
}

namespace qv {

// The servers of a command line: the local one and those of --server NAME=DIR.
struct ServerOptions {
  std::string directory;
  std::vector<std::string> others;
};

void AddServerOptions(CLI::App& command, ServerOptions& options);

// Opens them. Raises RuntimeError.
std::unique_ptr<Servers> OpenServers(const ServerOptions& options);

}  // namespace qv
