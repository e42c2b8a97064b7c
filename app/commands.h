#pragma once

#include <stdexcept>
#include <string>

namespace CLI {
class App;
}

namespace qv {

// What a command refuses, in words for the person at the terminal.
class Refusal : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Each adds its commands to the program. A command's callback does its work, and raises Refusal or RuntimeError when it
// can't; a command with an exit status of its own leaves it in `status`.
void AddInitCommand(CLI::App& program);
void AddDataCommands(CLI::App& program);
void AddPostofficeCommands(CLI::App& program);
void AddMailboxCommands(CLI::App& program);
void AddConsoleCommand(CLI::App& program, int& status);
void AddServeCommand(CLI::App& program, int& status);
void AddScriptCommands(CLI::App& program, int& status);

}  // namespace qv
