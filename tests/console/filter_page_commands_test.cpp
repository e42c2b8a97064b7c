// The buttons of the "Filters" pages.

#include "editor/manage_dialog.h"
#include "platform/runtime_error.h"
#include "tests/console/filter_pages_fixture.h"

namespace qv {
namespace {

using test::PageError;
using test::Person;
using test::ShownMessage;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class PageCommands : public test::FilterPages {};

TEST_F(PageCommands, AddAFilterOfTheirScope) {
  Start(postoffice);
  run.desktop.Visit([](Form& form) {
    EXPECT_EQ(form.name(), "frmFilterItem");
    Person(form).Set("txtName", "New");
    Person(form).Click("cmdOK");
  });
  Person(postoffice).Click("cmdAdd");
  ASSERT_EQ(run.store.server().filters.size(), 1u);
  EXPECT_EQ(run.store.server().filters[0].Postoffice, "abc");
  EXPECT_EQ(run.store.server().filters[0].Mailbox, "");
  EXPECT_EQ(postoffice.lvwFilters.Count(), 1);
  // The buttons wait for a click in the list.
  EXPECT_EQ(Enabled(postoffice), "Add");
  Start(mailbox);
  EXPECT_THAT(Rows(mailbox), IsEmpty());
  EXPECT_EQ(run.registry.TakeReloads(), 0);
}

TEST_F(PageCommands, ACancelledAddLoadsNothing) {
  Start(mailbox);
  Add("FLT1", "Made elsewhere");
  run.desktop.Visit([](Form& form) { Person(form).Click("cmdCancel"); });
  Person(mailbox).Click("cmdAdd");
  EXPECT_THAT(Rows(mailbox), IsEmpty());
}

TEST_F(PageCommands, AnAddIsRefusedByTheLimitOfTheSystemFilters) {
  for (int n = 0; n < 100; ++n) {
    const std::string id = "X" + std::to_string(n);
    run.store.server().filters.push_back({"FLT" + id, "CRT" + id, "", "F", "", 1, "", ""});
  }
  Start(mailbox);
  run.desktop.Visit([](Form& form) {
    Person(form).Set("txtName", "New");
    Person(form).Click("cmdOK");
    EXPECT_TRUE(form.Loaded());
    form.Unload();
  });
  Person(mailbox).Click("cmdAdd");
  ASSERT_EQ(run.desktop.messages.size(), 1u);
  EXPECT_EQ(run.desktop.messages[0].text, "A maximum of 100 filters can be created.");
}

TEST_F(PageCommands, AnErrorOfAnAddIsTold) {
  Start(mailbox);
  run.desktop.Visit([&](Form& form) {
    Person(form).Set("txtName", "New");
    Person(form).Click("cmdOK");
    run.store.Raise("Filter.FindFirstFilter", "No store.");
  });
  Person(mailbox).Click("cmdAdd");
  EXPECT_THAT(run.desktop.messages, ElementsAre(PageError("Failed to add filter: No store.")));
}

TEST_F(PageCommands, EditOpensTheFilterAndLoadsNothing) {
  Add("FLT01", "One");
  Start(mailbox);
  for (const bool twice : {false, true}) {
    std::string opened;
    run.desktop.Visit([&](Form& form) {
      opened = form.name();
      run.store.server().filters[0].Description = "changed elsewhere";
      form.Unload();
    });
    run.store.calls.clear();
    if (twice) {
      Person(mailbox).Open("lvwFilters", 0);
    } else {
      Person(mailbox).Pick("lvwFilters", 0);
      Person(mailbox).Click("cmdEdit");
    }
    EXPECT_EQ(opened, "frmManage");
    EXPECT_THAT(run.store.calls, Contains("Criteria.FindFirstCriteria@(CRT01)"));
    EXPECT_THAT(Rows(mailbox), ElementsAre("FLT01|One|Enabled"));
  }
}

TEST_F(PageCommands, ADoubleClickOnAnEmptyListDoesNothing) {
  Start(mailbox);
  Person(mailbox).Open("lvwFilters", -1);
  EXPECT_TRUE(run.desktop.AllVisited());
  EXPECT_THAT(run.desktop.messages, IsEmpty());
}

TEST_F(PageCommands, DeleteAsksFirst) {
  Add("FLT1", "One");
  Add("FLT2", "Two");
  Start(mailbox);
  Person(mailbox).Pick("lvwFilters", 1);
  Person(mailbox).Click("cmdDelete");
  EXPECT_THAT(run.desktop.messages, ElementsAre(ShownMessage{"Are you sure you wish to delete the filter 'Two'?",
                                                             "Delete", MessageIcon::Critical, MessageButtons::YesNo}));
  EXPECT_THAT(Stored(), ElementsAre("FLT1", "FLT2"));
  run.desktop.answers = {MessageAnswer::Yes};
  Person(mailbox).Click("cmdDelete");
  EXPECT_THAT(Stored(), ElementsAre("FLT1"));
  EXPECT_THAT(Rows(mailbox), ElementsAre("FLT1|One|Enabled"));
  EXPECT_EQ(mailbox.lvwFilters.Selected(), -1);
  EXPECT_EQ(run.registry.TakeReloads(), 0);
}

TEST_F(PageCommands, EnableAndDisableLoseTheSelectionAndRaiseNoSignal) {
  Add("FLT1", "One");
  Start(mailbox);
  Person(mailbox).Pick("lvwFilters", 0);
  Person(mailbox).Click("cmdDisable");
  EXPECT_THAT(run.store.calls, Contains("Filter.EditFilter@(FLT1,0,One,act,note,CRT1,0)"));
  EXPECT_THAT(Rows(mailbox), ElementsAre("FLT1|One|Disabled"));
  EXPECT_EQ(mailbox.lvwFilters.Selected(), -1);
  EXPECT_EQ(Enabled(mailbox), "Add Edit Delete Enable Disable");
  Person(mailbox).Pick("lvwFilters", 0);
  Person(mailbox).Click("cmdEnable");
  EXPECT_THAT(Rows(mailbox), ElementsAre("FLT1|One|Enabled"));
  EXPECT_EQ(run.registry.TakeReloads(), 0);
}

TEST_F(PageCommands, WithoutASelectedRowTheButtonsDoNothing) {
  Add("FLT1", "One");
  Add("FLT2", "Two");
  Start(mailbox);
  run.store.calls.clear();
  for (const char* button : {"cmdDelete", "cmdEnable", "cmdDisable"}) Person(mailbox).Click(button);
  Person(mailbox).Pick("lvwFilters", -1);
  for (const char* button : {"cmdEdit", "cmdUp", "cmdDown"}) Person(mailbox).Click(button);
  Person(mailbox).Open("lvwFilters", -1);
  EXPECT_THAT(run.store.calls, IsEmpty());
  EXPECT_THAT(run.desktop.messages, IsEmpty());
}

TEST_F(PageCommands, MoveTheSelectedFilterWithinItsScope) {
  Add("FLT1", "One");
  Add("FLT9", "Elsewhere", 1, "jane");
  Add("FLT2", "Two", 0);
  Start(mailbox);
  Person(mailbox).Pick("lvwFilters", 1);
  Person(mailbox).Click("cmdUp");
  EXPECT_THAT(run.store.calls, Contains("Filter.EditFilter@(FLT2,0,Two,act,note,CRT2,1)"));
  EXPECT_THAT(Stored(), ElementsAre("FLT2", "FLT1"));
  EXPECT_THAT(Rows(mailbox), ElementsAre("FLT2|Two|Disabled", "FLT1|One|Enabled"));
  EXPECT_EQ(mailbox.lvwFilters.Selected(), 0);
  Person(mailbox).Click("cmdDown");
  EXPECT_THAT(Stored(), ElementsAre("FLT1", "FLT2"));
  EXPECT_EQ(run.registry.TakeReloads(), 0);
}

TEST_F(PageCommands, ActOnTheHostOfThePage) {
  Add("FLT01", "Here");
  auto& far = run.store.server("MAIL2");
  far.filters = {{"FLT01", "CRT01", "", "One", "", 1, "abc", "joe"},
                 {"FLT02", "CRT02", "", "Two", "", 1, "abc", "joe"}};
  far.criteria = {{"CRT02", "1", "", "Far", 1, "", 1, "abc", "joe"}};
  data.Add("host", "MAIL2");
  Start(mailbox);
  run.desktop.Visit([](Form& form) {
    Person(form).Set("txtName", "Three");
    Person(form).Click("cmdOK");
  });
  Person(mailbox).Click("cmdAdd");
  ASSERT_EQ(mailbox.lvwFilters.Count(), 3);
  EXPECT_EQ(mailbox.lvwFilters.Row(2).Text, "Three");
  Person(mailbox).Pick("lvwFilters", 0);
  Person(mailbox).Click("cmdDown");
  Person(mailbox).Click("cmdDisable");
  EXPECT_THAT(mailbox.lvwFilters.Rows().at(1).SubItems, ElementsAre("Disabled"));
  run.desktop.Visit([](Form& form) {
    EXPECT_EQ(dynamic_cast<frmManage&>(form).lvwCriteria.Count(), 1);
    form.Unload();
  });
  Person(mailbox).Open("lvwFilters", 0);
  run.desktop.answers = {MessageAnswer::Yes};
  Person(mailbox).Click("cmdDelete");
  Person(mailbox).Click("chkEnabled");
  mailbox.ApplyChanges();
  ASSERT_EQ(far.filters.size(), 2u);
  EXPECT_EQ(far.filters[0].FilterEntryID, "FLT01");
  EXPECT_EQ(far.filters[0].Status, 0);
  ASSERT_EQ(far.options.size(), 1u);
  EXPECT_EQ(far.options[0].Value, "1");
  EXPECT_THAT(Stored(), ElementsAre("FLT01"));
  EXPECT_EQ(run.store.server().filters[0].Status, 1);
  EXPECT_TRUE(run.store.server().options.empty());
}

TEST_F(PageCommands, AFilterThatHasVanishedIsActedOnInSilence) {
  for (const char* button : {"cmdEnable", "cmdDisable", "cmdDelete"}) {
    run.store.server().filters.clear();
    Add("FLT1", "One");
    Add("FLT2", "Two");
    Start(mailbox);
    Person(mailbox).Pick("lvwFilters", 0);
    run.store.server().filters.erase(run.store.server().filters.begin());
    run.desktop.answers = {MessageAnswer::Yes};
    Person(mailbox).Click(button);
    EXPECT_THAT(Rows(mailbox), ElementsAre("FLT2|Two|Enabled")) << button;
    run.desktop.answers.clear();
  }
  // The question of the deletion alone.
  EXPECT_EQ(run.desktop.messages.size(), 1u);
}

TEST_F(PageCommands, AnErrorOfAnyOtherCommandGoesToTheConsolesRuntime) {
  struct Case {
    const char *button, *operation;
  };
  const Case cases[] = {{"cmdEdit", "Criteria.FindFirstCriteria"},
                        {"cmdDelete", "Filter.RemoveFilter"},
                        {"cmdEnable", "Filter.getfilter"},
                        {"cmdDisable", "Filter.EditFilter"}};
  Add("FLT01", "One");
  for (const Case& c : cases) {
    Start(mailbox);
    Person(mailbox).Pick("lvwFilters", 0);
    run.store.Raise(c.operation, "Locked.");
    run.desktop.answers = {MessageAnswer::Yes};
    EXPECT_THROW(Person(mailbox).Click(c.button), RuntimeError) << c.button;
    run.store.Heal();
    run.desktop.answers.clear();
  }
  EXPECT_EQ(run.desktop.messages.size(), 1u);
  EXPECT_THAT(Rows(mailbox), ElementsAre("FLT01|One|Enabled"));
}

TEST_F(PageCommands, AnErrorOfAMoveIsTold) {
  Add("FLT1", "One");
  Add("FLT2", "Two");
  Start(mailbox);
  run.store.Raise("Filter.getfilter", "Locked.");
  Person(mailbox).Pick("lvwFilters", 0);
  Person(mailbox).Click("cmdDown");
  Person(mailbox).Pick("lvwFilters", 1);
  Person(mailbox).Click("cmdUp");
  EXPECT_THAT(run.desktop.messages,
              ElementsAre(PageError("Error moving items:Locked."), PageError("Error moving items:Locked.")));
}

TEST_F(PageCommands, LeaveTheirFiltersAsTheyAreOnCancel) {
  Add("FLT1", "One");
  Start(mailbox);
  Person(mailbox).Pick("lvwFilters", 0);
  Person(mailbox).Click("cmdDisable");
  Person(mailbox).Click("chkEnabled");
  mailbox.IMMCPropertyPage_Cancel();
  EXPECT_EQ(run.store.server().filters[0].Status, 0);
  EXPECT_TRUE(run.store.server().options.empty());
}

}  // namespace
}  // namespace qv
