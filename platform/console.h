#pragma once

#include <cstddef>
#include <functional>
#include <initializer_list>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "platform/toolkit.h"

namespace qv {

// The operations of the management console that an extension calls, and the objects that it is handed. A host
// implements the classes with virtual operations; the others are plain data that the host reads.

// A node of the scope pane as its type and caption.
struct ScopeNode {
  std::string NodeTypeGUID;  // with braces
  std::string DisplayName;
};

// An item of the scope pane.
struct ScopeItem {
  std::string Name;  // the name of its node type
  std::string Tag;
  ScopeNode Node;
  ScopeItem* Parent = nullptr;
};

struct ListSubItem {
  const std::string_view Key, Text;
};

// The sub-items of a row, in one piece of memory: a console that waits holds those of every row on show.
class ListSubItems {
 public:
  ListSubItems() = default;
  ListSubItems(std::initializer_list<ListSubItem> items);

  std::size_t size() const;
  bool empty() const { return packed_.empty(); }
  // The texts of a sub-item hold until the sub-items change. `at` raises std::out_of_range when there is none of that
  // number.
  ListSubItem operator[](std::size_t number) const;
  ListSubItem at(std::size_t number) const;
  // Each text takes less than 4 GB.
  void push_back(const ListSubItem& item);
  void clear() { packed_.clear(); }

  class Iterator {
   public:
    explicit Iterator(const char* at) : at_(at) {}
    ListSubItem operator*() const;
    Iterator& operator++();
    bool operator!=(const Iterator& other) const { return at_ != other.at_; }

   private:
    const char* at_;
  };
  Iterator begin() const { return Iterator(packed_.data()); }
  Iterator end() const { return Iterator(packed_.data() + packed_.size()); }

 private:
  std::string packed_;  // of each sub-item the lengths of its texts, then the texts
};

// A row of the result pane. Column N shows sub-item N + 1 of the console's counting, which is SubItems[N] here.
struct ListItem {
  std::string Key;
  std::string Tag;
  std::string Text;
  std::string Icon;
  ListSubItems SubItems;
};

struct ListColumn {
  std::string Key;
  std::string Caption;
  int Width = 0;  // pixels
};

// The rows of a list view, in the order of adding.
class ListItems {
 public:
  // Raises RuntimeError 35602 when there is a row of that key already. The reference holds until the rows are cleared;
  // the row's key is not to be changed.
  ListItem& Add(const std::string& key, const std::string& text, const std::string& icon);
  const std::vector<std::unique_ptr<ListItem>>& All() const { return items_; }
  void Clear();
  // Gives back the memory that only adding takes. More rows can be added all the same.
  void Settle();

 private:
  std::vector<std::unique_ptr<ListItem>> items_;
  std::unordered_set<std::string_view> keys_;  // the items' own texts; empty once settled
};

struct ListView {
  std::string Name;
  std::string Tag;
  std::vector<ListColumn> Columns;
  qv::ListItems ListItems;
  std::set<std::string> Emphasis;  // keys of sub-items to set off, such as values that aren't the default
};

class ScopePaneItem;

struct ResultView {
  qv::ScopePaneItem* ScopePaneItem = nullptr;
  qv::ListView ListView;
};

// What a scope item shows in the result pane.
class ScopePaneItem {
 public:
  virtual ~ScopePaneItem() = default;

  std::string Name;
  std::string DisplayString;
  int ResultViewType = 0;
  qv::ResultView* ResultView = nullptr;
  qv::ScopeItem* ScopeItem = nullptr;

  // Builds the result view anew, which raises ResultViews_Initialize.
  virtual void DisplayNewResultView(const std::string& display_string, int result_view_type) = 0;
};

// A view of the console, of which this system asks only what is selected in its scope pane.
struct View {
  ScopePaneItem* SelectedPaneItem = nullptr;
};

struct Selection {
  static constexpr int kScopeItem = 0;
  static constexpr int kListItems = 1;

  int SelectionType = -1;
  std::vector<ScopeItem*> ScopeItems;
  std::vector<ListItem*> ListItems;  // in list order
};

// One side of a comparison by the console's sort callback: a scope item or a list item.
struct SortItem {
  const ScopeItem* scope = nullptr;
  const ListItem* item = nullptr;
};

enum class Verb { Delete = 32771, Properties = 32772, Refresh = 32774 };

class ConsoleVerbs {
 public:
  virtual ~ConsoleVerbs() = default;
  virtual void Enable(Verb verb, bool enabled) = 0;
};

// A menu item, or a group with its children.
struct MMCMenu {
  std::string Name;
  std::string Caption;
  std::vector<MMCMenu> Children;
  bool Visible = true;
  bool Enabled = true;
  bool Grayed = false;
  std::function<void(long index, const Selection& selection)> Click;
};

class ContextMenu {
 public:
  virtual ~ContextMenu() = default;
  // Adds a group with the children whose Visible is true, as they are now.
  virtual void AddMenu(const MMCMenu& group) = 0;
};

// A data object of the server's own console: what a node offers by named formats.
class DataObject {
 public:
  virtual ~DataObject() = default;
  virtual bool GetFormat(const std::string& format) const = 0;
  // The bytes of a format that is offered. Raises RuntimeError for one that isn't.
  virtual std::string GetData(const std::string& format) const = 0;
};

// What a property page is handed at its start. Asking for a key that isn't there gives an empty text.
class Dictionary {
 public:
  void Add(const std::string& key, const std::string& value) { values_[key] = value; }
  std::string Item(const std::string& key) const {
    auto found = values_.find(key);
    return found == values_.end() ? std::string() : found->second;
  }

 private:
  std::map<std::string, std::string> values_;
};

class PropertySheet {
 public:
  virtual ~PropertySheet() = default;
  // Adds a page by its class name.
  virtual void AddPage(const std::string& class_name, const std::string& caption, bool help,
                       const Dictionary& initial_data) = 0;
};

class Console {
 public:
  virtual ~Console() = default;

  // A message box owned by the console. Without a title it has the console's name.
  virtual MessageAnswer ConsoleMsgBox(const std::string& text, const std::string& title = "",
                                      MessageIcon icon = MessageIcon::None,
                                      MessageButtons buttons = MessageButtons::Ok) = 0;
  // Adds a node of a declared type below a node. Raises RuntimeError for a type that isn't declared.
  virtual void AddPreDefined(const std::string& name, const std::string& node_type, ScopeItem& parent) = 0;
  // The pane item now shown, or null.
  virtual ScopePaneItem* CurrentScopePaneItem() = 0;
  // Bytes of a data object as text, from a start counted from 1. Format type 4 is text.
  virtual std::string FormatData(const std::string& bytes, long start, long format_type) = 0;
};

}  // namespace qv
