#pragma once

#include "actions/action_dialog.h"

namespace qv {

// Forwards a copy of the message. The address is checked for an enabled action only.
class frmForward : public ActionDialog {
 public:
  explicit frmForward(Run& run);

  Label Label1{*this, "Label1", "Email address:"};
  TextBox txtData{*this, "txtData"};
  EndControls end{*this};

 protected:
  void ShowTask(const Task& task) override;
  bool Validate() override;
  std::string StoredValues() const override { return "[SMTP:" + txtData.Text() + "]"; }
  std::vector<Layout> Fields() const override { return {layout::Field(Label1, txtData)}; }
};

}  // namespace qv
