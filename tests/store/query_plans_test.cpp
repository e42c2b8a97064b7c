#include <gtest/gtest.h>
#include <soci/sqlite3/soci-sqlite3.h>

#include "store/connection.h"
#include "store/exchange.h"
#include "store/postoffices.h"
#include "tests/store/store_fixture.h"

namespace qv {
namespace {

// The plan of every statement that the connection has prepared by now.
std::vector<std::pair<std::string, std::string>> Plans(Connection& connection) {
  std::vector<std::pair<std::string, std::string>> plans;
  auto* handle = static_cast<soci::sqlite3_session_backend*>(connection.session().get_backend())->conn_;
  std::vector<std::string> texts;
  for (auto* next = sqlite_api::sqlite3_next_stmt(handle, nullptr); next;
       next = sqlite_api::sqlite3_next_stmt(handle, next)) {
    texts.emplace_back(sqlite_api::sqlite3_sql(next));
  }
  for (const std::string& text : texts) {
    sqlite_api::sqlite3_stmt* statement = nullptr;
    sqlite_api::sqlite3_prepare_v2(handle, ("EXPLAIN QUERY PLAN " + text).c_str(), -1, &statement, nullptr);
    while (sqlite_api::sqlite3_step(statement) == SQLITE_ROW) {
      plans.emplace_back(text, reinterpret_cast<const char*>(sqlite_api::sqlite3_column_text(statement, 3)));
    }
    sqlite_api::sqlite3_finalize(statement);
  }
  return plans;
}

class QueryPlansTest : public StoreTest {};

TEST_F(QueryPlansTest, EveryOperationOfARecordClassGoesByAnIndexAndSortsNothing) {
  auto filter = Bound(components->CreateFilter());
  filter->FilterEntryID = "F1";
  filter->AddFilter();
  filter->FilterEntryID = "F2";
  filter->AddFilter();
  filter->FindFirstFilter();
  filter->FilterEntryID = "F1";
  filter->getfilter();
  filter->EditFilter("F1", 1, "", "", "", "", 2);
  filter->RemoveFilter();
  auto criteria = Bound(components->CreateCriteria());
  criteria->AddCriteria();
  criteria->FindFirstCriteria();
  criteria->GetCriteria();
  criteria->EditCriteria("", 1, "", "", "", "", 1);
  auto task = Bound(components->CreateTask());
  task->AddTask();
  task->FindFirstTask();
  task->GetTask();
  task->EditTask("", 1, "", "", "", "");
  task->RemoveTask();
  auto option = components->CreateOption();
  option->SetOption();
  option->GetOption();
  servers.MakeRegistry()->Write("K", "V", {});
  servers.MakeRegistry()->Read("K", "V");
  MailboxNamesOf(servers.Of(""), "abc");
  int searches = 0;
  servers.Of("").Do([&](Connection& connection) {
    for (const auto& [text, plan] : Plans(connection)) {
      EXPECT_EQ(plan.find("SCAN "), std::string::npos) << text << "\n" << plan;
      EXPECT_EQ(plan.find("TEMP B-TREE"), std::string::npos) << text << "\n" << plan;
      if (plan.find("SEARCH ") != std::string::npos) ++searches;
    }
  });
  EXPECT_GE(searches, 17);
}

TEST_F(QueryPlansTest, TheExportSortsNothing) {
  LoadDataSet(servers.Of(""));
  servers.PostofficeNames("");
  servers.Of("").Do([&](Connection& connection) {
    for (const auto& [text, plan] : Plans(connection)) {
      EXPECT_EQ(plan.find("TEMP B-TREE"), std::string::npos) << text << "\n" << plan;
    }
  });
}

}  // namespace
}  // namespace qv
