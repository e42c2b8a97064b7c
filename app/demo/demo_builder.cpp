#include "app/demo/demo_builder.h"

#include "criteria/criterion_catalogue.h"
#include "editor/action_catalogue.h"
#include "platform/text.h"

namespace qv {

namespace {

// The description under which the action is stored.
std::string DescriptionOf(const DemoTask& task) {
  if (!task.description.empty()) return task.description;
  for (const ActionItem& item : ActionCatalogue()) {
    if (item.type.TaskType == task.type) return std::string(item.type.Description);
  }
  return "";
}

}  // namespace

DemoBuilder::DemoBuilder(unsigned seed) : random_(seed) {
  DataSet& data = server_.data;
  data.filters.emplace();
  data.criteria.emplace();
  data.tasks.emplace();
  data.postoffices.emplace();
  data.mailboxes.emplace();
  data.options.emplace();
  data.registry.emplace();
}

std::string DemoBuilder::NewGuidText() {
  std::string text;
  for (int half = 0; half < 2; ++half) {
    random_ += 0x9E3779B97F4A7C15ULL;
    unsigned long long mixed = random_;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9ULL;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBULL;
    mixed ^= mixed >> 31;
    for (int shift = 60; shift >= 0; shift -= 4) text += "0123456789ABCDEF"[(mixed >> shift) & 0xF];
  }
  return text;
}

void DemoBuilder::AddPostoffice(const DemoPostoffice& postoffice) {
  server_.data.postoffices->push_back({postoffice.name, postoffice.account, 1});
  const std::string folder = "postoffices/" + postoffice.name;
  server_.folders.push_back(folder + "/rules/Criteria");
  server_.folders.push_back(folder + "/mailboxes");
  for (const std::string& mailbox : postoffice.mailboxes) {
    server_.data.mailboxes->push_back({postoffice.name, mailbox});
    server_.folders.push_back(folder + "/mailboxes/" + mailbox + "/rules");
  }
}

void DemoBuilder::AddFilter(const DemoFilter& filter) {
  const std::string guid = NewGuidText();
  const std::string criteria_id = "CRT" + guid;
  server_.data.filters->push_back({"FLT" + guid, criteria_id, "", filter.description, filter.note, filter.status,
                                   filter.postoffice, filter.mailbox});
  AddCriteria(filter, criteria_id);
  for (const DemoTask& task : filter.tasks) {
    server_.data.tasks->push_back({criteria_id, NewGuidText(), task.type, DescriptionOf(task), task.status, task.values,
                                   filter.postoffice, filter.mailbox});
  }
  if (filter.script.empty()) return;
  const std::string folder =
      filter.postoffice.empty() ? "Filters/Criteria/" : "postoffices/" + filter.postoffice + "/rules/Criteria/";
  server_.files[folder + criteria_id + (filter.script_active ? ".QVS" : ".QV_")] = filter.script;
}

void DemoBuilder::AddCriteria(const DemoFilter& filter, const std::string& criteria_id) {
  for (const CriterionRow& born : CriterionCatalogue()) {
    CriteriaRow row{criteria_id, born.RuleID, "", born.Description, 0, "", 1, filter.postoffice, filter.mailbox};
    for (const DemoCriterion& criterion : filter.criteria) {
      if (std::to_string(criterion.rule) != row.RuleID) continue;
      row.Status = criterion.status;
      row.Values = criterion.values;
    }
    server_.data.criteria->push_back(row);
  }
}

void DemoBuilder::AddOption(int scope, const std::string& query, const std::string& name, const std::string& value) {
  server_.data.options->push_back({scope, query, name, value});
}

void DemoBuilder::AddWord(const std::string& key, const std::string& name, long long value) {
  server_.data.registry->push_back({key, name, "word", value, ""});
}

void DemoBuilder::AddFile(const std::string& path, const std::vector<std::string>& lines) {
  server_.files[path] = Join(lines, "\r\n") + "\r\n";
}

void DemoBuilder::AddSpamProtection(const std::vector<DemoSpamTest>& tests, int status) {
  server_.data.filters->push_back(
      {"{SPAM_FILTER}", "CRT{SPAM_FILTER}", "", "Spam protection", "Generated from the spam weights", status, "", ""});
  std::vector<std::string> defaults;
  std::vector<std::string> script = {"' Scores a message by the tests that it fails.", "Dim Score", "Score = 0"};
  for (const DemoSpamTest& test : tests) {
    defaults.push_back("[" + test.word + "]\t" + test.description + "\t" + std::to_string(test.positive) + "\t" +
                       std::to_string(test.negative));
    script.push_back("If SpamTest(\"" + test.word + "\") Then Score = Score + [" + test.word +
                     "_POS] Else Score = Score - [" + test.word + "_NEG]");
  }
  script.insert(
      script.end(),
      {"If Score >= [QV_HISPAM] Then", "  FilterResult = 3", "ElseIf Score >= [QV_MEDSPAM] Then", "  FilterResult = 2",
       "ElseIf Score >= [QV_LOWSPAM] Then", "  FilterResult = 1", "Else", "  FilterResult = 0", "End If"});
  server_.files["SPAMVAL.DEF"] = Join(defaults, "\r\n");
  AddFile("Filters/templates/{SPAM_FILTER}.QVS", script);
}

}  // namespace qv
