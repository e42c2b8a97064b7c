#include "store/database.h"

#include <gmock/gmock.h>
#include <soci/sqlite3/soci-sqlite3.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <functional>
#include <iostream>
#include <thread>

#include "platform/runtime_error.h"
#include "store/connection.h"
#include "store/exchange.h"
#include "store/postoffices.h"
#include "tests/store/store_fixture.h"

namespace qv {
namespace {

namespace fs = std::filesystem;

class DatabaseTest : public testing::Test {
 protected:
  TemporaryDirectory directory;
  fs::path file = DatabaseFile(directory.path());

  // What a step raises, with the file's name as FILE.
  std::string Raised(const std::function<void()>& step) const {
    try {
      step();
    } catch (const RuntimeError& error) {
      std::string text = error.description();
      const std::size_t at = text.find(file.string());
      if (at != std::string::npos) text.replace(at, file.string().size(), "FILE");
      return text;
    }
    return "nothing";
  }
  std::string RaisedByOpening() const {
    return Raised([this] { Database database(file); });
  }
  void Write(const std::string& bytes) const { std::ofstream(file, std::ios::binary) << bytes; }

  // Runs statements on a connection of its own, as another program would.
  void Other(const std::string& script) const {
    soci::session session(soci::sqlite3, "dbname=" + file.string());
    auto* handle = static_cast<soci::sqlite3_session_backend*>(session.get_backend())->conn_;
    ASSERT_EQ(sqlite_api::sqlite3_exec(handle, script.c_str(), nullptr, nullptr, nullptr), 0);
  }
};

TEST_F(DatabaseTest, AMissingDatabaseIsNotMade) {
  EXPECT_EQ(RaisedByOpening(), "The database 'FILE' is missing.");
  EXPECT_FALSE(fs::exists(file));
}

TEST_F(DatabaseTest, AFolderOrAnEmptyFileIsNone) {
  fs::create_directory(file);
  EXPECT_EQ(RaisedByOpening(), "The file 'FILE' is no database of this program.");
  fs::remove(file);
  Write("");
  EXPECT_EQ(RaisedByOpening(), "The file 'FILE' is no database of this program.");
  EXPECT_EQ(fs::file_size(file), 0u);
}

TEST_F(DatabaseTest, AnotherKindOfFileIsNone) {
  Write(std::string(5000, 'x'));
  EXPECT_EQ(RaisedByOpening(), "The file 'FILE' is no database of this program.");
}

TEST_F(DatabaseTest, AnotherProgramsDatabaseIsLeftAlone) {
  Other("CREATE TABLE theirs (a); PRAGMA application_id = 77; PRAGMA user_version = 1;");
  const auto size = fs::file_size(file);
  EXPECT_EQ(RaisedByOpening(), "The file 'FILE' is no database of this program.");
  EXPECT_EQ(fs::file_size(file), size);
}

TEST_F(DatabaseTest, ALaterVersionIsLeftAlone) {
  Database::Create(file);
  Other("PRAGMA user_version = 99;");
  EXPECT_EQ(RaisedByOpening(), "The database 'FILE' was made by a later version of this program.");
}

TEST_F(DatabaseTest, AnEarlierVersionIsBroughtForward) {
  Other("PRAGMA application_id = 1364607300;");  // the program's mark, and no tables yet
  Database database(file);
  EXPECT_TRUE(AddPostoffice(database, "abc", ""));
  long long version = 0;
  database.Do([&](Connection& connection) { version = connection.Number("PRAGMA user_version"); });
  EXPECT_EQ(version, 1);
}

TEST_F(DatabaseTest, ADatabaseIsMadeOnce) {
  Database::Create(file);
  EXPECT_EQ(Raised([this] { Database::Create(file); }), "There is a database 'FILE' already.");
  EXPECT_THROW(Database::Create(directory.path() / "no" / "such" / "folder.db"), RuntimeError);
}

TEST_F(DatabaseTest, NamesWithSpecialCharactersOpen) {
  for (const char* name : {"a b", "q\"x'y", "100% ?mode=ro#x", "k\xC3\xA4se", "a;b=c"}) {
    const fs::path odd = directory.path() / name;
    fs::create_directory(odd);
    Database::Create(odd / "quillvane.db");
    Database database(odd / "quillvane.db");
    EXPECT_TRUE(AddPostoffice(database, name, "")) << name;
    EXPECT_TRUE(fs::exists(odd / "quillvane.db-wal")) << name;
  }
}

TEST_F(DatabaseTest, SettingsOfEveryConnection) {
  Database::Create(file);
  Database database(file);
  const auto number = [&](const char* query) {
    long long found = -1;
    database.Do([&](Connection& connection) { found = connection.Number(query); });
    return found;
  };
  EXPECT_EQ(number("PRAGMA synchronous"), 2);  // FULL
  EXPECT_EQ(number("PRAGMA busy_timeout"), 5000);
  EXPECT_EQ(number("PRAGMA application_id"), 0x51564144);
  EXPECT_EQ(number("SELECT journal_mode = 'wal' FROM pragma_journal_mode"), 1);
}

TEST_F(DatabaseTest, ALockedDatabaseIsWaitedForAndThenRefused) {
  Database::Create(file);
  Database database(file);
  soci::session other(soci::sqlite3, "dbname=" + file.string());
  other << "BEGIN EXCLUSIVE";
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(Raised([&] { AddPostoffice(database, "abc", ""); }), "The database 'FILE' is locked by another program.");
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::seconds(4));
  EXPECT_TRUE(PostofficeNamesOf(database).empty()) << "readers go on";
  other << "COMMIT";
  EXPECT_TRUE(AddPostoffice(database, "abc", ""));
}

TEST_F(DatabaseTest, AShortLockIsWaitedOut) {
  Database::Create(file);
  Database database(file);
  soci::session other(soci::sqlite3, "dbname=" + file.string());
  other << "BEGIN IMMEDIATE";
  std::thread release([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    other << "COMMIT";
  });
  EXPECT_TRUE(AddPostoffice(database, "abc", ""));
  release.join();
}

TEST_F(DatabaseTest, AFullDiskIsToldAndNothingIsHalfWritten) {
  Database::Create(file);
  Database database(file);
  AddPostoffice(database, "first", "");
  // The idle connection is the one that the next calls take.
  database.Do([](Connection& connection) {
    connection.Number("PRAGMA max_page_count = " + std::to_string(connection.Number("PRAGMA page_count") + 2));
  });
  std::string raised;
  for (int i = 0; i < 1000 && raised.empty(); ++i) {
    const std::string text = Raised([&] { AddPostoffice(database, std::to_string(i), std::string(500, 'x')); });
    if (text != "nothing") raised = text;
  }
  EXPECT_EQ(raised, "The database 'FILE' can't be written: the disk is full.");
  const std::size_t before = PostofficeNamesOf(database).size();
  EXPECT_GT(before, 1u);
  EXPECT_TRUE(AddPostoffice(database, "after", "")) << "a fresh connection has no limit";
  EXPECT_EQ(PostofficeNamesOf(database).size(), before + 1);
}

TEST_F(DatabaseTest, AFailedChangeIsTakenBackWhole) {
  Database::Create(file);
  Database database(file);
  AddPostoffice(database, "before", "");
  EXPECT_THROW(database.Change([](Connection& connection) {
    connection.Execute("DELETE FROM postoffices; INSERT INTO mailboxes (Postoffice, Mailbox) VALUES ('a', 'b');");
    throw std::logic_error("stop");
  }),
               std::logic_error);
  EXPECT_THAT(PostofficeNamesOf(database), testing::ElementsAre("before"));
  EXPECT_TRUE(MailboxNamesOf(database, "a").empty());
}

TEST_F(DatabaseTest, AStatementThatFailsNamesTheFile) {
  Database::Create(file);
  Database database(file);
  EXPECT_EQ(Raised([&] {
              database.Do([](Connection& connection) { connection.Execute("INSERT INTO nowhere VALUES (1);"); });
            }),
            "The database 'FILE' can't carry it out: no such table: nowhere");
}

TEST_F(DatabaseTest, ARefusedRowIsToldWithoutItsData) {
  Database::Create(file);
  Database database(file);
  database.Do([](Connection& connection) {
    connection.Execute(
        "CREATE TRIGGER refuse BEFORE INSERT ON postoffices BEGIN SELECT raise(ABORT, 'no more room'); END;");
  });
  EXPECT_EQ(Raised([&] { AddPostoffice(database, "secret", ""); }),
            "The database 'FILE' can't carry it out: no more room");
}

// Runs a step as a user who owns nothing and prints what it raises.
[[noreturn]] void AsNobody(const std::function<void()>& step) {
  try {
    if (::geteuid() == 0 && (::setgid(65534) != 0 || ::setuid(65534) != 0)) ::_exit(3);
    step();
  } catch (const RuntimeError& error) {
    std::cerr << error.description() << std::flush;
    ::_exit(0);
  }
  std::cerr << "nothing" << std::flush;
  ::_exit(1);
}

TEST_F(DatabaseTest, AReadOnlyDatabaseIsRefused) {
  Database::Create(file);
  ::chmod(directory.path().c_str(), 0555);
  ::chmod(file.c_str(), 0444);
  EXPECT_EXIT(AsNobody([this] { Database database(file); }), testing::ExitedWithCode(0),
              "The database '.*quillvane.db' can't be written: it is read-only.");
  ::chmod(directory.path().c_str(), 0755);
}

TEST_F(DatabaseTest, AnUnreadableDatabaseIsRefused) {
  Database::Create(file);
  ::chmod(directory.path().c_str(), 0755);
  ::chmod(file.c_str(), 0000);
  EXPECT_EXIT(AsNobody([this] { Database database(file); }), testing::ExitedWithCode(0),
              "The database '.*quillvane.db' can't be opened.");
}

TEST_F(DatabaseTest, AReadOnlyFolderIsRefused) {
  Database::Create(file);
  ::chmod(directory.path().c_str(), 0555);
  ::chmod(file.c_str(), 0666);
  EXPECT_EXIT(AsNobody([this] {
                Database database(file);
                AddPostoffice(database, "abc", "");
              }),
              testing::ExitedWithCode(0), "The database '.*quillvane.db' can't be ");
  ::chmod(directory.path().c_str(), 0755);
}

TEST_F(DatabaseTest, ADamagedDatabaseIsToldAndNeverCrashes) {
  Database::Create(file);
  {
    Database database(file);
    for (int i = 0; i < 200; ++i) AddPostoffice(database, "postoffice " + std::to_string(i), std::string(100, 'a'));
  }
  std::string whole;
  {
    std::ifstream in(file, std::ios::binary);
    whole.assign(std::istreambuf_iterator<char>(in), {});
  }
  ASSERT_GT(whole.size(), 20000u);
  int told = 0;
  for (std::size_t at = 100; at < whole.size(); at += 1013) {
    for (const char* suffix : {"-wal", "-shm"}) fs::remove(file.string() + suffix);
    std::string damaged = whole;
    for (std::size_t i = at; i < std::min(at + 1024, whole.size()); ++i) damaged[i] = static_cast<char>(i * 37);
    Write(damaged);
    const std::string raised = Raised([&] {
      Database database(file);
      LoadDataSet(database);
      AddPostoffice(database, "one more", "");
    });
    if (raised != "nothing") {
      ++told;
      EXPECT_THAT(raised, testing::HasSubstr("FILE"));
    }
  }
  EXPECT_GT(told, 10);
  Write(whole.substr(0, 5000));
  EXPECT_EQ(Raised([&] {
              Database database(file);
              LoadDataSet(database);
            }),
            "The database 'FILE' is damaged.");
}

TEST_F(DatabaseTest, AChangeIsSeenAtOnceByEveryOther) {
  Database::Create(file);
  Database one(file), other(file);
  EXPECT_TRUE(PostofficeNamesOf(other).empty());
  for (int i = 0; i < 20; ++i) {
    AddPostoffice(one, std::to_string(i), "");
    EXPECT_EQ(PostofficeNamesOf(other).size(), static_cast<std::size_t>(i + 1));
  }
}

TEST_F(DatabaseTest, ADatabaseThatWasReplacedIsOpenedAnew) {
  Database::Create(file);
  Database database(file);
  AddPostoffice(database, "old", "");
  for (const char* suffix : {"", "-wal", "-shm"}) fs::remove(file.string() + suffix);
  EXPECT_EQ(Raised([&] { AddPostoffice(database, "lost", ""); }), "The database 'FILE' is missing.");
  Database::Create(file);
  AddPostoffice(database, "new", "");
  EXPECT_THAT(PostofficeNamesOf(database), testing::ElementsAre("new"));
}

TEST_F(DatabaseTest, ThreadsShareIt) {
  Database::Create(file);
  Database database(file);
  std::vector<std::thread> threads;
  for (int thread = 0; thread < 8; ++thread) {
    threads.emplace_back([&, thread] {
      for (int i = 0; i < 20; ++i) {
        AddPostoffice(database, std::to_string(thread) + "/" + std::to_string(i), "");
        PostofficeNamesOf(database);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(PostofficeNamesOf(database).size(), 160u);
}

// The open files of this process that belong to the database.
int OpenFiles(const fs::path& folder) {
  int open = 0;
  std::error_code none;
  for (const auto& entry : fs::directory_iterator("/proc/self/fd")) {
    if (fs::read_symlink(entry.path(), none).string().rfind(folder.string(), 0) == 0) ++open;
  }
  return open;
}

TEST_F(DatabaseTest, FewConnectionsStayOpen) {
  constexpr int kThreads = 12;
  Database::Create(file);
  Database database(file);
  for (int burst = 0; burst < 5; ++burst) {
    std::vector<std::thread> threads;
    for (int thread = 0; thread < kThreads; ++thread) {
      threads.emplace_back([&] {
        for (int i = 0; i < 20; ++i) PostofficeNamesOf(database);
      });
    }
    for (std::thread& thread : threads) thread.join();
  }
  // The log of two connections and the shared memory. Of the database file the library keeps what connections have
  // left, one for each that was open at a time, to use it again: closing it would drop the locks of the others.
  EXPECT_LE(OpenFiles(directory.path()), kThreads + 3);
}

}  // namespace
}  // namespace qv
