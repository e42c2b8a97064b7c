#include "store/registry_values.h"

#include "platform/text.h"
#include "store/connection.h"
#include "store/database.h"
#include "store/statement.h"

namespace qv {

namespace {

struct SelectValue : Statement {
  std::string key_fold, value_name_fold;
  std::string kind, text;
  long long word = 0;

  explicit SelectValue(soci::session& session) : Statement(session) {
    Use(key_fold);
    Use(value_name_fold);
    Into(kind);
    Into(word);
    Into(text);
    Prepare("SELECT Kind, Word, Text FROM registry WHERE KeyFold = ?1 AND ValueNameFold = ?2");
  }
};

struct UpsertValue : Statement {
  std::string key, value_name, key_fold, value_name_fold, kind, text;
  long long word = 0;

  explicit UpsertValue(soci::session& session) : Statement(session) {
    Use(key);
    Use(value_name);
    Use(key_fold);
    Use(value_name_fold);
    Use(kind);
    Use(word);
    Use(text);
    Prepare(
        "INSERT INTO registry (Key, ValueName, KeyFold, ValueNameFold, Kind, Word, Text)"
        " VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7) ON CONFLICT (KeyFold, ValueNameFold)"
        " DO UPDATE SET Kind = excluded.Kind, Word = excluded.Word, Text = excluded.Text");
  }
};

}  // namespace

std::optional<RegistryValue> ReadRegistryValue(Database& database, const std::string& key,
                                               const std::string& value_name) {
  std::optional<RegistryValue> value;
  database.Do([&](Connection& connection) {
    auto& select = connection.The<SelectValue>();
    select.key_fold = UpperCase(key);
    select.value_name_fold = UpperCase(value_name);
    if (!select.One()) return;
    value = RegistryValue{select.kind == "word" ? RegistryKind::Word : RegistryKind::String,
                          static_cast<std::uint32_t>(select.word), select.text};
  });
  return value;
}

void WriteRegistryValue(Database& database, const std::string& key, const std::string& value_name,
                        const RegistryValue& value) {
  const bool word = value.kind == RegistryKind::Word;
  database.Do([&](Connection& connection) {
    auto& upsert = connection.The<UpsertValue>();
    upsert.key = key;
    upsert.value_name = value_name;
    upsert.key_fold = UpperCase(key);
    upsert.value_name_fold = UpperCase(value_name);
    upsert.kind = word ? "word" : "string";
    upsert.word = word ? value.word : 0;
    upsert.text = word ? "" : value.text;
    upsert.Change();
  });
}

}  // namespace qv
