#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "services/components.h"

namespace qv::test {

struct FilterRow {
  std::string FilterEntryID, CriteriaID, ActionID, Description, Note;
  int Status = 1;
  std::string Postoffice, Mailbox;
};

struct CriteriaRow {
  std::string CriteriaID, RuleID, CriteriaType, Description;
  int Status = 0;
  std::string Values;
  int Frequency = 1;
  std::string Postoffice, Mailbox;
};

struct TaskRow {
  std::string ActionID, TaskID, TaskType, Description;
  int Status = 1;
  std::string Values, Postoffice, Mailbox;
};

struct OptionRow {
  int Scope = 0;
  std::string Query, ValueName, Value;
};

// What one server holds.
struct ServerData {
  std::vector<FilterRow> filters;
  std::vector<CriteriaRow> criteria;
  std::vector<TaskRow> tasks;
  std::vector<std::string> postoffices;
  std::vector<OptionRow> options;
  std::map<std::string, std::string> words;  // "key|value name" in lower case, to decimal text
};

// Servers in memory behind the record classes, whose calls can be watched and made to fail.
class MemoryStore : public Components {
 public:
  MemoryStore();

  // The data of a host; the local server for an empty host or any case of "LOCALHOST". Made at first use by a test; an
  // object that is bound to a host that no test has used raises "The server 'X' is not known."
  ServerData& server(const std::string& host = "");

  // Every operation as "Class.Operation@HOST", in order, with the arguments or key fields of writes in parentheses,
  // such as "Criteria.EditCriteria@(1,0,,,text,values,-1)". Creation and SetHost stand as "Class.Create" and
  // "Class.SetHost@HOST". HOST is as the caller wrote it.
  std::vector<std::string> calls;
  // How often an operation ("Task.AddTask") was called, on any host.
  int CountOf(const std::string& operation) const;

  // Makes every call of an operation raise an error, or answer a result without doing anything. "Filter.Create" is the
  // creation of an object. `after` calls go well before.
  void Raise(const std::string& operation, const std::string& description, int after = 0);
  void Refuse(const std::string& operation, int result, int after = 0);
  void Heal() { faults_.clear(); }

  // Runs before each operation of that name, so that a row can vanish in between.
  std::function<void(const std::string& operation)> before;

  std::unique_ptr<Filter> CreateFilter() override;
  std::unique_ptr<Criteria> CreateCriteria() override;
  std::unique_ptr<Task> CreateTask() override;
  std::unique_ptr<Postoffice> CreatePostoffice() override;
  std::unique_ptr<Setting> CreateSetting() override;
  std::unique_ptr<Option> CreateOption() override;

  // For the record objects: notes the call; raises, or gives the refused result, where either has been set up.
  std::optional<int> Enter(const std::string& operation, const std::string& host,
                           const std::vector<std::string>& arguments);
  ServerData& Bound(const std::string& host);

 private:
  struct Fault {
    bool raises = false;
    std::string description;
    int result = 0;
    int after = 0;
  };
  std::map<std::string, ServerData> servers_;
  std::map<std::string, Fault> faults_;
};

}  // namespace qv::test
