#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace qv {

class Connection;

// The database of one server. It may be used by any thread: a call takes a connection of its own for the time it runs.
class Database {
 public:
  // Opens the database of a file. Raises RuntimeError that names the file when it is missing, locked, damaged,
  // read-only, another program's or of a later version.
  explicit Database(std::filesystem::path file);
  ~Database();
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  // Makes an empty database. Raises RuntimeError when there is such a file already.
  static void Create(const std::filesystem::path& file);

  const std::filesystem::path& file() const { return file_; }

  using Operation = std::function<void(Connection&)>;

  // Runs one statement, whose change is all done or not at all. Like its fellows it raises RuntimeError that names the
  // file when the database can't be reached or can't carry it out.
  void Do(const Operation& operation);
  // Runs several statements as one change. It is taken back when the operation raises anything.
  void Change(const Operation& operation);
  // Runs several statements that read, on one picture of the database.
  void Look(const Operation& operation);

 private:
  void Guarded(const Operation& operation);
  std::unique_ptr<Connection> Take();
  void GiveBack(std::unique_ptr<Connection> connection);

  const std::filesystem::path file_;
  std::mutex mutex_;
  std::vector<std::unique_ptr<Connection>> idle_;
};

// The database file of a data directory.
std::filesystem::path DatabaseFile(const std::filesystem::path& data_directory);

}  // namespace qv
