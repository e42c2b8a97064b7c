#pragma once

#include "actions/action_dialog.h"

namespace qv {

// Removes the attachments that match a list of patterns. No row of the action catalogue leads here. An opener sets the
// public fields and calls ShowModal, which loads the task at edit; for the other modes it calls Load and LoadData
// first.
class frmTaskStripAttachment : public ActionDialog {
 public:
  explicit frmTaskStripAttachment(Run& run);

  Label Label1{*this, "Label1", "To add or edit the list, please details (comma delimited) in the textbox below:"};
  TextBox txtWords{*this, "txtWords"};
  Button cmdAdd{*this, "cmdAdd", "Add"};
  Label Label2{*this, "Label2", "Attachment Patterns:"};
  ListBox lstWords{*this, "lstWords"};
  Button cmdEdit{*this, "cmdEdit", "Update"};
  Button cmdDelete{*this, "cmdDelete", "Delete"};
  EndControls end{*this};

  void EditTask() = delete;

  void InitFormVariables();
  void LoadFromProvider();
  void LoadData();
  // Fields into controls, and controls into fields.
  void SetFormControls();
  void GetFormControls();

 protected:
  void Form_Load() override;
  void ShowTask(const Task& task) override;
  bool Validate() override;
  std::string StoredValues() const override { return Values; }
  // Of all delete views, this one deletes.
  void SaveDeleteView() override;
  std::vector<Layout> Fields() const override;

 private:
  void cmdAdd_Click();
  void cmdEdit_Click();
  void cmdDelete_Click();
};

}  // namespace qv
