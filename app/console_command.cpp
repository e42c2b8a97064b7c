#include <CLI/CLI.hpp>
#include <memory>

#include "app/commands.h"
#include "app/server_options.h"

#if __has_include("hosts/line/line_host.h")
#include "hosts/line/line_host.h"
#define QV_HAS_LINE_HOST 1
#endif

namespace qv {

void AddConsoleCommand(CLI::App& program, int& status) {
  auto options = std::make_shared<ServerOptions>();
  CLI::App* command = program.add_subcommand("console", "Run the console line by line, in JSON, for scripts");
  AddServerOptions(*command, *options);
  command->callback([options, &status] {
    const std::unique_ptr<Servers> servers = OpenServers(*options);
#ifdef QV_HAS_LINE_HOST
    status = RunLine(*servers);
#else
    status = 1;
    throw Refusal("this build has no console");
#endif
  });
}

}  // namespace qv
