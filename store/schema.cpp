#include "store/schema.h"

#include <iterator>
#include <string>

#include "platform/runtime_error.h"
#include "store/connection.h"

namespace qv {

namespace {

// The steps from each version of the tables to the next. A step that has been released never changes.
//
// Columns have the names of the fields. What counts without regard to case stands a second time in upper case, under a
// name that ends in Fold.
constexpr const char* kMigrations[] = {
    R"(
CREATE TABLE filters (
  id INTEGER PRIMARY KEY,
  Postoffice TEXT NOT NULL,
  Mailbox TEXT NOT NULL,
  FilterEntryID TEXT NOT NULL,
  CriteriaID TEXT NOT NULL,
  ActionID TEXT NOT NULL,
  Description TEXT NOT NULL,
  Note TEXT NOT NULL,
  Status BIGINT NOT NULL,
  Position BIGINT NOT NULL  -- in its scope, from 1 without gaps
);
CREATE UNIQUE INDEX filters_key ON filters (Postoffice, Mailbox, FilterEntryID);
CREATE INDEX filters_order ON filters (Postoffice, Mailbox, Position);

CREATE TABLE criteria (
  id INTEGER PRIMARY KEY,  -- in the order of adding
  Postoffice TEXT NOT NULL,
  Mailbox TEXT NOT NULL,
  CriteriaID TEXT NOT NULL,
  RuleID TEXT NOT NULL,
  CriteriaType TEXT NOT NULL,
  Description TEXT NOT NULL,
  Status BIGINT NOT NULL,
  "Values" TEXT NOT NULL,
  Frequency BIGINT NOT NULL
);
CREATE UNIQUE INDEX criteria_key ON criteria (Postoffice, Mailbox, CriteriaID, RuleID);
CREATE INDEX criteria_order ON criteria (Postoffice, Mailbox, CriteriaID);

CREATE TABLE tasks (
  id INTEGER PRIMARY KEY,  -- in the order of adding
  Postoffice TEXT NOT NULL,
  Mailbox TEXT NOT NULL,
  ActionID TEXT NOT NULL,
  TaskID TEXT NOT NULL,
  TaskType TEXT NOT NULL,
  Description TEXT NOT NULL,
  Status BIGINT NOT NULL,
  "Values" TEXT NOT NULL
);
CREATE UNIQUE INDEX tasks_key ON tasks (Postoffice, Mailbox, ActionID, TaskID);
CREATE INDEX tasks_order ON tasks (Postoffice, Mailbox, ActionID);

CREATE TABLE postoffices (
  id INTEGER PRIMARY KEY,  -- in the order of adding
  Name TEXT NOT NULL UNIQUE,
  Account TEXT NOT NULL,
  Status BIGINT NOT NULL
);

CREATE TABLE mailboxes (
  id INTEGER PRIMARY KEY,  -- in the order of adding
  Postoffice TEXT NOT NULL,
  Mailbox TEXT NOT NULL
);
CREATE UNIQUE INDEX mailboxes_key ON mailboxes (Postoffice, Mailbox);
CREATE INDEX mailboxes_order ON mailboxes (Postoffice);

CREATE TABLE options (
  id INTEGER PRIMARY KEY,
  Scope BIGINT NOT NULL,
  Query TEXT NOT NULL,
  ValueName TEXT NOT NULL,
  Value TEXT NOT NULL,
  QueryFold TEXT NOT NULL,
  ValueNameFold TEXT NOT NULL
);
CREATE UNIQUE INDEX options_key ON options (Scope, QueryFold, ValueNameFold);

CREATE TABLE registry (
  id INTEGER PRIMARY KEY,
  Key TEXT NOT NULL,
  ValueName TEXT NOT NULL,
  Kind TEXT NOT NULL,  -- "word" or "string"
  Word BIGINT NOT NULL,  -- 0 to 4294967295
  Text TEXT NOT NULL,
  KeyFold TEXT NOT NULL,
  ValueNameFold TEXT NOT NULL
);
CREATE UNIQUE INDEX registry_key ON registry (KeyFold, ValueNameFold);
)"};

constexpr long long kVersion = std::size(kMigrations);

void Migrate(Connection& connection) {
  connection.Execute("BEGIN IMMEDIATE;");
  // Another program may have done it while this one waited.
  for (long long version = connection.Number("PRAGMA user_version"); version < kVersion; ++version) {
    connection.Execute(kMigrations[version]);
  }
  connection.Execute("PRAGMA application_id = " + std::to_string(kApplicationID) + ";");
  connection.Execute("PRAGMA user_version = " + std::to_string(kVersion) + ";");
  connection.Execute("COMMIT;");
}

}  // namespace

void CreateSchema(Connection& connection) { Migrate(connection); }

void CheckSchema(Connection& connection, const std::filesystem::path& file) {
  if (connection.Number("PRAGMA application_id") != kApplicationID) {
    throw RuntimeError("The file '" + file.string() + "' is no database of this program.");
  }
  const long long version = connection.Number("PRAGMA user_version");
  if (version < 0 || version > kVersion) {
    throw RuntimeError("The database '" + file.string() + "' was made by a later version of this program.");
  }
  if (version < kVersion) Migrate(connection);
}

}  // namespace qv
