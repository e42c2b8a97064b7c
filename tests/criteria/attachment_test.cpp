#include "criteria/attachment_dialog.h"

#include "tests/criteria/criteria_test.h"

namespace qv::test {
namespace {

const ShownMessage kFull{"You have reach the maximum number of items for this criteria.", "Warning",
                         MessageIcon::Information};

struct Attachment : CriteriaTest {
  int With(const std::string& values, Visit visit, int status = 1) {
    Put("9", status, values);
    return Open("9", std::move(visit));
  }
};

TEST_F(Attachment, HasItsCaptions) {
  With("", [](Form& form) {
    EXPECT_EQ(
        Get<Label>(form, "Label1").Caption(),
        "To add or edit the list of attachment filename mask patterns, please enter the details (comma delimited) "
        "in the textbox below:");
    EXPECT_FALSE(Get<TextBox>(form, "txtWords").MultiLine());
    EXPECT_EQ(Get<Button>(form, "CmdAdd").Caption(), "Add");
    EXPECT_EQ(Get<Button>(form, "CmdEdit").Caption(), "Update");
    EXPECT_EQ(Get<Button>(form, "CmdDelete").Caption(), "Delete");
    form.Unload();
  });
}

TEST_F(Attachment, OpensWithTheStatusOnAndTheEntryButtonsOff) {
  for (const char* values : {"", "a,b"}) {
    With(values, [](Form& form) {
      for (const char* name : {"chkStatus", "txtWords", "CmdAdd", "lstWords"}) EXPECT_TRUE(IsOn(form, name)) << name;
      EXPECT_FALSE(IsOn(form, "CmdEdit"));
      EXPECT_FALSE(IsOn(form, "CmdDelete"));
      form.Unload();
    });
  }
}

TEST_F(Attachment, ShowsAndKeepsAStoredListAsItIs) {
  for (const char* values : {"", "*.exe", "*.exe, b ,,x", ",", " "}) {
    const Texts expected = std::string(values).empty()      ? Texts()
                           : std::string(values) == "*.exe" ? Texts({"*.exe"})
                           : std::string(values) == ","     ? Texts({"", ""})
                           : std::string(values) == " "     ? Texts({" "})
                                                            : Texts({"*.exe", " b ", "", "x"});
    With(values, [&](Form& form) {
      EXPECT_EQ(Items(form, "lstWords"), expected);
      Person(form).Click("cmdOK");
    });
    EXPECT_EQ(Row("9").Values, values);
  }
}

TEST_F(Attachment, AddTakesEveryPieceAsItIs) {
  With("*.exe", [](Form& form) {
    Person person(form);
    person.Set("txtWords", "a,,b, c\td ");
    person.Click("CmdAdd");
    EXPECT_EQ(Items(form, "lstWords"), Texts({"*.exe", "a", "", "b", " c\td "}));
    EXPECT_EQ(TextOf(form, "txtWords"), "");
    person.Click("CmdAdd");
    EXPECT_EQ(Items(form, "lstWords").size(), 5u);
    person.Set("txtWords", ",");
    person.Click("CmdAdd");
    EXPECT_EQ(Items(form, "lstWords").size(), 7u);
    EXPECT_TRUE(IsOn(form, "chkStatus"));
    person.Click("cmdOK");
  });
  EXPECT_EQ(Row("9").Values, "*.exe,a,,b, c\td ,,");
}

TEST_F(Attachment, AddOfNothingToNothingTakesTheStatusAway) {
  With("", [](Form& form) {
    Person(form).Click("CmdAdd");
    EXPECT_EQ(Items(form, "lstWords"), Texts());
    EXPECT_FALSE(IsOn(form, "chkStatus"));
    EXPECT_TRUE(Ticked(form));
    Person(form).Click("cmdOK");
  });
  EXPECT_EQ(Row("9").Status, 1);
}

TEST_F(Attachment, AddTakes2046CharactersInAll) {
  With("", [this](Form& form) {
    Person person(form);
    person.Set("txtWords", std::string(2047, 'x'));
    person.Click("CmdAdd");
    EXPECT_EQ(desktop.TakeMessages(), std::vector{kFull});
    EXPECT_EQ(TextOf(form, "txtWords").size(), 2047u);
    EXPECT_EQ(Items(form, "lstWords"), Texts());
    person.Set("txtWords", std::string(2046, 'x'));
    person.Click("CmdAdd");
    EXPECT_TRUE(desktop.messages.empty());
    EXPECT_EQ(Items(form, "lstWords"), Texts({std::string(2046, 'x')}));
    form.Unload();
  });
  With("abc,def", [this](Form& form) {
    Person(form).Set("txtWords", std::string(2040, 'x'));
    Person(form).Click("CmdAdd");
    EXPECT_EQ(desktop.TakeMessages(), std::vector{kFull});
    Person(form).Set("txtWords", std::string(2039, 'x'));
    Person(form).Click("CmdAdd");
    EXPECT_EQ(Items(form, "lstWords").size(), 3u);
    form.Unload();
  });
  EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(Attachment, AClickInTheListEnablesItsButtonsAndLeavesTheText) {
  With("a,b", [](Form& form) {
    Person(form).Set("txtWords", "typed");
    Person(form).Pick("lstWords", 1);
    EXPECT_TRUE(IsOn(form, "CmdEdit"));
    EXPECT_TRUE(IsOn(form, "CmdDelete"));
    EXPECT_EQ(TextOf(form, "txtWords"), "typed");
    form.Unload();
  });
}

TEST_F(Attachment, UpdateReplacesTheEntryAndAddsTheRest) {
  With("a,b,c", [](Form& form) {
    Person person(form);
    person.Set("txtWords", " x,,y ");
    person.Pick("lstWords", 1);
    person.Click("CmdEdit");
    EXPECT_EQ(Items(form, "lstWords"), Texts({"a", " x", "c", "", "y "}));
    EXPECT_EQ(Get<ListBox>(form, "lstWords").ListIndex(), 1);
    EXPECT_EQ(TextOf(form, "txtWords"), " x,,y ");
    person.Click("cmdOK");
  });
  EXPECT_EQ(Row("9").Values, "a, x,c,,y ");
}

TEST_F(Attachment, UpdateWithoutATextChangesNothing) {
  With("a,b", [](Form& form) {
    Person(form).Pick("lstWords", 0);
    Person(form).Click("CmdEdit");
    EXPECT_EQ(Items(form, "lstWords"), Texts({"a", "b"}));
    EXPECT_TRUE(IsOn(form, "chkStatus"));
    form.Unload();
  });
}

TEST_F(Attachment, UpdateKnowsNoLimitAndTheNextAddWarns) {
  With("a", [this](Form& form) {
    Person person(form);
    person.Pick("lstWords", 0);
    person.Set("txtWords", std::string(3000, 'x'));
    person.Click("CmdEdit");
    EXPECT_TRUE(desktop.messages.empty());
    EXPECT_EQ(Items(form, "lstWords"), Texts({std::string(3000, 'x')}));
    person.Set("txtWords", "");
    person.Click("CmdAdd");
    EXPECT_EQ(desktop.TakeMessages(), std::vector{kFull});
    person.Click("cmdOK");
  });
  EXPECT_EQ(Row("9").Values, std::string(3000, 'x'));
}

TEST_F(Attachment, TheButtonsDoNothingWithoutAnEntry) {
  With("", [](Form& form) {
    Person person(form);
    person.Pick("lstWords", -1);
    person.Set("txtWords", "a");
    person.Click("CmdEdit");
    EXPECT_EQ(Items(form, "lstWords"), Texts());
    person.Click("CmdDelete");
    EXPECT_EQ(Items(form, "lstWords"), Texts());
    form.Unload();
  });
  With("a,b", [](Form& form) {
    Person person(form);
    person.Pick("lstWords", -1);
    person.Set("txtWords", "x");
    person.Click("CmdEdit");
    person.Click("CmdDelete");
    EXPECT_EQ(Items(form, "lstWords"), Texts({"a", "b"}));
    EXPECT_TRUE(IsOn(form, "chkStatus"));
    form.Unload();
  });
}

TEST_F(Attachment, UpdateOfNothingInAnEmptyListTakesTheStatusAway) {
  With("", [](Form& form) {
    Person(form).Pick("lstWords", -1);
    Person(form).Click("CmdEdit");
    EXPECT_FALSE(IsOn(form, "chkStatus"));
    form.Unload();
  });
}

TEST_F(Attachment, DeleteMovesTheSelection) {
  With("a,b,c", [](Form& form) {
    Person person(form);
    person.Pick("lstWords", 0);
    person.Click("CmdDelete");
    EXPECT_EQ(Items(form, "lstWords"), Texts({"b", "c"}));
    EXPECT_EQ(Get<ListBox>(form, "lstWords").ListIndex(), 0);
    person.Pick("lstWords", 1);
    person.Click("CmdDelete");
    EXPECT_EQ(Items(form, "lstWords"), Texts({"b"}));
    EXPECT_EQ(Get<ListBox>(form, "lstWords").ListIndex(), 0);
    EXPECT_TRUE(IsOn(form, "CmdEdit"));
    EXPECT_TRUE(Ticked(form));
    person.Click("CmdDelete");
    EXPECT_EQ(Items(form, "lstWords"), Texts());
    EXPECT_FALSE(Ticked(form));
    for (const char* name : {"chkStatus", "CmdEdit", "CmdDelete"}) EXPECT_FALSE(IsOn(form, name)) << name;
    person.Click("cmdOK");
  });
  EXPECT_EQ(Row("9").Values, "");
  EXPECT_EQ(Row("9").Status, 0);
}

TEST_F(Attachment, NothingOfAnOpeningThatWasCancelledIsLeft) {
  for (int opening = 0; opening < 2; ++opening) {
    With("a", [](Form& form) {
      EXPECT_TRUE(Ticked(form));
      EXPECT_TRUE(IsOn(form, "chkStatus"));
      EXPECT_FALSE(IsOn(form, "CmdEdit"));
      EXPECT_EQ(TextOf(form, "txtWords"), "");
      EXPECT_EQ(Items(form, "lstWords"), Texts({"a"}));
      Person person(form);
      person.Pick("lstWords", 0);
      person.Click("CmdDelete");
      person.Pick("lstWords", -1);
      person.Set("txtWords", "left behind");
      EXPECT_FALSE(IsOn(form, "chkStatus"));
      EXPECT_TRUE(IsOn(form, "CmdEdit"));
      person.Click("cmdCancel");
    });
  }
  EXPECT_EQ(Row("9").Values, "a");
}

TEST_F(Attachment, AnEnabledRowMayBeEmpty) {
  EXPECT_EQ(With("", [](Form& form) { Person(form).Click("cmdOK"); }), 1);
  EXPECT_EQ(Row("9").Values, "");
  EXPECT_EQ(Row("9").Status, 1);
  EXPECT_TRUE(desktop.messages.empty());
}

}  // namespace
}  // namespace qv::test
