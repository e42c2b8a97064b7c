#include "services/settings.h"

#include <charconv>

#include "platform/text.h"
#include "store/bound.h"
#include "store/connection.h"
#include "store/database.h"
#include "store/records.h"
#include "store/registry_values.h"
#include "store/statement.h"

namespace qv {

namespace {

// The whole number that a text spells, as 32 bits; nothing for any other text.
std::optional<std::uint32_t> WordOf(const std::string& text) {
  const std::string trimmed = Trim(text);
  const char* first = trimmed.data() + (StartsWith(trimmed, "+") ? 1 : 0);
  const char* last = trimmed.data() + trimmed.size();
  long long number = 0;
  const auto [end, error] = std::from_chars(first, last, number);
  if (error != std::errc() || end != last || number < INT32_MIN || number > UINT32_MAX) return std::nullopt;
  return static_cast<std::uint32_t>(number);
}

class StoredSetting : public Bound<Setting> {
 public:
  using Bound::Bound;

  int GetRegistryword() override {
    const std::optional<RegistryValue> found = ReadRegistryValue(DataOrLocal(), hKey, ValueName);
    if (!found || found->kind != RegistryKind::Word) return 0;
    Value = std::to_string(static_cast<std::int32_t>(found->word));
    return 1;
  }

  int SetRegistryWord() override {
    const std::optional<std::uint32_t> word = WordOf(Value);
    if (!word) return 0;
    WriteRegistryValue(DataOrLocal(), hKey, ValueName, {RegistryKind::Word, *word, ""});
    return 1;
  }
};

struct SelectOption : Statement {
  long long scope = 0;
  std::string query_fold, value_name_fold, value;

  explicit SelectOption(soci::session& session) : Statement(session) {
    Use(scope);
    Use(query_fold);
    Use(value_name_fold);
    Into(value);
    Prepare("SELECT Value FROM options WHERE Scope = ?1 AND QueryFold = ?2 AND ValueNameFold = ?3");
  }
};

struct UpsertOption : Statement {
  long long scope = 0;
  std::string query, value_name, value, query_fold, value_name_fold;

  explicit UpsertOption(soci::session& session) : Statement(session) {
    Use(scope);
    Use(query);
    Use(value_name);
    Use(value);
    Use(query_fold);
    Use(value_name_fold);
    Prepare(
        "INSERT INTO options (Scope, Query, ValueName, Value, QueryFold, ValueNameFold) VALUES (?1, ?2, ?3, ?4, ?5, ?6)"
        " ON CONFLICT (Scope, QueryFold, ValueNameFold) DO UPDATE SET Value = excluded.Value");
  }
};

class StoredOption : public Bound<Option> {
 public:
  using Bound::Bound;

  int GetOption() override {
    bool found = false;
    DataOrLocal().Do([&](Connection& connection) {
      auto& select = connection.The<SelectOption>();
      select.scope = Scope;
      select.query_fold = UpperCase(Query);
      select.value_name_fold = UpperCase(ValueName);
      found = select.One();
      Value = found ? select.value : "";
    });
    return found ? 1 : 0;
  }

  int SetOption() override {
    DataOrLocal().Do([&](Connection& connection) {
      auto& upsert = connection.The<UpsertOption>();
      upsert.scope = Scope;
      upsert.query = Query;
      upsert.value_name = ValueName;
      upsert.value = Value;
      upsert.query_fold = UpperCase(Query);
      upsert.value_name_fold = UpperCase(ValueName);
      upsert.Change();
    });
    return 1;
  }
};

}  // namespace

std::unique_ptr<Setting> MakeSetting(Servers& servers) { return std::make_unique<StoredSetting>(servers); }
std::unique_ptr<Option> MakeOption(Servers& servers) { return std::make_unique<StoredOption>(servers); }

}  // namespace qv
