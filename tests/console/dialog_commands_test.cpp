// The commands of the filter list that open a dialog.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "console/filter_item_dialog.h"
#include "platform/runtime_error.h"
#include "tests/console/fake_console.h"

namespace qv {
namespace {

using test::ConsoleRun;
using test::Person;
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

TEST(AddCommand, AddsASystemFilterOfTheServerAndRedisplays) {
  ConsoleRun run;
  run.run.ServerHost = "MAIL2";
  run.store.server("MAIL2");
  run.desktop.Visit([](Form& form) {
    Person person(form);
    person.Set("txtName", "First");
    person.Click("cmdOK");
  });
  run.Choose(run.Node(), "mnuFilterAdd");
  ASSERT_EQ(run.store.server("MAIL2").filters.size(), 1u);
  EXPECT_EQ(run.store.server("MAIL2").filters[0].Description, "First");
  EXPECT_EQ(run.store.server("MAIL2").filters[0].Postoffice, "");
  EXPECT_EQ(run.pane.redisplays.size(), 1u);
  EXPECT_EQ(run.registry.TakeReloads(), 0);
}

TEST(AddCommand, ACancelDoesNotRedisplay) {
  ConsoleRun run;
  run.desktop.Visit([](Form& form) { Person(form).Click("cmdCancel"); });
  run.Choose(run.Node(), "mnuFilterAdd");
  EXPECT_THAT(run.pane.redisplays, IsEmpty());
}

TEST(AddCommand, AnErrorIsTold) {
  ConsoleRun run;
  run.pane.fail = "No view.";
  run.desktop.Visit([](Form& form) {
    Person(form).Set("txtName", "First");
    Person(form).Click("cmdOK");
  });
  run.Choose(run.Node(), "mnuFilterAdd");
  EXPECT_THAT(run.console.messages,
              ElementsAre(ShownMessage{"AddNew Error: No view.", "Filtering", MessageIcon::None, MessageButtons::Ok}));
}

TEST(RenameCommand, ChangesTheNameAndRedisplaysWithoutASignal) {
  ConsoleRun run;
  run.Add("FLT1", "Old");
  run.desktop.Visit([](Form& form) {
    EXPECT_EQ(form.Caption(), "Filter Properties");
    Person person(form);
    person.Set("txtName", "New");
    person.Click("cmdOK");
  });
  run.Choose(run.Rows({0}), "mnuRename");
  EXPECT_EQ(run.store.server().filters[0].Description, "New");
  EXPECT_EQ(run.pane.redisplays.size(), 1u);
  EXPECT_EQ(run.registry.TakeReloads(), 0);
}

TEST(RenameCommand, ACancelRedisplaysAllTheSame) {
  ConsoleRun run;
  run.Add("FLT1", "Old");
  run.desktop.Visit([](Form& form) { Person(form).Click("cmdCancel"); });
  run.Choose(run.Rows({0}), "mnuRename");
  EXPECT_EQ(run.pane.redisplays.size(), 1u);
}

TEST(RenameCommand, AfterAnAddOnAMailboxLooksThere) {
  ConsoleRun run;
  run.Add("FLT1", "Old");
  run.desktop.Visit([](Form& form) { form.Unload(); });
  std::string name;
  run.run.The<frmFilterItem>().AddFilter(name, "abc", "joe", "");
  run.Choose(run.Rows({0}), "mnuRename");
  EXPECT_THAT(run.desktop.messages,
              ElementsAre(ShownMessage{"Filter Not Found", "Error", MessageIcon::Critical, MessageButtons::Ok}));
  EXPECT_EQ(run.pane.redisplays.size(), 1u);
}

TEST(RenameCommand, AnErrorGoesToTheConsolesRuntime) {
  ConsoleRun run;
  run.Add("FLT1", "Old");
  const Selection row = run.Rows({0});
  run.pane.fail = "No view.";
  run.desktop.Visit([](Form& form) { form.Unload(); });
  EXPECT_EQ(Raised([&] { run.filtering.mnuRename_Click(0, row); }), "No view.");
}

TEST(OrderCommand, ShowsTheDialogAndRedisplaysWithoutASignal) {
  ConsoleRun run;
  std::string opened;
  run.desktop.Visit([&opened](Form& form) {
    opened = form.name();
    form.Unload();
  });
  run.Choose(run.Node(), "mnuOrderFilters");
  EXPECT_EQ(opened, "frmFilters");
  EXPECT_EQ(run.pane.redisplays.size(), 1u);
  EXPECT_EQ(run.registry.TakeReloads(), 0);
}

TEST(OrderCommand, AnErrorGoesToTheConsolesRuntime) {
  ConsoleRun run;
  run.store.Raise("Filter.FindFirstFilter", "No store.");
  EXPECT_EQ(Raised([&] { run.filtering.mnuOrderFilters_Click(0, run.Node()); }), "No store.");
  run.store.Heal();
  run.desktop.Visit([](Form& form) { form.Unload(); });
  run.filtering.mnuOrderFilters_Click(0, run.Node());
  EXPECT_TRUE(run.desktop.AllVisited());
}

TEST(ManageCommand, OpensTheFilterAndDoesNotRedisplay) {
  ConsoleRun run;
  run.Add("FLT01", "One");
  std::string opened;
  run.desktop.Visit([&opened](Form& form) {
    opened = form.name();
    form.Unload();
  });
  run.Choose(run.Rows({0}), "mnuManage");
  EXPECT_EQ(opened, "frmManage");
  EXPECT_THAT(run.store.calls, Contains("Criteria.FindFirstCriteria@(CRT01)"));
  EXPECT_THAT(run.pane.redisplays, IsEmpty());
}

TEST(ManageCommand, AnErrorGoesToTheConsolesRuntime) {
  ConsoleRun run;
  run.Add("FLT01", "One");
  const Selection row = run.Rows({0});
  run.store.Raise("Criteria.FindFirstCriteria", "No store.");
  EXPECT_EQ(Raised([&] { run.filtering.mnuManage_Click(0, row); }), "No store.");
}

}  // namespace
}  // namespace qv
