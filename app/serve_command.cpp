#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "app/commands.h"
#include "app/server_options.h"
#include "hosts/web/web_server.h"

namespace qv {

namespace {

struct ServeOptions {
  ServerOptions servers;
  WebOptions web;
};

}  // namespace

void AddServeCommand(CLI::App& program, int& status) {
  auto options = std::make_shared<ServeOptions>();
  WebOptions& web = options->web;
  CLI::App* command = program.add_subcommand("serve", "Serve the console to a browser");
  AddServerOptions(*command, options->servers);
  command->add_option("--address", web.address, "The address to listen on")->capture_default_str();
  command->add_option("--port", web.port, "The port to listen on; 0 takes any that is free")->capture_default_str();
  command->add_option("--host-name", web.host_names, "A further name that the server answers to")->take_all();
  command->add_option("--max-sessions", web.max_sessions, "How many browsers may be connected at once")
      ->check(CLI::Range(1, 100000))
      ->capture_default_str();
  command->add_flag("--allow-remote", web.allow_remote,
                    "Serve other machines too; what is sent can be read on the way");
  command->callback([options, &status] { status = RunWeb(*OpenServers(options->servers), options->web, std::cout); });
}

}  // namespace qv
