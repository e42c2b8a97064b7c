#include "platform/text_box.h"

#include <algorithm>

#include "platform/text.h"

namespace qv {

TextBox::TextBox(Form& form, std::string name, Frame* parent, bool multi_line)
    : StatefulControl(form, Kind::Text, std::move(name), parent), multi_line_(multi_line) {}

void TextBox::Put(const std::string& text, std::size_t caret) {
  const bool changed = text != state_.text;
  state_.text = text;
  Select(caret, 0);
  if (changed && Live()) Raise(Change);
}

void TextBox::SetText(const std::string& text) { Put(max_length_ ? Left(text, max_length_) : text, 0); }

void TextBox::Paste(const std::string& text) {
  const std::string fitting = max_length_ ? Left(text, max_length_) : text;
  Put(fitting, TextLength(fitting));
}

void TextBox::Select(std::size_t start, std::size_t length) {
  const std::size_t whole = TextLength(state_.text);
  state_.sel_start = std::min(start, whole);
  state_.sel_length = std::min(length, whole - state_.sel_start);
}

void TextBox::Type(const std::string& keys) {
  const std::u32string allowed = ToCharacters(keys_);
  char32_t before = 0;
  for (char32_t key : ToCharacters(keys)) {
    const bool line_feed_of_return = key == U'\n' && before == U'\r';
    before = key;
    if (line_feed_of_return) continue;

    std::u32string text = ToCharacters(state_.text);
    std::size_t start = state_.sel_start, length = state_.sel_length;
    if (key == U'\b') {
      if (length == 0) {
        if (start == 0) continue;
        // A line end goes as one.
        length = start >= 2 && text[start - 1] == U'\n' && text[start - 2] == U'\r' ? 2 : 1;
        start -= length;
      }
      text.erase(start, length);
    } else {
      std::u32string typed(1, key);
      if (key == U'\r' || key == U'\n') {
        if (!multi_line_) continue;
        typed = U"\r\n";
      } else if (!allowed.empty() && allowed.find(key) == std::u32string::npos) {
        continue;
      }
      if (max_length_ && text.size() - length + typed.size() > max_length_) continue;
      text.replace(start, length, typed);
      start += typed.size();
    }
    Put(FromCharacters(text), start);
  }
}

}  // namespace qv
