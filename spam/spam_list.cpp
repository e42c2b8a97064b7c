#include "spam/spam_list.h"

#include "platform/runtime_error.h"
#include "services/identifiers.h"
#include "services/text_utilities.h"
#include "spam/spam_filter_script.h"
#include "spam/text_lines.h"
#include "spam/weight_dialog.h"
#include "spam/weight_tables.h"

namespace qv {

namespace {

constexpr const char* kWeightIcon = "4";

// The weight that stands for a certain verdict, which the list shows in words.
constexpr std::string_view kCertain = "1000";

std::string Display(const std::string& weight, std::string_view default_weight, const char* certain_text) {
  const std::string_view used = weight.empty() ? default_weight : weight;
  return used == kCertain ? certain_text : std::string(used);
}

// Whether a weight in the table says something else than the default.
bool IsChanged(const std::string& weight, std::string_view default_weight) {
  return !weight.empty() && weight != default_weight;
}

std::string SubItem(const ListItem& item, std::size_t number) {
  return number <= item.SubItems.size() ? std::string(item.SubItems[number - 1].Text) : "";
}

}  // namespace

void LoadSpamItems(Run& run, ResultView& view) {
  IgnoreErrors([&] {
    const SpamWeights weights = ReadSpamWeights(run);
    view.ListView.Tag = "SYSFILTERS";
    ForEachFilledLine(ReadSpamDefaults(run), [&](std::string_view line) {
      const std::string token(Field(line, 1));
      const std::string key = "SYSFILTER-" + token;
      ListItem& item = view.ListView.ListItems.Add(key, token, kWeightIcon);
      item.Tag = key;
      const std::string positive = WeightOf(weights, PositiveToken(token));
      const std::string negative = WeightOf(weights, NegativeToken(token));
      item.SubItems = {{key + "1", std::string(Field(line, 2))},
                       {key + "2", Display(positive, Field(line, 3), "Always marked as spam")},
                       {key + "3", Display(negative, Field(line, 4), "Never marked as spam")}};
      if (IsChanged(positive, Field(line, 3))) view.ListView.Emphasis.insert(key + "2");
      if (IsChanged(negative, Field(line, 4))) view.ListView.Emphasis.insert(key + "3");
    });
  });
}

bool EditSpamItem(Run& run, Console& console, const ListItem& item) {
  if (GetToken(item.Tag, "-", 1) != "SYSFILTER") return false;
  const std::string positive = SubItem(item, 2);
  const std::string negative = SubItem(item, 3);
  if (!IsNumeric(positive) || !IsNumeric(negative)) {
    console.ConsoleMsgBox("This spam weight cannot be changed.", "Warning");
    return false;
  }
  run.The<frmAdjustSpamWeight>().AdjustSpamWeight(GetToken(item.Tag, "-", 2), positive, negative, run.ServerHost);
  return true;
}

bool ResetSpamWeights(Run& run, Console& console) {
  if (console.ConsoleMsgBox("Do you wish to reset all values to their default and lose your changes?", "Reset values",
                            MessageIcon::Exclamation, MessageButtons::YesNo) != MessageAnswer::Yes) {
    return false;
  }
  WriteDefaultSpamWeights(run);
  RebuildSpamFilter(run);
  return true;
}

}  // namespace qv
