// Administers a server with 200 postoffices, 100,000 mailboxes and 1,000,000 filters beside one that holds one of each,
// through the console session: an event goes in, the text of the state comes out. Prints a line for each kind of event:
//
//   name  large  empty  more  limit  worst  bytes
//
// the medians of both servers in milliseconds, by how much the large one takes more, what is allowed of that, the
// longest that it took, and the size of the answer. A last line tells the memory of a session that shows the largest
// postoffice. The exit status is 1 when a figure is over its limit.

#include <malloc.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/scratch_folder.h"
#include "hosts/console/session.h"
#include "store/connection.h"
#include "store/database.h"
#include "store/servers.h"

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr double kLimit = 50, kPaneLimit = 1000;
constexpr int kRounds = 15;
constexpr int kPostoffices = 200, kMailboxes = 100'000, kLargest = 50'000, kFilters = 1'000'000;
constexpr int kScopeFilters = 100, kMailboxFilters = 9, kCriteria = 24;

// What an event is called in the table, and what its answer must hold on each server, so that no figure is that of an
// error.
struct Step {
  const char* name;
  std::string event, large_holds, empty_holds;
};

std::string Select(const std::string& node) { return R"({"do":"select","node":"server:LOCALHOST)" + node + R"("})"; }
std::string Expand(const std::string& node) { return R"({"do":"expand","node":"server:LOCALHOST)" + node + R"("})"; }

// The last criterion of a filter that is open.
constexpr const char* kCriteriaShown = "Criterion 24";

// The mailbox that is looked for: on the large server it stands at the end.
std::string Wanted(bool large) { return large ? "user49999" : "user1"; }

std::vector<Step> Steps(bool large) {
  const std::string mailbox = Wanted(large), row = R"("MAILBOX-)" + mailbox + '"', open = R"("title":")";
  const std::string cancel = R"({"do":"sheet","button":"cancel"})", closed = R"("sheet":null)";
  const std::string one = R"("total":1,)", all = R"("total":50000,)",
                    properties = R"({"do":"verb","name":"properties"})";
  std::string window;  // the keys of all rows that the state holds
  for (int n = 0; n < (large ? 500 : 1); ++n) {
    window += (n ? ",\"MAILBOX-user" : "\"MAILBOX-user") + std::to_string(large ? kLargest - 499 + n : 1) + '"';
  }
  return {
      {"expand server", Expand(""), R"(/filters")", R"(/filters")"},
      {"expand postoffices", Expand("/postoffices"), "postoffice:office199", "postoffice:office0"},
      {"list postoffices", Select("/postoffices"), R"("total":200,)", one},
      {"open postoffice", Select("/postoffice:office0"), all, one},
      {"scroll to its end", R"({"do":"scroll","offset":49500})", "user50000", mailbox},
      {"select 500 mailboxes", R"({"do":"selectItems","keys":[)" + window + "]}", all, one},
      {"sort mailboxes", R"({"do":"sort","column":0})", R"("descending":false)", R"("descending":false)"},
      {"sort the other way", R"({"do":"sort","column":0})", R"("descending":true)", R"("descending":true)"},
      {"refresh", R"({"do":"verb","name":"refresh"})", all, one},
      {"find by a letter", R"({"do":"filter","text":"u"})", all, one},
      {"find a mailbox", R"({"do":"filter","text":")" + mailbox + "\"}", one, one},
      {"select it", R"({"do":"selectItems","keys":[)" + row + "]}", one, one},
      {"open its page", properties, open + mailbox, open + mailbox},
      {"close the page", cancel, closed, closed},
      {"find no longer", R"({"do":"filter","text":""})", all, one},
      {"double click it", R"({"do":"doubleClick","item":)" + row + "}", open + mailbox, open + mailbox},
      {"close the page", cancel, closed, closed},
      {"open it anew", Select("/postoffice:office0"), all, one},
      {"postoffice's page", properties, open + "office0", open + "office0"},
      {"close the page", cancel, closed, closed},
      {"system filters", Select("/filters"), R"("total":100,)", one},
      {"open a filter", R"({"do":"doubleClick","item":"FILTER-FLT1"})", kCriteriaShown, kCriteriaShown},
      {"close the filter", R"({"do":"close"})", R"("dialogs":[])", R"("dialogs":[])"},
      {"list postoffices", Select("/postoffices"), R"("total":200,)", one},
      {"close postoffices", R"({"do":"collapse","node":"server:LOCALHOST/postoffices"})", "/postoffices",
       "/postoffices"},
  };
}

