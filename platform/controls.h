#pragma once

#include <functional>
#include <string>
#include <utility>

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

struct ToggleState {
  std::string caption;
  bool checked = false;
};

// A check box or an option: something that is set or clear. A different value runs the click handler, the same value
// doesn't.
class ToggleControl : public StatefulControl<ToggleState> {
 public:
  const std::string& Caption() const { return state_.caption; }
  void SetCaption(std::string caption) { state_.caption = std::move(caption); }
  bool Checked() const { return state_.checked; }

  std::function<void()> Click;

 protected:
  ToggleControl(Form& form, Kind kind, std::string name, std::string caption, Frame* parent);
  void Assign(bool checked);
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

}  // namespace qv
