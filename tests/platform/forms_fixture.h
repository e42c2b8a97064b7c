#pragma once

#include <gtest/gtest.h>

#include <string>

#include "platform/forms.h"
#include "tests/support/memory_platform.h"

namespace qv::test {

// A form with a control of every kind, and a log of what its handlers were told.
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

}  // namespace qv::test
