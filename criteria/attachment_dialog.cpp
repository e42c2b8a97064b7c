#include "criteria/attachment_dialog.h"

#include <utility>

#include "criteria/word_lists.h"
#include "platform/text.h"

namespace qv {

frmCriteriaAttachment::frmCriteriaAttachment(Run& run)
    : CriterionDialog(run, {"frmCriteriaAttachment", "Attachment List", "Description goes here"}) {
  SetEntryButtons(false);
  lstWords.Click = [this] { SetEntryButtons(true); };
  CmdAdd.Click = [this] { CmdAdd_Click(); };
  CmdEdit.Click = [this] { CmdEdit_Click(); };
  CmdDelete.Click = [this] { CmdDelete_Click(); };
}

void frmCriteriaAttachment::SetEntryButtons(bool enabled) {
  CmdEdit.SetEnabled(enabled);
  CmdDelete.SetEnabled(enabled);
}

void frmCriteriaAttachment::SetFormControls() {
  CriterionDialog::SetFormControls();
  if (Values.empty()) {
    lstWords.Clear();
  } else {
    ShowWords(lstWords, Values);
  }
}

void frmCriteriaAttachment::GetFormControls() {
  CriterionDialog::GetFormControls();
  Values = Join(lstWords.Items(), ",");
}

void frmCriteriaAttachment::CmdAdd_Click() {
  if (!ListTakes(lstWords, txtWords.Text())) {
    toolkit().ShowMessage("You have reach the maximum number of items for this criteria.", "Warning",
                          MessageIcon::Information);
    return;
  }
  if (!txtWords.Text().empty()) ShowWords(lstWords, txtWords.Text());
  txtWords.SetText("");
  SetStatusEnabled();
}

void frmCriteriaAttachment::CmdEdit_Click() {
  if (!txtWords.Text().empty()) {
    // The empty space of an empty list enables the button too.
    if (lstWords.ListIndex() < 0) return;
    std::vector<std::string> pieces = Split(txtWords.Text(), ",");
    lstWords.SetList(lstWords.ListIndex(), std::move(pieces.front()));
    for (std::size_t n = 1; n < pieces.size(); ++n) lstWords.AddItem(std::move(pieces[n]));
  }
  SetStatusEnabled();
}

void frmCriteriaAttachment::CmdDelete_Click() {
  if (RemoveSelectedWord(lstWords)) {
    SetEntryButtons(false);
    chkStatus.SetChecked(false);
  }
  SetStatusEnabled();
}

std::vector<Layout> frmCriteriaAttachment::Body() const {
  using namespace layout;
  return {Item(Label1), Side(Item(txtWords), {&CmdAdd}), Side(Grow(Item(lstWords, 8)), {&CmdEdit, &CmdDelete})};
}

}  // namespace qv