struct Figures {
  std::vector<double> milliseconds;
  std::size_t bytes = 0;
};
using Table = std::map<std::string, Figures>;

// Sends the steps one after the other and takes the time from each event to its answer.
class Person : public qv::Carrier {
 public:
  Person(const std::vector<Step>& steps, bool large, Table& table) : steps_(steps), large_(large), table_(table) {}

  std::optional<std::string> Receive() override {
    if (next_ == steps_.size()) return std::nullopt;
    std::string event = steps_[next_].event;
    start_ = Clock::now();
    return event;
  }
  void Send(std::string message) override {
    const double taken = std::chrono::duration<double, std::milli>(Clock::now() - start_).count();
    if (!started_) {  // the state before any event
      started_ = true;
      return;
    }
    const Step& step = steps_[next_++];
    const std::string& wanted = large_ ? step.large_holds : step.empty_holds;
    if (message.rfind("{\"state\"", 0) != 0 || message.find(wanted) == std::string::npos) {
      throw std::runtime_error(step.name + std::string(": ") + message.substr(0, 300));
    }
    Figures& figures = table_[step.name];
    figures.milliseconds.push_back(taken);
    figures.bytes = std::max(figures.bytes, message.size());
  }

 private:
  const std::vector<Step>& steps_;
  bool large_;
  Table& table_;
  std::size_t next_ = 0;
  bool started_ = false;
  Clock::time_point start_ = Clock::now();
};

// Opens the largest postoffice and takes the memory that the session then holds.
class Watcher : public qv::Carrier {
 public:
  std::optional<std::string> Receive() override {
    const std::string events[] = {Expand(""), Expand("/postoffices"), Select("/postoffices"),
                                  Select("/postoffice:office0"), R"({"do":"scroll","offset":100})"};
    const std::size_t held = mallinfo2().uordblks;
    if (next_ == 3) before_ = held;
    if (next_ == std::size(events)) {
      kilobytes = (static_cast<double>(held) - static_cast<double>(before_)) / 1024;
      return std::nullopt;
    }
    return events[next_++];
  }
  void Send(std::string) override {}

  double kilobytes = 0;

 private:
  std::size_t next_ = 0, before_ = 0;
};

std::string Series(int from, int to) {
  return "WITH RECURSIVE series(n) AS (SELECT " + std::to_string(from) +
         " UNION ALL SELECT n + 1 FROM series WHERE n < " + std::to_string(to) + ") ";
}

// Filters of the scopes of a query of (Postoffice, Mailbox, filters).
std::string InsertFilters(const std::string& scopes) {
  return "WITH RECURSIVE places(p) AS (SELECT 1 UNION ALL SELECT p + 1 FROM places WHERE p < " +
         std::to_string(kScopeFilters) +
         "), made AS MATERIALIZED (SELECT Postoffice, Mailbox, p, hex(randomblob(16)) AS guid FROM (" + scopes +
         ") JOIN places ON p <= filters) INSERT INTO filters (Postoffice, Mailbox, FilterEntryID, CriteriaID, ActionID,"
         " Description, Note, Status, Position) SELECT Postoffice, Mailbox, 'FLT' || guid, 'CRT' || guid, '',"
         " 'Keep out offers of kind ' || p, 'Asked for by the post room', p % 2, p FROM made;";
}

// Names the first of the system filters and gives each of them its criteria.
void FillCriteria(qv::Connection& connection) {
  connection.Execute(
      "UPDATE filters SET FilterEntryID = 'FLT1', CriteriaID = 'CRT1' WHERE Postoffice = '' AND Mailbox = '' AND "
      "Position ="
      " 1;");
  connection.Execute(Series(1, kCriteria) +
                     "INSERT INTO criteria (Postoffice, Mailbox, CriteriaID, RuleID, CriteriaType, Description, Status,"
                     " \"Values\", Frequency) SELECT '', '', CriteriaID, n, '', 'Criterion ' || n, 0, '', 0"
                     " FROM filters CROSS JOIN series WHERE Postoffice = '' AND Mailbox = '';");
}

