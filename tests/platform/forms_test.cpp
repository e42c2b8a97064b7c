#include "platform/forms.h"

#include <gtest/gtest.h>

#include "platform/runtime_error.h"
#include "tests/support/memory_platform.h"

namespace qv {
namespace {

using test::TestDesktop;

class Sample : public Form {
 public:
  explicit Sample(Toolkit& toolkit) : Form(toolkit, "frmSample", "Designed") {
    option_two.SetChecked(true);
    button.SetEnabled(false);
    short_text.SetMaxLength(5);
    digits.SetKeys("0123456789");
    list.AddItem("designed");
    deep.SetTop(3000);
    check.Click = [this] { log += "check;"; };
    option_one.Click = [this] { log += "one;"; };
    option_two.Click = [this] { log += "two;"; };
    text.Change = [this] { log += "change;"; };
    text.GotFocus = [this] { log += toolkit_().TabKeyDown() ? "tab;" : "focus;"; };
    rows.ItemCheck = [this](long index) { log += "row" + std::to_string(index) + ";"; };
    rows.Click = [this] { log += "rows;"; };
    rows.DblClick = [this] { log += "rows twice;"; };
    list.Click = [this] { log += "list;"; };
    list.DblClick = [this] { log += "list twice;"; };
  }
  Toolkit& toolkit_() { return toolkit(); }

  Label label{*this, "label", "Label"};
  Frame frame{*this, "frame", "Frame"};
  TextBox text{*this, "text"};
  TextBox lines{*this, "lines", nullptr, true};
  TextBox short_text{*this, "short_text"};
  TextBox digits{*this, "digits"};
  CheckBox check{*this, "check", "Check"};
  OptionButton option_one{*this, "option_one", "One"};
  OptionButton option_two{*this, "option_two", "Two"};
  OptionButton framed{*this, "framed", "Framed", true, &frame};
  Button button{*this, "button", "Button", &frame};
  ListBox list{*this, "list"};
  RowList rows{*this, "rows", {{"A", "First", 100}}, true};
  Label deep{*this, "deep", "Deep"};

  std::string log;
  std::string kept;
  bool close_while_loading = false;

