// Hands any lines to a console session on a demonstration server. Each has to be answered with a state or an error, and
// the session ends with its input, wherever it stands.

#include <algorithm>
#include <boost/json.hpp>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "app/demo/demo_server.h"
#include "hosts/console/session.h"
#include "store/database.h"
#include "store/exchange.h"
#include "store/servers.h"

namespace {

class Lines : public qv::Carrier {
 public:
  explicit Lines(std::string_view text) : rest_(text) {}
  ~Lines() override {
    if (answers_ != lines_ + 1) std::abort();  // the first state comes before any line
  }
  std::optional<std::string> Receive() override {
    if (rest_.empty()) return std::nullopt;
    const std::size_t end = std::min(rest_.find('\n'), rest_.size());
    std::string line(rest_.substr(0, end));
    rest_.remove_prefix(std::min(end + 1, rest_.size()));
    ++lines_;
    return line;
  }
  void Send(std::string message) override {
    ++answers_;
    const boost::json::object answer = boost::json::parse(message).as_object();
    if (answer.contains("state") == answer.contains("error")) std::abort();
  }

 private:
  std::string_view rest_;
  std::size_t lines_ = 0, answers_ = 0;
};

qv::Servers& DemoServers() {
  static const std::unique_ptr<qv::Servers> servers = [] {
    std::string pattern = (std::filesystem::temp_directory_path() / "qvadmin-fuzz-XXXXXX").string();
    const std::filesystem::path folder = mkdtemp(pattern.data());
    qv::Database::Create(qv::DatabaseFile(folder));
    qv::Database database(qv::DatabaseFile(folder));
    qv::StoreDataSet(database, qv::MakeDemoServer(1).data);
    return std::make_unique<qv::Servers>(folder);
  }();
  return *servers;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  Lines lines({reinterpret_cast<const char*>(bytes), size});
  qv::RunSession(DemoServers(), lines);
  return 0;
}
