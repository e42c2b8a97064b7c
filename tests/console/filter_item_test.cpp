// New filters, renaming, the limit.

#include "console/filter_item_dialog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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

class Dialog : public testing::Test {
 protected:
  frmFilterItem& dialog() { return run.run.The<frmFilterItem>(); }

  // The person's name for the filter and OK; a dialog that is still open then is cancelled.
  bool Add(const std::string& name, const std::string& postoffice = "", const std::string& mailbox = "",
           const std::string& host = "") {
    run.desktop.Visit([&](Form& form) {
      Person person(form);
      person.Set("txtName", name);
      person.Click("cmdOK");
      if (form.Loaded()) person.Click("cmdCancel");
    });
    return dialog().AddFilter(handed_back, postoffice, mailbox, host);
  }
  void Edit(const std::string& id, const std::function<void(Person&)>& visit) {
    run.desktop.Visit([&](Form& form) {
      Person person(form);
      visit(person);
    });
    dialog().AddMode = 0;
    dialog().FilterEntryID = id;
    dialog().ShowModal();
  }
  void Fill(int count) {
    for (int n = 0; n < count; ++n) {
      const std::string id = "X" + std::to_string(n);
      run.store.server().filters.push_back({"FLT" + id, "CRT" + id, "", "F" + std::to_string(n), "", 1, "", ""});
    }
  }
  std::vector<test::FilterRow>& filters() { return run.store.server().filters; }
  std::vector<test::CriteriaRow>& criteria() { return run.store.server().criteria; }

  TestRun run;
  std::string handed_back = "before";
};

// --- the dialog ---

TEST_F(Dialog, ForANewFilterHasItsCaptionAndDesign) {
  run.desktop.Visit([&](Form& form) {
    EXPECT_EQ(form.name(), "frmFilterItem");
    EXPECT_EQ(form.Caption(), "Add New Filter Item");
    EXPECT_EQ(dialog().txtName.Text(), "");
    EXPECT_TRUE(dialog().chkStatus.Checked());
    EXPECT_EQ(dialog().Frame2.Caption(), "General Properties");
    EXPECT_EQ(dialog().Label1.Caption(), "Name:");
    EXPECT_EQ(dialog().chkStatus.Caption(), "Filter is Enabled");
    EXPECT_EQ(dialog().cmdOK.Caption(), "OK");
    EXPECT_EQ(dialog().cmdOK.role(), Button::Role::Default);
    EXPECT_EQ(dialog().cmdCancel.Caption(), "&Cancel");
    EXPECT_EQ(dialog().cmdCancel.role(), Button::Role::Cancel);
    EXPECT_EQ(dialog().Label2.Caption(),
              "Filters are currently disabled, so this filter will not occur until you have enabled the Quillvane "
              "Message Filter under the Filter options for the server.");
    EXPECT_EQ(dialog().fmeSortOrder.Caption(), "Sort Order");
    EXPECT_EQ(dialog().optOrder0.name(), "optOrder(0)");
    EXPECT_EQ(dialog().optOrder0.Caption(), "Insert before:");
    EXPECT_FALSE(dialog().optOrder0.Checked());
    EXPECT_EQ(dialog().optOrder1.name(), "optOrder(1)");
    EXPECT_EQ(dialog().optOrder1.Caption(), "Move to end of list");
    EXPECT_TRUE(dialog().optOrder1.Checked());
    EXPECT_EQ(form.Focus(), &dialog().txtName);
    form.Unload();
  });
  std::string name;
  EXPECT_FALSE(dialog().AddFilter(name, "", "", ""));
}

TEST_F(Dialog, ShowsTheNoticeWhileFiltersAreOff) {
  const auto look = [&](int height, bool notice) {
    run.desktop.Visit([&, height, notice](Form& form) {
      EXPECT_EQ(form.Height(), height);
      EXPECT_EQ(dialog().Label2.Showing(), notice);
      EXPECT_FALSE(dialog().fmeSortOrder.Showing());
      EXPECT_FALSE(dialog().lstFilters.Showing());
      EXPECT_TRUE(dialog().cmdOK.Showing());
      form.Unload();
    });
    std::string name;
    dialog().AddFilter(name, "", "", "");
  };
  look(3195, true);
  run.registry.SetWord("SOFTWARE\\quillvane\\quillvane\\agents\\mta\\filters", "Enabled", 1);
  look(3195, true);
  run.registry.SetWord("SOFTWARE\\quillvane\\quillvane\\agents\\mta\\filters\\mtafilter", "Status", 2);
  look(2265, false);
  run.registry.SetWord("SOFTWARE\\quillvane\\quillvane\\agents\\mta\\filters", "Enabled", 0);
  look(3195, true);
}

