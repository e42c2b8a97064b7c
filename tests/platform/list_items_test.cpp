#include <gtest/gtest.h>

#include <stdexcept>

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

TEST(ListSubItems, HoldTheirTextsInOrder) {
  ListSubItems items;
  EXPECT_TRUE(items.empty());
  EXPECT_EQ(items.size(), 0u);
  EXPECT_THROW(items.at(0), std::out_of_range);
  items = {{"1KEY", "caf\u00e9"}, {"", ""}};
  items.push_back({std::string_view("2\0KEY", 5), std::string_view("a\0b", 3)});
  ASSERT_EQ(items.size(), 3u);
  EXPECT_EQ(items[0].Key, "1KEY");
  EXPECT_EQ(items[0].Text, "caf\u00e9");
  EXPECT_EQ(items.at(1).Key, "");
  EXPECT_EQ(items.at(1).Text, "");
  EXPECT_EQ(items.at(2).Key, std::string_view("2\0KEY", 5));
  EXPECT_EQ(items.at(2).Text, std::string_view("a\0b", 3));
  EXPECT_THROW(items.at(3), std::out_of_range);
  std::vector<std::string> texts;
  for (const ListSubItem& item : items) texts.emplace_back(item.Text);
  EXPECT_EQ(texts, (std::vector<std::string>{"caf\u00e9", "", std::string("a\0b", 3)}));
  const ListSubItems copy = items;
  items.clear();
  EXPECT_TRUE(items.empty());
  EXPECT_EQ(copy[2].Text, std::string_view("a\0b", 3));
}

}  // namespace
}  // namespace qv
