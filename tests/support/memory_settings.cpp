#include "platform/text.h"
#include "tests/support/memory_record.h"

namespace qv::test {

namespace {

class MemoryPostoffice : public MemoryRecord<Postoffice> {
 public:
  explicit MemoryPostoffice(MemoryStore& store) : MemoryRecord(store, "Postoffice") {}

  int FindFirstPostoffice() override {
    if (const auto refused = Refused("FindFirstPostoffice")) return *refused;
    next_ = 0;
    return Hand();
  }
  int FindNextPostoffice() override {
    if (const auto refused = Refused("FindNextPostoffice")) return *refused;
    return Hand();
  }

 private:
  int Hand() {
    if (next_ >= data().postoffices.size()) return 0;
    Name = data().postoffices[next_++];
    Status = 1;
    return 1;
  }
  std::size_t next_ = 0;
};

class MemorySetting : public MemoryRecord<Setting> {
 public:
  explicit MemorySetting(MemoryStore& store) : MemoryRecord(store, "Setting") {}

  int GetRegistryword() override {
    if (const auto refused = Refused("GetRegistryword", {hKey, ValueName})) return *refused;
    const auto found = DataOrLocal().words.find(LowerCase(hKey + "|" + ValueName));
    if (found == DataOrLocal().words.end()) return 0;
    Value = found->second;
    return 1;
  }
  int SetRegistryWord() override {
    if (const auto refused = Refused("SetRegistryWord", {hKey, ValueName, Value})) return *refused;
    DataOrLocal().words[LowerCase(hKey + "|" + ValueName)] = Value;
    return 1;
  }
};

class MemoryOption : public MemoryRecord<Option> {
 public:
  explicit MemoryOption(MemoryStore& store) : MemoryRecord(store, "Option") {}

  int GetOption() override {
    if (const auto refused = Refused("GetOption", {std::to_string(Scope), Query, ValueName})) return *refused;
    const OptionRow* row = Row();
    Value = row ? row->Value : "";
    return row ? 1 : 0;
  }
  int SetOption() override {
    if (const auto refused = Refused("SetOption", {std::to_string(Scope), Query, ValueName, Value})) return *refused;
    if (OptionRow* row = Row()) {
      row->Value = Value;
    } else {
      DataOrLocal().options.push_back({Scope, Query, ValueName, Value});
    }
    return 1;
  }

 private:
  OptionRow* Row() {
    for (OptionRow& row : DataOrLocal().options) {
      if (row.Scope == Scope && row.Query == Query && row.ValueName == ValueName) return &row;
    }
    return nullptr;
  }
};

}  // namespace

std::unique_ptr<Postoffice> MemoryStore::CreatePostoffice() {
  return Make<MemoryPostoffice, Postoffice>(*this, "Postoffice");
}
std::unique_ptr<Setting> MemoryStore::CreateSetting() { return Make<MemorySetting, Setting>(*this, "Setting"); }
std::unique_ptr<Option> MemoryStore::CreateOption() { return Make<MemoryOption, Option>(*this, "Option"); }

}  // namespace qv::test
