#pragma once

#include <soci/soci.h>
#include <sys/types.h>

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <typeindex>

namespace qv {

// One open connection to a server's database, with its prepared statements. It is used by one thread at a time.
//
// What the libraries raise leaves it as soci::soci_error; Database turns that into RuntimeError.
class Connection {
 public:
  enum class Mode { Open, Create };

  // Opens the database and brings its tables to the present version. Raises RuntimeError when it is missing, another
  // program's, of a later version or read-only. Create makes a new one and raises when there is a file already.
  Connection(const std::filesystem::path& file, Mode mode);

  // Whether the name still leads to the file that is open.
  bool Current() const;

  // Runs statements without parameters and results.
  void Execute(const std::string& script);

  // The connection's one instance of a statement, prepared at first use.
  template <class OneStatement>
  OneStatement& The() {
    std::shared_ptr<void>& slot = statements_[typeid(OneStatement)];
    if (!slot) slot = std::make_shared<OneStatement>(session_);
    return *static_cast<OneStatement*>(slot.get());
  }

  // The number that a statement without parameters reads.
  long long Number(const std::string& query);

  soci::session& session() { return session_; }

 private:
  void Configure(Mode mode);

  std::filesystem::path file_;
  soci::session session_;
  std::map<std::type_index, std::shared_ptr<void>> statements_;  // gone before the session
  dev_t device_ = 0;
  ino_t inode_ = 0;
};

}  // namespace qv
