#include "actions/notify_dialogs.h"

#include "tests/actions/action_fixture.h"

namespace qv::test {
namespace {

using Items = std::vector<std::string>;

class NotifyDialogs : public ActionTest {
 protected:
  void PutTemplates() {
    for (const char* name : {"QVFILTER-alpha.txt", "QVFILTER-beta.TXT", "qvfilter-lower.txt", "QVFILTER-doc.doc",
                             "notes.txt", "QVFILTER-x.txt.bak"}) {
      t.files.Put(std::string("C:\\Config\\filters\\templates\\") + name, "x");
    }
  }

  // Which of the controls that follow the options are enabled.
  template <class Dialog>
  static std::string Enabled(Dialog& dialog) {
    std::string names;
    for (const char* name : {"txtAddress", "optUseDefault", "optUseTemplate", "txtData", "cboTemplate", "cmdEdit"}) {
      const Control* control = dialog.Find(name);
      if (control && control->Enabled()) names += std::string(names.empty() ? "" : " ") + name;
    }
    return names;
  }
};

TEST_F(NotifyDialogs, ListTheTemplatesByName) {
  PutTemplates();
  Add<frmTaskNotifySender>([](auto& dialog, Person&) {
    EXPECT_EQ(dialog.notify.cboTemplate.Items(), (Items{"alpha", "beta"}));
    EXPECT_EQ(dialog.notify.cboTemplate.ListIndex(), 0);
    EXPECT_TRUE(dialog.notify.optUseDefault.Checked());
    EXPECT_FALSE(dialog.notify.optUseTemplate.Checked());
    EXPECT_EQ(dialog.notify.optUseDefault.Caption(), "Use default notification message");
    EXPECT_EQ(dialog.notify.optUseTemplate.Caption(), "Use template for notification");
    EXPECT_EQ(dialog.notify.Label1.Caption(), "Select template:");
    EXPECT_EQ(dialog.notify.cmdEdit.Caption(), "Edit...");
  });
}

TEST_F(NotifyDialogs, TheListIsFilledAnewEachTime) {
  PutTemplates();
  Add<frmTaskNotifySender>([](auto&, Person&) {});
  t.files.Delete("C:\\Config\\filters\\templates\\QVFILTER-alpha.txt");
  Add<frmTaskNotifySender>(
      [](auto& dialog, Person&) { EXPECT_EQ(dialog.notify.cboTemplate.Items(), (Items{"beta"})); });
}

TEST_F(NotifyDialogs, ATemplateNameCanBeEmptyOrHoldAnyCharacter) {
  t.files.Put("C:\\Config\\filters\\templates\\QVFILTER-.txt", "x");
  t.files.Put("C:\\Config\\filters\\templates\\QVFILTER-\xC3\x84\xC3\xB6 - 1.Txt", "x");
  Add<frmTaskNotifySender>([](auto& dialog, Person&) {
    EXPECT_EQ(dialog.notify.cboTemplate.Items(), (Items{"", "\xC3\x84\xC3\xB6 - 1"}));
  });
}

TEST_F(NotifyDialogs, AMissingFolderIsNoError) {
  Add<frmTaskNotifyRecipients>([&](auto& dialog, Person&) {
    EXPECT_EQ(dialog.notify.cboTemplate.ListCount(), 0);
    EXPECT_EQ(dialog.notify.cboTemplate.ListIndex(), -1);
    EXPECT_TRUE(Messages().empty());
    EXPECT_EQ(Enabled(dialog), "optUseDefault optUseTemplate txtData");
  });
}

TEST_F(NotifyDialogs, AFolderThatCannotBeListedGoesToTheOpener) {
  PutTemplates();
  t.files.fail = "FileNames";
  EXPECT_THROW(The<frmTaskNotifySender>(ActionDialog::kAdd).EditTask(), RuntimeError);
}

TEST_F(NotifyDialogs, TheTemplatesAreThoseOfThisMachineForEveryHost) {
  PutTemplates();
  t.store.server("Far");
  frmTaskNotifySender& dialog = The<frmTaskNotifySender>(ActionDialog::kAdd);
  dialog.Host = "Far";
  t.desktop.Visit([&](Form& form) {
    EXPECT_EQ(dialog.notify.cboTemplate.Items(), (Items{"alpha", "beta"}));
    form.Unload();
  });
  dialog.EditTask();
}

TEST_F(NotifyDialogs, AddWithATemplate) {
  PutTemplates();
  Add<frmTaskNotifySender>([](auto&, Person& person) {
    person.Set("txtData", "The reason");
    person.Click("optUseTemplate");
    person.Pick("cboTemplate", 1);
    person.Click("cmdOK");
  });
  EXPECT_EQ(t.store.calls.back(),
            std::string("Task.AddTask@(CRTF,") + kFirstGuid + ",NOTIFY_SENDER,The reason,1,QVFILTER-beta)");
  Add<frmTaskNotifyRecipients>([](auto&, Person& person) {
    person.Click("optUseTemplate");
    person.Click("cmdOK");
  });
  EXPECT_EQ(tasks().at(1).TaskType, "NOTIFY_RECIPIENTS");
  EXPECT_EQ(tasks().at(1).Description, "");
  EXPECT_EQ(tasks().at(1).Values, "QVFILTER-alpha");
}

TEST_F(NotifyDialogs, AddToAnAddressWithATemplate) {
  PutTemplates();
  Add<frmTaskNotifyAddress>([](auto& dialog, Person& person) {
    EXPECT_EQ(dialog.Label2.Caption(), "Address to send notification to:");
    person.Set("txtAddress", "a@b");
    person.Set("txtData", "R");
    person.Click("optUseTemplate");
    person.Click("cmdOK");
  });
  EXPECT_EQ(tasks().at(0).Description, "R");
  EXPECT_EQ(tasks().at(0).Values, "<REFERENCE><ADDRESS>a@b</ADDRESS><FILE>QVFILTER-alpha</FILE></REFERENCE>");
}

TEST_F(NotifyDialogs, LoadOfTheDefaultMessage) {
  PutTemplates();
  PutTask("T", "NOTIFY_SENDER", "Why", "");
  Edit<frmTaskNotifySender>("T", [&](auto& dialog, Person&) {
    EXPECT_EQ(dialog.notify.txtData.Text(), "Why");
    EXPECT_TRUE(dialog.notify.optUseDefault.Checked());
    EXPECT_EQ(Enabled(dialog), "optUseDefault optUseTemplate txtData");
  });
}

TEST_F(NotifyDialogs, LoadOfATemplate) {
  PutTemplates();
  const std::pair<const char*, long> cases[] = {
      {"QVFILTER-beta", 1}, {"qvfilter-beta", 1}, {"beta", 1}, {"QVFILTER-Beta", 0}, {"QVFILTER-gone", 0}};
  for (const auto& [values, selected] : cases) {
    tasks().clear();
    PutTask("T", "NOTIFY_RECIPIENTS", "Why", values);
    const long expected = selected;
    const std::string stored = values;
    Edit<frmTaskNotifyRecipients>("T", [&](auto& dialog, Person&) {
      EXPECT_TRUE(dialog.notify.optUseTemplate.Checked());
      EXPECT_FALSE(dialog.notify.optUseDefault.Checked());
      EXPECT_EQ(dialog.notify.cboTemplate.ListIndex(), expected) << stored;
      EXPECT_EQ(dialog.notify.txtData.Text(), "Why");
      EXPECT_EQ(dialog.Values, stored);
      EXPECT_EQ(Enabled(dialog), "optUseDefault optUseTemplate cboTemplate cmdEdit");
    });
  }
}

TEST_F(NotifyDialogs, ATemplateThatIsGoneBecomesTheFirstAtOk) {
  PutTemplates();
  PutTask("T", "NOTIFY_SENDER", "Why", "QVFILTER-gone");
  Edit<frmTaskNotifySender>("T", [](auto&, Person& person) { person.Click("cmdOK"); });
  EXPECT_EQ(tasks().at(0).Values, "QVFILTER-alpha");
}

TEST_F(NotifyDialogs, LoadOfAnAddress) {
  PutTemplates();
  struct Case {
    const char *values, *address;
    bool template_chosen;
    long selected;
  };
  const Case cases[] = {
      {"<REFERENCE><ADDRESS>a@b</ADDRESS><FILE>QVFILTER-beta</FILE></REFERENCE>", "a@b", true, 1},
      {"<reference><ADDRESS>a@b</ADDRESS><FILE>qvfilter-beta</FILE></REFERENCE>", "a@b", true, 1},
      {"<REFERENCE><ADDRESS>a@b</ADDRESS><FILE>beta</FILE></REFERENCE>", "a@b", true, 1},
      {"<REFERENCE><ADDRESS>a@b</ADDRESS><FILE>QVFILTER-gone</FILE></REFERENCE>", "a@b", true, 0},
      {"<REFERENCE><ADDRESS>a@b</ADDRESS><FILE></FILE></REFERENCE>", "a@b", false, 0},
      {"<REFERENCE><ADDRESS></ADDRESS><FILE></FILE></REFERENCE>", "", false, 0},
      {"<REFERENCE><address>a@b</address></REFERENCE>", "", false, 0},
      {"<REFERENCE><ADDRESS>a@b", "", false, 0},
      {"QVFILTER-beta", "", false, 0},
      {"", "", false, 0},
  };
  for (const Case& c : cases) {
    tasks().clear();
    PutTask("T", "NOTIFY_ADDRESS", "Why", c.values);
    Edit<frmTaskNotifyAddress>("T", [&](auto& dialog, Person&) {
      EXPECT_EQ(dialog.txtAddress.Text(), c.address) << c.values;
      EXPECT_EQ(dialog.notify.optUseTemplate.Checked(), c.template_chosen) << c.values;
      EXPECT_EQ(dialog.notify.optUseDefault.Checked(), !c.template_chosen) << c.values;
      EXPECT_EQ(dialog.notify.cboTemplate.ListIndex(), c.selected) << c.values;
      EXPECT_EQ(dialog.notify.txtData.Text(), "Why");
      EXPECT_EQ(dialog.Values, c.values);
    });
  }
}

TEST_F(NotifyDialogs, TheOptionsLeadTheControls) {
  PutTemplates();
  Add<frmTaskNotifySender>([&](auto& dialog, Person& person) {
    EXPECT_EQ(Enabled(dialog), "optUseDefault optUseTemplate txtData");
    person.Click("optUseTemplate");
    EXPECT_EQ(Enabled(dialog), "optUseDefault optUseTemplate cboTemplate cmdEdit");
    person.Click("optUseDefault");
    EXPECT_EQ(Enabled(dialog), "optUseDefault optUseTemplate txtData");
    person.Click("chkStatus");
    EXPECT_EQ(Enabled(dialog), "");
    person.Click("chkStatus");
    EXPECT_EQ(Enabled(dialog), "optUseDefault optUseTemplate txtData");
    person.Click("optUseTemplate");
    person.Click("chkStatus");
    EXPECT_EQ(Enabled(dialog), "");
    person.Click("chkStatus");
    EXPECT_EQ(Enabled(dialog), "optUseDefault optUseTemplate cboTemplate cmdEdit");
  });
}

TEST_F(NotifyDialogs, AnAddressFollowsTheStatusToo) {
  PutTemplates();
  Add<frmTaskNotifyAddress>([&](auto& dialog, Person& person) {
    EXPECT_EQ(Enabled(dialog), "txtAddress optUseDefault optUseTemplate txtData");
    person.Click("chkStatus");
    EXPECT_EQ(Enabled(dialog), "");
  });
}

TEST_F(NotifyDialogs, ADisabledTaskLeavesTheControlsOfTwoDialogsEnabled) {
  PutTemplates();
  PutTask("S", "NOTIFY_SENDER", "Why", "", 0);
  PutTask("R", "NOTIFY_RECIPIENTS", "Why", "QVFILTER-beta", 0);
  PutTask("A", "NOTIFY_ADDRESS", "Why", "", 0);
  Edit<frmTaskNotifySender>("S", [&](auto& dialog, Person&) {
    EXPECT_FALSE(dialog.end.chkStatus.Checked());
    EXPECT_EQ(Enabled(dialog), "optUseDefault optUseTemplate txtData cboTemplate cmdEdit");
  });
  Edit<frmTaskNotifyRecipients>("R", [&](auto& dialog, Person&) {
    EXPECT_EQ(Enabled(dialog), "optUseDefault optUseTemplate cboTemplate cmdEdit");
  });
  Edit<frmTaskNotifyAddress>("A", [&](auto& dialog, Person&) { EXPECT_EQ(Enabled(dialog), ""); });
}

TEST_F(NotifyDialogs, ADisabledTaskWithoutTemplatesKeepsTheEditButtonOff) {
  PutTask("S", "NOTIFY_SENDER", "Why", "", 0);
  Edit<frmTaskNotifySender>("S", [&](auto& dialog, Person&) {
    EXPECT_EQ(Enabled(dialog), "optUseDefault optUseTemplate txtData cboTemplate");
  });
}

TEST_F(NotifyDialogs, EditStartsTheEditorOnTheTemplate) {
  PutTemplates();
  Add<frmTaskNotifySender>([](auto&, Person& person) {
    person.Click("optUseTemplate");
    person.Pick("cboTemplate", 1);
    person.Click("cmdEdit");
  });
  EXPECT_EQ(t.desktop.programs, (Items{"notepad \"C:\\Config\\filters\\templates\\QVFILTER-beta.TXT\""}));
  EXPECT_EQ(t.registry.TakeReloads(), 0);
}

TEST_F(NotifyDialogs, WithoutTemplates) {
  PutTask("S", "NOTIFY_SENDER", "Why", "QVFILTER-gone");
  Edit<frmTaskNotifySender>("S", [&](auto& dialog, Person& person) {
    EXPECT_TRUE(dialog.notify.optUseTemplate.Checked());
    EXPECT_EQ(dialog.notify.cboTemplate.ListCount(), 0);
    person.Click("cmdEdit");
    person.Click("cmdOK");
    EXPECT_EQ(Messages(), Told("There are no templates configured. You must create a template.", "Warning",
                               MessageIcon::Exclamation));
    EXPECT_TRUE(dialog.Loaded());
    EXPECT_EQ(t.store.CountOf("Task.EditTask"), 0);
    EXPECT_EQ(t.registry.TakeReloads(), 0);
    person.Click("optUseDefault");
    person.Click("cmdOK");
    EXPECT_FALSE(dialog.Loaded());
  });
  EXPECT_EQ(t.desktop.programs, (Items{"notepad \"C:\\Config\\filters\\templates\\QVFILTER-.TXT\""}));
  EXPECT_EQ(tasks().at(0).Values, "");
}

TEST_F(NotifyDialogs, TheTemplateCheckDoesNotAskForTheStatus) {
  Add<frmTaskNotifyRecipients>([&](auto&, Person& person) {
    person.Click("optUseTemplate");
    person.Click("chkStatus");
    person.Click("cmdOK");
    EXPECT_EQ(Messages(), Told("There are no templates configured. You must create a template.", "Warning",
                               MessageIcon::Exclamation));
  });
}

TEST_F(NotifyDialogs, TheAddressIsChecked) {
  Add<frmTaskNotifyAddress>([&](auto& dialog, Person& person) {
    for (const char* text : {"", "   ", "@b.example", "a b@c", " a@b", "a@b ", "ab.example"}) {
      person.Set("txtAddress", text);
      dialog.SetFocus(dialog.end.cmdOK);
      person.Click("cmdOK");
      EXPECT_EQ(Messages(), Told("The recipient email address is not valid.", "Error", MessageIcon::Exclamation))
          << text;
      EXPECT_TRUE(dialog.Loaded());
      EXPECT_EQ(dialog.Focus(), &dialog.txtAddress);
    }
    EXPECT_TRUE(t.store.calls.empty());
    EXPECT_EQ(t.registry.TakeReloads(), 0);
    person.Set("txtAddress", "a@");
    person.Click("cmdOK");
    EXPECT_FALSE(dialog.Loaded());
  });
  EXPECT_EQ(tasks().at(0).Values, "<REFERENCE><ADDRESS>a@</ADDRESS><FILE></FILE></REFERENCE>");
}

TEST_F(NotifyDialogs, TheAddressIsCheckedWhenDisabledToo) {
  Add<frmTaskNotifyAddress>([&](auto& dialog, Person& person) {
    person.Click("chkStatus");
    person.Click("cmdOK");
    EXPECT_EQ(Messages(), Told("The recipient email address is not valid.", "Error", MessageIcon::Exclamation));
    EXPECT_TRUE(dialog.Loaded());
  });
}

TEST_F(NotifyDialogs, TheAddressComesBeforeTheTemplate) {
  Add<frmTaskNotifyAddress>([&](auto&, Person& person) {
    person.Click("optUseTemplate");
    person.Click("cmdOK");
    EXPECT_EQ(Messages(), Told("The recipient email address is not valid.", "Error", MessageIcon::Exclamation));
    person.Set("txtAddress", "a@b");
    person.Click("cmdOK");
    EXPECT_EQ(Messages(), Told("There are no templates configured. You must create a template.", "Warning",
                               MessageIcon::Exclamation));
  });
}

TEST_F(NotifyDialogs, TheAddressIsSelectedWhenTheTabKeyBringsTheFocus) {
  Add<frmTaskNotifyAddress>([&](auto& dialog, Person& person) {
    person.Set("txtAddress", "a@b");
    person.Set("txtData", "Why");
    dialog.SetFocus(dialog.txtAddress);
    EXPECT_EQ(dialog.txtAddress.SelLength(), 0u);
    person.Tab(t.desktop, "txtAddress");
    EXPECT_EQ(dialog.txtAddress.SelLength(), 3u);
    person.Tab(t.desktop, "txtData");
    EXPECT_EQ(dialog.notify.txtData.SelLength(), 0u);
  });
}

TEST_F(NotifyDialogs, TheDescriptionIsKeptWithATemplate) {
  PutTemplates();
  PutTask("S", "NOTIFY_SENDER", "Why", "QVFILTER-beta");
  Edit<frmTaskNotifySender>("S", [](auto&, Person& person) {
    person.Click("chkStatus");
    person.Click("cmdOK");
  });
  EXPECT_EQ(t.store.calls.back(), "Task.EditTask@(S,0,CRTF,NOTIFY_SENDER,Why,QVFILTER-beta)");
}

TEST_F(NotifyDialogs, TheAddressDialogAgreesWithAMissingTask) {
  Edit<frmTaskNotifyAddress>("GONE", [&](auto& dialog, Person&) {
    EXPECT_EQ(Messages(), Error("Task Not Found"));
    EXPECT_EQ(Enabled(dialog), "");
  });
}

}  // namespace
}  // namespace qv::test
