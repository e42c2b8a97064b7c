// The dialogs with text of their own: forward, folder, header, prefix, application.

#include "actions/execute_app_dialog.h"
#include "actions/folder_dialog.h"
#include "actions/forward_dialog.h"
#include "actions/message_edit_dialogs.h"
#include "tests/actions/action_fixture.h"

namespace qv::test {
namespace {

class TextDialogs : public ActionTest {
 protected:
  void ExpectFollows(bool enabled, const std::vector<const TextBox*>& boxes) {
    for (const TextBox* box : boxes) {
      EXPECT_EQ(box->Enabled(), enabled) << box->name();
      EXPECT_EQ(box->Back(), enabled ? BackColor::Window : BackColor::ButtonFace) << box->name();
    }
  }
  void ExpectSelectedByTab(Form& form, TextBox& box, const std::string& text, std::size_t length) {
    Person person(form);
    person.Set(box.name(), "");
    person.Tab(t.desktop, box.name());
    EXPECT_EQ(box.SelLength(), 0u) << box.name();
    person.Set(box.name(), text);
    form.SetFocus(box);
    EXPECT_EQ(box.SelLength(), 0u) << box.name();
    person.Tab(t.desktop, box.name());
    EXPECT_EQ(box.SelStart(), 0u) << box.name();
    EXPECT_EQ(box.SelLength(), length) << box.name();
  }
  static std::vector<ShownMessage> Warning(const std::string& text) {
    return Told(text, "Warning", MessageIcon::Exclamation);
  }
};

// Forward.

TEST_F(TextDialogs, ForwardShowsTheAddressWithoutItsForm) {
  const std::pair<const char*, const char*> cases[] = {
      {"[SMTP:a@b]", "a@b"}, {"[SMTP:a@b", "a@b"},     {"a@b", "a@b"}, {"[smtp:a@b]", "[smtp:a@b]"},
      {"Name [SMTP:a@b]", "SMTP:a@b"}, {"a@b]", "a@b]"}, {"", ""},
  };
  for (const auto& [values, shown] : cases) {
    tasks().clear();
    PutTask("T", "FORWARD_TO_ADDRESS", "x", values);
    const std::string expected = shown, stored = values;
    Edit<frmForward>("T", [&](auto& dialog, Person&) {
      EXPECT_EQ(dialog.txtData.Text(), expected);
      EXPECT_EQ(dialog.Values, stored);
      EXPECT_EQ(dialog.Label1.Caption(), "Email address:");
    });
  }
}

TEST_F(TextDialogs, ForwardStoresABareAddressInItsForm) {
  PutTask("T", "FORWARD_TO_ADDRESS", "x", "a@b");
  Edit<frmForward>("T", [](auto&, Person& person) { person.Click("cmdOK"); });
  EXPECT_EQ(tasks()[0].Values, "[SMTP:a@b]");
}

TEST_F(TextDialogs, ForwardChecksTheAddressOfAnEnabledAction) {
  Add<frmForward>([&](auto& dialog, Person& person) {
    for (const char* text : {"", "a b@c", "@c", "a@b ", "ab"}) {
      person.Set("txtData", text);
      dialog.SetFocus(dialog.end.cmdOK);
      person.Click("cmdOK");
      EXPECT_EQ(Messages(), Told("You need to enter a valid email address.", "Error", MessageIcon::Exclamation))
          << text;
      EXPECT_EQ(dialog.Focus(), &dialog.txtData);
      EXPECT_TRUE(dialog.Loaded());
    }
    EXPECT_TRUE(t.store.calls.empty());
    EXPECT_EQ(t.registry.TakeReloads(), 0);
  });
}

TEST_F(TextDialogs, ForwardTakesAnyTextOfADisabledAction) {
  for (const char* text : {"", "a b"}) {
    tasks().clear();
    Add<frmForward>([&](auto& dialog, Person& person) {
      person.Set("txtData", text);
      person.Click("chkStatus");
      EXPECT_TRUE(dialog.txtData.Enabled());
      EXPECT_EQ(dialog.txtData.Back(), BackColor::Window);
      person.Click("cmdOK");
      EXPECT_FALSE(dialog.Loaded());
    });
    EXPECT_EQ(tasks()[0].Values, std::string("[SMTP:") + text + "]");
    EXPECT_EQ(tasks()[0].Status, 0);
  }
  EXPECT_TRUE(Messages().empty());
}

TEST_F(TextDialogs, ForwardSelectsByTab) {
  Add<frmForward>([&](auto& dialog, Person&) { ExpectSelectedByTab(dialog, dialog.txtData, "a@b", 3); });
}

// Folder.

TEST_F(TextDialogs, FolderFollowsTheStatus) {
  Add<frmTaskGenericFolder>([&](auto& dialog, Person& person) {
    EXPECT_EQ(dialog.Label1.Caption(), "Folder:");
    ExpectFollows(true, {&dialog.txtFolder});
    person.Click("chkStatus");
    ExpectFollows(false, {&dialog.txtFolder});
    person.Click("chkStatus");
    ExpectFollows(true, {&dialog.txtFolder});
    ExpectSelectedByTab(dialog, dialog.txtFolder, "\xC3\x84rger", 5);
  });
}

TEST_F(TextDialogs, FolderOfADisabledTask) {
  PutTask("T", "MOVE", "x", "A|B", 0);
  Edit<frmTaskGenericFolder>("T", [&](auto& dialog, Person&) {
    ExpectFollows(false, {&dialog.txtFolder});
    EXPECT_EQ(dialog.txtFolder.Text(), "A|B");
    EXPECT_EQ(dialog.Values, "A|B");
    EXPECT_EQ(dialog.Focus(), &dialog.end.chkStatus);
  });
}

TEST_F(TextDialogs, FolderMayBeEmpty) {
  t.run.The<frmTaskGenericFolder>().SetType(action_types::kMove);
  Add<frmTaskGenericFolder>([](auto&, Person& person) { person.Click("cmdOK"); });
  EXPECT_EQ(t.store.calls.back(),
            std::string("Task.AddTask@(CRTF,") + kFirstGuid + ",MOVE,Move Message to Folder...,1,)");
  EXPECT_TRUE(Messages().empty());
}

TEST_F(TextDialogs, FolderOfAMissingTaskStaysEnabled) {
  Edit<frmTaskGenericFolder>("GONE", [&](auto& dialog, Person&) { ExpectFollows(true, {&dialog.txtFolder}); });
}

// Header.

TEST_F(TextDialogs, HeaderFollowsTheStatus) {
  Add<frmTaskAddHeader>([&](auto& dialog, Person& person) {
    EXPECT_EQ(dialog.Label1.Caption(), "Header item (e.g. X-Spam:):");
    EXPECT_EQ(dialog.Label2.Caption(), "Header value:");
    ExpectFollows(true, {&dialog.txtHeaderItem, &dialog.txtHeaderValue});
    person.Click("chkStatus");
    ExpectFollows(false, {&dialog.txtHeaderItem, &dialog.txtHeaderValue});
    person.Click("chkStatus");
    ExpectSelectedByTab(dialog, dialog.txtHeaderItem, "X-A", 3);
    ExpectSelectedByTab(dialog, dialog.txtHeaderValue, "yes", 3);
  });
}

TEST_F(TextDialogs, HeaderIsSplitAtTheBar) {
  struct Case {
    const char *values, *item, *value;
  };
  const Case cases[] = {{"X-A|yes", "X-A", "yes"}, {"X-A|a|b", "X-A", "a"}, {"X-A", "X-A", ""}, {"|", "", ""}, {"", "", ""}};
  for (const Case& c : cases) {
    tasks().clear();
    PutTask("T", "ADD_HEADER", "x", c.values, 0);
    Edit<frmTaskAddHeader>("T", [&](auto& dialog, Person&) {
      EXPECT_EQ(dialog.txtHeaderItem.Text(), c.item);
      EXPECT_EQ(dialog.txtHeaderValue.Text(), c.value);
      EXPECT_EQ(dialog.Values, c.values);
      ExpectFollows(false, {&dialog.txtHeaderItem, &dialog.txtHeaderValue});
    });
  }
}

TEST_F(TextDialogs, HeaderNeedsItsTexts) {
  Add<frmTaskAddHeader>([&](auto& dialog, Person& person) {
    for (const char* text : {"", "  "}) {
      person.Set("txtHeaderItem", text);
      dialog.SetFocus(dialog.end.cmdOK);
      person.Click("cmdOK");
      EXPECT_EQ(Messages(), Warning("You need to enter a header item."));
      EXPECT_EQ(dialog.Focus(), &dialog.txtHeaderItem);
    }
    person.Set("txtHeaderItem", "X-A:");
    for (const char* text : {"", "  "}) {
      person.Set("txtHeaderValue", text);
      person.Click("cmdOK");
      EXPECT_EQ(Messages(), Warning("You need to enter a header value."));
      EXPECT_EQ(dialog.Focus(), &dialog.txtHeaderValue);
      EXPECT_EQ(dialog.txtHeaderItem.Text(), "X-A:");
    }
    EXPECT_TRUE(dialog.Loaded());
    EXPECT_EQ(t.registry.TakeReloads(), 0);
  });
  EXPECT_TRUE(tasks().empty());
}

TEST_F(TextDialogs, HeaderLosesOneColonAndNoBlanks) {
  const std::pair<const char*, const char*> cases[] = {
      {"X-A:", "X-A| v "}, {"X-A::", "X-A:| v "}, {" X-A: ", " X-A: | v "}, {":", "| v "}};
  for (const auto& [item, values] : cases) {
    tasks().clear();
    const std::string typed = item;
    Add<frmTaskAddHeader>([&](auto&, Person& person) {
      person.Set("txtHeaderItem", typed);
      person.Set("txtHeaderValue", " v ");
      person.Click("cmdOK");
    });
    ASSERT_EQ(tasks().size(), 1u);
    EXPECT_EQ(tasks()[0].Values, values);
  }
}

TEST_F(TextDialogs, HeaderOfADisabledActionTakesAnything) {
  Add<frmTaskAddHeader>([](auto&, Person& person) {
    person.Click("chkStatus");
    person.Click("cmdOK");
  });
  Add<frmTaskAddHeader>([](auto&, Person& person) {
    person.Set("txtHeaderItem", "X:");
    person.Click("chkStatus");
    person.Click("cmdOK");
  });
  EXPECT_EQ(tasks()[0].Values, "|");
  EXPECT_EQ(tasks()[1].Values, "X|");
}

TEST_F(TextDialogs, ASpamActionReopenedAsAHeaderKeepsItsValues) {
  PutTask("T", "ADD_HEADER", "Mark message as spam", "X-QV-Content|Deliver-To=Junk");
  Edit<frmTaskAddHeader>("T", [](auto& dialog, Person& person) {
    EXPECT_EQ(dialog.txtHeaderItem.Text(), "X-QV-Content");
    EXPECT_EQ(dialog.txtHeaderValue.Text(), "Deliver-To=Junk");
    person.Click("cmdOK");
  });
  EXPECT_EQ(tasks()[0].Values, "X-QV-Content|Deliver-To=Junk");
  EXPECT_EQ(tasks()[0].Description, "Add a header to a message");
}

// Prefix.

TEST_F(TextDialogs, PrefixFollowsTheStatus) {
  Add<frmTaskAddPrefix>([&](auto& dialog, Person& person) {
    EXPECT_EQ(dialog.Label1.Caption(), "Subject Prefix:");
    ExpectFollows(true, {&dialog.txtPrefix});
    person.Click("chkStatus");
    ExpectFollows(false, {&dialog.txtPrefix});
    person.Click("chkStatus");
    ExpectSelectedByTab(dialog, dialog.txtPrefix, "[A] ", 4);
  });
}

TEST_F(TextDialogs, PrefixLosesWhatStandsBehindABar) {
  Add<frmTaskAddPrefix>([](auto&, Person& person) {
    person.Set("txtPrefix", " a|b ");
    person.Click("cmdOK");
  });
  EXPECT_EQ(tasks()[0].Values, " a|b ");
  Edit<frmTaskAddPrefix>(kFirstGuid, [](auto& dialog, Person& person) {
    EXPECT_EQ(dialog.txtPrefix.Text(), " a");
    EXPECT_EQ(dialog.Values, " a|b ");
    person.Click("cmdOK");
  });
  EXPECT_EQ(tasks()[0].Values, " a");
}

TEST_F(TextDialogs, PrefixIsNeededByAnEnabledAction) {
  Add<frmTaskAddPrefix>([&](auto& dialog, Person& person) {
    for (const char* text : {"", "  "}) {
      person.Set("txtPrefix", text);
      dialog.SetFocus(dialog.end.cmdOK);
      person.Click("cmdOK");
      EXPECT_EQ(Messages(), Warning("You need to enter a subject prefix."));
      EXPECT_EQ(dialog.Focus(), &dialog.txtPrefix);
      EXPECT_TRUE(dialog.Loaded());
    }
    person.Set("txtPrefix", "");
    person.Click("chkStatus");
    person.Click("cmdOK");
  });
  EXPECT_EQ(tasks()[0].Values, "");
  EXPECT_EQ(tasks()[0].Status, 0);
}

// Application.

TEST_F(TextDialogs, ApplicationTexts) {
  Add<frmTaskExecuteApp>([](auto& dialog, Person&) {
    EXPECT_EQ(dialog.Label1.Caption(), "Application to execute:");
    EXPECT_EQ(dialog.Label2.Caption(), "Parameters:");
    EXPECT_EQ(dialog.Label3.Caption(), "Various system variables can be used as parameters:");
    EXPECT_EQ(dialog.Label4.Caption(), "[ID] = The message ID");
    EXPECT_EQ(dialog.Label5.Caption(), "[CONNECTOR] = The Quillvane connector the message has come from");
    EXPECT_EQ(dialog.Label6.Caption(), "[TIME] = The system time");
  });
}

TEST_F(TextDialogs, ApplicationFollowsTheStatus) {
  Add<frmTaskExecuteApp>([&](auto& dialog, Person& person) {
    ExpectFollows(true, {&dialog.txtApp, &dialog.txtParameters});
    person.Click("chkStatus");
    ExpectFollows(false, {&dialog.txtApp, &dialog.txtParameters});
    person.Click("chkStatus");
    ExpectSelectedByTab(dialog, dialog.txtApp, "x.exe", 5);
    ExpectSelectedByTab(dialog, dialog.txtParameters, "[ID]", 4);
  });
}

TEST_F(TextDialogs, ApplicationIsSplitAtTheBar) {
  PutTask("T", "EXECUTE_APPLICATION", "x", "a.exe|one|two", 0);
  Edit<frmTaskExecuteApp>("T", [&](auto& dialog, Person& person) {
    EXPECT_EQ(dialog.txtApp.Text(), "a.exe");
    EXPECT_EQ(dialog.txtParameters.Text(), "one");
    EXPECT_EQ(dialog.Values, "a.exe|one|two");
    ExpectFollows(false, {&dialog.txtApp, &dialog.txtParameters});
    person.Click("cmdOK");
  });
  EXPECT_EQ(tasks()[0].Values, "a.exe|one");
}

TEST_F(TextDialogs, ApplicationIsNeededByAnEnabledAction) {
  Add<frmTaskExecuteApp>([&](auto& dialog, Person& person) {
    for (const char* text : {"", " "}) {
      person.Set("txtApp", text);
      dialog.SetFocus(dialog.end.cmdOK);
      person.Click("cmdOK");
      EXPECT_EQ(Messages(), Warning("You need to select the application to execute."));
      EXPECT_EQ(dialog.Focus(), &dialog.txtApp);
      EXPECT_TRUE(dialog.Loaded());
    }
    EXPECT_EQ(t.registry.TakeReloads(), 0);
    person.Set("txtApp", " any text ");
    person.Click("cmdOK");
  });
  EXPECT_EQ(tasks()[0].Values, " any text |");
}

TEST_F(TextDialogs, ApplicationOfADisabledActionMayBeEmpty) {
  Add<frmTaskExecuteApp>([](auto&, Person& person) {
    person.Click("chkStatus");
    person.Click("cmdOK");
  });
  EXPECT_EQ(tasks()[0].Values, "|");
  EXPECT_EQ(tasks()[0].Status, 0);
}

}  // namespace
}  // namespace qv::test
