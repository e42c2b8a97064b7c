#include "actions/text_dialog.h"

#include <utility>

#include "platform/text.h"
#include "services/identifiers.h"

namespace qv {

void TextActionDialog::SetTextBoxes(std::vector<TextBox*> boxes) {
  for (TextBox* box : boxes) SelectOnTab(*box);
  SetBoxes(std::move(boxes));
}

void TextActionDialog::ShowTask(const Task& task) {
  // A task that is off leaves the check box as designed, and so its handler unrun.
  chkStatus_Click();
  ShowValues(task.Values);
}

void TextActionDialog::ShowValues(const std::string& values) {
  int index = 0;
  for (TextBox* box : Boxes()) box->SetText(GetToken(values, "|", ++index));
}

void TextActionDialog::chkStatus_Click() {
  for (TextBox* box : Boxes()) {
    box->SetEnabled(chkStatus().Checked());
    box->SetBack(chkStatus().Checked() ? BackColor::Window : BackColor::ButtonFace);
  }
}

std::string TextActionDialog::StoredValues() const {
  std::vector<std::string> texts;
  for (const TextBox* box : Boxes()) texts.push_back(box->Text());
  return Join(texts, "|");
}

bool TextActionDialog::Filled(TextBox& box, const char* warning) {
  if (!chkStatus().Checked() || !Trim(box.Text()).empty()) return true;
  toolkit().ShowMessage(warning, "Warning", MessageIcon::Exclamation);
  SetFocus(box);
  return false;
}

}  // namespace qv
