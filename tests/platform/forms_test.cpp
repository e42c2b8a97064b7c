#include "platform/forms.h"

#include "platform/runtime_error.h"
#include "tests/platform/forms_fixture.h"

namespace qv::test {
namespace {

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

// Runs what a test prepares.
class Prepared : public Form {
 public:
  explicit Prepared(Toolkit& toolkit) : Form(toolkit, "frmPrepared", "") {}
  using Form::ShowPrepared;
  CheckBox check{*this, "check", "Check"};
};

TEST_F(Forms, APreparedFormIsLoadedBeforeAndShownAfter) {
  Prepared prepared(desktop);
  desktop.Visit([&](Form&) {
    EXPECT_TRUE(prepared.check.Checked());
    prepared.Unload();
  });
  prepared.ShowPrepared([&] {
    EXPECT_TRUE(prepared.Loaded());
    prepared.check.SetChecked(true);
  });
  EXPECT_TRUE(desktop.AllVisited());
}

TEST_F(Forms, APreparationThatFailsTakesTheFormAway) {
  Prepared prepared(desktop);
  EXPECT_THROW(prepared.ShowPrepared([&] {
    prepared.check.SetChecked(true);
    throw RuntimeError("no");
  }),
               RuntimeError);
  EXPECT_FALSE(prepared.Loaded());
  desktop.Visit([&](Form&) {
    EXPECT_FALSE(prepared.check.Checked());
    prepared.Unload();
  });
  prepared.ShowPrepared([] {});
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

}  // namespace
}  // namespace qv::test
