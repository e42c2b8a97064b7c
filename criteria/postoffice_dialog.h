#pragma once

#include "criteria/criterion_dialog.h"

namespace qv {

class frmCriteriaForPostoffice : public CriterionDialog {
 public:
  explicit frmCriteriaForPostoffice(Run& run);

  Label Label1{*this, "Label1", "Postoffice"};
  ListBox lstPostoffices{*this, "lstPostoffices"};
  ConfirmButtons buttons{*this};

  void GetFormControls() override;
  // Lists the server's postoffices and selects that of the row, or else the first. A store that fails ends the list in
  // silence.
  void LoadPostoffices();

 protected:
  void PrepareLists() override { Values.clear(); }
  void CompleteLists() override { LoadPostoffices(); }
  std::vector<Layout> Body() const override;
};

}  // namespace qv
