#pragma once

#include <functional>
#include <string>
#include <vector>

namespace qv {

class Form;
class Frame;

// Controls behave as a desktop's do, whatever shows them. A control registers itself with its form; the order of
// declaration is the tab order. What a form's constructor sets is the design that every loading brings back.
//
// Handlers run only while the form is loaded.
class Control {
 public:
  enum class Kind { Label, Frame, Button, Check, Option, Text, List, Combo, ListView };

  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control() = default;

  Kind kind() const { return kind_; }
  Form& form() const { return form_; }
  const std::string& name() const { return name_; }
  const Frame* parent() const { return parent_; }

  bool Enabled() const { return base_.enabled; }
  void SetEnabled(bool enabled) { base_.enabled = enabled; }
  bool Visible() const { return base_.visible; }
  void SetVisible(bool visible) { base_.visible = visible; }

  // The distance from the top of the form's client area in twips, where it is settled. It decides what the form's
  // height hides.
  int Top() const { return top_; }
  void SetTop(int twips) { top_ = twips; }

  // What the person can see: not hidden by itself, a hidden frame around it or the form's height.
  bool Showing() const;
  // What the person can use: enabled, as are the frames around it.
  bool Usable() const;
  virtual bool TakesFocus() const { return true; }

  std::function<void()> GotFocus;

 protected:
  Control(Form& form, Kind kind, std::string name, Frame* parent);

  // Keeps the present state as the designed one, or brings that back.
  virtual void KeepDesign() { designed_ = base_; }
  virtual void RestoreDesign() { base_ = designed_; }
  bool Live() const;  // the form is loaded, so handlers run
  static void Raise(const std::function<void()>& handler) {
    if (handler) handler();
  }

 private:
  friend class Form;
  struct Base {
    bool enabled = true;
    bool visible = true;
  };
  Form& form_;
  Kind kind_;
  std::string name_;
  Frame* parent_;
  int top_ = 0;
  Base base_, designed_;
};

// A control whose state of its own is one value that the design keeps and brings back.
template <class State>
class StatefulControl : public Control {
 protected:
  using Control::Control;
  void KeepDesign() override {
    Control::KeepDesign();
    designed_state_ = state_;
  }
  void RestoreDesign() override {
    Control::RestoreDesign();
    state_ = designed_state_;
  }
  State state_{}, designed_state_{};
};

class CaptionedControl : public StatefulControl<std::string> {
 public:
  const std::string& Caption() const { return state_; }
  void SetCaption(std::string caption) { state_ = std::move(caption); }

 protected:
  CaptionedControl(Form& form, Kind kind, std::string name, std::string caption, Frame* parent);
};

class Label : public CaptionedControl {
 public:
  // How a front end may set it off: a heading, explaining text, or a notice that must be seen.
  enum class Look { Plain, Heading, Help, Notice };

  Label(Form& form, std::string name, std::string caption, Frame* parent = nullptr, Look look = Look::Plain)
      : CaptionedControl(form, Kind::Label, std::move(name), std::move(caption), parent), look_(look) {}
  Label(Form& form, std::string name, std::string caption, Look look)
      : Label(form, std::move(name), std::move(caption), nullptr, look) {}
  bool TakesFocus() const override { return false; }
  Look look() const { return look_; }

 private:
  Look look_;
};

class Frame : public CaptionedControl {
 public:
  Frame(Form& form, std::string name, std::string caption, Frame* parent = nullptr)
      : CaptionedControl(form, Kind::Frame, std::move(name), std::move(caption), parent) {}
  bool TakesFocus() const override { return false; }
};

class Button : public CaptionedControl {
 public:
  enum class Role { Plain, Default, Cancel };
  enum class Picture { None, Up, Down };

  Button(Form& form, std::string name, std::string caption, Role role = Role::Plain, Frame* parent = nullptr)
      : CaptionedControl(form, Kind::Button, std::move(name), std::move(caption), parent), role_(role) {}
  Button(Form& form, std::string name, std::string caption, Frame* parent)
      : Button(form, std::move(name), std::move(caption), Role::Plain, parent) {}
  // A button with a picture in the place of a caption.
  Button(Form& form, std::string name, Picture picture, std::string tip, Frame* parent = nullptr)
      : CaptionedControl(form, Kind::Button, std::move(name), "", parent), picture_(picture), tip_(std::move(tip)) {}

  Role role() const { return role_; }
  Picture picture() const { return picture_; }
  const std::string& tip() const { return tip_; }
  void Press() { Raise(Click); }  // the person's click

  std::function<void()> Click;

