#include "tests/support/memory_store.h"

#include <algorithm>

#include "platform/runtime_error.h"
#include "platform/text.h"

namespace qv::test {

MemoryStore::MemoryStore() { server(); }

ServerData& MemoryStore::server(const std::string& host) {
  const std::string name = UpperCase(host);
  return servers_[name.empty() ? "LOCALHOST" : name];
}

ServerData& MemoryStore::Bound(const std::string& host) {
  const std::string name = UpperCase(host);
  const auto found = servers_.find(name.empty() ? "LOCALHOST" : name);
  if (found == servers_.end()) throw RuntimeError("The server '" + host + "' is not known.");
  return found->second;
}

int MemoryStore::CountOf(const std::string& operation) const {
  return static_cast<int>(std::count_if(calls.begin(), calls.end(), [&operation](const std::string& call) {
    return call == operation || StartsWith(call, operation + "@");
  }));
}

void MemoryStore::Raise(const std::string& operation, const std::string& description, int after) {
  faults_[operation] = {true, description, 0, after};
}

void MemoryStore::Refuse(const std::string& operation, int result, int after) {
  faults_[operation] = {false, "", result, after};
}

std::optional<int> MemoryStore::Enter(const std::string& operation, const std::string& host,
                                      const std::vector<std::string>& arguments) {
  std::string call = operation;
  if (!EndsWith(operation, ".Create")) call += "@" + host;
  if (!arguments.empty()) call += "(" + Join(arguments, ",") + ")";
  calls.push_back(call);
  if (before) before(operation);
  const auto fault = faults_.find(operation);
  if (fault == faults_.end()) return std::nullopt;
  if (fault->second.after > 0) {
    --fault->second.after;
    return std::nullopt;
  }
  if (fault->second.raises) throw RuntimeError(fault->second.description);
  return fault->second.result;
}

}  // namespace qv::test
