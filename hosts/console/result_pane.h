#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/console/name_list.h"
#include "hosts/console/scope_tree.h"
#include "platform/console.h"

namespace qv {

// The result pane of one node: its rows as they are shown, the sort, the selected rows and the window of rows that the
// state holds. The rows are list items, or names where there may be a great many of them.
class ResultPane : public ScopePaneItem {
 public:
  struct Sort {
    int column = 0;
    bool descending = false;
  };
  // Answers below 0, 0 or above 0 as the first row compares to the second by a column.
  using Compare =
      std::function<int(const qv::ResultView& view, const ListItem& first, const ListItem& second, int column)>;

  // `rebuild` is what DisplayNewResultView does.
  ResultPane(TreeNode& node, std::function<void()> rebuild);

  TreeNode& node() const { return node_; }
  const std::string& host() const { return host_; }

  // Starts an empty view for rows of that host. The list items of the view before live until DropFormerRows.
  qv::ResultView& Restart(const std::string& host);
  void DropFormerRows() { former_.clear(); }
  // Has names for rows in the place of list items. Such a row's key is the prefix and the name, its one cell the name,
  // and the rows sort as texts.
  void ListNames(NameList names, std::string key_prefix, std::string icon);
  // Takes up the rows that the view has now: sorts them and drops the selection of rows that are gone. Until then no
  // rows are shown.
  void TakeRows(const Compare& compare);
  void SortBy(int column, const Compare& compare);

  // Whether the pane shows only the rows that hold a text, in any case, of which an empty one is in every row.
  bool CanFilter() const { return can_filter_; }
  void LetFilter() { can_filter_ = true; }
  const std::string& filter() const { return filter_; }
  void FilterBy(const std::string& text, const Compare& compare);

  // The number of rows that are shown.
  std::size_t Count() const { return order_ ? order_->size() : RowCount(); }
  // A row by its place among those that are shown. One that is no list item is written to `made`.
  const ListItem& Shown(std::size_t place, ListItem& made) const;
  bool IsSelected(std::size_t place) const;
  // The first of the keys that no row shown has, or null.
  const std::string* FindMissing(const std::vector<std::string>& keys) const;

  // Selects these rows and no others. All of them are shown.
  void SelectRows(const std::vector<std::string>& keys);
  std::size_t SelectedCount() const { return selected_.size(); }
  // The text of the one row that is selected.
  std::string SelectedText() const;
  // In the order shown; only where the rows are list items.
  std::vector<ListItem*> SelectedItems() const;

  const std::optional<Sort>& sort() const { return sort_; }

  static constexpr std::size_t kWindow = 500;
  std::size_t offset() const { return offset_; }
  void ScrollTo(std::size_t offset);

  void DisplayNewResultView(const std::string& display_string, int result_view_type) override;

 private:
  using Row = std::uint32_t;  // by the order of adding

  const std::vector<std::unique_ptr<ListItem>>& Items() const { return view_->ListView.ListItems.All(); }
  std::size_t RowCount() const { return names_ ? names_->size() : Items().size(); }
  Row RowAt(std::size_t place) const { return order_ ? (*order_)[place] : static_cast<Row>(place); }
  // What tells a row from its fellows: the key, or what stands behind the prefix of all keys.
  std::string_view IdOf(Row row) const { return names_ ? (*names_)[row] : std::string_view(Items()[row]->Key); }
  bool Holds(Row row, const std::string& upper_text) const;
  void Order(const Compare& compare);
  void SortNames(std::vector<Row>& rows) const;
  void DropHiddenSelection();

  TreeNode& node_;
  std::function<void()> rebuild_;
  std::string host_;
  std::unique_ptr<qv::ResultView> view_;
  std::vector<std::unique_ptr<qv::ResultView>> former_;
  std::optional<NameList> names_;
  std::string key_prefix_, icon_;          // of names
  std::optional<std::vector<Row>> order_;  // the rows shown; nothing for all of them in the order of adding
  std::vector<std::string> selected_;      // ids, sorted
  std::optional<Sort> sort_;
  bool can_filter_ = false;
  std::string filter_;
  std::size_t offset_ = 0;
};

}  // namespace qv
