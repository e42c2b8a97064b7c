#pragma once

#include <concepts>
#include <string>
#include <string_view>

namespace qv {

// Writes JSON text piece by piece, without a tree of it in between: a state goes out with every event. Texts are valid
// UTF-8, and keys need no escaping.
class JsonWriter {
 public:
  explicit JsonWriter(std::size_t expected_size) : text_(expected_size, '\0') {}

  std::string Take() {
    text_.resize(used_);
    return std::move(text_);
  }

  void Open(char bracket) {
    char* to = Room(2);
    if (separate_) *to++ = ',';
    *to++ = bracket;
    Used(to, false);
  }
  void Close(char bracket) {
    char* to = Room(1);
    *to++ = bracket;
    Used(to, true);
  }
  JsonWriter& Key(std::string_view key) {
    char* to = Room(key.size() + 4);
    if (separate_) *to++ = ',';
    *to++ = '"';
    to += key.copy(to, key.size());
    *to++ = '"';
    *to++ = ':';
    Used(to, false);
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
    char* to = Room(json.size() + 1);
    if (separate_) *to++ = ',';
    to += json.copy(to, json.size());
    Used(to, true);
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
  // Where the next bytes go, of which there may be so many. Used then tells where they end.
  char* Room(std::size_t bytes) {
    if (text_.size() - used_ < bytes) Grow(bytes);
    return text_.data() + used_;
  }
  void Used(const char* end, bool separate) {
    used_ = static_cast<std::size_t>(end - text_.data());
    separate_ = separate;
  }
  void Grow(std::size_t bytes);

  std::string text_;  // what is written, and room behind it
  std::size_t used_ = 0;
  bool separate_ = false;
};

}  // namespace qv
