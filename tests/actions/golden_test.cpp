// What every action dialog says and writes, word for word.

#include <ostream>

#include "actions/execute_app_dialog.h"
#include "actions/folder_dialog.h"
#include "actions/forward_dialog.h"
#include "actions/message_edit_dialogs.h"
#include "actions/notify_dialogs.h"
#include "actions/plain_dialogs.h"
#include "tests/actions/action_fixture.h"

namespace qv::test {
namespace {

struct Golden {
  const char* name;
  ActionDialog& (*dialog)(Run&);
  const ActionType* type;  // of a dialog that serves several
  const char* caption;
  const char* edit_caption;
  const char* delete_caption;
  const char* sentence;
  std::vector<std::pair<const char*, const char*>> texts;  // typed into boxes
  const char* task_type;
  const char* description;
  const char* values;
  const char* add_failure;
  const char* edit_failure;
  const char* not_found;
  std::vector<std::string> tab_order;
};

void PrintTo(const Golden& golden, std::ostream* out) { *out << golden.task_type << " " << golden.name; }

template <class Dialog>
ActionDialog& The(Run& run) {
  return run.The<Dialog>();
}

const std::vector<std::string> kPlain = {"chkStatus", "cmdOK", "cmdCancel"};
const std::vector<std::string> kNotify = {"optUseDefault", "txtData", "optUseTemplate", "cboTemplate",
                                          "cmdEdit",       "chkStatus", "cmdOK",        "cmdCancel"};

const Golden kGolden[] = {
    {"frmTaskBadMail", The<frmTaskBadMail>, nullptr, "Action - Copy to BadMail", "Action - Copy to BadMail",
     "Delete Action - Copy to BadMail",
     "This action copies the mail message to the BadMail folder. The original email will not be deleted.", {},
     "COPY_TO_BADMAIL", "Copy Message to Bad Mail", "", "Unable to Add Task", "Unable to Add Task", "Task Not Found",
     kPlain},
    {"frmTaskDeleteMessage", The<frmTaskDeleteMessage>, nullptr, "Action - Delete Message", "Action - Delete Message",
     "Delete Action - Delete Message", "This action deletes the mail message", {}, "DELETE", "Delete Message", "",
     "Unable to Add Task", "Unable to Add Task", "Task Not Found", kPlain},
    {"FrmTaskQuarantine", The<FrmTaskQuarantine>, nullptr, "Action - Quarantine Message", "Action - Quarantine Message",
     "Delete Action - Quarantine Message", "This action copies the mail message to Quarantine", {},
     "COPY_TO_QUARANTINE", "Copy the message to the Quarantine directory", "", "Unable to Add Task",
     "Unable to Add Task", "Task Not Found", kPlain},
    {"frmTaskMarkasSpam", The<frmTaskMarkasSpam>, nullptr, "Mark message as spam", "Mark message as spam",
     "Mark message as spam",
     "This action marks the message as spam. Spam messages will be sent to the users junk e-mail folder.", {},
     "ADD_HEADER", "Mark message as spam", "X-QV-Content|Deliver-To=Junk", "Unable to Add Task",
     "Unable to add action", "Task Not Found", kPlain},
    {"frmTaskGeneric", The<frmTaskGeneric>, &action_types::kJunk, "Action - Generic",
     "Action - Move Message to Junk E-Mail Folder", "Delete Action - Move Message to Junk E-Mail Folder",
     "This task moves the message to Junk E-mail Folder", {}, "JUNK", "Move Message to Junk E-Mail Folder", "",
     "Unable to Add Task", "Unable to Add Task", "Task Not Found", kPlain},
    {"frmTaskGeneric", The<frmTaskGeneric>, &action_types::kQuarantine, "Action - Generic",
     "Action - Move Message to Quarantine Folder", "Delete Action - Move Message to Quarantine Folder",
     "This task moves the message to Quarantine Folder", {}, "QUARANTINE", "Move Message to Quarantine Folder", "",
     "Unable to Add Task", "Unable to Add Task", "Task Not Found", kPlain},
    {"frmTaskGeneric", The<frmTaskGeneric>, &action_types::kStopProcessing, "Action - Generic",
     "Action - Stop processing filters", "Delete Action - Stop processing filters",
     "This task stops processing any more filters for the message", {}, "STOP_PROCESSING", "Stop processing filters",
     "", "Unable to Add Task", "Unable to Add Task", "Task Not Found", kPlain},
    {"frmTaskGenericFolder", The<frmTaskGenericFolder>, &action_types::kCopy, "Action - Move Message",
     "Action - Move Message", "Action - Move Message", "This task copies the message to the specified folder",
     {{"txtFolder", " Old Mail|x "}}, "COPY", "Copy Message to Folder...", " Old Mail|x ", "Unable to Add Task",
     "Unable to Add Task", "Task Not Found", {"txtFolder", "chkStatus", "cmdOK", "cmdCancel"}},
    {"frmTaskGenericFolder", The<frmTaskGenericFolder>, &action_types::kMove, "Action - Move Message",
     "Action - Move Message", "Action - Move Message", "This task moves the message to the specified folder",
     {{"txtFolder", "Inbox\\Lists"}}, "MOVE", "Move Message to Folder...", "Inbox\\Lists", "Unable to Add Task",
     "Unable to Add Task", "Task Not Found", {"txtFolder", "chkStatus", "cmdOK", "cmdCancel"}},
    {"frmTaskNotifySender", The<frmTaskNotifySender>, nullptr, "Action - Notify Sender", "Action - Notify Sender",
     "Delete Action - Notify Sender",
     "This action sends a notification message to the sender, with the reason for the notification being the text "
     "below.",
     {{"txtData", "Because"}}, "NOTIFY_SENDER", "Because", "", "Unable to add action", "Unable to Add Task",
     "Task Not Found", kNotify},
    {"frmTaskNotifyRecipients", The<frmTaskNotifyRecipients>, nullptr, "Action - Notify Recipient",
     "Action - Notify Recipient", "Delete Action - Notify Recipient",
     "This action sends a notification message to the recipient, with the reason for the notification being the text "
     "below.",
     {{"txtData", "Because"}}, "NOTIFY_RECIPIENTS", "Because", "", "Unable to Add Task", "Unable to Add Task",
     "Task Not Found", kNotify},
    {"frmTaskNotifyAddress", The<frmTaskNotifyAddress>, nullptr, "Action - Notify Address", "Action - Notify Address",
     "Delete Action - Notify Address",
     "This action sends a notification message to the specified address, with the reason for the notification being "
     "the text below.",
     {{"txtAddress", "a@b.example"}, {"txtData", "Because"}}, "NOTIFY_ADDRESS", "Because",
     "<REFERENCE><ADDRESS>a@b.example</ADDRESS><FILE></FILE></REFERENCE>", "Unable to Add Task", "Unable to Add Task",
     "Task Not Found", {"txtAddress", "optUseDefault", "txtData", "optUseTemplate", "cboTemplate", "cmdEdit",
                        "chkStatus", "cmdOK", "cmdCancel"}},
    {"frmForward", The<frmForward>, nullptr, "Action - Forward message", "Action - Forward message",
     "Delete Action - Forward message",
     "This action creates a copy of the email and forwards it to a specified email address. The original email will "
     "not be deleted.",
     {{"txtData", "a@b.example"}}, "FORWARD_TO_ADDRESS", "Forward message to specified recipient.",
     "[SMTP:a@b.example]", "Unable to Add Task", "Unable to Add Task", "Task Not Found",
     {"txtData", "chkStatus", "cmdOK", "cmdCancel"}},
    {"frmTaskExecuteApp", The<frmTaskExecuteApp>, nullptr, "Execute application", "Execute application",
     "Execute application", "This action executes an application. ",
     {{"txtApp", "C:\\Bin\\scan.exe"}, {"txtParameters", "[ID] [TIME]"}}, "EXECUTE_APPLICATION",
     "Execute an application", "C:\\Bin\\scan.exe|[ID] [TIME]", "Unable to add action", "Unable to add action",
     "Action Not Found", {"txtApp", "txtParameters", "chkStatus", "cmdOK", "cmdCancel"}},
    {"frmTaskAddHeader", The<frmTaskAddHeader>, nullptr, "Add Header", "Add Header", "Delete Add Header",
     "This action adds a header item to the message. If the header item already exists it will be replaced.",
     {{"txtHeaderItem", "X-Spam:"}, {"txtHeaderValue", "Yes"}}, "ADD_HEADER", "Add a header to a message",
     "X-Spam|Yes", "Unable to Add Task", "Unable to add action", "Task Not Found",
     {"txtHeaderItem", "txtHeaderValue", "chkStatus", "cmdOK", "cmdCancel"}},
    {"frmTaskAddPrefix", The<frmTaskAddPrefix>, nullptr, "Add Subject Prefix", "Add Subject Prefix",
     "Delete Add Subject Prefix",
     "This action adds a prefix to the subject of the message. If the prefix already exists for the subject, it will "
     "not be added.",
     {{"txtPrefix", " [List] "}}, "ADD_SUBJECT_PREFIX", "Add a prefix to the subject of the message", " [List] ",
     "Unable to Add Task", "Unable to add action", "Task Not Found",
     {"txtPrefix", "chkStatus", "cmdOK", "cmdCancel"}},
};

class ActionGolden : public ::testing::TestWithParam<Golden> {
 protected:
  const Golden& g() const { return GetParam(); }