 protected:
  void Form_Load() override {
    log += "load;";
    if (close_while_loading) Unload();
  }
};

class Forms : public ::testing::Test {
 protected:
  Forms() {
    form.Load();
    form.log.clear();
  }
  TestDesktop desktop;
  Sample form{desktop};
};

TEST_F(Forms, LoadingBringsEveryControlBackToItsDesign) {
  form.SetCaption("Changed");
  form.SetHeight(500);
  form.text.SetText("x");
  form.text.SetBack(BackColor::ButtonFace);
  form.check.SetChecked(true);
  form.option_one.SetChecked(true);
  form.button.SetEnabled(true);
  form.button.SetCaption("y");
  form.label.SetVisible(false);
  form.list.Clear();
  form.rows.AddRow({"k", "t", {}, false});
  form.rows.SetColumns({});
  form.kept = "kept";
  form.Unload();
  form.Load();
  EXPECT_EQ(form.Caption(), "Designed");
  EXPECT_EQ(form.Height(), 0);
  EXPECT_EQ(form.text.Text(), "");
  EXPECT_EQ(form.text.Back(), BackColor::Window);
  EXPECT_FALSE(form.check.Checked());
  EXPECT_FALSE(form.option_one.Checked());
  EXPECT_TRUE(form.option_two.Checked());
  EXPECT_FALSE(form.button.Enabled());
  EXPECT_EQ(form.button.Caption(), "Button");
  EXPECT_TRUE(form.label.Visible());
  EXPECT_EQ(form.list.Items(), std::vector<std::string>{"designed"});
  EXPECT_TRUE(form.rows.Rows().empty());
  EXPECT_EQ(form.rows.Columns().size(), 1u);
  EXPECT_EQ(form.kept, "kept");
}

TEST_F(Forms, LoadingALoadedFormDoesNothing) {
  form.text.SetText("x");
  form.log.clear();
  form.Load();
  EXPECT_EQ(form.text.Text(), "x");
  EXPECT_EQ(form.log, "");
}

TEST_F(Forms, AFormThatClosesWhileLoadingIsNotShown) {
  form.Unload();
  form.close_while_loading = true;
  form.ShowModal();  // the desktop would tell of an unexpected dialog
  EXPECT_FALSE(form.Loaded());
}

TEST_F(Forms, AnErrorWhileLoadingLeavesTheFormUnloaded) {
  class Failing : public Form {
   public:
    explicit Failing(Toolkit& toolkit) : Form(toolkit, "frmFailing", "") {}
    void Form_Load() override { throw RuntimeError("no"); }
  } failing(desktop);
  EXPECT_THROW(failing.ShowModal(), RuntimeError);
  EXPECT_FALSE(failing.Loaded());
  EXPECT_THROW(failing.ShowModal(), RuntimeError);
}

TEST_F(Forms, TheFirstFocusGoesToTheFirstControlThatTakesIt) {
  desktop.Visit([this](Form&) {
    EXPECT_EQ(form.Focus(), &form.text);
    form.Unload();
  });
  form.ShowModal();
  EXPECT_EQ(form.log, "focus;");
}

TEST_F(Forms, TheFocusStaysWhereAControlCantTakeIt) {
  form.SetFocus(form.check);
  form.SetFocus(form.button);
  EXPECT_EQ(form.Focus(), &form.check);
  form.SetFocus(form.label);
  EXPECT_EQ(form.Focus(), &form.check);
}

TEST_F(Forms, ADifferentValueRunsTheClickHandlerAndTheSameDoesNot) {
  form.check.SetChecked(true);
  form.check.SetChecked(true);
  form.check.SetValue(1);
  EXPECT_EQ(form.log, "check;");
  form.check.SetValue(0);
  EXPECT_EQ(form.log, "check;check;");
}

TEST_F(Forms, OnlyTheValueOneTicks) {
  form.check.SetValue(2);
  EXPECT_FALSE(form.check.Checked());
  form.check.SetValue(-1);
  EXPECT_FALSE(form.check.Checked());
  form.check.SetValue(1);
  EXPECT_EQ(form.check.Value(), 1);
}

TEST_F(Forms, AnOptionClearsItsFellowsInTheSameFrameAndTheyRunNoHandler) {
  form.option_one.SetChecked(true);
  EXPECT_FALSE(form.option_two.Checked());
  EXPECT_TRUE(form.framed.Checked());
  EXPECT_EQ(form.log, "one;");
}

TEST_F(Forms, ClearingAnOptionRunsItsHandler) {
  form.option_two.SetChecked(false);
  EXPECT_EQ(form.log, "two;");
  EXPECT_FALSE(form.option_one.Checked());
}

TEST_F(Forms, HandlersRestWhileTheFormIsUnloaded) {
  form.Unload();
  form.check.SetChecked(true);
  EXPECT_EQ(form.log, "");
}

TEST_F(Forms, WhatLiesBelowTheHeightIsNotVisible) {
  EXPECT_TRUE(form.deep.Showing());
  form.SetHeight(3000 + Form::kWindowHeight);
  EXPECT_FALSE(form.deep.Showing());
  form.SetHeight(3001 + Form::kWindowHeight);
  EXPECT_TRUE(form.deep.Showing());
}

TEST_F(Forms, AFrameHidesAndDisablesWhatStandsInIt) {
  form.button.SetEnabled(true);
  EXPECT_TRUE(form.button.Showing() && form.button.Usable());
  form.frame.SetVisible(false);
  EXPECT_FALSE(form.button.Showing());
  form.frame.SetVisible(true);
  form.frame.SetEnabled(false);
  EXPECT_FALSE(form.button.Usable());
  EXPECT_TRUE(form.button.Enabled());
}

TEST_F(Forms, AssignedTextIsCutAndPutsTheCaretFirst) {
  form.short_text.SetText("\u00e4\u00f6\u00fc\u00df\u20ac!!");
  EXPECT_EQ(form.short_text.Text(), "\u00e4\u00f6\u00fc\u00df\u20ac");
  EXPECT_EQ(form.short_text.SelStart(), 0u);
}

TEST_F(Forms, PastedTextIsCutAndPutsTheCaretLast) {
  form.short_text.Paste("1234567");
  EXPECT_EQ(form.short_text.Text(), "12345");
  EXPECT_EQ(form.short_text.SelStart(), 5u);
  form.digits.Paste("a1");
  EXPECT_EQ(form.digits.Text(), "a1");
}

TEST_F(Forms, TypingGoesInAtTheCaretInPlaceOfTheSelection) {
  form.text.SetText("abc");
  form.text.Select(1, 1);
  form.text.Type("XY");
  EXPECT_EQ(form.text.Text(), "aXYc");
  EXPECT_EQ(form.text.SelStart(), 3u);
  EXPECT_EQ(form.text.SelLength(), 0u);
}

TEST_F(Forms, TypingPassesTheKeyFilter) {
  form.digits.Type("a1-2.3\r");
  EXPECT_EQ(form.digits.Text(), "123");
  form.digits.Type("\b");
  EXPECT_EQ(form.digits.Text(), "12");
}

TEST_F(Forms, TypingStopsAtTheMaximumLength) {
  form.short_text.Type("123456");
  EXPECT_EQ(form.short_text.Text(), "12345");
  form.short_text.Select(0, 2);
  form.short_text.Type("ab");
  EXPECT_EQ(form.short_text.Text(), "ab345");
}

TEST_F(Forms, BackspaceDeletesTheSelectionOrTheCharacterBefore) {
  form.text.SetText("a\u20acc");
  form.text.Select(2, 0);
  form.text.Type("\b");
  EXPECT_EQ(form.text.Text(), "ac");
  form.text.Select(0, 2);
  form.text.Type("\b\b");
  EXPECT_EQ(form.text.Text(), "");
}

TEST_F(Forms, ReturnMakesALineWhereThereAreLines) {
  form.lines.Type("a\rb\r\nc");
  EXPECT_EQ(form.lines.Text(), "a\r\nb\r\nc");
  form.lines.Select(6, 0);
  form.lines.Type("\b");
  EXPECT_EQ(form.lines.Text(), "a\r\nbc");
  form.text.Type("a\rb");
  EXPECT_EQ(form.text.Text(), "ab");
}

TEST_F(Forms, ADifferentTextRunsTheChangeHandler) {
  form.text.SetText("a");
  form.text.SetText("a");
  form.text.Type("b");
  form.text.Paste("ba");
  EXPECT_EQ(form.log, "change;change;");
}

TEST_F(Forms, ASelectionIsBroughtIntoTheText) {
  form.text.SetText("abc");
  form.text.Select(9, 9);
  EXPECT_EQ(form.text.SelStart(), 3u);
  EXPECT_EQ(form.text.SelLength(), 0u);
  form.text.Select(1, 9);
  EXPECT_EQ(form.text.SelLength(), 2u);
}

TEST_F(Forms, AListLosesItsSelectionWithTheEntry) {
  form.list.AddItem("b");
  form.list.AddItem("c");
  form.list.SetListIndex(1);
  form.list.RemoveItem(0);
  EXPECT_EQ(form.list.Text(), "b");
  form.list.RemoveItem(0);
  EXPECT_EQ(form.list.ListIndex(), -1);
  EXPECT_EQ(form.list.Text(), "");
  EXPECT_THROW(form.list.RemoveItem(5), RuntimeError);
  EXPECT_THROW(form.list.SetListIndex(5), RuntimeError);
}

TEST_F(Forms, TheEmptySpaceOfAListKeepsTheSelectionAndRunsTheHandlers) {
  form.list.Press(0);
  form.list.Press(-1);
  EXPECT_EQ(form.list.ListIndex(), 0);
  form.list.PressTwice(-1);
  EXPECT_EQ(form.log, "list;list;list;list twice;");
}

TEST_F(Forms, RowKeysAreUnique) {
  form.rows.AddRow({"k1", "a", {}, false});
  form.rows.AddRow({"k2", "b", {}, false});
  try {
    form.rows.AddRow({"k1", "c", {}, false});
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 35602);
    EXPECT_EQ(error.description(), "Key is not unique in collection");
  }
  EXPECT_THROW(form.rows.SetKey(1, "k1"), RuntimeError);
  form.rows.SetKey(1, "k2");
  EXPECT_EQ(form.rows.Count(), 2);
}

TEST_F(Forms, ACheckNeitherSelectsTheRowNorRunsTheClickHandler) {
  form.rows.AddRow({"k1", "a", {}, false});
  form.rows.Check(0, true);
  form.rows.Check(0, true);
  EXPECT_EQ(form.rows.Selected(), -1);
  EXPECT_EQ(form.log, "row0;");
}

TEST_F(Forms, RebuiltRowsHaveNoSelection) {
  form.rows.AddRow({"k1", "a", {}, false});
  form.rows.Press(0);
  EXPECT_EQ(form.rows.Selected(), 0);
  form.rows.Clear();
  form.rows.AddRow({"k1", "a", {}, false});
  EXPECT_EQ(form.rows.Selected(), -1);
  EXPECT_THROW(form.rows.SelectRow(1), RuntimeError);
}

TEST_F(Forms, ADoubleClickRunsTheClickHandlerFirst) {
  form.rows.AddRow({"k1", "a", {}, false});
  form.rows.PressTwice(0);
  EXPECT_EQ(form.log, "rows;rows twice;");
}

}  // namespace
}  // namespace qv
