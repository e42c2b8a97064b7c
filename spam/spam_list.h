#pragma once

#include "platform/console.h"
#include "services/run.h"

namespace qv {

// The console's list of spam tests and what can be done to it.

// Adds a row for each test of the defaults, with its description and weights. Any error ends it quietly, and the rows
// made so far stay.
void LoadSpamItems(Run& run, ResultView& view);

// A double click on a row. True when the dialog has been opened, so that the list must be displayed anew; false for a
// row of another kind, and for a test whose weights can't be changed, after saying so. Raises RuntimeError.
bool EditSpamItem(Run& run, Console& console, const ListItem& item);

// Brings all weights back to their defaults once the user has agreed. True when that was done, so that the list must be
// displayed anew. Raises RuntimeError; what has been written by then stays.
bool ResetSpamWeights(Run& run, Console& console);

}  // namespace qv
