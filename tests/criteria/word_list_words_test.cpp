#include "criteria/word_list_dialog.h"

#include "tests/criteria/criteria_test.h"

namespace qv::test {
namespace {

const ShownMessage kFull{"You have reach the maximum number of words for this criteria.", "Warning",
                         MessageIcon::Information};
struct WordListWords : CriteriaTest {
  int With(const std::string& values, Visit visit) {
    Put("1", 1, values);
    return Open("1", std::move(visit));
  }
};

TEST_F(WordListWords, AddSplitsAtCommasAndCleansEachWord) {
  const std::pair<std::string, Texts> cases[] = {
      {"a,,b, c", {"a", "b", "c"}},
      {"a", {"a"}},
      {" a b ", {"a b"}},
      {"a\tb,\tc\t", {"a b", "c"}},
      {"a\r\nb,c\rd,e\nf", {"a b", "c d", "e f"}},
      {"a\r\n\r\nb", {"a  b"}},
      {"a\n\rb", {"a  b"}},
      {"\r\n, ,\t", {}},
      {",", {}},
      {"", {}},
      {"a,a,A", {"a", "a", "A"}},
      {"*win*,\"x\" 'y';z", {"*win*", "\"x\" 'y';z"}},
      {"\xC2\xA0x", {"\xC2\xA0x"}},
  };
  for (const auto& [text, words] : cases) {
    With("", [&typed = text, &expected = words](Form& form) {
      Person(form).Set("txtWords", typed);
      Person(form).Click("CmdAdd");
      EXPECT_EQ(Items(form, "lstWords"), expected) << typed;
      EXPECT_EQ(TextOf(form, "txtWords"), "");
      EXPECT_EQ(IsOn(form, "chkStatus"), !expected.empty()) << typed;
      form.Unload();
    });
  }
}

TEST_F(WordListWords, AddPutsTheWordsAtTheEnd) {
  With("z,y", [](Form& form) {
    Person(form).Set("txtWords", "x, a");
    Person(form).Click("CmdAdd");
    EXPECT_EQ(Items(form, "lstWords"), Texts({"z", "y", "x", "a"}));
    Person(form).Click("cmdOK");
  });
  EXPECT_EQ(Row("1").Values, "z,y,x,a");
}

TEST_F(WordListWords, AddTakes2046CharactersInAll) {
  With("", [this](Form& form) {
    Person person(form);
    person.Set("txtWords", std::string(2047, 'x'));
    person.Click("CmdAdd");
    EXPECT_EQ(desktop.TakeMessages(), std::vector{kFull});
    EXPECT_EQ(TextOf(form, "txtWords").size(), 2047u);
    EXPECT_EQ(Items(form, "lstWords"), Texts());
    EXPECT_TRUE(IsOn(form, "chkStatus"));
    person.Set("txtWords", std::string(2046, 'x'));
    person.Click("CmdAdd");
    EXPECT_TRUE(desktop.messages.empty());
    EXPECT_EQ(Items(form, "lstWords"), Texts({std::string(2046, 'x')}));
    // The empty text still fits beside it, and no other does.
    person.Click("CmdAdd");
    EXPECT_TRUE(desktop.messages.empty());
    person.Set("txtWords", "y");
    person.Click("CmdAdd");
    EXPECT_EQ(desktop.TakeMessages(), std::vector{kFull});
    form.Unload();
  });
}

TEST_F(WordListWords, AddCountsTheCommasOfTheListAndTheTextAsTyped) {
  const std::string half(1000, 'x');
  With(half + "," + half, [&](Form& form) {
    // 2001 characters of list.
    Person person(form);
    person.Set("txtWords", std::string(46, ' '));
    person.Click("CmdAdd");
    EXPECT_EQ(desktop.TakeMessages(), std::vector{kFull});
    person.Set("txtWords", std::string(44, ',') + "y");
    person.Click("CmdAdd");
    EXPECT_TRUE(desktop.messages.empty());
    EXPECT_EQ(Items(form, "lstWords"), Texts({half, half, "y"}));
    form.Unload();
  });
}

TEST_F(WordListWords, AddCountsCharactersNotBytes) {
  std::string umlauts;
  for (int n = 0; n < 2046; ++n) umlauts += "ü";
  With("", [&](Form& form) {
    Person(form).Set("txtWords", umlauts);
    Person(form).Click("CmdAdd");
    EXPECT_EQ(Items(form, "lstWords"), Texts({umlauts}));
    form.Unload();
  });
  EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(WordListWords, AListThatIsFullTakesNotEvenTheEmptyText) {
  With(std::string(2047, 'x'), [](Form& form) {
    Person(form).Click("CmdAdd");
    form.Unload();
  });
  EXPECT_EQ(desktop.messages, std::vector{kFull});
}

TEST_F(WordListWords, DeleteMovesTheSelectionToTheNextWord) {
  With("a,b,c", [](Form& form) {
    Person person(form);
    person.Pick("lstWords", 1);
    person.Click("CmdDelete");
    EXPECT_EQ(Items(form, "lstWords"), Texts({"a", "c"}));
    EXPECT_EQ(Get<ListBox>(form, "lstWords").ListIndex(), 1);
    person.Click("CmdDelete");
    EXPECT_EQ(Items(form, "lstWords"), Texts({"a"}));
    EXPECT_EQ(Get<ListBox>(form, "lstWords").ListIndex(), 0);
    EXPECT_TRUE(Ticked(form));
    EXPECT_TRUE(IsOn(form, "CmdDelete"));
    person.Click("CmdDelete");
    EXPECT_EQ(Items(form, "lstWords"), Texts());
    EXPECT_FALSE(IsOn(form, "CmdDelete"));
    EXPECT_FALSE(Ticked(form));
    EXPECT_FALSE(IsOn(form, "chkStatus"));
    person.Click("cmdOK");
  });
  EXPECT_EQ(Row("1").Values, "");
  EXPECT_EQ(Row("1").Status, 0);
}

TEST_F(WordListWords, DeleteWithoutASelectionIsHarmless) {
  for (const char* values : {"a", "a,b"}) {
    With(values, [values](Form& form) {
      Person(form).Click("CmdDelete");
      EXPECT_EQ(Items(form, "lstWords").size(), std::string(values).size() / 2 + 1);
      EXPECT_EQ(Get<ListBox>(form, "lstWords").ListIndex(), -1);
      EXPECT_TRUE(IsOn(form, "CmdDelete"));
      EXPECT_TRUE(IsOn(form, "chkStatus"));
      EXPECT_TRUE(Ticked(form));
      form.Unload();
    });
  }
  With("", [](Form& form) {
    Person(form).Click("optUseWordList");
    Person(form).Click("CmdDelete");
    EXPECT_EQ(Items(form, "lstWords"), Texts());
    EXPECT_FALSE(IsOn(form, "chkStatus"));
    EXPECT_TRUE(Ticked(form));
    form.Unload();
  });
}

TEST_F(WordListWords, AWordAddedGivesTheStatusBack) {
  With("a", [](Form& form) {
    Person person(form);
    person.Pick("lstWords", 0);
    person.Click("CmdDelete");
    EXPECT_FALSE(IsOn(form, "chkStatus"));
    person.Set("txtWords", "b");
    person.Click("CmdAdd");
    EXPECT_TRUE(IsOn(form, "chkStatus"));
    EXPECT_FALSE(Ticked(form));
    form.Unload();
  });
  With("", [](Form& form) {
    EXPECT_TRUE(IsOn(form, "chkStatus"));
    form.Unload();
  });
}

}  // namespace
}  // namespace qv::test
