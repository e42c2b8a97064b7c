// The "Filters" pages of mailboxes and postoffices.

#include "console/filter_pages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/runtime_error.h"
#include "tests/support/test_run.h"

namespace qv {
namespace {

using test::Person;
using test::ShownMessage;
using test::TestRun;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

ShownMessage Error(const std::string& text) { return {text, "Error", MessageIcon::Critical, MessageButtons::Ok}; }

class Pages : public testing::Test {
 protected:
  void SetUp() override {
    data.Add("postoffice", "abc");
    data.Add("mailbox", "joe");
  }
  // Loads a page as a sheet does.
  void Start(FilterPage& of) {
    of.Load();
    of.IMMCPropertyPage_Initialize(data);
  }
  void Add(const std::string& id, const std::string& description, int status = 1, const std::string& of = "joe") {
    run.store.server().filters.push_back({id, "CRT" + id.substr(3), "act", description, "note", status, "abc", of});
  }
  std::vector<std::string> Rows(const FilterPage& of) {
    std::vector<std::string> rows;
    for (const ListRow& row : of.lvwFilters.Rows()) rows.push_back(row.Key + "|" + row.Text + "|" + row.SubItems.at(0));
    return rows;
  }
  std::string Enabled(const FilterPage& of) {
    std::string names;
    for (const Button* button :
         {&of.cmdAdd, &of.cmdEdit, &of.cmdDelete, &of.cmdEnable, &of.cmdDisable, &of.cmdUp, &of.cmdDown}) {
      if (button->Enabled()) names += (names.empty() ? "" : " ") + button->name().substr(3);
    }
    return names;
  }
  std::vector<std::string> Stored() {
    std::vector<std::string> ids;
    for (const auto& row : run.store.server().filters) {
      if (row.Postoffice == "abc" && row.Mailbox == "joe") ids.push_back(row.FilterEntryID);
    }
    return ids;
  }
  TestRun run;
  Dictionary data;
  ppgMailboxFilters mailbox{run.run};
  ppgPostofficeFilters postoffice{run.run};
};

TEST_F(Pages, DifferInTheirTexts) {
  EXPECT_EQ(mailbox.name(), "ppgMailboxFilters");
  EXPECT_EQ(mailbox.chkEnabled.Caption(), "Enable filters for this mailbox");
  EXPECT_EQ(mailbox.Label1.Caption(), "Filters configured for mailbox. Double click filter to edit.");
  EXPECT_EQ(postoffice.name(), "ppgPostofficeFilters");
  EXPECT_EQ(postoffice.chkEnabled.Caption(), "Enable filters for this postoffice");
  EXPECT_EQ(postoffice.Label1.Caption(), "Filters configured for postoffice. Double click filter to edit.");
}

TEST_F(Pages, ShareTheirControls) {
  for (const FilterPage* page : {static_cast<FilterPage*>(&mailbox), static_cast<FilterPage*>(&postoffice)}) {
    EXPECT_EQ(page->cmdAdd.Caption(), "Add...");
    EXPECT_EQ(page->cmdEdit.Caption(), "Edit...");
    EXPECT_EQ(page->cmdDelete.Caption(), "Delete...");
    EXPECT_EQ(page->cmdEnable.Caption(), "Enable");
    EXPECT_EQ(page->cmdDisable.Caption(), "Disable");
    EXPECT_EQ(page->cmdUp.picture(), Button::Picture::Up);
    EXPECT_EQ(page->cmdDown.picture(), Button::Picture::Down);
    EXPECT_EQ(page->lvwFilters.Columns()[0].Header, "Filter Name");
    EXPECT_EQ(page->lvwFilters.Columns()[1].Header, "Status");
  }
}

TEST_F(Pages, ListTheirOwnScope) {
  run.store.server().filters.push_back({"FLT0", "CRT0", "", "System", "", 1, "", ""});
  Add("FLT1", "Joe's", 2);
  Add("FLT2", "Jane's", 1, "jane");
  Add("FLT3", "Of abc", 0, "");
  Start(mailbox);
  Start(postoffice);
  EXPECT_THAT(Rows(mailbox), ElementsAre("FLT1|Joe's|Enabled"));
  EXPECT_THAT(Rows(postoffice), ElementsAre("FLT3|Of abc|Disabled"));
}

TEST_F(Pages, OfAMailboxWithoutFiltersOffersAddAlone) {
  Start(mailbox);
  EXPECT_EQ(Enabled(mailbox), "Add");
  EXPECT_TRUE(mailbox.chkEnabled.Enabled());
}

TEST_F(Pages, WithFiltersWaitForARowToMoveOrEdit) {
  Add("FLT1", "One");
  Add("FLT2", "Two");
  Start(mailbox);
  EXPECT_EQ(Enabled(mailbox), "Add Delete Enable Disable");
  Person(mailbox).Pick("lvwFilters", 0);
  EXPECT_EQ(Enabled(mailbox), "Add Edit Delete Enable Disable Down");
  Person(mailbox).Pick("lvwFilters", 1);
  EXPECT_EQ(Enabled(mailbox), "Add Edit Delete Enable Disable Up");
}

TEST_F(Pages, OfAnEmptyListAClickDisablesMovesAndEdit) {
  Add("FLT1", "One");
  Start(mailbox);
  Person(mailbox).Pick("lvwFilters", 0);
  EXPECT_EQ(Enabled(mailbox), "Add Edit Delete Enable Disable");
  run.desktop.answers = {MessageAnswer::Yes};
  Person(mailbox).Click("cmdDelete");
  EXPECT_EQ(Enabled(mailbox), "Add Edit");
  Person(mailbox).Pick("lvwFilters", -1);
  EXPECT_EQ(Enabled(mailbox), "Add");
}

// --- the switch ---

TEST_F(Pages, ReadTheSwitchFromTheOptionOfTheirScope) {
  run.store.server().options = {{2, "abc/joe", "MailBox-MailboxRulesStatus", " 1 "},
                                {1, "abc", "Postoffice-PostofficeRulesStatus", "1"}};
  Start(mailbox);
  Start(postoffice);
  EXPECT_TRUE(mailbox.chkEnabled.Checked());
  EXPECT_TRUE(postoffice.chkEnabled.Checked());
  EXPECT_FALSE(mailbox.Changed());
  EXPECT_FALSE(postoffice.Changed());
}

TEST_F(Pages, CountAnyOtherValueAsOff) {
  for (const char* value : {"", "0", "2", "11", "yes", "-1"}) {
    run.store.server().options = {{2, "abc/joe", "MailBox-MailboxRulesStatus", value}};
    ppgMailboxFilters page(run.run);
    Start(page);
    EXPECT_FALSE(page.chkEnabled.Checked()) << value;
  }
  run.store.server().options.clear();
  Start(mailbox);
  EXPECT_FALSE(mailbox.chkEnabled.Checked());
}

TEST_F(Pages, TheSwitchMarksThePageAsChanged) {
  Start(mailbox);
  Person(mailbox).Click("chkEnabled");
  EXPECT_TRUE(mailbox.Changed());
}

TEST_F(Pages, ApplyWritesTheSwitch) {
  Start(mailbox);
  Person(mailbox).Click("chkEnabled");
  EXPECT_TRUE(run.store.server().options.empty());
  EXPECT_TRUE(mailbox.ApplyChanges());
  ASSERT_EQ(run.store.server().options.size(), 1u);
  const test::OptionRow& option = run.store.server().options[0];
  EXPECT_EQ(option.Scope, 2);
  EXPECT_EQ(option.Query, "abc/joe");
  EXPECT_EQ(option.ValueName, "MailBox-MailboxRulesStatus");
  EXPECT_EQ(option.Value, "1");
  Person(mailbox).Click("chkEnabled");
  EXPECT_TRUE(mailbox.ApplyChanges());
  EXPECT_EQ(run.store.server().options[0].Value, "0");
  EXPECT_THAT(run.registry.writes, IsEmpty());
}

TEST_F(Pages, ApplyOfAPostofficeWritesItsOwnOption) {
  Start(postoffice);
  Person(postoffice).Click("chkEnabled");
  postoffice.ApplyChanges();
  ASSERT_EQ(run.store.server().options.size(), 1u);
  EXPECT_EQ(run.store.server().options[0].Scope, 1);
  EXPECT_EQ(run.store.server().options[0].Query, "abc");
  EXPECT_EQ(run.store.server().options[0].ValueName, "Postoffice-PostofficeRulesStatus");
  EXPECT_EQ(run.store.server().options[0].Value, "1");
}

TEST_F(Pages, ApplyDoesNotLookAtTheResultAndLetsErrorsThrough) {
  Start(mailbox);
  run.store.Refuse("Option.SetOption", 0);
  EXPECT_TRUE(mailbox.ApplyChanges());
  EXPECT_THAT(run.desktop.messages, IsEmpty());
  run.store.Raise("Option.SetOption", "Locked.");
  EXPECT_THROW(mailbox.ApplyChanges(), RuntimeError);
}

TEST_F(Pages, WorkOnTheirHost) {
  run.store.server("MAIL2").filters.push_back({"FLT1", "CRT1", "", "Far", "", 1, "abc", "joe"});
  run.store.server("MAIL2").options = {{2, "abc/joe", "MailBox-MailboxRulesStatus", "1"}};
  run.run.ServerHost = "MAIL3";
  data.Add("host", "MAIL2");
  Start(mailbox);
  EXPECT_THAT(Rows(mailbox), ElementsAre("FLT1|Far|Enabled"));
  EXPECT_TRUE(mailbox.chkEnabled.Checked());
  Person(mailbox).Pick("lvwFilters", 0);
  Person(mailbox).Click("cmdDisable");
  EXPECT_EQ(run.store.server("MAIL2").filters[0].Status, 0);
}

TEST_F(Pages, OfAPostofficeIsLocalWithoutAHost) {
  run.run.ServerHost = "MAIL2";
  run.store.server("MAIL2");
  Add("FLT3", "Of abc", 1, "");
  Dictionary only;
  only.Add("postoffice", "abc");
  postoffice.Load();
  postoffice.IMMCPropertyPage_Initialize(only);
  EXPECT_THAT(Rows(postoffice), ElementsAre("FLT3|Of abc|Enabled"));
}

TEST_F(Pages, AnErrorOfTheLoadingIsTold) {
  run.store.Raise("Filter.FindFirstFilter", "No store.");
  Start(mailbox);
  EXPECT_THAT(run.desktop.TakeMessages(), ElementsAre(Error("Error loading filters for mailbox:No store.")));
  Start(postoffice);
  EXPECT_THAT(run.desktop.TakeMessages(), ElementsAre(Error("Error loading filters for postoffice:No store.")));
}

TEST_F(Pages, AfterAFailedLoadingTheSwitchMarksNothing) {
  run.store.Raise("Option.GetOption", "No options.");
  Start(mailbox);
  EXPECT_THAT(run.desktop.TakeMessages(), ElementsAre(Error("Error loading filters for mailbox:No options.")));
  Person(mailbox).Click("chkEnabled");
  EXPECT_FALSE(mailbox.Changed());
}

TEST_F(Pages, OpenTheSameHelpTopic) {
  mailbox.IMMCPropertyPage_Help();
  postoffice.IMMCPropertyPage_Help();
  EXPECT_THAT(run.desktop.topics,
              ElementsAre("qvhelp.chm::/mailboxfilters.htm", "qvhelp.chm::/mailboxfilters.htm"));
}

TEST_F(Pages, DoNothingInTheOtherOperations) {
  Start(mailbox);
  run.store.calls.clear();
  mailbox.IMMCPropertyPage_Cancel();
  EXPECT_TRUE(mailbox.IMMCPropertyPage_QueryCancel());
  mailbox.IMMCPropertyPage_Close();
  EXPECT_THAT(run.store.calls, IsEmpty());
}

// --- the filters ---

TEST_F(Pages, AddAFilterOfTheirScope) {
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

TEST_F(Pages, ACancelledAddLoadsNothing) {
  Start(mailbox);
  Add("FLT1", "Made elsewhere");
  run.desktop.Visit([](Form& form) { Person(form).Click("cmdCancel"); });
  Person(mailbox).Click("cmdAdd");
  EXPECT_THAT(Rows(mailbox), IsEmpty());
}

TEST_F(Pages, AnAddIsRefusedByTheLimitOfTheSystemFilters) {
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

TEST_F(Pages, AnErrorOfAnAddIsTold) {
  Start(mailbox);
  run.desktop.Visit([&](Form& form) {
    Person(form).Set("txtName", "New");
    Person(form).Click("cmdOK");
    run.store.Raise("Filter.FindFirstFilter", "No store.");
  });
  Person(mailbox).Click("cmdAdd");
  EXPECT_THAT(run.desktop.messages, ElementsAre(Error("Failed to add filter: No store.")));
}

TEST_F(Pages, EditOpensTheFilterAndLoadsNothing) {
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

TEST_F(Pages, ADoubleClickOnAnEmptyListDoesNothing) {
  Start(mailbox);
  Person(mailbox).Open("lvwFilters", -1);
  EXPECT_TRUE(run.desktop.AllVisited());
  EXPECT_THAT(run.desktop.messages, IsEmpty());
}

TEST_F(Pages, DeleteAsksFirst) {
  Add("FLT1", "One");
  Add("FLT2", "Two");
  Start(mailbox);
  Person(mailbox).Pick("lvwFilters", 1);
  Person(mailbox).Click("cmdDelete");
  EXPECT_THAT(run.desktop.messages,
              ElementsAre(ShownMessage{"Are you sure you wish to delete the filter 'Two'?", "Delete",
                                       MessageIcon::Critical, MessageButtons::YesNo}));
  EXPECT_THAT(Stored(), ElementsAre("FLT1", "FLT2"));
  run.desktop.answers = {MessageAnswer::Yes};
  Person(mailbox).Click("cmdDelete");
  EXPECT_THAT(Stored(), ElementsAre("FLT1"));
  EXPECT_THAT(Rows(mailbox), ElementsAre("FLT1|One|Enabled"));
  EXPECT_EQ(mailbox.lvwFilters.Selected(), -1);
  EXPECT_EQ(run.registry.TakeReloads(), 0);
}

TEST_F(Pages, EnableAndDisableLoseTheSelectionAndRaiseNoSignal) {
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

TEST_F(Pages, WithoutASelectedRowTheButtonsDoNothing) {
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

TEST_F(Pages, MoveTheSelectedFilterWithinItsScope) {
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

TEST_F(Pages, AnErrorOfAMoveIsTold) {
  Add("FLT1", "One");
  Add("FLT2", "Two");
  Start(mailbox);
  run.store.Raise("Filter.getfilter", "Locked.");
  Person(mailbox).Pick("lvwFilters", 0);
  Person(mailbox).Click("cmdDown");
  Person(mailbox).Pick("lvwFilters", 1);
  Person(mailbox).Click("cmdUp");
  EXPECT_THAT(run.desktop.messages, ElementsAre(Error("Error moving items:Locked."), Error("Error moving items:Locked.")));
}

TEST_F(Pages, LeaveTheirFiltersAsTheyAreOnCancel) {
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
