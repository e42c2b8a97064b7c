#include "editor/action_catalogue.h"

#include <gtest/gtest.h>

#include "editor/action_select.h"
#include "tests/support/test_run.h"

namespace qv::test {
namespace {

using Items = std::vector<std::string>;

const Items kServerActions = {"Copy to BadMail",    "Copy to Quarantine",      "Delete Message",
                              "Notify Sender",      "Notify Recipient",        "Notify Address",
                              "Forward to Address", "Execute Application",     "Add Message Header",
                              "Mark as spam",       "Stop Processing Filters", "Add Subject Prefix"};
const Items kMailboxActions = {"Delete Message", "Move message to folder...", "Copy message to folder...",
                               "Move message to Junk E-Mail folder", "Move message to Quarantine folder"};

struct Golden {
  const char *text, *key, *dialog, *type;
  const char *description, *sentence;  // of the shared dialogs
};

const Golden kGolden[] = {
    {"Copy to BadMail", "COPY_TO_BADMAIL", "frmTaskBadMail", "COPY_TO_BADMAIL", nullptr, nullptr},
    {"Copy to Quarantine", "COPY_TO_QUARANTINE", "FrmTaskQuarantine", "COPY_TO_QUARANTINE", nullptr, nullptr},
    {"Delete Message", "DELETE", "frmTaskDeleteMessage", "DELETE", nullptr, nullptr},
    {"Notify Sender", "NOTIFY_SENDER", "frmTaskNotifySender", "NOTIFY_SENDER", nullptr, nullptr},
    {"Notify Recipient", "NOTIFY_RECIPIENTS", "frmTaskNotifyRecipients", "NOTIFY_RECIPIENTS", nullptr, nullptr},
    {"Notify Address", "NOTIFY_ADDRESS", "frmTaskNotifyAddress", "NOTIFY_ADDRESS", nullptr, nullptr},
    {"Forward to Address", "FORWARD_TO_ADDRESS", "frmForward", "FORWARD_TO_ADDRESS", nullptr, nullptr},
    {"Execute Application", "EXECUTE_APPLICATION", "frmTaskExecuteApp", "EXECUTE_APPLICATION", nullptr, nullptr},
    {"Add Message Header", "ADD_HEADER", "frmTaskAddHeader", "ADD_HEADER", nullptr, nullptr},
    {"Mark as spam", "EXTRA_ACTION_MARKASSPAM", "frmTaskMarkasSpam", "ADD_HEADER", nullptr, nullptr},
    {"Stop Processing Filters", "STOP_PROCESSING", "frmTaskGeneric", "STOP_PROCESSING", "Stop processing filters",
     "This task stops processing any more filters for the message"},
    {"Add Subject Prefix", "ADD_SUBJECT_PREFIX", "frmTaskAddPrefix", "ADD_SUBJECT_PREFIX", nullptr, nullptr},
    {"Move message to folder...", "MOVE", "frmTaskGenericFolder", "MOVE", "Move Message to Folder...",
     "This task moves the message to the specified folder"},
    {"Copy message to folder...", "COPY", "frmTaskGenericFolder", "COPY", "Copy Message to Folder...",
     "This task copies the message to the specified folder"},
    {"Move message to Junk E-Mail folder", "JUNK", "frmTaskGeneric", "JUNK", "Move Message to Junk E-Mail Folder",
     "This task moves the message to Junk E-mail Folder"},
    {"Move message to Quarantine folder", "QUARANTINE", "frmTaskGeneric", "QUARANTINE",
     "Move Message to Quarantine Folder", "This task moves the message to Quarantine Folder"},
};

TEST(ActionCatalogue, HoldsTheActionsWordForWord) {
  TestRun t;
  ASSERT_EQ(ActionCatalogue().size(), 16u);
  for (const Golden& golden : kGolden) {
    const ActionItem* item = FindActionByText(golden.text);
    ASSERT_NE(item, nullptr) << golden.text;
    EXPECT_EQ(item->key, golden.key);
    EXPECT_EQ(item->dialog(t.run).name(), golden.dialog);
    EXPECT_EQ(item->type.TaskType, golden.type);
    EXPECT_EQ(FindActionByKey(golden.key), item);
    if (golden.description) {
      EXPECT_EQ(item->type.Description, golden.description);
    }
    EXPECT_EQ(item->type.Sentence, golden.sentence ? golden.sentence : "");
  }
}

TEST(ActionCatalogue, HasOneInstanceOfADialogInARun) {
  TestRun t;
  const auto dialog = [&](const char* key) { return &FindActionByKey(key)->dialog(t.run); };
  EXPECT_EQ(dialog("JUNK"), dialog("STOP_PROCESSING"));
  EXPECT_EQ(dialog("MOVE"), dialog("COPY"));
  EXPECT_NE(dialog("ADD_HEADER"), dialog("EXTRA_ACTION_MARKASSPAM"));
}

TEST(ActionCatalogue, ComparesExactly) {
  EXPECT_EQ(FindActionByKey("0"), nullptr);
  EXPECT_EQ(FindActionByKey("delete"), nullptr);
  EXPECT_EQ(FindActionByKey("REMOVE_ATTACHMENT"), nullptr);
  EXPECT_EQ(FindActionByText(""), nullptr);
  EXPECT_EQ(FindActionByText("Delete message"), nullptr);
}

TEST(ActionCatalogue, PicksTheDialogOfAStoredTask) {
  TestRun t;
  struct Case {
    const char *type, *description, *dialog;
  };
  const Case cases[] = {
      {"JUNK", "x", "frmTaskGeneric"},
      {"QUARANTINE", "x", "frmTaskGeneric"},
      {"COPY", "x", "frmTaskGenericFolder"},
      {"MOVE", "x", "frmTaskGenericFolder"},
      {"COPY_TO_BADMAIL", "x", "frmTaskBadMail"},
      {"DELETE", "x", "frmTaskDeleteMessage"},
      {"COPY_TO_QUARANTINE", "x", "FrmTaskQuarantine"},
      {"NOTIFY_SENDER", "", "frmTaskNotifySender"},
      {"NOTIFY_RECIPIENTS", "", "frmTaskNotifyRecipients"},
      {"NOTIFY_ADDRESS", "", "frmTaskNotifyAddress"},
      {"FORWARD_TO_ADDRESS", "x", "frmForward"},
      {"EXECUTE_APPLICATION", "x", "frmTaskExecuteApp"},
      {"ADD_HEADER", "", "frmTaskAddHeader"},
      {"ADD_HEADER", "Add a header to a message", "frmTaskAddHeader"},
      {"ADD_HEADER", "Mark message as spam", "frmTaskAddHeader"},
      {"ADD_HEADER", "mark message as spam.", "frmTaskAddHeader"},
      {"ADD_HEADER", "Mark message as spam.", "frmTaskMarkasSpam"},
      {"DELETE", "Mark message as spam.", "frmTaskDeleteMessage"},
      {"ADD_SUBJECT_PREFIX", "x", "frmTaskAddPrefix"},
      {"STOP_PROCESSING", "x", "frmTaskGeneric"},
      {"REMOVE_ATTACHMENT", "Remove attachment", nullptr},
      {"EXTRA_ACTION_MARKASSPAM", "x", nullptr},
      {"delete", "x", nullptr},
      {"", "", nullptr},
  };
  const auto task = t.store.CreateTask();
  for (const Case& c : cases) {
    task->TaskType = c.type;
    task->Description = c.description;
    const ActionItem* item = FindActionForTask(*task);
    if (!c.dialog) {
      EXPECT_EQ(item, nullptr) << c.type;
      continue;
    }
    ASSERT_NE(item, nullptr) << c.type;
    EXPECT_EQ(item->dialog(t.run).name(), c.dialog) << c.type << ", " << c.description;
    EXPECT_EQ(item->type.TaskType, c.type);
  }
}

class ActionSelect : public ::testing::Test {
 protected:
  std::string Select(const std::string& mailbox, const std::string& postoffice,
                     const std::function<void(frmActionSelect&, Person&)>& visit) {
    t.desktop.Visit([&](Form& form) {
      Person person(form);
      visit(dynamic_cast<frmActionSelect&>(form), person);
      form.Unload();
    });
    return t.run.The<frmActionSelect>().SelectAction(mailbox, postoffice);
  }
  TestRun t;
};

TEST_F(ActionSelect, OffersTheActionsOfTheScope) {
  Select("", "", [](auto& dialog, Person&) { EXPECT_EQ(dialog.lstActions.Items(), kServerActions); });
  Select("", "po", [](auto& dialog, Person&) { EXPECT_EQ(dialog.lstActions.Items(), kServerActions); });
  Select("box", "po", [](auto& dialog, Person&) { EXPECT_EQ(dialog.lstActions.Items(), kMailboxActions); });
  Select("box", "", [](auto& dialog, Person&) { EXPECT_EQ(dialog.lstActions.Items(), kMailboxActions); });
}

TEST_F(ActionSelect, FixedTexts) {
  Select("", "", [](auto& dialog, Person&) {
    EXPECT_EQ(dialog.name(), "frmActionSelect");
    EXPECT_EQ(dialog.Caption(), "Select Action");
    EXPECT_EQ(dialog.Label1.Caption(), "Select action to create:");
    EXPECT_EQ(dialog.cmdOK.Caption(), "OK");
    EXPECT_EQ(dialog.cmdOK.role(), Button::Role::Default);
    EXPECT_EQ(dialog.cmdCancel.Caption(), "Cancel");
    EXPECT_EQ(dialog.cmdCancel.role(), Button::Role::Cancel);
    EXPECT_EQ(dialog.Focus(), &dialog.lstActions);
    const Layout layout = dialog.Arrange();
    ASSERT_EQ(layout.items.size(), 2u);
    EXPECT_EQ(layout.items[0].control, &dialog.lstActions);
    EXPECT_EQ(layout.items[0].label, &dialog.Label1);
    EXPECT_EQ(layout.items[1].controls, (std::vector<const Control*>{&dialog.cmdOK, &dialog.cmdCancel}));
  });
}

TEST_F(ActionSelect, EveryRowGivesItsKey) {
  const Items server_keys = {"COPY_TO_BADMAIL",         "COPY_TO_QUARANTINE",  "DELETE",
                             "NOTIFY_SENDER",           "NOTIFY_RECIPIENTS",   "NOTIFY_ADDRESS",
                             "FORWARD_TO_ADDRESS",      "EXECUTE_APPLICATION", "ADD_HEADER",
                             "EXTRA_ACTION_MARKASSPAM", "STOP_PROCESSING",     "ADD_SUBJECT_PREFIX"};
  const Items mailbox_keys = {"DELETE", "MOVE", "COPY", "JUNK", "QUARANTINE"};
  for (std::size_t i = 0; i < server_keys.size(); ++i) {
    EXPECT_EQ(Select("", "", [i](auto&, Person& person) { person.Open("lstActions", static_cast<long>(i)); }),
              server_keys[i]);
  }
  for (std::size_t i = 0; i < mailbox_keys.size(); ++i) {
    EXPECT_EQ(Select("box", "po",
                     [i](auto&, Person& person) {
                       person.Pick("lstActions", static_cast<long>(i));
                       person.Click("cmdOK");
                     }),
              mailbox_keys[i]);
  }
}

TEST_F(ActionSelect, OkRightAfterOpeningTakesTheFirst) {
  EXPECT_EQ(Select("", "",
                   [](auto& dialog, Person& person) {
                     EXPECT_EQ(dialog.lstActions.ListIndex(), 0);
                     person.Click("cmdOK");
                     EXPECT_FALSE(dialog.Loaded());
                   }),
            "COPY_TO_BADMAIL");
}

TEST_F(ActionSelect, CancelAndCloseBoxGiveZero) {
  EXPECT_EQ(Select("", "", [](auto&, Person& person) { person.Click("cmdOK"); }), "COPY_TO_BADMAIL");
  EXPECT_EQ(Select("", "",
                   [](auto& dialog, Person& person) {
                     person.Pick("lstActions", 3);
                     person.Click("cmdCancel");
                     EXPECT_FALSE(dialog.Loaded());
                   }),
            "0");
  EXPECT_EQ(Select("", "", [](auto&, Person& person) { person.Close(); }), "0");
}

TEST_F(ActionSelect, NothingHappensWithoutASelectedRow) {
  EXPECT_EQ(Select("", "",
                   [](auto& dialog, Person& person) {
                     dialog.lstActions.SetListIndex(-1);
                     person.Open("lstActions", -1);
                     person.Click("cmdOK");
                     EXPECT_TRUE(dialog.Loaded());
                   }),
            "0");
}

}  // namespace
}  // namespace qv::test
