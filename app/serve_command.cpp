#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "app/commands.h"
#include "app/server_options.h"

#if __has_include("hosts/web/web_server.h")
#include "hosts/web/web_server.h"
#define QV_HAS_WEB_HOST 1
#endif

namespace qv {

namespace {

struct ServeOptions {
  ServerOptions servers;
  std::string address = "127.0.0.1";
  unsigned short port = 0;
};

}  // namespace

void AddServeCommand(CLI::App& program, int& status) {
  auto options = std::make_shared<ServeOptions>();
  CLI::App* command = program.add_subcommand("serve", "Serve the console to a browser");
  AddServerOptions(*command, options->servers);
  command->add_option("--address", options->address, "The address to listen on")->capture_default_str();
  command->add_option("--port", options->port, "The port to listen on; 0 takes any that is free")
      ->capture_default_str();
  command->callback([options, &status] {
    const std::unique_ptr<Servers> servers = OpenServers(options->servers);
#ifdef QV_HAS_WEB_HOST
    WebOptions web;
    web.address = options->address;
    web.port = options->port;
    status = RunWeb(*servers, web, std::cout);
#else
    status = 1;
    throw Refusal("this build has no web server");
#endif
  });
}

}  // namespace qv
