#include "services/filter_rows.h"

namespace qv {

void SetListTemplate(Filter& filter, const std::string& postoffice, const std::string& mailbox) {
  SetFetchTemplate(filter, "", postoffice, mailbox);
}

void SetFetchTemplate(Filter& filter, const std::string& filter_entry_id, const std::string& postoffice,
                      const std::string& mailbox) {
  filter.ActionID.clear();
  filter.CriteriaID.clear();
  filter.Description.clear();
  filter.FilterEntryID = filter_entry_id;
  filter.Note.clear();
  filter.Status = -1;
  filter.Postoffice = postoffice;
  filter.Mailbox = mailbox;
}

void RemoveFilterEntry(Run& run, const std::string& filter_entry_id, const std::string& postoffice,
                       const std::string& mailbox, const std::string& host) {
  const auto filter = run.components.CreateFilter();
  filter->Host = host;
  filter->SetHost();
  SetFetchTemplate(*filter, filter_entry_id, postoffice, mailbox);
  filter->RemoveFilter();
}

void SetFilterStatus(Run& run, const std::string& filter_entry_id, int status, const std::string& postoffice,
                     const std::string& mailbox, const std::string& host) {
  const auto found = run.components.CreateFilter();
  found->Host = host;
  found->SetHost();
  SetFetchTemplate(*found, filter_entry_id, postoffice, mailbox);
  found->getfilter();

  const auto changed = run.components.CreateFilter();
  changed->Host = host;
  changed->SetHost();
  SetFetchTemplate(*changed, filter_entry_id, postoffice, mailbox);
  changed->EditFilter(filter_entry_id, status, found->Description, found->ActionID, found->Note, found->CriteriaID, 0);
}

bool GetFilterStatus(Run& run, const std::string& filter_entry_id, const std::string& postoffice,
                     const std::string& mailbox, const std::string& host) {
  const auto filter = run.components.CreateFilter();
  filter->Host = host;
  filter->SetHost();
  SetFetchTemplate(*filter, filter_entry_id, postoffice, mailbox);
  filter->getfilter();
  return filter->Status == 1;
}

}  // namespace qv
