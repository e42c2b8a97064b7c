#include "criteria/postoffice_dialog.h"

#include "tests/criteria/criteria_test.h"

namespace qv::test {
namespace {

struct ForPostoffice : CriteriaTest {
  Texts shown;
  long selected = -2;

  // Opens the row, notes the list and clicks OK; gives back what was stored.
  std::string Save() {
    Open("19", [&](Form& form) {
      shown = Items(form, "lstPostoffices");
      selected = Get<ListBox>(form, "lstPostoffices").ListIndex();
      Person(form).Click("cmdOK");
    });
    return Row("19").Values;
  }
};

TEST_F(ForPostoffice, ListsThePostofficesInTheStoresOrder) {
  store.server().postoffices = {"zed", "abc", "Mid"};
  Put("19", 1, "abc");
  EXPECT_EQ(Save(), "abc");
  EXPECT_EQ(shown, Texts({"zed", "abc", "Mid"}));
  EXPECT_EQ(selected, 1);
  EXPECT_EQ(Get<Label>(*DialogForRule(run, "19"), "Label1").Caption(), "Postoffice");
}

TEST_F(ForPostoffice, SelectsTheFirstForWhatIsNotThere) {
  store.server().postoffices = {"abc", "def"};
  for (const char* values : {"", "gone", "ABC", "DEF", "def "}) {
    Put("19", 1, values);
    EXPECT_EQ(Save(), "abc") << values;
    EXPECT_EQ(selected, 0) << values;
  }
}

TEST_F(ForPostoffice, ARowWithoutValuesIsNoPostofficeWithoutAName) {
  store.server().postoffices = {"abc", ""};
  Put("19");
  EXPECT_EQ(Save(), "abc");
  EXPECT_EQ(selected, 0);
}

TEST_F(ForPostoffice, StoresTheOnePicked) {
  store.server().postoffices = {"abc", "def"};
  Put("19");
  EXPECT_EQ(Open("19",
                 [](Form& form) {
                   EXPECT_TRUE(IsOn(form, "lstPostoffices"));
                   Person(form).Pick("lstPostoffices", 1);
                   Person(form).Click("chkStatus");
                   Person(form).Click("cmdOK");
                 }),
            1);
  EXPECT_EQ(Row("19").Values, "def");
}

TEST_F(ForPostoffice, AServerWithoutPostofficesStoresNothing) {
  Put("19", 1, "abc");
  EXPECT_EQ(Save(), "");
  EXPECT_EQ(Row("19").Status, 1);
  EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(ForPostoffice, ListsThoseOfItsServerInEveryScope) {
  store.server().postoffices = {"local"};
  host = "OTHER";
  postoffice = "abc";
  store.server(host).postoffices = {"abc", "def"};
  Put("19");
  EXPECT_EQ(Save(), "abc");
  EXPECT_EQ(shown, Texts({"abc", "def"}));
  EXPECT_EQ(store.CountOf("Postoffice.SetHost@OTHER"), 1);
}

TEST_F(ForPostoffice, ReadsTheRowFirst) {
  store.server().postoffices = {"abc", "def"};
  Put("19");
  Open("19", [](Form& form) { form.Unload(); });
  EXPECT_EQ(store.calls, Texts({"Criteria.Create", "Criteria.SetHost@", "Criteria.GetCriteria@(CRT1,19)",
                                "Postoffice.Create", "Postoffice.SetHost@", "Postoffice.FindFirstPostoffice@",
                                "Postoffice.FindNextPostoffice@", "Postoffice.FindNextPostoffice@"}));
}

TEST_F(ForPostoffice, ListsThemWithoutTheRowToo) {
  store.server().postoffices = {"abc", "def"};
  Open("19", [](Form& form) {
    EXPECT_EQ(Items(form, "lstPostoffices"), Texts({"abc", "def"}));
    EXPECT_EQ(Get<ListBox>(form, "lstPostoffices").ListIndex(), 0);
    form.Unload();
  });
  EXPECT_EQ(desktop.messages, (std::vector<ShownMessage>{{"Could not load", "Error", MessageIcon::Critical}}));
}

TEST_F(ForPostoffice, AStoreThatFailsAtTheStartGivesAnEmptyListInSilence) {
  store.server().postoffices = {"abc"};
  for (const char* operation : {"Postoffice.Create", "Postoffice.SetHost", "Postoffice.FindFirstPostoffice"}) {
    store.Raise(operation, "The store is away.");
    Put("19", 1, "abc");
    EXPECT_EQ(Save(), "") << operation;
    EXPECT_EQ(shown, Texts()) << operation;
    store.Heal();
  }
  EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(ForPostoffice, AnErrorInTheMiddlePassesAndTheListGoesOn) {
  store.server().postoffices = {"abc", "def", "ghi"};
  store.Raise("Postoffice.FindNextPostoffice", "The store is away.", 1);
  int nexts = 0;
  store.before = [&](const std::string& operation) {
    if (operation == "Postoffice.FindNextPostoffice" && ++nexts == 3) store.Heal();
  };
  Put("19", 1, "ghi");
  EXPECT_EQ(Save(), "ghi");
  EXPECT_EQ(shown, Texts({"abc", "def", "ghi"}));
  EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(ForPostoffice, AStoreThatKeepsFailingEndsTheList) {
  store.server().postoffices = {"abc", "def", "ghi"};
  store.Raise("Postoffice.FindNextPostoffice", "The store is away.", 1);
  Put("19", 1, "gone");
  EXPECT_EQ(Save(), "abc");
  EXPECT_EQ(shown, Texts({"abc", "def"}));
  EXPECT_TRUE(desktop.messages.empty());
}

}  // namespace
}  // namespace qv::test
