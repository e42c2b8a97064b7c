#include "actions/action_dialog.h"

#include <utility>

#include "services/identifiers.h"
#include "services/server_context.h"
#include "services/text_utilities.h"

namespace qv {

ActionDialog::EndControls::EndControls(ActionDialog& dialog)
    : chkStatus(dialog, "chkStatus", "Enabled"),
      cmdOK(dialog, "cmdOK", "OK", Button::Role::Default),
      cmdCancel(dialog, "cmdCancel", "&Cancel", Button::Role::Cancel) {
  dialog.end_ = this;
  chkStatus.Click = [&dialog] { dialog.chkStatus_Click(); };
  cmdOK.Click = [&dialog] { dialog.cmdOK_Click(); };
  cmdCancel.Click = [&dialog] { dialog.Unload(); };
}

ActionDialog::ActionDialog(Run& run, const ActionDialogTraits& traits)
    : Form(run.toolkit, traits.name, traits.caption),
      lblH1(*this, "lblH1", "Action:"),
      lblDescription(*this, "lblDescription", traits.sentence, Label::Look::Heading),
      run_(run),
      traits_(traits) {}

void ActionDialog::EditTask() {
  ShowPrepared([this] {
    BeforeLoad();
    LoadTask();
    AfterLoad();
    LockDeleteView();
  });
}

Layout ActionDialog::Arrange() const {
  std::vector<Layout> rows = {layout::Item(lblH1), layout::Item(lblDescription)};
  for (Layout& field : Fields()) rows.push_back(std::move(field));
  rows.push_back(layout::Item(end_->chkStatus));
  rows.push_back(layout::Buttons({&end_->cmdOK, &end_->cmdCancel}));
  return layout::Column(std::move(rows));
}

std::unique_ptr<Task> ActionDialog::BoundTask() const {
  auto task = run_.components.CreateTask();
  task->Host = Host;
  task->SetHost();
  return task;
}

void ActionDialog::SetTaskTemplate(Task& task) const {
  task.ActionID = ActionID;
  task.Status = -1;
  task.TaskID = TaskID;
  task.TaskType = "";
  task.Values = "";
  task.Description = "";
  task.Postoffice = Postoffice;
  task.Mailbox = Mailbox;
}

void ActionDialog::LoadTask() {
  if (EditMode == kAdd) {
    chkStatus().SetChecked(true);
    return;
  }
  const auto task = BoundTask();
  SetTaskTemplate(*task);
  if (task->GetTask() != 1) {
    ShowError(EditMode == kEdit ? traits_.not_found : "Task Not Found");
    return;
  }
  chkStatus().SetValue(task->Status);
  if (traits_.keeps_status) Status = task->Status;
  if (traits_.keeps_values) Values = task->Values;
  ShowTask(*task);
}

void ActionDialog::LockDeleteView() {
  if (EditMode != kDeleteView) return;
  chkStatus().SetEnabled(false);
  for (TextBox* box : Boxes()) box->SetEnabled(false);
  if (traits_.delete_caption) SetCaption("Delete " + Caption());
}

void ActionDialog::cmdOK_Click() {
  if (!Validate()) return;
  SaveTask();
  Unload();
}

void ActionDialog::SaveTask() {
  if (EditMode == kAdd) {
    AddNewTask();
  } else if (EditMode == kEdit) {
    EditOldTask();
  } else {
    SaveDeleteView();
  }
  SignalFilterReload(run_);
}

void ActionDialog::AddNewTask() {
  const auto task = BoundTask();
  task->ActionID = ActionID;
  task->TaskID = NewGuidString(run_.guids);
  Status = chkStatus().Value();
  task->Status = Status;
  task->Description = StoredDescription();
  task->Values = StoredValues();
  task->TaskType = StoredType();
  task->Postoffice = Postoffice;
  task->Mailbox = Mailbox;
  if (task->AddTask() != 1) ShowError(traits_.add_failure);
}

void ActionDialog::EditOldTask() {
  const auto task = BoundTask();
  SetTaskTemplate(*task);
  Status = chkStatus().Value();
  if (task->EditTask(TaskID, Status, ActionID, StoredType(), StoredDescription(), StoredValues()) != 1) {
    ShowError(traits_.edit_failure);
  }
}

void ActionDialog::SelectOnTab(TextBox& box) {
  box.GotFocus = [this, &box] { SelectAllOnTab(run_, box); };
}

}  // namespace qv
