#include <CLI/CLI.hpp>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "app/commands.h"
#include "desktop/code_page.h"
#include "platform/text.h"
#include "vbscript/script_command.h"

namespace qv {

namespace {

// The text of a script's file: UTF-8, or else the code page in which the servers keep their scripts.
std::optional<std::string> ReadScript(const std::string& path) {
  std::error_code none;
  std::ifstream file(path, std::ios::binary);
  if (!file || std::filesystem::is_directory(path, none)) {
    std::cerr << path << ": cannot be read\n";
    return std::nullopt;
  }
  std::string bytes(std::istreambuf_iterator<char>(file), {});
  return ValidUtf8(bytes) == bytes ? std::move(bytes) : FromCodePage(bytes);
}

void AddScriptCommand(CLI::App& group, const char* name, const char* description,
                      decltype(vbscript::ScriptRun)* command, int& status) {
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
    const std::optional<std::string> text = ReadScript(input->file);
    status = text ? command(input->file, *text, options, std::cout, std::cerr) : 1;
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
