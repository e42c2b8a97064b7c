#include "vbscript/script_command.h"

#include <optional>

#include "vbscript/convert.h"
#include "vbscript/text.h"

namespace qv::vbscript {
namespace {

int Report(const std::string& path, const std::optional<ScriptError>& error, std::ostream& err) {
  if (!error) return 0;
  err << path << ':' << error->line << ':' << error->column + 1 << ": error " << error->number << ": "
      << error->description << '\n';
  return 1;
}

// A value as Print shows it.
struct Printer {
  std::ostream& out;
  void operator()(std::monostate) const {}
  void operator()(std::nullptr_t) const { out << "Null"; }
  void operator()(bool value) const { out << (value ? "True" : "False"); }
  void operator()(double value) const { out << ToUtf8(NumberText(value, 15, u'.')); }
  void operator()(const std::string& value) const { out << value; }
};

}  // namespace

int ScriptCheck(const std::string& path, const std::string& text, const EngineOptions& options, std::ostream&,
                std::ostream& err) {
  return Report(path, Engine(options).Check(text), err);
}

HostFunction PrintTo(std::ostream& out) {
  return [&out](const std::vector<HostValue>& values) -> HostValue {
    const char* separator = "";
    for (const HostValue& value : values) {
      out << separator;
      std::visit(Printer{out}, value);
      separator = " ";
    }
    out << '\n';
    return {};
  };
}

int ScriptRun(const std::string& path, const std::string& text, const EngineOptions& options, std::ostream& out,
              std::ostream& err) {
  Engine engine(options);
  engine.RegisterFunction("Print", 0, -1, PrintTo(out));
  const std::optional<ScriptError> error = engine.AddCode(text);
  const std::optional<ScriptError> end_error = engine.End();
  return Report(path, error ? error : end_error, err);
}

}  // namespace qv::vbscript
