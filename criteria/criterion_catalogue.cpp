#include "criteria/criterion_catalogue.h"

#include "criteria/attachment_dialog.h"
#include "criteria/choice_dialogs.h"
#include "criteria/field_dialogs.h"
#include "criteria/flag_dialogs.h"
#include "criteria/postoffice_dialog.h"
#include "criteria/word_list_dialog.h"

namespace qv {

namespace {

template <class Dialog>
CriterionDialog* Of(Run& run) {
  return &run.The<Dialog>();
}

using enum Offered;

}  // namespace

const std::vector<CriterionRow>& CriterionCatalogue() {
  static const std::vector<CriterionRow> rows = {
      {"1", "Where the Subject header line contains specific words", All, Of<frmCriteriaWordList>},
      {"2", "Where the message body contains specific words", All, Of<frmCriteriaWordList>},
      {"3", "Where the To header line contains specific words", All, Of<frmCriteriaWordList>},
      {"4", "Where the CC header line contains specific words", All, Of<frmCriteriaWordList>},
      {"5", "Where the To or CC header line contains specific words", All, Of<frmCriteriaWordList>},
      {"6", "Where the message is marked as priority", All, nullptr},
      {"7", "Where the From header line contains specific words", All, Of<frmCriteriaWordList>},
      {"8", "Where the message size is more than limit", All, Of<frmCriteriaSizeLimit>},
      {"9", "Where the message has attachments", All, Of<frmCriteriaAttachment>},
      {"10", "Where the message has an attachment", All, Of<frmCriteriaItem>},
      {"11", "Where the message is secure", Never, Of<frmCriteriaItem>},
      {"12", "Where a message header contains specific words", All, Of<frmCriteriaWordList>},
      {"13", "Where the message has over a certain spam probability", System, Of<frmCriteriaSpamProbability>},
      {"14", "Where the SPF tests return results matching", All, Of<frmCriteriaSPFMatch>},
      {"15", "Where the message contains a virus", System, Of<frmCriteriaContainsVirus>},
      {"16", "All Messages - Process this filter actions for all messages", All, Of<frmCriteriaAllMessages>},
      {"17", "Where the sender has authenticated", All, Of<frmCriteriaSenderAuthenticated>},
      {"18", "Where the originators IP address matches", All, Of<frmCriteriaIPMatch>},
      {"19", "Where the message is associated with this postoffice", All, Of<frmCriteriaForPostoffice>},
      {"20", "Where the message is associated with this connector", All, Of<frmCriteriaFromConnector>},
      {"21", "Where the message contains a URL to a blacklisted IP address", System, Of<frmCriteriaItem>},
      {"22", "Where the MIME boundary headers contain specific words", System, Of<frmCriteriaWordList>},
      {"23", "Where the sender IP address is whitelisted", System, Of<frmCriteriaItem>},
      {"24", "Where the message DomainKey verification return results matching", System, Of<frmCriteriaDKIMMatch>},
  };
  return rows;
}

const CriterionRow* FindCriterion(std::string_view rule_id) {
  for (const CriterionRow& row : CriterionCatalogue()) {
    if (row.RuleID == rule_id) return &row;
  }
  return nullptr;
}

CriterionDialog* DialogForRule(Run& run, const std::string& rule_id) {
  const CriterionRow* row = FindCriterion(rule_id);
  return row && row->dialog ? row->dialog(run) : nullptr;
}

}  // namespace qv
