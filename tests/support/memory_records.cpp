#include <algorithm>

#include "tests/support/memory_record.h"

namespace qv::test {

namespace {

bool Fits(const std::string& wanted, const std::string& value) { return wanted.empty() || wanted == value; }
bool Fits(int wanted, int value) { return wanted == -1 || wanted == value; }

template <class Row, class Record>
bool SameScope(const Row& row, const Record& record) {
  return row.Postoffice == record.Postoffice && row.Mailbox == record.Mailbox;
}

// The rows that a FindFirst has found, handed out one by one.
template <class Row>
class FoundRows {
 public:
  void Start() { *this = {}; }
  void Add(const Row& row) { rows_.push_back(row); }
  const Row* Next() { return next_ < rows_.size() ? &rows_[next_++] : nullptr; }

 private:
  std::vector<Row> rows_;
  std::size_t next_ = 0;
};

class MemoryFilter : public MemoryRecord<Filter> {
 public:
  explicit MemoryFilter(MemoryStore& store) : MemoryRecord(store, "Filter") {}

  int FindFirstFilter() override {
    if (const auto refused = Refused("FindFirstFilter")) return *refused;
    found_.Start();
    for (const FilterRow& row : data().filters) {
      if (SameScope(row, *this) && Fits(FilterEntryID, row.FilterEntryID) && Fits(CriteriaID, row.CriteriaID) &&
          Fits(ActionID, row.ActionID) && Fits(Description, row.Description) && Fits(Note, row.Note) &&
          Fits(Status, row.Status)) {
        found_.Add(row);
      }
    }
    return Hand();
  }
  int FindNextFilter() override {
    if (const auto refused = Refused("FindNextFilter")) return *refused;
    return Hand();
  }
  int getfilter() override {
    if (const auto refused = Refused("getfilter", {FilterEntryID})) return *refused;
    FilterRow* row = Row();
    if (!row) return 0;
    Take(*row);
    return 1;
  }
  int AddFilter() override {
    if (const auto refused = Refused("AddFilter", {FilterEntryID})) return *refused;
    if (Row()) return 0;
    data().filters.push_back({FilterEntryID, CriteriaID, ActionID, Description, Note, Status, Postoffice, Mailbox});
    return 1;
  }
  int EditFilter(const std::string& filter_entry_id, int status, const std::string& description,
                 const std::string& action_id, const std::string& note, const std::string& criteria_id,
                 int order) override {
    if (const auto refused = Refused("EditFilter", {filter_entry_id, std::to_string(status), description, action_id,
                                                    note, criteria_id, std::to_string(order)}))
      return *refused;
    FilterRow* row = Row();
    if (!row) return 0;
    *row = {filter_entry_id, criteria_id, action_id, description, note, status, Postoffice, Mailbox};
    if (order > 0) Move(*row, order);
    return 1;
  }
  int RemoveFilter() override {
    if (const auto refused = Refused("RemoveFilter", {FilterEntryID})) return *refused;
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
    const auto* row = found_.Next();
    if (row) Take(*row);
    return row ? 1 : 0;
  }
  void Take(const FilterRow& row) {
    FilterEntryID = row.FilterEntryID;
    CriteriaID = row.CriteriaID;
    ActionID = row.ActionID;
    Description = row.Description;
    Note = row.Note;
    Status = row.Status;
  }
  FoundRows<FilterRow> found_;
};

class MemoryCriteria : public MemoryRecord<Criteria> {
 public:
  explicit MemoryCriteria(MemoryStore& store) : MemoryRecord(store, "Criteria") {}

