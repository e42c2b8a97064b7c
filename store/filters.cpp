#include <algorithm>

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

constexpr const char* kScope = "Postoffice = ?1 AND Mailbox = ?2";
constexpr const char* kKey = " AND FilterEntryID = ?3";
constexpr const char* kAnyKey = " AND (?3 = '' OR FilterEntryID = ?3)";
constexpr const char* kTemplate =
    " AND (?4 = '' OR CriteriaID = ?4) AND (?5 = '' OR ActionID = ?5) AND (?6 = '' OR Description = ?6)"
    " AND (?7 = '' OR Note = ?7) AND (?8 = -1 OR Status = ?8)";

// A statement whose first eight parameters are a query template.
struct FilterStatement : Statement {
  FilterRow query;

 protected:
  explicit FilterStatement(soci::session& session) : Statement(session) {
    Use(query.Postoffice);
    Use(query.Mailbox);
    Use(query.FilterEntryID);
    Use(query.CriteriaID);
    Use(query.ActionID);
    Use(query.Description);
    Use(query.Note);
    Use(query.Status);
  }
};

struct SelectFilters : FilterStatement {
  PlacedFilter row;

 protected:
  SelectFilters(soci::session& session, const std::string& rest) : FilterStatement(session) {
    Into(row.FilterEntryID);
    Into(row.CriteriaID);
    Into(row.ActionID);
    Into(row.Description);
    Into(row.Note);
    Into(row.Status);
    Into(row.Position);
    Into(row.Postoffice);
    Into(row.Mailbox);
    Prepare(
        "SELECT FilterEntryID, CriteriaID, ActionID, Description, Note, Status, Position, Postoffice, Mailbox"
        " FROM filters WHERE " +
        std::string(kScope) + rest);
  }
};

struct ListFilters : SelectFilters {
  explicit ListFilters(soci::session& session)
      : SelectFilters(session, std::string(kAnyKey) + kTemplate + " ORDER BY Position, id") {}
};

struct GetFilter : SelectFilters {
  explicit GetFilter(soci::session& session) : SelectFilters(session, std::string(kKey) + kTemplate) {}
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

struct UpdateFilter : FilterStatement {
  FilterRow row;

  explicit UpdateFilter(soci::session& session) : FilterStatement(session) {
    Use(row.FilterEntryID);
    Use(row.Status);
    Use(row.Description);
    Use(row.ActionID);
    Use(row.Note);
    Use(row.CriteriaID);
    Prepare(
        "UPDATE OR IGNORE filters SET FilterEntryID = ?9, Status = ?10, Description = ?11, ActionID = ?12, Note = ?13,"
        " CriteriaID = ?14 WHERE " +
        std::string(kScope) + kKey + kTemplate);
  }
};

struct DeleteFilter : FilterStatement {
  explicit DeleteFilter(soci::session& session) : FilterStatement(session) {
    Prepare("DELETE FROM filters WHERE " + std::string(kScope) + kKey + kTemplate);
  }
};

struct ScopeStatement : Statement {
  std::string postoffice, mailbox;

 protected:
  explicit ScopeStatement(soci::session& session) : Statement(session) {
    Use(postoffice);
    Use(mailbox);
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

struct PlaceFilter : ScopeStatement {
  std::string filter_entry_id;
  long long position = 0;

  explicit PlaceFilter(soci::session& session) : ScopeStatement(session) {
    Use(filter_entry_id);
    Use(position);
    Prepare("UPDATE filters SET Position = ?4 WHERE " + std::string(kScope) + kKey);
  }
};

long long LastPositionOf(Connection& connection, const FilterRow& scope) {
  auto& last = connection.The<LastPosition>();
  last.postoffice = scope.Postoffice;
  last.mailbox = scope.Mailbox;
  last.One();
  return last.position;
}

void Shift(Connection& connection, const FilterRow& scope, long long from, long long to, long long distance) {
  if (from > to) return;
  auto& shift = connection.The<ShiftFilters>();
  shift.postoffice = scope.Postoffice;
  shift.mailbox = scope.Mailbox;
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
  place.postoffice = found.Postoffice;
  place.mailbox = found.Mailbox;
  place.filter_entry_id = filter_entry_id;
  place.position = target;
  place.Change();
}

class StoredFilter : public Bound<Filter> {
 public:
  using Bound::Bound;

  int FindFirstFilter() override {
    std::vector<PlacedFilter> rows;
    Data().Do([&](Connection& connection) {
      auto& list = connection.The<ListFilters>();
      list.query = Query();
      list.ForEach([&] { rows.push_back(list.row); });
    });
    found_.Start(std::move(rows));
    return FindNextFilter();
  }

  int FindNextFilter() override {
    const PlacedFilter* row = found_.Next();
    if (!row) return 0;
    Take(*row);
    return 1;
  }

  int getfilter() override {
    bool found = false;
    Data().Do([&](Connection& connection) {
      auto& get = connection.The<GetFilter>();
      get.query = Query();
      found = get.One();
      if (found) Take(get.row);
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
      auto& get = connection.The<GetFilter>();
      get.query = Query();
      if (!get.One()) return;
      auto& update = connection.The<UpdateFilter>();
      update.query = get.query;
      update.row.FilterEntryID = filter_entry_id;
      update.row.Status = status;
      update.row.Description = description;
      update.row.ActionID = action_id;
      update.row.Note = note;
      update.row.CriteriaID = criteria_id;
      changed = update.Change();
      if (changed == 1 && order > 0) Move(connection, get.row, filter_entry_id, order);
    });
    return changed == 1 ? 1 : 0;
  }

  int RemoveFilter() override {
    bool removed = false;
    Data().Change([&](Connection& connection) {
      auto& get = connection.The<GetFilter>();
      get.query = Query();
      if (!get.One()) return;
      auto& remove = connection.The<DeleteFilter>();
      remove.query = get.query;
      removed = remove.Change() == 1;
      Shift(connection, get.row, get.row.Position + 1, LastPositionOf(connection, get.row), -1);
    });
    return removed ? 1 : 0;
  }

 private:
  FilterRow Query() const {
    return {FilterEntryID, CriteriaID, ActionID, Description, Note, Status, Postoffice, Mailbox};
  }

  void Take(const PlacedFilter& row) {
    FilterEntryID = row.FilterEntryID;
    CriteriaID = row.CriteriaID;
    ActionID = row.ActionID;
    Description = row.Description;
    Note = row.Note;
    Status = static_cast<int>(row.Status);
    Order = static_cast<int>(row.Position);
    Postoffice = row.Postoffice;
    Mailbox = row.Mailbox;
  }

  FoundRows<PlacedFilter> found_;
};

}  // namespace

std::unique_ptr<Filter> MakeFilter(Servers& servers) { return std::make_unique<StoredFilter>(servers); }

}  // namespace qv
