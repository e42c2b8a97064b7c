#include "app/server_options.h"

#include <CLI/CLI.hpp>

#include "app/data_directory.h"

namespace qv {

void AddServerOptions(CLI::App& command, ServerOptions& options) {
  AddDataOption(command, options.directory);
  command.add_option("--server", options.others, "A further server, administered as a remote one")
      ->type_name("NAME=DIR")
      ->take_all()
      ->check([](const std::string& text) {
        const std::size_t mark = text.find('=');
        const bool good = mark != std::string::npos && mark > 0 && mark + 1 < text.size();
        return good ? std::string() : "NAME=DIR is wanted, not '" + text + "'";
      });
}

std::unique_ptr<Servers> OpenServers(const ServerOptions& options) {
  auto servers = std::make_unique<Servers>(options.directory);
  for (const std::string& other : options.others) {
    const std::size_t mark = other.find('=');
    servers->Add(other.substr(0, mark), other.substr(mark + 1));
  }
  return servers;
}

}  // namespace qv
