#pragma once

#include "actions/action_dialog.h"

namespace qv {

// The dialogs that hold nothing but a status.
class PlainActionDialog : public ActionDialog {
 public:
  EndControls end{*this};

 protected:
  using ActionDialog::ActionDialog;
  // What stands in the task goes back unchanged.
  std::string StoredValues() const override { return EditMode == kAdd ? std::string() : Values; }
};

class frmTaskBadMail : public PlainActionDialog {
 public:
  explicit frmTaskBadMail(Run& run);
};

class frmTaskDeleteMessage : public PlainActionDialog {
 public:
  explicit frmTaskDeleteMessage(Run& run);
};

class FrmTaskQuarantine : public PlainActionDialog {
 public:
  explicit FrmTaskQuarantine(Run& run);
};

// Adds the header that sends a message to the junk folder.
class frmTaskMarkasSpam : public PlainActionDialog {
 public:
  explicit frmTaskMarkasSpam(Run& run);

 protected:
  std::string StoredValues() const override { return std::string(action_types::kSpamHeader); }
};

// Serves the types that need no more than a status.
class frmTaskGeneric : public ForSeveralTypes<PlainActionDialog> {
 public:
  explicit frmTaskGeneric(Run& run);

 protected:
  void BeforeLoad() override;
};

}  // namespace qv
