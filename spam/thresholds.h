#pragma once

#include <array>
#include <string>

#include "services/run.h"

namespace qv {

// One of the three scores at which the system spam filter marks a message.
struct SpamThreshold {
  const char* word;           // its name in messages
  const char* value_name;     // of the server option that keeps it
  const char* token;          // in the template of the filter's script
  const char* default_value;  // where the stored value is no number
};

inline constexpr std::array<SpamThreshold, 3> kSpamThresholds = {{
    {"low", "SpamThresholdLow", "[QV_LOWSPAM]", "40"},
    {"medium", "SpamThresholdMedium", "[QV_MEDSPAM]", "60"},
    {"high", "SpamThresholdHigh", "[QV_HISPAM]", "80"},
}};

// The stored value, without blanks at its ends, or the default; binds the object to the host. Raises RuntimeError for a
// server that can't be reached.
std::string ReadSpamThreshold(Option& option, const std::string& host, const SpamThreshold& threshold);

// Stores a value as it stands, on the server that the object is bound to.
void StoreSpamThreshold(Option& option, const SpamThreshold& threshold, const std::string& value);

}  // namespace qv