void Fill(qv::Connection& connection) {
  connection.Execute(
      Series(0, kPostoffices - 1) +
      "INSERT INTO postoffices (Name, Account, Status) SELECT 'office' || n, 'Account ' || n, 1 FROM series;");
  // Half of the mailboxes in one postoffice, the others spread over the rest.
  connection.Execute(
      Series(1, kMailboxes) +
      "INSERT INTO mailboxes (Postoffice, Mailbox) SELECT 'office' || (CASE WHEN n <= " + std::to_string(kLargest) +
      " THEN 0 ELSE 1 + n % " + std::to_string(kPostoffices - 1) + " END), 'user' || n FROM series;");
  connection.Execute(
      "INSERT INTO options (Scope, Query, ValueName, Value, QueryFold, ValueNameFold) SELECT 2, Postoffice || '/' || "
      "Mailbox,"
      " 'MailBox-MailboxRulesStatus', '1', upper(Postoffice || '/' || Mailbox), 'MAILBOX-MAILBOXRULESSTATUS'"
      " FROM mailboxes;");
  // What the mailboxes' usual filters leave over goes to the first of them, one each.
  const int others = kFilters - kScopeFilters * (1 + kPostoffices) - kMailboxFilters * kMailboxes;
  const std::string each = std::to_string(kScopeFilters);
  connection.Execute(InsertFilters("SELECT '' AS Postoffice, '' AS Mailbox, " + each + " AS filters"));
  connection.Execute(
      InsertFilters("SELECT Name AS Postoffice, '' AS Mailbox, " + each + " AS filters FROM postoffices"));
  connection.Execute(InsertFilters("SELECT Postoffice, Mailbox, " + std::to_string(kMailboxFilters) +
                                   " + (id <= " + std::to_string(others) + ") AS filters FROM mailboxes"));
  FillCriteria(connection);
  if (connection.Number("SELECT COUNT(*) FROM mailboxes") != kMailboxes ||
      connection.Number("SELECT COUNT(*) FROM filters") != kFilters) {
    throw std::runtime_error("the large server is not as it should be");
  }
}

void MakeServers(const fs::path& large, const fs::path& empty) {
  const auto make = [](const fs::path& directory, const std::function<void(qv::Connection&)>& fill) {
    fs::create_directories(directory / "config");
    qv::Database::Create(qv::DatabaseFile(directory));
    qv::Database(qv::DatabaseFile(directory)).Change(fill);
  };
  make(empty, [](qv::Connection& connection) {
    connection.Execute(
        "INSERT INTO postoffices (Name, Account, Status) VALUES ('office0', '', 1);"
        "INSERT INTO mailboxes (Postoffice, Mailbox) VALUES ('office0', 'user1');");
    connection.Execute(InsertFilters("SELECT '' AS Postoffice, '' AS Mailbox, 1 AS filters"));
    FillCriteria(connection);
  });
  make(large, Fill);
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

int Run(const fs::path& root) {
  const auto start = Clock::now();
  MakeServers(root / "large", root / "empty");
  std::fprintf(stderr, "the servers took %.0f s\n", std::chrono::duration<double>(Clock::now() - start).count());
  qv::Servers large(root / "large"), empty(root / "empty");
  const std::vector<Step> large_steps = Steps(true), empty_steps = Steps(false);
  Table large_table, empty_table;
  for (int round = 0; round < kRounds; ++round) {
    Person busy(large_steps, true, large_table), idle(empty_steps, false, empty_table);
    qv::RunSession(large, busy);
    qv::RunSession(empty, idle);
  }
  bool good = true;
  std::printf("%-22s %8s %8s %8s %6s %8s %8s\n", "ms", "large", "empty", "more", "limit", "worst", "bytes");
  const auto print = [&](const std::string& name) {
    const Figures &one = large_table[name], &other = empty_table[name];
    const double much = Median(one.milliseconds), little = Median(other.milliseconds);
    const double worst = *std::max_element(one.milliseconds.begin(), one.milliseconds.end());
    std::printf("%-22s %8.2f %8.2f %8.2f %6g %8.2f %8zu\n", name.c_str(), much, little, much - little, kLimit, worst,
                one.bytes);
    good = good && much - little <= kLimit;
    large_table.erase(name);
  };
  for (const Step& step : large_steps) {
    if (large_table.count(step.name) != 0) print(step.name);
  }
  Watcher watcher;
  qv::RunSession(large, watcher);
  std::printf("kb of a session with %d mailboxes on show: %.0f, limit %g\n", kLargest, watcher.kilobytes, kPaneLimit);
  return good && watcher.kilobytes <= kPaneLimit ? 0 : 1;
}

}  // namespace

int main() { return qv::bench::RunInScratchFolder(Run); }
