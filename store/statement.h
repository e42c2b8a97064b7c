#pragma once

#include <soci/soci.h>
#include <soci/sqlite3/soci-sqlite3.h>

#include <string>

namespace qv {

// A prepared statement with the variables that it is bound to. A derived class holds the variables and binds them in
// its constructor, in the order of the statement's parameters and columns.
//
// Every call ends with the statement closed, so that a connection at rest keeps no old picture of the database.
class Statement {
 public:
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  // Calls `row` for each row, with the bound variables holding its columns.
  template <class Row>
  void ForEach(Row&& row) {
    const Closing closing{statement_};
    for (bool got = statement_.execute(true); got; got = statement_.fetch()) row();
  }

  // Whether there is a row; the bound variables hold the first.
  bool One() {
    const Closing closing{statement_};
    return statement_.execute(true);
  }

  // The number of rows that the statement changed.
  long long Change() {
    const Closing closing{statement_};
    statement_.execute(true);
    return statement_.get_affected_rows();
  }

 protected:
  explicit Statement(soci::session& session) : statement_(session) {}
  ~Statement() = default;

  void Use(std::string& text) { statement_.exchange(soci::use(text)); }
  void Use(long long& number) { statement_.exchange(soci::use(number)); }
  void Into(std::string& text) { statement_.exchange(soci::into(text)); }
  void Into(long long& number) { statement_.exchange(soci::into(number)); }

  void Prepare(const std::string& sql) {
    statement_.alloc();
    statement_.prepare(sql);
    statement_.define_and_bind();
  }

 private:
  struct Closing {
    soci::statement& statement;
    ~Closing() {
      auto* backend = static_cast<soci::sqlite3_statement_backend*>(statement.get_backend());
      sqlite_api::sqlite3_reset(backend->stmt_);
    }
  };

  soci::statement statement_;
};

}  // namespace qv
