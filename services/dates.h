#pragma once

#include <optional>
#include <string_view>

namespace qv {

// The value of a text that reads as a date, a time or both, as days since 30 December 1899, or nothing. Understands
// m/d/y and y-m-d in any of their separators, months by name, and hours with AM or PM.
std::optional<double> DateValue(std::string_view text);

}  // namespace qv
