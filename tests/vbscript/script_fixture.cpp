#include "tests/vbscript/script_fixture.h"

#include <vector>

namespace qv::vbscript {

Outcome RunScript(const std::string& script, const EngineOptions& options) {
  Outcome outcome;
  Engine engine(options);
  engine.RegisterFunction("Print", 0, -1, [&outcome](const std::vector<HostValue>& values) -> HostValue {
    for (std::size_t i = 0; i < values.size(); ++i) {
      if (i != 0) outcome.printed += ' ';
      if (const auto* text = std::get_if<std::string>(&values[i])) outcome.printed += *text;
      if (const auto* flag = std::get_if<bool>(&values[i])) outcome.printed += *flag ? "True" : "False";
      if (std::holds_alternative<std::nullptr_t>(values[i])) outcome.printed += "Null";
      if (const auto* number = std::get_if<double>(&values[i])) {
        const auto whole = static_cast<long long>(*number);
        outcome.printed += static_cast<double>(whole) == *number ? std::to_string(whole) : std::to_string(*number);
      }
    }
    outcome.printed += '\n';
    return {};
  });
  outcome.error = engine.AddCode(script);
  const std::optional<ScriptError> end_error = engine.End();
  if (!outcome.error) outcome.error = end_error;
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
