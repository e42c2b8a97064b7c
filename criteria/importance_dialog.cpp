#include "criteria/importance_dialog.h"

#include "services/text_utilities.h"

namespace qv {

frmCriteriaImportance::frmCriteriaImportance(Run& run)
    : CriterionForm(run, "frmCriteriaImportance", "Importance", "Enabled") {}

int frmCriteriaImportance::SetImportance(const std::string& criteria_id, const std::string& rule_id,
                                         const std::string& postoffice, const std::string& mailbox) {
  ShowPrepared([&] {
    FillList();
    CriteriaID = criteria_id;
    RuleID = rule_id;
    Postoffice = postoffice;
    Mailbox = mailbox;
    InitFormVariables();
    LoadFromProvider();
    chkStatus.SetValue(Status);
    SelectComboEntry(cboImportance, Values);
  });
  return result();
}

int frmCriteriaImportance::SetCriteria() {
  ShowPrepared([this] { FillList(); });
  return result();
}

void frmCriteriaImportance::FillList() {
  for (const char* word : {"Low", "Normal", "High"}) cboImportance.AddItem(word);
  cboImportance.SetListIndex(0);
}

void frmCriteriaImportance::cmdOK_Click() {
  Status = chkStatus.Value();
  Save(cboImportance.Text());
}

std::vector<Layout> frmCriteriaImportance::Body() const { return {layout::Field(Label1, cboImportance)}; }

Layout frmCriteriaImportance::Arrange() const { return ArrangeBelow({layout::Item(chkStatus)}); }

}  // namespace qv
