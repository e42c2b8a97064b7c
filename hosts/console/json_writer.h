#pragma once

#include <concepts>
#include <string>
#include <string_view>

namespace qv {

// Writes JSON text piece by piece, without a tree of it in between: a state goes out with every event. Texts are valid
// UTF-8, and keys need no escaping.
class JsonWriter {
 public:
  explicit JsonWriter(std::size_t expected_size) { text_.reserve(expected_size); }

  std::string Take() { return std::move(text_); }

  void Open(char bracket) {
    Separate();
    text_ += bracket;
    separate_ = false;
  }
  void Close(char bracket) {
    text_ += bracket;
    separate_ = true;
  }
  JsonWriter& Key(std::string_view key) {
    Separate();
    text_.append(1, '"').append(key).append("\":");
    separate_ = false;
    return *this;
  }

  void Value(std::string_view text);
  void Value(const std::string& text) { Value(std::string_view(text)); }
  void Value(const char* text) { Value(std::string_view(text)); }
  void Value(bool flag) { Raw(flag ? "true" : "false"); }
  template <std::integral Number>
  void Value(Number number) {
    Raw(std::to_string(number));
  }
  void Null() { Raw("null"); }
  // What is JSON already.
  void Raw(std::string_view json) {
    Separate();
    text_ += json;
    separate_ = true;
  }

  template <class Type>
  void Field(std::string_view key, const Type& value) {
    Key(key).Value(value);
  }
  // An array of what `write` writes for each item.
  template <class Items, class Write>
  void Array(std::string_view key, const Items& items, Write&& write) {
    Key(key).Open('[');
    for (const auto& item : items) write(item);
    Close(']');
  }
  // What `write` writes between braces.
  template <class Write>
  void Object(Write&& write) {
    Open('{');
    write();
    Close('}');
  }

 private:
  void Separate() {
    if (separate_) text_ += ',';
  }

  std::string text_;
  bool separate_ = false;
};

}  // namespace qv
