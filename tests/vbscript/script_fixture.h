#pragma once

#include <optional>
#include <string>

#include "vbscript/engine.h"

namespace qv::vbscript {

// What running a script came to: what it printed, one line a call of Print, and the error that ended it.
struct Outcome {
  std::string printed;
  std::optional<ScriptError> error;
};

Outcome RunScript(const std::string& script, const EngineOptions& options = {});

// The printed text; the error in brackets if there was one.
std::string Told(const std::string& script, const EngineOptions& options = {});

// The value of an expression with its type: "3 Integer". An error gives its number: "!13".
std::string ValueOf(const std::string& expression);

}  // namespace qv::vbscript
