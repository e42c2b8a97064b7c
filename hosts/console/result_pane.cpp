#include "hosts/console/result_pane.h"

#include <algorithm>
#include <unordered_set>

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

bool HoldsText(std::string_view cell, const std::string& upper_text) {
  return UpperCase(cell).find(upper_text) != std::string::npos;
}

}  // namespace

ResultPane::ResultPane(TreeNode& node, std::function<void()> rebuild) : node_(node), rebuild_(std::move(rebuild)) {
  Name = node.scope.Name;
  DisplayString = node.caption();
  ScopeItem = &node.scope;
}

qv::ResultView& ResultPane::Restart(const std::string& host) {
  host_ = host;
  order_.emplace();
  names_.reset();
  if (view_) former_.push_back(std::move(view_));
  view_ = std::make_unique<qv::ResultView>();
  view_->ScopePaneItem = this;
  ResultView = view_.get();
  return *view_;
}

void ResultPane::ListNames(NameList names, std::string key_prefix, std::string icon) {
  names_ = std::move(names);
  names_->Settle();
  key_prefix_ = std::move(key_prefix);
  icon_ = std::move(icon);
}

void ResultPane::TakeRows(const Compare& compare) {
  view_->ListView.ListItems.Settle();
  Order(compare);
  DropHiddenSelection();
  ScrollTo(offset_);
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

bool ResultPane::Holds(Row row, const std::string& upper_text) const {
  if (names_) return HoldsText((*names_)[row], upper_text);
  for (const ListSubItem& cell : Items()[row]->SubItems) {
    if (HoldsText(cell.Text, upper_text)) return true;
  }
  return false;
}

void ResultPane::Order(const Compare& compare) {
  order_.reset();
  const std::string wanted = UpperCase(filter_);
  if (wanted.empty() && !sort_) return;
  std::vector<Row> rows;
  for (Row row = 0; row < RowCount(); ++row) {
    if (wanted.empty() || Holds(row, wanted)) rows.push_back(row);
  }
  if (sort_ && names_) {
    SortNames(rows);
  } else if (sort_) {
    const int direction = sort_->descending ? -1 : 1;
    MergeSort(rows, [&](Row first, Row second) {
      return direction * compare(*view_, *Items()[first], *Items()[second], sort_->column) > 0;
    });
  }
  rows.shrink_to_fit();
  order_ = std::move(rows);
}

// Sorts as the callback for a column of texts would, but without putting the names in upper case for each comparison.
void ResultPane::SortNames(std::vector<Row>& rows) const {
  std::vector<std::pair<std::string, Row>> sorted;
  sorted.reserve(rows.size());
  for (const Row row : rows) sorted.emplace_back(UpperCase((*names_)[row]), row);
  std::stable_sort(sorted.begin(), sorted.end(), [descending = sort_->descending](const auto& one, const auto& other) {
    return descending ? other.first < one.first : one.first < other.first;
  });
  std::transform(sorted.begin(), sorted.end(), rows.begin(), [](const auto& name) { return name.second; });
}

const ListItem& ResultPane::Shown(std::size_t place, ListItem& made) const {
  const Row row = RowAt(place);
  if (!names_) return *Items()[row];
  const std::string_view name = (*names_)[row];
  made.Key.assign(key_prefix_).append(name);
  made.Tag = made.Key;
  made.Text = name;
  made.Icon = icon_;
  made.SubItems.clear();
  made.SubItems.push_back({"", name});
  return made;
}

const std::string* ResultPane::FindMissing(const std::vector<std::string>& keys) const {
  const auto id_of = [this](const std::string& key) { return std::string_view(key).substr(key_prefix_.size()); };
  std::unordered_set<std::string_view> missing;
  for (const std::string& key : keys) {
    if (!StartsWith(key, key_prefix_)) return &key;
    missing.insert(id_of(key));
  }
  for (std::size_t place = 0; place < Count() && !missing.empty(); ++place) missing.erase(IdOf(RowAt(place)));
  const auto first =
      std::find_if(keys.begin(), keys.end(), [&](const std::string& key) { return missing.count(id_of(key)) != 0; });
  return first == keys.end() ? nullptr : &*first;
}

void ResultPane::SelectRows(const std::vector<std::string>& keys) {
  selected_.clear();
  for (const std::string& key : keys) selected_.push_back(key.substr(key_prefix_.size()));
  std::sort(selected_.begin(), selected_.end());
  selected_.erase(std::unique(selected_.begin(), selected_.end()), selected_.end());
}

bool ResultPane::IsSelected(std::size_t place) const {
  return !selected_.empty() && std::binary_search(selected_.begin(), selected_.end(), IdOf(RowAt(place)));
}

void ResultPane::DropHiddenSelection() {
  if (selected_.empty()) return;
  std::vector<std::string> left;
  for (std::size_t place = 0; place < Count(); ++place) {
    if (IsSelected(place)) left.emplace_back(IdOf(RowAt(place)));
  }
  std::sort(left.begin(), left.end());
  selected_ = std::move(left);
}

std::string ResultPane::SelectedText() const {
  if (names_) return selected_.front();
  return SelectedItems().front()->Text;
}

std::vector<ListItem*> ResultPane::SelectedItems() const {
  std::vector<ListItem*> items;
  if (selected_.empty() || names_) return items;
  for (std::size_t place = 0; place < Count(); ++place) {
    if (IsSelected(place)) items.push_back(Items()[RowAt(place)].get());
  }
  return items;
}

void ResultPane::ScrollTo(std::size_t offset) { offset_ = Count() == 0 ? 0 : std::min(offset, Count() - 1); }

void ResultPane::DisplayNewResultView(const std::string& /*display_string*/, int /*result_view_type*/) { rebuild_(); }

}  // namespace qv
