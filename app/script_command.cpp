#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "app/commands.h"
#include "vbscript/script_command.h"

namespace qv {

namespace {

using Command = int (*)(const std::string&, const vbscript::EngineOptions&, std::ostream&, std::ostream&);

void AddScriptCommand(CLI::App& group, const char* name, const char* description, Command command, int& status) {
  struct Input {
    std::string file;
    bool plain = false;
  };
  const auto input = std::make_shared<Input>();
  CLI::App* sub = group.add_subcommand(name, description);
  sub->add_option("FILE", input->file, "The script")->required();
  sub->add_flag("--plain", input->plain, "The plain language, without the rules of a criteria script's trial run");
  sub->callback([input, command, &status] {
    vbscript::EngineOptions options;
    options.bracketed_names = input->plain;
    options.safe_subset = !input->plain;
    options.procedures_clash = !input->plain;
    status = command(input->file, options, std::cout, std::cerr);
  });
}

}  // namespace

void AddScriptCommands(CLI::App& program, int& status) {
  CLI::App* group = program.add_subcommand("script", "Check or run a script in VBScript");
  group->require_subcommand(1);
  AddScriptCommand(*group, "check", "Compile a script and say where it is at fault", vbscript::ScriptCheck, status);
  AddScriptCommand(*group, "run", "Run a script, which may call Print", vbscript::ScriptRun, status);
}

}  // namespace qv
