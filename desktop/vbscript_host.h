#pragma once

#include <atomic>

#include "platform/script_host.h"

namespace qv {

// Runs criteria scripts on the program's own engine, under the rules of a trial run: a bracketed name is an error, two
// procedures of one name clash, and nothing outside the script can be reached.
class VbscriptHost : public ScriptHost {
 public:
  // A run ends with an error of its own soon after `interrupt`, which may be null, has become true.
  explicit VbscriptHost(const std::atomic<bool>* interrupt) : interrupt_(interrupt) {}

  std::optional<ScriptFault> AddCode(const std::string& code) override;

 private:
  const std::atomic<bool>* interrupt_;
};

}  // namespace qv
