#include "spam/weight_tables.h"

#include <vector>

#include "platform/runtime_error.h"
#include "platform/text.h"
#include "services/server_context.h"
#include "services/text_utilities.h"
#include "spam/text_lines.h"

namespace qv {

namespace {

constexpr long kKeyInUse = 457;
constexpr long kPastEndOfFile = 62;

std::string DefaultsPath(Run& run) { return GetConfigurationDirectory(run, run.ServerHost) + "\\SPAMVAL.DEF"; }
std::string ValuesPath(Run& run) { return GetConfigurationDirectory(run, run.ServerHost) + "\\SPAMVAL.TAB"; }

std::string MarkToken(std::string_view token, std::string_view mark) {
  std::string marked;
  marked.reserve(token.size() + mark.size());
  for (const char c : token) {
    if (c == ']') marked += mark;
    marked += c;
  }
  return marked;
}

void AddOnce(SpamWeights& weights, std::string token, std::string_view weight) {
  if (!weights.emplace(std::move(token), weight).second) {
    throw RuntimeError(kKeyInUse, "This key is already associated with an element of this collection");
  }
}

// A stream that is read line by line finds nothing in an empty file, where reading everything at once is an error.
std::string ReadLines(Run& run, const std::string& path) {
  if (!run.files.FileExists(path)) return "";
  try {
    return run.files.ReadAll(path);
  } catch (const RuntimeError& error) {
    if (error.number() != kPastEndOfFile) throw;
    return "";
  }
}

void AppendLine(std::string& text, std::string_view token, std::string_view positive, std::string_view negative) {
  text.append(token).append(1, '\t').append(positive).append(1, '\t').append(negative);
}

}  // namespace

std::string PositiveToken(std::string_view token) { return MarkToken(token, "_POS"); }
std::string NegativeToken(std::string_view token) { return MarkToken(token, "_NEG"); }

SpamWeights ReadSpamWeights(Run& run) {
  SpamWeights weights;
  IgnoreErrors([&] {
    ForEachFilledLine(ReadSpamValues(run), [&weights](std::string_view line) {
      if (!IsNumeric(Field(line, 2))) return;
      AddOnce(weights, PositiveToken(Field(line, 1)), Field(line, 2));
      AddOnce(weights, NegativeToken(Field(line, 1)), Field(line, 3));
    });
  });
  return weights;
}

std::string WeightOf(const SpamWeights& weights, const std::string& token) {
  const auto found = weights.find(token);
  return found == weights.end() ? std::string() : found->second;
}

std::string ReadSpamDefaults(Run& run) { return ReadLines(run, DefaultsPath(run)); }
std::string ReadSpamValues(Run& run) { return ReadLines(run, ValuesPath(run)); }

void MergeSpamWeights(Run& run, const std::optional<SpamWeightChange>& change) {
  const SpamWeights weights = ReadSpamWeights(run);
  std::string output;
  ForEachFilledLine(ReadSpamDefaults(run), [&](std::string_view line) {
    if (!output.empty()) output += "\r\n";
    const std::string_view token = Field(line, 1);
    if (change && token == change->token) {
      AppendLine(output, token, change->positive, change->negative);
      return;
    }
    const std::string positive = WeightOf(weights, PositiveToken(token));
    if (positive.empty()) {
      AppendLine(output, token, Field(line, 3), Field(line, 4));
    } else {
      AppendLine(output, token, positive, WeightOf(weights, NegativeToken(token)));
    }
  });
  run.files.Write(ValuesPath(run), output);
}

void WriteDefaultSpamWeights(Run& run) {
  std::vector<std::string> lines;
  ForEachLine(ReadSpamDefaults(run), [&lines](std::string_view line) {
    std::string& value = lines.emplace_back();
    if (!line.empty()) AppendLine(value, Field(line, 1), Field(line, 3), Field(line, 4));
  });
  run.files.Write(ValuesPath(run), Join(lines, "\r\n"));
}

}  // namespace qv
