#include "tests/support/memory_store.h"

#include <algorithm>

#include "platform/runtime_error.h"
#include "platform/text.h"

namespace qv::test {

namespace {

std::string Arguments(const std::vector<std::string>& arguments) {
  std::string text = "(";
  text += Join(arguments, ",");
  text += ")";
  return text;
}

bool Fits(const std::string& wanted, const std::string& value) { return wanted.empty() || wanted == value; }
bool Fits(int wanted, int value) { return wanted == -1 || wanted == value; }

// The binding of an object to a server, and the entry of its operations.
template <class Record>
class Bindable : public Record {
 public:
  Bindable(MemoryStore& store, std::string name) : store_(store), name_(std::move(name)) {}

  void SetHost() override {
    int result = 0;
    store_.Enter(name_ + ".SetHost", this->Host, "", result);
    data_ = &store_.Bound(this->Host);
  }

 protected:
  bool Refused(const std::string& operation, const std::string& arguments, int& result) {
    return store_.Enter(name_ + "." + operation, this->Host, arguments, result);
  }
  ServerData& data() {
    if (!data_) throw RuntimeError(name_ + " is not bound to a server.");
    return *data_;
  }
  ServerData& DataOrLocal() { return data_ ? *data_ : store_.server(); }

 private:
  MemoryStore& store_;
  std::string name_;
  ServerData* data_ = nullptr;
};

template <class Row, class Record>
bool SameScope(const Row& row, const Record& record) {
  return row.Postoffice == record.Postoffice && row.Mailbox == record.Mailbox;
}

class MemoryFilter : public Bindable<Filter> {
 public:
  explicit MemoryFilter(MemoryStore& store) : Bindable(store, "Filter") {}

  int FindFirstFilter() override {
    int result = 0;
    if (Refused("FindFirstFilter", "", result)) return result;
    found_.clear();
    next_ = 0;
    for (const FilterRow& row : data().filters) {
      if (SameScope(row, *this) && Fits(FilterEntryID, row.FilterEntryID) && Fits(CriteriaID, row.CriteriaID) &&
          Fits(ActionID, row.ActionID) && Fits(Description, row.Description) && Fits(Note, row.Note) &&
          Fits(Status, row.Status)) {
        found_.push_back(row);
      }
    }
    return Hand();
  }
  int FindNextFilter() override {
    int result = 0;
    if (Refused("FindNextFilter", "", result)) return result;
    return Hand();
  }
  int getfilter() override {
    int result = 0;
    if (Refused("getfilter", Arguments({FilterEntryID}), result)) return result;
    FilterRow* row = Row();
    if (!row) return 0;
    Take(*row);
    return 1;
  }
  int AddFilter() override {
    int result = 0;
    if (Refused("AddFilter", Arguments({FilterEntryID}), result)) return result;
    if (Row()) return 0;
    data().filters.push_back({FilterEntryID, CriteriaID, ActionID, Description, Note, Status, Postoffice, Mailbox});
    return 1;
  }
  int EditFilter(const std::string& filter_entry_id, int status, const std::string& description,
                 const std::string& action_id, const std::string& note, const std::string& criteria_id,
                 int order) override {
    int result = 0;
    if (Refused("EditFilter",
                Arguments({filter_entry_id, std::to_string(status), description, action_id, note, criteria_id,
                           std::to_string(order)}),
                result)) {
      return result;
    }
    FilterRow* row = Row();
    if (!row) return 0;
    *row = {filter_entry_id, criteria_id, action_id, description, note, status, Postoffice, Mailbox};
    if (order > 0) Move(*row, order);
    return 1;
  }
  int RemoveFilter() override {
    int result = 0;
    if (Refused("RemoveFilter", Arguments({FilterEntryID}), result)) return result;
    FilterRow* row = Row();
    if (!row) return 0;
    data().filters.erase(data().filters.begin() + (row - data().filters.data()));
    return 1;
  }

