#pragma once

#include <string>
#include <vector>

namespace qv {

struct TokenValue {
  std::string token, value;
};

// The text after every occurrence of each pair's token has been replaced by its value, one pair after the other, so
// that a value may hold or form a token of a later pair. Compared exactly; an empty token changes nothing.
//
// Takes one pass over the text for each run of different tokens in brackets whose values have no brackets, and one for
// each other pair.
std::string ReplaceTokens(std::string text, const std::vector<TokenValue>& pairs);

}  // namespace qv
