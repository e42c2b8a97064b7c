#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/runtime_error.h"
#include "tests/support/memory_store.h"

namespace qv::test {

// What the record classes of a MemoryStore have in common: the binding to a server, and the entry of each operation.
template <class Record>
class MemoryRecord : public Record {
 public:
  MemoryRecord(MemoryStore& store, std::string name) : store_(store), name_(std::move(name)) {}

  void SetHost() override {
    (void)Refused("SetHost");
    data_ = &store_.Bound(this->Host);
  }

 protected:
  // Notes the call. What it is to answer in the place of doing anything, if that has been set up.
  std::optional<int> Refused(const std::string& operation, const std::vector<std::string>& arguments = {}) {
    return store_.Enter(name_ + "." + operation, this->Host, arguments);
  }
  ServerData& data() {
    if (!data_) throw RuntimeError(name_ + " is not bound to a server.");
    return *data_;
  }
  ServerData& DataOrLocal() { return data_ ? *data_ : store_.server(); }

 private:
  MemoryStore& store_;
  std::string name_;
  ServerData* data_ = nullptr;
};

// The creation of an object, which is a call as well.
template <class Object, class Record>
std::unique_ptr<Record> Make(MemoryStore& store, const std::string& name) {
  store.Enter(name + ".Create", "", {});
  return std::make_unique<Object>(store);
}

}  // namespace qv::test
