// The rows of the lists, their order, a double click on one.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/console/fake_console.h"

namespace qv {
namespace {

using test::ConsoleRun;
using test::ShownMessage;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(FilterRows, CarryKeyTagIconAndSubItems) {
  ConsoleRun run;
  run.Add("FLT01", "Zulu");
  run.Add("FLT02", "alpha", 0);
  const Selection rows = run.Rows({0, 1});
  const ListItem& on = *rows.ListItems[0];
  EXPECT_EQ(on.Key, "FILTER-FLT01");
  EXPECT_EQ(on.Tag, "FILTER-FLT01");
  EXPECT_EQ(on.Text, "Zulu");
  EXPECT_EQ(on.Icon, "7");
  ASSERT_EQ(on.SubItems.size(), 2u);
  EXPECT_EQ(on.SubItems[0].Key, "1FILTER-FLT01");
  EXPECT_EQ(on.SubItems[0].Text, "Zulu");
  EXPECT_EQ(on.SubItems[1].Key, "2FILTER-FLT01");
  EXPECT_EQ(on.SubItems[1].Text, "Enabled");
  EXPECT_EQ(rows.ListItems[1]->Icon, "6");
  EXPECT_EQ(rows.ListItems[1]->SubItems[1].Text, "Disabled");
}

TEST(FilterRows, AnyStatusButOneIsDisabled) {
  ConsoleRun run;
  run.Add("FLT1", "two", 2);
  run.Add("FLT2", "minus", -1);
  EXPECT_THAT(run.Listed(), ElementsAre("two|two|Disabled", "minus|minus|Disabled"));
  EXPECT_EQ(run.Rows({0}).ListItems[0]->Icon, "6");
}

TEST(FilterRows, AreTheSystemFiltersOfTheServerWithoutTheSpamFilter) {
  ConsoleRun run;
  run.run.ServerHost = "MAIL2";
  run.Add("FLT1", "Local");
  run.Add("{SPAM_FILTER}", "Spam", 1, "MAIL2");
  run.Add("FLT2", "Far", 1, "MAIL2");
  run.store.server("MAIL2").filters.push_back({"FLT3", "CRT3", "", "Of a postoffice", "", 1, "abc", ""});
  EXPECT_THAT(run.Listed(), ElementsAre("Far|Far|Enabled"));
}

TEST(FilterRows, OfTheSpamFilterAloneAreNone) {
  ConsoleRun run;
  run.Add("{SPAM_FILTER}", "Spam");
  EXPECT_THAT(run.Listed(), IsEmpty());
}

TEST(FilterRows, AreAskedForInTheOrderOfARecordObject) {
  ConsoleRun run;
  run.Add("FLT1", "One");
  run.store.calls.clear();
  run.Rows({});
  EXPECT_THAT(run.store.calls,
              ElementsAre("Filter.Create", "Filter.SetHost@", "Filter.FindFirstFilter@", "Filter.FindNextFilter@"));
}

TEST(FilterRows, OfAPostofficesNodeNameAreItsOwn) {
  ConsoleRun run("nodPOFilters");
  run.Add("FLT1", "System");
  run.store.server().filters.push_back({"FLT2", "CRT2", "", "Of abc", "", 1, "abc", ""});
  EXPECT_THAT(run.Listed(), IsEmpty());
  run.pane.Name = "abc\tPOF";
  EXPECT_THAT(run.Listed(), ElementsAre("Of abc|Of abc|Enabled"));
}

TEST(FilterRows, AnErrorIsToldAndTheListStays) {
  ConsoleRun run;
  run.Add("FLT1", "One");
  run.Add("FLT2", "Two");
  run.store.Raise("Filter.FindNextFilter", "The store is gone.");
  EXPECT_THAT(run.Listed(), ElementsAre("One|One|Enabled"));
  EXPECT_THAT(run.console.messages, ElementsAre(ShownMessage{"Error displaying filter list:The store is gone.", "",
                                                             MessageIcon::None, MessageButtons::Ok}));
}

TEST(FilterRows, AnErrorOfTheViewIsTold) {
  ConsoleRun run;
  // Two rows of one key, which no list takes.
  run.store.server().filters = {{"FLT1", "", "", "One", "", 1, "", ""}, {"FLT1", "", "", "Again", "", 1, "", ""}};
  EXPECT_THAT(run.Listed(), ElementsAre("One|One|Enabled"));
  ASSERT_EQ(run.console.messages.size(), 1u);
  EXPECT_EQ(run.console.messages[0].text.rfind("Error displaying filter list:", 0), 0u);
}

TEST(SpamRows, AreThoseOfTheDefaults) {
  ConsoleRun run("nodSpamProtection");
  run.files.Put("C:\\Config\\SPAMVAL.DEF", "[A]\tFirst test\t5\t1000\r\n[B]\tSecond\t7\t1");
  EXPECT_THAT(run.Listed(), ElementsAre("[A]|First test|5|Never marked as spam", "[B]|Second|7|1"));
  EXPECT_EQ(run.pane.view.ListView.Tag, "SYSFILTERS");
}

class Compare : public testing::Test {
 protected:
  // Compares two texts in a column of that key.
  int Of(const std::string& key, const std::string& first, const std::string& second, int result = 42) {
    ResultView view;
    view.ListView.Columns = {{"1", "", 1}, {key, "", 1}};
    ListItem one, other;
    one.SubItems = {{"", "x"}, {"", first}};
    other.SubItems = {{"", "y"}, {"", second}};
    run.filtering.ResultViews_CompareItems(view, {nullptr, &one}, {nullptr, &other}, 1, result);
    return result;
  }
  ConsoleRun run;
};

TEST_F(Compare, NumbersAsNumbers) {
  EXPECT_EQ(Of("n2", "9", "10"), -1);
  EXPECT_EQ(Of("n2", "10", "9"), 1);
  EXPECT_EQ(Of("n2", "1.0", "1"), 0);
  EXPECT_EQ(Of("n2", "-3", "2.5"), -1);
}

TEST_F(Compare, ATextAmongNumbersIsLessFromEitherSide) {
  EXPECT_EQ(Of("n2", "Always marked as spam", "10"), -1);
  EXPECT_EQ(Of("n2", "10", "Always marked as spam"), -1);
  EXPECT_EQ(Of("n2", "", ""), -1);
}

TEST_F(Compare, TextsWithoutRegardToCase) {
  EXPECT_EQ(Of("t1", "alpha", "Beta"), -1);
  EXPECT_EQ(Of("t1", "beta", "ALPHA"), 1);
  EXPECT_EQ(Of("t1", "\xC3\xA4", "\xC3\x84"), 0);
}

TEST_F(Compare, DatesAsDates) {
  EXPECT_EQ(Of("d1", "2/1/2004", "1/12/2005"), -1);
  EXPECT_EQ(Of("d1", "2005-12-01", "2004-12-02"), 1);
  EXPECT_EQ(Of("d1", "1/2/2004", "2004-01-02"), 0);
  EXPECT_EQ(Of("d1", "no date", "1/2/2004"), -1);
  EXPECT_EQ(Of("d1", "1/2/2004", "no date"), -1);
}

TEST_F(Compare, AColumnWithoutAKindLeavesTheResult) {
  EXPECT_EQ(Of("1", "a", "b", 17), 17);
  EXPECT_EQ(Of("", "a", "b", -4), -4);
  EXPECT_EQ(Of("T1", "b", "a", 3), 3);
}

TEST_F(Compare, AScopeItemCountsByItsCaption) {
  ResultView view;
  view.ListView.Columns = {{"t1", "", 1}};
  ScopeItem node;
  node.Node.DisplayName = "Filters";
  ListItem item;
  item.SubItems = {{"", "alpha"}};
  int result = 0;
  run.filtering.ResultViews_CompareItems(view, {&node, nullptr}, {nullptr, &item}, 0, result);
  EXPECT_EQ(result, 1);
}

TEST_F(Compare, AnErrorIsTold) {
  int result = 9;
  run.filtering.ResultViews_CompareItems(ResultView(), {}, {}, 3, result);
  EXPECT_EQ(result, 9);
  EXPECT_THAT(run.console.messages, ElementsAre(ShownMessage{"ResultViews_CompareItems: Index out of bounds", "",
                                                             MessageIcon::None, MessageButtons::Ok}));
}

TEST(Sorting, TheFilterListKeepsStoreOrder) {
  ConsoleRun run;
  int result = 0;
  run.Add("FLT1", "Zulu");
  run.Add("FLT2", "alpha");
  const Selection rows = run.Rows({0, 1});
  run.filtering.ResultViews_CompareItems(run.pane.view, {nullptr, rows.ListItems[0]}, {nullptr, rows.ListItems[1]}, 0,
                                         result);
  EXPECT_EQ(result, 0);
}

class DoubleClick : public testing::Test {
 protected:
  void On(const std::string& tag, const std::vector<std::string>& sub_items = {}) {
    ListItem item;
    item.Tag = tag;
    for (const std::string& text : sub_items) item.SubItems.push_back({"", text});
    run.filtering.ResultViews_ListItemDblClick(run.pane.view, item);
  }
  ConsoleRun run;
};

TEST_F(DoubleClick, OnAFilterManagesItAndBuildsTheListAnew) {
  run.run.ServerHost = "MAIL2";
  run.store.server("MAIL2");
  std::string opened;
  run.desktop.Visit([&](Form& form) {
    opened = form.name();
    EXPECT_THAT(run.pane.redisplays, IsEmpty());
    form.Unload();
  });
  On("FILTER-FLT01AB");
  EXPECT_EQ(opened, "frmManage");
  EXPECT_THAT(run.store.calls, testing::Contains("Criteria.FindFirstCriteria@MAIL2(CRT01AB)"));
  EXPECT_THAT(run.pane.redisplays, ElementsAre("display of nodFiltering|7"));
}

TEST_F(DoubleClick, OnAnErrorIsTold) {
  run.store.Raise("Criteria.Create", "No store.");
  On("FILTER-FLT01AB");
  EXPECT_THAT(run.console.messages, ElementsAre(ShownMessage{"Error trying to edit filter: No store.", "",
                                                             MessageIcon::None, MessageButtons::Ok}));
  EXPECT_THAT(run.pane.redisplays, IsEmpty());
}

TEST_F(DoubleClick, OnASpamWeightOpensItsDialogAndBuildsTheListAnew) {
  std::string opened;
  run.desktop.Visit([&](Form& form) {
    opened = form.name();
    form.Unload();
  });
  On("SYSFILTER-[A]", {"First test", "5", "1"});
  EXPECT_EQ(opened, "frmAdjustSpamWeight");
  EXPECT_EQ(run.pane.redisplays.size(), 1u);
}

TEST_F(DoubleClick, OnAWeightThatCantBeChangedOnlyWarns) {
  On("SYSFILTER-[A]", {"First test", "Always marked as spam", "1"});
  ASSERT_EQ(run.console.messages.size(), 1u);
  EXPECT_EQ(run.console.messages[0].text, "This spam weight cannot be changed.");
  EXPECT_EQ(run.console.messages[0].title, "Warning");
  EXPECT_THAT(run.pane.redisplays, IsEmpty());
}

TEST_F(DoubleClick, OnAnythingElseDoesNothing) {
  for (const char* tag : {"", "FILTERS-FLT1", "filter-FLT1", "CRITERIA-CRT1-RULE-1"}) On(tag);
  EXPECT_THAT(run.pane.redisplays, IsEmpty());
  EXPECT_THAT(run.console.messages, IsEmpty());
}

}  // namespace
}  // namespace qv
