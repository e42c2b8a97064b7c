#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/controls.h"

namespace qv {

struct ListState {
  std::vector<std::string> items;
  long selected = -1;
};

// A list box or, without typing, a drop-down list.
class ListControl : public StatefulControl<ListState> {
 public:
  const std::vector<std::string>& Items() const { return state_.items; }
  long ListCount() const { return static_cast<long>(state_.items.size()); }
  // Raises RuntimeError when there is no such entry.
  const std::string& List(long index) const;
  void SetList(long index, std::string text);
  void AddItem(std::string text) { state_.items.push_back(std::move(text)); }
  // Removes an entry; the selection stays on its entry, or is lost with it. Raises RuntimeError when there is none.
  void RemoveItem(long index);
  void Clear();

  // The selected entry from 0, or -1. Setting it raises RuntimeError when there is no such entry.
  long ListIndex() const { return state_.selected; }
  void SetListIndex(long index);
  // The text of the selected entry; empty when there is none.
  std::string Text() const;

  // The person's click and double click on an entry, or on the empty space below (-1), which keeps the selection.
  void Press(long index);
  void PressTwice(long index);

  std::function<void()> Click, DblClick;

 protected:
  ListControl(Form& form, Kind kind, std::string name, Frame* parent)
      : StatefulControl(form, kind, std::move(name), parent) {}
};

class ListBox : public ListControl {
 public:
  ListBox(Form& form, std::string name, Frame* parent = nullptr)
      : ListControl(form, Kind::List, std::move(name), parent) {}
};

class ComboBox : public ListControl {
 public:
  ComboBox(Form& form, std::string name, Frame* parent = nullptr)
      : ListControl(form, Kind::Combo, std::move(name), parent) {}
};

struct ListRow {
  std::string Key;
  std::string Text;
  std::vector<std::string> SubItems;
  bool Checked = false;
};

struct RowListColumn {
  std::string Key, Header;
  int Width = 0;  // twips
};

struct RowListState {
  std::vector<RowListColumn> columns;
  std::vector<ListRow> rows;
  long selected = -1;
};

// A list in report mode. Column 0 shows a row's text, column N its sub-item N - 1.
class RowList : public StatefulControl<RowListState> {
 public:
  using Column = RowListColumn;

  RowList(Form& form, std::string name, std::vector<Column> columns, bool check_boxes = false, Frame* parent = nullptr);

  const std::vector<Column>& Columns() const { return state_.columns; }
  void SetColumns(std::vector<Column> columns) { state_.columns = std::move(columns); }
  bool CheckBoxes() const { return check_boxes_; }

  const std::vector<ListRow>& Rows() const { return state_.rows; }
  long Count() const { return static_cast<long>(state_.rows.size()); }
  // Raises RuntimeError 35600 when the index is out of bounds.
  const ListRow& Row(long index) const;
  // Raises RuntimeError 35602 when there is a row of that key already.
  void AddRow(ListRow row);
  void SetKey(long index, const std::string& key);
  void SetText(long index, std::string text);
  void SetSubItem(long index, std::size_t number, std::string text);
  // Takes all rows away, and the selection with them.
  void Clear();

  // From 0; -1 for none.
  long Selected() const { return state_.selected; }
  // Raises RuntimeError 35600 when there is no such row.
  void SelectRow(long index);

  void Press(long index);
  void PressTwice(long index);
  // The person's click on a row's check box; neither selects the row nor runs the click handler.
  void Check(long index, bool checked);

  std::function<void()> Click, DblClick;
  std::function<void(long index)> ItemCheck;

 private:
  ListRow& At(long index);
  void MustBeNew(const std::string& key) const;

  bool check_boxes_;
};

}  // namespace qv
