#include "desktop/vbscript_host.h"

#include "vbscript/engine.h"

namespace qv {

std::optional<ScriptFault> VbscriptHost::AddCode(const std::string& code) {
  vbscript::EngineOptions options;
  options.bracketed_names = false;
  options.procedures_clash = true;
  options.safe_subset = true;
  options.interrupt = interrupt_;
  const auto error = vbscript::Engine(options).AddCode(code);
  if (!error) return std::nullopt;
  return ScriptFault{error->line, error->column, error->number, error->source, error->description, error->text};
}

}  // namespace qv
