#pragma once

#include "platform/runtime_error.h"
#include "platform/script_host.h"

namespace qv {

// Stands where no script host is installed: creating one fails.
class UnavailableScripts : public ScriptHost {
 public:
  std::optional<ScriptFault> AddCode(const std::string& /*code*/) override {
    throw RuntimeError(429, "ActiveX component can't create object");
  }
};

}  // namespace qv
