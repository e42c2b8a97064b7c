#include "spam/thresholds.h"

#include "platform/text.h"
#include "services/text_utilities.h"

namespace qv {

namespace {

void Name(Option& option, const SpamThreshold& threshold) {
  option.Scope = 0;
  option.Query = "GLOBAL";
  option.ValueName = threshold.value_name;
}

}  // namespace

std::string ReadSpamThreshold(Option& option, const std::string& host, const SpamThreshold& threshold) {
  option.Host = host;
  option.SetHost();
  Name(option, threshold);
  option.GetOption();
  const std::string value = Trim(option.Value);
  return IsNumeric(value) ? value : threshold.default_value;
}

void StoreSpamThreshold(Option& option, const SpamThreshold& threshold, const std::string& value) {
  Name(option, threshold);
  option.Value = value;
  option.SetOption();
}

}  // namespace qv
