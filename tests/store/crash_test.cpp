#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <random>
#include <set>
#include <thread>

#include "store/connection.h"
#include "store/exchange.h"
#include "tests/store/store_fixture.h"

namespace qv {
namespace {

namespace fs = std::filesystem;

constexpr int kKills = 200, kWrites = 1000;

std::string ValuesOf(int round, int write) {
  return "values " + std::to_string(round) + "/" + std::to_string(write) + std::string(300, 'v');
}

// Adds tasks and acknowledges each down the pipe, until it is killed.
[[noreturn]] void WriteTasks(const fs::path& directory, int round, int acknowledge) noexcept {
  Servers servers(directory);
  auto components = servers.MakeComponents();
  for (int write = 0; write < kWrites; ++write) {
    auto task = components->CreateTask();
    task->SetHost();
    task->ActionID = "CRT" + std::to_string(round);
    task->TaskID = std::to_string(write);
    task->TaskType = "DELETE";
    task->Description = "Delete Message";
    task->Status = 1;
    task->Values = ValuesOf(round, write);
    if (task->AddTask() != 1) ::_exit(1);
    if (::write(acknowledge, &write, sizeof write) != sizeof write) ::_exit(2);
  }
  ::_exit(0);
}

// Kills a writer after a number of acknowledgements and a moment more; returns the last acknowledged write, or -1.
int KillWriter(const fs::path& directory, int round, int after, int microseconds) {
  int ends[2];
  EXPECT_EQ(::pipe(ends), 0);
  const pid_t writer = ::fork();
  if (writer == 0) {
    ::close(ends[0]);
    WriteTasks(directory, round, ends[1]);
  }
  ::close(ends[1]);
  if (writer < 0) throw std::runtime_error("no writer");  // and no number to kill
  int last = -1, read = 0;
  while (last < after && ::read(ends[0], &read, sizeof read) == sizeof read) last = read;
  std::this_thread::sleep_for(std::chrono::microseconds(microseconds));
  ::kill(writer, SIGKILL);
  while (::read(ends[0], &read, sizeof read) == sizeof read) last = read;
  ::close(ends[0]);
  int status = 0;
  ::waitpid(writer, &status, 0);
  EXPECT_TRUE(WIFSIGNALED(status)) << "the writer ended by itself";
  return last;
}

TEST(CrashTest, AKillLosesNoAcknowledgedChangeAndDamagesNothing) {
  TemporaryDirectory directory;
  Database::Create(DatabaseFile(directory.path()));
  std::mt19937 random(20240501);
  std::vector<int> acknowledged;
  for (int round = 0; round < kKills; ++round) {
    const int after = static_cast<int>(random() % 30) - 1, moment = static_cast<int>(random() % 3000);
    acknowledged.push_back(KillWriter(directory.path(), round, after, moment));
    Database database(DatabaseFile(directory.path()));
    database.Do([&](Connection& connection) {
      EXPECT_EQ(connection.Number("SELECT integrity_check = 'ok' FROM pragma_integrity_check"), 1) << round;
    });
    ASSERT_FALSE(HasFailure());
  }

  Database database(DatabaseFile(directory.path()));
  std::vector<int> found(kKills, -1);
  const DataSet data = LoadDataSet(database);
  for (const TaskRow& row : *data.tasks) {
    const int round = std::stoi(row.ActionID.substr(3)), write = std::stoi(row.TaskID);
    ASSERT_EQ(write, found[round] + 1) << "a gap in round " << round;
    found[round] = write;
    ASSERT_EQ(row.Values, ValuesOf(round, write));
    ASSERT_EQ(row.TaskType, "DELETE");
  }
  for (int round = 0; round < kKills; ++round) {
    EXPECT_GE(found[round], acknowledged[round]) << round;
    EXPECT_LE(found[round], acknowledged[round] + 1) << round;
  }
}

[[noreturn]] void Import(const fs::path& file, const DataSet& data) noexcept {
  Database database(file);
  StoreDataSet(database, data);
  ::_exit(0);
}

TEST(CrashTest, AKilledImportIsAllOrNothing) {
  TemporaryDirectory directory;
  const fs::path file = DatabaseFile(directory.path());
  Database::Create(file);
  DataSet old_rows, new_rows;
  old_rows.postoffices.emplace();
  new_rows.postoffices.emplace();
  for (int i = 0; i < 2000; ++i) {
    old_rows.postoffices->push_back({"old " + std::to_string(i), "", 1});
    new_rows.postoffices->push_back({"new " + std::to_string(i), "", 1});
  }
  std::mt19937 random(7);
  for (int round = 0; round < 20; ++round) {
    {
      Database database(file);
      StoreDataSet(database, old_rows);
    }
    const pid_t writer = ::fork();
    if (writer == 0) Import(file, new_rows);
    if (writer < 0) throw std::runtime_error("no writer");
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 30000));
    ::kill(writer, SIGKILL);
    ::waitpid(writer, nullptr, 0);
    Database database(file);
    std::set<std::string> kinds;
    const DataSet data = LoadDataSet(database);
    EXPECT_EQ(data.postoffices->size(), 2000u);
    for (const PostofficeRow& row : *data.postoffices) kinds.insert(row.Name.substr(0, 3));
    EXPECT_EQ(kinds.size(), 1u);
  }
}

}  // namespace
}  // namespace qv
