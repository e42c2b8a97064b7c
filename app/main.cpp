#include <CLI/CLI.hpp>
#include <csignal>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "app/commands.h"

namespace {

constexpr int kRefused = 1, kUsedWrongly = 2;

int Run(int argc, char** argv) {
  CLI::App program("Administers the message filters of a mail server.", "qvadmin");
  program.require_subcommand(1);
  program.set_version_flag("--version", "qvadmin " QV_VERSION);
  int status = 0;
  qv::AddInitCommand(program);
  qv::AddConsoleCommand(program, status);
  qv::AddServeCommand(program, status);
  qv::AddDataCommands(program);
  qv::AddPostofficeCommands(program);
  qv::AddMailboxCommands(program);
  qv::AddScriptCommands(program, status);
  try {
    program.parse(argc, argv);
  } catch (const CLI::RequiredError& error) {
    // A word that has no place tells more of what went wrong than what is missing.
    const std::vector<std::string> extras = program.remaining(true);
    extras.empty() ? program.exit(error) : program.exit(CLI::ExtrasError(extras));
    return kUsedWrongly;
  } catch (const CLI::ParseError& error) {
    return program.exit(error) == 0 ? 0 : kUsedWrongly;
  }
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  // A file that grows beyond its limit is an error of the write, not the end of the program.
  std::signal(SIGXFSZ, SIG_IGN);
  try {
    const int status = Run(argc, argv);
    std::cout.flush();
    if (std::cout) return status;
    std::cerr << "qvadmin: the output can't be written\n";
  } catch (const std::exception& error) {
    std::cerr << "qvadmin: " << error.what() << "\n";
  }
  return kRefused;
}
