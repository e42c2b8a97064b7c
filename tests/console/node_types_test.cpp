#include "console/node_types.h"

#include <gtest/gtest.h>

namespace qv {
namespace {

TEST(SnapIn, HasItsIdentity) {
  EXPECT_STREQ(snap_in::kGuid, "{F11BEF9C-A7BD-4F40-AF5A-A86C0C4D7EC9}");
  EXPECT_STREQ(snap_in::kName, "Quillvane Filtering Administration");
  EXPECT_STREQ(snap_in::kDescription, "Quillvane Filtering Administration");
  EXPECT_STREQ(snap_in::kVersion, "1.0");
  EXPECT_STREQ(snap_in::kStaticNodeGuid, "{65747941-E556-49B0-A541-12AD75E3CD78}");
}

TEST(SnapIn, ExtendsFourNodeTypesOfTheServersConsole) {
  struct Row {
    std::string guid, name;
    bool name_space, property_pages, task_menu;
  };
  const std::vector<Row> golden = {
      {"{3B76413A-6AAB-4C74-B19A-5C80DE6181F4}", "nodMachine", true, false, false},
      {"{2272C4D4-7EB1-41A2-BB84-478F42D56AA1}", "nodPostOffice", true, true, false},
      {"{4AA51E2F-2529-4345-91C1-BAF408E0E758}", "", false, true, false},
      {"{B079ED73-94CF-4060-A58A-4F86920525E9}", "lvwPostoffices", false, false, true},
  };
  ASSERT_EQ(ExtendedNodeTypes().size(), golden.size());
  for (std::size_t n = 0; n < golden.size(); ++n) {
    const ExtendedNodeType& type = ExtendedNodeTypes()[n];
    EXPECT_EQ(type.guid, golden[n].guid);
    EXPECT_EQ(type.name, golden[n].name);
    EXPECT_EQ(type.name_space, golden[n].name_space) << type.guid;
    EXPECT_EQ(type.property_pages, golden[n].property_pages) << type.guid;
    EXPECT_EQ(type.task_menu, golden[n].task_menu) << type.guid;
  }
}

TEST(NodeTypes, AreThree) {
  struct Row {
    std::string name, guid, display_name, tag, view;
    int image;
  };
  const std::vector<Row> golden = {
      {"nodFiltering", "{9B5C09E5-F5FD-4325-8B9A-4B5DBA33E89D}", "Filters", "filters", "lvwFilters", 1},
      {"nodPOFilters", "{8E1C1FD2-9EFC-4453-9A6E-AB6A87A71CAE}", "Filters", "filters", "lvwPOFilters", 1},
      {"nodSpamProtection", "{26CA89A9-F7A2-4045-9779-3099C80701FA}", "Spam Protection", "spamfilters", "lvwSpamItems",
       8},
  };
  ASSERT_EQ(NodeTypes().size(), golden.size());
  for (std::size_t n = 0; n < golden.size(); ++n) {
    const NodeType* type = FindNodeType(golden[n].name);
    ASSERT_EQ(type, &NodeTypes()[n]);
    EXPECT_EQ(type->guid, golden[n].guid);
    EXPECT_EQ(type->display_name, golden[n].display_name);
    EXPECT_EQ(type->tag, golden[n].tag);
    EXPECT_EQ(type->view, golden[n].view);
    EXPECT_EQ(type->image, golden[n].image);
  }
  EXPECT_EQ(FindNodeType("nodOther"), nullptr);
}

TEST(ViewTypes, AreThreeWithTheirColumns) {
  struct Row {
    std::string name, guid, tag, columns;
  };
  const std::vector<Row> golden = {
      {"lvwFilters", "{A5F7BB86-23B8-46CA-9807-25F9EE2F69A8}", "filter", "1=Filter/300 2=Status/300 "},
      {"lvwPOFilters", "{E93050B2-7197-4BC4-95A2-6EBCE28E5FC0}", "filter", "t1=Filter/300 t2=Status/300 "},
      {"lvwSpamItems", "{2D03103F-8B07-4409-9E3D-DBB2A4CBD740}", "",
       "t1=Description/350 n2=Positive Weighting/150 n3=Negative Weighting/150 "},
  };
  ASSERT_EQ(ViewTypes().size(), golden.size());
  for (std::size_t n = 0; n < golden.size(); ++n) {
    const ViewType* view = FindViewType(golden[n].name);
    ASSERT_EQ(view, &ViewTypes()[n]);
    EXPECT_EQ(view->guid, golden[n].guid);
    EXPECT_EQ(view->tag, golden[n].tag);
    std::string columns;
    for (const ListColumn& column : view->columns) {
      columns += column.Key + "=" + column.Caption + "/" + std::to_string(column.Width) + " ";
    }
    EXPECT_EQ(columns, golden[n].columns);
  }
  EXPECT_EQ(FindViewType("lvwOther"), nullptr);
}

TEST(Images, HaveTheirRoles) {
  EXPECT_STREQ(images::kFilterEnabled, "7");
  EXPECT_STREQ(images::kFilterDisabled, "6");
  EXPECT_STREQ(images::kSpamWeight, "4");
}

}  // namespace
}  // namespace qv
