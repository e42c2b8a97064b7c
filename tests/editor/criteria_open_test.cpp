// The way from a criterion's row into its dialog.

#include <utility>
#include <vector>

#include "criteria/criterion_dialog.h"
#include "platform/runtime_error.h"
#include "tests/editor/criteria_list_fixture.h"

namespace qv {
namespace {

using test::Person;
using test::ShownMessage;
using testing::ElementsAre;
using testing::IsEmpty;

class CriteriaOpen : public test::CriteriaRows {};

TEST_F(CriteriaOpen, EachRuleOpensItsDialog) {
  const std::vector<std::pair<const char*, const char*>> golden = {
      {"1", "frmCriteriaWordList"},       {"2", "frmCriteriaWordList"},
      {"3", "frmCriteriaWordList"},       {"4", "frmCriteriaWordList"},
      {"5", "frmCriteriaWordList"},       {"6", "frmCriteriaImportance"},
      {"7", "frmCriteriaWordList"},       {"8", "frmCriteriaSizeLimit"},
      {"9", "frmCriteriaAttachment"},     {"10", "frmCriteriaItem"},
      {"12", "frmCriteriaWordList"},      {"13", "frmCriteriaSpamProbability"},
      {"14", "frmCriteriaSPFMatch"},      {"15", "frmCriteriaContainsVirus"},
      {"16", "frmCriteriaAllMessages"},   {"17", "frmCriteriaSenderAuthenticated"},
      {"18", "frmCriteriaIPMatch"},       {"19", "frmCriteriaForPostoffice"},
      {"20", "frmCriteriaFromConnector"}, {"21", "frmCriteriaItem"},
      {"22", "frmCriteriaWordList"},      {"23", "frmCriteriaItem"},
      {"24", "frmCriteriaDKIMMatch"}};
  AddAll("", "");
  Load();
  for (const auto& [rule, dialog] : golden) {
    std::string opened;
    run.desktop.Visit([&opened](Form& shown) {
      opened = shown.name();
      shown.Unload();
    });
    Open(rule);
    EXPECT_EQ(opened, dialog) << rule;
  }
  EXPECT_THAT(run.desktop.messages, IsEmpty());
}

TEST_F(CriteriaOpen, TheSecureRuleHasADialogAllTheSame) {
  form.lvwCriteria.AddRow({"CRITERIA-CRT1-RULE-11", "Disabled", {"Secure"}, false});
  Add("11");
  std::string opened;
  run.desktop.Visit([&opened](Form& shown) {
    opened = shown.name();
    shown.Unload();
  });
  Open("11");
  EXPECT_EQ(opened, "frmCriteriaItem");
}

TEST_F(CriteriaOpen, TheDialogGetsItsRowScopeAndHost) {
  run.store.server("MAIL2").criteria = {{"CRT1", "9", "", "Attachments", 1, "*.exe", 1, "abc", "joe"}};
  Load("abc", "joe", "MAIL2");
  run.desktop.Visit([](Form& shown) {
    const auto& dialog = dynamic_cast<CriterionDialog&>(shown);
    EXPECT_EQ(dialog.CriteriaID, "CRT1");
    EXPECT_EQ(dialog.RuleID, "9");
    EXPECT_EQ(dialog.Postoffice, "abc");
    EXPECT_EQ(dialog.Mailbox, "joe");
    EXPECT_EQ(dialog.Host, "MAIL2");
    EXPECT_EQ(dialog.Values, "*.exe");
    EXPECT_EQ(dialog.Status, 1);
    shown.Unload();
  });
  Open("9");
}

TEST_F(CriteriaOpen, TheMatchDialogsGetAFrequency) {
  AddAll("", "");
  Load();
  for (const char* rule : {"14", "24"}) {
    run.desktop.Visit([](Form& shown) {
      EXPECT_EQ(dynamic_cast<CriterionDialog&>(shown).Frequency, -1);
      shown.Unload();
    });
    Open(rule);
  }
  run.desktop.Visit([](Form& shown) {
    EXPECT_EQ(dynamic_cast<CriterionDialog&>(shown).Frequency, 0);
    shown.Unload();
  });
  Open("18");
}

TEST_F(CriteriaOpen, ASaveShowsTheNewStatusInTheRow) {
  Add("16", 0);
  Load();
  run.desktop.Visit([](Form& shown) {
    Person(shown).Click("chkStatus");
    Person(shown).Click("cmdOK");
  });
  Open("16");
  EXPECT_EQ(StatusOf("16"), "Enabled");
  EXPECT_EQ(run.store.server().criteria[0].Status, 1);
  run.desktop.Visit([&](Form& shown) {
    Person(shown).Click("chkStatus");
    Person(shown).Click("cmdOK");
    run.store.server().criteria[0].Description = "changed";
  });
  Open("16");
  EXPECT_EQ(StatusOf("16"), "Disabled");
  // Only the status is shown anew.
  EXPECT_THAT(form.lvwCriteria.Row(0).SubItems, ElementsAre("Rule 16"));
}

TEST_F(CriteriaOpen, ARefusedSaveShowsTheNewStatusUntilTheNextLoading) {
  Add("16", 0);
  Load();
  run.store.Refuse("Criteria.EditCriteria", 0);
  run.desktop.Visit([](Form& shown) {
    Person(shown).Click("chkStatus");
    Person(shown).Click("cmdOK");
  });
  Open("16");
  EXPECT_EQ(StatusOf("16"), "Enabled");
  Load();
  EXPECT_EQ(StatusOf("16"), "Disabled");
}

TEST_F(CriteriaOpen, ACancelLeavesTheRow) {
  Add("16", 1);
  Load();
  run.desktop.Visit([](Form& shown) {
    Person(shown).Click("chkStatus");
    Person(shown).Click("cmdCancel");
  });
  Open("16");
  EXPECT_EQ(StatusOf("16"), "Enabled");
}

TEST_F(CriteriaOpen, TheCloseBoxGivesTheDialogsLastResultAgain) {
  for (const char* rule : {"10", "21", "23"}) Add(rule, 0);
  Load();
  const auto close = [](Form& shown) { Person(shown).Close(); };
  run.desktop.Visit(close);
  Open("21");
  EXPECT_EQ(StatusOf("21"), "Disabled");
  run.desktop.Visit([](Form& shown) {
    Person(shown).Click("chkStatus");
    Person(shown).Click("cmdOK");
  });
  Open("10");
  run.desktop.Visit(close);
  Open("21");
  EXPECT_EQ(StatusOf("21"), "Enabled");
  EXPECT_EQ(run.store.server().criteria[1].Status, 0);
  run.desktop.Visit([](Form& shown) { Person(shown).Click("cmdCancel"); });
  Open("23");
  run.desktop.Visit(close);
  Open("23");
  EXPECT_EQ(StatusOf("23"), "Disabled");
}

TEST_F(CriteriaOpen, AnErrorGoesToTheConsolesRuntimeAndLeavesTheRow) {
  Add("16", 1);
  Load();
  run.store.Raise("Criteria.GetCriteria", "Locked.");
  EXPECT_THROW(Open("16"), RuntimeError);
  EXPECT_THAT(run.desktop.messages, IsEmpty());
  EXPECT_EQ(StatusOf("16"), "Enabled");
}

TEST_F(CriteriaOpen, ThePriorityDialogGetsItsRowButNoHost) {
  run.store.server("MAIL2").criteria = {{"CRT1", "6", "", "Priority", 0, "", 1, "", ""}};
  Add("6");
  Load("", "", "MAIL2");
  run.store.calls.clear();
  run.desktop.Visit([](Form& shown) {
    EXPECT_EQ(shown.name(), "frmCriteriaImportance");
    shown.Unload();
  });
  Open("6");
  EXPECT_THAT(run.store.calls, testing::Contains("Criteria.GetCriteria@(CRT1,6)"));
}

TEST_F(CriteriaOpen, ThePriorityDialogsResultIsShown) {
  Add("6", 0);
  Load();
  run.desktop.Visit([](Form& shown) {
    Person(shown).Click("chkStatus");
    Person(shown).Click("cmdOK");
  });
  Open("6");
  EXPECT_EQ(StatusOf("6"), "Enabled");
}

TEST_F(CriteriaOpen, ARuleWithoutADialogSaysSo) {
  const ShownMessage none = {"This criteria has no editable options.", "Warning", MessageIcon::Information,
                             MessageButtons::Ok};
  for (const char* rule : {"30", "0", "x", "01"}) Add(rule, 1);
  Load();
  for (const char* rule : {"30", "0", "x", "01"}) {
    Open(rule);
    EXPECT_THAT(run.desktop.TakeMessages(), ElementsAre(none)) << rule;
    EXPECT_EQ(StatusOf(rule), "Enabled");
  }
}

TEST_F(CriteriaOpen, AnEmptyListOrNoRowOpensNothing) {
  Load();
  Person(form).Open("lvwCriteria", -1);
  Add("16");
  Load();
  Person(form).Open("lvwCriteria", -1);
  EXPECT_THAT(run.desktop.messages, IsEmpty());
}

TEST_F(CriteriaOpen, ARowOfAnotherKeyOpensNothing) {
  for (const char* key :
       {"CRITERIA-CRT1-TASK-1", "criteria-CRT1-RULE-30", "XCRITERIA-CRT1-RULE-30", "CRITERIA-RULE-1"}) {
    form.lvwCriteria.Clear();
    form.lvwCriteria.AddRow({key, "Enabled", {""}, false});
    Person(form).Open("lvwCriteria", 0);
    EXPECT_THAT(run.desktop.messages, IsEmpty()) << key;
  }
}

}  // namespace
}  // namespace qv
