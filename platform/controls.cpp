#include "platform/controls.h"

#include <algorithm>

#include "platform/forms.h"
#include "platform/runtime_error.h"
#include "platform/text.h"

namespace qv {

namespace {

constexpr long kInvalidArgument = 5;
constexpr long kOutOfBounds = 35600;
constexpr long kKeyNotUnique = 35602;

}  // namespace

Control::Control(Form& form, Kind kind, std::string name, Frame* parent)
    : form_(form), kind_(kind), name_(std::move(name)), parent_(parent) {
  form.controls_.push_back(this);
}

bool Control::Live() const { return form_.Loaded(); }

bool Control::Showing() const {
  if (!Visible()) return false;
  if (parent_ && !parent_->Showing()) return false;
  const std::optional<int> height = form_.ClientHeight();
  return !height || top_ < *height;
}

bool Control::Usable() const { return Enabled() && (!parent_ || parent_->Usable()); }

CaptionedControl::CaptionedControl(Form& form, Kind kind, std::string name, std::string caption, Frame* parent)
    : StatefulControl(form, kind, std::move(name), parent) {
  state_ = std::move(caption);
}

ToggleControl::ToggleControl(Form& form, Kind kind, std::string name, std::string caption, Frame* parent)
    : Control(form, kind, std::move(name), parent) {
  state_.caption = std::move(caption);
}

void ToggleControl::KeepDesign() {
  Control::KeepDesign();
  designed_state_ = state_;
}

void ToggleControl::RestoreDesign() {
  Control::RestoreDesign();
  state_ = designed_state_;
}

void ToggleControl::Assign(bool checked) {
  if (state_.checked == checked) return;
  state_.checked = checked;
  if (Live()) Raise(Click);
}

CheckBox::CheckBox(Form& form, std::string name, std::string caption, bool checked, Frame* parent)
    : ToggleControl(form, Kind::Check, std::move(name), std::move(caption), parent) {
  state_.checked = checked;
}

OptionButton::OptionButton(Form& form, std::string name, std::string caption, bool checked, Frame* parent)
    : ToggleControl(form, Kind::Option, std::move(name), std::move(caption), parent) {
  state_.checked = checked;
}

void OptionButton::SetChecked(bool checked) {
  if (checked && !Checked()) {
    for (Control* fellow : form().controls()) {
      if (fellow != this && fellow->kind() == Kind::Option && fellow->parent() == parent()) {
        static_cast<OptionButton*>(fellow)->state_.checked = false;
      }
    }
  }
  Assign(checked);
}

TextBox::TextBox(Form& form, std::string name, Frame* parent, bool multi_line)
    : Control(form, Kind::Text, std::move(name), parent), multi_line_(multi_line) {}

void TextBox::Put(const std::string& text, std::size_t caret) {
  const bool changed = text != state_.text;
  state_.text = text;
  Select(caret, 0);
  if (changed && Live()) Raise(Change);
}

void TextBox::SetText(const std::string& text) { Put(max_length_ ? Left(text, max_length_) : text, 0); }

void TextBox::Paste(const std::string& text) {
  const std::string fitting = max_length_ ? Left(text, max_length_) : text;
  Put(fitting, TextLength(fitting));
}

void TextBox::Select(std::size_t start, std::size_t length) {
  const std::size_t whole = TextLength(state_.text);
  state_.sel_start = std::min(start, whole);
  state_.sel_length = std::min(length, whole - state_.sel_start);
}

void TextBox::Type(const std::string& keys) {
  const std::u32string allowed = ToCharacters(keys_);
  char32_t before = 0;
  for (char32_t key : ToCharacters(keys)) {
    const bool line_feed_of_return = key == U'\n' && before == U'\r';
    before = key;
    if (line_feed_of_return) continue;

    std::u32string text = ToCharacters(state_.text);
    std::size_t start = state_.sel_start, length = state_.sel_length;
    if (key == U'\b') {
      if (length == 0) {
        if (start == 0) continue;
        // A line end goes as one.
        length = start >= 2 && text[start - 1] == U'\n' && text[start - 2] == U'\r' ? 2 : 1;
        start -= length;
      }
      text.erase(start, length);
    } else {
      std::u32string typed(1, key);
      if (key == U'\r' || key == U'\n') {
        if (!multi_line_) continue;
        typed = U"\r\n";
      } else if (!allowed.empty() && allowed.find(key) == std::u32string::npos) {
        continue;
      }
      if (max_length_ && text.size() - length + typed.size() > max_length_) continue;
      text.replace(start, length, typed);
      start += typed.size();
    }
    Put(FromCharacters(text), start);
  }
}

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
  if (index < -1 || index >= ListCount()) throw RuntimeError(380, "Invalid property value");
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
    : Control(form, Kind::ListView, std::move(name), parent), check_boxes_(check_boxes) {
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
