#include "actions/execute_app_dialog.h"
#include "actions/message_edit_dialogs.h"
#include "tests/actions/text_fixture.h"

namespace qv::test {
namespace {

class HeaderAndApplication : public TextDialogs {};

TEST_F(HeaderAndApplication, HeaderFollowsTheStatus) {
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

TEST_F(HeaderAndApplication, HeaderIsSplitAtTheBar) {
  struct Case {
    const char *values, *item, *value;
  };
  const Case cases[] = {
      {"X-A|yes", "X-A", "yes"}, {"X-A|a|b", "X-A", "a"}, {"X-A", "X-A", ""}, {"|", "", ""}, {"", "", ""}};
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

TEST_F(HeaderAndApplication, HeaderNeedsItsTexts) {
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

TEST_F(HeaderAndApplication, HeaderLosesOneColonAndNoBlanks) {
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
    EXPECT_EQ(tasks().at(0).Values, values);
  }
}

TEST_F(HeaderAndApplication, HeaderOfADisabledActionTakesAnything) {
  Add<frmTaskAddHeader>([](auto&, Person& person) {
    person.Click("chkStatus");
    person.Click("cmdOK");
  });
  Add<frmTaskAddHeader>([](auto&, Person& person) {
    person.Set("txtHeaderItem", "X:");
    person.Click("chkStatus");
    person.Click("cmdOK");
  });
  EXPECT_EQ(tasks().at(0).Values, "|");
  EXPECT_EQ(tasks().at(1).Values, "X|");
}

TEST_F(HeaderAndApplication, ASpamActionReopenedAsAHeaderKeepsItsValues) {
  PutTask("T", "ADD_HEADER", "Mark message as spam", "X-QV-Content|Deliver-To=Junk");
  Edit<frmTaskAddHeader>("T", [](auto& dialog, Person& person) {
    EXPECT_EQ(dialog.txtHeaderItem.Text(), "X-QV-Content");
    EXPECT_EQ(dialog.txtHeaderValue.Text(), "Deliver-To=Junk");
    person.Click("cmdOK");
  });
  EXPECT_EQ(tasks().at(0).Values, "X-QV-Content|Deliver-To=Junk");
  EXPECT_EQ(tasks().at(0).Description, "Add a header to a message");
}

TEST_F(HeaderAndApplication, PrefixFollowsTheStatus) {
  Add<frmTaskAddPrefix>([&](auto& dialog, Person& person) {
    EXPECT_EQ(dialog.Label1.Caption(), "Subject Prefix:");
    ExpectFollows(true, {&dialog.txtPrefix});
    person.Click("chkStatus");
    ExpectFollows(false, {&dialog.txtPrefix});
    person.Click("chkStatus");
    ExpectSelectedByTab(dialog, dialog.txtPrefix, "[A] ", 4);
  });
}

TEST_F(HeaderAndApplication, PrefixLosesWhatStandsBehindABar) {
  Add<frmTaskAddPrefix>([](auto&, Person& person) {
    person.Set("txtPrefix", " a|b ");
    person.Click("cmdOK");
  });
  EXPECT_EQ(tasks().at(0).Values, " a|b ");
  Edit<frmTaskAddPrefix>(kFirstGuid, [](auto& dialog, Person& person) {
    EXPECT_EQ(dialog.txtPrefix.Text(), " a");
    EXPECT_EQ(dialog.Values, " a|b ");
    person.Click("cmdOK");
  });
  EXPECT_EQ(tasks().at(0).Values, " a");
}

TEST_F(HeaderAndApplication, PrefixIsNeededByAnEnabledAction) {
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
  EXPECT_EQ(tasks().at(0).Values, "");
  EXPECT_EQ(tasks().at(0).Status, 0);
}

TEST_F(HeaderAndApplication, ApplicationTexts) {
  Add<frmTaskExecuteApp>([](auto& dialog, Person&) {
    EXPECT_EQ(dialog.Label1.Caption(), "Application to execute:");
    EXPECT_EQ(dialog.Label2.Caption(), "Parameters:");
    EXPECT_EQ(dialog.Label3.Caption(), "Various system variables can be used as parameters:");
    EXPECT_EQ(dialog.Label4.Caption(), "[ID] = The message ID");
    EXPECT_EQ(dialog.Label5.Caption(), "[CONNECTOR] = The Quillvane connector the message has come from");
    EXPECT_EQ(dialog.Label6.Caption(), "[TIME] = The system time");
  });
}

TEST_F(HeaderAndApplication, ApplicationFollowsTheStatus) {
  Add<frmTaskExecuteApp>([&](auto& dialog, Person& person) {
    ExpectFollows(true, {&dialog.txtApp, &dialog.txtParameters});
    person.Click("chkStatus");
    ExpectFollows(false, {&dialog.txtApp, &dialog.txtParameters});
    person.Click("chkStatus");
    ExpectSelectedByTab(dialog, dialog.txtApp, "x.exe", 5);
    ExpectSelectedByTab(dialog, dialog.txtParameters, "[ID]", 4);
  });
}

TEST_F(HeaderAndApplication, ApplicationIsSplitAtTheBar) {
  PutTask("T", "EXECUTE_APPLICATION", "x", "a.exe|one|two", 0);
  Edit<frmTaskExecuteApp>("T", [&](auto& dialog, Person& person) {
    EXPECT_EQ(dialog.txtApp.Text(), "a.exe");
    EXPECT_EQ(dialog.txtParameters.Text(), "one");
    EXPECT_EQ(dialog.Values, "a.exe|one|two");
    ExpectFollows(false, {&dialog.txtApp, &dialog.txtParameters});
    person.Click("cmdOK");
  });
  EXPECT_EQ(tasks().at(0).Values, "a.exe|one");
}

TEST_F(HeaderAndApplication, ApplicationIsNeededByAnEnabledAction) {
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
  EXPECT_EQ(tasks().at(0).Values, " any text |");
}

TEST_F(HeaderAndApplication, ApplicationOfADisabledActionMayBeEmpty) {
  Add<frmTaskExecuteApp>([](auto&, Person& person) {
    person.Click("chkStatus");
    person.Click("cmdOK");
  });
  EXPECT_EQ(tasks().at(0).Values, "|");
  EXPECT_EQ(tasks().at(0).Status, 0);
}

}  // namespace
}  // namespace qv::test
