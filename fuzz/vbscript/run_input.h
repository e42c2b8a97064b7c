#pragma once

#include <string_view>

#include "vbscript/engine.h"

namespace qv::vbscript {

// Compiles and runs a fuzzer's input as a script, twice over, with little memory and few steps. The first byte chooses
// the options.
inline void RunInput(std::string_view input) {
  if (input.empty()) return;
  EngineOptions options;
  options.bracketed_names = (input[0] & 1) != 0;
  options.procedures_clash = (input[0] & 2) != 0;
  options.memory_limit = 16U << 20;
  options.string_limit = 1U << 20;
  options.depth_limit = 64;
  options.step_limit = 20000;
  Engine engine(options);
  engine.AddCode(input.substr(1));
  engine.AddCode(input.substr(1));
  engine.End();
}

}  // namespace qv::vbscript
