#pragma once

#include <string>

#include "platform/list_controls.h"

namespace qv {

// What the dialogs with a list of words do alike.

// Whether the list still takes the text, measured as typed, with both joined by commas.
bool ListTakes(const ListBox& list, const std::string& text);

// The words of a stored text, just as they stand between the commas.
void ShowWords(ListBox& list, const std::string& values);

// Removes the selected word; the word behind it becomes the selected one, or the new last one. True when it was the
// only word. Without a selection the list stays as it is.
bool RemoveSelectedWord(ListBox& list);

}  // namespace qv
