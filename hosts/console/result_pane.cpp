#include "hosts/console/result_pane.h"

#include <algorithm>

#include "platform/text.h"

namespace qv {

namespace {

// A stable merge sort that only ever asks how two rows compare, so that a comparison without symmetry gives some order
// and does no harm.
template <class Row, class Above>
void MergeSort(std::vector<Row>& rows, const Above& above) {
  std::vector<Row> merged(rows.size());
  for (std::size_t width = 1; width < rows.size(); width *= 2) {
    for (std::size_t start = 0; start < rows.size(); start += 2 * width) {
      std::size_t left = start, right = std::min(start + width, rows.size());
      const std::size_t left_end = right, right_end = std::min(start + 2 * width, rows.size());
      for (std::size_t to = start; to < right_end; ++to) {
        const bool take_right = left == left_end || (right < right_end && above(rows[left], rows[right]));
        merged[to] = take_right ? rows[right++] : rows[left++];
      }
    }
    rows.swap(merged);
  }
}

bool Holds(const ListItem& item, const std::string& upper_text) {
  return std::any_of(item.SubItems.begin(), item.SubItems.end(), [&upper_text](const ListSubItem& cell) {
    return UpperCase(cell.Text).find(upper_text) != std::string::npos;
  });
}

}  // namespace

ResultPane::ResultPane(TreeNode& node, std::function<void()> rebuild) : node_(node), rebuild_(std::move(rebuild)) {
  Name = node.scope.Name;
  DisplayString = node.caption();
  ScopeItem = &node.scope;
}

qv::ResultView& ResultPane::Restart(const std::string& host) {
  host_ = host;
  shown_.clear();
  if (view_) former_.push_back(std::move(view_));
  view_ = std::make_unique<qv::ResultView>();
  view_->ScopePaneItem = this;
  ResultView = view_.get();
  return *view_;
}

void ResultPane::TakeRows(const Compare& compare) {
  view_->ListView.ListItems.Settle();
  Order(compare);
  DropHiddenSelection();
  ScrollTo(offset_);
}

void ResultPane::DropHiddenSelection() {
  if (selected_.empty()) return;
  std::unordered_set<std::string> left;
  for (const ListItem* item : shown_) {
    if (IsSelected(*item)) left.insert(item->Key);
  }
  selected_ = std::move(left);
}

void ResultPane::FilterBy(const std::string& text, const Compare& compare) {
  filter_ = text;
  Order(compare);
  DropHiddenSelection();
  ScrollTo(0);
}

void ResultPane::SortBy(int column, const Compare& compare) {
  const bool again = sort_ && sort_->column == column && !sort_->descending;
  sort_ = Sort{column, again};
  Order(compare);
}

void ResultPane::Order(const Compare& compare) {
  shown_.clear();
  const std::string wanted = UpperCase(filter_);
  for (const auto& item : view_->ListView.ListItems.All()) {
    if (wanted.empty() || Holds(*item, wanted)) shown_.push_back(item.get());
  }
  if (!sort_) return;
  const int direction = sort_->descending ? -1 : 1;
  MergeSort(shown_, [&](const ListItem* first, const ListItem* second) {
    return direction * compare(*view_, *first, *second, sort_->column) > 0;
  });
}

ListItem* ResultPane::FindRow(const std::string& key) const {
  const auto found =
      std::find_if(shown_.begin(), shown_.end(), [&key](const ListItem* item) { return item->Key == key; });
  return found == shown_.end() ? nullptr : *found;
}

std::vector<ListItem*> ResultPane::SelectedRows() const {
  std::vector<ListItem*> rows;
  if (selected_.empty()) return rows;
  std::copy_if(shown_.begin(), shown_.end(), std::back_inserter(rows),
               [this](const ListItem* item) { return IsSelected(*item); });
  return rows;
}

void ResultPane::ScrollTo(std::size_t offset) { offset_ = shown_.empty() ? 0 : std::min(offset, shown_.size() - 1); }

void ResultPane::DisplayNewResultView(const std::string& /*display_string*/, int /*result_view_type*/) { rebuild_(); }

}  // namespace qv
