#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/runtime_error.h"
#include "store/servers.h"

namespace qv {

// What binds a record class to the database of its Host.
template <class RecordClass>
class Bound : public RecordClass {
 public:
  explicit Bound(Servers& servers) : servers_(servers) {}
  void SetHost() override { database_ = &servers_.Of(this->Host); }

 protected:
  Database& Data() {
    if (!database_) throw RuntimeError("The object is not bound to a server.");
    return *database_;
  }
  // For the classes that work on the local server until they are bound.
  Database& DataOrLocal() { return database_ ? *database_ : servers_.Of(""); }

 private:
  Servers& servers_;
  Database* database_ = nullptr;
};

// Whether a field of a row fits that of a query template.
inline bool Fits(const std::string& query, const std::string& field) { return query.empty() || query == field; }
inline bool Fits(long long query, long long field) { return query == -1 || query == field; }

// The rows that a FindFirst found, handed out one by one: what changes in the meantime does not shift them.
template <class Row>
class FoundRows {
 public:
  void Start(std::vector<Row> rows) {
    rows_ = std::move(rows);
    next_ = 0;
  }
  // A row that may be moved from, or null.
  Row* Next() { return next_ < rows_.size() ? &rows_[next_++] : nullptr; }

 private:
  std::vector<Row> rows_;
  std::size_t next_ = 0;
};

}  // namespace qv
