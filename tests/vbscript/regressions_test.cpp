#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "fuzz/vbscript/run_input.h"

namespace qv::vbscript {
namespace {

// What the fuzzer once found: each has to end, one way or the other.
TEST(Regressions, FuzzerFindingsEnd) {
  int count = 0;
  for (const auto& entry : std::filesystem::directory_iterator(QV_SOURCE_DIR "/fuzz/vbscript/regressions")) {
    std::ifstream file(entry.path(), std::ios::binary);
    const std::string input((std::istreambuf_iterator<char>(file)), {});
    ASSERT_FALSE(input.empty()) << entry.path();
    RunInput(input);
    ++count;
  }
  EXPECT_GT(count, 0);
}

}  // namespace
}  // namespace qv::vbscript
