#pragma once

#include <cstddef>
#include <string_view>

namespace qv {

// Calls `use(line)` for each line of a text, as a text stream reads one: without its line end, and with no empty line
// behind a line end that closes the text.
template <class Use>
void ForEachLine(std::string_view text, Use&& use) {
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (end != std::string_view::npos && !line.empty() && line.back() == '\r') line.remove_suffix(1);
    use(line);
  }
}

// The same without the empty lines.
template <class Use>
void ForEachFilledLine(std::string_view text, Use&& use) {
  ForEachLine(text, [&use](std::string_view line) {
    if (!line.empty()) use(line);
  });
}

// The field of a line at an index counted from 1, fields being separated by one tab; empty when there is none.
inline std::string_view Field(std::string_view line, int index) {
  for (; index > 1; --index) {
    const std::size_t tab = line.find('\t');
    if (tab == std::string_view::npos) return {};
    line.remove_prefix(tab + 1);
  }
  return line.substr(0, line.find('\t'));
}

}  // namespace qv
