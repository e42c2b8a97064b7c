#include "spam/spam_filter_script.h"

#include <utility>
#include <vector>

#include "services/identifiers.h"
#include "services/server_context.h"
#include "services/text_files.h"
#include "spam/text_lines.h"
#include "spam/thresholds.h"
#include "spam/token_replacement.h"
#include "spam/weight_tables.h"

namespace qv {

namespace {

std::string ReadTemplate(Run& run) {
  const std::string path =
      GetConfigurationDirectory(run, run.ServerHost) + "\\Filters\\templates\\" + std::string(kSpamFilterID) + ".QVS";
  return run.files.FileExists(path) ? run.files.ReadAll(path) : "";
}

// The steps from the template on. The weights come from the file as it has just been written.
void WriteSpamScript(Run& run, std::string script) {
  std::vector<TokenValue> pairs;
  ForEachFilledLine(ReadSpamValues(run), [&pairs](std::string_view line) {
    pairs.push_back({PositiveToken(Field(line, 1)), std::string(Field(line, 2))});
    pairs.push_back({NegativeToken(Field(line, 1)), std::string(Field(line, 3))});
  });
  const auto option = run.components.CreateOption();
  for (const SpamThreshold& threshold : kSpamThresholds) {
    pairs.push_back({threshold.token, ReadSpamThreshold(*option, run.ServerHost, threshold)});
  }
  WriteSystemFilterScript(run, std::string(kSpamFilterID), ReplaceTokens(std::move(script), pairs));
}

}  // namespace

void UpdateSpamWeight(Run& run, const std::string& token, const std::string& positive, const std::string& negative) {
  std::string script = ReadTemplate(run);
  MergeSpamWeights(run, SpamWeightChange{token, positive, negative});
  WriteSpamScript(run, std::move(script));
}

void RebuildSpamFilter(Run& run) {
  MergeSpamWeights(run, std::nullopt);
  WriteSpamScript(run, ReadTemplate(run));
}

void WriteSystemFilterScript(Run& run, const std::string& filter, const std::string& script) {
  const std::string path = GetConfigurationDirectory(run, run.ServerHost) + "\\Filters\\Criteria\\" + filter;
  WriteTextFile(run, path + ".QV_", script);
  WriteTextFile(run, path + ".QVS", script);
}

}  // namespace qv
