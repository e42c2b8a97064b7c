#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "hosts/console/scope_tree.h"
#include "platform/console.h"

namespace qv {

// The result pane of one node: its rows as they are shown, the sort, the selected rows and the window of rows that the
// state holds.
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

  // Starts an empty view for rows of that host. The rows of the view before live until DropFormerRows.
  qv::ResultView& Restart(const std::string& host);
  void DropFormerRows() { former_.clear(); }
  // Takes up the rows that the view has now: sorts them and drops the selection of rows that are gone.
  void TakeRows(const Compare& compare);
  void SortBy(int column, const Compare& compare);

  // Whether the pane shows only the rows that hold a text, in any case, of which an empty one is in every row.
  bool CanFilter() const { return can_filter_; }
  void LetFilter() { can_filter_ = true; }
  const std::string& filter() const { return filter_; }
  void FilterBy(const std::string& text, const Compare& compare);

  const std::vector<ListItem*>& Shown() const { return shown_; }
  ListItem* FindRow(const std::string& key) const;
  const std::optional<Sort>& sort() const { return sort_; }

  // Selects these rows and no others. All of them are in the pane.
  void SelectRows(const std::vector<std::string>& keys) { selected_ = {keys.begin(), keys.end()}; }
  bool IsSelected(const ListItem& item) const { return selected_.count(item.Key) != 0; }
  // In the order shown.
  std::vector<ListItem*> SelectedRows() const;

  static constexpr std::size_t kWindow = 500;
  std::size_t offset() const { return offset_; }
  void ScrollTo(std::size_t offset);

  void DisplayNewResultView(const std::string& display_string, int result_view_type) override;

 private:
  void Order(const Compare& compare);
  void DropHiddenSelection();

  TreeNode& node_;
  std::function<void()> rebuild_;
  std::string host_;
  std::unique_ptr<qv::ResultView> view_;
  std::vector<std::unique_ptr<qv::ResultView>> former_;
  std::vector<ListItem*> shown_;
  std::unordered_set<std::string> selected_;
  std::optional<Sort> sort_;
  bool can_filter_ = false;
  std::string filter_;
  std::size_t offset_ = 0;
};

}  // namespace qv
