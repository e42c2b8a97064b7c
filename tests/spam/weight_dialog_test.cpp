#include "spam/weight_dialog.h"

#include <functional>

#include "tests/spam/spam_fixture.h"

namespace qv::test {
namespace {

class WeightDialogTest : public SpamFixture {
 protected:
  void Open(const std::string& token, const std::string& positive, const std::string& negative,
            std::function<void(frmAdjustSpamWeight& form, Person& person)> visit) {
    desktop.Visit([visit](Form& form) {
      Person person(form);
      visit(dynamic_cast<frmAdjustSpamWeight&>(form), person);
    });
    run.The<frmAdjustSpamWeight>().AdjustSpamWeight(token, positive, negative, run.ServerHost);
    EXPECT_TRUE(desktop.AllVisited());
  }
};

TEST_F(WeightDialogTest, Captions) {
  Open("[RBL]", "50", "0", [](frmAdjustSpamWeight& form, Person& person) {
    EXPECT_EQ(form.Caption(), "Adjust spam weight values");
    EXPECT_EQ(form.Label1.Caption(), "Spam weights can be adjusted for when the test matches or does not match.");
    EXPECT_EQ(form.Label2.Caption(), "Weight when matches:");
    EXPECT_EQ(form.Label3.Caption(), "Weight when does not match:");
    EXPECT_EQ(form.cmdOK.Caption(), "OK");
    EXPECT_EQ(form.cmdCancel.Caption(), "Cancel");
    person.Close();
  });
}

TEST_F(WeightDialogTest, OpensWithTheWholePositiveWeightSelected) {
  Open("[RBL]", "1234", "56", [](frmAdjustSpamWeight& form, Person& person) {
    EXPECT_EQ(form.Focus(), &form.txtPositive);
    EXPECT_EQ(form.txtPositive.SelStart(), 0u);
    EXPECT_EQ(form.txtPositive.SelLength(), 4u);
    EXPECT_EQ(form.txtNegative.SelLength(), 0u);
    person.Type("txtPositive", "9");
    EXPECT_EQ(form.txtPositive.Text(), "9");
    person.Close();
  });
}

TEST_F(WeightDialogTest, TakesDigitsBackspaceAndReturnFromTheKeyboard) {
  Open("[RBL]", "", "", [](frmAdjustSpamWeight& form, Person& person) {
    for (const char* box : {"txtPositive", "txtNegative"}) person.Type(box, "-1a2.3 \b45678901234567890");
    EXPECT_EQ(form.txtPositive.Text(), "1245678901234567890");
    EXPECT_EQ(form.txtNegative.Text(), "1245678901234567890");
    person.Close();
  });
}

TEST_F(WeightDialogTest, TheTabKeySelectsTheWholeText) {
  Open("[RBL]", "12", "345", [this](frmAdjustSpamWeight& form, Person& person) {
    form.txtPositive.Select(0, 0);
    person.Tab(desktop, "txtNegative");
    EXPECT_EQ(form.txtNegative.SelLength(), 3u);
    person.Tab(desktop, "txtPositive");
    EXPECT_EQ(form.txtPositive.SelLength(), 2u);
    form.txtNegative.Select(0, 0);
    form.SetFocus(form.txtNegative);
    EXPECT_EQ(form.txtNegative.SelLength(), 0u);
    person.Close();
  });
}

TEST_F(WeightDialogTest, OkStoresTheTextsAndGeneratesTheScript) {
  Open("[RBL]", "50", "0", [](frmAdjustSpamWeight&, Person& person) {
    person.Set("txtPositive", "");
    person.Set("txtNegative", "7");
    person.Click("cmdOK");
  });
  EXPECT_EQ(Values(), "[RBL]\t\t7\r\n[NOSUBJECT]\t10\t1\r\n[TRUSTED]\t0\t1000");
  EXPECT_EQ(Active(), Golden("script_of_empty_weight.txt"));
  EXPECT_EQ(SwitchedOff(), Golden("script_of_empty_weight.txt"));
  EXPECT_EQ(registry.TakeReloads(), 0);
  EXPECT_EQ(desktop.messages, std::vector<ShownMessage>{});
}

TEST_F(WeightDialogTest, PastedTextIsStoredAsItIs) {
  Open("[RBL]", "50", "0", [](frmAdjustSpamWeight&, Person& person) {
    person.Set("txtPositive", "many");
    person.Click("cmdOK");
  });
  EXPECT_EQ(Values(), "[RBL]\tmany\t0\r\n[NOSUBJECT]\t10\t1\r\n[TRUSTED]\t0\t1000");
}

TEST_F(WeightDialogTest, CancelAndTheCloseBoxStoreNothing) {
  Open("[RBL]", "50", "0", [](frmAdjustSpamWeight&, Person& person) {
    person.Set("txtPositive", "1");
    person.Click("cmdCancel");
  });
  Open("[RBL]", "50", "0", [](frmAdjustSpamWeight&, Person& person) {
    person.Set("txtPositive", "1");
    person.Close();
  });
  EXPECT_EQ(files.writes, std::vector<std::string>{});
}

TEST_F(WeightDialogTest, EachUseHasItsOwnTokenAndWeights) {
  Open("[RBL]", "50", "0", [](frmAdjustSpamWeight&, Person& person) { person.Close(); });
  Open("[NOSUBJECT]", "1", "2", [](frmAdjustSpamWeight& form, Person& person) {
    EXPECT_EQ(form.txtPositive.Text(), "1");
    EXPECT_EQ(form.txtNegative.Text(), "2");
    person.Click("cmdOK");
  });
  EXPECT_EQ(Values(), "[RBL]\t50\t0\r\n[NOSUBJECT]\t1\t2\r\n[TRUSTED]\t0\t1000");
}

TEST_F(WeightDialogTest, AnErrorGoesOnAndTheDialogStays) {
  files.fail = "Write";
  Open("[RBL]", "50", "0", [](frmAdjustSpamWeight& form, Person& person) {
    EXPECT_EQ(ErrorOf([&person] { person.Click("cmdOK"); }), "70 Permission denied");
    EXPECT_TRUE(form.Loaded());
    person.Close();
  });
}

TEST_F(WeightDialogTest, TheHostTakesNoPart) {
  desktop.Visit([](Form& form) { Person(form).Click("cmdOK"); });
  run.The<frmAdjustSpamWeight>().AdjustSpamWeight("[RBL]", "1", "2", "NOWHERE");
  EXPECT_EQ(Values(), "[RBL]\t1\t2\r\n[NOSUBJECT]\t10\t1\r\n[TRUSTED]\t0\t1000");
  EXPECT_EQ(store.CountOf("Option.GetOption"), 3);
  EXPECT_EQ(store.calls.at(1), "Option.SetHost@");
}

}  // namespace
}  // namespace qv::test
