#include "platform/forms.h"

namespace qv {

Form::Form(Toolkit& toolkit, std::string name, std::string caption) : toolkit_(toolkit), name_(std::move(name)) {
  state_.caption = std::move(caption);
}

std::optional<int> Form::ClientHeight() const {
  if (state_.height > 0) return state_.height - kWindowHeight;
  return designed_client_height_;
}

Control* Form::Find(const std::string& control_name) const {
  for (Control* control : controls_) {
    if (control->name() == control_name) return control;
  }
  return nullptr;
}

void Form::Load() {
  if (loaded_) return;
  if (designed_) {
    state_ = designed_state_;
    for (Control* control : controls_) control->RestoreDesign();
  } else {
    // The first loading: what the constructor has set is the design.
    designed_state_ = state_;
    for (Control* control : controls_) control->KeepDesign();
    designed_ = true;
  }
  focus_ = nullptr;
  loaded_ = true;
  try {
    Form_Load();
  } catch (...) {
    loaded_ = false;
    throw;
  }
}

void Form::ShowModal() {
  Load();
  if (!loaded_) return;
  if (!focus_) FocusFirst();
  toolkit_.ShowModal(*this);
}

void Form::ShowPrepared(const std::function<void()>& prepare) {
  Load();
  try {
    prepare();
  } catch (...) {
    Unload();
    throw;
  }
  ShowModal();
}

void Form::FocusFirst() {
  for (Control* control : controls_) {
    if (control->TakesFocus() && control->Showing() && control->Usable()) {
      SetFocus(*control);
      return;
    }
  }
}

void Form::SetFocus(Control& control) {
  if (!control.TakesFocus() || !control.Showing() || !control.Usable()) return;
  focus_ = &control;
  Control::Raise(control.GotFocus);
}

}  // namespace qv