 private:
  FilterRow* Row() {
    for (FilterRow& row : data().filters) {
      if (SameScope(row, *this) && row.FilterEntryID == FilterEntryID) return &row;
    }
    return nullptr;
  }
  void Move(const FilterRow& row, int order) {
    const FilterRow moved = row;
    auto& rows = data().filters;
    rows.erase(rows.begin() + (&row - rows.data()));
    int position = 1;
    auto at = rows.begin();
    for (; at != rows.end(); ++at) {
      if (SameScope(*at, *this) && position++ == order) break;
    }
    rows.insert(at, moved);
  }
  int Hand() {
    if (next_ >= found_.size()) return 0;
    Take(found_[next_++]);
    return 1;
  }
  void Take(const FilterRow& row) {
    FilterEntryID = row.FilterEntryID;
    CriteriaID = row.CriteriaID;
    ActionID = row.ActionID;
    Description = row.Description;
    Note = row.Note;
    Status = row.Status;
  }
  std::vector<FilterRow> found_;
  std::size_t next_ = 0;
};

class MemoryCriteria : public Bindable<Criteria> {
 public:
  explicit MemoryCriteria(MemoryStore& store) : Bindable(store, "Criteria") {}

  int FindFirstCriteria() override {
    int result = 0;
    if (Refused("FindFirstCriteria", Arguments({CriteriaID}), result)) return result;
    found_.clear();
    next_ = 0;
    for (const CriteriaRow& row : data().criteria) {
      if (SameScope(row, *this) && row.CriteriaID == CriteriaID && Fits(RuleID, row.RuleID) &&
          Fits(Status, row.Status) && Fits(Description, row.Description) && Fits(Values, row.Values)) {
        found_.push_back(row);
      }
    }
    return Hand();
  }
  int FindNextCriteria() override {
    int result = 0;
    if (Refused("FindNextCriteria", "", result)) return result;
    return Hand();
  }
  int GetCriteria() override {
    int result = 0;
    if (Refused("GetCriteria", Arguments({CriteriaID, RuleID}), result)) return result;
    CriteriaRow* row = Row();
    if (!row) return 0;
    Take(*row);
    return 1;
  }
  int AddCriteria() override {
    int result = 0;
    if (Refused("AddCriteria", Arguments({CriteriaID, RuleID}), result)) return result;
    data().criteria.push_back(
        {CriteriaID, RuleID, CriteriaType, Description, Status, Values, Frequency, Postoffice, Mailbox});
    return 1;
  }
  int EditCriteria(const std::string& rule_id, int status, const std::string& unused, const std::string& criteria_type,
                   const std::string& description, const std::string& values, int frequency) override {
    int result = 0;
    if (Refused("EditCriteria",
                Arguments({rule_id, std::to_string(status), unused, criteria_type, description, values,
                           std::to_string(frequency)}),
                result)) {
      return result;
    }
    CriteriaRow* row = Row();
    if (!row) return 0;
    *row = {CriteriaID, rule_id, criteria_type, description, status, values, frequency, Postoffice, Mailbox};
    return 1;
  }

 private:
  CriteriaRow* Row() {
    for (CriteriaRow& row : data().criteria) {
      if (SameScope(row, *this) && row.CriteriaID == CriteriaID && row.RuleID == RuleID) return &row;
    }
    return nullptr;
  }
  int Hand() {
    if (next_ >= found_.size()) return 0;
    Take(found_[next_++]);
    return 1;
  }
  void Take(const CriteriaRow& row) {
    CriteriaID = row.CriteriaID;
    RuleID = row.RuleID;
    CriteriaType = row.CriteriaType;
    Description = row.Description;
    Status = row.Status;
    Values = row.Values;
    Frequency = static_cast<std::int16_t>(row.Frequency);
  }
  std::vector<CriteriaRow> found_;
  std::size_t next_ = 0;
};

class MemoryTask : public Bindable<Task> {
 public:
  explicit MemoryTask(MemoryStore& store) : Bindable(store, "Task") {}

