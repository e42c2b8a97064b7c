#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/controls.h"
#include "platform/layout.h"
#include "platform/list_controls.h"
#include "platform/text_box.h"
#include "platform/toolkit.h"

namespace qv {

// A dialog or a property page: named controls, a caption, a height, and the handlers that its class attaches. It knows
// no window system. A form is one instance for a whole run: its fields survive unloading, its controls don't.
class Form {
 public:
  // How wide a front end should draw it.
  enum class Size { Small, Medium, Large };

  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;
  virtual ~Form() = default;

  const std::string& name() const { return name_; }
  const std::string& Caption() const { return state_.caption; }
  void SetCaption(std::string caption) { state_.caption = std::move(caption); }

  // The outer height in twips where it is settled, otherwise 0.
  int Height() const { return state_.height; }
  void SetHeight(int twips) { state_.height = twips; }
  // What the window's frame and title take of the outer height, in twips.
  static constexpr int kWindowHeight = 405;
  // The height of the area that the controls stand in, in twips; nothing when neither it nor the outer height is
  // settled.
  std::optional<int> ClientHeight() const;

  const std::vector<Control*>& controls() const { return controls_; }
  // The control of that name, or null.
  Control* Find(const std::string& control_name) const;
  virtual Layout Arrange() const { return {}; }
  virtual Size size() const { return Size::Small; }

  // Brings every control back to its designed state, then runs the form's own loading. Does nothing when the form is
  // loaded already. Every routine that touches the controls of a form that may not be shown loads it first.
  void Load();
  bool Loaded() const { return loaded_; }
  // Takes the form away; a modal wait on it ends.
  void Unload() { loaded_ = false; }
  // Loads the form if need be, and returns when it has been unloaded; at once when its own loading has unloaded it.
  void ShowModal();

  // The control with the focus, or null.
  Control* Focus() const { return focus_; }
  // Brings the focus to a control that can take it and runs its handler; otherwise the focus stays.
  void SetFocus(Control& control);

 protected:
  Form(Toolkit& toolkit, std::string name, std::string caption);

  Toolkit& toolkit() const { return toolkit_; }
  void SetDesignedClientHeight(int twips) { designed_client_height_ = twips; }
  // What the form does when it is loaded, after its controls have their designed state.
  virtual void Form_Load() {}
  // Loads the form, prepares it and shows it. A preparation that fails takes the form away again, so that the next
  // opening finds the design.
  void ShowPrepared(const std::function<void()>& prepare);

 private:
  friend class Control;
  struct State {
    std::string caption;
    int height = 0;
  };
  void FocusFirst();

  Toolkit& toolkit_;
  std::string name_;
  State state_, designed_state_;
  std::optional<int> designed_client_height_;
  std::vector<Control*> controls_;
  Control* focus_ = nullptr;
  bool designed_ = false, loaded_ = false;
};

}  // namespace qv
