#include "editor/criteria_list.h"

#include "criteria/criterion_catalogue.h"
#include "criteria/criterion_dialog.h"
#include "criteria/importance_dialog.h"
#include "platform/runtime_error.h"
#include "platform/text.h"
#include "services/identifiers.h"

namespace qv {

namespace {

constexpr std::string_view kKeyStart = "CRITERIA-", kKeyMiddle = "-RULE-";

std::string KeyOf(const std::string& criteria_id, const std::string& rule_id) {
  return std::string(kKeyStart) + criteria_id + std::string(kKeyMiddle) + rule_id;
}

bool IsCriterionKey(const std::string& key) {
  return StartsWith(key, kKeyStart) && key.find(kKeyMiddle, kKeyStart.size()) != std::string::npos;
}

const char* StatusText(bool enabled) { return enabled ? "Enabled" : "Disabled"; }

// A rule that the catalogue doesn't know is always listed.
bool IsListed(const std::string& rule_id, bool system_scope) {
  const CriterionRow* row = FindCriterion(rule_id);
  if (!row) return true;
  return row->offered == Offered::All || (row->offered == Offered::System && system_scope);
}

// What some dialogs find emptied beside the fields that all get.
void EmptyFields(CriterionDialog& dialog, const std::string& rule_id) {
  const bool choice = rule_id == "14" || rule_id == "24";
  if (choice || rule_id == "18" || rule_id == "19") dialog.Values.clear();
  if (choice) {
    dialog.CriteriaType.clear();
    dialog.Description.clear();
    dialog.Frequency = -1;
  }
}

}  // namespace

CriteriaList::CriteriaList(Run& run, RowList& lvwCriteria) : run_(run), lvwCriteria_(lvwCriteria) {
  lvwCriteria_.DblClick = [this] { lvwCriteria_DblClick(); };
  lvwCriteria_.ItemCheck = [this](long index) { lvwCriteria_ItemCheck(index); };
}

void CriteriaList::Bind(const std::string& postoffice, const std::string& mailbox, const std::string& host) {
  postoffice_ = postoffice;
  mailbox_ = mailbox;
  host_ = host;
}

void CriteriaList::lvLoadCriteria(const std::string& ID, RowList& List, long SelectIndex) {
  const auto criteria = run_.components.CreateCriteria();
  criteria->Host = host_;
  criteria->SetHost();
  const auto set_template = [&](const std::string& criteria_id) {
    criteria->RuleID.clear();
    criteria->CriteriaID = criteria_id;
    criteria->CriteriaType.clear();
    criteria->Description.clear();
    criteria->Status = -1;
    criteria->Values.clear();
    criteria->Postoffice = postoffice_;
    criteria->Mailbox = mailbox_;
  };
  set_template(ID);
  List.Clear();
  const bool system_scope = mailbox_.empty() && postoffice_.empty();
  bool found = false;
  int result = criteria->FindFirstCriteria();
  while (result == 1) {
    found = true;
    if (IsListed(criteria->RuleID, system_scope)) {
      List.AddRow({KeyOf(criteria->CriteriaID, criteria->RuleID),
                   StatusText(criteria->Status == 1),
                   {criteria->Description},
                   false});
    }
    set_template(std::string(criteria->CriteriaID));
    result = criteria->FindNextCriteria();
  }
  if (found && SelectIndex > 0 && SelectIndex <= List.Count()) List.SelectRow(SelectIndex - 1);
}

void CriteriaList::lvwCriteria_DblClick() {
  if (lvwCriteria_.Selected() < 0) return;
  const std::string key = lvwCriteria_.Row(lvwCriteria_.Selected()).Key;
  if (IsCriterionKey(key)) EditCriterion(key);
}

void CriteriaList::EditCriterion(const std::string& key) {
  std::string rule_id, criteria_id;
  GetTaggedValue(key, "RULE", rule_id);
  GetTaggedValue(key, "CRITERIA", criteria_id);

  int result = 0;
  if (rule_id == "6") {
    // This dialog isn't told the host: it works with the one that it already holds.
    result = run_.The<frmCriteriaImportance>().SetImportance(criteria_id, rule_id, postoffice_, mailbox_);
  } else if (CriterionDialog* dialog = DialogForRule(run_, rule_id)) {
    dialog->CriteriaID = criteria_id;
    dialog->RuleID = rule_id;
    dialog->Mailbox = mailbox_;
    dialog->Postoffice = postoffice_;
    dialog->Host = host_;
    dialog->Status = -1;
    EmptyFields(*dialog, rule_id);
    result = dialog->SetCriteria();
  } else {
    run_.toolkit.ShowMessage("This criteria has no editable options.", "Warning", MessageIcon::Information);
    return;
  }
  if (result == 1 || result == 2) lvwCriteria_.SetText(lvwCriteria_.Selected(), StatusText(result == 1));
}

// The list is shown without check boxes; a front end that has them all the same switches the row on and off here.
void CriteriaList::lvwCriteria_ItemCheck(long index) {
  try {
    const ListRow row = lvwCriteria_.Row(index);
    if (!IsCriterionKey(row.Key)) return;
    std::string rule_id;
    const auto criteria = run_.components.CreateCriteria();
    criteria->Host = host_;
    criteria->SetHost();
    GetTaggedValue(row.Key, "CRITERIA", criteria->CriteriaID);
    GetTaggedValue(row.Key, "RULE", rule_id);
    criteria->RuleID = rule_id;
    criteria->Status = -1;
    criteria->Frequency = -1;
    criteria->Description.clear();
    criteria->CriteriaType.clear();
    criteria->Values.clear();
    criteria->Mailbox = mailbox_;
    criteria->Postoffice = postoffice_;
    criteria->GetCriteria();
    const int result = criteria->EditCriteria(rule_id, row.Checked ? 1 : 0, "", criteria->CriteriaType,
                                              criteria->Description, criteria->Values, criteria->Frequency);
    if (result != 1) run_.toolkit.ShowMessage("Unable to update Criteria", "Error", MessageIcon::Critical);
  } catch (const RuntimeError& error) {
    run_.toolkit.ShowMessage("Error saving criteria: " + error.description(), "Error", MessageIcon::Critical);
  }
}

}  // namespace qv
