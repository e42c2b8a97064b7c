#include "criteria/choice_dialogs.h"

#include <algorithm>
#include <utility>

namespace qv {

ChoiceDialog::ChoiceDialog(Run& run, const CriterionFamily& family, const char* label, const char* list_name,
                           std::vector<Choice> choices)
    : CriterionDialog(run, family),
      Label1(*this, "Label1", label),
      list(*this, list_name),
      choices_(std::move(choices)) {}

void ChoiceDialog::PrepareLists() {
  list.Clear();
  for (const Choice& choice : choices_) list.AddItem(choice.shown);
  list.SetListIndex(0);
}

void ChoiceDialog::SetFormControls() {
  CriterionDialog::SetFormControls();
  for (std::size_t n = 0; n < choices_.size(); ++n) {
    if (Values == choices_[n].stored) list.SetListIndex(static_cast<long>(n));
  }
}

void ChoiceDialog::GetFormControls() {
  CriterionDialog::GetFormControls();
  Values = choices_[static_cast<std::size_t>(std::max(0L, list.ListIndex()))].stored;
}

std::vector<Layout> ChoiceDialog::Body() const { return {layout::Field(Label1, list)}; }

frmCriteriaSPFMatch::frmCriteriaSPFMatch(Run& run)
    : ChoiceDialog(run, {"frmCriteriaSPFMatch", "SPF Result matches", "SPF result matches"},
                   "SPF result matches:", "cboSPF",
                   {{"Fail", "fail"},
                    {"Pass", "pass"},
                    {"Soft Fail", "softfail"},
                    {"Error", "error"},
                    {"Neutral", "neutral"},
                    {"None", "none"}}) {}

frmCriteriaDKIMMatch::frmCriteriaDKIMMatch(Run& run)
    : ChoiceDialog(run, {"frmCriteriaDKIMMatch", "DKIM Result matches", "DKIM result matches"},
                   "DKIM result matches:", "cboDKIM", {{"Fail", "0"}, {"Pass", "1"}, {"Indeterminate", "2"}}) {}

frmCriteriaFromConnector::frmCriteriaFromConnector(Run& run)
    : ChoiceDialog(run, {"frmCriteriaFromConnector", "From connector", "Messages arriving from specific connector"},
                   "Connector:", "cboConnector",
                   {{"List server connector", "LS"},
                    {"POP Retrieval connector", "POP"},
                    {"Postoffice connector", "SF"},
                    {"SMTP connector", "SMTP"}}) {
  chkStatus.Click = [this] { chkStatus_Click(); };
}

void frmCriteriaFromConnector::SetFormControls() {
  ChoiceDialog::SetFormControls();
  chkStatus_Click();
}

void frmCriteriaFromConnector::chkStatus_Click() { cboConnector.SetEnabled(chkStatus.Checked()); }

}  // namespace qv
