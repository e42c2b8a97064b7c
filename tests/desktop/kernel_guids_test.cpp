#include "desktop/kernel_guids.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace qv {
namespace {

TEST(KernelGuidsTest, GuidsAreRandomOfVersion4) {
  KernelGuids guids;
  std::set<std::string> seen;
  std::uint32_t ones = 0, zeros = 0;
  for (int i = 0; i < 1000; ++i) {
    Guid guid;
    ASSERT_TRUE(guids.NewGuid(guid));
    EXPECT_EQ(guid.Data3 >> 12, 4);
    EXPECT_EQ(guid.Data4[0] >> 6, 2);
    ones |= guid.Data1;
    zeros |= ~guid.Data1;
    std::string text = std::to_string(guid.Data1) + "-" + std::to_string(guid.Data2) + "-" + std::to_string(guid.Data3);
    for (const std::uint8_t byte : guid.Data4) text += "-" + std::to_string(byte);
    EXPECT_TRUE(seen.insert(text).second);
  }
  EXPECT_EQ(ones, 0xFFFFFFFFu);
  EXPECT_EQ(zeros, 0xFFFFFFFFu);
}

}  // namespace
}  // namespace qv