  int FindFirstTask() override {
    int result = 0;
    if (Refused("FindFirstTask", Arguments({ActionID}), result)) return result;
    found_.clear();
    next_ = 0;
    for (const TaskRow& row : data().tasks) {
      if (SameScope(row, *this) && row.ActionID == ActionID && Fits(TaskID, row.TaskID)) found_.push_back(row);
    }
    return Hand();
  }
  int FindNextTask() override {
    int result = 0;
    if (Refused("FindNextTask", "", result)) return result;
    return Hand();
  }
  int GetTask() override {
    int result = 0;
    if (Refused("GetTask", Arguments({ActionID, TaskID}), result)) return result;
    TaskRow* row = Row();
    if (!row) return 0;
    Take(*row);
    return 1;
  }
  int AddTask() override {
    int result = 0;
    if (Refused("AddTask", Arguments({ActionID, TaskID, TaskType, Description, std::to_string(Status), Values}),
                result)) {
      return result;
    }
    if (Row()) return 0;
    data().tasks.push_back({ActionID, TaskID, TaskType, Description, Status, Values, Postoffice, Mailbox});
    return 1;
  }
  int EditTask(const std::string& task_id, int status, const std::string& unused, const std::string& task_type,
               const std::string& description, const std::string& values) override {
    int result = 0;
    if (Refused("EditTask", Arguments({task_id, std::to_string(status), unused, task_type, description, values}),
                result)) {
      return result;
    }
    TaskRow* row = Row();
    if (!row) return 0;
    *row = {ActionID, task_id, task_type, description, status, values, Postoffice, Mailbox};
    return 1;
  }
  int RemoveTask() override {
    int result = 0;
    if (Refused("RemoveTask", Arguments({ActionID, TaskID}), result)) return result;
    auto& rows = data().tasks;
    const auto kept = std::remove_if(rows.begin(), rows.end(), [this](const TaskRow& row) {
      return SameScope(row, *this) && row.ActionID == ActionID && (TaskID.empty() || row.TaskID == TaskID);
    });
    const bool any = kept != rows.end();
    rows.erase(kept, rows.end());
    return any || TaskID.empty() ? 1 : 0;
  }

 private:
  TaskRow* Row() {
    for (TaskRow& row : data().tasks) {
      if (SameScope(row, *this) && row.ActionID == ActionID && row.TaskID == TaskID) return &row;
    }
    return nullptr;
  }
  int Hand() {
    if (next_ >= found_.size()) return 0;
    Take(found_[next_++]);
    return 1;
  }
  void Take(const TaskRow& row) {
    ActionID = row.ActionID;
    TaskID = row.TaskID;
    TaskType = row.TaskType;
    Description = row.Description;
    Status = row.Status;
    Values = row.Values;
  }
  std::vector<TaskRow> found_;
  std::size_t next_ = 0;
};

class MemoryPostoffice : public Bindable<Postoffice> {
 public:
  explicit MemoryPostoffice(MemoryStore& store) : Bindable(store, "Postoffice") {}

  int FindFirstPostoffice() override {
    int result = 0;
    if (Refused("FindFirstPostoffice", "", result)) return result;
    next_ = 0;
    return Hand();
  }
  int FindNextPostoffice() override {
    int result = 0;
    if (Refused("FindNextPostoffice", "", result)) return result;
    return Hand();
  }

 private:
  int Hand() {
    if (next_ >= data().postoffices.size()) return 0;
    Name = data().postoffices[next_++];
    Status = 1;
    return 1;
  }
  std::size_t next_ = 0;
};

class MemorySetting : public Bindable<Setting> {
 public:
  explicit MemorySetting(MemoryStore& store) : Bindable(store, "Setting") {}

