#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "actions/action_dialog.h"
#include "platform/runtime_error.h"
#include "tests/support/test_run.h"

namespace qv::test {

inline constexpr const char* kFirstGuid = "00000001000000000000000000000000";

// One action dialog over a store whose filter "CRTF" has the tasks that a test puts there.
class ActionTest : public ::testing::Test {
 protected:
  // A task of the system filter "CRTF".
  void PutTask(const std::string& id, const std::string& type, const std::string& description,
               const std::string& values, int status = 1) {
    tasks().push_back({"CRTF", id, type, description, status, values, "", ""});
  }
  std::vector<TaskRow>& tasks() { return t.store.server().tasks; }

  // The dialog with the fields that an opener sets.
  template <class Dialog>
  Dialog& The(int mode, const std::string& task_id = "") {
    Dialog& dialog = t.run.The<Dialog>();
    dialog.ActionID = "CRTF";
    dialog.TaskID = task_id;
    dialog.EditMode = mode;
    dialog.Postoffice = dialog.Mailbox = dialog.Host = "";
    return dialog;
  }

  // Opens a dialog, does what `visit` says and closes it, if it is open still, by its close box.
  template <class Dialog>
  void Open(int mode, const std::string& task_id, const std::function<void(Dialog&, Person&)>& visit) {
    Dialog& dialog = The<Dialog>(mode, task_id);
    t.desktop.Visit([&](Form& form) {
      Person person(form);
      visit(dialog, person);
      form.Unload();
    });
    dialog.EditTask();
  }
  template <class Dialog>
  void Add(const std::function<void(Dialog&, Person&)>& visit) {
    Open<Dialog>(ActionDialog::kAdd, "", visit);
  }
  template <class Dialog>
  void Edit(const std::string& task_id, const std::function<void(Dialog&, Person&)>& visit) {
    Open<Dialog>(ActionDialog::kEdit, task_id, visit);
  }

  std::vector<ShownMessage> Messages() { return t.desktop.TakeMessages(); }
  static std::vector<ShownMessage> Told(const std::string& text, const std::string& title, MessageIcon icon) {
    return {{text, title, icon}};
  }
  static std::vector<ShownMessage> Error(const std::string& text) { return Told(text, "Error", MessageIcon::Critical); }

  TestRun t;
};

inline void Collect(const Layout& layout, std::multiset<std::string>& names) {
  if (layout.control) names.insert(layout.control->name());
  if (layout.label) names.insert(layout.label->name());
  for (const Control* control : layout.controls) names.insert(control->name());
  for (const Layout& item : layout.items) Collect(item, names);
}

// Every control stands in the form's layout once, and the button row is its last.
inline void ExpectWholeLayout(const Form& form) {
  std::multiset<std::string> laid_out, all;
  const Layout layout = form.Arrange();
  Collect(layout, laid_out);
  for (const Control* control : form.controls()) all.insert(control->name());
  EXPECT_EQ(laid_out, all) << form.name();
  ASSERT_FALSE(layout.items.empty()) << form.name();
  EXPECT_EQ(layout.items.back().kind, Layout::Kind::Buttons) << form.name();
}

// The controls that the Tab key stops at, in its order.
inline std::vector<std::string> TabOrder(const Form& form) {
  std::vector<std::string> names;
  for (const Control* control : form.controls()) {
    if (control->TakesFocus()) names.push_back(control->name());
  }
  return names;
}

}  // namespace qv::test
