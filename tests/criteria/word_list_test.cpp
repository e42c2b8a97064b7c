#include "criteria/word_list_dialog.h"

#include "tests/criteria/criteria_test.h"

namespace qv::test {
namespace {

const ShownMessage kNoFile{"You must either select an external word list file, or create a new one and select that.",
                           "Warning", MessageIcon::Exclamation};
const ShownMessage kNoWord{"You must enter at least one word to match.", "Warning", MessageIcon::Exclamation};

struct WordList : CriteriaTest {
  // Opens row 1 on these Values and does the visit.
  int With(const std::string& values, Visit visit, int status = 1) {
    Put("1", status, values);
    return Open("1", std::move(visit));
  }
  void PutPattern(const std::string& file_name) { files.Put("C:\\Config\\filters\\patterns\\" + file_name, "x"); }
};

TEST_F(WordList, HasItsCaptions) {
  With("", [](Form& form) {
    EXPECT_EQ(Get<OptionButton>(form, "optUseWordList").Caption(),
              "Use short word list (maximum of 2000 characters, but better performance)");
    EXPECT_EQ(Get<Label>(form, "Label1").Caption(), "To add to the list, enter details (comma delimited) below:");
    EXPECT_TRUE(Get<TextBox>(form, "txtWords").MultiLine());
    EXPECT_EQ(Get<Button>(form, "CmdAdd").Caption(), "Add");
    EXPECT_EQ(Get<Label>(form, "Label2").Caption(), "List:");
    EXPECT_EQ(Get<Button>(form, "CmdDelete").Caption(), "Remove");
    EXPECT_EQ(Get<Label>(form, "Label3").Caption(),
              "The * character can be used as a wildcard. Words are strings which are separated by a space, carriage "
              "return, linefeed, and either a single or double quote. Other symbols are determined to be part of the "
              "word.");
    EXPECT_EQ(Get<OptionButton>(form, "optUseExternal").Caption(), "Use external word list file");
    EXPECT_EQ(Get<Button>(form, "cmdEdit").Caption(), "Edit...");
    form.Unload();
  });
}

TEST_F(WordList, ANewRowHasNoOptionAndEverythingOnButDelete) {
  PutPattern("QVFILTER-a.txt");
  With("", [](Form& form) {
    EXPECT_FALSE(Get<OptionButton>(form, "optUseWordList").Checked());
    EXPECT_FALSE(Get<OptionButton>(form, "optUseExternal").Checked());
    for (const char* name : {"chkStatus", "txtWords", "lstWords", "CmdAdd", "cboPattern", "cmdEdit"}) {
      EXPECT_TRUE(IsOn(form, name)) << name;
    }
    EXPECT_FALSE(IsOn(form, "CmdDelete"));
    form.Unload();
  });
}

TEST_F(WordList, ARowThatCannotBeLoadedOpensAsANewOne) {
  PutPattern("QVFILTER-a.txt");
  Open("1", [this](Form& form) {
    EXPECT_EQ(desktop.TakeMessages(), (std::vector<ShownMessage>{{"Could not load", "Error", MessageIcon::Critical}}));
    EXPECT_FALSE(Get<OptionButton>(form, "optUseWordList").Checked());
    EXPECT_FALSE(Get<OptionButton>(form, "optUseExternal").Checked());
    EXPECT_EQ(Items(form, "cboPattern"), Texts({"a"}));
    Person(form).Set("txtWords", "word");
    Person(form).Click("CmdAdd");
    Person(form).Click("cmdOK");
  });
  EXPECT_EQ(desktop.TakeMessages(), std::vector{kNotUpdated});
  EXPECT_EQ(store.calls.back(), "Criteria.EditCriteria@(1,0,,,,,0)");
}

TEST_F(WordList, NothingOfAnOpeningThatWasCancelledIsLeft) {
  for (int opening = 0; opening < 2; ++opening) {
    With("a", [](Form& form) {
      EXPECT_TRUE(Ticked(form));
      EXPECT_TRUE(IsOn(form, "chkStatus"));
      EXPECT_TRUE(IsOn(form, "CmdDelete"));
      EXPECT_EQ(TextOf(form, "txtWords"), "");
      EXPECT_EQ(Items(form, "lstWords"), Texts({"a"}));
      Person person(form);
      person.Pick("lstWords", 0);
      person.Click("CmdDelete");
      person.Set("txtWords", "left behind");
      EXPECT_FALSE(IsOn(form, "chkStatus"));
      person.Click("cmdCancel");
    });
  }
  EXPECT_EQ(Row("1").Values, "a");
}

TEST_F(WordList, AStoredListIsShownAsItIs) {
  With("b, a ,,a,*x y*,", [](Form& form) {
    EXPECT_TRUE(Get<OptionButton>(form, "optUseWordList").Checked());
    EXPECT_FALSE(Get<OptionButton>(form, "optUseExternal").Checked());
    EXPECT_EQ(Items(form, "lstWords"), Texts({"b", " a ", "", "a", "*x y*", ""}));
    EXPECT_EQ(Get<ListBox>(form, "lstWords").ListIndex(), -1);
    for (const char* name : {"txtWords", "lstWords", "CmdAdd", "CmdDelete", "chkStatus"}) {
      EXPECT_TRUE(IsOn(form, name)) << name;
    }
    for (const char* name : {"cboPattern", "cmdEdit"}) EXPECT_FALSE(IsOn(form, name)) << name;
    Person(form).Click("cmdOK");
  });
  EXPECT_EQ(Row("1").Values, "b, a ,,a,*x y*,");
}

TEST_F(WordList, OnlyTheExactTagMakesAReference) {
  for (const char* values : {"<reference><FILE>QVFILTER-a.TXT</FILE></reference>", " <REFERENCE>", "<REFERENCE"}) {
    With(values, [values](Form& form) {
      EXPECT_TRUE(Get<OptionButton>(form, "optUseWordList").Checked());
      EXPECT_EQ(Items(form, "lstWords"), Texts({values}));
      form.Unload();
    });
  }
}

TEST_F(WordList, AReferenceSelectsItsFile) {
  for (const char* name : {"QVFILTER-a.txt", "QVFILTER-b.txt", "QVFILTER-B.txt2.txt"}) PutPattern(name);
  for (const char* values :
       {"<REFERENCE><FILE>QVFILTER-b.TXT</FILE></REFERENCE>", "<REFERENCE><FILE>QVFILTER-b.txt</FILE></REFERENCE>",
        "<REFERENCE>x<FILE>QVFILTER-b.tXt</FILE>"}) {
    With(values, [](Form& form) {
      EXPECT_TRUE(Get<OptionButton>(form, "optUseExternal").Checked());
      EXPECT_FALSE(Get<OptionButton>(form, "optUseWordList").Checked());
      EXPECT_EQ(Get<ComboBox>(form, "cboPattern").Text(), "b");
      EXPECT_EQ(Items(form, "lstWords"), Texts());
      for (const char* name : {"txtWords", "lstWords", "CmdAdd", "CmdDelete"}) EXPECT_FALSE(IsOn(form, name)) << name;
      for (const char* name : {"cboPattern", "cmdEdit", "chkStatus"}) EXPECT_TRUE(IsOn(form, name)) << name;
      Person(form).Click("cmdOK");
    });
    EXPECT_EQ(Row("1").Values, "<REFERENCE><FILE>QVFILTER-b.TXT</FILE></REFERENCE>");
  }
}

TEST_F(WordList, AReferenceThatLeadsNowhereShowsTheFirstFileAndSavesThat) {
  PutPattern("QVFILTER-a.txt");
  PutPattern("QVFILTER-b.txt");
  for (const char* values :
       {"<REFERENCE><FILE>QVFILTER-gone.TXT</FILE></REFERENCE>", "<REFERENCE><FILE>QVFILTER-B.TXT</FILE></REFERENCE>",
        "<REFERENCE><FILE>qvfilter-b.TXT</FILE></REFERENCE>", "<REFERENCE><FILE>b.TXT</FILE></REFERENCE>",
        "<REFERENCE><FILE>QVFILTER-b.doc</FILE></REFERENCE>", "<REFERENCE><FILE>QVFILTER-b</FILE></REFERENCE>",
        "<REFERENCE><FILE></FILE></REFERENCE>", "<REFERENCE><FILE>QVFILTER-b.TXT", "<REFERENCE></REFERENCE>",
        "<REFERENCE>", "<REFERENCE></FILE><FILE>QVFILTER-b.TXT"}) {
    With(values, [&](Form& form) {
      EXPECT_TRUE(Get<OptionButton>(form, "optUseExternal").Checked()) << values;
      EXPECT_EQ(Get<ComboBox>(form, "cboPattern").Text(), "a") << values;
      Person(form).Click("cmdOK");
    });
    EXPECT_EQ(Row("1").Values, "<REFERENCE><FILE>QVFILTER-a.TXT</FILE></REFERENCE>") << values;
  }
  EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(WordList, TheOptionsDecideWhatIsOn) {
  PutPattern("QVFILTER-a.txt");
  With("", [](Form& form) {
    Person person(form);
    person.Click("optUseExternal");
    for (const char* name : {"txtWords", "lstWords", "CmdAdd", "CmdDelete"}) EXPECT_FALSE(IsOn(form, name)) << name;
    for (const char* name : {"cboPattern", "cmdEdit"}) EXPECT_TRUE(IsOn(form, name)) << name;
    person.Click("optUseWordList");
    for (const char* name : {"txtWords", "lstWords", "CmdAdd", "CmdDelete"}) EXPECT_TRUE(IsOn(form, name)) << name;
    for (const char* name : {"cboPattern", "cmdEdit"}) EXPECT_FALSE(IsOn(form, name)) << name;
    EXPECT_FALSE(Get<OptionButton>(form, "optUseExternal").Checked());
    form.Unload();
  });
}

TEST_F(WordList, AClickInTheListEnablesDelete) {
  With("", [](Form& form) {
    Person person(form);
    person.Set("txtWords", "a");
    person.Click("CmdAdd");
    EXPECT_FALSE(IsOn(form, "CmdDelete"));
    person.Pick("lstWords", 0);
    EXPECT_TRUE(IsOn(form, "CmdDelete"));
    form.Unload();
  });
}

TEST_F(WordList, WordsCountOnlyWithTheirOption) {
  With("", [this](Form& form) {
    Person person(form);
    person.Set("txtWords", "a");
    person.Click("CmdAdd");
    person.Click("chkStatus");
    person.Click("chkStatus");
    person.Click("cmdOK");
    EXPECT_EQ(desktop.TakeMessages(), std::vector{kNoWord});
    EXPECT_TRUE(form.Loaded());
    person.Click("chkStatus");
    person.Click("cmdOK");
  });
  EXPECT_EQ(Row("1").Values, "");
  EXPECT_EQ(Row("1").Status, 0);
}

TEST_F(WordList, AnEnabledRowNeedsAWord) {
  With("", [this](Form& form) {
    Person person(form);
    person.Click("cmdOK");
    EXPECT_EQ(desktop.TakeMessages(), std::vector{kNoWord});
    person.Click("optUseWordList");
    person.Click("cmdOK");
    EXPECT_EQ(desktop.TakeMessages(), std::vector{kNoWord});
    EXPECT_EQ(store.CountOf("Criteria.EditCriteria"), 0);
    person.Set("txtWords", "a");
    person.Click("CmdAdd");
    person.Click("cmdOK");
  });
  EXPECT_EQ(Row("1").Values, "a");
}

TEST_F(WordList, TheFileOptionNeedsAFile) {
  for (int status : {0, 1}) {
    With(
        "<REFERENCE><FILE>QVFILTER-a.TXT</FILE></REFERENCE>",
        [this](Form& form) {
          EXPECT_FALSE(IsOn(form, "cmdEdit"));
          Person(form).Click("cmdOK");
          EXPECT_EQ(desktop.TakeMessages(), std::vector{kNoFile});
          EXPECT_TRUE(form.Loaded());
          Person(form).Click("cmdCancel");
        },
        status);
  }
  EXPECT_EQ(Row("1").Values, "<REFERENCE><FILE>QVFILTER-a.TXT</FILE></REFERENCE>");
}

TEST_F(WordList, TheOptionDecidesWhatIsStored) {
  PutPattern("QVFILTER-a.txt");
  PutPattern("QVFILTER-b.txt");
  With("one,two", [](Form& form) {
    Person(form).Click("optUseExternal");
    Person(form).Pick("cboPattern", 1);
    EXPECT_EQ(Items(form, "lstWords"), Texts({"one", "two"}));
    Person(form).Click("cmdOK");
  });
  EXPECT_EQ(Row("1").Values, "<REFERENCE><FILE>QVFILTER-b.TXT</FILE></REFERENCE>");
  With(
      Row("1").Values,
      [](Form& form) {
        Person(form).Click("optUseWordList");
        Person(form).Click("cmdOK");
      },
      0);
  EXPECT_EQ(Row("1").Values, "");
}

TEST_F(WordList, EveryRowIsTreatedAlike) {
  for (const char* rule : {"1", "2", "3", "4", "5", "7", "12", "22"}) {
    Put(rule, 1, "x,y");
    EXPECT_EQ(Open(rule,
                   [](Form& form) {
                     Person(form).Pick("lstWords", 0);
                     Person(form).Click("CmdDelete");
                     Person(form).Click("cmdOK");
                   }),
              1)
        << rule;
    EXPECT_EQ(Row(rule).Values, "y") << rule;
  }
}

}  // namespace
}  // namespace qv::test