TEST_F(Dialog, AsksTheHostWhetherFiltersAreOn) {
  run.store.server("MAIL2").words["software\\quillvane\\quillvane\\agents\\mta\\filters|enabled"] = "1";
  run.store.server("MAIL2").words["software\\quillvane\\quillvane\\agents\\mta\\filters\\mtafilter|status"] = "1";
  run.desktop.Visit([](Form& form) {
    EXPECT_EQ(form.Height(), 2265);
    form.Unload();
  });
  std::string name;
  dialog().AddFilter(name, "", "", "MAIL2");
}

TEST_F(Dialog, ListsTheFiltersOfItsScope) {
  filters() = {{"{SPAM_FILTER}", "", "", "Spam", "", 1, "", ""},
               {"FLT1", "CRT1", "", "One", "", 0, "", ""},
               {"FLT2", "CRT2", "", "Elsewhere", "", 1, "abc", ""}};
  run.desktop.Visit([&](Form& form) {
    EXPECT_THAT(dialog().lstFilters.Items(), ElementsAre("Filter (1) - Spam", "Filter (2) - One"));
    EXPECT_EQ(dialog().lstFilters.ListIndex(), 0);
    EXPECT_TRUE(dialog().lstFilters.Enabled());
    form.Unload();
  });
  std::string name;
  dialog().AddFilter(name, "", "", "");
}

TEST_F(Dialog, OfAnEmptyScopeDisablesTheList) {
  run.desktop.Visit([&](Form& form) {
    EXPECT_THAT(dialog().lstFilters.Items(), IsEmpty());
    EXPECT_FALSE(dialog().lstFilters.Enabled());
    form.Unload();
  });
  std::string name;
  dialog().AddFilter(name, "", "", "");
}

TEST_F(Dialog, LoadsWithErrorsIgnored) {
  run.store.Raise("Filter.Create", "No store.");
  run.desktop.Visit([&](Form& form) {
    EXPECT_EQ(form.Caption(), "Add New Filter Item");
    EXPECT_FALSE(dialog().lstFilters.Enabled());
    form.Unload();
  });
  std::string name;
  EXPECT_FALSE(dialog().AddFilter(name, "", "", ""));
  EXPECT_THAT(run.desktop.messages, IsEmpty());
}

TEST_F(Dialog, TakesANameOf127Characters) {
  std::string typed, stored;
  for (int n = 0; n < 200; ++n) typed += "\xC3\xA4";
  for (int n = 0; n < 127; ++n) stored += "\xC3\xA4";
  EXPECT_TRUE(Add(typed));
  EXPECT_EQ(filters()[0].Description, stored);
}

TEST_F(Dialog, SelectsTheNameWhenTheTabKeyBringsTheFocus) {
  filters() = {{"FLT1", "CRT1", "", "Name", "", 1, "", ""}};
  Edit("FLT1", [&](Person& person) {
    EXPECT_EQ(dialog().txtName.SelLength(), 0u);
    person.Tab(run.desktop, "txtName");
    EXPECT_EQ(dialog().txtName.SelStart(), 0u);
    EXPECT_EQ(dialog().txtName.SelLength(), 4u);
    person.Close();
  });
}

// --- add ---

TEST_F(Dialog, AddsAFilterWithItsCriteria) {
  EXPECT_TRUE(Add("First"));
  EXPECT_EQ(handed_back, "First");
  ASSERT_EQ(filters().size(), 1u);
  const test::FilterRow& row = filters()[0];
  EXPECT_EQ(row.FilterEntryID, "FLT00000001000000000000000000000000");
  EXPECT_EQ(row.CriteriaID, "CRT00000001000000000000000000000000");
  EXPECT_EQ(row.ActionID, "");
  EXPECT_EQ(row.Description, "First");
  EXPECT_EQ(row.Note, "");
  EXPECT_EQ(row.Status, 1);
  EXPECT_EQ(row.Postoffice, "");
  EXPECT_EQ(row.Mailbox, "");
  ASSERT_EQ(criteria().size(), 24u);
  for (int n = 0; n < 24; ++n) {
    const test::CriteriaRow& rule = criteria()[static_cast<std::size_t>(n)];
    EXPECT_EQ(rule.RuleID, std::to_string(n + 1));
    EXPECT_EQ(rule.CriteriaID, "CRT00000001000000000000000000000000");
    EXPECT_EQ(rule.CriteriaType, "");
    EXPECT_EQ(rule.Status, 0);
    EXPECT_EQ(rule.Values, "");
    EXPECT_EQ(rule.Frequency, 1);
    EXPECT_EQ(rule.Postoffice, "");
    EXPECT_EQ(rule.Mailbox, "");
  }
  EXPECT_EQ(criteria()[0].Description, "Where the Subject header line contains specific words");
  EXPECT_EQ(criteria()[15].Description, "All Messages - Process this filter actions for all messages");
  EXPECT_EQ(criteria()[23].Description, "Where the message DomainKey verification return results matching");
  EXPECT_EQ(run.registry.TakeReloads(), 0);
}

