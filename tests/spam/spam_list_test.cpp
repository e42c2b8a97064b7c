#include "spam/spam_list.h"

#include "platform/text.h"
#include "spam/weight_dialog.h"
#include "tests/spam/spam_fixture.h"

namespace qv::test {
namespace {

class SpamListTest : public SpamFixture {
 protected:
  // The rows as their texts: text, sub-items.
  std::vector<std::string> Load() {
    LoadSpamItems(run, view);
    std::vector<std::string> rows;
    for (const auto& item : view.ListView.ListItems.All()) {
      std::vector<std::string> texts = {item->Text};
      for (const ListSubItem& sub_item : item->SubItems) texts.emplace_back(sub_item.Text);
      rows.push_back(Join(texts, "|"));
    }
    return rows;
  }

  static ListItem Row(const std::string& tag, const std::string& positive, const std::string& negative) {
    return {tag, tag, "", "4", {{"1", "A test"}, {"2", positive}, {"3", negative}}};
  }

  ResultView view;
  MessageConsole console;
};

TEST_F(SpamListTest, RowsHaveKeysTagIconAndSubItems) {
  Load();
  EXPECT_EQ(view.ListView.Tag, "SYSFILTERS");
  ASSERT_EQ(view.ListView.ListItems.All().size(), 3u);
  const ListItem& row = *view.ListView.ListItems.All()[1];
  EXPECT_EQ(row.Key, "SYSFILTER-[NOSUBJECT]");
  EXPECT_EQ(row.Tag, "SYSFILTER-[NOSUBJECT]");
  EXPECT_EQ(row.Text, "[NOSUBJECT]");
  EXPECT_EQ(row.Icon, "4");
  ASSERT_EQ(row.SubItems.size(), 3u);
  EXPECT_EQ(row.SubItems[0].Key, "SYSFILTER-[NOSUBJECT]1");
  EXPECT_EQ(row.SubItems[0].Text, "No subject");
  EXPECT_EQ(row.SubItems[1].Key, "SYSFILTER-[NOSUBJECT]2");
  EXPECT_EQ(row.SubItems[1].Text, "10");
  EXPECT_EQ(row.SubItems[2].Key, "SYSFILTER-[NOSUBJECT]3");
  EXPECT_EQ(row.SubItems[2].Text, "1");
}

TEST_F(SpamListTest, WeightsThatAreNotTheDefaultAreSetOff) {
  files.Put("C:\\Config\\SPAMVAL.TAB", "[RBL]\t50\t7\r\n[NOSUBJECT]\t1000\t1");
  Load();
  EXPECT_EQ(view.ListView.Emphasis, (std::set<std::string>{"SYSFILTER-[RBL]3", "SYSFILTER-[NOSUBJECT]2"}));
}

TEST_F(SpamListTest, WithoutValuesShowsTheDefaults) {
  const std::vector<std::string> expected = {"[RBL]|Sender is on a block list|50|0", "[NOSUBJECT]|No subject|10|1",
                                             "[TRUSTED]|Sender is trusted|0|Never marked as spam"};
  EXPECT_EQ(Load(), expected);
}

TEST_F(SpamListTest, ValuesGoBeforeDefaults) {
  files.Put(kValuesPath, "[TRUSTED]\t3\t8\r\n[RBL]\t1000\t1000");
  const std::vector<std::string> expected = {
      "[RBL]|Sender is on a block list|Always marked as spam|Never marked as spam", "[NOSUBJECT]|No subject|10|1",
      "[TRUSTED]|Sender is trusted|3|8"};
  EXPECT_EQ(Load(), expected);
}

TEST_F(SpamListTest, ADefaultOf1000IsShownAsAValueOf1000Is) {
  files.Put(kDefaultsPath, "[A]\tOne\t1000\t1000\r\n[B]\tTwo\t1000.0\t01000");
  const std::vector<std::string> expected = {"[A]|One|Always marked as spam|Never marked as spam",
                                             "[B]|Two|1000.0|01000"};
  EXPECT_EQ(Load(), expected);
}

TEST_F(SpamListTest, AnEmptyPositiveWeightShowsBothDefaults) {
  files.Put(kValuesPath, "[RBL]\t\t6");
  EXPECT_EQ(Load()[0], "[RBL]|Sender is on a block list|50|0");
}

TEST_F(SpamListTest, AMissingNegativeWeightShowsItsDefaultOnly) {
  files.Put(kValuesPath, "[TRUSTED]\t7");
  EXPECT_EQ(Load()[2], "[TRUSTED]|Sender is trusted|7|Never marked as spam");
}

TEST_F(SpamListTest, EmptyLinesHaveNoRow) {
  files.Put(kDefaultsPath, "\r\n[A]\tOne\t1\t2\r\n\r\n[B]\r\n");
  EXPECT_EQ(Load(), (std::vector<std::string>{"[A]|One|1|2", "[B]|||"}));
}

TEST_F(SpamListTest, WithoutDefaultsStaysEmptyWithItsTag) {
  files.Delete(kDefaultsPath);
  EXPECT_EQ(Load(), std::vector<std::string>{});
  EXPECT_EQ(view.ListView.Tag, "SYSFILTERS");
}

TEST_F(SpamListTest, AnEmptyDefaultsFileHasNoRows) {
  files.Put(kDefaultsPath, "");
  EXPECT_EQ(Load(), std::vector<std::string>{});
}

TEST_F(SpamListTest, ATestThatStandsTwiceEndsTheListQuietly) {
  files.Put(kDefaultsPath, "[A]\tOne\t1\t2\r\n[B]\tTwo\t3\t4\r\n[A]\tAgain\t5\t6\r\n[C]\tThree\t7\t8");
  EXPECT_EQ(Load(), (std::vector<std::string>{"[A]|One|1|2", "[B]|Two|3|4"}));
  EXPECT_EQ(desktop.messages, std::vector<ShownMessage>{});
}

TEST_F(SpamListTest, AnUnreadableFileEndsTheListQuietly) {
  files.fail = "ReadAll";
  EXPECT_EQ(Load(), std::vector<std::string>{});
  EXPECT_EQ(view.ListView.Tag, "SYSFILTERS");
}

TEST_F(SpamListTest, ADoubleClickOpensTheDialogWithTheWeightsShown) {
  desktop.Visit([](Form& form) {
    EXPECT_EQ(form.name(), "frmAdjustSpamWeight");
    EXPECT_EQ(dynamic_cast<frmAdjustSpamWeight&>(form).txtPositive.Text(), "12");
    EXPECT_EQ(dynamic_cast<frmAdjustSpamWeight&>(form).txtNegative.Text(), "-3");
    Person(form).Click("cmdOK");
  });
  EXPECT_TRUE(EditSpamItem(run, console, Row("SYSFILTER-[RBL]", "12", "-3")));
  EXPECT_EQ(Values(), "[RBL]\t12\t-3\r\n[NOSUBJECT]\t10\t1\r\n[TRUSTED]\t0\t1000");
  EXPECT_EQ(console.messages, std::vector<ShownMessage>{});
}

TEST_F(SpamListTest, WeightsThatAreNumbersOfAnyFormCanBeChanged) {
  for (const char* weight : {"1.5", " 5 ", "1000.0", "&H10"}) {
    desktop.Visit([weight](Form& form) {
      EXPECT_EQ(dynamic_cast<frmAdjustSpamWeight&>(form).txtPositive.Text(), weight);
      Person(form).Close();
    });
    EXPECT_TRUE(EditSpamItem(run, console, Row("SYSFILTER-[RBL]", weight, "0"))) << weight;
  }
  EXPECT_EQ(console.messages, std::vector<ShownMessage>{});
}

TEST_F(SpamListTest, TheListIsRedisplayedAlsoAfterCancel) {
  desktop.Visit([](Form& form) { Person(form).Click("cmdCancel"); });
  EXPECT_TRUE(EditSpamItem(run, console, Row("SYSFILTER-[RBL]", "12", "3")));
  EXPECT_EQ(Values(), "(missing)");
}

TEST_F(SpamListTest, AWeightThatIsNoNumberCannotBeChangedOnEitherSide) {
  const ShownMessage refusal = {"This spam weight cannot be changed.", "Warning", MessageIcon::None,
                                MessageButtons::Ok};
  EXPECT_FALSE(EditSpamItem(run, console, Row("SYSFILTER-[RBL]", "Always marked as spam", "0")));
  EXPECT_FALSE(EditSpamItem(run, console, Row("SYSFILTER-[RBL]", "50", "Never marked as spam")));
  EXPECT_FALSE(EditSpamItem(run, console, Row("SYSFILTER-[RBL]", "", "1")));
  EXPECT_EQ(console.messages, (std::vector<ShownMessage>{refusal, refusal, refusal}));
}

TEST_F(SpamListTest, ATypedThousandCanOnlyBeReset) {
  desktop.Visit([](Form& form) {
    Person(form).Set("txtPositive", "");
    Person(form).Type("txtPositive", "1000");
    Person(form).Click("cmdOK");
  });
  Load();
  EXPECT_TRUE(EditSpamItem(run, console, *view.ListView.ListItems.All()[0]));
  view.ListView.ListItems.Clear();
  EXPECT_EQ(Load()[0], "[RBL]|Sender is on a block list|Always marked as spam|0");
  EXPECT_FALSE(EditSpamItem(run, console, *view.ListView.ListItems.All()[0]));
  EXPECT_EQ(console.messages.size(), 1u);
  EXPECT_TRUE(ResetSpamWeights(run, console));
  view.ListView.ListItems.Clear();
  EXPECT_EQ(Load()[0], "[RBL]|Sender is on a block list|50|0");
}

TEST_F(SpamListTest, RowsOfOtherKindsAreLeftAlone) {
  EXPECT_FALSE(EditSpamItem(run, console, Row("FILTER-FLT1", "1", "2")));
  EXPECT_FALSE(EditSpamItem(run, console, Row("", "1", "2")));
  EXPECT_EQ(console.messages, std::vector<ShownMessage>{});
}

TEST_F(SpamListTest, ATokenEndsAtADash) {
  files.Put(kDefaultsPath, "[A-B]\tOne\t1\t2\r\n[A\tTwo\t3\t4");
  desktop.Visit([](Form& form) { Person(form).Click("cmdOK"); });
  EXPECT_TRUE(EditSpamItem(run, console, Row("SYSFILTER-[A-B]", "8", "9")));
  EXPECT_EQ(Values(), "[A-B]\t1\t2\r\n[A\t8\t9");
}

TEST_F(SpamListTest, ResetAsksFirst) {
  console.answer = MessageAnswer::No;
  EXPECT_FALSE(ResetSpamWeights(run, console));
  const ShownMessage question = {"Do you wish to reset all values to their default and lose your changes?",
                                 "Reset values", MessageIcon::Exclamation, MessageButtons::YesNo};
  EXPECT_EQ(console.messages, std::vector<ShownMessage>{question});
  EXPECT_EQ(files.writes, std::vector<std::string>{});
}

TEST_F(SpamListTest, ResetWritesTheDefaultsTwiceAndTheScripts) {
  files.Put(kValuesPath, "[RBL]\t1000\t2");
  EXPECT_TRUE(ResetSpamWeights(run, console));
  EXPECT_EQ(Values(), "[RBL]\t50\t0\r\n[NOSUBJECT]\t10\t1\r\n[TRUSTED]\t0\t1000");
  EXPECT_EQ(Active(), Golden("script_of_defaults.txt"));
  EXPECT_EQ(files.writes, (std::vector<std::string>{kValuesPath, kValuesPath, kSwitchedOffPath, kActivePath}));
  EXPECT_EQ(registry.TakeReloads(), 0);
}

TEST_F(SpamListTest, ResetWithEmptyLinesEndsWithoutThem) {
  files.Put(kDefaultsPath, "[A]\tOne\t1\t2\r\n\r\n[B]\tTwo\t3\t4");
  EXPECT_TRUE(ResetSpamWeights(run, console));
  EXPECT_EQ(Values(), "[A]\t1\t2\r\n[B]\t3\t4");
}

TEST_F(SpamListTest, ResetLeavesWhatItWroteBeforeAnError) {
  files.Put(kDefaultsPath, "[A]\tOne\t1\t2");
  files.Put(kTemplatePath, "");
  EXPECT_EQ(ErrorOf([this] { ResetSpamWeights(run, console); }), "62 Input past end of file");
  EXPECT_EQ(Values(), "[A]\t1\t2");
}

TEST_F(SpamListTest, ResetRaisesWhenItCannotWrite) {
  files.fail = "Write";
  EXPECT_EQ(ErrorOf([this] { ResetSpamWeights(run, console); }), "70 Permission denied");
}

}  // namespace
}  // namespace qv::test
