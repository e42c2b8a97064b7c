#include <utility>

#include "store/bound.h"
#include "store/connection.h"
#include "store/database.h"
#include "store/records.h"
#include "store/rows.h"
#include "store/statement.h"

namespace qv {

namespace {

constexpr const char* kOwner = "Postoffice = ?1 AND Mailbox = ?2 AND ActionID = ?3";
constexpr const char* kKey = " AND TaskID = ?4";

// A statement whose first parameters are the rows' owner and perhaps a TaskID.
struct OwnerStatement : Statement {
  TaskRow key;

 protected:
  explicit OwnerStatement(soci::session& session) : Statement(session) {
    Use(key.Postoffice);
    Use(key.Mailbox);
    Use(key.ActionID);
  }
};

struct KeyStatement : OwnerStatement {
 protected:
  explicit KeyStatement(soci::session& session) : OwnerStatement(session) { Use(key.TaskID); }
};

template <class Base>
struct SelectRows : Base {
  TaskRow row;

 protected:
  SelectRows(soci::session& session, const std::string& rest) : Base(session) {
    this->Into(row.ActionID);
    this->Into(row.TaskID);
    this->Into(row.TaskType);
    this->Into(row.Description);
    this->Into(row.Status);
    this->Into(row.Values);
    this->Into(row.Postoffice);
    this->Into(row.Mailbox);
    this->Prepare(
        "SELECT ActionID, TaskID, TaskType, Description, Status, \"Values\", Postoffice, Mailbox FROM tasks WHERE " +
        std::string(kOwner) + rest);
  }
};

struct ListTasks : SelectRows<OwnerStatement> {
  explicit ListTasks(soci::session& session) : SelectRows(session, " ORDER BY id") {}
};

struct GetOneTask : SelectRows<KeyStatement> {
  explicit GetOneTask(soci::session& session) : SelectRows(session, kKey) {}
};

struct InsertTask : KeyStatement {
  explicit InsertTask(soci::session& session) : KeyStatement(session) {
    Use(key.TaskType);
    Use(key.Description);
    Use(key.Status);
    Use(key.Values);
    Prepare(
        "INSERT INTO tasks (Postoffice, Mailbox, ActionID, TaskID, TaskType, Description, Status, \"Values\")"
        " VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8) ON CONFLICT DO NOTHING");
  }
};

struct UpdateTask : KeyStatement {
  TaskRow row;

  explicit UpdateTask(soci::session& session) : KeyStatement(session) {
    Use(row.TaskID);
    Use(row.Status);
    Use(row.TaskType);
    Use(row.Description);
    Use(row.Values);
    Prepare(
        "UPDATE OR IGNORE tasks SET TaskID = ?5, Status = ?6, TaskType = ?7, Description = ?8, \"Values\" = ?9 WHERE " +
        std::string(kOwner) + kKey);
  }
};

struct DeleteTask : KeyStatement {
  explicit DeleteTask(soci::session& session) : KeyStatement(session) {
    Prepare("DELETE FROM tasks WHERE " + std::string(kOwner) + kKey);
  }
};

bool Matches(const TaskRow& query, const TaskRow& row) {
  return Fits(query.TaskID, row.TaskID) && Fits(query.TaskType, row.TaskType) &&
         Fits(query.Description, row.Description) && Fits(query.Status, row.Status) && Fits(query.Values, row.Values);
}

std::vector<TaskRow> List(Connection& connection, const TaskRow& query) {
  std::vector<TaskRow> rows;
  auto& list = connection.The<ListTasks>();
  list.key = query;
  list.ForEach([&] {
    if (Matches(query, list.row)) rows.push_back(std::move(list.row));
  });
  return rows;
}

// The task of the query's key, if it matches the rest of the query; null otherwise.
TaskRow* Find(Connection& connection, const TaskRow& query) {
  auto& get = connection.The<GetOneTask>();
  get.key = query;
  return get.One() && Matches(query, get.row) ? &get.row : nullptr;
}

class StoredTask : public Bound<Task> {
 public:
  using Bound::Bound;

  int FindFirstTask() override {
    Data().Do([&](Connection& connection) { found_.Start(List(connection, Query())); });
    return FindNextTask();
  }

  int FindNextTask() override {
    TaskRow* row = found_.Next();
    if (!row) return 0;
    Take(std::move(*row));
    return 1;
  }

  int GetTask() override {
    bool found = false;
    Data().Do([&](Connection& connection) {
      TaskRow* row = Find(connection, Query());
      found = row != nullptr;
      if (found) Take(std::move(*row));
    });
    return found ? 1 : 0;
  }

  int AddTask() override {
    long long added = 0;
    Data().Do([&](Connection& connection) {
      auto& insert = connection.The<InsertTask>();
      insert.key = Query();
      added = insert.Change();
    });
    return added == 1 ? 1 : 0;
  }

  int EditTask(const std::string& task_id, int status, const std::string& /*unused*/, const std::string& task_type,
               const std::string& description, const std::string& values) override {
    long long changed = 0;
    Data().Change([&](Connection& connection) {
      const TaskRow query = Query();
      if (!Find(connection, query)) return;
      auto& update = connection.The<UpdateTask>();
      update.key = query;
      update.row.TaskID = task_id;
      update.row.Status = status;
      update.row.TaskType = task_type;
      update.row.Description = description;
      update.row.Values = values;
      changed = update.Change();
    });
    return changed == 1 ? 1 : 0;
  }

  int RemoveTask() override {
    long long removed = 0;
    Data().Change([&](Connection& connection) {
      auto& remove = connection.The<DeleteTask>();
      for (TaskRow& row : List(connection, Query())) {
        remove.key = std::move(row);
        removed += remove.Change();
      }
    });
    // All of none is done.
    return removed > 0 || TaskID.empty() ? 1 : 0;
  }

 private:
  TaskRow Query() const { return {ActionID, TaskID, TaskType, Description, Status, Values, Postoffice, Mailbox}; }

  void Take(TaskRow&& row) {
    ActionID = std::move(row.ActionID);
    TaskID = std::move(row.TaskID);
    TaskType = std::move(row.TaskType);
    Description = std::move(row.Description);
    Status = static_cast<int>(row.Status);
    Values = std::move(row.Values);
    Postoffice = std::move(row.Postoffice);
    Mailbox = std::move(row.Mailbox);
  }

  FoundRows<TaskRow> found_;
};

}  // namespace

std::unique_ptr<Task> MakeTask(Servers& servers) { return std::make_unique<StoredTask>(servers); }

}  // namespace qv
