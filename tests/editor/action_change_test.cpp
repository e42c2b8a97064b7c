// What the list itself writes: deletes, check boxes, moves.

#include "tests/editor/action_list_fixture.h"

namespace qv::test {
namespace {

const ShownMessage kQuestion = {"Are you sure you wish to delete this action?", "Delete Action",
                                MessageIcon::Exclamation, MessageButtons::YesNo};

class ActionChanges : public ActionListTest {};

TEST_F(ActionChanges, DeleteAsksAndRemoves) {
  Put({"A", "B"});
  person.Pick("lvwActions", 0);
  t.store.calls.clear();
  t.desktop.answers = {MessageAnswer::No};
  person.Click("cmdDelete");
  EXPECT_EQ(Messages(), (std::vector<ShownMessage>{kQuestion}));
  EXPECT_TRUE(t.store.calls.empty());
  t.desktop.answers = {MessageAnswer::Yes};
  person.Click("cmdDelete");
  EXPECT_EQ(Messages(), (std::vector<ShownMessage>{kQuestion}));
  EXPECT_EQ(t.store.calls, (Items{"Task.Create", "Task.SetHost@", "Task.GetTask@(CRTF,A)", "Task.RemoveTask@(CRTF,A)",
                                  "Task.Create", "Task.SetHost@", "Task.FindFirstTask@(CRTF)", "Task.FindNextTask@"}));
  EXPECT_EQ(Shown(), (Items{"B"}));
  EXPECT_EQ(form.lvwActions.Selected(), -1);
  // The buttons stay as the click on the row left them.
  EXPECT_EQ(Buttons(), "Delete Down");
  EXPECT_EQ(t.registry.TakeReloads(), 0);
}

TEST_F(ActionChanges, DeletingTheLastActionDisablesTheButtons) {
  Put({"A"});
  person.Pick("lvwActions", 0);
  t.desktop.answers = {MessageAnswer::Yes};
  person.Click("cmdDelete");
  EXPECT_TRUE(tasks().empty());
  EXPECT_EQ(Buttons(), "");
}

TEST_F(ActionChanges, TheRecordOfADeletedLastActionDoesNotComeBack) {
  Put({"A"});
  person.Pick("lvwActions", 0);
  t.desktop.answers = {MessageAnswer::Yes};
  person.Click("cmdDelete");
  PutTask("B");
  PutTask("C");
  form.list.LoadTasks("CRTF", 1);
  person.Pick("lvwActions", 0);
  person.Click("cmdDown");
  EXPECT_EQ(Stored(), (Items{"C", "B"}));
}

TEST_F(ActionChanges, ATaskThatIsGoneIsDeletedInSilence) {
  Put({"A", "B"});
  person.Pick("lvwActions", 0);
  tasks().erase(tasks().begin());
  t.desktop.answers = {MessageAnswer::Yes};
  person.Click("cmdDelete");
  EXPECT_EQ(Messages(), (std::vector<ShownMessage>{kQuestion}));
  EXPECT_EQ(t.store.CountOf("Task.RemoveTask"), 0);
  EXPECT_EQ(Shown(), (Items{"B"}));
}

TEST_F(ActionChanges, ADeleteThatTheStoreRefuses) {
  Put({"A"});
  person.Pick("lvwActions", 0);
  t.store.Refuse("Task.RemoveTask", 0);
  t.desktop.answers = {MessageAnswer::Yes};
  person.Click("cmdDelete");
  EXPECT_EQ(Messages(),
            (std::vector<ShownMessage>{kQuestion, {"Could not delete action.", "Error", MessageIcon::Critical}}));
  EXPECT_EQ(Shown(), (Items{"A"}));
}

TEST_F(ActionChanges, ATemplateOutlivesItsAction) {
  t.files.Put("C:\\Config\\filters\\templates\\QVFILTER-a.txt", "x");
  PutTask("N", 1, "NOTIFY_SENDER", "R", "QVFILTER-a");
  Open();
  person.Pick("lvwActions", 0);
  t.desktop.answers = {MessageAnswer::Yes};
  person.Click("cmdDelete");
  EXPECT_TRUE(t.files.FileExists("C:\\Config\\filters\\templates\\QVFILTER-a.txt"));
}

TEST_F(ActionChanges, ACheckBoxWritesTheStatus) {
  PutTask("A");
  PutTask("B", 0, "MOVE", "Move it", "Inbox");
  Open();
  person.Tick("lvwActions", 1, true);
  EXPECT_EQ(t.store.calls, (Items{"Task.Create", "Task.SetHost@", "Task.GetTask@(CRTF,B)",
                                  "Task.EditTask@(B,1,,MOVE,Move it,Inbox)"}));
  EXPECT_EQ(Stored(), (Items{"A", "B"}));
  EXPECT_EQ(form.lvwActions.Selected(), -1);
  EXPECT_EQ(Buttons(), "Delete Up Down");
  person.Tick("lvwActions", 0, false);
  EXPECT_EQ(Stored(), (Items{"-A", "B"}));
  EXPECT_EQ(t.registry.TakeReloads(), 0);
}

TEST_F(ActionChanges, AMoveKeepsTheCheckBoxes) {
  Put({"A", "B", "C"});
  person.Tick("lvwActions", 2, false);
  person.Pick("lvwActions", 2);
  person.Click("cmdUp");
  EXPECT_EQ(Shown(), (Items{"A", "-C", "B"}));
  EXPECT_EQ(Stored(), (Items{"A", "-C", "B"}));
}

TEST_F(ActionChanges, ACheckBoxThatTheStoreRefusesStays) {
  Put({"A", "B"});
  t.store.Refuse("Task.EditTask", 0);
  person.Tick("lvwActions", 0, false);
  EXPECT_EQ(Messages(), Error("Unable to update action"));
  EXPECT_EQ(Shown(), (Items{"-A", "B"}));
  EXPECT_EQ(Stored(), (Items{"A", "B"}));
  // The record has kept the old status, which a move brings back.
  t.store.Heal();
  person.Pick("lvwActions", 0);
  person.Click("cmdDown");
  EXPECT_EQ(Shown(), (Items{"B", "A"}));
}

TEST_F(ActionChanges, ACheckBoxOfATaskThatIsGone) {
  Put({"A"});
  tasks().clear();
  person.Tick("lvwActions", 0, false);
  EXPECT_EQ(t.store.calls.back(), "Task.EditTask@(A,0,,,,)");
  EXPECT_EQ(Messages(), Error("Unable to update action"));
}

TEST_F(ActionChanges, AnErrorAtACheckBoxIsTold) {
  Put({"A"});
  for (const char* operation : {"Task.Create", "Task.SetHost", "Task.GetTask", "Task.EditTask"}) {
    t.store.Raise(operation, "Down.");
    person.Tick("lvwActions", 0, !form.lvwActions.Row(0).Checked);
    EXPECT_EQ(Messages(), Error("Error saving action: Down.")) << operation;
    t.store.Heal();
  }
  EXPECT_EQ(Stored(), (Items{"A"}));
}

TEST_F(ActionChanges, AMoveRemovesAllTasksAndAddsThemAgain) {
  PutTask("A", 1, "DELETE", "D", "v1");
  PutTask("B", 0, "MOVE", "M", "v2");
  Open();
  person.Pick("lvwActions", 0);
  t.store.calls.clear();
  person.Click("cmdDown");
  EXPECT_EQ(t.store.calls,
            (Items{"Task.Create", "Task.SetHost@", "Task.RemoveTask@(CRTF,)", "Task.SetHost@",
                   "Task.AddTask@(CRTF,B,MOVE,M,0,v2)", "Task.SetHost@", "Task.AddTask@(CRTF,A,DELETE,D,1,v1)"}));
  EXPECT_EQ(form.lvwActions.Selected(), 1);
  EXPECT_EQ(Buttons(), "Delete Up");
  person.Click("cmdUp");
  EXPECT_EQ(Stored(), (Items{"A", "-B"}));
  EXPECT_EQ(form.lvwActions.Selected(), 0);
  EXPECT_EQ(Buttons(), "Delete Down");
  EXPECT_EQ(t.registry.TakeReloads(), 0);
}

TEST_F(ActionChanges, AMoveKeepsTheScope) {
  t.store.server("mail").tasks = {{"CRTF", "A", "DELETE", "x", 1, "", "po", "box"},
                                  {"CRTF", "S", "DELETE", "x", 1, "", "", ""},
                                  {"CRTF", "B", "DELETE", "x", 1, "", "po", "box"}};
  form.Load();
  form.list.Open("CRTF", "po", "box", "mail");
  person.Pick("lvwActions", 1);
  person.Click("cmdUp");
  const auto& rows = t.store.server("mail").tasks;
  ASSERT_EQ(rows.size(), 3u);
  EXPECT_EQ(rows[0].TaskID, "S");
  EXPECT_EQ(rows[1].TaskID, "B");
  EXPECT_EQ(rows[1].Mailbox, "box");
  EXPECT_EQ(rows[2].TaskID, "A");
  EXPECT_EQ(rows[2].Postoffice, "po");
}

TEST_F(ActionChanges, TheEndsDoNotMove) {
  Put({"A", "B"});
  person.Pick("lvwActions", 0);
  form.cmdUp.Press();
  person.Pick("lvwActions", 1);
  form.cmdDown.Press();
  EXPECT_TRUE(t.store.calls.empty());
  EXPECT_EQ(Stored(), (Items{"A", "B"}));
}

TEST_F(ActionChanges, OneActionDoesNotMove) {
  Put({"A"});
  person.Pick("lvwActions", 0);
  EXPECT_EQ(Buttons(), "Delete");
  form.cmdUp.Press();
  form.cmdDown.Press();
  EXPECT_TRUE(t.store.calls.empty());
}

TEST_F(ActionChanges, AMoveBringsBackWhatAnotherConsoleRemoved) {
  Put({"A", "B", "C"});
  tasks().erase(tasks().begin());
  person.Pick("lvwActions", 1);
  person.Click("cmdDown");
  EXPECT_EQ(Stored(), (Items{"A", "C", "B"}));
}

TEST_F(ActionChanges, AnAddThatFailsAtAMoveDropsItsTask) {
  Put({"A", "B", "C"});
  person.Pick("lvwActions", 0);
  t.store.Refuse("Task.AddTask", 0, 2);
  person.Click("cmdDown");
  EXPECT_TRUE(Messages().empty());
  EXPECT_EQ(Stored(), (Items{"B", "A"}));
  EXPECT_EQ(Shown(), (Items{"B", "A", "C"}));
}

TEST_F(ActionChanges, ARemovalThatFailsAtAMoveIsIgnored) {
  Put({"A", "B"});
  person.Pick("lvwActions", 0);
  t.store.Refuse("Task.RemoveTask", 0);
  person.Click("cmdDown");
  EXPECT_TRUE(Messages().empty());
  EXPECT_EQ(t.store.CountOf("Task.AddTask"), 2);
}

TEST_F(ActionChanges, AnErrorAtAMoveIsTold) {
  Put({"A", "B", "C"});
  person.Pick("lvwActions", 0);
  t.store.Raise("Task.AddTask", "The store is down.", 1);
  person.Click("cmdDown");
  EXPECT_EQ(Messages(), Error("Error moving items:The store is down."));
  EXPECT_EQ(Stored(), (Items{"B"}));
  EXPECT_EQ(Shown(), (Items{"B", "A", "C"}));
  t.store.Heal();
  t.store.Raise("Task.Create", "Gone.");
  person.Click("cmdDown");
  EXPECT_EQ(Messages(), Error("Error moving items:Gone."));
}

}  // namespace
}  // namespace qv::test
