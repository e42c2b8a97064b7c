#include "services/filter_rows.h"

#include <gtest/gtest.h>

#include "platform/runtime_error.h"
#include "tests/support/test_run.h"

namespace qv {
namespace {

class FilterRows : public ::testing::Test {
 protected:
  FilterRows() {
    t.store.server().filters = {{"FLT1", "CRT1", "A1", "One", "note", 0, "", ""},
                                {"FLT2", "CRT2", "", "Two", "", 1, "", ""}};
    t.store.server().criteria = {{"CRT1", "1", "", "Text", 1, "a", 1, "", ""}};
    t.store.server().tasks = {{"CRT1", "T1", "DELETE", "Delete Message", 1, "", "", ""}};
  }
  test::TestRun t;
};

TEST_F(FilterRows, RemoveTakesTheFilterRowAlone) {
  RemoveFilterEntry(t.run, "FLT1", "", "", "");
  ASSERT_EQ(t.store.server().filters.size(), 1u);
  EXPECT_EQ(t.store.server().filters[0].FilterEntryID, "FLT2");
  EXPECT_EQ(t.store.server().criteria.size(), 1u);
  EXPECT_EQ(t.store.server().tasks.size(), 1u);
  EXPECT_EQ(t.store.calls,
            (std::vector<std::string>{"Filter.Create", "Filter.SetHost@", "Filter.RemoveFilter@(FLT1)"}));
}

TEST_F(FilterRows, RemoveOfAFilterThatIsGonePassesInSilence) {
  RemoveFilterEntry(t.run, "FLT9", "", "", "");
  EXPECT_EQ(t.store.server().filters.size(), 2u);
  EXPECT_TRUE(t.desktop.messages.empty());
}

TEST_F(FilterRows, RemoveKeepsToItsScope) {
  t.store.server().filters.push_back({"FLT1", "CRT1", "", "Elsewhere", "", 1, "abc", ""});
  RemoveFilterEntry(t.run, "FLT1", "abc", "", "");
  ASSERT_EQ(t.store.server().filters.size(), 2u);
  EXPECT_EQ(t.store.server().filters[0].Description, "One");
}

TEST_F(FilterRows, AStatusChangeReadsWithOneObjectAndWritesWithAnother) {
  SetFilterStatus(t.run, "FLT1", 1, "", "", "");
  EXPECT_EQ(t.store.calls,
            (std::vector<std::string>{"Filter.Create", "Filter.SetHost@", "Filter.getfilter@(FLT1)", "Filter.Create",
                                      "Filter.SetHost@", "Filter.EditFilter@(FLT1,1,One,A1,note,CRT1,0)"}));
  EXPECT_EQ(t.store.server().filters[0].Status, 1);
}

TEST_F(FilterRows, AFailedStatusChangeIsSilent) {
  t.store.Refuse("Filter.EditFilter", 0);
  SetFilterStatus(t.run, "FLT1", 1, "", "", "");
  EXPECT_EQ(t.store.server().filters[0].Status, 0);
  EXPECT_TRUE(t.desktop.messages.empty());
}

TEST_F(FilterRows, AStatusChangeWorksOnItsHost) {
  t.store.server("MAIL2").filters = {{"FLT1", "CRT1", "", "Far", "", 0, "", ""}};
  SetFilterStatus(t.run, "FLT1", 1, "", "", "MAIL2");
  EXPECT_EQ(t.store.server("MAIL2").filters[0].Status, 1);
  EXPECT_EQ(t.store.server().filters[0].Status, 0);
}

TEST_F(FilterRows, AnErrorOfTheStoreReachesTheCaller) {
  t.store.Raise("Filter.EditFilter", "locked");
  EXPECT_THROW(SetFilterStatus(t.run, "FLT1", 1, "", "", ""), RuntimeError);
  t.store.Raise("Filter.RemoveFilter", "locked");
  EXPECT_THROW(RemoveFilterEntry(t.run, "FLT1", "", "", ""), RuntimeError);
  EXPECT_THROW(RemoveFilterEntry(t.run, "FLT1", "", "", "NOWHERE"), RuntimeError);
}

TEST_F(FilterRows, TheStatusIsTrueForOneAlone) {
  t.store.server().filters[0].Status = 2;
  EXPECT_FALSE(GetFilterStatus(t.run, "FLT1", "", "", ""));
  EXPECT_TRUE(GetFilterStatus(t.run, "FLT2", "", "", ""));
}

TEST_F(FilterRows, TheStatusOfAFilterThatDoesNotExistIsFalse) {
  EXPECT_FALSE(GetFilterStatus(t.run, "FLT9", "", "", ""));
  EXPECT_FALSE(GetFilterStatus(t.run, "FLT2", "abc", "", ""));
}

TEST_F(FilterRows, AListingGivesEveryRowInOrder) {
  const auto filter = t.store.CreateFilter();
  filter->SetHost();
  std::vector<std::string> names;
  ForEachFilter(*filter, "", "", [&names](const Filter& row) { names.push_back(row.Description); });
  EXPECT_EQ(names, (std::vector<std::string>{"One", "Two"}));
}

TEST_F(FilterRows, AListingOfAnEmptyScopeGivesNone) {
  const auto filter = t.store.CreateFilter();
  filter->SetHost();
  ForEachFilter(*filter, "abc", "", [](const Filter&) { FAIL(); });
}

}  // namespace
}  // namespace qv
