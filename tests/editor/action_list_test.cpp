#include "editor/action_list.h"

#include "actions/action_dialog.h"
#include "actions/folder_dialog.h"
#include "actions/plain_dialogs.h"
#include "platform/runtime_error.h"
#include "tests/editor/action_list_fixture.h"

namespace qv::test {
namespace {

const ShownMessage kQuestion = {"Are you sure you wish to delete this action?", "Delete Action",
                                MessageIcon::Exclamation, MessageButtons::YesNo};

class ActionLists : public ActionListTest {
 protected:
  void Put(std::initializer_list<const char*> ids) {
    for (const char* id : ids) PutTask(id);
    Open();
  }
  // Queues a person who chooses an action by its text and then does something in its dialog.
  void Choose(const std::string& text, const std::function<void(ActionDialog&)>& visit = nullptr) {
    t.desktop.Visit([text](Form& select) {
      Person chooser(select);
      auto& list = dynamic_cast<ListBox&>(*select.Find("lstActions"));
      for (long i = 0; i < list.ListCount(); ++i) {
        if (list.List(i) == text) chooser.Pick("lstActions", i);
      }
      EXPECT_EQ(list.Text(), text);
      chooser.Click("cmdOK");
    });
    VisitDialog(visit);
  }
  void VisitDialog(const std::function<void(ActionDialog&)>& visit) {
    t.desktop.Visit([visit](Form& opened) {
      if (visit) visit(dynamic_cast<ActionDialog&>(opened));
      if (opened.Loaded()) Person(opened).Click("cmdOK");
    });
  }
};

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
  EXPECT_EQ(tasks()[1].Description, "Reason one");
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
  EXPECT_EQ(Buttons(), "");
  person.Open("lvwActions", -1);
  EXPECT_TRUE(t.store.calls.empty());
}

// Adding.

TEST_F(ActionLists, AddsAnAction) {
  Open();
  Choose("Delete Message", [](ActionDialog& dialog) {
    EXPECT_EQ(dialog.name(), "frmTaskDeleteMessage");
    EXPECT_EQ(dialog.ActionID, "CRTF");
    EXPECT_EQ(dialog.EditMode, 0);
  });
  person.Click("cmdAdd");
  EXPECT_EQ(Texts(), (Items{"Delete Message"}));
  EXPECT_EQ(form.lvwActions.Selected(), -1);
  EXPECT_EQ(Buttons(), "");
  person.Pick("lvwActions", 0);
  EXPECT_EQ(Buttons(), "Delete");
  EXPECT_TRUE(t.desktop.AllVisited());
}

TEST_F(ActionLists, EveryActionIsAddedThroughItsDialog) {
  struct Case {
    const char *text, *dialog, *type, *description, *sentence;
    const char* mailbox;
  };
  const Case cases[] = {
      {"Copy to BadMail", "frmTaskBadMail", "COPY_TO_BADMAIL", "Copy Message to Bad Mail", nullptr, ""},
      {"Copy to Quarantine", "FrmTaskQuarantine", "COPY_TO_QUARANTINE",
       "Copy the message to the Quarantine directory", nullptr, ""},
      {"Delete Message", "frmTaskDeleteMessage", "DELETE", "Delete Message", nullptr, ""},
      {"Notify Sender", "frmTaskNotifySender", "NOTIFY_SENDER", "", nullptr, ""},
      {"Notify Recipient", "frmTaskNotifyRecipients", "NOTIFY_RECIPIENTS", "", nullptr, ""},
      {"Mark as spam", "frmTaskMarkasSpam", "ADD_HEADER", "Mark message as spam", nullptr, ""},
      {"Stop Processing Filters", "frmTaskGeneric", "STOP_PROCESSING", "Stop processing filters",
       "This task stops processing any more filters for the message", ""},
      {"Move message to folder...", "frmTaskGenericFolder", "MOVE", "Move Message to Folder...",
       "This task moves the message to the specified folder", "box"},
      {"Copy message to folder...", "frmTaskGenericFolder", "COPY", "Copy Message to Folder...",
       "This task copies the message to the specified folder", "box"},
      {"Move message to Junk E-Mail folder", "frmTaskGeneric", "JUNK", "Move Message to Junk E-Mail Folder",
       "This task moves the message to Junk E-mail Folder", "box"},
      {"Move message to Quarantine folder", "frmTaskGeneric", "QUARANTINE", "Move Message to Quarantine Folder",
       "This task moves the message to Quarantine Folder", "box"},
  };
  auto& server = t.store.server("mail");
  for (const Case& c : cases) {
    server.tasks.clear();
    form.Load();
    form.list.Open("CRTF", "po", c.mailbox, "mail");
    Choose(c.text, [&](ActionDialog& dialog) {
      EXPECT_EQ(dialog.name(), c.dialog);
      EXPECT_EQ(dialog.TaskID, "");
      EXPECT_EQ(dialog.Postoffice, "po");
      EXPECT_EQ(dialog.Mailbox, c.mailbox);
      EXPECT_EQ(dialog.Host, "mail");
      if (c.sentence) {
 EXPECT_EQ(dialog.lblDescription.Caption(), c.sentence);
 }
    });
    person.Click("cmdAdd");
    ASSERT_EQ(server.tasks.size(), 1u) << c.text;
    EXPECT_EQ(server.tasks[0].TaskType, c.type);
    EXPECT_EQ(server.tasks[0].Description, c.description);
    EXPECT_EQ(server.tasks[0].ActionID, "CRTF");
    EXPECT_EQ(server.tasks[0].Postoffice, "po");
    EXPECT_EQ(server.tasks[0].Mailbox, c.mailbox);
  }
}

TEST_F(ActionLists, NoChoiceReloadsNothing) {
  Put({"A"});
  for (const char* button : {"cmdCancel", ""}) {
    t.desktop.Visit([button](Form& select) {
      if (*button) return Person(select).Click(button);
      Person(select).Close();
    });
    person.Click("cmdAdd");
  }
  EXPECT_TRUE(t.store.calls.empty());
}

TEST_F(ActionLists, ACancelledDialogReloadsTheList) {
  Put({"A"});
  person.Pick("lvwActions", 0);
  Choose("Delete Message", [&](ActionDialog& dialog) {
    tasks().clear();
    Person(dialog).Click("cmdCancel");
  });
  person.Click("cmdAdd");
  EXPECT_EQ(Texts(), Items{});
  EXPECT_EQ(Buttons(), "");
}

TEST_F(ActionLists, AnErrorAtAddingIsTold) {
  Put({"A"});
  person.Pick("lvwActions", 0);
  t.store.Raise("Task.FindFirstTask", "The store is down.");
  Choose("Delete Message");
  person.Click("cmdAdd");
  EXPECT_EQ(Messages(), Error("Error selecting action: The store is down."));

  t.files.MakeFolder("C:\\Config\\filters\\templates");
  t.files.fail = "FileNames";
  t.store.Heal();
  form.list.LoadTasks("CRTF", 1);
  t.desktop.Visit([](Form& select) {
    Person chooser(select);
    chooser.Pick("lstActions", 3);
    chooser.Click("cmdOK");
  });
  person.Click("cmdAdd");
  EXPECT_EQ(Messages(), Error("Error selecting action: Permission denied"));
  EXPECT_EQ(Shown(), (Items{"A", "00000001000000000000000000000000"}));
  EXPECT_EQ(form.lvwActions.Selected(), 0);
}

// Editing.

TEST_F(ActionLists, ADoubleClickOpensTheTask) {
  Put({"A", "B"});
  VisitDialog([](ActionDialog& dialog) {
    EXPECT_EQ(dialog.name(), "frmTaskDeleteMessage");
    EXPECT_EQ(dialog.ActionID, "CRTF");
    EXPECT_EQ(dialog.TaskID, "B");
    EXPECT_EQ(dialog.EditMode, 1);
    Person(dialog).Click("chkStatus");
  });
  person.Open("lvwActions", 1);
  EXPECT_EQ(Shown(), (Items{"A", "-B"}));
  EXPECT_EQ(Texts(), (Items{"Task A", "Delete Message"}));
  EXPECT_EQ(form.lvwActions.Selected(), 1);
  EXPECT_EQ(Buttons(), "Delete Up");
  EXPECT_TRUE(t.desktop.AllVisited());
}

TEST_F(ActionLists, EveryTypeIsEditedInItsDialog) {
  struct Case {
    const char *type, *description, *dialog, *caption, *sentence;
  };
  const Case cases[] = {
      {"JUNK", "x", "frmTaskGeneric", "Action - Move Message to Junk E-Mail Folder",
       "This task moves the message to Junk E-mail Folder"},
      {"QUARANTINE", "x", "frmTaskGeneric", "Action - Move Message to Quarantine Folder",
       "This task moves the message to Quarantine Folder"},
      {"COPY", "x", "frmTaskGenericFolder", "Action - Move Message",
       "This task copies the message to the specified folder"},
      {"MOVE", "x", "frmTaskGenericFolder", "Action - Move Message",
       "This task moves the message to the specified folder"},
      {"COPY_TO_BADMAIL", "x", "frmTaskBadMail", "Action - Copy to BadMail", nullptr},
      {"DELETE", "x", "frmTaskDeleteMessage", "Action - Delete Message", nullptr},
      {"COPY_TO_QUARANTINE", "x", "FrmTaskQuarantine", "Action - Quarantine Message", nullptr},
      {"NOTIFY_SENDER", "x", "frmTaskNotifySender", "Action - Notify Sender", nullptr},
      {"NOTIFY_RECIPIENTS", "x", "frmTaskNotifyRecipients", "Action - Notify Recipient", nullptr},
      {"NOTIFY_ADDRESS", "x", "frmTaskNotifyAddress", "Action - Notify Address", nullptr},
      {"FORWARD_TO_ADDRESS", "x", "frmForward", "Action - Forward message", nullptr},
      {"EXECUTE_APPLICATION", "x", "frmTaskExecuteApp", "Execute application", nullptr},
      {"ADD_HEADER", "x", "frmTaskAddHeader", "Add Header", nullptr},
      {"ADD_HEADER", "Mark message as spam", "frmTaskAddHeader", "Add Header", nullptr},
      {"ADD_HEADER", "Mark message as spam.", "frmTaskMarkasSpam", "Mark message as spam", nullptr},
      {"ADD_SUBJECT_PREFIX", "x", "frmTaskAddPrefix", "Add Subject Prefix", nullptr},
      {"STOP_PROCESSING", "x", "frmTaskGeneric", "Action - Stop processing filters",
       "This task stops processing any more filters for the message"},
  };
  for (const Case& c : cases) {
    tasks().clear();
    PutTask("T", 1, c.type, c.description, "v");
    Open();
    VisitDialog([&](ActionDialog& dialog) {
      EXPECT_EQ(dialog.name(), c.dialog);
      EXPECT_EQ(dialog.Caption(), c.caption);
      EXPECT_EQ(dialog.TaskID, "T");
      if (c.sentence) {
 EXPECT_EQ(dialog.lblDescription.Caption(), c.sentence);
 }
      Person(dialog).Click("cmdCancel");
    });
    person.Open("lvwActions", 0);
    EXPECT_TRUE(t.desktop.AllVisited()) << c.type;
    EXPECT_EQ(tasks()[0].Description, c.description);
  }
}

TEST_F(ActionLists, SharedDialogsDoNotMixTheirTypes) {
  PutTask("J", 1, "JUNK", "x");
  PutTask("S", 1, "STOP_PROCESSING", "x");
  Open();
  VisitDialog(nullptr);
  person.Open("lvwActions", 0);
  VisitDialog([](ActionDialog& dialog) {
    EXPECT_EQ(dialog.lblDescription.Caption(), "This task stops processing any more filters for the message");
  });
  person.Open("lvwActions", 1);
  EXPECT_EQ(tasks()[0].TaskType, "JUNK");
  EXPECT_EQ(tasks()[0].Description, "Move Message to Junk E-Mail Folder");
  EXPECT_EQ(tasks()[1].TaskType, "STOP_PROCESSING");
  EXPECT_EQ(tasks()[1].Description, "Stop processing filters");
}

TEST_F(ActionLists, ATypeWithoutADialogDoesNothingAndMovesAndGoesLikeAnyOther) {
  PutTask("R", 1, "REMOVE_ATTACHMENT", "Remove attachment", "*.exe");
  PutTask("B");
  Open();
  person.Open("lvwActions", 0);
  EXPECT_TRUE(Messages().empty());
  EXPECT_EQ(form.lvwActions.Selected(), 0);
  person.Click("cmdDown");
  EXPECT_EQ(Stored(), (Items{"B", "R"}));
  EXPECT_EQ(tasks()[1].Values, "*.exe");
  t.desktop.answers = {MessageAnswer::Yes};
  person.Click("cmdDelete");
  EXPECT_EQ(Stored(), (Items{"B"}));
}

TEST_F(ActionLists, ADoubleClickOnATaskThatIsGoneReloads) {
  Put({"A", "B", "C"});
  tasks().erase(tasks().begin() + 1);
  person.Open("lvwActions", 1);
  EXPECT_EQ(Shown(), (Items{"A", "C"}));
  EXPECT_EQ(form.lvwActions.Selected(), 1);
  EXPECT_EQ(Buttons(), "Delete Up");
  tasks().pop_back();
  person.Open("lvwActions", 1);
  EXPECT_EQ(Shown(), (Items{"A"}));
  EXPECT_EQ(form.lvwActions.Selected(), -1);
  EXPECT_EQ(Buttons(), "");
  tasks().clear();
  person.Open("lvwActions", 0);
  EXPECT_TRUE(Shown().empty());
  EXPECT_EQ(Buttons(), "");
  EXPECT_TRUE(Messages().empty());
}

TEST_F(ActionLists, AnErrorAtTheDoubleClickIsNotTrapped) {
  Put({"A"});
  t.store.Raise("Task.GetTask", "The store is down.");
  EXPECT_THROW(person.Open("lvwActions", 0), RuntimeError);
  EXPECT_TRUE(Messages().empty());
  EXPECT_EQ(Shown(), (Items{"A"}));
}

// Deleting.

TEST_F(ActionLists, DeleteAsksAndRemoves) {
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
  EXPECT_EQ(t.store.calls,
            (Items{"Task.Create", "Task.SetHost@", "Task.GetTask@(CRTF,A)", "Task.RemoveTask@(CRTF,A)", "Task.Create",
                   "Task.SetHost@", "Task.FindFirstTask@(CRTF)", "Task.FindNextTask@"}));
  EXPECT_EQ(Shown(), (Items{"B"}));
  EXPECT_EQ(form.lvwActions.Selected(), -1);
  // The buttons stay as the click on the row left them.
  EXPECT_EQ(Buttons(), "Delete Down");
  EXPECT_EQ(t.registry.TakeReloads(), 0);
}

TEST_F(ActionLists, DeletingTheLastActionDisablesTheButtons) {
  Put({"A"});
  person.Pick("lvwActions", 0);
  t.desktop.answers = {MessageAnswer::Yes};
  person.Click("cmdDelete");
  EXPECT_TRUE(tasks().empty());
  EXPECT_EQ(Buttons(), "");
}

TEST_F(ActionLists, TheRecordOfADeletedLastActionDoesNotComeBack) {
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

TEST_F(ActionLists, ATaskThatIsGoneIsDeletedInSilence) {
  Put({"A", "B"});
  person.Pick("lvwActions", 0);
  tasks().erase(tasks().begin());
  t.desktop.answers = {MessageAnswer::Yes};
  person.Click("cmdDelete");
  EXPECT_EQ(Messages(), (std::vector<ShownMessage>{kQuestion}));
  EXPECT_EQ(t.store.CountOf("Task.RemoveTask"), 0);
  EXPECT_EQ(Shown(), (Items{"B"}));
}

TEST_F(ActionLists, ADeleteThatTheStoreRefuses) {
  Put({"A"});
  person.Pick("lvwActions", 0);
  t.store.Refuse("Task.RemoveTask", 0);
  t.desktop.answers = {MessageAnswer::Yes};
  person.Click("cmdDelete");
  EXPECT_EQ(Messages(), (std::vector<ShownMessage>{
                            kQuestion, {"Could not delete action.", "Error", MessageIcon::Critical}}));
  EXPECT_EQ(Shown(), (Items{"A"}));
}

TEST_F(ActionLists, ATemplateOutlivesItsAction) {
  t.files.Put("C:\\Config\\filters\\templates\\QVFILTER-a.txt", "x");
  PutTask("N", 1, "NOTIFY_SENDER", "R", "QVFILTER-a");
  Open();
  person.Pick("lvwActions", 0);
  t.desktop.answers = {MessageAnswer::Yes};
  person.Click("cmdDelete");
  EXPECT_TRUE(t.files.FileExists("C:\\Config\\filters\\templates\\QVFILTER-a.txt"));
}

// Check boxes.

TEST_F(ActionLists, ACheckBoxWritesTheStatus) {
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

TEST_F(ActionLists, AMoveKeepsTheCheckBoxes) {
  Put({"A", "B", "C"});
  person.Tick("lvwActions", 2, false);
  person.Pick("lvwActions", 2);
  person.Click("cmdUp");
  EXPECT_EQ(Shown(), (Items{"A", "-C", "B"}));
  EXPECT_EQ(Stored(), (Items{"A", "-C", "B"}));
}

TEST_F(ActionLists, ACheckBoxThatTheStoreRefusesStays) {
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

TEST_F(ActionLists, ACheckBoxOfATaskThatIsGone) {
  Put({"A"});
  tasks().clear();
  person.Tick("lvwActions", 0, false);
  EXPECT_EQ(t.store.calls.back(), "Task.EditTask@(A,0,,,,)");
  EXPECT_EQ(Messages(), Error("Unable to update action"));
}

TEST_F(ActionLists, AnErrorAtACheckBoxIsTold) {
  Put({"A"});
  for (const char* operation : {"Task.Create", "Task.SetHost", "Task.GetTask", "Task.EditTask"}) {
    t.store.Raise(operation, "Down.");
    person.Tick("lvwActions", 0, !form.lvwActions.Row(0).Checked);
    EXPECT_EQ(Messages(), Error("Error saving action: Down.")) << operation;
    t.store.Heal();
  }
  EXPECT_EQ(Stored(), (Items{"A"}));
}

// Moving.

TEST_F(ActionLists, AMoveRemovesAllTasksAndAddsThemAgain) {
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

TEST_F(ActionLists, AMoveKeepsTheScope) {
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

TEST_F(ActionLists, TheEndsDoNotMove) {
  Put({"A", "B"});
  person.Pick("lvwActions", 0);
  form.cmdUp.Press();
  person.Pick("lvwActions", 1);
  form.cmdDown.Press();
  EXPECT_TRUE(t.store.calls.empty());
  EXPECT_EQ(Stored(), (Items{"A", "B"}));
}

TEST_F(ActionLists, OneActionDoesNotMove) {
  Put({"A"});
  person.Pick("lvwActions", 0);
  EXPECT_EQ(Buttons(), "Delete");
  form.cmdUp.Press();
  form.cmdDown.Press();
  EXPECT_TRUE(t.store.calls.empty());
}

TEST_F(ActionLists, AMoveBringsBackWhatAnotherConsoleRemoved) {
  Put({"A", "B", "C"});
  tasks().erase(tasks().begin());
  person.Pick("lvwActions", 1);
  person.Click("cmdDown");
  EXPECT_EQ(Stored(), (Items{"A", "C", "B"}));
}

TEST_F(ActionLists, AnAddThatFailsAtAMoveDropsItsTask) {
  Put({"A", "B", "C"});
  person.Pick("lvwActions", 0);
  t.store.Refuse("Task.AddTask", 0, 2);
  person.Click("cmdDown");
  EXPECT_TRUE(Messages().empty());
  EXPECT_EQ(Stored(), (Items{"B", "A"}));
  EXPECT_EQ(Shown(), (Items{"B", "A", "C"}));
}

TEST_F(ActionLists, ARemovalThatFailsAtAMoveIsIgnored) {
  Put({"A", "B"});
  person.Pick("lvwActions", 0);
  t.store.Refuse("Task.RemoveTask", 0);
  person.Click("cmdDown");
  EXPECT_TRUE(Messages().empty());
  EXPECT_EQ(t.store.CountOf("Task.AddTask"), 2);
}

TEST_F(ActionLists, AnErrorAtAMoveIsTold) {
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

// Loading.

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
