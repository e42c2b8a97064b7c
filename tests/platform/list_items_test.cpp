#include <gtest/gtest.h>

#include "platform/console.h"
#include "platform/runtime_error.h"

namespace qv {
namespace {

TEST(ListItems, KeysAreUniqueAlsoBehindSettling) {
  ListItems items;
  items.Add("a", "A", "1");
  EXPECT_THROW(items.Add("a", "again", "1"), RuntimeError);
  items.Settle();
  EXPECT_THROW(items.Add("a", "again", "1"), RuntimeError);
  items.Add("b", "B", "1");
  EXPECT_THROW(items.Add("b", "again", "1"), RuntimeError);
  EXPECT_EQ(items.All().size(), 2u);
  items.Clear();
  items.Add("a", "A", "1");
  EXPECT_EQ(items.All().front()->Text, "A");
}

}  // namespace
}  // namespace qv