 private:
  Role role_ = Role::Plain;
  Picture picture_ = Picture::None;
  std::string tip_;
};

// A check box or an option: something that is set or clear. A different value runs the click handler, the same value
// doesn't.
class ToggleControl : public Control {
 public:
  const std::string& Caption() const { return state_.caption; }
  void SetCaption(std::string caption) { state_.caption = std::move(caption); }
  bool Checked() const { return state_.checked; }

  std::function<void()> Click;

 protected:
  ToggleControl(Form& form, Kind kind, std::string name, std::string caption, Frame* parent);
  void KeepDesign() override;
  void RestoreDesign() override;
  void Assign(bool checked);

  struct State {
    std::string caption;
    bool checked = false;
  };
  State state_, designed_state_;
};

class CheckBox : public ToggleControl {
 public:
  CheckBox(Form& form, std::string name, std::string caption, bool checked = false, Frame* parent = nullptr);

  // 1 or 0, as a row's status is.
  int Value() const { return Checked() ? 1 : 0; }
  void SetChecked(bool checked) { Assign(checked); }
  // Ticked for 1 and clear for anything else.
  void SetValue(int value) { Assign(value == 1); }
  void Press() { Assign(!Checked()); }
};

class OptionButton : public ToggleControl {
 public:
  OptionButton(Form& form, std::string name, std::string caption, bool checked = false, Frame* parent = nullptr);

  // Setting an option clears its fellows in the same frame; they do not run their handlers.
  void SetChecked(bool checked);
  void Press() { SetChecked(true); }
};

enum class BackColor { Window, ButtonFace };

class TextBox : public Control {
 public:
  TextBox(Form& form, std::string name, Frame* parent = nullptr, bool multi_line = false);

  const std::string& Text() const { return state_.text; }
  // Cut to the maximum length. The caret goes to the start. A different text runs the Change handler.
  void SetText(const std::string& text);

  std::size_t SelStart() const { return state_.sel_start; }
  std::size_t SelLength() const { return state_.sel_length; }
  // Positions in characters; what lies outside the text is brought to its nearest end.
  void Select(std::size_t start, std::size_t length);

  std::size_t MaxLength() const { return max_length_; }
  void SetMaxLength(std::size_t characters) { max_length_ = characters; }
  BackColor Back() const { return state_.back; }
  void SetBack(BackColor color) { state_.back = color; }
  bool MultiLine() const { return multi_line_; }

  // The characters that typing lets through beside backspace and return; empty for all. Pasted text isn't filtered.
  const std::string& Keys() const { return keys_; }
  void SetKeys(std::string characters) { keys_ = std::move(characters); }

  // A text box for source code, which a front end may show as a code editor.
  bool Code() const { return code_; }
  void SetCode(bool code) { code_ = code; }

  // The person's typing, key by key at the caret, in place of a selection: "\b" is backspace, "\r" return.
  void Type(const std::string& keys);
  // The person's paste over everything.
  void Paste(const std::string& text);

  std::function<void()> Change;

 protected:
  void KeepDesign() override { Control::KeepDesign(), designed_state_ = state_; }
  void RestoreDesign() override { Control::RestoreDesign(), state_ = designed_state_; }

 private:
  struct State {
    std::string text;
    std::size_t sel_start = 0, sel_length = 0;
    BackColor back = BackColor::Window;
  };
  void Put(const std::string& text, std::size_t caret);

  State state_, designed_state_;
  std::size_t max_length_ = 0;
  std::string keys_;
  bool multi_line_ = false, code_ = false;
};

// A list box or, without typing, a drop-down list.
class ListControl : public Control {
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
  ListControl(Form& form, Kind kind, std::string name, Frame* parent) : Control(form, kind, std::move(name), parent) {}
  void KeepDesign() override { Control::KeepDesign(), designed_state_ = state_; }
  void RestoreDesign() override { Control::RestoreDesign(), state_ = designed_state_; }

 private:
  struct State {
    std::vector<std::string> items;
    long selected = -1;
  };
  State state_, designed_state_;
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

// A list in report mode. Column 0 shows a row's text, column N its sub-item N - 1.
class RowList : public Control {
 public:
  struct Column {
    std::string Key, Header;
    int Width = 0;  // twips
  };

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

 protected:
  void KeepDesign() override { Control::KeepDesign(), designed_state_ = state_; }
  void RestoreDesign() override { Control::RestoreDesign(), state_ = designed_state_; }

 private:
  struct State {
    std::vector<Column> columns;
    std::vector<ListRow> rows;
    long selected = -1;
  };
  ListRow& At(long index);
  void MustBeNew(const std::string& key) const;

  State state_, designed_state_;
  bool check_boxes_;
};

}  // namespace qv
