// What closing the management dialog does, and the remote console.

#include "tests/editor/manage_dialog_fixture.h"

namespace qv {
namespace {

using test::kActive;
using test::kOff;
using test::kRemoteWarning;
using test::Person;
using testing::ElementsAre;
using testing::IsEmpty;

class ManageClose : public test::ManageDialog {};

TEST_F(ManageClose, ClosingInScriptModeSwitchesTheScriptOn) {
  SwitchScriptingOn();
  run.files.Put(kOff, "text");
  Open([&](Person& person) {
    person.Click("optAdvancedScripting");
    person.Click("cmdClose");
    EXPECT_FALSE(dialog().Loaded());
  });
  EXPECT_EQ(Both(), "active text, off -");
  EXPECT_EQ(run.registry.TakeReloads(), 0);
}

TEST_F(ManageClose, ClosingInStandardModeSwitchesTheScriptOffOverAStaleFile) {
  SwitchScriptingOn();
  run.files.Put(kActive, "text");
  run.files.Put(kOff, "stale");
  Open([&](Person& person) {
    person.Click("optStandardCriteria");
    person.Click("cmdClose");
  });
  EXPECT_EQ(Both(), "active -, off text");
  EXPECT_EQ(run.registry.TakeReloads(), 0);
}

TEST_F(ManageClose, ClosingInTheModeOfTheFileChangesNothing) {
  SwitchScriptingOn();
  run.files.Put(kActive, "text");
  run.files.Put(kOff, "spare");
  Open([](Person& person) { person.Click("cmdClose"); });
  EXPECT_EQ(Both(), "active text, off spare");
}

TEST_F(ManageClose, ClosingInScriptModeWithoutAScriptSaysNothingAndStaysStandard) {
  SwitchScriptingOn();
  Open([](Person& person) {
    person.Click("optAdvancedScripting");
    person.Click("cmdClose");
  });
  EXPECT_THAT(run.desktop.messages, IsEmpty());
  Open([&](Person&) { ExpectStandardMode(); });
}

TEST_F(ManageClose, ClosingWhereScriptingIsOffSwitchesAnActiveScriptOff) {
  run.files.Put(kActive, "text");
  Open([](Person& person) { person.Click("cmdClose"); });
  EXPECT_EQ(Both(), "active -, off text");
}

TEST_F(ManageClose, ClosingAMailboxsFilterLooksForAScriptBelowItsPostoffice) {
  SwitchScriptingOn();
  run.files.Put(kActive, "system");
  run.files.Put("C:\\Config\\postoffices\\abc\\rules\\Criteria\\CRT1X.QVS", "text");
  Open([](Person& person) { person.Click("cmdClose"); }, "FLT1X", "abc", "joe");
  EXPECT_EQ(run.files.Get("C:\\Config\\postoffices\\abc\\rules\\Criteria\\CRT1X.QVS"), std::nullopt);
  EXPECT_EQ(run.files.Get("C:\\Config\\postoffices\\abc\\rules\\Criteria\\CRT1X.QV_"), "text");
  EXPECT_EQ(Both(), "active system, off -");
}

TEST_F(ManageClose, TheStateOfTheFileIsAskedForAtTheClose) {
  SwitchScriptingOn();
  run.files.Put(kActive, "text");
  Open([&](Person& person) {
    ExpectScriptMode();
    run.files.Rename(kActive, kOff);  // another console
    person.Click("cmdClose");
  });
  EXPECT_EQ(Both(), "active text, off -");
}

TEST_F(ManageClose, TheCloseBoxKeepsTheFile) {
  SwitchScriptingOn();
  run.files.Put(kActive, "text");
  Open([](Person& person) {
    person.Click("optStandardCriteria");
    person.Close();
  });
  EXPECT_EQ(Both(), "active text, off -");
}

TEST_F(ManageClose, OfARemoteConsoleWarnsAndOpensInStandardMode) {
  SwitchScriptingOn();
  run.files.Put(kActive, "text");
  run.run.ServerHost = "MAIL2";
  Open([&](Person& person) {
    EXPECT_THAT(run.desktop.TakeMessages(), ElementsAre(kRemoteWarning));
    ExpectOffered(true);
    ExpectStandardMode();
    person.Click("optAdvancedScripting");
    ExpectScriptMode();
  });
}

TEST_F(ManageClose, OfARemoteConsoleIsLeftByItsCloseBoxAlone) {
  run.files.Put(kActive, "text");
  run.run.ServerHost = "MAIL2";
  for (const char* mailbox : {"", "joe"}) {
    Open(
        [&](Person& person) {
          EXPECT_THAT(run.desktop.TakeMessages(), IsEmpty());
          person.Click("cmdClose");
          EXPECT_THAT(run.desktop.TakeMessages(), ElementsAre(kRemoteWarning));
          EXPECT_TRUE(dialog().Loaded());
        },
        "FLT1X", "abc", mailbox);
  }
  EXPECT_EQ(Both(), "active text, off -");
}

TEST_F(ManageClose, RemotenessIsTheConsolesNotTheFilters) {
  SwitchScriptingOn();
  run.store.server("MAIL2");
  Open(
      [&](Person& person) {
        EXPECT_THAT(run.desktop.messages, IsEmpty());
        person.Click("cmdClose");
        EXPECT_FALSE(dialog().Loaded());
      },
      "FLT1X", "", "", "MAIL2");
}

TEST_F(ManageClose, AnyCaseOfLocalhostIsLocal) {
  run.run.ServerHost = "LocalHost";
  Open([&](Person& person) {
    person.Click("cmdClose");
    EXPECT_FALSE(dialog().Loaded());
  });
  EXPECT_THAT(run.desktop.messages, IsEmpty());
}

}  // namespace
}  // namespace qv
