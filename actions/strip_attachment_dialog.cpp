#include "actions/strip_attachment_dialog.h"

#include "platform/text.h"

namespace qv {

namespace {

constexpr ActionDialogTraits kTraits{
    .name = "frmTaskStripAttachment",
    .caption = "Remove Attachment",
    .sentence = "The attachments which match the patterns are removed from the email message",
    .type = action_types::kRemoveAttachment,
    .add_failure = "Unable to add action",
    .edit_failure = "Unable to edit action."};

}  // namespace

frmTaskStripAttachment::frmTaskStripAttachment(Run& run) : ActionDialog(run, kTraits) {
  cmdEdit.SetEnabled(false);
  cmdDelete.SetEnabled(false);
  cmdAdd.Click = [this] { cmdAdd_Click(); };
  cmdEdit.Click = [this] { cmdEdit_Click(); };
  cmdDelete.Click = [this] { cmdDelete_Click(); };
  lstWords.Click = [this] {
    cmdEdit.SetEnabled(true);
    cmdDelete.SetEnabled(true);
  };
}

void frmTaskStripAttachment::Form_Load() {
  if (EditMode == kEdit) LoadData();
}

void frmTaskStripAttachment::InitFormVariables() {
  Values = "";
  Status = -1;
}

void frmTaskStripAttachment::LoadFromProvider() { run().components.CreateTask(); }

void frmTaskStripAttachment::LoadData() {
  LoadTask();
  LockDeleteView();
}

void frmTaskStripAttachment::ShowTask(const Task& task) {
  Status = task.Status;
  SetFormControls();
}

void frmTaskStripAttachment::SetFormControls() {
  SetCaption("Criteria Properties - Remove attachment");
  if (Values.empty()) {
    lstWords.Clear();
  } else {
    for (std::string& pattern : Split(Values, ",")) lstWords.AddItem(std::move(pattern));
  }
  chkStatus().SetValue(Status);
  lblDescription.SetCaption("Remove attachment");
}

void frmTaskStripAttachment::GetFormControls() {
  Values = Join(lstWords.Items(), ",");
  Status = chkStatus().Value();
}

void frmTaskStripAttachment::cmdAdd_Click() {
  if (!txtWords.Text().empty()) {
    for (std::string& pattern : Split(txtWords.Text(), ",")) lstWords.AddItem(std::move(pattern));
  }
  txtWords.SetText("");
  chkStatus().SetEnabled(lstWords.ListCount() > 0);
}

void frmTaskStripAttachment::cmdEdit_Click() {
  if (lstWords.ListIndex() < 0) return;
  if (!txtWords.Text().empty()) {
    std::vector<std::string> patterns = Split(txtWords.Text(), ",");
    lstWords.SetList(lstWords.ListIndex(), patterns.front());
    for (std::size_t i = 1; i < patterns.size(); ++i) lstWords.AddItem(std::move(patterns[i]));
  }
  chkStatus().SetEnabled(lstWords.ListCount() > 0);
}

void frmTaskStripAttachment::cmdDelete_Click() {
  const long index = lstWords.ListIndex();
  if (index < 0) return;
  lstWords.RemoveItem(index);
  const long count = lstWords.ListCount();
  if (count == 0) {
    cmdDelete.SetEnabled(false);
    cmdEdit.SetEnabled(false);
    chkStatus().SetEnabled(false);
  } else {
    lstWords.SetListIndex(index == count ? index - 1 : index);
  }
}

bool frmTaskStripAttachment::Validate() {
  GetFormControls();
  return true;
}

void frmTaskStripAttachment::SaveDeleteView() {
  const auto task = BoundTask();
  SetTaskTemplate(*task);
  if (task->RemoveTask() != 1) ShowError("Could not delete action");
}

std::vector<Layout> frmTaskStripAttachment::Fields() const {
  return {layout::Side(layout::Field(Label1, txtWords), {&cmdAdd}),
          layout::Grow(layout::Side(layout::Field(Label2, lstWords, 8), {&cmdEdit, &cmdDelete}))};
}

}  // namespace qv
