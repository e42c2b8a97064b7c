#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "editor/action_list.h"
#include "platform/forms.h"
#include "tests/support/test_run.h"

namespace qv::test {

// A dialog with nothing but an action list, designed as in the management dialog.
class ActionListForm : public Form {
 public:
  explicit ActionListForm(Run& run) : Form(run.toolkit, "frmManage", "Filter Management"), list(run, controls()) {}

  RowList lvwActions{*this, "lvwActions", {{"", "Action", 5000}}, true};
  Button cmdAdd{*this, "cmdAdd", "Add Action..."};
  Button cmdDelete{*this, "cmdDelete", "Delete Action"};
  Button cmdUp{*this, "cmdUp", Button::Picture::Up, "Move action up"};
  Button cmdDown{*this, "cmdDown", Button::Picture::Down, "Move action down"};
  ActionList list;

 private:
  ActionList::Controls controls() { return {lvwActions, cmdAdd, cmdDelete, cmdUp, cmdDown}; }
};

class ActionListTest : public ::testing::Test {
 protected:
  using Items = std::vector<std::string>;

  void PutTask(const std::string& id, int status = 1, const std::string& type = "DELETE",
               const std::string& description = "", const std::string& values = "") {
    tasks().push_back({"CRTF", id, type, description.empty() ? "Task " + id : description, status, values, "", ""});
  }
  std::vector<TaskRow>& tasks() { return t.store.server().tasks; }

  // Loads the dialog and opens the filter "CRTF" of the system.
  void Open() {
    form.Load();
    form.list.Open("CRTF", "", "", "");
    t.store.calls.clear();
  }

  void Put(std::initializer_list<const char*> ids) {
    for (const char* id : ids) PutTask(id);
    Open();
  }

  Items Texts() const {
    Items texts;
    for (const ListRow& row : form.lvwActions.Rows()) texts.push_back(row.Text);
    return texts;
  }
  // The store's tasks as "ID" or, where it is off, "-ID".
  Items Stored() {
    Items ids;
    for (const TaskRow& row : tasks()) ids.push_back((row.Status == 1 ? "" : "-") + row.TaskID);
    return ids;
  }
  // The list's rows in the same way, by their keys and check boxes.
  Items Shown() const {
    Items ids;
    for (const ListRow& row : form.lvwActions.Rows()) {
      ids.push_back((row.Checked ? "" : "-") + row.Key.substr(std::string("CRITERIA-CRTF-TASK-").size()));
    }
    return ids;
  }
  // Which of the buttons that act on a row are enabled.
  std::string Buttons() const {
    std::string names;
    for (const Button* button : {&form.cmdDelete, &form.cmdUp, &form.cmdDown}) {
      if (button->Enabled()) names += (names.empty() ? "" : " ") + button->name().substr(3);
    }
    return names;
  }
  std::vector<ShownMessage> Messages() { return t.desktop.TakeMessages(); }
  static std::vector<ShownMessage> Error(const std::string& text) { return {{text, "Error", MessageIcon::Critical}}; }

  TestRun t;
  ActionListForm form{t.run};
  Person person{form};
};

}  // namespace qv::test
