// The dialog of a filter's name: its look, and the change of a name.

#include "tests/console/filter_item_fixture.h"

namespace qv {
namespace {

using test::Error;
using test::Person;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class FilterItem : public test::ItemDialog {};

TEST_F(FilterItem, ForANewFilterHasItsCaptionAndDesign) {
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

TEST_F(FilterItem, ShowsTheNoticeWhileFiltersAreOff) {
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

TEST_F(FilterItem, AsksTheHostWhetherFiltersAreOn) {
  run.store.server("MAIL2").words["software\\quillvane\\quillvane\\agents\\mta\\filters|enabled"] = "1";
  run.store.server("MAIL2").words["software\\quillvane\\quillvane\\agents\\mta\\filters\\mtafilter|status"] = "1";
  run.desktop.Visit([](Form& form) {
    EXPECT_EQ(form.Height(), 2265);
    form.Unload();
  });
  std::string name;
  dialog().AddFilter(name, "", "", "MAIL2");
}

TEST_F(FilterItem, ListsTheFiltersOfItsScope) {
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

TEST_F(FilterItem, ListsTheFiltersOfItsHost) {
  filters() = {{"FLT1", "CRT1", "", "Here", "", 1, "abc", "joe"}};
  run.store.server("MAIL2").filters = {{"FLT1", "CRT1", "", "Joe's", "", 0, "abc", "joe"},
                                       {"FLT2", "CRT2", "", "Of abc", "", 1, "abc", ""},
                                       {"FLT3", "CRT3", "", "", "", 1, "abc", "joe"}};
  run.desktop.Visit([&](Form& form) {
    EXPECT_THAT(dialog().lstFilters.Items(), ElementsAre("Filter (1) - Joe's", "Filter (2) - "));
    form.Unload();
  });
  std::string name;
  dialog().AddFilter(name, "abc", "joe", "MAIL2");
}

TEST_F(FilterItem, OfAnEmptyScopeDisablesTheList) {
  run.desktop.Visit([&](Form& form) {
    EXPECT_THAT(dialog().lstFilters.Items(), IsEmpty());
    EXPECT_FALSE(dialog().lstFilters.Enabled());
    form.Unload();
  });
  std::string name;
  dialog().AddFilter(name, "", "", "");
}

TEST_F(FilterItem, LoadsWithErrorsIgnored) {
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

TEST_F(FilterItem, TakesANameOf127Characters) {
  std::string typed, stored;
  for (int n = 0; n < 200; ++n) typed += "\xC3\xA4";
  for (int n = 0; n < 127; ++n) stored += "\xC3\xA4";
  EXPECT_TRUE(Add(typed));
  EXPECT_EQ(filters()[0].Description, stored);
}

TEST_F(FilterItem, SelectsTheNameWhenTheTabKeyBringsTheFocus) {
  filters() = {{"FLT1", "CRT1", "", "Name", "", 1, "", ""}};
  Edit("FLT1", [&](Person& person) {
    EXPECT_EQ(dialog().txtName.SelLength(), 0u);
    person.Tab(run.desktop, "txtName");
    EXPECT_EQ(dialog().txtName.SelStart(), 0u);
    EXPECT_EQ(dialog().txtName.SelLength(), 4u);
    person.Close();
  });
}

class FilterEdit : public test::ItemDialog {};

TEST_F(FilterEdit, ShowsTheFilterInHand) {
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

TEST_F(FilterEdit, WritesNameAndStatusAndNothingElse) {
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

TEST_F(FilterEdit, TakesAnEmptyNameInAnEdit) {
  filters() = {{"FLT1", "CRT1", "", "Old", "", 1, "", ""}};
  Edit("FLT1", [](Person& person) {
    person.Set("txtName", "");
    person.Click("cmdOK");
  });
  EXPECT_EQ(filters()[0].Description, "");
  EXPECT_THAT(run.desktop.messages, IsEmpty());
}

TEST_F(FilterEdit, IsNotHeldBackByTheLimitInAnEdit) {
  Fill(100);
  Edit("FLTX5", [](Person& person) {
    person.Set("txtName", "New");
    person.Click("cmdOK");
  });
  EXPECT_EQ(filters()[5].Description, "New");
}

TEST_F(FilterEdit, ClosesAtOnceForAFilterThatIsGone) {
  dialog().AddMode = 0;
  dialog().FilterEntryID = "FLT9";
  dialog().ShowModal();
  EXPECT_THAT(run.desktop.messages, ElementsAre(Error("Filter Not Found")));
  EXPECT_FALSE(dialog().Loaded());
}

TEST_F(FilterEdit, CountsAStoreThatRaisesAsNotFound) {
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

TEST_F(FilterEdit, ARefusedUpdateIsToldAndTheDialogStays) {
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

TEST_F(FilterEdit, AFilterThatVanishesMeanwhileIsNotUpdated) {
  filters() = {{"FLT1", "CRT1", "", "Old", "", 1, "", ""}};
  Edit("FLT1", [&](Person& person) {
    filters().clear();
    person.Set("txtName", "New");
    person.Click("cmdOK");
    EXPECT_TRUE(dialog().Loaded());
    EXPECT_EQ(dialog().txtName.Text(), "New");
    person.Click("cmdCancel");
  });
  EXPECT_THAT(run.desktop.messages, ElementsAre(Error("The update to the filter failed.")));
  EXPECT_TRUE(filters().empty());
  EXPECT_TRUE(criteria().empty());
}

TEST_F(FilterEdit, AnErrorOfTheUpdateIsToldAndTheDialogStays) {
  filters() = {{"FLT1", "CRT1", "", "Old", "", 1, "", ""}};
  run.store.Raise("Filter.EditFilter", "Locked.");
  Edit("FLT1", [&](Person& person) {
    person.Click("cmdOK");
    EXPECT_TRUE(dialog().Loaded());
    person.Click("cmdCancel");
  });
  EXPECT_THAT(run.desktop.messages, ElementsAre(Error("Could not save filter:Locked.")));
}

TEST_F(FilterEdit, EditsWhereTheLastAddWas) {
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

TEST_F(FilterEdit, EditsOnTheHostOfTheLastAdd) {
  filters() = {{"FLT1", "CRT1", "", "Here", "", 1, "", ""}};
  auto& far = run.store.server("MAIL2").filters;
  far = {{"FLT1", "CRT1", "", "Far", "", 1, "", ""}};
  run.desktop.Visit([](Form& form) { form.Unload(); });
  std::string name;
  dialog().AddFilter(name, "", "", "MAIL2");
  Edit("FLT1", [&](Person& person) {
    EXPECT_EQ(dialog().txtName.Text(), "Far");
    person.Set("txtName", "changed");
    person.Click("cmdOK");
  });
  EXPECT_EQ(far[0].Description, "changed");
  EXPECT_EQ(filters()[0].Description, "Here");
}

TEST_F(FilterEdit, BetweenTwoAddsLeavesNothingBehind) {
  filters() = {{"FLT1", "CRT1", "act", "Old", "note", 0, "", ""}};
  EXPECT_TRUE(Add("First"));
  Edit("FLT1", [&](Person& person) {
    EXPECT_EQ(dialog().Height(), 0);
    person.Click("cmdOK");
  });
  run.desktop.Visit([&](Form& form) {
    EXPECT_EQ(form.Caption(), "Add New Filter Item");
    EXPECT_EQ(form.Height(), 3195);
    EXPECT_EQ(dialog().txtName.Text(), "");
    EXPECT_TRUE(dialog().chkStatus.Checked());
    EXPECT_TRUE(dialog().fmeSortOrder.Enabled());
    EXPECT_TRUE(dialog().optOrder0.Enabled());
    EXPECT_TRUE(dialog().optOrder1.Enabled());
    EXPECT_TRUE(dialog().lstFilters.Enabled());
    Person(form).Set("txtName", "Second");
    Person(form).Click("cmdOK");
  });
  EXPECT_TRUE(dialog().AddFilter(handed_back, "", "", ""));
  ASSERT_EQ(filters().size(), 3u);
  EXPECT_EQ(filters()[0].Description, "Old");
  EXPECT_EQ(filters()[2].Description, "Second");
  EXPECT_EQ(filters()[2].ActionID, "");
  EXPECT_EQ(filters()[2].Note, "");
}

}  // namespace
}  // namespace qv
