#include "vbscript/script_command.h"

#include <fstream>
#include <iterator>
#include <optional>

#include "vbscript/convert.h"
#include "vbscript/text.h"

namespace qv::vbscript {
namespace {

std::optional<std::string> ReadScript(const std::string& path, std::ostream& err) {
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    err << path << ": cannot be read\n";
    return std::nullopt;
  }
  return std::string(std::istreambuf_iterator<char>(file), {});
}

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

int ScriptCheck(const std::string& path, const EngineOptions& options, std::ostream&, std::ostream& err) {
  const std::optional<std::string> text = ReadScript(path, err);
  if (!text) return 1;
  return Report(path, Engine(options).Check(*text), err);
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

int ScriptRun(const std::string& path, const EngineOptions& options, std::ostream& out, std::ostream& err) {
  const std::optional<std::string> text = ReadScript(path, err);
  if (!text) return 1;
  Engine engine(options);
  engine.RegisterFunction("Print", 0, -1, PrintTo(out));
  const std::optional<ScriptError> error = engine.AddCode(*text);
  const std::optional<ScriptError> end_error = engine.End();
  return Report(path, error ? error : end_error, err);
}

}  // namespace qv::vbscript
