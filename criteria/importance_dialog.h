#pragma once

#include "criteria/criterion_dialog.h"

namespace qv {

// The message's priority. It is given no host, so that its row is always the local server's, whichever server the
// console is connected to.
class frmCriteriaImportance : public CriterionForm {
 public:
  explicit frmCriteriaImportance(Run& run);

  Label Label1{*this, "Label1", "Importance to match:"};
  ComboBox cboImportance{*this, "cboImportance"};
  ConfirmButtons buttons{*this};

  // Shows the dialog on a row, with the result of CriterionDialog::SetCriteria. A row that can't be loaded shows as a
  // disabled one.
  int SetImportance(const std::string& criteria_id, const std::string& rule_id, const std::string& postoffice,
                    const std::string& mailbox);
  // Shows the dialog on no row.
  int SetCriteria();

  void cmdOK_Click() override;
  Layout Arrange() const override;

 protected:
  std::vector<Layout> Body() const override;

 private:
  void FillList();
};

}  // namespace qv