TEST_F(Dialog, WritesInItsOrder) {
  run.desktop.Visit([&](Form& form) {
    Person(form).Set("txtName", "First");
    run.store.calls.clear();
    Person(form).Click("cmdOK");
  });
  dialog().AddFilter(handed_back, "", "", "");
  const std::string id = "00000001000000000000000000000000";
  std::vector<std::string> golden = {"Filter.Create", "Filter.SetHost@", "Filter.FindFirstFilter@",
                                     "Filter.Create", "Filter.SetHost@", "Filter.AddFilter@(FLT" + id + ")",
                                     "Criteria.Create", "Criteria.SetHost@"};
  for (int n = 1; n <= 24; ++n) {
    golden.push_back("Criteria.AddCriteria@(CRT" + id + "," + std::to_string(n) + ")");
  }
  EXPECT_EQ(run.store.calls, golden);
}

TEST_F(Dialog, AddsInItsScopeAndOnItsHost) {
  run.store.server("MAIL2");
  EXPECT_TRUE(Add("Mine", "abc", "joe", "MAIL2"));
  ASSERT_EQ(run.store.server("MAIL2").filters.size(), 1u);
  EXPECT_EQ(run.store.server("MAIL2").filters[0].Postoffice, "abc");
  EXPECT_EQ(run.store.server("MAIL2").filters[0].Mailbox, "joe");
  ASSERT_EQ(run.store.server("MAIL2").criteria.size(), 24u);
  EXPECT_EQ(run.store.server("MAIL2").criteria[0].Postoffice, "abc");
  EXPECT_EQ(run.store.server("MAIL2").criteria[0].Mailbox, "joe");
  EXPECT_TRUE(filters().empty());
}

TEST_F(Dialog, AddsADisabledFilter) {
  run.desktop.Visit([](Form& form) {
    Person person(form);
    person.Set("txtName", "Off");
    person.Click("chkStatus");
    person.Click("cmdOK");
  });
  EXPECT_TRUE(dialog().AddFilter(handed_back, "", "", ""));
  EXPECT_EQ(filters()[0].Status, 0);
  EXPECT_EQ(criteria()[0].Status, 0);
}

TEST_F(Dialog, ANameIsWanted) {
  EXPECT_FALSE(Add(""));
  EXPECT_THAT(run.desktop.messages, ElementsAre(Error("You must specify a description for the Filter")));
  EXPECT_TRUE(filters().empty());
  EXPECT_TRUE(criteria().empty());
}

TEST_F(Dialog, AfterARefusalThePersonMayMendTheName) {
  run.desktop.Visit([](Form& form) {
    Person person(form);
    person.Click("cmdOK");
    ASSERT_TRUE(form.Loaded());
    person.Set("txtName", "Mended");
    person.Click("cmdOK");
  });
  EXPECT_TRUE(dialog().AddFilter(handed_back, "", "", ""));
  EXPECT_EQ(handed_back, "Mended");
}

TEST_F(Dialog, TheLimitComesBeforeTheName) {
  Fill(99);
  EXPECT_TRUE(Add("the hundredth"));
  EXPECT_EQ(filters().size(), 100u);
  const ShownMessage limit = {"A maximum of 100 filters can be created.", "Warning", MessageIcon::Exclamation,
                              MessageButtons::Ok};
  EXPECT_FALSE(Add(""));
  EXPECT_FALSE(Add("another"));
  EXPECT_THAT(run.desktop.messages, ElementsAre(limit, limit));
  EXPECT_EQ(filters().size(), 100u);
}

