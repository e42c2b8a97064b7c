#pragma once

#include <vector>

#include "criteria/criterion_dialog.h"

namespace qv {

// A row whose Values is one of a few words, which are shown in other words. An unknown word shows as the first, and is
// saved as that.
class ChoiceDialog : public CriterionDialog {
 public:
  struct Choice {
    const char* shown;
    const char* stored;
  };

  Label Label1;
  ComboBox list;
  ConfirmButtons buttons{*this};

  void SetFormControls() override;
  void GetFormControls() override;

 protected:
  ChoiceDialog(Run& run, const CriterionFamily& family, const char* label, const char* list_name,
               std::vector<Choice> choices);

  void PrepareLists() override;
  std::vector<Layout> Body() const override;

 private:
  std::vector<Choice> choices_;
};

class frmCriteriaSPFMatch : public ChoiceDialog {
 public:
  explicit frmCriteriaSPFMatch(Run& run);
  ComboBox& cboSPF = list;
};

class frmCriteriaDKIMMatch : public ChoiceDialog {
 public:
  explicit frmCriteriaDKIMMatch(Run& run);
  ComboBox& cboDKIM = list;
};

// The one of these whose list the status enables.
class frmCriteriaFromConnector : public ChoiceDialog {
 public:
  explicit frmCriteriaFromConnector(Run& run);
  ComboBox& cboConnector = list;
  void SetFormControls() override;

 private:
  void chkStatus_Click();
};

}  // namespace qv
