#pragma once

#include <string>

#include "services/run.h"

namespace qv {

// Operations on one filter row that the console's list and the filter pages share. Their results in the store are not
// looked at: a filter that is gone passes in silence.

// Removes the filter row alone; its criteria, tasks and script files stay.
void RemoveFilterEntry(Run& run, const std::string& filter_entry_id, const std::string& postoffice,
                       const std::string& mailbox, const std::string& host);

void SetFilterStatus(Run& run, const std::string& filter_entry_id, int status, const std::string& postoffice,
                     const std::string& mailbox, const std::string& host);

// Whether the filter is there and enabled.
bool GetFilterStatus(Run& run, const std::string& filter_entry_id, const std::string& postoffice,
                     const std::string& mailbox, const std::string& host);

// Brings an object's query fields to the template that lists the filters of a scope.
void SetListTemplate(Filter& filter, const std::string& postoffice, const std::string& mailbox);

// The same with the id of one filter.
void SetFetchTemplate(Filter& filter, const std::string& filter_entry_id, const std::string& postoffice,
                      const std::string& mailbox);

// Calls `use(filter)` for each filter of a scope in evaluation order.
template <class Use>
void ForEachFilter(Filter& filter, const std::string& postoffice, const std::string& mailbox, Use&& use) {
  SetListTemplate(filter, postoffice, mailbox);
  int result = filter.FindFirstFilter();
  while (result == 1) {
    use(static_cast<const Filter&>(filter));
    SetListTemplate(filter, postoffice, mailbox);
    result = filter.FindNextFilter();
  }
}

}  // namespace qv
