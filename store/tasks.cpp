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
constexpr const char* kAnyKey = " AND (?4 = '' OR TaskID = ?4)";
constexpr const char* kTemplate =
    " AND (?5 = '' OR TaskType = ?5) AND (?6 = '' OR Description = ?6) AND (?7 = -1 OR Status = ?7)"
    " AND (?8 = '' OR \"Values\" = ?8)";

// A statement whose first eight parameters are a query template or a row.
struct TaskStatement : Statement {
  TaskRow query;

 protected:
  explicit TaskStatement(soci::session& session) : Statement(session) {
    Use(query.Postoffice);
    Use(query.Mailbox);
    Use(query.ActionID);
    Use(query.TaskID);
    Use(query.TaskType);
    Use(query.Description);
    Use(query.Status);
    Use(query.Values);
  }
};

struct SelectTasks : TaskStatement {
  TaskRow row;

 protected:
  SelectTasks(soci::session& session, const std::string& rest) : TaskStatement(session) {
    Into(row.ActionID);
    Into(row.TaskID);
    Into(row.TaskType);
    Into(row.Description);
    Into(row.Status);
    Into(row.Values);
    Into(row.Postoffice);
    Into(row.Mailbox);
    Prepare(
        "SELECT ActionID, TaskID, TaskType, Description, Status, \"Values\", Postoffice, Mailbox FROM tasks WHERE " +
        std::string(kOwner) + rest);
  }
};

struct ListTasks : SelectTasks {
  explicit ListTasks(soci::session& session)
      : SelectTasks(session, std::string(kAnyKey) + kTemplate + " ORDER BY id") {}
};

struct GetOneTask : SelectTasks {
  explicit GetOneTask(soci::session& session) : SelectTasks(session, std::string(kKey) + kTemplate) {}
};

struct InsertTask : TaskStatement {
  explicit InsertTask(soci::session& session) : TaskStatement(session) {
    Prepare(
        "INSERT INTO tasks (Postoffice, Mailbox, ActionID, TaskID, TaskType, Description, Status, \"Values\")"
        " VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8) ON CONFLICT DO NOTHING");
  }
};

struct UpdateTask : TaskStatement {
  TaskRow row;

  explicit UpdateTask(soci::session& session) : TaskStatement(session) {
    Use(row.TaskID);
    Use(row.Status);
    Use(row.TaskType);
    Use(row.Description);
    Use(row.Values);
    Prepare(
        "UPDATE OR IGNORE tasks SET TaskID = ?9, Status = ?10, TaskType = ?11, Description = ?12, \"Values\" = ?13"
        " WHERE " +
        std::string(kOwner) + kKey + kTemplate);
  }
};

struct DeleteTasks : TaskStatement {
  explicit DeleteTasks(soci::session& session) : TaskStatement(session) {
    Prepare("DELETE FROM tasks WHERE " + std::string(kOwner) + kAnyKey + kTemplate);
  }
};

class StoredTask : public Bound<Task> {
 public:
  using Bound::Bound;

  int FindFirstTask() override {
    std::vector<TaskRow> rows;
    Data().Do([&](Connection& connection) {
      auto& list = connection.The<ListTasks>();
      list.query = Query();
      list.ForEach([&] { rows.push_back(list.row); });
    });
    found_.Start(std::move(rows));
    return FindNextTask();
  }

  int FindNextTask() override {
    const TaskRow* row = found_.Next();
    if (!row) return 0;
    Take(*row);
    return 1;
  }

  int GetTask() override {
    bool found = false;
    Data().Do([&](Connection& connection) {
      auto& get = connection.The<GetOneTask>();
      get.query = Query();
      found = get.One();
      if (found) Take(get.row);
    });
    return found ? 1 : 0;
  }

  int AddTask() override {
    long long added = 0;
    Data().Do([&](Connection& connection) {
      auto& insert = connection.The<InsertTask>();
      insert.query = Query();
      added = insert.Change();
    });
    return added == 1 ? 1 : 0;
  }

  int EditTask(const std::string& task_id, int status, const std::string& /*unused*/, const std::string& task_type,
               const std::string& description, const std::string& values) override {
    long long changed = 0;
    Data().Do([&](Connection& connection) {
      auto& update = connection.The<UpdateTask>();
      update.query = Query();
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
    Data().Do([&](Connection& connection) {
      auto& remove = connection.The<DeleteTasks>();
      remove.query = Query();
      removed = remove.Change();
    });
    // All of none is done.
    return removed > 0 || TaskID.empty() ? 1 : 0;
  }

 private:
  TaskRow Query() const { return {ActionID, TaskID, TaskType, Description, Status, Values, Postoffice, Mailbox}; }

  void Take(const TaskRow& row) {
    ActionID = row.ActionID;
    TaskID = row.TaskID;
    TaskType = row.TaskType;
    Description = row.Description;
    Status = static_cast<int>(row.Status);
    Values = row.Values;
    Postoffice = row.Postoffice;
    Mailbox = row.Mailbox;
  }

  FoundRows<TaskRow> found_;
};

}  // namespace

std::unique_ptr<Task> MakeTask(Servers& servers) { return std::make_unique<StoredTask>(servers); }

}  // namespace qv
