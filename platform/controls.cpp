#include "platform/controls.h"

#include <optional>

#include "platform/forms.h"

namespace qv {

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
    : StatefulControl(form, kind, std::move(name), parent) {
  state_.caption = std::move(caption);
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

}  // namespace qv
