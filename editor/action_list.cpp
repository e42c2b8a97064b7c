#include "editor/action_list.h"

#include <utility>

#include "editor/action_catalogue.h"
#include "editor/action_select.h"
#include "platform/runtime_error.h"
#include "services/identifiers.h"

namespace qv {

namespace {

// What a row's key says.
struct TaskKey {
  std::string action_id, task_id;

  explicit TaskKey(const std::string& key) {
    GetTaggedValue(key, "CRITERIA", action_id);
    GetTaggedValue(key, "TASK", task_id);
  }
};

// A notification's description is the reason that it gives, which isn't shown here.
std::string RowText(const std::string& task_type, const std::string& description) {
  if (task_type == "NOTIFY_SENDER") return "Notify Sender";
  if (task_type == "NOTIFY_RECIPIENTS") return "Notify Recipient";
  if (task_type == "NOTIFY_ADDRESS") return "Notify Address";
  return description;
}

}  // namespace

ActionList::ActionList(Run& run, Controls controls) : run_(run), controls_(controls) {
  controls_.cmdAdd.Click = [this] { cmdAdd_Click(); };
  controls_.cmdDelete.Click = [this] { cmdDelete_Click(); };
  controls_.cmdUp.Click = [this] { Move(-1); };
  controls_.cmdDown.Click = [this] { Move(1); };
  controls_.lvwActions.Click = [this] { SetListControls(); };
  controls_.lvwActions.DblClick = [this] { lvwActions_DblClick(); };
  controls_.lvwActions.ItemCheck = [this](long index) { lvwActions_ItemCheck(index); };
}

void ActionList::Open(const std::string& id, const std::string& postoffice, const std::string& mailbox,
                      const std::string& host) {
  id_ = id;
  postoffice_ = postoffice;
  mailbox_ = mailbox;
  host_ = host;
  LoadTasks(id_, 0);
}

template <class Step>
void ActionList::Trap(const char* text, Step&& step) {
  try {
    std::forward<Step>(step)();
  } catch (const RuntimeError& error) {
    ShowError(text + error.description());
  }
}

void ActionList::ShowError(const std::string& text) { run_.toolkit.ShowMessage(text, "Error", MessageIcon::Critical); }

std::unique_ptr<Task> ActionList::BoundTask() const {
  auto task = run_.components.CreateTask();
  task->Host = host_;
  task->SetHost();
  return task;
}

void ActionList::SetSearchFields(Task& task, const std::string& action_id, const std::string& task_id) const {
  task.ActionID = action_id;
  task.TaskID = task_id;
  task.TaskType = "";
  task.Description = "";
  task.Status = -1;
  task.Values = "";
  task.Postoffice = postoffice_;
  task.Mailbox = mailbox_;
}

void ActionList::LoadTasks(const std::string& id, long select_index) {
  RowList& list = controls_.lvwActions;
  const auto task = BoundTask();
  list.Clear();
  list.SetColumns({{"H1", "Actions", 5000}});
  SetSearchFields(*task, id, "");
  int result = task->FindFirstTask();
  std::size_t count = 0;
  while (result == 1) {
    actions_.resize(++count);
    actions_.back() = {task->ActionID, task->TaskID, task->Description, task->Values, task->TaskType, task->Status};
    AddActionRow(actions_.back());
    SetSearchFields(*task, id, "");
    result = task->FindNextTask();
  }
  if (count > 0 && select_index > 0) list.SelectRow(select_index - 1);
  if (list.Count() == 0) {
    controls_.cmdDelete.SetEnabled(false);
    controls_.cmdUp.SetEnabled(false);
    controls_.cmdDown.SetEnabled(false);
  }
}

void ActionList::AddActionRow(const Action& action) {
  controls_.lvwActions.AddRow({"CRITERIA-" + action.ActionID + "-TASK-" + action.TaskID,
                               RowText(action.TaskType, action.Description),
                               {},
                               action.Status == 1});
}

void ActionList::RefreshActionRows() {
  controls_.lvwActions.Clear();
  for (const Action& action : actions_) AddActionRow(action);
}

void ActionList::SetListControls() {
  const RowList& list = controls_.lvwActions;
  const long count = list.Count(), selected = list.Selected();
  if (count > 0) controls_.cmdDelete.SetEnabled(true);
  controls_.cmdUp.SetEnabled(count > 1 && selected != 0);
  controls_.cmdDown.SetEnabled(count > 1 && selected != count - 1);
}

void ActionList::cmdAdd_Click() {
  Trap("Error selecting action: ", [this] {
    const std::string key = run_.The<frmActionSelect>().SelectAction(mailbox_, postoffice_);
    const ActionItem* item = FindActionByKey(key);
    if (!item) return;
    OpenDialog(*item, ActionDialog::kAdd, "");
    LoadTasks(id_, 0);
  });
}

void ActionList::OpenDialog(const ActionItem& item, int edit_mode, const std::string& task_id) {
  ActionDialog& dialog = item.dialog(run_);
  dialog.SetType(item.type);
  dialog.ActionID = id_;
  dialog.TaskID = task_id;
  dialog.EditMode = edit_mode;
  dialog.Postoffice = postoffice_;
  dialog.Mailbox = mailbox_;
  dialog.Host = host_;
  dialog.EditTask();
}

void ActionList::lvwActions_DblClick() {
  RowList& list = controls_.lvwActions;
  const long index = list.Selected();
  if (index < 0) return;
  EditAction(std::string(list.Row(index).Key));
  LoadTasks(id_, 0);
  if (index < list.Count()) list.SelectRow(index);
  SetListControls();
}

void ActionList::EditAction(const std::string& key) {
  const TaskKey ids(key);
  const auto task = BoundTask();
  SetSearchFields(*task, ids.action_id, ids.task_id);
  if (task->GetTask() != 1) return;
  const ActionItem* item = FindActionForTask(*task);
  if (item) OpenDialog(*item, ActionDialog::kEdit, ids.task_id);
}

void ActionList::cmdDelete_Click() {
  const RowList& list = controls_.lvwActions;
  if (list.Selected() < 0) return;
  if (run_.toolkit.ShowMessage("Are you sure you wish to delete this action?", "Delete Action",
                               MessageIcon::Exclamation, MessageButtons::YesNo) != MessageAnswer::Yes) {
    return;
  }
  DeleteAction(list.Row(list.Selected()).Key);
  LoadTasks(id_, 0);
}

void ActionList::DeleteAction(const std::string& key) {
  const TaskKey ids(key);
  const auto task = BoundTask();
  SetSearchFields(*task, ids.action_id, ids.task_id);
  if (task->GetTask() != 1) return;
  SetSearchFields(*task, ids.action_id, ids.task_id);
  if (task->RemoveTask() != 1) ShowError("Could not delete action.");
}

void ActionList::lvwActions_ItemCheck(long index) {
  Trap("Error saving action: ", [this, index] {
    const ListRow& row = controls_.lvwActions.Row(index);
    const TaskKey ids(row.Key);
    const auto task = BoundTask();
    SetSearchFields(*task, ids.action_id, ids.task_id);
    task->GetTask();
    const int new_status = row.Checked ? 1 : 0;
    if (task->EditTask(ids.task_id, new_status, "", task->TaskType, task->Description, task->Values) == 1) {
      actions_.at(static_cast<std::size_t>(index)).Status = new_status;
    } else {
      ShowError("Unable to update action");
    }
  });
}

void ActionList::Move(long by) {
  Trap("Error moving items:", [this, by] {
    const RowList& list = controls_.lvwActions;
    const long index = list.Selected(), target = index + by;
    if (index < 0 || target < 0 || target >= list.Count()) return;
    ListSwap(index, target);
    StoreActionOrder();
    SetListControls();
  });
}

void ActionList::ListSwap(long index_a, long index_b) {
  std::swap(actions_.at(static_cast<std::size_t>(index_a)), actions_.at(static_cast<std::size_t>(index_b)));
  RefreshActionRows();
  controls_.lvwActions.SelectRow(index_b);
}

void ActionList::StoreActionOrder() {
  const auto task = BoundTask();
  SetSearchFields(*task, id_, "");
  task->RemoveTask();
  for (const Action& action : actions_) {
    task->Host = host_;
    task->SetHost();
    task->ActionID = action.ActionID;
    task->Status = action.Status;
    task->TaskID = action.TaskID;
    task->TaskType = action.TaskType;
    task->Values = action.Values;
    task->Description = action.Description;
    task->Postoffice = postoffice_;
    task->Mailbox = mailbox_;
    task->AddTask();
  }
}

}  // namespace qv
