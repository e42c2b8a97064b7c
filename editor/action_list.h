#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/list_controls.h"
#include "services/run.h"

namespace qv {

// The ordered actions of one filter in the management dialog: their list and its buttons. Every change goes to the
// store at once. The store has no operation that moves a task, so the list keeps a copy of all of them, and a move
// removes every task of the filter and adds them again in the new order.
class ActionList {
 public:
  struct Controls {
    RowList& lvwActions;
    Button &cmdAdd, &cmdDelete, &cmdUp, &cmdDown;
  };

  // Attaches the handlers of the controls, which outlive the list.
  ActionList(Run& run, Controls controls);
  ActionList(const ActionList&) = delete;
  ActionList& operator=(const ActionList&) = delete;

  // Shows the actions of a filter by its "CRT" identifier. The form of the controls is loaded. Raises what the store
  // raises.
  void Open(const std::string& id, const std::string& postoffice, const std::string& mailbox, const std::string& host);

  // Reads the tasks of `id` and rebuilds records and rows. Selects the row at `select_index`, counted from 1; none for
  // 0.
  void LoadTasks(const std::string& id, long select_index);
  // Exchanges two records by their positions from 0, and selects the row that the second one names.
  void ListSwap(long index_a, long index_b);
  // Enables the buttons that can act on the selected row. Without one, a list counts as neither at its first nor at its
  // last row, unless it has one row only; the buttons then do nothing.
  void SetListControls();

 private:
  struct Action {
    std::string ActionID, TaskID, Description, Values, TaskType;
    int Status = 0;
  };

  void cmdAdd_Click();
  void cmdDelete_Click();
  void lvwActions_DblClick();
  void lvwActions_ItemCheck(long index);
  void Move(long by);

  void RefreshActionRows();
  void AddActionRow(const Action& action);
  void StoreActionOrder();
  void EditAction(const std::string& key);
  void DeleteAction(const std::string& key);
  void OpenDialog(const struct ActionItem& item, int edit_mode, const std::string& task_id);

  std::unique_ptr<Task> BoundTask() const;
  void SetSearchFields(Task& task, const std::string& action_id, const std::string& task_id) const;
  template <class Step>
  void Trap(const char* text, Step&& step);
  void ShowError(const std::string& text);

  Run& run_;
  Controls controls_;
  std::string id_, postoffice_, mailbox_, host_;
  // Row N's record at N. Not emptied by a load that finds no task.
  std::vector<Action> actions_;
};

}  // namespace qv
