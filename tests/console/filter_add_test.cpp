// New filters, their criteria, the limit.

#include "tests/console/filter_item_fixture.h"

namespace qv {
namespace {

using test::Error;
using test::Person;
using test::ShownMessage;
using testing::ElementsAre;
using testing::IsEmpty;

class FilterAdd : public test::ItemDialog {};

TEST_F(FilterAdd, AddsAFilterWithItsCriteria) {
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

TEST_F(FilterAdd, WritesInItsOrder) {
  run.desktop.Visit([&](Form& form) {
    Person(form).Set("txtName", "First");
    run.store.calls.clear();
    Person(form).Click("cmdOK");
  });
  dialog().AddFilter(handed_back, "", "", "");
  const std::string id = "00000001000000000000000000000000";
  std::vector<std::string> golden = {"Filter.Create",   "Filter.SetHost@",  "Filter.FindFirstFilter@",
                                     "Filter.Create",   "Filter.SetHost@",  "Filter.AddFilter@(FLT" + id + ")",
                                     "Criteria.Create", "Criteria.SetHost@"};
  for (int n = 1; n <= 24; ++n) {
    golden.push_back("Criteria.AddCriteria@(CRT" + id + "," + std::to_string(n) + ")");
  }
  EXPECT_EQ(run.store.calls, golden);
}

TEST_F(FilterAdd, AddsInItsScopeAndOnItsHost) {
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

TEST_F(FilterAdd, AddsADisabledFilter) {
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

TEST_F(FilterAdd, ANameIsWanted) {
  EXPECT_FALSE(Add(""));
  EXPECT_THAT(run.desktop.messages, ElementsAre(Error("You must specify a description for the Filter")));
  EXPECT_TRUE(filters().empty());
  EXPECT_TRUE(criteria().empty());
}

TEST_F(FilterAdd, AfterARefusalThePersonMayMendTheName) {
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

TEST_F(FilterAdd, TheLimitComesBeforeTheName) {
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

TEST_F(FilterAdd, TheLimitCountsTheSpamFilterAndNoOtherScope) {
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

TEST_F(FilterAdd, TheLimitCountsTheConsolesServer) {
  Fill(100);
  run.store.server("MAIL2");
  EXPECT_FALSE(Add("Far", "", "", "MAIL2"));
  run.run.ServerHost = "MAIL2";
  run.desktop.TakeMessages();
  EXPECT_TRUE(Add("Local after all", "", "", ""));
  EXPECT_EQ(filters().size(), 101u);
  EXPECT_THAT(run.desktop.messages, IsEmpty());
}

TEST_F(FilterAdd, ARefusedFilterIsToldAndGetsItsCriteriaAllTheSame) {
  run.store.Refuse("Filter.AddFilter", 0);
  EXPECT_TRUE(Add("First"));
  EXPECT_THAT(run.desktop.messages, ElementsAre(Error("Unable to Add Filter")));
  EXPECT_TRUE(filters().empty());
  EXPECT_EQ(criteria().size(), 24u);
}

TEST_F(FilterAdd, AnyResultButZeroIsASuccess) {
  run.store.Refuse("Filter.AddFilter", -1);
  EXPECT_TRUE(Add("First"));
  EXPECT_THAT(run.desktop.messages, IsEmpty());
}

TEST_F(FilterAdd, RefusedCriteriaPassInSilence) {
  run.store.Refuse("Criteria.AddCriteria", 0);
  EXPECT_TRUE(Add("First"));
  EXPECT_EQ(run.store.CountOf("Criteria.AddCriteria"), 24);
  EXPECT_THAT(run.desktop.messages, IsEmpty());
}

TEST_F(FilterAdd, AnErrorOfTheSaveIsToldAndTheDialogStays) {
  for (const char* operation :
       {"Filter.FindFirstFilter", "Filter.AddFilter", "Criteria.Create", "Criteria.AddCriteria"}) {
    run.store.Raise(operation, "Locked.");
    EXPECT_FALSE(Add("First")) << operation;
    EXPECT_THAT(run.desktop.TakeMessages(), ElementsAre(Error("Could not save filter:Locked."))) << operation;
    run.store.Heal();
  }
}

TEST_F(FilterAdd, WithoutAGuidTheIdIsZeros) {
  run.guids.refuse = true;
  EXPECT_TRUE(Add("First"));
  EXPECT_EQ(filters()[0].FilterEntryID, "FLT00000000");
}

TEST_F(FilterAdd, ACancelledAddHandsBackWhatTheDialogHolds) {
  EXPECT_TRUE(Add("First"));
  run.desktop.Visit([](Form& form) {
    Person(form).Set("txtName", "typed");
    Person(form).Click("cmdCancel");
  });
  EXPECT_FALSE(dialog().AddFilter(handed_back, "", "", ""));
  EXPECT_EQ(handed_back, "");
  EXPECT_EQ(filters().size(), 1u);
}

TEST_F(FilterAdd, TheCloseBoxIsNoSave) {
  EXPECT_TRUE(Add("First"));
  run.desktop.Visit([](Form& form) { Person(form).Close(); });
  EXPECT_FALSE(dialog().AddFilter(handed_back, "", "", ""));
}

}  // namespace
}  // namespace qv