  void Open(int mode, const std::function<void(ActionDialog&, Person&)>& visit) {
    ActionDialog& dialog = g().dialog(t.run);
    if (g().type) dialog.SetType(*g().type);
    dialog.ActionID = "CRTF";
    dialog.TaskID = mode == ActionDialog::kAdd ? "" : "T1";
    dialog.EditMode = mode;
    dialog.Postoffice = "po";
    dialog.Mailbox = "box";
    dialog.Host = "mail";
    t.desktop.Visit([&](Form& form) {
      Person person(form);
      visit(dialog, person);
      form.Unload();
    });
    dialog.EditTask();
  }
  void FillIn(Person& person) {
    for (const auto& [box, text] : g().texts) person.Set(box, text);
  }
  void PutTask(int status = 1) {
    server.tasks.push_back({"CRTF", "T1", g().task_type, g().description, status, g().values, "po", "box"});
  }
  std::string Written(const std::string& id, int status) {
    return std::string("(CRTF,") + id + "," + g().task_type + "," + g().description + "," + std::to_string(status) +
           "," + g().values + ")";
  }
  std::string Arguments(int status) {
    return std::string("(T1,") + std::to_string(status) + ",CRTF," + g().task_type + "," + g().description + "," +
           g().values + ")";
  }

  TestRun t;
  ServerData& server = t.store.server("mail");
};

TEST_P(ActionGolden, FixedTexts) {
  Open(ActionDialog::kAdd, [&](ActionDialog& dialog, Person&) {
    EXPECT_EQ(dialog.name(), g().name);
    EXPECT_EQ(dialog.Caption(), g().caption);
    EXPECT_EQ(dialog.lblH1.Caption(), "Action:");
    EXPECT_EQ(dialog.lblDescription.Caption(), g().sentence);
    EXPECT_EQ(dynamic_cast<CheckBox&>(*dialog.Find("chkStatus")).Caption(), "Enabled");
    auto& ok = dynamic_cast<Button&>(*dialog.Find("cmdOK"));
    EXPECT_EQ(ok.Caption(), "OK");
    EXPECT_EQ(ok.role(), Button::Role::Default);
    auto& cancel = dynamic_cast<Button&>(*dialog.Find("cmdCancel"));
    EXPECT_EQ(cancel.Caption(), "&Cancel");
    EXPECT_EQ(cancel.role(), Button::Role::Cancel);
    EXPECT_EQ(TabOrder(dialog), g().tab_order);
    EXPECT_EQ(dialog.Focus(), dialog.Find(g().tab_order.front()));
    ExpectWholeLayout(dialog);
  });
}

TEST_P(ActionGolden, AddsAnEnabledTask) {
  Open(ActionDialog::kAdd, [&](ActionDialog& dialog, Person& person) {
    EXPECT_TRUE(dynamic_cast<CheckBox&>(*dialog.Find("chkStatus")).Checked());
    EXPECT_TRUE(t.store.calls.empty());
    FillIn(person);
    person.Click("cmdOK");
    EXPECT_FALSE(dialog.Loaded());
    EXPECT_EQ(dialog.Status, 1);
  });
  const std::vector<std::string> calls = {"Task.Create", "Task.SetHost@mail",
                                          "Task.AddTask@mail" + Written(kFirstGuid, 1)};
  EXPECT_EQ(t.store.calls, calls);
  ASSERT_EQ(server.tasks.size(), 1u);
  EXPECT_EQ(server.tasks[0].Postoffice, "po");
  EXPECT_EQ(server.tasks[0].Mailbox, "box");
  EXPECT_TRUE(t.desktop.messages.empty());
  EXPECT_EQ(t.registry.TakeReloads(), 1);
}

TEST_P(ActionGolden, AddsADisabledTask) {
  Open(ActionDialog::kAdd, [&](ActionDialog&, Person& person) {
    FillIn(person);
    person.Click("chkStatus");
    person.Click("cmdOK");
  });
  ASSERT_EQ(server.tasks.size(), 1u);
  EXPECT_EQ(server.tasks[0].Status, 0);
  EXPECT_EQ(server.tasks[0].Values, g().values);
  EXPECT_EQ(server.tasks[0].Description, g().description);
}

TEST_P(ActionGolden, EditsATask) {
  PutTask();
  Open(ActionDialog::kEdit, [&](ActionDialog& dialog, Person& person) {
    EXPECT_EQ(dialog.Caption(), g().edit_caption);
    EXPECT_TRUE(dynamic_cast<CheckBox&>(*dialog.Find("chkStatus")).Checked());
    person.Click("cmdOK");
    EXPECT_FALSE(dialog.Loaded());
  });
  const std::vector<std::string> calls = {"Task.Create", "Task.SetHost@mail", "Task.GetTask@mail(CRTF,T1)",
                                          "Task.Create", "Task.SetHost@mail", "Task.EditTask@mail" + Arguments(1)};
  EXPECT_EQ(t.store.calls, calls);
  EXPECT_EQ(t.registry.TakeReloads(), 1);
  EXPECT_EQ(t.guids.last, 0u);
}

TEST_P(ActionGolden, EditsADisabledTask) {
  PutTask(0);
  Open(ActionDialog::kEdit, [&](ActionDialog& dialog, Person& person) {
    EXPECT_FALSE(dynamic_cast<CheckBox&>(*dialog.Find("chkStatus")).Checked());
    person.Click("cmdOK");
    EXPECT_EQ(dialog.Status, 0);
  });
  EXPECT_EQ(t.store.calls.back(), "Task.EditTask@mail" + Arguments(0));
}

TEST_P(ActionGolden, AddFails) {
  t.store.Refuse("Task.AddTask", 0);
  Open(ActionDialog::kAdd, [&](ActionDialog& dialog, Person& person) {
    FillIn(person);
    person.Click("cmdOK");
    EXPECT_FALSE(dialog.Loaded());
  });
  EXPECT_EQ(t.desktop.messages, (std::vector<ShownMessage>{{g().add_failure, "Error", MessageIcon::Critical}}));
  EXPECT_EQ(t.registry.TakeReloads(), 1);
}

TEST_P(ActionGolden, EditFails) {
  PutTask();
  t.store.Refuse("Task.EditTask", 2);
  Open(ActionDialog::kEdit, [&](ActionDialog& dialog, Person& person) {
    person.Click("cmdOK");
    EXPECT_FALSE(dialog.Loaded());
  });
  EXPECT_EQ(t.desktop.messages, (std::vector<ShownMessage>{{g().edit_failure, "Error", MessageIcon::Critical}}));
  EXPECT_EQ(t.registry.TakeReloads(), 1);
}

TEST_P(ActionGolden, TaskNotFoundAtEdit) {
  Open(ActionDialog::kEdit, [&](ActionDialog& dialog, Person&) {
    EXPECT_EQ(t.desktop.TakeMessages(), (std::vector<ShownMessage>{{g().not_found, "Error", MessageIcon::Critical}}));
    EXPECT_FALSE(dynamic_cast<CheckBox&>(*dialog.Find("chkStatus")).Checked());
    for (const auto& [box, text] : g().texts) {
      EXPECT_EQ(dynamic_cast<TextBox&>(*dialog.Find(box)).Text(), "") << box;
    }
  });
}

TEST_P(ActionGolden, CancelAndCloseBoxWriteNothing) {
  PutTask();
  for (const char* way : {"cmdCancel", ""}) {
    Open(ActionDialog::kEdit, [&](ActionDialog& dialog, Person& person) {
      person.Click("chkStatus");
      if (*way) {
        person.Click(way);
      } else {
        person.Close();
      }
      EXPECT_FALSE(dialog.Loaded());
    });
  }
  EXPECT_EQ(t.store.CountOf("Task.EditTask"), 0);
  EXPECT_EQ(server.tasks[0].Status, 1);
  EXPECT_EQ(t.registry.TakeReloads(), 0);
  EXPECT_TRUE(t.desktop.messages.empty());
}

TEST_P(ActionGolden, DeleteViewShowsAndWritesNothing) {
  PutTask();
  Open(ActionDialog::kDeleteView, [&](ActionDialog& dialog, Person& person) {
    EXPECT_EQ(dialog.Caption(), g().delete_caption);
    EXPECT_TRUE(dynamic_cast<CheckBox&>(*dialog.Find("chkStatus")).Checked());
    EXPECT_FALSE(dialog.Find("chkStatus")->Enabled());
    for (const auto& [box, text] : g().texts) EXPECT_FALSE(dialog.Find(box)->Enabled()) << box;
    person.Click("cmdOK");
    EXPECT_FALSE(dialog.Loaded());
  });
  const std::vector<std::string> calls = {"Task.Create", "Task.SetHost@mail", "Task.GetTask@mail(CRTF,T1)"};
  EXPECT_EQ(t.store.calls, calls);
  EXPECT_EQ(t.registry.TakeReloads(), 1);
}

TEST_P(ActionGolden, DeleteViewOfAMissingTask) {
  Open(ActionDialog::kDeleteView, [&](ActionDialog& dialog, Person&) {
    EXPECT_EQ(t.desktop.TakeMessages(), (std::vector<ShownMessage>{{"Task Not Found", "Error", MessageIcon::Critical}}));
    EXPECT_EQ(dialog.Caption(), g().delete_caption);
    EXPECT_FALSE(dialog.Find("chkStatus")->Enabled());
  });
}

TEST_P(ActionGolden, ComesBackFreshAfterAnEdit) {
  PutTask();
  Open(ActionDialog::kDeleteView, [&](ActionDialog&, Person& person) { person.Click("cmdOK"); });
  Open(ActionDialog::kAdd, [&](ActionDialog& dialog, Person&) {
    EXPECT_EQ(dialog.Caption(), g().caption);
    EXPECT_TRUE(dialog.Find("chkStatus")->Enabled());
    for (const auto& [box, text] : g().texts) {
      EXPECT_EQ(dynamic_cast<TextBox&>(*dialog.Find(box)).Text(), "") << box;
      EXPECT_TRUE(dialog.Find(box)->Enabled()) << box;
    }
  });
}

TEST_P(ActionGolden, AnErrorAtLoadingGoesToTheOpener) {
  PutTask();
  t.store.Raise("Task.GetTask", "The store is down.");
  ActionDialog& dialog = g().dialog(t.run);
  if (g().type) dialog.SetType(*g().type);
  dialog.ActionID = "CRTF";
  dialog.TaskID = "T1";
  dialog.EditMode = ActionDialog::kEdit;
  dialog.Host = "mail";
  EXPECT_THROW(dialog.EditTask(), RuntimeError);
  EXPECT_FALSE(dialog.Loaded());
  t.store.Heal();
  Open(ActionDialog::kAdd, [&](ActionDialog& fresh, Person&) { EXPECT_EQ(fresh.Caption(), g().caption); });
}

TEST_P(ActionGolden, AnErrorAtSavingLeavesTheDialogOpenAndSignalsNothing) {
  t.store.Raise("Task.AddTask", "The store is down.");
  Open(ActionDialog::kAdd, [&](ActionDialog& dialog, Person& person) {
    FillIn(person);
    EXPECT_THROW(person.Click("cmdOK"), RuntimeError);
    EXPECT_TRUE(dialog.Loaded());
  });
  EXPECT_EQ(t.registry.TakeReloads(), 0);
}

TEST_P(ActionGolden, AGuidThatIsRefusedGivesTheFixedOne) {
  t.guids.refuse = true;
  Open(ActionDialog::kAdd, [&](ActionDialog&, Person& person) {
    FillIn(person);
    person.Click("cmdOK");
  });
  EXPECT_EQ(t.store.calls.back(), "Task.AddTask@mail" + Written("00000000", 1));
}

INSTANTIATE_TEST_SUITE_P(Dialogs, ActionGolden, ::testing::ValuesIn(kGolden),
                         [](const ::testing::TestParamInfo<Golden>& golden) {
                           return std::string(golden.param.name) + "_" + golden.param.task_type;
                         });

}  // namespace
}  // namespace qv::test
