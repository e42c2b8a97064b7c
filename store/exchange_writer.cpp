#include <boost/json.hpp>

#include "platform/text.h"
#include "store/exchange.h"

namespace qv {

namespace json = boost::json;

namespace {

class RowWriter {
 public:
  void Text(const char* name, const std::string& text) { object_[name] = ValidUtf8(text); }
  void Whole(const char* name, long long number, WholeRange) { object_[name] = number; }
  std::string Line() const { return json::serialize(object_); }

 private:
  json::object object_;
};

template <class Row>
void WriteRow(RowWriter& writer, const Row& row) {
  Row::Visit(row, writer);
}

void WriteRow(RowWriter& writer, const RegistryRow& row) {
  writer.Text("Key", row.KeyPath);
  writer.Text("ValueName", row.ValueName);
  writer.Text("Kind", row.Kind);
  if (row.Kind == "word") {
    writer.Whole("Data", row.Word, kRange32);
  } else {
    writer.Text("Data", row.Text);
  }
}

}  // namespace

std::string WriteDataSet(const DataSet& data) {
  std::string text = "{";
  DataSet::Visit(data, [&](const char* name, const auto& rows) {
    if (!rows) return;
    text += text == "{" ? "\n\"" : ",\n\"";
    text += std::string(name) + "\": [";
    for (const auto& row : *rows) {
      RowWriter writer;
      WriteRow(writer, row);
      text += &row == rows->data() ? "\n  " : ",\n  ";
      text += writer.Line();
    }
    text += rows->empty() ? "]" : "\n]";
  });
  return text + "\n}\n";
}

}  // namespace qv
