#include "criteria/flag_dialogs.h"

namespace qv {

void ValueFlagDialog::GetFormControls() {
  FlagDialog::GetFormControls();
  Values = chkStatus.Checked() ? "1" : "0";
}

frmCriteriaItem::frmCriteriaItem(Run& run)
    : ValueFlagDialog(run, {"frmCriteriaItem", "Filter Rule Criteria", "Description goes here"}) {}

void frmCriteriaItem::InitFormVariables() {
  ValueFlagDialog::InitFormVariables();
  Frequency = -1;
}

frmCriteriaSenderAuthenticated::frmCriteriaSenderAuthenticated(Run& run)
    : ValueFlagDialog(run, {"frmCriteriaSenderAuthenticated", "Sender authenticated", "Sender has authenticated"}) {}

frmCriteriaContainsVirus::frmCriteriaContainsVirus(Run& run)
    : FlagDialog(run, {"frmCriteriaContainsVirus", "Contains Virus", "Message contains virus"}) {}

frmCriteriaAllMessages::frmCriteriaAllMessages(Run& run)
    : FlagDialog(run, {"frmCriteriaAllMessages", "All messages", "All messages"}) {}

}  // namespace qv
