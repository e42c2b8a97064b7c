#pragma once

#include "criteria/criterion_dialog.h"

namespace qv {

// A row whose Values is the text of one field, just as it stands there. The status enables the field, and the text
// counts only with the status ticked; it is saved in either case.
class FieldDialog : public CriterionDialog {
 public:
  TextBox field;

  void SetFormControls() override;
  void GetFormControls() override;

 protected:
  FieldDialog(Run& run, const CriterionFamily& family, const char* field_name);

  virtual void chkStatus_Click();
  bool Validate() override { return !chkStatus.Checked() || ValidateField(); }
  virtual bool ValidateField() = 0;
};

class frmCriteriaSizeLimit : public FieldDialog {
 public:
  explicit frmCriteriaSizeLimit(Run& run);
  TextBox& txtSize = field;
  Label Label1{*this, "Label1", "bytes"};
  ConfirmButtons buttons{*this};

 protected:
  bool ValidateField() override;
  std::vector<Layout> Body() const override;
};

class frmCriteriaSpamProbability : public FieldDialog {
 public:
  explicit frmCriteriaSpamProbability(Run& run);
  TextBox& txtProb = field;
  Label Label1{*this, "Label1", "%"};
  Label Label2{*this, "Label2", "(values over 90% recommended)", Label::Look::Help};
  ConfirmButtons buttons{*this};

 protected:
  bool ValidateField() override;
  std::vector<Layout> Body() const override;
};

class frmCriteriaIPMatch : public FieldDialog {
 public:
  explicit frmCriteriaIPMatch(Run& run);
  TextBox& txtIP = field;
  Label Label1{*this, "Label1", "IP address:"};
  ConfirmButtons buttons{*this};

 protected:
  void chkStatus_Click() override;
  bool ValidateField() override;
  std::vector<Layout> Body() const override;
};

// One search string in a header. No row is edited with it.
class frmCriteriaHeader : public FieldDialog {
 public:
  explicit frmCriteriaHeader(Run& run);
  TextBox& txtString = field;
  Label Label1{*this, "Label1", "String to search for:"};
  ConfirmButtons buttons{*this};

 protected:
  bool ValidateField() override;
  std::vector<Layout> Body() const override;
};

}  // namespace qv
