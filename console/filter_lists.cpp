// The lists of the result pane: their rows, their order, a double click on a row.

#include <optional>

#include "console/filtering.h"
#include "console/filtering_trap.h"
#include "console/node_types.h"
#include "editor/manage_dialog.h"
#include "platform/text.h"
#include "services/dates.h"
#include "services/filter_rows.h"
#include "services/identifiers.h"
#include "services/text_utilities.h"
#include "spam/spam_list.h"

namespace qv {

namespace {

std::string_view TextAt(const SortItem& item, std::size_t column) {
  if (item.scope) return item.scope->Node.DisplayName;
  if (!item.item || column >= item.item->SubItems.size()) return {};
  return item.item->SubItems[column].Text;
}

int Sign(bool above, bool below) { return above ? 1 : below ? -1 : 0; }

// Two values that one text or both may lack, which then always compare as below, from either side.
int CompareValues(const std::optional<double>& first, const std::optional<double>& second) {
  if (!first || !second) return -1;
  return Sign(*first > *second, *first < *second);
}

}  // namespace

void Filtering::ResultViews_Initialize(ResultView& view) {
  Trap("ResultViews_Initialize: ", [&] {
    const std::string& name = view.ScopePaneItem->Name;
    if (name == "nodFiltering") {
      LoadFilterItems(view, "", "");
    } else if (name == "nodSpamProtection") {
      LoadSpamItems(run_, view);
    }
    // The form of a node for one postoffice, which no event creates.
    if (GetToken(name, "\t", 2) == "POF") LoadFilterItems(view, GetToken(name, "\t", 1), "");
  });
}

void Filtering::LoadFilterItems(ResultView& view, const std::string& postoffice, const std::string& mailbox) {
  Trap("Error displaying filter list:", [&] {
    const auto filter = run_.components.CreateFilter();
    filter->Host = run_.ServerHost;
    filter->SetHost();
    ForEachFilter(*filter, postoffice, mailbox, [&view](const Filter& row) {
      if (row.FilterEntryID == kSpamFilterID) return;
      const std::string key = "FILTER-" + row.FilterEntryID;
      const bool enabled = row.Status == 1;
      ListItem& item =
          view.ListView.ListItems.Add(key, row.Description, enabled ? images::kFilterEnabled : images::kFilterDisabled);
      item.Tag = key;
      item.SubItems = {{"1" + key, row.Description}, {"2" + key, enabled ? "Enabled" : "Disabled"}};
    });
  });
}

void Filtering::ResultViews_CompareItems(const ResultView& view, const SortItem& first, const SortItem& second,
                                         int column, int& result) {
  Trap("ResultViews_CompareItems: ", [&] {
    const auto& columns = view.ListView.Columns;
    const auto index = static_cast<std::size_t>(column);
    if (column < 0 || index >= columns.size()) throw RuntimeError(35600, "Index out of bounds");
    const std::string_view one = TextAt(first, index), other = TextAt(second, index);
    switch (columns[index].Key.empty() ? '\0' : columns[index].Key.front()) {
      case 'n':
        result = CompareValues(NumericValue(one), NumericValue(other));
        break;
      case 't': {
        const std::string upper = UpperCase(one), other_upper = UpperCase(other);
        result = Sign(upper > other_upper, upper < other_upper);
        break;
      }
      case 'd':
        result = CompareValues(DateValue(one), DateValue(other));
        break;
      default:
        break;
    }
  });
}

void Filtering::ResultViews_ListItemDblClick(ResultView& /*view*/, const ListItem& item) {
  Trap("Error trying to edit filter: ", [&] {
    const std::string kind = GetToken(item.Tag, "-", 1);
    if (kind == "FILTER") {
      std::string id = GetToken(item.Tag, "-", 2);
      run_.The<frmManage>().EditFilter(id, "", "", run_.ServerHost);
      RedisplayResultView();
    } else if (kind == "SYSFILTER") {
      if (EditSpamItem(run_, console_, item)) RedisplayResultView();
    }
  });
}

}  // namespace qv
