#include <utility>

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

// A statement whose first parameters are the rows' owner and perhaps a RuleID.
struct OwnerStatement : Statement {
  CriteriaRow key;

 protected:
  explicit OwnerStatement(soci::session& session) : Statement(session) {
    Use(key.Postoffice);
    Use(key.Mailbox);
    Use(key.CriteriaID);
  }
};

struct KeyStatement : OwnerStatement {
 protected:
  explicit KeyStatement(soci::session& session) : OwnerStatement(session) { Use(key.RuleID); }
};

template <class Base>
struct SelectRows : Base {
  CriteriaRow row;

 protected:
  SelectRows(soci::session& session, const std::string& rest) : Base(session) {
    this->Into(row.CriteriaID);
    this->Into(row.RuleID);
    this->Into(row.CriteriaType);
    this->Into(row.Description);
    this->Into(row.Status);
    this->Into(row.Values);
    this->Into(row.Frequency);
    this->Into(row.Postoffice);
    this->Into(row.Mailbox);
    this->Prepare(
        "SELECT CriteriaID, RuleID, CriteriaType, Description, Status, \"Values\", Frequency, Postoffice, Mailbox FROM "
        "criteria WHERE " +
        std::string(kOwner) + rest);
  }
};

struct ListCriteria : SelectRows<OwnerStatement> {
  explicit ListCriteria(soci::session& session) : SelectRows(session, " ORDER BY id") {}
};

struct GetOneCriteria : SelectRows<KeyStatement> {
  explicit GetOneCriteria(soci::session& session) : SelectRows(session, kKey) {}
};

struct InsertCriteria : KeyStatement {
  explicit InsertCriteria(soci::session& session) : KeyStatement(session) {
    Use(key.CriteriaType);
    Use(key.Description);
    Use(key.Status);
    Use(key.Values);
    Use(key.Frequency);
    Prepare(
        "INSERT INTO criteria (Postoffice, Mailbox, CriteriaID, RuleID, CriteriaType, Description, Status, \"Values\","
        " Frequency) VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9) ON CONFLICT DO NOTHING");
  }
};

struct UpdateCriteria : KeyStatement {
  CriteriaRow row;

  explicit UpdateCriteria(soci::session& session) : KeyStatement(session) {
    Use(row.RuleID);
    Use(row.Status);
    Use(row.CriteriaType);
    Use(row.Description);
    Use(row.Values);
    Use(row.Frequency);
    Prepare(
        "UPDATE OR IGNORE criteria SET RuleID = ?5, Status = ?6, CriteriaType = ?7, Description = ?8, \"Values\" = ?9,"
        " Frequency = ?10 WHERE " +
        std::string(kOwner) + kKey);
  }
};

bool Matches(const CriteriaRow& query, const CriteriaRow& row) {
  return Fits(query.RuleID, row.RuleID) && Fits(query.CriteriaType, row.CriteriaType) &&
         Fits(query.Description, row.Description) && Fits(query.Status, row.Status) && Fits(query.Values, row.Values) &&
         Fits(query.Frequency, row.Frequency);
}

// The row of the query's key, if it matches the rest of the query; null otherwise.
CriteriaRow* Find(Connection& connection, const CriteriaRow& query) {
  auto& get = connection.The<GetOneCriteria>();
  get.key = query;
  return get.One() && Matches(query, get.row) ? &get.row : nullptr;
}

class StoredCriteria : public Bound<Criteria> {
 public:
  using Bound::Bound;

  int FindFirstCriteria() override {
    std::vector<CriteriaRow> rows;
    const CriteriaRow query = Query();
    Data().Do([&](Connection& connection) {
      auto& list = connection.The<ListCriteria>();
      list.key = query;
      list.ForEach([&] {
        if (Matches(query, list.row)) rows.push_back(std::move(list.row));
      });
    });
    found_.Start(std::move(rows));
    return FindNextCriteria();
  }

  int FindNextCriteria() override {
    CriteriaRow* row = found_.Next();
    if (!row) return 0;
    Take(std::move(*row));
    return 1;
  }

  int GetCriteria() override {
    bool found = false;
    Data().Do([&](Connection& connection) {
      CriteriaRow* row = Find(connection, Query());
      found = row != nullptr;
      if (found) Take(std::move(*row));
    });
    return found ? 1 : 0;
  }

  int AddCriteria() override {
    long long added = 0;
    Data().Do([&](Connection& connection) {
      auto& insert = connection.The<InsertCriteria>();
      insert.key = Query();
      added = insert.Change();
    });
    return added == 1 ? 1 : 0;
  }

  int EditCriteria(const std::string& rule_id, int status, const std::string& /*unused*/,
                   const std::string& criteria_type, const std::string& description, const std::string& values,
                   int frequency) override {
    long long changed = 0;
    Data().Change([&](Connection& connection) {
      const CriteriaRow query = Query();
      if (!Find(connection, query)) return;
      auto& update = connection.The<UpdateCriteria>();
      update.key = query;
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

  void Take(CriteriaRow&& row) {
    CriteriaID = std::move(row.CriteriaID);
    RuleID = std::move(row.RuleID);
    CriteriaType = std::move(row.CriteriaType);
    Description = std::move(row.Description);
    Status = static_cast<int>(row.Status);
    Values = std::move(row.Values);
    Frequency = static_cast<std::int16_t>(row.Frequency);
    Postoffice = std::move(row.Postoffice);
    Mailbox = std::move(row.Mailbox);
  }

  FoundRows<CriteriaRow> found_;
};

}  // namespace

std::unique_ptr<Criteria> MakeCriteria(Servers& servers) { return std::make_unique<StoredCriteria>(servers); }

}  // namespace qv
