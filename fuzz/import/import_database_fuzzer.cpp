// Reads any text as an export into a database, from which the same rows must come.

#include <stdlib.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "store/database.h"
#include "store/exchange.h"

namespace {

// A database for the whole run, in memory-backed storage where there is some.
class TemporaryDatabase {
 public:
  TemporaryDatabase() {
    std::string name = std::filesystem::exists("/dev/shm") ? "/dev/shm/qv-fuzz-XXXXXX" : "qv-fuzz-XXXXXX";
    if (!mkdtemp(name.data())) std::abort();
    directory_ = name;
    const std::filesystem::path file = qv::DatabaseFile(directory_);
    qv::Database::Create(file);
    database_ = std::make_unique<qv::Database>(file);
  }
  ~TemporaryDatabase() {
    database_.reset();
    std::error_code none;
    std::filesystem::remove_all(directory_, none);
  }
  TemporaryDatabase(const TemporaryDatabase&) = delete;
  TemporaryDatabase& operator=(const TemporaryDatabase&) = delete;

  qv::Database& Get() { return *database_; }

 private:
  std::filesystem::path directory_;
  std::unique_ptr<qv::Database> database_;
};

qv::Database& TheDatabase() {
  static TemporaryDatabase database;
  return database.Get();
}

// The scopes in the store's order; the order inside each stays.
void SortScopes(std::vector<qv::FilterRow>& filters) {
  std::stable_sort(filters.begin(), filters.end(), [](const qv::FilterRow& a, const qv::FilterRow& b) {
    return a.Postoffice != b.Postoffice ? a.Postoffice < b.Postoffice : a.Mailbox < b.Mailbox;
  });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  qv::DataSet data;
  try {
    data = qv::ReadDataSet({reinterpret_cast<const char*>(bytes), size});
  } catch (const qv::MalformedData&) {
    return 0;
  }
  // A section that is left out would stay as the run before left it.
  qv::DataSet::Visit(data, [](const char*, auto& rows) {
    if (!rows) rows.emplace();
  });
  qv::StoreDataSet(TheDatabase(), data);
  SortScopes(*data.filters);
  if (qv::WriteDataSet(qv::LoadDataSet(TheDatabase())) != qv::WriteDataSet(data)) std::abort();
  return 0;
}
