#include "editor/action_list.h"

#include "platform/runtime_error.h"
#include "tests/editor/action_list_fixture.h"

namespace qv::test {
namespace {

class ActionLists : public ActionListTest {};

TEST_F(ActionLists, ShowsTheTasksInTheStoresOrder) {
  PutTask("B", 1, "DELETE", "Delete Message");
  PutTask("A", 0, "MOVE", "Any text");
  PutTask("C", 2, "UNHEARD_OF", "Strange");
  form.Load();
  form.list.Open("CRTF", "", "", "");
  EXPECT_EQ(t.store.calls, (Items{"Task.Create", "Task.SetHost@", "Task.FindFirstTask@(CRTF)", "Task.FindNextTask@",
                                  "Task.FindNextTask@", "Task.FindNextTask@"}));
  EXPECT_EQ(Texts(), (Items{"Delete Message", "Any text", "Strange"}));
  EXPECT_EQ(form.lvwActions.Row(0).Key, "CRITERIA-CRTF-TASK-B");
  EXPECT_EQ(Shown(), (Items{"B", "-A", "-C"}));
  EXPECT_EQ(form.lvwActions.Selected(), -1);
  ASSERT_EQ(form.lvwActions.Columns().size(), 1u);
  EXPECT_EQ(form.lvwActions.Columns()[0].Key, "H1");
  EXPECT_EQ(form.lvwActions.Columns()[0].Header, "Actions");
  EXPECT_EQ(form.lvwActions.Columns()[0].Width, 5000);
  EXPECT_EQ(Buttons(), "Delete Up Down");
}

TEST_F(ActionLists, NotificationsHaveFixedTexts) {
  PutTask("1", 1, "NOTIFY_SENDER", "Reason one");
  PutTask("2", 1, "NOTIFY_RECIPIENTS", "Reason two");
  PutTask("3", 1, "NOTIFY_ADDRESS", "Reason three");
  Open();
  EXPECT_EQ(Texts(), (Items{"Notify Sender", "Notify Recipient", "Notify Address"}));
  person.Pick("lvwActions", 0);
  person.Click("cmdDown");
  EXPECT_EQ(Texts(), (Items{"Notify Recipient", "Notify Sender", "Notify Address"}));
  EXPECT_EQ(tasks().at(1).Description, "Reason one");
}

TEST_F(ActionLists, ShowsTheTasksOfItsFilterAndScopeOnly) {
  t.store.server("mail").tasks = {{"CRTF", "sys", "DELETE", "x", 1, "", "", ""},
                                  {"CRTF", "po", "DELETE", "x", 1, "", "post", ""},
                                  {"CRTF", "box", "DELETE", "x", 1, "", "post", "box"},
                                  {"CRTG", "other", "DELETE", "x", 1, "", "post", "box"}};
  form.Load();
  form.list.Open("CRTF", "post", "box", "mail");
  EXPECT_EQ(Shown(), (Items{"box"}));
  form.list.Open("CRTF", "post", "", "mail");
  EXPECT_EQ(Shown(), (Items{"po"}));
  form.list.Open("CRTF", "", "", "mail");
  EXPECT_EQ(Shown(), (Items{"sys"}));
}

TEST_F(ActionLists, AnEmptyListDisablesItsButtons) {
  Open();
  EXPECT_EQ(Buttons(), "");
  EXPECT_TRUE(form.cmdAdd.Enabled());
  person.Pick("lvwActions", -1);
  EXPECT_EQ(Buttons(), "");
  person.Open("lvwActions", -1);
  EXPECT_TRUE(Messages().empty());
  form.cmdDelete.SetEnabled(true);
  form.cmdUp.SetEnabled(true);
  form.cmdDown.SetEnabled(true);
  t.store.calls.clear();
  person.Click("cmdDelete");
  person.Click("cmdUp");
  person.Click("cmdDown");
  EXPECT_TRUE(t.store.calls.empty());
  EXPECT_TRUE(Messages().empty());
}

TEST_F(ActionLists, AClickOnAnEmptyListLeavesTheDeleteButton) {
  Open();
  form.cmdDelete.SetEnabled(true);
  form.cmdUp.SetEnabled(true);
  form.cmdDown.SetEnabled(true);
  person.Pick("lvwActions", -1);
  EXPECT_EQ(Buttons(), "Delete");
}

TEST_F(ActionLists, ASelectIndexSelectsItsRow) {
  Put({"A", "B"});
  form.list.LoadTasks("CRTF", 2);
  EXPECT_EQ(form.lvwActions.Selected(), 1);
  form.list.LoadTasks("CRTF", 0);
  EXPECT_EQ(form.lvwActions.Selected(), -1);
}

TEST_F(ActionLists, TheButtonsFollowTheSelectedRow) {
  Put({"A", "B", "C"});
  person.Pick("lvwActions", 0);
  EXPECT_EQ(Buttons(), "Delete Down");
  person.Pick("lvwActions", 1);
  EXPECT_EQ(Buttons(), "Delete Up Down");
  person.Pick("lvwActions", 2);
  EXPECT_EQ(Buttons(), "Delete Up");
  tasks().resize(2);
  form.list.LoadTasks("CRTF", 0);
  person.Pick("lvwActions", 0);
  EXPECT_EQ(Buttons(), "Delete Down");
  person.Pick("lvwActions", 1);
  EXPECT_EQ(Buttons(), "Delete Up");
  tasks().resize(1);
  form.list.LoadTasks("CRTF", 0);
  person.Pick("lvwActions", 0);
  EXPECT_EQ(Buttons(), "Delete");
}

TEST_F(ActionLists, WithoutASelectedRowNothingActs) {
  Put({"A", "B", "C"});
  EXPECT_EQ(Buttons(), "Delete Up Down");
  person.Click("cmdDelete");
  person.Click("cmdUp");
  person.Click("cmdDown");
  EXPECT_TRUE(t.store.calls.empty());
  EXPECT_TRUE(Messages().empty());
  person.Pick("lvwActions", -1);
  EXPECT_EQ(Buttons(), "Delete Up Down");
  person.Open("lvwActions", -1);
  EXPECT_TRUE(t.store.calls.empty());
  tasks().resize(1);
  form.list.LoadTasks("CRTF", 0);
  person.Pick("lvwActions", -1);
  EXPECT_EQ(Buttons(), "Delete");
}

TEST_F(ActionLists, AnErrorAtLoadingGoesToTheOpener) {
  PutTask("A");
  form.Load();
  t.store.Raise("Task.FindFirstTask", "Down.");
  EXPECT_THROW(form.list.Open("CRTF", "", "", ""), RuntimeError);
  EXPECT_THROW(form.list.Open("CRTF", "", "", "Nowhere"), RuntimeError);
}

TEST_F(ActionLists, AnotherFilterTakesThePlaceOfTheFirst) {
  Put({"A", "B", "C"});
  tasks().push_back({"CRTG", "X", "DELETE", "x", 1, "", "", ""});
  tasks().push_back({"CRTG", "Y", "DELETE", "x", 1, "", "", ""});
  form.list.Open("CRTG", "", "", "");
  ASSERT_EQ(form.lvwActions.Count(), 2);
  EXPECT_EQ(form.lvwActions.Row(0).Key, "CRITERIA-CRTG-TASK-X");
  person.Pick("lvwActions", 0);
  person.Click("cmdDown");
  EXPECT_EQ(Stored(), (Items{"A", "B", "C", "Y", "X"}));
}

}  // namespace
}  // namespace qv::test
