#include <boost/json.hpp>
#include <cstdint>
#include <map>
#include <set>

#include "platform/text.h"
#include "store/exchange.h"

namespace qv {

namespace json = boost::json;

namespace {

std::string_view View(json::string_view text) { return {text.data(), text.size()}; }

// The line and column of the character before which the parser stopped, both from 1.
std::string Place(std::string_view text, std::size_t at) {
  const std::string_view before = text.substr(0, at);
  std::size_t line = 1, start = 0;
  for (std::size_t found; (found = before.find('\n', start)) != std::string_view::npos; start = found + 1) ++line;
  return "line " + std::to_string(line) + ", column " + std::to_string(TextLength(before.substr(start)) + 1);
}

json::value Parse(std::string_view text) {
  json::stream_parser parser;
  json::error_code error;
  const std::size_t read = parser.write_some(text.data(), text.size(), error);
  if (!error && read < text.size()) error = json::error::extra_data;
  if (!error) parser.finish(error);
  if (error) throw MalformedData(Place(text, read) + ": this is no JSON (" + error.message() + ")");
  return parser.release();
}

// The fields of one row, each taken out as it is visited, so that what is left over has no place in the row.
class RowReader {
 public:
  RowReader(std::string place, const json::value& value) : place_(std::move(place)) {
    if (!value.is_object()) throw MalformedData(place_ + ": an object is wanted");
    for (const auto& field : value.get_object()) fields_[View(field.key())] = &field.value();
  }

  void Text(const char* name, std::string& text) {
    const json::value* value = Take(name);
    if (!value) return;
    if (!value->is_string()) Refuse(name, "a text is wanted");
    text = View(value->get_string());
  }

  void Whole(const char* name, long long& number, WholeRange range) {
    if (const json::value* value = Take(name)) number = WholeOf(name, *value, range);
  }

  const json::value* Take(std::string_view name) {
    const auto found = fields_.find(name);
    if (found == fields_.end()) return nullptr;
    const json::value* value = found->second;
    fields_.erase(found);
    return value;
  }

  long long WholeOf(const char* name, const json::value& value, WholeRange range) const {
    if (!value.is_int64() && !value.is_uint64()) Refuse(name, "a whole number is wanted");
    if (value.is_uint64() || value.get_int64() < range.lowest || value.get_int64() > range.highest) {
      Refuse(name, "a whole number from " + std::to_string(range.lowest) + " to " + std::to_string(range.highest) +
                       " is wanted");
    }
    return value.get_int64();
  }

  [[noreturn]] void Refuse(std::string_view name, const std::string& why) const {
    throw MalformedData(place_ + "." + ValidUtf8(name) + ": " + why);
  }

  void Finish() const {
    if (!fields_.empty()) Refuse(fields_.begin()->first, "there is no such field");
  }

 private:
  std::string place_;
  std::map<std::string_view, const json::value*> fields_;
};

template <class Row>
void ReadRow(RowReader& reader, Row& row) {
  Row::Visit(row, reader);
}

void ReadRow(RowReader& reader, RegistryRow& row) {
  constexpr WholeRange kWord{INT32_MIN, UINT32_MAX};
  reader.Text("Key", row.KeyPath);
  reader.Text("ValueName", row.ValueName);
  reader.Text("Kind", row.Kind);
  if (row.Kind == "string") {
    reader.Text("Data", row.Text);
  } else if (row.Kind == "word") {
    // A negative number stands for the same 32 bits.
    if (const json::value* data = reader.Take("Data")) {
      row.Word = static_cast<std::uint32_t>(reader.WholeOf("Data", *data, kWord));
    }
  } else {
    reader.Refuse("Kind", "\"word\" or \"string\" is wanted");
  }
}

template <class Row>
std::vector<Row> ReadSection(const std::string& name, const json::value& value) {
  if (!value.is_array()) throw MalformedData(name + ": a list is wanted");
  std::vector<Row> rows;
  rows.reserve(value.get_array().size());
  std::map<RowKey, std::size_t> keys;
  for (const json::value& element : value.get_array()) {
    const auto place = [&](std::size_t index) { return name + "[" + std::to_string(index) + "]"; };
    RowReader reader(place(rows.size()), element);
    ReadRow(reader, rows.emplace_back());
    reader.Finish();
    const auto [first, fresh] = keys.emplace(rows.back().Key(), rows.size() - 1);
    if (!fresh) throw MalformedData(place(rows.size() - 1) + ": the same key as " + place(first->second));
  }
  return rows;
}

// Takes the sections that the object has.
class SectionReader {
 public:
  explicit SectionReader(const json::object& object) : object_(object) {}

  template <class Row>
  void operator()(const char* name, std::optional<std::vector<Row>>& rows) {
    names_.insert(name);
    if (const json::value* value = object_.if_contains(name)) rows = ReadSection<Row>(name, *value);
  }

  void Finish() const {
    for (const auto& section : object_) {
      const std::string name(View(section.key()));
      if (names_.count(name) == 0) throw MalformedData(name + ": there is no such section");
    }
  }

 private:
  const json::object& object_;
  std::set<std::string> names_;
};

}  // namespace

RowKey OptionRow::Key() const { return {std::to_string(Scope), UpperCase(Query), UpperCase(ValueName)}; }
RowKey RegistryRow::Key() const { return {UpperCase(KeyPath), UpperCase(ValueName)}; }

DataSet ReadDataSet(std::string_view json) {
  const json::value value = Parse(json);
  if (!value.is_object()) throw MalformedData("a JSON object is wanted");
  SectionReader reader(value.get_object());
  DataSet data;
  DataSet::Visit(data, reader);
  reader.Finish();
  return data;
}

}  // namespace qv
