#pragma once

#include <string_view>
#include <vector>

#include "criteria/criterion_dialog.h"

namespace qv {

// The scopes at which a filter's list shows a row: every scope, the system's alone, none.
enum class Offered { All, System, Never };

struct CriterionRow {
  const char* RuleID;
  const char* Description;
  Offered offered;
  CriterionDialog* (*dialog)(Run& run);  // null for the row that is opened in a way of its own
};

// The rows that every filter has, in the order of their creation.
const std::vector<CriterionRow>& CriterionCatalogue();

// The row of that id, compared as text, or null.
const CriterionRow* FindCriterion(std::string_view rule_id);

}  // namespace qv
