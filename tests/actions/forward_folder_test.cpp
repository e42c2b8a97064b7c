#include "actions/folder_dialog.h"
#include "actions/forward_dialog.h"
#include "tests/actions/text_fixture.h"

namespace qv::test {
namespace {

class ForwardAndFolder : public TextDialogs {};

TEST_F(ForwardAndFolder, ForwardShowsTheAddressWithoutItsForm) {
  const std::pair<const char*, const char*> cases[] = {
      {"[SMTP:a@b]", "a@b"},           {"[SMTP:a@b", "a@b"}, {"a@b", "a@b"}, {"[smtp:a@b]", "[smtp:a@b]"},
      {"Name [SMTP:a@b]", "SMTP:a@b"}, {"a@b]", "a@b]"},     {"", ""},
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

TEST_F(ForwardAndFolder, ForwardStoresABareAddressInItsForm) {
  PutTask("T", "FORWARD_TO_ADDRESS", "x", "a@b");
  Edit<frmForward>("T", [](auto&, Person& person) { person.Click("cmdOK"); });
  EXPECT_EQ(tasks().at(0).Values, "[SMTP:a@b]");
}

TEST_F(ForwardAndFolder, ForwardChecksTheAddressOfAnEnabledAction) {
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

TEST_F(ForwardAndFolder, ForwardTakesAnyTextOfADisabledAction) {
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
    EXPECT_EQ(tasks().at(0).Values, std::string("[SMTP:") + text + "]");
    EXPECT_EQ(tasks().at(0).Status, 0);
  }
  EXPECT_TRUE(Messages().empty());
}

TEST_F(ForwardAndFolder, ForwardSelectsByTab) {
  Add<frmForward>([&](auto& dialog, Person&) { ExpectSelectedByTab(dialog, dialog.txtData, "a@b", 3); });
}

TEST_F(ForwardAndFolder, FolderFollowsTheStatus) {
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

TEST_F(ForwardAndFolder, FolderOfADisabledTask) {
  PutTask("T", "MOVE", "x", "A|B", 0);
  Edit<frmTaskGenericFolder>("T", [&](auto& dialog, Person&) {
    ExpectFollows(false, {&dialog.txtFolder});
    EXPECT_EQ(dialog.txtFolder.Text(), "A|B");
    EXPECT_EQ(dialog.Values, "A|B");
    EXPECT_EQ(dialog.Focus(), &dialog.end.chkStatus);
  });
}

TEST_F(ForwardAndFolder, FolderMayBeEmpty) {
  t.run.The<frmTaskGenericFolder>().SetType(action_types::kMove);
  Add<frmTaskGenericFolder>([](auto&, Person& person) { person.Click("cmdOK"); });
  EXPECT_EQ(t.store.calls.back(),
            std::string("Task.AddTask@(CRTF,") + kFirstGuid + ",MOVE,Move Message to Folder...,1,)");
  EXPECT_TRUE(Messages().empty());
}

TEST_F(ForwardAndFolder, FolderOfAMissingTaskStaysEnabled) {
  Edit<frmTaskGenericFolder>("GONE", [&](auto& dialog, Person&) { ExpectFollows(true, {&dialog.txtFolder}); });
}

}  // namespace
}  // namespace qv::test
