#include "console/filter_order_list.h"

#include "platform/runtime_error.h"
#include "services/filter_rows.h"

namespace qv {

std::vector<RowList::Column> FilterOrderList::Columns() { return {{"", "Filter Name", 3598}, {"", "Status", 2540}}; }

FilterOrderList::FilterOrderList(Run& run, const Controls& controls) : run_(run), controls_(controls) {
  controls_.cmdUp.Click = [this] { Move(-1); };
  controls_.cmdDown.Click = [this] { Move(1); };
}

void FilterOrderList::Bind(const std::string& postoffice, const std::string& mailbox, const std::string& host) {
  postoffice_ = postoffice;
  mailbox_ = mailbox;
  host_ = host;
}

void FilterOrderList::LoadFilterList() {
  const auto filter = run_.components.CreateFilter();
  filter->Host = host_;
  filter->SetHost();
  controls_.lvwFilters.Clear();
  ForEachFilter(*filter, postoffice_, mailbox_, [this](const Filter& row) {
    controls_.lvwFilters.AddRow(
        {row.FilterEntryID, row.Description, {row.Status == 0 ? "Disabled" : "Enabled"}, false});
  });
}

void FilterOrderList::UpdateMoveButtons() {
  const long count = controls_.lvwFilters.Count(), selected = controls_.lvwFilters.Selected();
  controls_.cmdDown.SetEnabled(count > 1 && selected != count - 1);
  controls_.cmdUp.SetEnabled(count > 1 && selected != 0);
}

void FilterOrderList::SetFilterOrder(const std::string& FilterEntryID, int position) {
  const auto filter = run_.components.CreateFilter();
  filter->Host = host_;
  filter->SetHost();
  SetFetchTemplate(*filter, FilterEntryID, postoffice_, mailbox_);
  filter->Order = -1;
  filter->getfilter();
  filter->EditFilter(FilterEntryID, filter->Status, filter->Description, filter->ActionID, filter->Note,
                     filter->CriteriaID, position);
}

void FilterOrderList::ListSwap(long first, long second) {
  RowList& list = controls_.lvwFilters;
  const ListRow one = list.Row(first), other = list.Row(second);
  const auto status_of = [](const ListRow& row) { return row.SubItems.empty() ? std::string() : row.SubItems.front(); };
  // Through a key that no filter has: keys stay unique at every step.
  list.SetKey(second, "X1X");
  list.SetText(first, other.Text);
  list.SetKey(first, other.Key);
  list.SetSubItem(first, 0, status_of(other));
  list.SetText(second, one.Text);
  list.SetKey(second, one.Key);
  list.SetSubItem(second, 0, status_of(one));
}

void FilterOrderList::Move(int by) {
  try {
    RowList& list = controls_.lvwFilters;
    const long index = list.Selected();
    if (index < 0) return;
    const std::string key = list.Row(index).Key;
    SetFilterOrder(key, static_cast<int>(index) + 1 + by);
    ListSwap(index, index + by);
    list.SelectRow(index + by);
    UpdateMoveButtons();
  } catch (const RuntimeError& error) {
    run_.toolkit.ShowMessage("Error moving items:" + error.description(), "Error", MessageIcon::Critical);
  }
}

}  // namespace qv
