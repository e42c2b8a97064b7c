#include "actions/strip_attachment_dialog.h"

#include "tests/actions/action_fixture.h"

namespace qv::test {
namespace {

using Items = std::vector<std::string>;

class StripAttachment : public ActionTest {
 protected:
  frmTaskStripAttachment& Dialog(int mode, const std::string& task_id = "") {
    return The<frmTaskStripAttachment>(mode, task_id);
  }
  void Show(frmTaskStripAttachment& dialog, const std::function<void(Person&)>& visit) {
    t.desktop.Visit([&](Form& form) {
      Person person(form);
      visit(person);
      form.Unload();
    });
    dialog.ShowModal();
  }
  // Shows a new action's dialog.
  void ShowNew(const std::function<void(frmTaskStripAttachment&, Person&)>& visit) {
    frmTaskStripAttachment& dialog = Dialog(ActionDialog::kAdd);
    dialog.InitFormVariables();
    dialog.Load();
    dialog.LoadData();
    Show(dialog, [&](Person& person) { visit(dialog, person); });
  }
};

TEST_F(StripAttachment, FixedTexts) {
  frmTaskStripAttachment& dialog = Dialog(ActionDialog::kAdd);
  Show(dialog, [&](Person&) {
    EXPECT_EQ(dialog.Caption(), "Remove Attachment");
    EXPECT_EQ(dialog.lblH1.Caption(), "Action:");
    EXPECT_EQ(dialog.lblDescription.Caption(),
              "The attachments which match the patterns are removed from the email message");
    EXPECT_EQ(dialog.Label1.Caption(),
              "To add or edit the list, please details (comma delimited) in the textbox below:");
    EXPECT_EQ(dialog.Label2.Caption(), "Attachment Patterns:");
    EXPECT_EQ(dialog.cmdAdd.Caption(), "Add");
    EXPECT_EQ(dialog.cmdEdit.Caption(), "Update");
    EXPECT_EQ(dialog.cmdDelete.Caption(), "Delete");
    EXPECT_EQ(TabOrder(dialog),
              (Items{"txtWords", "cmdAdd", "lstWords", "cmdEdit", "cmdDelete", "chkStatus", "cmdOK", "cmdCancel"}));
    ExpectWholeLayout(dialog);
  });
}

TEST_F(StripAttachment, VariablesAndProvider) {
  frmTaskStripAttachment& dialog = Dialog(ActionDialog::kAdd);
  dialog.Values = "a";
  dialog.Status = 1;
  dialog.InitFormVariables();
  EXPECT_EQ(dialog.Values, "");
  EXPECT_EQ(dialog.Status, -1);
  dialog.LoadFromProvider();
  EXPECT_EQ(t.store.calls, (Items{"Task.Create"}));
}

TEST_F(StripAttachment, EditLoadsByItself) {
  PutTask("T", "REMOVE_ATTACHMENT", "Remove attachment", "*.exe,*.bat,,x y");
  frmTaskStripAttachment& dialog = Dialog(ActionDialog::kEdit, "T");
  Show(dialog, [&](Person& person) {
    EXPECT_EQ(dialog.Caption(), "Criteria Properties - Remove attachment");
    EXPECT_EQ(dialog.lblDescription.Caption(), "Remove attachment");
    EXPECT_EQ(dialog.lstWords.Items(), (Items{"*.exe", "*.bat", "", "x y"}));
    EXPECT_TRUE(dialog.end.chkStatus.Checked());
    person.Click("chkStatus");
    person.Click("cmdOK");
    EXPECT_FALSE(dialog.Loaded());
  });
  EXPECT_EQ(t.store.calls.back(), "Task.EditTask@(T,0,CRTF,REMOVE_ATTACHMENT,Remove attachment,*.exe,*.bat,,x y)");
  EXPECT_EQ(t.registry.TakeReloads(), 1);
}

TEST_F(StripAttachment, EditOfAMissingTask) {
  frmTaskStripAttachment& dialog = Dialog(ActionDialog::kEdit, "GONE");
  Show(dialog, [&](Person& person) {
    EXPECT_EQ(Messages(), Error("Task Not Found"));
    EXPECT_EQ(dialog.Caption(), "Remove Attachment");
    person.Click("cmdOK");
  });
  EXPECT_EQ(Messages(), Error("Unable to edit action."));
  EXPECT_EQ(t.registry.TakeReloads(), 1);
}

TEST_F(StripAttachment, AddsAnEnabledTask) {
  ShowNew([](auto& dialog, Person& person) {
    EXPECT_TRUE(dialog.end.chkStatus.Checked());
    person.Set("txtWords", "*.exe, *.bat,*.exe");
    person.Click("cmdAdd");
    EXPECT_EQ(dialog.lstWords.Items(), (Items{"*.exe", " *.bat", "*.exe"}));
    EXPECT_EQ(dialog.txtWords.Text(), "");
    EXPECT_TRUE(dialog.end.chkStatus.Enabled());
    person.Click("cmdOK");
    EXPECT_FALSE(dialog.Loaded());
    EXPECT_EQ(dialog.Values, "*.exe, *.bat,*.exe");
    EXPECT_EQ(dialog.Status, 1);
  });
  EXPECT_EQ(t.store.calls.back(), std::string("Task.AddTask@(CRTF,") + kFirstGuid +
                                      ",REMOVE_ATTACHMENT,Remove attachment,1,*.exe, *.bat,*.exe)");
  EXPECT_EQ(t.registry.TakeReloads(), 1);
}

TEST_F(StripAttachment, AddFails) {
  t.store.Refuse("Task.AddTask", 0);
  ShowNew([](auto&, Person& person) { person.Click("cmdOK"); });
  EXPECT_EQ(Messages(), Error("Unable to add action"));
  EXPECT_EQ(t.registry.TakeReloads(), 1);
}

TEST_F(StripAttachment, AnEmptyListSavesNothingInValues) {
  ShowNew([](auto&, Person& person) { person.Click("cmdOK"); });
  EXPECT_EQ(tasks().at(0).Values, "");
}

TEST_F(StripAttachment, AddOfNothingTurnsTheStatusOff) {
  ShowNew([](auto& dialog, Person& person) {
    person.Click("cmdAdd");
    EXPECT_EQ(dialog.lstWords.ListCount(), 0);
    EXPECT_FALSE(dialog.end.chkStatus.Enabled());
    person.Set("txtWords", "a");
    person.Click("cmdAdd");
    EXPECT_TRUE(dialog.end.chkStatus.Enabled());
  });
}

TEST_F(StripAttachment, UpdateReplacesTheSelectedRow) {
  ShowNew([](auto& dialog, Person& person) {
    person.Set("txtWords", "a,b");
    person.Click("cmdAdd");
    EXPECT_FALSE(dialog.cmdEdit.Enabled());
    EXPECT_FALSE(dialog.cmdDelete.Enabled());
    person.Pick("lstWords", 0);
    EXPECT_TRUE(dialog.cmdEdit.Enabled());
    EXPECT_TRUE(dialog.cmdDelete.Enabled());
    person.Set("txtWords", "c,d,e");
    person.Click("cmdEdit");
    EXPECT_EQ(dialog.lstWords.Items(), (Items{"c", "b", "d", "e"}));
    EXPECT_EQ(dialog.txtWords.Text(), "c,d,e");
    EXPECT_EQ(dialog.lstWords.ListIndex(), 0);
    person.Set("txtWords", "");
    person.Click("cmdEdit");
    EXPECT_EQ(dialog.lstWords.Items(), (Items{"c", "b", "d", "e"}));
  });
}

TEST_F(StripAttachment, UpdateAndDeleteNeedASelectedRow) {
  ShowNew([](auto& dialog, Person& person) {
    person.Set("txtWords", "a");
    person.Click("cmdAdd");
    person.Pick("lstWords", -1);
    person.Set("txtWords", "b,c");
    person.Click("cmdEdit");
    person.Click("cmdDelete");
    EXPECT_EQ(dialog.lstWords.Items(), (Items{"a"}));
  });
}

TEST_F(StripAttachment, DeleteMovesTheSelection) {
  ShowNew([](auto& dialog, Person& person) {
    person.Set("txtWords", "a,b,c");
    person.Click("cmdAdd");
    person.Pick("lstWords", 1);
    person.Click("cmdDelete");
    EXPECT_EQ(dialog.lstWords.Items(), (Items{"a", "c"}));
    EXPECT_EQ(dialog.lstWords.ListIndex(), 1);
    person.Click("cmdDelete");
    EXPECT_EQ(dialog.lstWords.Items(), (Items{"a"}));
    EXPECT_EQ(dialog.lstWords.ListIndex(), 0);
    EXPECT_TRUE(dialog.end.chkStatus.Enabled());
    person.Click("cmdDelete");
    EXPECT_TRUE(dialog.lstWords.Items().empty());
    for (const Control* control : {static_cast<Control*>(&dialog.cmdDelete), static_cast<Control*>(&dialog.cmdEdit),
                                   static_cast<Control*>(&dialog.end.chkStatus)}) {
      EXPECT_FALSE(control->Enabled()) << control->name();
    }
    // The status stays as the box had it.
    person.Click("cmdOK");
    EXPECT_EQ(dialog.Status, 1);
  });
  EXPECT_EQ(tasks().at(0).Status, 1);
}

TEST_F(StripAttachment, DeleteViewDeletes) {
  PutTask("T", "REMOVE_ATTACHMENT", "Remove attachment", "a");
  frmTaskStripAttachment& dialog = Dialog(ActionDialog::kDeleteView, "T");
  dialog.Load();
  dialog.LoadData();
  Show(dialog, [&](Person& person) {
    EXPECT_FALSE(dialog.end.chkStatus.Enabled());
    EXPECT_EQ(dialog.Caption(), "Delete Criteria Properties - Remove attachment");
    person.Click("cmdOK");
  });
  EXPECT_EQ(t.store.calls.back(), "Task.RemoveTask@(CRTF,T)");
  EXPECT_TRUE(tasks().empty());
  EXPECT_EQ(t.registry.TakeReloads(), 1);
}

TEST_F(StripAttachment, DeleteFails) {
  frmTaskStripAttachment& dialog = Dialog(ActionDialog::kDeleteView, "GONE");
  Show(dialog, [&](Person& person) { person.Click("cmdOK"); });
  EXPECT_EQ(Messages(), Error("Could not delete action"));
  EXPECT_EQ(t.registry.TakeReloads(), 1);
}

TEST_F(StripAttachment, CancelWritesNothing) {
  ShowNew([](auto& dialog, Person& person) {
    person.Click("cmdCancel");
    EXPECT_FALSE(dialog.Loaded());
  });
  EXPECT_TRUE(tasks().empty());
  EXPECT_EQ(t.registry.TakeReloads(), 0);
}

}  // namespace
}  // namespace qv::test
