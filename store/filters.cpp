#include <algorithm>
#include <utility>

#include "store/bound.h"
#include "store/connection.h"
#include "store/database.h"
#include "store/records.h"
#include "store/rows.h"
#include "store/statement.h"

namespace qv {

namespace {

struct PlacedFilter : FilterRow {
  long long Position = 0;
};

// A scope holds no more as a rule.
constexpr std::size_t kUsualFilters = 100;

constexpr const char* kScope = "Postoffice = ?1 AND Mailbox = ?2";
constexpr const char* kKey = " AND FilterEntryID = ?3";

// A statement whose first parameters are a scope and perhaps a FilterEntryID.
struct ScopeStatement : Statement {
  std::string postoffice, mailbox, filter_entry_id;

  void Set(const FilterRow& row) {
    postoffice = row.Postoffice;
    mailbox = row.Mailbox;
    filter_entry_id = row.FilterEntryID;
  }

 protected:
  explicit ScopeStatement(soci::session& session) : Statement(session) {
    Use(postoffice);
    Use(mailbox);
  }
};

struct KeyStatement : ScopeStatement {
 protected:
  explicit KeyStatement(soci::session& session) : ScopeStatement(session) { Use(filter_entry_id); }
};

// Reads filters. Their scope is the one asked for and isn't read again.
template <class Base>
struct SelectFilters : Base {
  PlacedFilter row;

  PlacedFilter& WithScope() {
    row.Postoffice = this->postoffice;
    row.Mailbox = this->mailbox;
    return row;
  }

 protected:
  SelectFilters(soci::session& session, const std::string& rest) : Base(session) {
    this->Into(row.FilterEntryID);
    this->Into(row.CriteriaID);
    this->Into(row.ActionID);
    this->Into(row.Description);
    this->Into(row.Note);
    this->Into(row.Status);
    this->Into(row.Position);
    this->Prepare(
        "SELECT FilterEntryID, CriteriaID, ActionID, Description, Note, Status, Position FROM filters WHERE " +
        std::string(kScope) + rest);
  }
};

struct ListFilters : SelectFilters<ScopeStatement> {
  explicit ListFilters(soci::session& session) : SelectFilters(session, " ORDER BY Position, id") {}
};

struct GetFilter : SelectFilters<KeyStatement> {
  explicit GetFilter(soci::session& session) : SelectFilters(session, kKey) {}
};

struct InsertFilter : Statement {
  FilterRow row;

  explicit InsertFilter(soci::session& session) : Statement(session) {
    Use(row.Postoffice);
    Use(row.Mailbox);
    Use(row.FilterEntryID);
    Use(row.CriteriaID);
    Use(row.ActionID);
    Use(row.Description);
    Use(row.Note);
    Use(row.Status);
    Prepare(
        "INSERT INTO filters (Postoffice, Mailbox, FilterEntryID, CriteriaID, ActionID, Description, Note, Status,"
        " Position) VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8,"
        " (SELECT COALESCE(MAX(Position), 0) + 1 FROM filters WHERE Postoffice = ?1 AND Mailbox = ?2))"
        " ON CONFLICT DO NOTHING");
  }
};

struct UpdateFilter : KeyStatement {
  FilterRow row;

  explicit UpdateFilter(soci::session& session) : KeyStatement(session) {
    Use(row.FilterEntryID);
    Use(row.Status);
    Use(row.Description);
    Use(row.ActionID);
    Use(row.Note);
    Use(row.CriteriaID);
    Prepare(
        "UPDATE OR IGNORE filters SET FilterEntryID = ?4, Status = ?5, Description = ?6, ActionID = ?7, Note = ?8,"
        " CriteriaID = ?9 WHERE " +
        std::string(kScope) + kKey);
  }
};

struct DeleteFilter : KeyStatement {
  explicit DeleteFilter(soci::session& session) : KeyStatement(session) {
    Prepare("DELETE FROM filters WHERE " + std::string(kScope) + kKey);
  }
};

struct LastPosition : ScopeStatement {
  long long position = 0;

  explicit LastPosition(soci::session& session) : ScopeStatement(session) {
    Into(position);
    Prepare("SELECT COALESCE(MAX(Position), 0) FROM filters WHERE " + std::string(kScope));
  }
};

// Moves the filters between two positions by a distance.
struct ShiftFilters : ScopeStatement {
  long long from = 0, to = 0, distance = 0;

  explicit ShiftFilters(soci::session& session) : ScopeStatement(session) {
    Use(from);
    Use(to);
    Use(distance);
    Prepare("UPDATE filters SET Position = Position + ?5 WHERE " + std::string(kScope) +
            " AND Position BETWEEN ?3 AND ?4");
  }
};

struct PlaceFilter : KeyStatement {
  long long position = 0;

