// The rows of a filter's criteria.

#include "platform/runtime_error.h"
#include "tests/editor/criteria_list_fixture.h"

namespace qv {
namespace {

using test::ShownMessage;
using testing::ElementsAre;
using testing::IsEmpty;

class CriteriaLoad : public test::CriteriaRows {};

TEST_F(CriteriaLoad, RowsCarryKeyStatusAndDescription) {
  Add("7", 1);
  Load();
  ASSERT_EQ(form.lvwCriteria.Count(), 1);
  EXPECT_EQ(form.lvwCriteria.Row(0).Key, "CRITERIA-CRT1-RULE-7");
  EXPECT_EQ(form.lvwCriteria.Row(0).Text, "Enabled");
  EXPECT_THAT(form.lvwCriteria.Row(0).SubItems, ElementsAre("Rule 7"));
}

TEST_F(CriteriaLoad, OfASystemFilterAreAllButTheSecureRow) {
  AddAll("", "");
  Load();
  EXPECT_EQ(form.lvwCriteria.Count(), 23);
  EXPECT_EQ(Rules(), "1 2 3 4 5 6 7 8 9 10 12 13 14 15 16 17 18 19 20 21 22 23 24");
}

TEST_F(CriteriaLoad, OfAPostofficeOrAMailboxAre17) {
  AddAll("abc", "");
  AddAll("abc", "joe");
  Load("abc");
  EXPECT_EQ(form.lvwCriteria.Count(), 17);
  EXPECT_EQ(Rules(), "1 2 3 4 5 6 7 8 9 10 12 14 16 17 18 19 20");
  Load("abc", "joe");
  EXPECT_EQ(Rules(), "1 2 3 4 5 6 7 8 9 10 12 14 16 17 18 19 20");
}

TEST_F(CriteriaLoad, OfAnUnknownRuleAreListedAtEveryScope) {
  for (const char* rule : {"30", "0", "x", "011"}) {
    Add(rule, 1);
    Add(rule, 1, "abc");
    Add(rule, 1, "abc", "joe");
  }
  Load();
  EXPECT_EQ(Rules(), "30 0 x 011");
  Load("abc");
  EXPECT_EQ(Rules(), "30 0 x 011");
  Load("abc", "joe");
  EXPECT_EQ(Rules(), "30 0 x 011");
}

TEST_F(CriteriaLoad, KeepStoreOrder) {
  for (const char* rule : {"12", "2", "30", "1"}) Add(rule);
  Load();
  EXPECT_EQ(Rules(), "12 2 30 1");
}

TEST_F(CriteriaLoad, AreDisabledByAnyStatusButOne) {
  Add("1", 0);
  Add("2", 2);
  Add("3", -1);
  Add("4", 1);
  Load();
  EXPECT_EQ(StatusOf("1"), "Disabled");
  EXPECT_EQ(StatusOf("2"), "Disabled");
  EXPECT_EQ(StatusOf("3"), "Disabled");
  EXPECT_EQ(StatusOf("4"), "Enabled");
}

TEST_F(CriteriaLoad, AreThoseOfTheFilterOnItsHost) {
  Add("1");
  Add("2", 0, "", "", "CRT2");
  run.store.server("MAIL2").criteria = {{"CRT1", "9", "", "Far", 1, "", 1, "", ""}};
  Load();
  EXPECT_EQ(Rules(), "1");
  Load("", "", "MAIL2");
  EXPECT_EQ(Rules(), "9");
}

TEST_F(CriteriaLoad, AreAskedForInTheOrderOfARecordObject) {
  Add("1");
  Add("2");
  Load();
  EXPECT_THAT(run.store.calls, ElementsAre("Criteria.Create", "Criteria.SetHost@", "Criteria.FindFirstCriteria@(CRT1)",
                                           "Criteria.FindNextCriteria@", "Criteria.FindNextCriteria@"));
}

TEST_F(CriteriaLoad, OfAMissingFilterAreNoneWithoutAMessage) {
  Add("1", 0, "", "", "CRT2");
  Load();
  EXPECT_EQ(form.lvwCriteria.Count(), 0);
  EXPECT_THAT(run.desktop.messages, IsEmpty());
}

TEST_F(CriteriaLoad, TheRowToSelectCountsFromOne) {
  Add("1");
  Add("2");
  Load("", "", "", 2);
  EXPECT_EQ(form.lvwCriteria.Selected(), 1);
  Load("", "", "", 0);
  EXPECT_EQ(form.lvwCriteria.Selected(), -1);
  Load("", "", "", 3);
  EXPECT_EQ(form.lvwCriteria.Selected(), -1);
}

TEST_F(CriteriaLoad, AnErrorIsTheCallersAffair) {
  run.store.Raise("Criteria.FindFirstCriteria", "No store.");
  EXPECT_THROW(Load(), RuntimeError);
}

class CriteriaCheck : public test::CriteriaRows {};

TEST_F(CriteriaCheck, WritesTheRowAsItWasWithItsNewStatus) {
  run.store.server().criteria = {{"CRT1", "7", "type", "Subject", 0, "a,b", 5, "", ""}};
  Load();
  run.store.calls.clear();
  form.lvwCriteria.Check(0, true);
  EXPECT_THAT(run.store.calls, ElementsAre("Criteria.Create", "Criteria.SetHost@", "Criteria.GetCriteria@(CRT1,7)",
                                           "Criteria.EditCriteria@(7,1,,type,Subject,a,b,5)"));
  form.lvwCriteria.Check(0, false);
  EXPECT_EQ(run.store.server().criteria[0].Status, 0);
  EXPECT_EQ(StatusOf("7"), "Disabled");
  EXPECT_EQ(run.registry.TakeReloads(), 0);
}

TEST_F(CriteriaCheck, LeavesTheRowsText) {
  Add("7", 0);
  Load();
  form.lvwCriteria.Check(0, true);
  EXPECT_EQ(run.store.server().criteria[0].Status, 1);
  EXPECT_EQ(StatusOf("7"), "Disabled");
}

TEST_F(CriteriaCheck, OfAnotherKeyDoesNothing) {
  form.lvwCriteria.AddRow({"CRITERIA-CRT1-TASK-1", "", {""}, false});
  form.lvwCriteria.Check(0, true);
  EXPECT_THAT(run.store.calls, IsEmpty());
}

TEST_F(CriteriaCheck, ARefusalIsTold) {
  Add("7", 0);
  Load();
  run.store.Refuse("Criteria.EditCriteria", 2);
  form.lvwCriteria.Check(0, true);
  EXPECT_THAT(run.desktop.messages, ElementsAre(ShownMessage{"Unable to update Criteria", "Error",
                                                             MessageIcon::Critical, MessageButtons::Ok}));
}

TEST_F(CriteriaCheck, AnErrorIsTold) {
  Add("7", 0);
  Load();
  run.store.Raise("Criteria.GetCriteria", "Locked.");
  form.lvwCriteria.Check(0, true);
  EXPECT_THAT(run.desktop.messages, ElementsAre(ShownMessage{"Error saving criteria: Locked.", "Error",
                                                             MessageIcon::Critical, MessageButtons::Ok}));
}

}  // namespace
}  // namespace qv
