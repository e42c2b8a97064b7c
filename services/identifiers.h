#pragma once

#include <string>
#include <string_view>

#include "platform/guid.h"

namespace qv {

// The FilterEntryID of the system spam filter.
inline constexpr std::string_view kSpamFilterID = "{SPAM_FILTER}";

// A new identifier: the GUID's upper-case hexadecimal digits without braces and dashes, of which a Data4 byte from A to
// F has one digit only. "00000000" when the platform refuses a GUID.
std::string NewGuidString(GuidSource& guids);

// `width` minus `length` zeros; none when that is below 0.
std::string ZeroPad(int width, int length);

// The token at a 1-based index of the text split on the delimiter, compared exactly; empty when there is none.
std::string GetToken(std::string_view text, std::string_view delimiter, int index);

// The text behind the tag and a dash, up to the next dash or the end. Where the tag is missing, the text behind as
// many characters as the tag and the dash have, all the same. Always true.
bool GetTaggedValue(std::string_view text, std::string_view tag, std::string& value);

}  // namespace qv
