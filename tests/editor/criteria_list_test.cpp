#include "editor/criteria_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "criteria/criterion_dialog.h"
#include "criteria/importance_dialog.h"
#include "editor/manage_dialog.h"
#include "platform/runtime_error.h"
#include "tests/support/test_run.h"

namespace qv {
namespace {

using test::CriteriaRow;
using test::Person;
using test::ShownMessage;
using test::TestRun;
using testing::ElementsAre;
using testing::IsEmpty;

class ListForm : public Form {
 public:
  explicit ListForm(Run& run) : Form(run.toolkit, "frmTest", "Test"), criteria(run, lvwCriteria) {}
  RowList lvwCriteria{*this, "lvwCriteria", {{"status", "Status", 1}, {"description", "Description", 1}}};
  CriteriaList criteria;
};

class Criteria : public testing::Test {
 protected:
  void SetUp() override { form.Load(); }
  void Add(const std::string& rule, int status = 0, const std::string& postoffice = "",
           const std::string& mailbox = "", const std::string& id = "CRT1") {
    run.store.server().criteria.push_back({id, rule, "", "Rule " + rule, status, "", 1, postoffice, mailbox});
  }
  void AddAll(const std::string& postoffice, const std::string& mailbox) {
    for (int n = 1; n <= 24; ++n) Add(std::to_string(n), 0, postoffice, mailbox);
  }
  void Load(const std::string& postoffice = "", const std::string& mailbox = "", const std::string& host = "",
            long select = 0) {
    form.criteria.Bind(postoffice, mailbox, host);
    form.criteria.lvLoadCriteria("CRT1", form.lvwCriteria, select);
  }
  std::string Rules() {
    std::string rules;
    for (const ListRow& row : form.lvwCriteria.Rows()) {
      rules += (rules.empty() ? "" : " ") + row.Key.substr(row.Key.rfind('-') + 1);
    }
    return rules;
  }
  long RowOf(const std::string& rule) {
    for (long n = 0; n < form.lvwCriteria.Count(); ++n) {
      if (form.lvwCriteria.Row(n).Key == "CRITERIA-CRT1-RULE-" + rule) return n;
    }
    return -1;
  }
  void Open(const std::string& rule) { Person(form).Open("lvwCriteria", RowOf(rule)); }
  std::string StatusOf(const std::string& rule) { return form.lvwCriteria.Row(RowOf(rule)).Text; }

