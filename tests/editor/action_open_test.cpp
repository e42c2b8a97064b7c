// How actions are added to the list and edited in it.

#include "actions/action_dialog.h"
#include "platform/runtime_error.h"
#include "tests/editor/action_list_fixture.h"

namespace qv::test {
namespace {

class ActionDialogs : public ActionListTest {
 protected:
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

TEST_F(ActionDialogs, AddsAnAction) {
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

TEST_F(ActionDialogs, EveryActionIsAddedThroughItsDialog) {
  struct Case {
    const char *text, *dialog, *type, *description, *sentence;
    const char* mailbox;
  };
  const Case cases[] = {
      {"Copy to BadMail", "frmTaskBadMail", "COPY_TO_BADMAIL", "Copy Message to Bad Mail", nullptr, ""},
      {"Copy to Quarantine", "FrmTaskQuarantine", "COPY_TO_QUARANTINE", "Copy the message to the Quarantine directory",
       nullptr, ""},
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

TEST_F(ActionDialogs, NoChoiceReloadsNothing) {
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

TEST_F(ActionDialogs, ACancelledDialogReloadsTheList) {
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

TEST_F(ActionDialogs, AnErrorAtAddingIsTold) {
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

TEST_F(ActionDialogs, ADoubleClickOpensTheTask) {
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

TEST_F(ActionDialogs, EveryTypeIsEditedInItsDialog) {
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
    EXPECT_EQ(tasks().at(0).Description, c.description);
  }
}

TEST_F(ActionDialogs, SharedDialogsDoNotMixTheirTypes) {
  PutTask("J", 1, "JUNK", "x");
  PutTask("S", 1, "STOP_PROCESSING", "x");
  Open();
  VisitDialog(nullptr);
  person.Open("lvwActions", 0);
  VisitDialog([](ActionDialog& dialog) {
    EXPECT_EQ(dialog.lblDescription.Caption(), "This task stops processing any more filters for the message");
  });
  person.Open("lvwActions", 1);
  EXPECT_EQ(tasks().at(0).TaskType, "JUNK");
  EXPECT_EQ(tasks().at(0).Description, "Move Message to Junk E-Mail Folder");
  EXPECT_EQ(tasks().at(1).TaskType, "STOP_PROCESSING");
  EXPECT_EQ(tasks().at(1).Description, "Stop processing filters");
}

TEST_F(ActionDialogs, ATypeWithoutADialogDoesNothingAndMovesAndGoesLikeAnyOther) {
  PutTask("R", 1, "REMOVE_ATTACHMENT", "Remove attachment", "*.exe");
  PutTask("B");
  Open();
  person.Open("lvwActions", 0);
  EXPECT_TRUE(Messages().empty());
  EXPECT_EQ(form.lvwActions.Selected(), 0);
  person.Click("cmdDown");
  EXPECT_EQ(Stored(), (Items{"B", "R"}));
  EXPECT_EQ(tasks().at(1).Values, "*.exe");
  t.desktop.answers = {MessageAnswer::Yes};
  person.Click("cmdDelete");
  EXPECT_EQ(Stored(), (Items{"B"}));
}

TEST_F(ActionDialogs, ADoubleClickOnATaskThatIsGoneReloads) {
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
  EXPECT_EQ(Buttons(), "Delete");
  tasks().clear();
  person.Open("lvwActions", 0);
  EXPECT_TRUE(Shown().empty());
  EXPECT_EQ(Buttons(), "");
  EXPECT_TRUE(Messages().empty());
}

TEST_F(ActionDialogs, AnErrorAtTheDoubleClickIsNotTrapped) {
  Put({"A"});
  t.store.Raise("Task.GetTask", "The store is down.");
  EXPECT_THROW(person.Open("lvwActions", 0), RuntimeError);
  EXPECT_TRUE(Messages().empty());
  EXPECT_EQ(Shown(), (Items{"A"}));
}

}  // namespace
}  // namespace qv::test
