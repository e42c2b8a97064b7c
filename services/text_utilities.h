#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/list_controls.h"
#include "platform/text_box.h"
#include "services/run.h"

namespace qv {

// The value of a text that reads as a number as the desktop's runtime reads one, or nothing: blanks at the ends, a sign
// on either side or parentheses, a currency sign, thousands separators, a decimal point, an exponent after E or D, or
// &H and &O digits. Digits without an exponent are a number however many they are, infinity where they are too many.
std::optional<double> NumericValue(std::string_view text);
bool IsNumeric(std::string_view text);

// The text between an opening tag, given with its brackets, and its closing tag; empty where either is missing.
std::string GetTagContents(std::string_view text, std::string_view opening_tag);

// An address without the form "[SMTP:" ... "]". Where "[SMTP" stands anywhere in the text, its first 6 characters go,
// whatever they are, and one "]" at its end.
std::string StripSmtpAddress(std::string_view address);

// Selects the first entry that equals the text; where there is none the selection stays.
void SelectComboEntry(ListControl& list, const std::string& text);

// Whether the Tab key has brought the focus, asked while a control gets it.
bool IsTabKeyDown(Run& run);

// What most text boxes do when they get the focus: the whole text is selected if there is any and the Tab key brought
// the focus.
void SelectAllOnTab(Run& run, TextBox& box);

}  // namespace qv
