#include "actions/execute_app_dialog.h"
#include "actions/folder_dialog.h"
#include "actions/forward_dialog.h"
#include "actions/message_edit_dialogs.h"
#include "actions/notify_dialogs.h"
#include "actions/plain_dialogs.h"
#include "tests/actions/text_fixture.h"

namespace qv::test {
namespace {

using Items = std::vector<std::string>;

// Each dialog is one instance for a whole run: what one use leaves behind in its controls must not show in the next.
class Reuse : public TextDialogs {};

TEST_F(Reuse, AnAddAfterADisabledTaskHasItsBoxesBack) {
  PutTask("P", "ADD_SUBJECT_PREFIX", "x", "old", 0);
  PutTask("H", "ADD_HEADER", "x", "old|older", 0);
  PutTask("E", "EXECUTE_APPLICATION", "x", "old|older", 0);
  PutTask("M", "MOVE", "x", "old", 0);
  Edit<frmTaskAddPrefix>("P", [&](auto& dialog, Person&) { ExpectFollows(false, {&dialog.txtPrefix}); });
  Edit<frmTaskAddHeader>("H", [&](auto& dialog, Person&) {
    ExpectFollows(false, {&dialog.txtHeaderItem, &dialog.txtHeaderValue});
  });
  Edit<frmTaskExecuteApp>("E", [&](auto& dialog, Person&) {
    ExpectFollows(false, {&dialog.txtApp, &dialog.txtParameters});
  });
  Edit<frmTaskGenericFolder>("M", [&](auto& dialog, Person&) { ExpectFollows(false, {&dialog.txtFolder}); });

  const auto fresh = [&](ActionDialog& dialog, const std::vector<const TextBox*>& boxes) {
    ExpectFollows(true, boxes);
    for (const TextBox* box : boxes) EXPECT_EQ(box->Text(), "") << box->name();
    EXPECT_TRUE(dynamic_cast<CheckBox&>(*dialog.Find("chkStatus")).Checked());
  };
  Add<frmTaskAddPrefix>([&](auto& dialog, Person&) { fresh(dialog, {&dialog.txtPrefix}); });
  Add<frmTaskAddHeader>([&](auto& dialog, Person&) { fresh(dialog, {&dialog.txtHeaderItem, &dialog.txtHeaderValue}); });
  Add<frmTaskExecuteApp>([&](auto& dialog, Person&) { fresh(dialog, {&dialog.txtApp, &dialog.txtParameters}); });
  Add<frmTaskGenericFolder>([&](auto& dialog, Person&) { fresh(dialog, {&dialog.txtFolder}); });
}

TEST_F(Reuse, AnAddAfterATemplateStartsWithTheDefaultMessage) {
  for (const char* name : {"QVFILTER-alpha.txt", "QVFILTER-beta.txt"}) {
    t.files.Put(std::string("C:\\Config\\filters\\templates\\") + name, "x");
  }
  PutTask("T", "NOTIFY_ADDRESS", "Why", "<REFERENCE><ADDRESS>a@b</ADDRESS><FILE>QVFILTER-beta</FILE></REFERENCE>", 0);
  Edit<frmTaskNotifyAddress>("T", [](auto& dialog, Person& person) {
    EXPECT_TRUE(dialog.notify.optUseTemplate.Checked());
    EXPECT_EQ(dialog.notify.cboTemplate.ListIndex(), 1);
    person.Click("cmdCancel");
  });
  Add<frmTaskNotifyAddress>([](auto& dialog, Person&) {
    EXPECT_EQ(dialog.txtAddress.Text(), "");
    EXPECT_EQ(dialog.notify.txtData.Text(), "");
    EXPECT_TRUE(dialog.notify.optUseDefault.Checked());
    EXPECT_FALSE(dialog.notify.optUseTemplate.Checked());
    EXPECT_EQ(dialog.notify.cboTemplate.Items(), (Items{"alpha", "beta"}));
    EXPECT_EQ(dialog.notify.cboTemplate.ListIndex(), 0);
    EXPECT_TRUE(dialog.txtAddress.Enabled());
    EXPECT_TRUE(dialog.notify.txtData.Enabled());
    EXPECT_FALSE(dialog.notify.cboTemplate.Enabled());
    EXPECT_FALSE(dialog.notify.cmdEdit.Enabled());
  });
}

TEST_F(Reuse, ACancelledTextIsForgotten) {
  PutTask("F", "FORWARD_TO_ADDRESS", "x", "[SMTP:kept@b]");
  for (int i = 0; i < 2; ++i) {
    Edit<frmForward>("F", [](auto& dialog, Person& person) {
      EXPECT_EQ(dialog.txtData.Text(), "kept@b");
      EXPECT_TRUE(dialog.end.chkStatus.Checked());
      person.Set("txtData", "other@b");
      person.Click("chkStatus");
      person.Click("cmdCancel");
      EXPECT_FALSE(dialog.Loaded());
    });
  }
  EXPECT_EQ(t.store.CountOf("Task.EditTask"), 0);
}

TEST_F(Reuse, ACancelAfterARefusalWritesNothing) {
  Add<frmTaskNotifyAddress>([&](auto& dialog, Person& person) {
    person.Click("cmdOK");
    EXPECT_EQ(Messages().size(), 1u);
    person.Set("txtAddress", "a@b");
    person.Click("optUseTemplate");
    person.Click("cmdOK");
    EXPECT_EQ(Messages().size(), 1u);
    person.Click("cmdCancel");
    EXPECT_FALSE(dialog.Loaded());
  });
  EXPECT_EQ(t.store.calls, Items{});
  EXPECT_EQ(t.registry.TakeReloads(), 0);
}

TEST_F(Reuse, ASharedDialogTakesTheTypeOfItsLatestUse) {
  frmTaskGeneric& plain = t.run.The<frmTaskGeneric>();
  plain.SetType(action_types::kJunk);
  Add<frmTaskGeneric>([](auto&, Person& person) { person.Click("cmdOK"); });
  plain.SetType(action_types::kStopProcessing);
  Edit<frmTaskGeneric>(kFirstGuid, [](auto& dialog, Person&) {
    EXPECT_EQ(dialog.Caption(), "Action - Stop processing filters");
    EXPECT_EQ(dialog.lblDescription.Caption(), "This task stops processing any more filters for the message");
  });
  plain.SetType(action_types::kQuarantine);
  Add<frmTaskGeneric>([](auto& dialog, Person& person) {
    EXPECT_EQ(dialog.Caption(), "Action - Generic");
    EXPECT_EQ(dialog.lblDescription.Caption(), "This task moves the message to Quarantine Folder");
    person.Click("cmdOK");
  });
  frmTaskGenericFolder& folder = t.run.The<frmTaskGenericFolder>();
  folder.SetType(action_types::kMove);
  Add<frmTaskGenericFolder>([](auto&, Person& person) { person.Click("cmdCancel"); });
  folder.SetType(action_types::kCopy);
  Add<frmTaskGenericFolder>([](auto& dialog, Person& person) {
    EXPECT_EQ(dialog.Caption(), "Action - Move Message");
    EXPECT_EQ(dialog.lblDescription.Caption(), "This task copies the message to the specified folder");
    person.Click("cmdOK");
  });
  ASSERT_EQ(tasks().size(), 3u);
  EXPECT_EQ(tasks().at(0).TaskType + "|" + tasks().at(0).Description, "JUNK|Move Message to Junk E-Mail Folder");
  EXPECT_EQ(tasks().at(1).TaskType + "|" + tasks().at(1).Description, "QUARANTINE|Move Message to Quarantine Folder");
  EXPECT_EQ(tasks().at(2).TaskType + "|" + tasks().at(2).Description, "COPY|Copy Message to Folder...");
}

}  // namespace
}  // namespace qv::test
