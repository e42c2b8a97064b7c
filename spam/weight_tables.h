#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "services/run.h"

namespace qv {

// The weights of the server's spam tests, in two files of the configuration directory with one test a line and its
// fields separated by tabs. The defaults come with the server: token, description, weight when the test matches, weight
// when it does not. The current values are written here alone: token and the two weights, in the order of the defaults.

// The token of a test's weight when it matches, and when it does not: every "]" becomes "_POS]" or "_NEG]".
std::string PositiveToken(std::string_view token);
std::string NegativeToken(std::string_view token);

// From the two tokens of each test to its weights.
using SpamWeights = std::unordered_map<std::string, std::string>;

// The current values, of the lines whose positive weight is numeric. Any error, also that of a test that stands twice,
// ends the reading quietly, and what has been read by then is the result.
SpamWeights ReadSpamWeights(Run& run);

// The weight of a token; empty when there is none.
std::string WeightOf(const SpamWeights& weights, const std::string& token);

// The text of the defaults and of the current values; empty when the file is missing or empty. Raises RuntimeError when
// it can't be read.
std::string ReadSpamDefaults(Run& run);
std::string ReadSpamValues(Run& run);

// New weights of one test.
struct SpamWeightChange {
  std::string token, positive, negative;
};

// Rewrites the current values whole: the tests of the defaults, each with the change that names it, else its weights
// from the current values, else its defaults. Raises RuntimeError when a file can't be read or written.
void MergeSpamWeights(Run& run, const std::optional<SpamWeightChange>& change);

// Rewrites the current values from the defaults alone, whose empty lines are kept. Raises as MergeSpamWeights does.
void WriteDefaultSpamWeights(Run& run);

}  // namespace qv
