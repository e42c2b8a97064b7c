#pragma once

#include "criteria/criterion_dialog.h"

namespace qv {

// A row without a parameter: it is on or off.
class FlagDialog : public CriterionDialog {
 public:
  ConfirmButtons buttons{*this};

 protected:
  using CriterionDialog::CriterionDialog;
};

// One that keeps the flag in Values as well.
class ValueFlagDialog : public FlagDialog {
 public:
  void GetFormControls() override;

 protected:
  using FlagDialog::FlagDialog;
};

class frmCriteriaItem : public ValueFlagDialog {
 public:
  explicit frmCriteriaItem(Run& run);
  void InitFormVariables() override;
};

class frmCriteriaSenderAuthenticated : public ValueFlagDialog {
 public:
  explicit frmCriteriaSenderAuthenticated(Run& run);
};

class frmCriteriaContainsVirus : public FlagDialog {
 public:
  explicit frmCriteriaContainsVirus(Run& run);
};

class frmCriteriaAllMessages : public FlagDialog {
 public:
  explicit frmCriteriaAllMessages(Run& run);
};

}  // namespace qv
