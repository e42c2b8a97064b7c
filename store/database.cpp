#include "store/database.h"

#include <soci/sqlite3/soci-sqlite3.h>

#include <utility>

#include "platform/runtime_error.h"
#include "platform/text.h"
#include "store/connection.h"

namespace qv {

namespace {

// How many connections wait open for their next use.
constexpr std::size_t kIdleConnections = 2;

// What the database says, without the statement, its data and the library's function.
std::string ReasonOf(const soci::soci_error& error) {
  const std::string text = error.get_error_message();
  const std::size_t end = StartsWith(text, "sqlite3_") ? text.find(": ") : std::string::npos;
  return end == std::string::npos ? text : text.substr(end + 2);
}

std::string Describe(const soci::sqlite3_soci_error& error, const std::string& file) {
  const std::string database = "The database '" + file + "'";
  switch (error.result() & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
    case SQLITE_PROTOCOL:
      return database + " is locked by another program.";
    case SQLITE_FULL:
      return database + " can't be written: the disk is full.";
    case SQLITE_READONLY:
      return database + " can't be written: it is read-only.";
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_AUTH:
      return database + " can't be opened.";
    case SQLITE_CORRUPT:
      return database + " is damaged.";
    case SQLITE_NOTADB:
      return "The file '" + file + "' is no database of this program.";
    case SQLITE_IOERR:
      return database + " can't be read or written.";
    default:
      return database + " can't carry it out: " + ReasonOf(error);
  }
}

// Runs a step and has what the libraries raise name the file.
template <class Step>
auto Naming(const std::filesystem::path& file, Step&& step) {
  try {
    return step();
  } catch (const soci::sqlite3_soci_error& error) {
    throw RuntimeError(Describe(error, file.string()));
  } catch (const soci::soci_error& error) {
    throw RuntimeError("The database '" + file.string() + "' can't carry it out: " + ReasonOf(error));
  }
}

}  // namespace

Database::Database(std::filesystem::path file) : file_(std::move(file)) { GiveBack(Take()); }

Database::~Database() = default;

void Database::Create(const std::filesystem::path& file) {
  Naming(file, [&] { Connection(file, Connection::Mode::Create); });
}

void Database::Do(const Operation& operation) { Guarded(operation); }

void Database::Change(const Operation& operation) {
  Guarded([&](Connection& connection) {
    connection.Execute("BEGIN IMMEDIATE;");
    operation(connection);
    connection.Execute("COMMIT;");
  });
}

void Database::Look(const Operation& operation) {
  Guarded([&](Connection& connection) {
    connection.Execute("BEGIN;");
    operation(connection);
    connection.Execute("COMMIT;");
  });
}

// A connection on which anything went wrong is closed, which also takes back its transaction.
void Database::Guarded(const Operation& operation) {
  std::unique_ptr<Connection> connection = Take();
  Naming(file_, [&] { operation(*connection); });
  GiveBack(std::move(connection));
}

std::unique_ptr<Connection> Database::Take() {
  for (;;) {
    std::unique_ptr<Connection> connection;
    {
      const std::lock_guard lock(mutex_);
      if (idle_.empty()) break;
      connection = std::move(idle_.back());
      idle_.pop_back();
    }
    if (connection->Current()) return connection;
  }
  return Naming(file_, [&] { return std::make_unique<Connection>(file_, Connection::Mode::Open); });
}

void Database::GiveBack(std::unique_ptr<Connection> connection) {
  const std::lock_guard lock(mutex_);
  if (idle_.size() < kIdleConnections) idle_.push_back(std::move(connection));
}

std::filesystem::path DatabaseFile(const std::filesystem::path& data_directory) {
  return data_directory / "quillvane.db";
}

}  // namespace qv
