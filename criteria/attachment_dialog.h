#pragma once

#include "criteria/criterion_dialog.h"

namespace qv {

// The file name masks of attachments. A mask is any text without a comma, also an empty one, and is kept as typed.
class frmCriteriaAttachment : public CriterionDialog {
 public:
  explicit frmCriteriaAttachment(Run& run);

  Label Label1{*this, "Label1",
               "To add or edit the list of attachment filename mask patterns, please enter the details (comma "
               "delimited) in the textbox below:"};
  TextBox txtWords{*this, "txtWords"};
  Button CmdAdd{*this, "CmdAdd", "Add"};
  Button CmdEdit{*this, "CmdEdit", "Update"};
  Button CmdDelete{*this, "CmdDelete", "Delete"};
  ListBox lstWords{*this, "lstWords"};
  ConfirmButtons buttons{*this};

  void SetFormControls() override;
  void GetFormControls() override;
  Size size() const override { return Size::Medium; }

 protected:
  std::vector<Layout> Body() const override;

 private:
  void SetEntryButtons(bool enabled);
  void SetStatusEnabled() { chkStatus.SetEnabled(lstWords.ListCount() > 0); }
  void CmdAdd_Click();
  void CmdEdit_Click();
  void CmdDelete_Click();
};

}  // namespace qv