TEST_F(Dialog, TheLimitCountsTheSpamFilterAndNoOtherScope) {
  Fill(99);
  filters().push_back({"{SPAM_FILTER}", "", "", "Spam", "", 1, "", ""});
  EXPECT_FALSE(Add("One", "abc", "joe"));
  filters().pop_back();
  for (int n = 0; n < 100; ++n) {
    const std::string id = "M" + std::to_string(n);
    filters().push_back({"FLT" + id, "CRT" + id, "", "M", "", 1, "abc", "joe"});
  }
  EXPECT_TRUE(Add("One", "abc", "joe"));
}

TEST_F(Dialog, TheLimitCountsTheConsolesServer) {
  Fill(100);
  run.store.server("MAIL2");
  EXPECT_FALSE(Add("Far", "", "", "MAIL2"));
  run.run.ServerHost = "MAIL2";
  run.desktop.TakeMessages();
  EXPECT_TRUE(Add("Local after all", "", "", ""));
  EXPECT_EQ(filters().size(), 101u);
  EXPECT_THAT(run.desktop.messages, IsEmpty());
}

TEST_F(Dialog, ARefusedFilterIsToldAndGetsItsCriteriaAllTheSame) {
  run.store.Refuse("Filter.AddFilter", 0);
  EXPECT_TRUE(Add("First"));
  EXPECT_THAT(run.desktop.messages, ElementsAre(Error("Unable to Add Filter")));
  EXPECT_TRUE(filters().empty());
  EXPECT_EQ(criteria().size(), 24u);
}

TEST_F(Dialog, AnyResultButZeroIsASuccess) {
  run.store.Refuse("Filter.AddFilter", -1);
  EXPECT_TRUE(Add("First"));
  EXPECT_THAT(run.desktop.messages, IsEmpty());
}

TEST_F(Dialog, RefusedCriteriaPassInSilence) {
  run.store.Refuse("Criteria.AddCriteria", 0);
  EXPECT_TRUE(Add("First"));
  EXPECT_EQ(run.store.CountOf("Criteria.AddCriteria"), 24);
  EXPECT_THAT(run.desktop.messages, IsEmpty());
}

TEST_F(Dialog, AnErrorOfTheSaveIsToldAndTheDialogStays) {
  for (const char* operation : {"Filter.FindFirstFilter", "Filter.AddFilter", "Criteria.Create",
                                "Criteria.AddCriteria"}) {
    run.store.Raise(operation, "Locked.");
    EXPECT_FALSE(Add("First")) << operation;
    EXPECT_THAT(run.desktop.TakeMessages(), ElementsAre(Error("Could not save filter:Locked."))) << operation;
    run.store.Heal();
  }
}

TEST_F(Dialog, WithoutAGuidTheIdIsZeros) {
  run.guids.refuse = true;
  EXPECT_TRUE(Add("First"));
  EXPECT_EQ(filters()[0].FilterEntryID, "FLT00000000");
}

TEST_F(Dialog, ACancelledAddHandsBackWhatTheDialogHolds) {
  run.desktop.Visit([](Form& form) {
    Person(form).Set("txtName", "typed");
    Person(form).Click("cmdCancel");
  });
  EXPECT_FALSE(dialog().AddFilter(handed_back, "", "", ""));
  EXPECT_EQ(handed_back, "");
  EXPECT_TRUE(filters().empty());
}

TEST_F(Dialog, TheCloseBoxIsNoSave) {
  EXPECT_TRUE(Add("First"));
  run.desktop.Visit([](Form& form) { Person(form).Close(); });
  EXPECT_FALSE(dialog().AddFilter(handed_back, "", "", ""));
}

// --- edit ---

TEST_F(Dialog, ShowsTheFilterInHand) {
  filters() = {{"FLT1", "CRT1", "act", "Old", "note", 0, "", ""}};
  Edit("FLT1", [&](Person& person) {
    EXPECT_EQ(dialog().Caption(), "Filter Properties");
    EXPECT_EQ(dialog().txtName.Text(), "Old");
    EXPECT_FALSE(dialog().chkStatus.Checked());
    EXPECT_EQ(dialog().Height(), 0);
    EXPECT_EQ(dialog().ClientHeight(), 2775);
    EXPECT_TRUE(dialog().Label2.Showing());
    EXPECT_FALSE(dialog().fmeSortOrder.Showing());
    EXPECT_FALSE(dialog().fmeSortOrder.Enabled());
    EXPECT_FALSE(dialog().optOrder0.Enabled());
    EXPECT_FALSE(dialog().optOrder1.Enabled());
    EXPECT_FALSE(dialog().lstFilters.Enabled());
    person.Close();
  });
  EXPECT_EQ(dialog().ActionID, "act");
  EXPECT_EQ(dialog().CriteriaID, "CRT1");
  EXPECT_EQ(dialog().Note, "note");
  EXPECT_EQ(dialog().Status, 0);
  EXPECT_EQ(dialog().Description, "Old");
}

