#pragma once

#include "actions/text_dialog.h"

namespace qv {

// Names the program that the server starts for a message. It starts nothing itself.
class frmTaskExecuteApp : public TextActionDialog {
 public:
  explicit frmTaskExecuteApp(Run& run);

  Label Label1{*this, "Label1", "Application to execute:"};
  TextBox txtApp{*this, "txtApp"};
  Label Label2{*this, "Label2", "Parameters:"};
  TextBox txtParameters{*this, "txtParameters"};
  Label Label3{*this, "Label3", "Various system variables can be used as parameters:", Label::Look::Help};
  Label Label4{*this, "Label4", "[ID] = The message ID", Label::Look::Help};
  Label Label5{*this, "Label5", "[CONNECTOR] = The Quillvane connector the message has come from", Label::Look::Help};
  Label Label6{*this, "Label6", "[TIME] = The system time", Label::Look::Help};
  EndControls end{*this};

 protected:
  bool Validate() override;
  std::vector<Layout> Fields() const override;
};

}  // namespace qv
