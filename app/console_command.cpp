#include <CLI/CLI.hpp>
#include <memory>

#include "app/commands.h"
#include "app/server_options.h"
#include "hosts/line/line_host.h"

namespace qv {

void AddConsoleCommand(CLI::App& program, int& status) {
  auto options = std::make_shared<ServerOptions>();
  CLI::App* command = program.add_subcommand("console", "Run the console line by line, in JSON, for scripts");
  AddServerOptions(*command, *options);
  command->callback([options, &status] { status = RunLine(*OpenServers(*options)); });
}

}  // namespace qv
