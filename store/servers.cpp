#include "store/servers.h"

#include <utility>

#include "desktop/code_page.h"
#include "desktop/desktop_files.h"
#include "platform/runtime_error.h"
#include "platform/text.h"
#include "services/server_context.h"
#include "store/database.h"
#include "store/postoffices.h"
#include "store/records.h"
#include "store/registry_values.h"

namespace qv {

namespace {

class StoredComponents : public Components {
 public:
  explicit StoredComponents(Servers& servers) : servers_(servers) {}
  std::unique_ptr<Filter> CreateFilter() override { return MakeFilter(servers_); }
  std::unique_ptr<Criteria> CreateCriteria() override { return MakeCriteria(servers_); }
  std::unique_ptr<Task> CreateTask() override { return MakeTask(servers_); }
  std::unique_ptr<Postoffice> CreatePostoffice() override { return MakePostoffice(servers_); }
  std::unique_ptr<Setting> CreateSetting() override { return MakeSetting(servers_); }
  std::unique_ptr<Option> CreateOption() override { return MakeOption(servers_); }

 private:
  Servers& servers_;
};

class StoredRegistry : public Registry {
 public:
  explicit StoredRegistry(Database& database) : database_(database) {}
  std::optional<RegistryValue> Read(const std::string& key, const std::string& value_name) override {
    return ReadRegistryValue(database_, key, value_name);
  }
  void Write(const std::string& key, const std::string& value_name, const RegistryValue& value) override {
    // Texts are single-byte text in the registry.
    WriteRegistryValue(database_, key, value_name, {value.kind, value.word, FromCodePage(ToCodePage(value.text))});
  }

 private:
  Database& database_;
};

}  // namespace

struct Servers::Server {
  Database database;

  explicit Server(const std::filesystem::path& directory) : database(DatabaseFile(directory)) {}
};

Servers::Servers(const std::filesystem::path& local_directory) : local_(std::make_unique<Server>(local_directory)) {}

Servers::~Servers() = default;

void Servers::Add(const std::string& name, const std::filesystem::path& directory) {
  if (name.empty()) throw RuntimeError("A server needs a name.");
  if (!IsRemoteHost(name)) throw RuntimeError("The name '" + name + "' is the local server's.");
  for (const auto& [taken, server] : others_) {
    if (UpperCase(taken) == UpperCase(name)) throw RuntimeError("There is a server '" + taken + "' already.");
  }
  others_.emplace_back(name, std::make_unique<Server>(directory));
}

std::vector<std::string> Servers::Names() const {
  std::vector<std::string> names = {"LOCALHOST"};
  for (const auto& [name, server] : others_) names.push_back(name);
  return names;
}

Database& Servers::Of(const std::string& host) {
  if (!IsRemoteHost(host)) return local_->database;
  for (const auto& [name, server] : others_) {
    if (UpperCase(name) == UpperCase(host)) return server->database;
  }
  throw RuntimeError("The server '" + host + "' is not known.");
}

std::unique_ptr<Components> Servers::MakeComponents() { return std::make_unique<StoredComponents>(*this); }
std::unique_ptr<Registry> Servers::MakeRegistry() { return std::make_unique<StoredRegistry>(local_->database); }
std::unique_ptr<Files> Servers::MakeFiles() { return std::make_unique<DesktopFiles>(MakeRegistry()); }

std::vector<std::string> Servers::PostofficeNames(const std::string& host) { return PostofficeNamesOf(Of(host)); }

void Servers::ForEachMailbox(const std::string& host, const std::string& postoffice,
                             const std::function<void(const std::string& name)>& take) {
  ForEachMailboxOf(Of(host), postoffice, take);
}

}  // namespace qv
