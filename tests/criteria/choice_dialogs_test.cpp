#include "criteria/choice_dialogs.h"

#include "criteria/importance_dialog.h"
#include "tests/criteria/criteria_test.h"

namespace qv::test {
namespace {

struct ChoiceDialogs : CriteriaTest {
  // Opens a row on these Values and gives the position that shows.
  long PositionOf(const std::string& rule, const std::string& list, const std::string& values) {
    long position = -2;
    Put(rule, 1, values);
    Open(rule, [&](Form& form) {
      position = Get<ComboBox>(form, list).ListIndex();
      Person(form).Click("cmdCancel");
    });
    return position;
  }
  // What picking a position stores.
  std::string StoredBy(const std::string& rule, const std::string& list, long position) {
    Put(rule, 1, "");
    Open(rule, [&](Form& form) {
      Person(form).Pick(list, position);
      Person(form).Click("cmdOK");
    });
    return Row(rule).Values;
  }
};

TEST_F(ChoiceDialogs, SPFShowsItsWords) {
  Put("14");
  Open("14", [](Form& form) {
    EXPECT_EQ(Get<Label>(form, "Label1").Caption(), "SPF result matches:");
    EXPECT_EQ(Items(form, "cboSPF"), Texts({"Fail", "Pass", "Soft Fail", "Error", "Neutral", "None"}));
    EXPECT_EQ(Get<ComboBox>(form, "cboSPF").ListIndex(), 0);
    EXPECT_TRUE(IsOn(form, "cboSPF"));
    form.Unload();
  });
}

TEST_F(ChoiceDialogs, SPFStoresItsWordsAndFindsThemAgain) {
  const Texts stored = {"fail", "pass", "softfail", "error", "neutral", "none"};
  for (std::size_t n = 0; n < stored.size(); ++n) {
    EXPECT_EQ(StoredBy("14", "cboSPF", static_cast<long>(n)), stored[n]);
    EXPECT_EQ(PositionOf("14", "cboSPF", stored[n]), static_cast<long>(n));
  }
}

TEST_F(ChoiceDialogs, SPFShowsFailForAnythingElseAndSavesThat) {
  for (const char* values : {"", "Pass", "PASS", "soft fail", "softfail ", "x"}) {
    EXPECT_EQ(PositionOf("14", "cboSPF", values), 0) << values;
  }
  Put("14", 1, "Neutral");
  EXPECT_EQ(Open("14", [](Form& form) { Person(form).Click("cmdOK"); }), 1);
  EXPECT_EQ(Row("14").Values, "fail");
}

TEST_F(ChoiceDialogs, DKIMShowsItsWords) {
  Put("24");
  Open("24", [](Form& form) {
    EXPECT_EQ(Get<Label>(form, "Label1").Caption(), "DKIM result matches:");
    EXPECT_EQ(Items(form, "cboDKIM"), Texts({"Fail", "Pass", "Indeterminate"}));
    EXPECT_EQ(Get<ComboBox>(form, "cboDKIM").ListIndex(), 0);
    EXPECT_TRUE(IsOn(form, "cboDKIM"));
    form.Unload();
  });
}

TEST_F(ChoiceDialogs, DKIMStoresThePosition) {
  EXPECT_EQ(StoredBy("24", "cboDKIM", 0), "0");
  EXPECT_EQ(StoredBy("24", "cboDKIM", 1), "1");
  EXPECT_EQ(StoredBy("24", "cboDKIM", 2), "2");
  EXPECT_EQ(PositionOf("24", "cboDKIM", "0"), 0);
  EXPECT_EQ(PositionOf("24", "cboDKIM", "1"), 1);
  EXPECT_EQ(PositionOf("24", "cboDKIM", "2"), 2);
  for (const char* values : {"", "3", " 1", "01", "Pass"}) EXPECT_EQ(PositionOf("24", "cboDKIM", values), 0) << values;
}

TEST_F(ChoiceDialogs, AClearStatusLeavesTheseListsAlone) {
  const std::pair<const char*, const char*> lists[] = {{"14", "cboSPF"}, {"24", "cboDKIM"}};
  for (const auto& [rule, list] : lists) {
    Put(rule, 0, "");
    Open(rule, [name = std::string(list)](Form& form) {
      Person(form).Click("chkStatus");
      EXPECT_TRUE(IsOn(form, name));
      Person(form).Click("chkStatus");
      EXPECT_TRUE(IsOn(form, name));
      Person(form).Click("cmdOK");
    });
  }
  EXPECT_EQ(Row("14").Values, "fail");
  EXPECT_EQ(Row("14").Status, 0);
  EXPECT_EQ(Row("24").Values, "0");
  EXPECT_EQ(Row("24").Status, 0);
}

TEST_F(ChoiceDialogs, TheListIsFilledOnceAnOpening) {
  for (int n = 0; n < 3; ++n) {
    Put("14");
    Open("14", [](Form& form) {
      EXPECT_EQ(Items(form, "cboSPF").size(), 6u);
      Person(form).Click("cmdOK");
    });
  }
}

TEST_F(ChoiceDialogs, WithoutARowTheListIsThereAllTheSame) {
  Open("24", [](Form& form) {
    EXPECT_EQ(Items(form, "cboDKIM").size(), 3u);
    EXPECT_EQ(Get<ComboBox>(form, "cboDKIM").ListIndex(), 0);
    form.Unload();
  });
  EXPECT_EQ(desktop.messages.size(), 1u);
}

TEST_F(ChoiceDialogs, TheFrequencyIsTheOneHandedIn) {
  Put("14");
  CriterionDialog& dialog = *DialogForRule(run, "14");
  Hand(dialog, "14");
  dialog.Frequency = 7;
  desktop.Visit([](Form& form) { Person(form).Click("cmdOK"); });
  dialog.SetCriteria();
  EXPECT_EQ(Row("14").Frequency, 7);
}

TEST_F(ChoiceDialogs, ConnectorShowsItsFourConnectors) {
  Put("20");
  Open("20", [](Form& form) {
    EXPECT_EQ(Get<Label>(form, "Label1").Caption(), "Connector:");
    EXPECT_EQ(Items(form, "cboConnector"),
              Texts({"List server connector", "POP Retrieval connector", "Postoffice connector", "SMTP connector"}));
    EXPECT_EQ(Get<ComboBox>(form, "cboConnector").ListIndex(), 0);
    form.Unload();
  });
}

TEST_F(ChoiceDialogs, ConnectorStoresItsCodes) {
  const Texts codes = {"LS", "POP", "SF", "SMTP"};
  for (std::size_t n = 0; n < codes.size(); ++n) {
    EXPECT_EQ(StoredBy("20", "cboConnector", static_cast<long>(n)), codes[n]);
    EXPECT_EQ(PositionOf("20", "cboConnector", codes[n]), static_cast<long>(n));
  }
  for (const char* values : {"", "smtp", "POPC", "IMAPS", "SMTP "}) {
    EXPECT_EQ(PositionOf("20", "cboConnector", values), 0) << values;
  }
}

TEST_F(ChoiceDialogs, ConnectorsListFollowsTheStatus) {
  Put("20", 0, "SF");
  Open("20", [](Form& form) {
    EXPECT_FALSE(IsOn(form, "cboConnector"));
    EXPECT_EQ(Get<ComboBox>(form, "cboConnector").ListIndex(), 2);
    Person(form).Click("chkStatus");
    EXPECT_TRUE(IsOn(form, "cboConnector"));
    Person(form).Click("chkStatus");
    EXPECT_FALSE(IsOn(form, "cboConnector"));
    form.Unload();
  });
  Put("20", 1, "SF");
  Open("20", [](Form& form) {
    EXPECT_TRUE(IsOn(form, "cboConnector"));
    form.Unload();
  });
}

TEST_F(ChoiceDialogs, ANewConnectorRowStoresTheFirst) {
  Put("20");
  EXPECT_EQ(Open("20", [](Form& form) { Person(form).Click("cmdOK"); }), 2);
  EXPECT_EQ(Row("20").Values, "LS");
  EXPECT_EQ(Row("20").Status, 0);
}

struct Importance : CriteriaTest {
  frmCriteriaImportance& dialog = run.The<frmCriteriaImportance>();
  int OpenIt(Visit visit) {
    desktop.Visit(std::move(visit));
    return dialog.SetImportance("CRT1", "6", postoffice, mailbox);
  }
  long PositionOf(const std::string& values) {
    long position = -2;
    Put("6", 1, values);
    OpenIt([&](Form& form) {
      position = Get<ComboBox>(form, "cboImportance").ListIndex();
      form.Unload();
    });
    return position;
  }
};

TEST_F(Importance, HasItsControlsAndKeepsItsTitle) {
  Put("6", 1, "High");
  OpenIt([](Form& form) {
    EXPECT_EQ(form.name(), "frmCriteriaImportance");
    EXPECT_EQ(form.Caption(), "Importance");
    EXPECT_EQ(Get<Label>(form, "Label1").Caption(), "Importance to match:");
    EXPECT_EQ(Get<CheckBox>(form, "chkStatus").Caption(), "Enabled");
    EXPECT_EQ(Items(form, "cboImportance"), Texts({"Low", "Normal", "High"}));
    EXPECT_EQ(form.Find("lblH1"), nullptr);
    EXPECT_EQ(form.Find("lblDescription"), nullptr);
    EXPECT_EQ(Get<Button>(form, "cmdOK").role(), Button::Role::Default);
    EXPECT_EQ(Get<Button>(form, "cmdCancel").role(), Button::Role::Cancel);
    EXPECT_TRUE(Ticked(form));
    form.Unload();
  });
}

TEST_F(Importance, ANewRowStoresLow) {
  Put("6");
  EXPECT_EQ(OpenIt([](Form& form) {
              EXPECT_FALSE(Ticked(form));
              EXPECT_TRUE(IsOn(form, "cboImportance"));
              Person(form).Click("cmdOK");
            }),
            2);
  EXPECT_EQ(Row("6").Values, "Low");
  EXPECT_EQ(Row("6").Status, 0);
  EXPECT_EQ(Row("6").Frequency, 0);
  EXPECT_EQ(Row("6").Description, "Text 6");
  EXPECT_EQ(registry.TakeReloads(), 1);
}

TEST_F(Importance, StoresTheShownWord) {
  const Texts words = {"Low", "Normal", "High"};
  for (std::size_t n = 0; n < words.size(); ++n) {
    Put("6");
    EXPECT_EQ(OpenIt([&](Form& form) {
                Person(form).Click("chkStatus");
                Person(form).Pick("cboImportance", static_cast<long>(n));
                Person(form).Click("cmdOK");
              }),
              1);
    EXPECT_EQ(Row("6").Values, words[n]);
    EXPECT_EQ(Row("6").Status, 1);
    EXPECT_EQ(PositionOf(words[n]), static_cast<long>(n));
  }
  for (const char* values : {"", "low", "HIGH", "Normal "}) EXPECT_EQ(PositionOf(values), 0) << values;
}

TEST_F(Importance, WorksWithNoHostInTheScopeItIsHanded) {
  run.ServerHost = "OTHER";
  store.server("OTHER");
  postoffice = "abc";
  mailbox = "joe";
  Put("6", 1, "Normal");
  store.calls.clear();
  EXPECT_EQ(OpenIt([](Form& form) {
              EXPECT_EQ(Get<ComboBox>(form, "cboImportance").ListIndex(), 1);
              Person(form).Click("cmdOK");
            }),
            1);
  EXPECT_EQ(store.calls,
            Texts({"Criteria.Create", "Criteria.SetHost@", "Criteria.GetCriteria@(CRT1,6)", "Criteria.Create",
                   "Criteria.SetHost@", "Criteria.EditCriteria@(6,1,,,Text 6,Normal,0)"}));
}

TEST_F(Importance, ARowThatCannotBeLoadedIsNotTold) {
  Put("6", 1, "High");
  OpenIt([](Form& form) { form.Unload(); });
  store.server().criteria.clear();
  EXPECT_EQ(OpenIt([](Form& form) {
              EXPECT_FALSE(Ticked(form));
              EXPECT_EQ(Get<ComboBox>(form, "cboImportance").ListIndex(), 0);
              Person(form).Click("cmdOK");
            }),
            2);
  EXPECT_EQ(desktop.messages, std::vector{kNotUpdated});
  EXPECT_EQ(registry.TakeReloads(), 0);
}

TEST_F(Importance, CancelSavesNothingAndTheCloseBoxKeepsTheResult) {
  Put("6", 1, "High");
  EXPECT_EQ(OpenIt([](Form& form) { Person(form).Close(); }), 0);
  EXPECT_EQ(OpenIt([](Form& form) { Person(form).Click("cmdOK"); }), 1);
  EXPECT_EQ(OpenIt([](Form& form) { Person(form).Close(); }), 1);
  store.calls.clear();
  EXPECT_EQ(OpenIt([](Form& form) {
              Person(form).Click("chkStatus");
              Person(form).Pick("cboImportance", 0);
              Person(form).Click("cmdCancel");
            }),
            0);
  EXPECT_EQ(store.CountOf("Criteria.EditCriteria"), 0);
  EXPECT_EQ(Row("6").Values, "High");
}

TEST_F(Importance, ItsOtherDoorOnlyFillsTheList) {
  desktop.Visit([](Form& form) {
    EXPECT_EQ(Items(form, "cboImportance"), Texts({"Low", "Normal", "High"}));
    EXPECT_FALSE(Ticked(form));
    Person(form).Click("cmdCancel");
  });
  EXPECT_EQ(dialog.SetCriteria(), 0);
  EXPECT_TRUE(store.calls.empty());
}

}  // namespace
}  // namespace qv::test
