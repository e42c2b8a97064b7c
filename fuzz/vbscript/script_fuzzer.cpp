// Compiles and runs whatever comes as a script.

#include <cstddef>
#include <cstdint>

#include "fuzz/vbscript/run_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  qv::vbscript::RunInput({reinterpret_cast<const char*>(data), size});
  return 0;
}
