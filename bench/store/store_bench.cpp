// Lists the 100 filters of a scope out of a million rows, through the record class and in plain SQLite, in turn.
// Prints the name, the ratio of the medians and the limit; the exit status is 1 beyond it.

#include <soci/sqlite3/soci-sqlite3.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/scratch_folder.h"
#include "store/connection.h"
#include "store/database.h"
#include "store/servers.h"

namespace {

namespace fs = std::filesystem;

constexpr int kScopes = 10000, kFilters = 100, kRounds = 400, kListingsARound = 5;
constexpr double kLimit = 1.3;

std::string ScopeName(int scope) { return "postoffice " + std::to_string(scope); }

void Fill(qv::Database& database) {
  database.Change([](qv::Connection& connection) {
    connection.Execute(
        "WITH RECURSIVE scopes(s) AS (SELECT 0 UNION ALL SELECT s + 1 FROM scopes WHERE s < " +
        std::to_string(kScopes - 1) + "), places(p) AS (SELECT 1 UNION ALL SELECT p + 1 FROM places WHERE p < " +
        std::to_string(kFilters) +
        ") INSERT INTO filters (Postoffice, Mailbox, FilterEntryID, CriteriaID, ActionID, Description, Note, Status,"
        " Position) SELECT 'postoffice ' || s, '', printf('FLT%032d', s * 1000 + p), printf('CRT%032d', s * 1000 + p),"
        " '', 'Filter number ' || p || ' of its scope', '', p % 2, p FROM scopes, places");
  });
}

// What both ways read, so that neither can leave out work.
struct Sum {
  std::size_t rows = 0, bytes = 0;
  bool operator==(const Sum& other) const { return rows == other.rows && bytes == other.bytes; }
};

Sum ListByRecordClass(qv::Components& components, const std::string& postoffice) {
  Sum sum;
  const auto filter = components.CreateFilter();
  filter->SetHost();
  filter->Postoffice = postoffice;
  for (int found = filter->FindFirstFilter(); found == 1; found = filter->FindNextFilter()) {
    ++sum.rows;
    sum.bytes += filter->FilterEntryID.size() + filter->CriteriaID.size() + filter->ActionID.size() +
                 filter->Description.size() + filter->Note.size() + static_cast<std::size_t>(filter->Status) +
                 filter->Postoffice.size() + filter->Mailbox.size();
  }
  return sum;
}

// A statement on a connection of its own, prepared once.
class PlainSqlite {
 public:
  explicit PlainSqlite(const fs::path& file) {
    using namespace sqlite_api;
    const bool good = sqlite3_open_v2(file.c_str(), &handle_, SQLITE_OPEN_READWRITE, nullptr) == SQLITE_OK &&
                      sqlite3_prepare_v2(
                          handle_,
                          "SELECT FilterEntryID, CriteriaID, ActionID, Description, Note, Status, Position, Postoffice,"
                          " Mailbox FROM filters WHERE Postoffice = ?1 AND Mailbox = ?2 ORDER BY Position",
                          -1, &statement_, nullptr) == SQLITE_OK;
    if (!good) throw std::runtime_error(sqlite3_errmsg(handle_));
  }
  ~PlainSqlite() {
    sqlite_api::sqlite3_finalize(statement_);
    sqlite_api::sqlite3_close(handle_);
  }
  PlainSqlite(const PlainSqlite&) = delete;
  PlainSqlite& operator=(const PlainSqlite&) = delete;

  Sum List(const std::string& postoffice) {
    using namespace sqlite_api;
    struct Row {
      std::string id, criteria, action, description, note, postoffice, mailbox;
      long long status, position;
    };
    std::vector<Row> rows;
    sqlite3_bind_text(statement_, 1, postoffice.c_str(), static_cast<int>(postoffice.size()), nullptr);
    sqlite3_bind_text(statement_, 2, "", 0, nullptr);
    while (sqlite3_step(statement_) == SQLITE_ROW) {
      rows.push_back({Text(0), Text(1), Text(2), Text(3), Text(4), Text(7), Text(8),
                      sqlite3_column_int64(statement_, 5), sqlite3_column_int64(statement_, 6)});
    }
    sqlite3_reset(statement_);
    Sum sum;
    for (const Row& row : rows) {
      ++sum.rows;
      sum.bytes += row.id.size() + row.criteria.size() + row.action.size() + row.description.size() + row.note.size() +
                   static_cast<std::size_t>(row.status) + row.postoffice.size() + row.mailbox.size();
    }
    return sum;
  }

 private:
  std::string Text(int column) {
    const auto* text = reinterpret_cast<const char*>(sqlite_api::sqlite3_column_text(statement_, column));
    return std::string(text, static_cast<std::size_t>(sqlite_api::sqlite3_column_bytes(statement_, column)));
  }

  sqlite_api::sqlite3* handle_ = nullptr;
  sqlite_api::sqlite3_stmt* statement_ = nullptr;
};

template <class Step>
double Microseconds(Step step) {
  const auto start = std::chrono::steady_clock::now();
  step();
  return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start).count();
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

int Run(const fs::path& directory) {
  qv::Database::Create(qv::DatabaseFile(directory));
  qv::Servers servers(directory);
  Fill(servers.Of(""));
  const auto components = servers.MakeComponents();
  PlainSqlite plain(qv::DatabaseFile(directory));
  std::vector<double> record_class, plain_sqlite;
  for (int round = 0; round < kRounds; ++round) {
    // A few listings of each scope, so that both ways find it in memory and neither pays for the first reading alone.
    const std::string scope = ScopeName(round * 7919 % kScopes);
    Sum one, other;
    plain.List(scope);
    ListByRecordClass(*components, scope);
    for (int i = 0; i < kListingsARound; ++i) {
      plain_sqlite.push_back(Microseconds([&] { other = plain.List(scope); }));
      record_class.push_back(Microseconds([&] { one = ListByRecordClass(*components, scope); }));
    }
    if (!(one == other) || one.rows != static_cast<std::size_t>(kFilters)) {
      throw std::runtime_error("the listings differ");
    }
  }
  const double ratio = Median(record_class) / Median(plain_sqlite);
  std::fprintf(stderr, "record class %.1f us, plain SQLite %.1f us\n", Median(record_class), Median(plain_sqlite));
  std::printf("store_listing %.2f %.1f\n", ratio, kLimit);
  return ratio <= kLimit ? 0 : 1;
}

}  // namespace

int main() { return qv::bench::RunInScratchFolder(Run); }
