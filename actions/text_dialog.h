#pragma once

#include "actions/action_dialog.h"

namespace qv {

// An action dialog whose text boxes follow its check box, and whose Values are the texts of the boxes in their order,
// joined by "|".
class TextActionDialog : public ActionDialog {
 protected:
  using ActionDialog::ActionDialog;

  // To be called once, with the boxes in the order of the parts of Values.
  void SetTextBoxes(std::vector<TextBox*> boxes);

  void ShowTask(const Task& task) override;
  // Fills the boxes from the stored text; a part that isn't there reads as empty.
  virtual void ShowValues(const std::string& values);
  void chkStatus_Click() override;
  std::string StoredValues() const override;

  // For an enabled action: whether the box holds more than blanks. Warns the person and goes to the box when not.
  bool Filled(TextBox& box, const char* warning);
};

}  // namespace qv
