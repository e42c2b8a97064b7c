#pragma once

#include <string>
#include <string_view>

namespace qv {

// Code page 1252. The five bytes that it leaves undefined stand for the control characters of the same number.
std::string FromCodePage(std::string_view bytes);
// A character that the code page lacks becomes "?".
std::string ToCodePage(std::string_view text);

}  // namespace qv
