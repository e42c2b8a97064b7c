#include "store/connection.h"

#include <fcntl.h>
#include <soci/sqlite3/soci-sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "platform/runtime_error.h"
#include "store/schema.h"

namespace qv {

namespace {

// How long a call waits for another writer.
constexpr int kBusyMilliseconds = 5000;

// The connection string that opens a file which is there: an address, in which no character of the path is special.
std::string Address(const std::filesystem::path& file) {
  std::string address = "dbname=file:";
  for (const char c : file.string()) {
    const auto byte = static_cast<unsigned char>(c);
    const bool plain = (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z') ||
                       byte == '/' || byte == '.' || byte == '-' || byte == '_';
    if (plain) {
      address += c;
    } else {
      constexpr char kDigits[] = "0123456789ABCDEF";
      address += {'%', kDigits[byte / 16], kDigits[byte % 16]};
    }
  }
  return address + "?mode=rw";
}

// Makes the file, so that no other program can have made it.
std::string MakeAndAddress(const std::filesystem::path& file) {
  const int made = ::open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
  if (made < 0) {
    const int why = errno;
    if (why == EEXIST) throw RuntimeError("There is a database '" + file.string() + "' already.");
    throw RuntimeError("The database '" + file.string() + "' can't be made: " + std::strerror(why) + ".");
  }
  ::close(made);
  return Address(file);
}

std::string AddressOf(const std::filesystem::path& file) {
  struct stat found {};
  if (::stat(file.c_str(), &found) != 0) throw RuntimeError("The database '" + file.string() + "' is missing.");
  if (!S_ISREG(found.st_mode)) {
    throw RuntimeError("The file '" + file.string() + "' is no database of this program.");
  }
  return Address(file);
}

sqlite_api::sqlite3* Handle(soci::session& session) {
  return static_cast<soci::sqlite3_session_backend*>(session.get_backend())->conn_;
}

}  // namespace

Connection::Connection(const std::filesystem::path& file, Mode mode)
    : file_(std::filesystem::absolute(file)),
      session_(soci::sqlite3, mode == Mode::Create ? MakeAndAddress(file_) : AddressOf(file_)) {
  Configure(mode);
  struct stat found {};
  if (::stat(file_.c_str(), &found) == 0) {
    device_ = found.st_dev;
    inode_ = found.st_ino;
  }
}

void Connection::Configure(Mode mode) {
  sqlite_api::sqlite3_busy_timeout(Handle(session_), kBusyMilliseconds);
  if (sqlite_api::sqlite3_db_readonly(Handle(session_), "main") != 0) {
    throw RuntimeError("The database '" + file_.string() + "' can't be written: it is read-only.");
  }
  Execute("PRAGMA trusted_schema = OFF; PRAGMA cell_size_check = ON;");
  if (mode == Mode::Create) {
    Execute("PRAGMA journal_mode = WAL;");
    CreateSchema(*this);
  } else {
    CheckSchema(*this, file_);
  }
  Execute("PRAGMA synchronous = FULL;");
}

bool Connection::Current() const {
  struct stat found {};
  return ::stat(file_.c_str(), &found) == 0 && found.st_dev == device_ && found.st_ino == inode_;
}

void Connection::Execute(const std::string& script) {
  const int code = sqlite_api::sqlite3_exec(Handle(session_), script.c_str(), nullptr, nullptr, nullptr);
  if (code != 0) throw soci::sqlite3_soci_error(sqlite_api::sqlite3_errmsg(Handle(session_)), code);
}

long long Connection::Number(const std::string& query) {
  long long number = 0;
  session_ << query, soci::into(number);
  return number;
}

}  // namespace qv
