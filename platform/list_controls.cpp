#include "platform/list_controls.h"

#include <algorithm>

#include "platform/runtime_error.h"

namespace qv {

namespace {

constexpr long kInvalidArgument = 5;
constexpr long kInvalidPropertyValue = 380;
constexpr long kOutOfBounds = 35600;
constexpr long kKeyNotUnique = 35602;

}  // namespace

const std::string& ListControl::List(long index) const {
  if (index < 0 || index >= ListCount()) throw RuntimeError(kInvalidArgument, "Invalid procedure call or argument");
  return state_.items[static_cast<std::size_t>(index)];
}

void ListControl::SetList(long index, std::string text) {
  (void)List(index);
  state_.items[static_cast<std::size_t>(index)] = std::move(text);
}

void ListControl::RemoveItem(long index) {
  (void)List(index);
  state_.items.erase(state_.items.begin() + index);
  if (state_.selected == index) {
    state_.selected = -1;
  } else if (state_.selected > index) {
    --state_.selected;
  }
}

void ListControl::Clear() {
  state_.items.clear();
  state_.selected = -1;
}

void ListControl::SetListIndex(long index) {
  if (index < -1 || index >= ListCount()) throw RuntimeError(kInvalidPropertyValue, "Invalid property value");
  state_.selected = index;
}

std::string ListControl::Text() const { return state_.selected < 0 ? std::string() : List(state_.selected); }

void ListControl::Press(long index) {
  if (index >= 0) SetListIndex(index);
  Raise(Click);
}

void ListControl::PressTwice(long index) {
  Press(index);
  if (Live()) Raise(DblClick);
}

RowList::RowList(Form& form, std::string name, std::vector<Column> columns, bool check_boxes, Frame* parent)
    : StatefulControl(form, Kind::ListView, std::move(name), parent), check_boxes_(check_boxes) {
  state_.columns = std::move(columns);
}

const ListRow& RowList::Row(long index) const {
  if (index < 0 || index >= Count()) throw RuntimeError(kOutOfBounds, "Index out of bounds");
  return state_.rows[static_cast<std::size_t>(index)];
}

ListRow& RowList::At(long index) { return const_cast<ListRow&>(Row(index)); }

void RowList::MustBeNew(const std::string& key) const {
  const bool taken = std::any_of(state_.rows.begin(), state_.rows.end(),
                                 [&key](const ListRow& row) { return !key.empty() && row.Key == key; });
  if (taken) throw RuntimeError(kKeyNotUnique, "Key is not unique in collection");
}

void RowList::AddRow(ListRow row) {
  MustBeNew(row.Key);
  state_.rows.push_back(std::move(row));
}

void RowList::SetKey(long index, const std::string& key) {
  if (Row(index).Key == key) return;
  MustBeNew(key);
  At(index).Key = key;
}

void RowList::SetText(long index, std::string text) { At(index).Text = std::move(text); }

void RowList::SetSubItem(long index, std::size_t number, std::string text) {
  ListRow& row = At(index);
  if (row.SubItems.size() <= number) row.SubItems.resize(number + 1);
  row.SubItems[number] = std::move(text);
}

void RowList::Clear() {
  state_.rows.clear();
  state_.selected = -1;
}

void RowList::SelectRow(long index) {
  (void)Row(index);
  state_.selected = index;
}

void RowList::Press(long index) {
  if (index >= 0) SelectRow(index);
  Raise(Click);
}

void RowList::PressTwice(long index) {
  Press(index);
  if (Live()) Raise(DblClick);
}

void RowList::Check(long index, bool checked) {
  if (Row(index).Checked == checked) return;
  At(index).Checked = checked;
  if (ItemCheck) ItemCheck(index);
}

}  // namespace qv