  explicit PlaceFilter(soci::session& session) : KeyStatement(session) {
    Use(position);
    Prepare("UPDATE filters SET Position = ?4 WHERE " + std::string(kScope) + kKey);
  }
};

bool Matches(const FilterRow& query, const FilterRow& row) {
  return Fits(query.FilterEntryID, row.FilterEntryID) && Fits(query.CriteriaID, row.CriteriaID) &&
         Fits(query.ActionID, row.ActionID) && Fits(query.Description, row.Description) && Fits(query.Note, row.Note) &&
         Fits(query.Status, row.Status);
}

// The filter of the query's key, if it matches the rest of the query; null otherwise.
PlacedFilter* Find(Connection& connection, const FilterRow& query) {
  auto& get = connection.The<GetFilter>();
  get.Set(query);
  return get.One() && Matches(query, get.row) ? &get.WithScope() : nullptr;
}

long long LastPositionOf(Connection& connection, const FilterRow& scope) {
  auto& last = connection.The<LastPosition>();
  last.Set(scope);
  last.One();
  return last.position;
}

void Shift(Connection& connection, const FilterRow& scope, long long from, long long to, long long distance) {
  if (from > to) return;
  auto& shift = connection.The<ShiftFilters>();
  shift.Set(scope);
  shift.from = from;
  shift.to = to;
  shift.distance = distance;
  shift.Change();
}

// Moves the filter of an id from its position to another, which may lie behind the last; those between give way.
void Move(Connection& connection, const PlacedFilter& found, const std::string& filter_entry_id, long long position) {
  const long long target = std::min(position, LastPositionOf(connection, found));
  if (target == found.Position) return;
  if (target > found.Position) {
    Shift(connection, found, found.Position + 1, target, -1);
  } else {
    Shift(connection, found, target, found.Position - 1, 1);
  }
  auto& place = connection.The<PlaceFilter>();
  place.Set(found);
  place.filter_entry_id = filter_entry_id;
  place.position = target;
  place.Change();
}

class StoredFilter : public Bound<Filter> {
 public:
  using Bound::Bound;

  int FindFirstFilter() override {
    std::vector<PlacedFilter> rows;
    rows.reserve(kUsualFilters);
    const FilterRow query = Query();
    Data().Do([&](Connection& connection) {
      auto& list = connection.The<ListFilters>();
      list.Set(query);
      list.ForEach([&] {
        if (Matches(query, list.row)) rows.push_back(std::move(list.WithScope()));
      });
    });
    found_.Start(std::move(rows));
    return FindNextFilter();
  }

  int FindNextFilter() override {
    PlacedFilter* row = found_.Next();
    if (!row) return 0;
    Take(std::move(*row));
    return 1;
  }

  int getfilter() override {
    bool found = false;
    Data().Do([&](Connection& connection) {
      PlacedFilter* row = Find(connection, Query());
      found = row != nullptr;
      if (found) Take(std::move(*row));
    });
    return found ? 1 : 0;
  }

  int AddFilter() override {
    long long added = 0;
    Data().Do([&](Connection& connection) {
      auto& insert = connection.The<InsertFilter>();
      insert.row = Query();
      added = insert.Change();
    });
    return added == 1 ? 1 : 0;
  }

  int EditFilter(const std::string& filter_entry_id, int status, const std::string& description,
                 const std::string& action_id, const std::string& note, const std::string& criteria_id,
                 int order) override {
    long long changed = 0;
    Data().Change([&](Connection& connection) {
      const PlacedFilter* found = Find(connection, Query());
      if (!found) return;
      auto& update = connection.The<UpdateFilter>();
      update.Set(*found);
      update.row.FilterEntryID = filter_entry_id;
      update.row.Status = status;
      update.row.Description = description;
      update.row.ActionID = action_id;
      update.row.Note = note;
      update.row.CriteriaID = criteria_id;
      changed = update.Change();
      if (changed == 1 && order > 0) Move(connection, *found, filter_entry_id, order);
    });
    return changed == 1 ? 1 : 0;
  }

  int RemoveFilter() override {
    bool removed = false;
    Data().Change([&](Connection& connection) {
      const PlacedFilter* found = Find(connection, Query());
      if (!found) return;
      auto& remove = connection.The<DeleteFilter>();
      remove.Set(*found);
      removed = remove.Change() == 1;
      Shift(connection, *found, found->Position + 1, LastPositionOf(connection, *found), -1);
    });
    return removed ? 1 : 0;
  }

 private:
  FilterRow Query() const {
    return {FilterEntryID, CriteriaID, ActionID, Description, Note, Status, Postoffice, Mailbox};
  }

  void Take(PlacedFilter&& row) {
    FilterEntryID = std::move(row.FilterEntryID);
    CriteriaID = std::move(row.CriteriaID);
    ActionID = std::move(row.ActionID);
    Description = std::move(row.Description);
    Note = std::move(row.Note);
    Status = static_cast<int>(row.Status);
    Order = static_cast<int>(row.Position);
    Postoffice = std::move(row.Postoffice);
    Mailbox = std::move(row.Mailbox);
  }

  FoundRows<PlacedFilter> found_;
};

}  // namespace

std::unique_ptr<Filter> MakeFilter(Servers& servers) { return std::make_unique<StoredFilter>(servers); }

}  // namespace qv