  int FindFirstCriteria() override {
    if (const auto refused = Refused("FindFirstCriteria", {CriteriaID})) return *refused;
    found_.Start();
    for (const CriteriaRow& row : data().criteria) {
      if (SameScope(row, *this) && row.CriteriaID == CriteriaID && Fits(RuleID, row.RuleID) &&
          Fits(Status, row.Status) && Fits(Description, row.Description) && Fits(Values, row.Values)) {
        found_.Add(row);
      }
    }
    return Hand();
  }
  int FindNextCriteria() override {
    if (const auto refused = Refused("FindNextCriteria")) return *refused;
    return Hand();
  }
  int GetCriteria() override {
    if (const auto refused = Refused("GetCriteria", {CriteriaID, RuleID})) return *refused;
    CriteriaRow* row = Row();
    if (!row) return 0;
    Take(*row);
    return 1;
  }
  int AddCriteria() override {
    if (const auto refused = Refused("AddCriteria", {CriteriaID, RuleID})) return *refused;
    data().criteria.push_back(
        {CriteriaID, RuleID, CriteriaType, Description, Status, Values, Frequency, Postoffice, Mailbox});
    return 1;
  }
  int EditCriteria(const std::string& rule_id, int status, const std::string& unused, const std::string& criteria_type,
                   const std::string& description, const std::string& values, int frequency) override {
    if (const auto refused = Refused("EditCriteria", {rule_id, std::to_string(status), unused, criteria_type,
                                                      description, values, std::to_string(frequency)}))
      return *refused;
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
    const auto* row = found_.Next();
    if (row) Take(*row);
    return row ? 1 : 0;
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
  FoundRows<CriteriaRow> found_;
};

class MemoryTask : public MemoryRecord<Task> {
 public:
  explicit MemoryTask(MemoryStore& store) : MemoryRecord(store, "Task") {}

  int FindFirstTask() override {
    if (const auto refused = Refused("FindFirstTask", {ActionID})) return *refused;
    found_.Start();
    for (const TaskRow& row : data().tasks) {
      if (SameScope(row, *this) && row.ActionID == ActionID && Fits(TaskID, row.TaskID)) found_.Add(row);
    }
    return Hand();
  }
  int FindNextTask() override {
    if (const auto refused = Refused("FindNextTask")) return *refused;
    return Hand();
  }
  int GetTask() override {
    if (const auto refused = Refused("GetTask", {ActionID, TaskID})) return *refused;
    TaskRow* row = Row();
    if (!row) return 0;
    Take(*row);
    return 1;
  }
  int AddTask() override {
    if (const auto refused =
            Refused("AddTask", {ActionID, TaskID, TaskType, Description, std::to_string(Status), Values}))
      return *refused;
    if (Row()) return 0;
    data().tasks.push_back({ActionID, TaskID, TaskType, Description, Status, Values, Postoffice, Mailbox});
    return 1;
  }
  int EditTask(const std::string& task_id, int status, const std::string& unused, const std::string& task_type,
               const std::string& description, const std::string& values) override {
    if (const auto refused =
            Refused("EditTask", {task_id, std::to_string(status), unused, task_type, description, values}))
      return *refused;
    TaskRow* row = Row();
    if (!row) return 0;
    *row = {ActionID, task_id, task_type, description, status, values, Postoffice, Mailbox};
    return 1;
  }
  int RemoveTask() override {
    if (const auto refused = Refused("RemoveTask", {ActionID, TaskID})) return *refused;
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
    const auto* row = found_.Next();
    if (row) Take(*row);
    return row ? 1 : 0;
  }
  void Take(const TaskRow& row) {
    ActionID = row.ActionID;
    TaskID = row.TaskID;
    TaskType = row.TaskType;
    Description = row.Description;
    Status = row.Status;
    Values = row.Values;
  }
  FoundRows<TaskRow> found_;
};

}  // namespace

std::unique_ptr<Filter> MemoryStore::CreateFilter() { return Make<MemoryFilter, Filter>(*this, "Filter"); }
std::unique_ptr<Criteria> MemoryStore::CreateCriteria() { return Make<MemoryCriteria, Criteria>(*this, "Criteria"); }
std::unique_ptr<Task> MemoryStore::CreateTask() { return Make<MemoryTask, Task>(*this, "Task"); }

}  // namespace qv::test
