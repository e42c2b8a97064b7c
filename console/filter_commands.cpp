// The commands of the console's lists.

#include "console/filter_item_dialog.h"
#include "console/filter_order_dialog.h"
#include "console/filtering.h"
#include "console/filtering_trap.h"
#include "editor/manage_dialog.h"
#include "platform/text.h"
#include "services/filter_rows.h"
#include "services/identifiers.h"
#include "services/server_context.h"
#include "spam/spam_list.h"

namespace qv {

namespace {

// The first selected row. Raises RuntimeError when there is none.
const ListItem& FirstRow(const Selection& selection) {
  if (selection.ListItems.empty()) throw RuntimeError(35600, "Index out of bounds");
  return *selection.ListItems.front();
}

std::string FilterOf(const Selection& selection) { return GetToken(FirstRow(selection).Tag, "-", 2); }

}  // namespace

void Filtering::Views_Delete(const View& view, const Selection& selection) {
  Trap("Error deleting item:", [&] {
    if (selection.SelectionType != Selection::kListItems || selection.ListItems.empty()) return;
    if (!view.SelectedPaneItem || !EndsWith(view.SelectedPaneItem->Name, "nodFiltering")) return;
    const std::string id = GetToken(FirstRow(selection).Key, "-", 2);
    if (console_.ConsoleMsgBox("Are you sure you wish to delete the filter '" + FirstRow(selection).Text + "'?",
                               "Delete", MessageIcon::Critical, MessageButtons::YesNo) != MessageAnswer::Yes) {
      return;
    }
    RemoveFilterEntry(run_, id, "", "", run_.ServerHost);
    SignalFilterReload(run_);
    RedisplayResultView();
  });
}

void Filtering::mnuFilterEnable_Click(long /*index*/, const Selection& selection) { SetSelectedStatus(selection, 1); }

void Filtering::mnuFilterDisable_Click(long /*index*/, const Selection& selection) { SetSelectedStatus(selection, 0); }

void Filtering::SetSelectedStatus(const Selection& selection, int status) {
  SetFilterStatus(run_, FilterOf(selection), status, "", "", run_.ServerHost);
  SignalFilterReload(run_);
  RedisplayResultView();
}

void Filtering::mnuFilterAdd_Click(long /*index*/, const Selection& /*selection*/) {
  Trap(
      "AddNew Error: ",
      [&] {
        std::string description;
        if (run_.The<frmFilterItem>().AddFilter(description, "", "", run_.ServerHost)) RedisplayResultView();
      },
      "Filtering");
}

// The dialog's server and scope stay what its last use for a new filter has left in it.
void Filtering::mnuRename_Click(long /*index*/, const Selection& selection) {
  auto& dialog = run_.The<frmFilterItem>();
  dialog.AddMode = 0;
  dialog.FilterEntryID = FilterOf(selection);
  dialog.ShowModal();
  RedisplayResultView();
}

void Filtering::mnuOrderFilters_Click(long /*index*/, const Selection& /*selection*/) {
  run_.The<frmFilters>().ShowModal();
  RedisplayResultView();
}

// Unlike a double click this doesn't rebuild the list.
void Filtering::mnuManage_Click(long /*index*/, const Selection& selection) {
  std::string id = FilterOf(selection);
  run_.The<frmManage>().EditFilter(id, "", "", run_.ServerHost);
}

void Filtering::mnuSetToDefault_Click(long /*index*/, const Selection& /*selection*/) {
  Trap("Error updating default values: ", [&] {
    if (ResetSpamWeights(run_, console_)) RedisplayResultView();
  });
}

}  // namespace qv
