// The commands of the console's lists that need no dialog.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/runtime_error.h"
#include "tests/console/fake_console.h"

namespace qv {
namespace {

using test::ConsoleRun;
using test::ShownMessage;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

std::string Raised(const std::function<void()>& step) {
  try {
    step();
  } catch (const RuntimeError& error) {
    return error.description();
  }
  return "nothing";
}

class Delete : public testing::Test {
 protected:
  void SetUp() override {
    run.Add("FLT1", "One");
    run.Add("FLT2", "Two");
    run.store.server().criteria.push_back({"CRT1", "1", "", "d", 1, "v", 1, "", ""});
    run.store.server().tasks.push_back({"CRT1", "T1", "DELETE", "d", 1, "", "", ""});
  }
  ConsoleRun run;
};

TEST_F(Delete, AsksFirstAndNoChangesNothing) {
  run.console.answers = {MessageAnswer::No};
  run.filtering.Views_Delete(run.view, run.Rows({0}));
  EXPECT_THAT(run.console.messages, ElementsAre(ShownMessage{"Are you sure you wish to delete the filter 'One'?",
                                                             "Delete", MessageIcon::Critical, MessageButtons::YesNo}));
  EXPECT_EQ(run.store.server().filters.size(), 2u);
  EXPECT_EQ(run.registry.TakeReloads(), 0);
  EXPECT_THAT(run.pane.redisplays, IsEmpty());
}

TEST_F(Delete, RemovesTheRowAloneSignalsAndRedisplays) {
  run.console.answers = {MessageAnswer::Yes};
  run.files.Put("C:\\Config\\Filters\\Criteria\\CRT1.QVS", "script");
  run.filtering.Views_Delete(run.view, run.Rows({0}));
  ASSERT_EQ(run.store.server().filters.size(), 1u);
  EXPECT_EQ(run.store.server().filters[0].FilterEntryID, "FLT2");
  EXPECT_EQ(run.store.server().criteria.size(), 1u);
  EXPECT_EQ(run.store.server().tasks.size(), 1u);
  EXPECT_EQ(run.files.Get("C:\\Config\\Filters\\Criteria\\CRT1.QVS"), "script");
  EXPECT_EQ(run.registry.TakeReloads(), 1);
  EXPECT_THAT(run.pane.redisplays, ElementsAre("display of nodFiltering|7"));
}

TEST_F(Delete, ActsOnTheFirstOfSeveralRows) {
  run.console.answers = {MessageAnswer::Yes};
  run.filtering.Views_Delete(run.view, run.Rows({1, 0}));
  EXPECT_EQ(run.console.messages[0].text, "Are you sure you wish to delete the filter 'Two'?");
  ASSERT_EQ(run.store.server().filters.size(), 1u);
  EXPECT_EQ(run.store.server().filters[0].Description, "One");
}

TEST_F(Delete, WorksOnTheCurrentServer) {
  run.Add("FLT1", "Far", 1, "MAIL2");
  run.run.ServerHost = "MAIL2";
  run.console.answers = {MessageAnswer::Yes};
  run.filtering.Views_Delete(run.view, run.Rows({0}));
  EXPECT_TRUE(run.store.server("MAIL2").filters.empty());
  EXPECT_EQ(run.store.server().filters.size(), 2u);
  EXPECT_EQ(run.registry.TakeReloads(), 1);
}

TEST_F(Delete, IsForRowsOfTheFiltersNodeAlone) {
  const Selection row = run.Rows({0});
  Selection node = run.Node();
  node.ListItems = row.ListItems;
  run.filtering.Views_Delete(run.view, node);
  run.pane.Name = "nodSpamProtection";
  run.filtering.Views_Delete(run.view, row);
  EXPECT_THAT(run.console.messages, IsEmpty());
  run.pane.Name = "abc\tnodFiltering";
  run.filtering.Views_Delete(run.view, row);
  EXPECT_EQ(run.console.messages.size(), 1u);
}

TEST_F(Delete, AnErrorIsToldAndTheListStays) {
  run.console.answers = {MessageAnswer::Yes};
  run.store.Raise("Filter.RemoveFilter", "Locked.");
  run.filtering.Views_Delete(run.view, run.Rows({0}));
  ASSERT_EQ(run.console.messages.size(), 2u);
  EXPECT_EQ(run.console.messages[1],
            (ShownMessage{"Error deleting item:Locked.", "", MessageIcon::None, MessageButtons::Ok}));
  EXPECT_EQ(run.registry.TakeReloads(), 0);
  EXPECT_THAT(run.pane.redisplays, IsEmpty());
}

TEST_F(Delete, ARefusalIsSilent) {
  run.console.answers = {MessageAnswer::Yes};
  run.store.Refuse("Filter.RemoveFilter", 0);
  run.filtering.Views_Delete(run.view, run.Rows({0}));
  EXPECT_EQ(run.console.messages.size(), 1u);
  EXPECT_EQ(run.registry.TakeReloads(), 1);
  EXPECT_EQ(run.pane.redisplays.size(), 1u);
}

class Status : public testing::Test {
 protected:
  void SetUp() override { run.store.server().filters = {{"FLT1", "CRT1", "act", "One", "note", 0, "", ""}}; }
  ConsoleRun run;
};

TEST_F(Status, EnableWritesTheRowAsItWasWithItsNewStatus) {
  run.store.calls.clear();
  run.Choose(run.Rows({0}), "mnuFilterEnable");
  EXPECT_EQ(run.store.server().filters[0].Status, 1);
  EXPECT_THAT(run.store.calls, Contains("Filter.EditFilter@(FLT1,1,One,act,note,CRT1,0)"));
  EXPECT_EQ(run.registry.TakeReloads(), 1);
  EXPECT_THAT(run.pane.redisplays, ElementsAre("display of nodFiltering|7"));
}

TEST_F(Status, DisableDoesTheReverseAndLeavesTheScriptAlone) {
  run.store.server().filters[0].Status = 1;
  run.files.Put("C:\\Config\\Filters\\Criteria\\CRT1.QVS", "script");
  run.Choose(run.Rows({0}), "mnuFilterDisable");
  EXPECT_EQ(run.store.server().filters[0].Status, 0);
  EXPECT_EQ(run.files.Get("C:\\Config\\Filters\\Criteria\\CRT1.QVS"), "script");
  EXPECT_EQ(run.registry.TakeReloads(), 1);
}

TEST_F(Status, OfAFilterThatIsGoneIsSilentAndStillSignals) {
  const Selection row = run.Rows({0});
  run.store.server().filters.clear();
  run.filtering.mnuFilterEnable_Click(0, row);
  EXPECT_TRUE(run.store.server().filters.empty());
  EXPECT_THAT(run.console.messages, IsEmpty());
  EXPECT_THAT(run.desktop.messages, IsEmpty());
  EXPECT_EQ(run.registry.TakeReloads(), 1);
}

TEST_F(Status, OnARemoteServerSignalsLocally) {
  run.Add("FLT9", "Far", 1, "MAIL2");
  run.run.ServerHost = "MAIL2";
  run.filtering.mnuFilterDisable_Click(0, run.Rows({0}));
  EXPECT_EQ(run.store.server("MAIL2").filters[0].Status, 0);
  EXPECT_EQ(run.registry.TakeReloads(), 1);
}

TEST_F(Status, AnErrorGoesToTheConsolesRuntime) {
  const Selection row = run.Rows({0});
  run.store.Raise("Filter.EditFilter", "Locked.");
  EXPECT_EQ(Raised([&] { run.filtering.mnuFilterEnable_Click(0, row); }), "Locked.");
  EXPECT_EQ(Raised([&] { run.filtering.mnuFilterDisable_Click(0, row); }), "Locked.");
  EXPECT_EQ(run.registry.TakeReloads(), 0);
  EXPECT_THAT(run.console.messages, IsEmpty());
}

class Reset : public testing::Test {
 protected:
  void SetUp() override {
    run.files.Put("C:\\Config\\SPAMVAL.DEF", "[A]\tFirst\t5\t1");
    run.files.Put("C:\\Config\\SPAMVAL.TAB", "[A]\t9\t9");
    run.files.MakeFolder("C:\\Config\\Filters\\Criteria");
    run.pane.view.ListView.Tag = "SYSFILTERS";
    rows.SelectionType = Selection::kListItems;
  }
  ConsoleRun run{"nodSpamProtection"};
  Selection rows;
};

TEST_F(Reset, AsksAndWritesTheDefaultsAndRedisplays) {
  run.console.answers = {MessageAnswer::Yes};
  run.Choose(rows, "mnuSetToDefault");
  EXPECT_THAT(run.console.messages,
              ElementsAre(ShownMessage{"Do you wish to reset all values to their default and lose your changes?",
                                       "Reset values", MessageIcon::Exclamation, MessageButtons::YesNo}));
  EXPECT_EQ(run.files.Get("C:\\Config\\SPAMVAL.TAB"), "[A]\t5\t1");
  EXPECT_EQ(run.pane.redisplays.size(), 1u);
  EXPECT_EQ(run.registry.TakeReloads(), 0);
}

TEST_F(Reset, AnythingButYesChangesNothing) {
  run.Choose(rows, "mnuSetToDefault");
  EXPECT_EQ(run.files.Get("C:\\Config\\SPAMVAL.TAB"), "[A]\t9\t9");
  EXPECT_THAT(run.pane.redisplays, IsEmpty());
}

TEST_F(Reset, AnErrorIsTold) {
  run.console.answers = {MessageAnswer::Yes};
  run.files.fail = "Write";
  run.Choose(rows, "mnuSetToDefault");
  ASSERT_EQ(run.console.messages.size(), 2u);
  EXPECT_EQ(run.console.messages[1], (ShownMessage{"Error updating default values: Permission denied", "",
                                                   MessageIcon::None, MessageButtons::Ok}));
  EXPECT_THAT(run.pane.redisplays, IsEmpty());
}

}  // namespace
}  // namespace qv
