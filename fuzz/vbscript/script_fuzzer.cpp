// Compiles and runs whatever comes as a script, with little memory and few steps. The first byte chooses the options.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "vbscript/engine.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  qv::vbscript::EngineOptions options;
  options.bracketed_names = (data[0] & 1) != 0;
  options.procedures_clash = (data[0] & 2) != 0;
  options.memory_limit = 16U << 20;
  options.string_limit = 1U << 20;
  options.depth_limit = 64;
  options.step_limit = 20000;
  qv::vbscript::Engine engine(options);
  const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);
  engine.AddCode(text);
  engine.AddCode(text);
  engine.End();
  return 0;
}
