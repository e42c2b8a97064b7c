#pragma once

#include <string>
#include <vector>

#include "platform/list_controls.h"
#include "services/run.h"

namespace qv {

// The list of a scope's filters in their order, with the two buttons that move the selected one: what the ordering
// dialog and the filter pages share. Every move is in the store before the list shows it. It attaches the buttons'
// handlers.
//
// A list without a selected row counts as neither at its first nor at its last row, unless it has one row only; the
// buttons then do nothing.
class FilterOrderList {
 public:
  struct Controls {
    RowList& lvwFilters;
    Button &cmdUp, &cmdDown;
  };

  // The columns of such a list.
  static std::vector<RowList::Column> Columns();

  FilterOrderList(Run& run, const Controls& controls);
  FilterOrderList(const FilterOrderList&) = delete;
  FilterOrderList& operator=(const FilterOrderList&) = delete;

  // The scope and server of the list from here on; at first the local server's own filters.
  void Bind(const std::string& postoffice, const std::string& mailbox, const std::string& host);

  // Clears the list and fills it from the store, the system spam filter included, since the rows' positions must be the
  // store's. Raises RuntimeError; a list that can't be asked for stays as it was.
  void LoadFilterList();

  void UpdateMoveButtons();

  // Exchanges two rows, given by their indices from 0, with their keys.
  void ListSwap(long first, long second);

  // Moves a filter to a position counted from 1.
  void SetFilterOrder(const std::string& FilterEntryID, int position);

 private:
  // A move by one place, up (-1) or down (1). Errors are shown.
  void Move(int by);

  Run& run_;
  Controls controls_;
  std::string postoffice_, mailbox_, host_;
};

}  // namespace qv