TEST_F(Dialog, WritesNameAndStatusAndNothingElse) {
  filters() = {{"FLT1", "CRT1", "act", "Old", "note", 1, "", ""}};
  Edit("FLT1", [](Person& person) {
    person.Set("txtName", "New");
    person.Click("chkStatus");
    person.Click("cmdOK");
  });
  EXPECT_THAT(run.store.calls, Contains("Filter.EditFilter@(FLT1,0,New,act,note,CRT1,0)"));
  EXPECT_EQ(filters()[0].Description, "New");
  EXPECT_EQ(filters()[0].Status, 0);
  EXPECT_EQ(run.registry.TakeReloads(), 0);
}

TEST_F(Dialog, TakesAnEmptyNameInAnEdit) {
  filters() = {{"FLT1", "CRT1", "", "Old", "", 1, "", ""}};
  Edit("FLT1", [](Person& person) {
    person.Set("txtName", "");
    person.Click("cmdOK");
  });
  EXPECT_EQ(filters()[0].Description, "");
  EXPECT_THAT(run.desktop.messages, IsEmpty());
}

TEST_F(Dialog, IsNotHeldBackByTheLimitInAnEdit) {
  Fill(100);
  Edit("FLTX5", [](Person& person) {
    person.Set("txtName", "New");
    person.Click("cmdOK");
  });
  EXPECT_EQ(filters()[5].Description, "New");
}

TEST_F(Dialog, ClosesAtOnceForAFilterThatIsGone) {
  dialog().AddMode = 0;
  dialog().FilterEntryID = "FLT9";
  dialog().ShowModal();
  EXPECT_THAT(run.desktop.messages, ElementsAre(Error("Filter Not Found")));
  EXPECT_FALSE(dialog().Loaded());
}

TEST_F(Dialog, CountsAStoreThatRaisesAsNotFound) {
  filters() = {{"FLT1", "CRT1", "", "Old", "", 1, "", ""}};
  for (const char* operation : {"Filter.Create", "Filter.getfilter"}) {
    run.store.Raise(operation, "Locked.");
    dialog().AddMode = 0;
    dialog().FilterEntryID = "FLT1";
    dialog().ShowModal();
    EXPECT_THAT(run.desktop.TakeMessages(), ElementsAre(Error("Filter Not Found"))) << operation;
    run.store.Heal();
  }
}

TEST_F(Dialog, ARefusedUpdateIsToldAndTheDialogStays) {
  filters() = {{"FLT1", "CRT1", "", "Old", "", 1, "", ""}};
  for (int result : {0, 2}) {
    run.store.Refuse("Filter.EditFilter", result);
    Edit("FLT1", [&](Person& person) {
      person.Click("cmdOK");
      EXPECT_TRUE(dialog().Loaded());
      person.Click("cmdCancel");
    });
    EXPECT_THAT(run.desktop.TakeMessages(), ElementsAre(Error("The update to the filter failed."))) << result;
  }
}

TEST_F(Dialog, AnErrorOfTheUpdateIsToldAndTheDialogStays) {
  filters() = {{"FLT1", "CRT1", "", "Old", "", 1, "", ""}};
  run.store.Raise("Filter.EditFilter", "Locked.");
  Edit("FLT1", [&](Person& person) {
    person.Click("cmdOK");
    EXPECT_TRUE(dialog().Loaded());
    person.Click("cmdCancel");
  });
  EXPECT_THAT(run.desktop.messages, ElementsAre(Error("Could not save filter:Locked.")));
}

TEST_F(Dialog, EditsWhereTheLastAddWas) {
  filters() = {{"FLT1", "CRT1", "", "System", "", 1, "", ""}, {"FLT1", "CRT1", "", "Of abc", "", 1, "abc", ""}};
  run.desktop.Visit([](Form& form) { form.Unload(); });
  std::string name;
  dialog().AddFilter(name, "abc", "", "");
  Edit("FLT1", [](Person& person) {
    person.Set("txtName", "changed");
    person.Click("cmdOK");
  });
  EXPECT_EQ(filters()[0].Description, "System");
  EXPECT_EQ(filters()[1].Description, "changed");
}

}  // namespace
}  // namespace qv