  int GetRegistryword() override {
    int result = 0;
    if (Refused("GetRegistryword", Arguments({hKey, ValueName}), result)) return result;
    const auto found = DataOrLocal().words.find(LowerCase(hKey + "|" + ValueName));
    if (found == DataOrLocal().words.end()) return 0;
    Value = found->second;
    return 1;
  }
  int SetRegistryWord() override {
    int result = 0;
    if (Refused("SetRegistryWord", Arguments({hKey, ValueName, Value}), result)) return result;
    DataOrLocal().words[LowerCase(hKey + "|" + ValueName)] = Value;
    return 1;
  }
};

class MemoryOption : public Bindable<Option> {
 public:
  explicit MemoryOption(MemoryStore& store) : Bindable(store, "Option") {}

  int GetOption() override {
    int result = 0;
    if (Refused("GetOption", Arguments({std::to_string(Scope), Query, ValueName}), result)) return result;
    const OptionRow* row = Row();
    Value = row ? row->Value : "";
    return row ? 1 : 0;
  }
  int SetOption() override {
    int result = 0;
    if (Refused("SetOption", Arguments({std::to_string(Scope), Query, ValueName, Value}), result)) return result;
    if (OptionRow* row = Row()) {
      row->Value = Value;
    } else {
      DataOrLocal().options.push_back({Scope, Query, ValueName, Value});
    }
    return 1;
  }

 private:
  OptionRow* Row() {
    for (OptionRow& row : DataOrLocal().options) {
      if (row.Scope == Scope && row.Query == Query && row.ValueName == ValueName) return &row;
    }
    return nullptr;
  }
};

}  // namespace

MemoryStore::MemoryStore() { server(); }

ServerData& MemoryStore::server(const std::string& host) {
  const std::string name = UpperCase(host);
  return servers_[name.empty() ? "LOCALHOST" : name];
}

ServerData& MemoryStore::Bound(const std::string& host) {
  const std::string name = UpperCase(host);
  const auto found = servers_.find(name.empty() ? "LOCALHOST" : name);
  if (found == servers_.end()) throw RuntimeError("The server '" + host + "' is not known.");
  return found->second;
}

int MemoryStore::CountOf(const std::string& operation) const {
  return static_cast<int>(std::count_if(calls.begin(), calls.end(), [&operation](const std::string& call) {
    return call == operation || StartsWith(call, operation + "@");
  }));
}

void MemoryStore::Raise(const std::string& operation, const std::string& description, int after) {
  faults_[operation] = {true, description, 0, after};
}

void MemoryStore::Refuse(const std::string& operation, int result, int after) {
  faults_[operation] = {false, "", result, after};
}

bool MemoryStore::Enter(const std::string& operation, const std::string& host, const std::string& arguments,
                        int& result) {
  const bool creation = EndsWith(operation, ".Create");
  calls.push_back(creation ? operation : operation + "@" + host + arguments);
  if (before) before(operation);
  const auto fault = faults_.find(operation);
  if (fault == faults_.end()) return false;
  if (fault->second.after > 0) {
    --fault->second.after;
    return false;
  }
  if (fault->second.raises) throw RuntimeError(fault->second.description);
  result = fault->second.result;
  return true;
}

namespace {

template <class Object, class Record>
std::unique_ptr<Record> Make(MemoryStore& store, const std::string& name) {
  int result = 0;
  store.Enter(name + ".Create", "", "", result);
  return std::make_unique<Object>(store);
}

}  // namespace

std::unique_ptr<Filter> MemoryStore::CreateFilter() { return Make<MemoryFilter, Filter>(*this, "Filter"); }
std::unique_ptr<Criteria> MemoryStore::CreateCriteria() { return Make<MemoryCriteria, Criteria>(*this, "Criteria"); }
std::unique_ptr<Task> MemoryStore::CreateTask() { return Make<MemoryTask, Task>(*this, "Task"); }
std::unique_ptr<Postoffice> MemoryStore::CreatePostoffice() {
  return Make<MemoryPostoffice, Postoffice>(*this, "Postoffice");
}
std::unique_ptr<Setting> MemoryStore::CreateSetting() { return Make<MemorySetting, Setting>(*this, "Setting"); }
std::unique_ptr<Option> MemoryStore::CreateOption() { return Make<MemoryOption, Option>(*this, "Option"); }

}  // namespace qv::test
