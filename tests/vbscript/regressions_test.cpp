#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "vbscript/engine.h"

namespace qv::vbscript {
namespace {

// What the fuzzer once found: each has to end, one way or the other.
TEST(Regressions, FuzzerFindingsEnd) {
  int count = 0;
  for (const auto& entry : std::filesystem::directory_iterator(QV_SOURCE_DIR "/fuzz/vbscript/regressions")) {
    std::ifstream file(entry.path(), std::ios::binary);
    const std::string input((std::istreambuf_iterator<char>(file)), {});
    ASSERT_FALSE(input.empty()) << entry.path();
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
    ++count;
  }
  EXPECT_GT(count, 0);
}

}  // namespace
}  // namespace qv::vbscript
