#include <map>
#include <type_traits>
#include <utility>

#include "platform/text.h"
#include "store/connection.h"
#include "store/database.h"
#include "store/exchange.h"
#include "store/statement.h"

namespace qv {

namespace {

// The order in which the rows of a kind are read.
template <class Row>
constexpr const char* kOrder = std::is_same_v<Row, FilterRow> ? "Postoffice, Mailbox, Position, id" : "id";

template <class Row, class Visitor>
void VisitColumns(Row& row, Visitor& visitor) {
  std::decay_t<Row>::Visit(row, visitor);
}

template <class Visitor>
void VisitColumns(RegistryRow& row, Visitor& visitor) {
  visitor.Text("Key", row.KeyPath);
  visitor.Text("ValueName", row.ValueName);
  visitor.Text("Kind", row.Kind);
  visitor.Whole("Word", row.Word, kRange32);
  visitor.Text("Text", row.Text);
}

// The columns of a row in order, joined by commas, and as many parameters.
struct ColumnNames {
  std::string names, parameters;
  int count = 0;

  void Text(const char* name, const std::string&) { Add(name); }
  void Whole(const char* name, long long, WholeRange) { Add(name); }
  void Add(const std::string& name) {
    ++count;
    names += (count > 1 ? ", \"" : "\"") + name + "\"";
    parameters += (count > 1 ? ", ?" : "?") + std::to_string(count);
  }
};

// The columns that follow from the fields.
struct Derived {
  std::string first_fold, second_fold;
  long long position = 0;
};

template <class Row>
struct SelectRows : Statement {
  Row row;

  explicit SelectRows(soci::session& session) : Statement(session) {
    ColumnNames columns;
    VisitColumns(row, columns);
    VisitColumns(row, *this);
    Prepare("SELECT " + columns.names + " FROM " + Row::kTable + " ORDER BY " + kOrder<Row>);
  }
  void Text(const char*, std::string& text) { Into(text); }
  void Whole(const char*, long long& number, WholeRange) { Into(number); }
};

template <class Row>
struct InsertRow : Statement {
  Row row;
  Derived derived;

  explicit InsertRow(soci::session& session) : Statement(session) {
    ColumnNames columns;
    VisitColumns(row, columns);
    VisitColumns(row, *this);
    if constexpr (std::is_same_v<Row, FilterRow>) {
      columns.Add("Position");
      Use(derived.position);
    } else if constexpr (std::is_same_v<Row, OptionRow> || std::is_same_v<Row, RegistryRow>) {
      columns.Add(std::is_same_v<Row, OptionRow> ? "QueryFold" : "KeyFold");
      columns.Add("ValueNameFold");
      Use(derived.first_fold);
      Use(derived.second_fold);
    }
    Prepare(std::string("INSERT INTO ") + Row::kTable + " (" + columns.names + ") VALUES (" + columns.parameters + ")");
  }
  void Text(const char*, std::string& text) { Use(text); }
  void Whole(const char*, long long& number, WholeRange) { Use(number); }
};

template <class Row>
void Replace(Connection& connection, const std::vector<Row>& rows) {
  connection.Execute(std::string("DELETE FROM ") + Row::kTable);
  auto& insert = connection.The<InsertRow<Row>>();
  std::map<std::pair<std::string, std::string>, long long> last_positions;
  for (const Row& row : rows) {
    insert.row = row;
    if constexpr (std::is_same_v<Row, FilterRow>) {
      insert.derived.position = ++last_positions[{row.Postoffice, row.Mailbox}];
    } else if constexpr (std::is_same_v<Row, OptionRow>) {
      insert.derived.first_fold = UpperCase(row.Query);
      insert.derived.second_fold = UpperCase(row.ValueName);
    } else if constexpr (std::is_same_v<Row, RegistryRow>) {
      insert.derived.first_fold = UpperCase(row.KeyPath);
      insert.derived.second_fold = UpperCase(row.ValueName);
    }
    insert.Change();
  }
}

}  // namespace

DataSet LoadDataSet(Database& database) {
  DataSet data;
  database.Look([&](Connection& connection) {
    DataSet::Visit(data, [&](const char*, auto& rows) {
      using Row = typename std::decay_t<decltype(*rows)>::value_type;
      auto& select = connection.The<SelectRows<Row>>();
      rows.emplace();
      select.ForEach([&, &into = *rows] { into.push_back(select.row); });
    });
  });
  return data;
}

void StoreDataSet(Database& database, const DataSet& data) {
  database.Change([&](Connection& connection) {
    DataSet::Visit(data, [&](const char*, const auto& rows) {
      if (rows) Replace(connection, *rows);
    });
  });
}

}  // namespace qv
