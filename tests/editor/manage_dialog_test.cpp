// The management dialog as it opens, and its modes.

#include "editor/script_editor.h"
#include "platform/runtime_error.h"
#include "tests/editor/manage_dialog_fixture.h"

namespace qv {
namespace {

using test::kActive;
using test::kComponent;
using test::kFilters;
using test::kOff;
using test::Person;
using testing::Contains;

class Manage : public test::ManageDialog {};

TEST_F(Manage, HasItsTexts) {
  Open([&](Person&) {
    EXPECT_EQ(dialog().name(), "frmManage");
    EXPECT_EQ(dialog().Caption(), "Filter Management");
    EXPECT_EQ(dialog().Frame1.Caption(), "Criteria");
    EXPECT_EQ(dialog().Label1.Caption(),
              "Enable the criteria which will be checked for this filter. If any of the criteria is met, then the "
              "action(s) will be performed. Double click an item to edit its properties.");
    EXPECT_EQ(dialog().optStandardCriteria.Caption(), "Use standard criteria");
    EXPECT_EQ(dialog().optAdvancedScripting.Caption(), "Use a criteria script");
    EXPECT_EQ(dialog().cmdAdvancedScripting.Caption(), "Edit script...");
    EXPECT_EQ(dialog().lvwCriteria.Columns()[0].Key, "status");
    EXPECT_EQ(dialog().lvwCriteria.Columns()[0].Header, "Status");
    EXPECT_EQ(dialog().lvwCriteria.Columns()[1].Key, "description");
    EXPECT_EQ(dialog().lvwCriteria.Columns()[1].Header, "Description");
    EXPECT_FALSE(dialog().lvwCriteria.CheckBoxes());
    EXPECT_EQ(dialog().Frame2.Caption(), "Actions");
    EXPECT_EQ(
        dialog().Label2.Caption(),
        "Add the actions that will be performed when the above criteria are met. Double click an item to edit its "
        "properties.");
    EXPECT_TRUE(dialog().lvwActions.CheckBoxes());
    EXPECT_EQ(dialog().cmdAdd.Caption(), "Add Action...");
    EXPECT_EQ(dialog().cmdDelete.Caption(), "Delete Action");
    EXPECT_EQ(dialog().cmdUp.tip(), "Move action up");
    EXPECT_EQ(dialog().cmdDown.tip(), "Move action down");
    EXPECT_EQ(dialog().lblDisabled.Caption(),
              "Filters are currently disabled, so this filter will not occur until you have enabled filters on the "
              "server. This can be done under the Servers|[Servername]|Filters item.");
    EXPECT_EQ(dialog().cmdClose.Caption(), "Close");
  });
}

TEST_F(Manage, RewritesAFilterIdToItsCriteriaForm) {
  const auto nothing = [](Person&) {};
  EXPECT_EQ(Open(nothing, "FLT01AB"), "CRT01AB");
  EXPECT_EQ(Open(nothing, "fLt01ab"), "CRT01ab");
  EXPECT_EQ(Open(nothing, "CRT01AB"), "CRT01AB");
  EXPECT_EQ(Open(nothing, "FLT"), "FLT");
  EXPECT_EQ(Open(nothing, "XLT1"), "XLT1");
  EXPECT_EQ(Open(nothing, ""), "");
}

TEST_F(Manage, FillsBothListsByThatId) {
  run.store.server().criteria = {{"CRT1X", "1", "", "Subject", 1, "", 1, "", ""}};
  run.store.server().tasks = {{"CRT1X", "T1", "DELETE", "Delete message", 1, "", "", ""}};
  Open([&](Person&) {
    EXPECT_EQ(dialog().lvwCriteria.Count(), 1);
    ASSERT_EQ(dialog().lvwActions.Count(), 1);
    EXPECT_EQ(dialog().lvwActions.Row(0).Key, "CRITERIA-CRT1X-TASK-T1");
    EXPECT_EQ(dialog().Focus(), &dialog().lvwCriteria);
    // Nothing has been clicked yet, so the buttons have their designed state.
    EXPECT_TRUE(dialog().cmdUp.Enabled());
    EXPECT_TRUE(dialog().cmdDown.Enabled());
    EXPECT_TRUE(dialog().cmdDelete.Enabled());
  });
}

TEST_F(Manage, WithoutActionsHasTheirButtonsDisabled) {
  Open([&](Person&) {
    EXPECT_FALSE(dialog().cmdUp.Enabled());
    EXPECT_FALSE(dialog().cmdDown.Enabled());
    EXPECT_FALSE(dialog().cmdDelete.Enabled());
    EXPECT_TRUE(dialog().cmdAdd.Enabled());
  });
}

TEST_F(Manage, AsksTheStoreOfItsHostInItsScope) {
  run.store.server("MAIL2").criteria = {{"CRT1X", "1", "", "Of joe", 1, "", 1, "abc", "joe"},
                                        {"CRT1X", "2", "", "Of the system", 1, "", 1, "", ""}};
  Open(
      [&](Person&) {
        ASSERT_EQ(dialog().lvwCriteria.Count(), 1);
        EXPECT_EQ(dialog().lvwCriteria.Row(0).SubItems.at(0), "Of joe");
      },
      "FLT1X", "abc", "joe", "MAIL2");
  EXPECT_THAT(run.store.calls, Contains("Task.FindFirstTask@MAIL2(CRT1X)"));
}

TEST_F(Manage, ShowsTheNoticeWhileFiltersAreOff) {
  Open([&](Person&) {
    EXPECT_EQ(dialog().Height(), 8775);
    EXPECT_TRUE(dialog().lblDisabled.Visible());
    EXPECT_TRUE(dialog().lblDisabled.Showing());
  });
  run.registry.SetWord(kFilters, "Enabled", 1);
  run.registry.SetWord(kComponent, "Status", 1);
  Open([&](Person&) {
    EXPECT_EQ(dialog().Height(), 7995);
    EXPECT_FALSE(dialog().lblDisabled.Visible());
    EXPECT_TRUE(dialog().cmdClose.Showing());
  });
}

TEST_F(Manage, AsksItsHostWhetherFiltersAreOn) {
  run.registry.SetWord(kFilters, "Enabled", 1);
  run.registry.SetWord(kComponent, "Status", 1);
  run.store.server("MAIL2");
  Open([&](Person&) { EXPECT_EQ(dialog().Height(), 8775); }, "FLT1X", "", "", "MAIL2");
}

TEST_F(Manage, HidesTheOptionsWhereScriptingIsOff) {
  run.files.Put(kActive, "script");
  Open([&](Person&) {
    ExpectOffered(false);
    EXPECT_TRUE(dialog().optStandardCriteria.Checked());
    EXPECT_TRUE(dialog().lvwCriteria.Usable());
  });
  EXPECT_EQ(Both(), "active script, off -");
}

TEST_F(Manage, HidesTheOptionsForAMailbox) {
  SwitchScriptingOn();
  Open(
      [&](Person&) {
        ExpectOffered(false);
        EXPECT_TRUE(dialog().optStandardCriteria.Checked());
        EXPECT_TRUE(dialog().lvwCriteria.Usable());
      },
      "FLT1X", "abc", "joe");
}

TEST_F(Manage, OpensInTheModeOfTheScriptFile) {
  SwitchScriptingOn();
  Open([&](Person&) {
    ExpectOffered(true);
    ExpectStandardMode();
  });
  run.files.Put(kOff, "off");
  Open([&](Person&) { ExpectStandardMode(); });
  run.files.Put(kActive, "on");
  Open([&](Person&) {
    ExpectScriptMode();
    EXPECT_EQ(dialog().Focus(), &dialog().cmdAdvancedScripting);
  });
}

TEST_F(Manage, OfAPostofficeLooksForItsOwnScript) {
  SwitchScriptingOn();
  run.files.Put("C:\\Config\\postoffices\\abc\\rules\\Criteria\\CRT1X.QVS", "on");
  Open([&](Person&) { ExpectStandardMode(); });
  Open(
      [&](Person&) {
        ExpectOffered(true);
        ExpectScriptMode();
      },
      "FLT1X", "abc");
}

TEST_F(Manage, AfterAScriptThatIsHiddenTheListIsUsable) {
  SwitchScriptingOn();
  run.files.Put(kActive, "on");
  Open([&](Person&) { ExpectScriptMode(); });
  Open([&](Person&) { EXPECT_TRUE(dialog().lvwCriteria.Usable()); }, "FLT1X", "abc", "joe");
}

TEST_F(Manage, TheOptionsChangeTheModeAndNoFile) {
  SwitchScriptingOn();
  run.files.Put(kOff, "off");
  Open([&](Person& person) {
    person.Click("optAdvancedScripting");
    ExpectScriptMode();
    person.Click("optStandardCriteria");
    ExpectStandardMode();
    person.Click("optAdvancedScripting");
    ExpectScriptMode();
  });
  EXPECT_EQ(Both(), "active -, off off");
}

TEST_F(Manage, EditsTheScriptOfItsFilterAndChangesNothingOnReturn) {
  SwitchScriptingOn();
  run.files.Put("C:\\Config\\postoffices\\abc\\rules\\Criteria\\CRT1X.QVS", "on");
  run.run.ServerHost = "localhost";
  Open(
      [&](Person& person) {
        run.desktop.Visit([](Form& form) {
          const auto& editor = dynamic_cast<frmScriptEditor&>(form);
          EXPECT_EQ(editor.CriteriaID, "CRT1X");
          EXPECT_EQ(editor.Postoffice, "abc");
          form.Unload();
        });
        person.Click("cmdAdvancedScripting");
        EXPECT_TRUE(run.desktop.AllVisited());
        ExpectScriptMode();
      },
      "FLT1X", "abc");
}

TEST_F(Manage, AStoreThatRaisesIsTheCallersAffairAndTheNextOpeningIsSound) {
  SwitchScriptingOn();
  run.files.Put(kActive, "text");
  std::string id = "FLT1X";
  run.store.Raise("Task.FindFirstTask", "No store.");
  EXPECT_THROW(dialog().EditFilter(id, "", "", ""), RuntimeError);
  EXPECT_FALSE(dialog().Loaded());
  run.store.Heal();
  run.store.server().criteria = {{"CRT2", "1", "", "Subject", 1, "", 1, "abc", "joe"}};
  Open(
      [&](Person&) {
        ExpectOffered(false);
        EXPECT_EQ(dialog().lvwCriteria.Count(), 1);
        EXPECT_TRUE(dialog().lvwCriteria.Usable());
      },
      "FLT2", "abc", "joe");
}

}  // namespace
}  // namespace qv
