#pragma once

#include <string>
#include <vector>

#include "tests/actions/action_fixture.h"

namespace qv::test {

// For the dialogs with text boxes.
class TextDialogs : public ActionTest {
 protected:
  void ExpectFollows(bool enabled, const std::vector<const TextBox*>& boxes) {
    for (const TextBox* box : boxes) {
      EXPECT_EQ(box->Enabled(), enabled) << box->name();
      EXPECT_EQ(box->Back(), enabled ? BackColor::Window : BackColor::ButtonFace) << box->name();
    }
  }
  void ExpectSelectedByTab(Form& form, TextBox& box, const std::string& text, std::size_t length) {
    Person person(form);
    person.Set(box.name(), "");
    person.Tab(t.desktop, box.name());
    EXPECT_EQ(box.SelLength(), 0u) << box.name();
    person.Set(box.name(), text);
    form.SetFocus(box);
    EXPECT_EQ(box.SelLength(), 0u) << box.name();
    person.Tab(t.desktop, box.name());
    EXPECT_EQ(box.SelStart(), 0u) << box.name();
    EXPECT_EQ(box.SelLength(), length) << box.name();
  }
  static std::vector<ShownMessage> Warning(const std::string& text) {
    return Told(text, "Warning", MessageIcon::Exclamation);
  }
};

}  // namespace qv::test
