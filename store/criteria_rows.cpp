#include "store/bound.h"
#include "store/connection.h"
#include "store/database.h"
#include "store/records.h"
#include "store/rows.h"
#include "store/statement.h"

namespace qv {

namespace {

constexpr const char* kOwner = "Postoffice = ?1 AND Mailbox = ?2 AND CriteriaID = ?3";
constexpr const char* kKey = " AND RuleID = ?4";
constexpr const char* kAnyKey = " AND (?4 = '' OR RuleID = ?4)";
constexpr const char* kTemplate =
    " AND (?5 = '' OR CriteriaType = ?5) AND (?6 = '' OR Description = ?6) AND (?7 = -1 OR Status = ?7)"
    " AND (?8 = '' OR \"Values\" = ?8) AND (?9 = -1 OR Frequency = ?9)";

// A statement whose first nine parameters are a query template or a row.
struct CriteriaStatement : Statement {
  CriteriaRow query;

 protected:
  explicit CriteriaStatement(soci::session& session) : Statement(session) {
    Use(query.Postoffice);
    Use(query.Mailbox);
    Use(query.CriteriaID);
    Use(query.RuleID);
    Use(query.CriteriaType);
    Use(query.Description);
    Use(query.Status);
    Use(query.Values);
    Use(query.Frequency);
  }
};

struct SelectCriteria : CriteriaStatement {
  CriteriaRow row;

 protected:
  SelectCriteria(soci::session& session, const std::string& rest) : CriteriaStatement(session) {
    Into(row.CriteriaID);
    Into(row.RuleID);
    Into(row.CriteriaType);
    Into(row.Description);
    Into(row.Status);
    Into(row.Values);
    Into(row.Frequency);
    Into(row.Postoffice);
    Into(row.Mailbox);
    Prepare(
        "SELECT CriteriaID, RuleID, CriteriaType, Description, Status, \"Values\", Frequency, Postoffice, Mailbox"
        " FROM criteria WHERE " +
        std::string(kOwner) + rest);
  }
};

struct ListCriteria : SelectCriteria {
  explicit ListCriteria(soci::session& session)
      : SelectCriteria(session, std::string(kAnyKey) + kTemplate + " ORDER BY id") {}
};

struct GetOneCriteria : SelectCriteria {
  explicit GetOneCriteria(soci::session& session) : SelectCriteria(session, std::string(kKey) + kTemplate) {}
};

struct InsertCriteria : CriteriaStatement {
  explicit InsertCriteria(soci::session& session) : CriteriaStatement(session) {
    Prepare(
        "INSERT INTO criteria (Postoffice, Mailbox, CriteriaID, RuleID, CriteriaType, Description, Status, \"Values\","
        " Frequency) VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9) ON CONFLICT DO NOTHING");
  }
};

struct UpdateCriteria : CriteriaStatement {
  CriteriaRow row;

  explicit UpdateCriteria(soci::session& session) : CriteriaStatement(session) {
    Use(row.RuleID);
    Use(row.Status);
    Use(row.CriteriaType);
    Use(row.Description);
    Use(row.Values);
    Use(row.Frequency);
    Prepare(
        "UPDATE OR IGNORE criteria SET RuleID = ?10, Status = ?11, CriteriaType = ?12, Description = ?13,"
        " \"Values\" = ?14, Frequency = ?15 WHERE " +
        std::string(kOwner) + kKey + kTemplate);
  }
};

class StoredCriteria : public Bound<Criteria> {
 public:
  using Bound::Bound;

  int FindFirstCriteria() override {
    std::vector<CriteriaRow> rows;
    Data().Do([&](Connection& connection) {
      auto& list = connection.The<ListCriteria>();
      list.query = Query();
      list.ForEach([&] { rows.push_back(list.row); });
    });
    found_.Start(std::move(rows));
    return FindNextCriteria();
  }

  int FindNextCriteria() override {
    const CriteriaRow* row = found_.Next();
    if (!row) return 0;
    Take(*row);
    return 1;
  }

  int GetCriteria() override {
    bool found = false;
    Data().Do([&](Connection& connection) {
      auto& get = connection.The<GetOneCriteria>();
      get.query = Query();
      found = get.One();
      if (found) Take(get.row);
    });
    return found ? 1 : 0;
  }

  int AddCriteria() override {
    long long added = 0;
    Data().Do([&](Connection& connection) {
      auto& insert = connection.The<InsertCriteria>();
      insert.query = Query();
      added = insert.Change();
    });
    return added == 1 ? 1 : 0;
  }

  int EditCriteria(const std::string& rule_id, int status, const std::string& /*unused*/,
                   const std::string& criteria_type, const std::string& description, const std::string& values,
                   int frequency) override {
    long long changed = 0;
    Data().Do([&](Connection& connection) {
      auto& update = connection.The<UpdateCriteria>();
      update.query = Query();
      update.row.RuleID = rule_id;
      update.row.Status = status;
      update.row.CriteriaType = criteria_type;
      update.row.Description = description;
      update.row.Values = values;
      update.row.Frequency = static_cast<std::int16_t>(frequency);
      changed = update.Change();
    });
    return changed == 1 ? 1 : 0;
  }

 private:
  CriteriaRow Query() const {
    return {CriteriaID, RuleID, CriteriaType, Description, Status, Values, Frequency, Postoffice, Mailbox};
  }

  void Take(const CriteriaRow& row) {
    CriteriaID = row.CriteriaID;
    RuleID = row.RuleID;
    CriteriaType = row.CriteriaType;
    Description = row.Description;
    Status = static_cast<int>(row.Status);
    Values = row.Values;
    Frequency = static_cast<std::int16_t>(row.Frequency);
    Postoffice = row.Postoffice;
    Mailbox = row.Mailbox;
  }

  FoundRows<CriteriaRow> found_;
};

}  // namespace

std::unique_ptr<Criteria> MakeCriteria(Servers& servers) { return std::make_unique<StoredCriteria>(servers); }

}  // namespace qv
