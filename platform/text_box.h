#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "platform/controls.h"

namespace qv {

enum class BackColor { Window, ButtonFace };

struct TextState {
  std::string text;
  std::size_t sel_start = 0, sel_length = 0;
  BackColor back = BackColor::Window;
};

class TextBox : public StatefulControl<TextState> {
 public:
  TextBox(Form& form, std::string name, Frame* parent = nullptr, bool multi_line = false);

  const std::string& Text() const { return state_.text; }
  // Cut to the maximum length. The caret goes to the start. A different text runs the Change handler.
  void SetText(const std::string& text);

  std::size_t SelStart() const { return state_.sel_start; }
  std::size_t SelLength() const { return state_.sel_length; }
  // Positions in characters; what lies outside the text is brought to its nearest end.
  void Select(std::size_t start, std::size_t length);

  std::size_t MaxLength() const { return max_length_; }
  void SetMaxLength(std::size_t characters) { max_length_ = characters; }
  BackColor Back() const { return state_.back; }
  void SetBack(BackColor color) { state_.back = color; }
  bool MultiLine() const { return multi_line_; }

  // The characters that typing lets through beside backspace and return; empty for all. Pasted text isn't filtered.
  const std::string& Keys() const { return keys_; }
  void SetKeys(std::string characters) { keys_ = std::move(characters); }

  // A text box for source code, which a front end may show as a code editor.
  bool Code() const { return code_; }
  void SetCode(bool code) { code_ = code; }

  // The person's typing, key by key at the caret, in place of a selection: "\b" is backspace, "\r" return.
  void Type(const std::string& keys);
  // The person's paste over everything.
  void Paste(const std::string& text);

  std::function<void()> Change;

 private:
  void Put(const std::string& text, std::size_t caret);

  std::size_t max_length_ = 0;
  std::string keys_;
  bool multi_line_ = false, code_ = false;
};

}  // namespace qv
