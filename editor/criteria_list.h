#pragma once

#include <string>

#include "platform/list_controls.h"
#include "services/run.h"

namespace qv {

// The list of a filter's criteria in the management dialog: its rows, and the way from a row into its dialog. It
// attaches the list's handlers. A row's key alone ties it to its record.
class CriteriaList {
 public:
  CriteriaList(Run& run, RowList& lvwCriteria);
  CriteriaList(const CriteriaList&) = delete;
  CriteriaList& operator=(const CriteriaList&) = delete;

  // The scope and server of the rows from here on.
  void Bind(const std::string& postoffice, const std::string& mailbox, const std::string& host);

  // Fills the list with the filter's criteria that its scope offers, in store order, and selects the row counted from 1
  // where there is one; 0 selects none. Raises RuntimeError.
  void lvLoadCriteria(const std::string& ID, RowList& List, long SelectIndex);

 private:
  void lvwCriteria_DblClick();
  void lvwCriteria_ItemCheck(long index);
  void EditCriterion(const std::string& key);

  Run& run_;
  RowList& lvwCriteria_;
  std::string postoffice_, mailbox_, host_;
};

}  // namespace qv