  TestRun run;
  ListForm form{run.run};
};

// --- loading ---

TEST_F(Criteria, RowsCarryKeyStatusAndDescription) {
  Add("7", 1);
  Load();
  ASSERT_EQ(form.lvwCriteria.Count(), 1);
  EXPECT_EQ(form.lvwCriteria.Row(0).Key, "CRITERIA-CRT1-RULE-7");
  EXPECT_EQ(form.lvwCriteria.Row(0).Text, "Enabled");
  EXPECT_THAT(form.lvwCriteria.Row(0).SubItems, ElementsAre("Rule 7"));
}

TEST_F(Criteria, OfASystemFilterAreAllButTheSecureRow) {
  AddAll("", "");
  Load();
  EXPECT_EQ(form.lvwCriteria.Count(), 23);
  EXPECT_EQ(Rules(), "1 2 3 4 5 6 7 8 9 10 12 13 14 15 16 17 18 19 20 21 22 23 24");
}

TEST_F(Criteria, OfAPostofficeOrAMailboxAre17) {
  AddAll("abc", "");
  AddAll("abc", "joe");
  Load("abc");
  EXPECT_EQ(form.lvwCriteria.Count(), 17);
  EXPECT_EQ(Rules(), "1 2 3 4 5 6 7 8 9 10 12 14 16 17 18 19 20");
  Load("abc", "joe");
  EXPECT_EQ(Rules(), "1 2 3 4 5 6 7 8 9 10 12 14 16 17 18 19 20");
}

TEST_F(Criteria, OfAnUnknownRuleAreListedAtEveryScope) {
  for (const char* rule : {"30", "0", "x", "011"}) {
    Add(rule, 1);
    Add(rule, 1, "abc");
    Add(rule, 1, "abc", "joe");
  }
  Load();
  EXPECT_EQ(Rules(), "30 0 x 011");
  Load("abc");
  EXPECT_EQ(Rules(), "30 0 x 011");
  Load("abc", "joe");
  EXPECT_EQ(Rules(), "30 0 x 011");
}

TEST_F(Criteria, KeepStoreOrder) {
  for (const char* rule : {"12", "2", "30", "1"}) Add(rule);
  Load();
  EXPECT_EQ(Rules(), "12 2 30 1");
}

TEST_F(Criteria, AreDisabledByAnyStatusButOne) {
  Add("1", 0);
  Add("2", 2);
  Add("3", -1);
  Add("4", 1);
  Load();
  EXPECT_EQ(StatusOf("1"), "Disabled");
  EXPECT_EQ(StatusOf("2"), "Disabled");
  EXPECT_EQ(StatusOf("3"), "Disabled");
  EXPECT_EQ(StatusOf("4"), "Enabled");
}

TEST_F(Criteria, AreThoseOfTheFilterOnItsHost) {
  Add("1");
  Add("2", 0, "", "", "CRT2");
  run.store.server("MAIL2").criteria = {{"CRT1", "9", "", "Far", 1, "", 1, "", ""}};
  Load();
  EXPECT_EQ(Rules(), "1");
  Load("", "", "MAIL2");
  EXPECT_EQ(Rules(), "9");
}

TEST_F(Criteria, AreAskedForInTheOrderOfARecordObject) {
  Add("1");
  Add("2");
  Load();
  EXPECT_THAT(run.store.calls,
              ElementsAre("Criteria.Create", "Criteria.SetHost@", "Criteria.FindFirstCriteria@(CRT1)",
                          "Criteria.FindNextCriteria@", "Criteria.FindNextCriteria@"));
}

TEST_F(Criteria, OfAMissingFilterAreNoneWithoutAMessage) {
  Add("1", 0, "", "", "CRT2");
  Load();
  EXPECT_EQ(form.lvwCriteria.Count(), 0);
  EXPECT_THAT(run.desktop.messages, IsEmpty());
}

TEST_F(Criteria, TheRowToSelectCountsFromOne) {
  Add("1");
  Add("2");
  Load("", "", "", 2);
  EXPECT_EQ(form.lvwCriteria.Selected(), 1);
  Load("", "", "", 0);
  EXPECT_EQ(form.lvwCriteria.Selected(), -1);
  Load("", "", "", 3);
  EXPECT_EQ(form.lvwCriteria.Selected(), -1);
}

TEST_F(Criteria, AnErrorIsTheCallersAffair) {
  run.store.Raise("Criteria.FindFirstCriteria", "No store.");
  EXPECT_THROW(Load(), RuntimeError);
}

// --- opening a row ---

TEST_F(Criteria, EachRuleOpensItsDialog) {
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

TEST_F(Criteria, TheSecureRuleHasADialogAllTheSame) {
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

TEST_F(Criteria, TheDialogGetsItsRowScopeAndHost) {
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

TEST_F(Criteria, TheMatchDialogsGetAFrequency) {
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

TEST_F(Criteria, ASaveShowsTheNewStatusInTheRow) {
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

TEST_F(Criteria, ARefusedSaveShowsTheNewStatusUntilTheNextLoading) {
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

TEST_F(Criteria, ACancelLeavesTheRow) {
  Add("16", 1);
  Load();
  run.desktop.Visit([](Form& shown) {
    Person(shown).Click("chkStatus");
    Person(shown).Click("cmdCancel");
  });
  Open("16");
  EXPECT_EQ(StatusOf("16"), "Enabled");
}

TEST_F(Criteria, ThePriorityDialogGetsItsRowButNoHost) {
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

TEST_F(Criteria, ThePriorityDialogsResultIsShown) {
  Add("6", 0);
  Load();
  run.desktop.Visit([](Form& shown) {
    Person(shown).Click("chkStatus");
    Person(shown).Click("cmdOK");
  });
  Open("6");
  EXPECT_EQ(StatusOf("6"), "Enabled");
}

TEST_F(Criteria, ARuleWithoutADialogSaysSo) {
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

TEST_F(Criteria, AnEmptyListOrNoRowOpensNothing) {
  Load();
  Person(form).Open("lvwCriteria", -1);
  Add("16");
  Load();
  Person(form).Open("lvwCriteria", -1);
  EXPECT_THAT(run.desktop.messages, IsEmpty());
}

TEST_F(Criteria, ARowOfAnotherKeyOpensNothing) {
  for (const char* key : {"CRITERIA-CRT1-TASK-1", "criteria-CRT1-RULE-30", "XCRITERIA-CRT1-RULE-30", "CRITERIA-RULE-1"}) {
    form.lvwCriteria.Clear();
    form.lvwCriteria.AddRow({key, "Enabled", {""}, false});
    Person(form).Open("lvwCriteria", 0);
    EXPECT_THAT(run.desktop.messages, IsEmpty()) << key;
  }
}

// --- check boxes, where a front end shows them ---

class Check : public Criteria {};

TEST_F(Check, WritesTheRowAsItWasWithItsNewStatus) {
  run.store.server().criteria = {{"CRT1", "7", "type", "Subject", 0, "a,b", 5, "", ""}};
  Load();
  run.store.calls.clear();
  form.lvwCriteria.Check(0, true);
  EXPECT_THAT(run.store.calls, ElementsAre("Criteria.Create", "Criteria.SetHost@", "Criteria.GetCriteria@(CRT1,7)",
                                           "Criteria.EditCriteria@(7,1,,type,Subject,a,b,5)"));
  form.lvwCriteria.Check(0, false);
  EXPECT_EQ(run.store.server().criteria[0].Status, 0);
  EXPECT_EQ(StatusOf("7"), "Disabled");
  EXPECT_EQ(run.registry.TakeReloads(), 0);
}

TEST_F(Check, LeavesTheRowsText) {
  Add("7", 0);
  Load();
  form.lvwCriteria.Check(0, true);
  EXPECT_EQ(run.store.server().criteria[0].Status, 1);
  EXPECT_EQ(StatusOf("7"), "Disabled");
}

TEST_F(Check, OfAnotherKeyDoesNothing) {
  form.lvwCriteria.AddRow({"CRITERIA-CRT1-TASK-1", "", {""}, false});
  form.lvwCriteria.Check(0, true);
  EXPECT_THAT(run.store.calls, IsEmpty());
}

TEST_F(Check, ARefusalIsTold) {
  Add("7", 0);
  Load();
  run.store.Refuse("Criteria.EditCriteria", 2);
  form.lvwCriteria.Check(0, true);
  EXPECT_THAT(run.desktop.messages, ElementsAre(ShownMessage{"Unable to update Criteria", "Error",
                                                             MessageIcon::Critical, MessageButtons::Ok}));
}

TEST_F(Check, AnErrorIsTold) {
  Add("7", 0);
  Load();
  run.store.Raise("Criteria.GetCriteria", "Locked.");
  form.lvwCriteria.Check(0, true);
  EXPECT_THAT(run.desktop.messages, ElementsAre(ShownMessage{"Error saving criteria: Locked.", "Error",
                                                             MessageIcon::Critical, MessageButtons::Ok}));
}

}  // namespace
}  // namespace qv
