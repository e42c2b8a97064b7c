#include "spam/token_replacement.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>

#include "platform/text.h"

namespace qv {

namespace {

bool HasBracket(std::string_view text) { return text.find_first_of("[]") != std::string_view::npos; }

// Occurrences of tokens of this form never overlap, and such a value neither brings an occurrence nor ends one.
bool IsPlain(const TokenValue& pair) {
  const std::string_view token = pair.token;
  return token.size() >= 2 && token.front() == '[' && token.back() == ']' &&
         !HasBracket(token.substr(1, token.size() - 2)) && !HasBracket(pair.value);
}

// A run of plain pairs with different tokens, replaced in one pass.
class PlainRun {
 public:
  bool empty() const { return values_.empty(); }
  // False, and nothing is added, when the token is there already.
  bool Add(const TokenValue& pair) {
    if (!numbers_.emplace(pair.token, values_.size() + 1).second) return false;
    values_.push_back(pair.value);
    return true;
  }
  std::string Replace(std::string_view text) const;

 private:
  std::size_t NumberOf(std::string_view token) const {
    const auto found = numbers_.find(token);
    return found == numbers_.end() ? 0 : found->second;
  }
  std::unordered_map<std::string_view, std::size_t> numbers_;  // of the pairs, counted from 1
  std::vector<std::string_view> values_;
};

// What lies between a "[" and the next "]" of the output is a token to its pair only if it was complete when that
// pair's turn came: values inside it must come from earlier pairs.
std::string PlainRun::Replace(std::string_view text) const {
  struct Opening {
    std::size_t position;  // of the "[" in the output
    std::size_t latest;    // the highest number of the pairs whose values stand behind it, or 0
  };
  std::vector<Opening> openings;
  std::string output;
  output.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    std::size_t next = text.size();
    if (openings.empty()) {
      next = std::min(next, text.find('[', at));
    } else {
      next = at;
      while (next < text.size() && text[next] != '[' && text[next] != ']') ++next;
    }
    output.append(text, at, next - at);
    if (next == text.size()) break;
    at = next + 1;
    if (text[next] == '[') {
      openings.push_back({output.size(), 0});
      output += '[';
      continue;
    }
    output += ']';
    const Opening opening = openings.back();
    const std::size_t number = NumberOf(std::string_view(output).substr(opening.position));
    if (number <= opening.latest) {
      openings.clear();  // a "]" that stays lets no earlier "[" begin a token
      continue;
    }
    output.resize(opening.position);
    output += values_[number - 1];
    openings.pop_back();
    if (!openings.empty()) openings.back().latest = std::max(openings.back().latest, number);
  }
  return output;
}

}  // namespace

std::string ReplaceTokens(std::string text, const std::vector<TokenValue>& pairs) {
  PlainRun plain;
  const auto finish_run = [&] {
    if (!plain.empty()) text = plain.Replace(text);
    plain = PlainRun();
  };
  for (const TokenValue& pair : pairs) {
    if (IsPlain(pair)) {
      if (plain.Add(pair)) continue;
      finish_run();
      plain.Add(pair);
    } else {
      finish_run();
      if (text.find(pair.token) != std::string::npos) text = Replace(text, pair.token, pair.value);
    }
  }
  finish_run();
  return text;
}

}  // namespace qv
