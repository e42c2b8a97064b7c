// The "Filters" pages: what they show, and their switch.

#include "platform/runtime_error.h"
#include "tests/console/filter_pages_fixture.h"

namespace qv {
namespace {

using test::PageError;
using test::Person;
using testing::ElementsAre;
using testing::IsEmpty;

class Pages : public test::FilterPages {};

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

TEST_F(Pages, StartedAgainAreNotChangedByTheNewValue) {
  Start(mailbox);
  run.store.server().options = {{2, "abc/joe", "MailBox-MailboxRulesStatus", "1"}};
  Start(mailbox);
  EXPECT_TRUE(mailbox.chkEnabled.Checked());
  EXPECT_FALSE(mailbox.Changed());
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
  EXPECT_THAT(run.desktop.TakeMessages(), ElementsAre(PageError("Error loading filters for mailbox:No store.")));
  Start(postoffice);
  EXPECT_THAT(run.desktop.TakeMessages(), ElementsAre(PageError("Error loading filters for postoffice:No store.")));
}

TEST_F(Pages, AfterAFailedLoadingTheSwitchMarksNothing) {
  run.store.Raise("Option.GetOption", "No options.");
  Start(mailbox);
  EXPECT_THAT(run.desktop.TakeMessages(), ElementsAre(PageError("Error loading filters for mailbox:No options.")));
  Person(mailbox).Click("chkEnabled");
  EXPECT_FALSE(mailbox.Changed());
}

TEST_F(Pages, OpenTheSameHelpTopic) {
  mailbox.IMMCPropertyPage_Help();
  postoffice.IMMCPropertyPage_Help();
  EXPECT_THAT(run.desktop.topics, ElementsAre("qvhelp.chm::/mailboxfilters.htm", "qvhelp.chm::/mailboxfilters.htm"));
}

TEST_F(Pages, DoNothingInTheOtherOperations) {
  Start(mailbox);
  run.store.calls.clear();
  mailbox.IMMCPropertyPage_Cancel();
  EXPECT_TRUE(mailbox.IMMCPropertyPage_QueryCancel());
  mailbox.IMMCPropertyPage_Close();
  EXPECT_THAT(run.store.calls, IsEmpty());
}

}  // namespace
}  // namespace qv
