#include "tests/vbscript/script_fixture.h"

#include <sstream>

#include "vbscript/script_command.h"

namespace qv::vbscript {

Outcome RunScript(const std::string& script, const EngineOptions& options) {
  Outcome outcome;
  std::ostringstream out;
  Engine engine(options);
  engine.RegisterFunction("Print", 0, -1, PrintTo(out));
  outcome.error = engine.AddCode(script);
  const std::optional<ScriptError> end_error = engine.End();
  if (!outcome.error) outcome.error = end_error;
  outcome.printed = out.str();
  return outcome;
}

std::string Told(const std::string& script, const EngineOptions& options) {
  const Outcome outcome = RunScript(script, options);
  if (!outcome.error) return outcome.printed;
  std::string told = outcome.printed;
  told.append("[").append(std::to_string(outcome.error->number));
  told.append(" at ").append(std::to_string(outcome.error->line));
  told.append(":").append(std::to_string(outcome.error->column)).append("]");
  return told;
}

std::string ValueOf(const std::string& expression) {
  const Outcome outcome = RunScript("Dim zz_v\nzz_v = " + expression +
                                    "\nIf IsNull(zz_v) Then\nPrint \"Null\"\nElseIf IsArray(zz_v) Then\nPrint \"[\" & "
                                    "Join(zz_v, \"|\") & \"]\"\nElse\n"
                                    "Print CStr(zz_v) & \" \" & TypeName(zz_v)\nEnd If\n");
  if (outcome.error) return std::string("!").append(std::to_string(outcome.error->number));
  return outcome.printed.substr(0, outcome.printed.size() - 1);
}

}  // namespace qv::vbscript
