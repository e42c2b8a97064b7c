// Reads any text as an export into a database, from which the same rows must come.

#include <stdlib.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "store/database.h"
#include "store/exchange.h"

namespace {

// A database in memory-backed storage where there is some, for the whole run.
qv::Database& TheDatabase() {
  static const std::unique_ptr<qv::Database> database = [] {
    std::string name = std::filesystem::exists("/dev/shm") ? "/dev/shm/qv-fuzz-XXXXXX" : "qv-fuzz-XXXXXX";
    if (!mkdtemp(name.data())) std::abort();
    const std::filesystem::path file = std::filesystem::path(name) / "quillvane.db";
    qv::Database::Create(file);
    auto opened = std::make_unique<qv::Database>(file);
    return opened;
  }();
  return *database;
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
