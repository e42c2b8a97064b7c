#include "services/text_utilities.h"

#include <charconv>
#include <limits>
#include <string>

#include "platform/text.h"

namespace qv {

namespace {

bool IsBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

int DigitOf(char c, int base) {
  int digit = 99;
  if (IsDigit(c)) digit = c - '0';
  if (c >= 'A' && c <= 'F') digit = c - 'A' + 10;
  if (c >= 'a' && c <= 'f') digit = c - 'a' + 10;
  return digit < base ? digit : -1;
}

// A reader of the number's parts from the front of a text.
class NumberReader {
 public:
  explicit NumberReader(std::string_view text) : rest_(text) {}

  std::optional<double> Read() {
    SkipBlanks();
    if (auto value = ReadBased()) return value;
    if (!ReadOpening()) return std::nullopt;
    if (!ReadDigits()) return std::nullopt;
    ReadExponent();
    if (!ReadClosing()) return std::nullopt;
    double value = 0;
    const auto [end, error] = std::from_chars(digits_.data(), digits_.data() + digits_.size(), value);
    if (error == std::errc::result_out_of_range && !OutOfRange(value)) return std::nullopt;
    if (end != digits_.data() + digits_.size()) return std::nullopt;
    return negative_ ? -value : value;
  }

 private:
  char Next() const { return rest_.empty() ? '\0' : rest_.front(); }
  bool Take(char wanted) {
    if (Next() != wanted || rest_.empty()) return false;
    rest_.remove_prefix(1);
    return true;
  }
  void SkipBlanks() {
    while (!rest_.empty() && IsBlank(rest_.front())) rest_.remove_prefix(1);
  }

  // &H and &O digits, and & alone before octal ones, as a 32-bit pattern; up to four hexadecimal digits as a 16-bit
  // one.
  std::optional<double> ReadBased() {
    if (Next() != '&') return std::nullopt;
    std::string_view text = rest_.substr(1);
    int base = 8;
    if (!text.empty() && (text.front() == 'H' || text.front() == 'h')) base = 16;
    if (base == 16 || (!text.empty() && (text.front() == 'O' || text.front() == 'o'))) text.remove_prefix(1);
    std::uint64_t value = 0;
    std::size_t count = 0;
    while (count < text.size() && DigitOf(text[count], base) >= 0) {
      value = value * static_cast<unsigned>(base) + static_cast<unsigned>(DigitOf(text[count], base));
      if (value > 0xFFFFFFFFu) return std::nullopt;
      ++count;
    }
    if (count == 0) return std::nullopt;
    text.remove_prefix(count);
    if (!text.empty() && text.front() == '&') {
      text.remove_prefix(1);
    } else if (value <= 0xFFFFu) {
      value = static_cast<std::uint64_t>(static_cast<std::int64_t>(static_cast<std::int16_t>(value)));
    }
    for (char c : text) {
      if (!IsBlank(c)) return std::nullopt;
    }
    return static_cast<double>(static_cast<std::int32_t>(static_cast<std::uint32_t>(value)));
  }

  // Sign, currency sign and opening parenthesis, each at most once and in any order, with blanks between.
  bool ReadOpening() {
    for (;;) {
      SkipBlanks();
      if (Next() == '+' || Next() == '-') {
        if (signed_ || parenthesis_) return false;
        signed_ = true;
        negative_ = rest_.front() == '-';
        rest_.remove_prefix(1);
      } else if (Next() == '$') {
        if (currency_) return false;
        currency_ = true;
        rest_.remove_prefix(1);
      } else if (Next() == '(') {
        if (signed_ || parenthesis_) return false;
        parenthesis_ = negative_ = true;
        rest_.remove_prefix(1);
      } else {
        return true;
      }
    }
  }

  bool ReadDigits() {
    bool any = false;
    while (!rest_.empty() && (IsDigit(rest_.front()) || (any && rest_.front() == ','))) {
      if (rest_.front() != ',') digits_ += rest_.front();
      any = true;
      rest_.remove_prefix(1);
    }
    if (Take('.')) {
      if (!any) digits_ += '0';
      digits_ += '.';
      while (!rest_.empty() && IsDigit(rest_.front())) {
        digits_ += rest_.front();
        any = true;
        rest_.remove_prefix(1);
      }
      if (digits_.back() == '.') digits_ += '0';
    }
    return any;
  }

  void ReadExponent() {
    if (rest_.empty() || std::string_view("eEdD").find(rest_.front()) == std::string_view::npos) return;
    std::string_view text = rest_.substr(1);
    std::string exponent = "e";
    if (!text.empty() && (text.front() == '+' || text.front() == '-')) {
      if (text.front() == '-') exponent += '-';
      text.remove_prefix(1);
    }
    if (text.empty() || !IsDigit(text.front())) return;
    while (!text.empty() && IsDigit(text.front())) {
      exponent += text.front();
      text.remove_prefix(1);
    }
    digits_ += exponent;
    rest_ = text;
  }

  // What may stand behind the digits: the sign or currency sign that did not stand before them, and blanks.
  bool ReadClosing() {
    for (;;) {
      SkipBlanks();
      if (rest_.empty()) return !parenthesis_ || closed_;
      if (Next() == ')') {
        if (!parenthesis_ || closed_) return false;
        closed_ = true;
      } else if (Next() == '+' || Next() == '-') {
        if (signed_ || parenthesis_) return false;
        signed_ = true;
        negative_ = Next() == '-';
      } else if (Next() == '$') {
        if (currency_) return false;
        currency_ = true;
      } else {
        return false;
      }
      rest_.remove_prefix(1);
    }
  }

  // The value of digits that no floating-point number reaches: beyond all numbers, or 0. False for those with an
  // exponent, which are no number.
  bool OutOfRange(double& value) const {
    if (digits_.find('e') != std::string::npos) return false;
    const bool below_one = digits_[digits_.find_first_not_of('0')] == '.';
    value = below_one ? 0 : std::numeric_limits<double>::infinity();
    return true;
  }

  std::string_view rest_;
  std::string digits_;
  bool negative_ = false, signed_ = false, currency_ = false, parenthesis_ = false, closed_ = false;
};

}  // namespace

std::optional<double> NumericValue(std::string_view text) { return NumberReader(text).Read(); }

bool IsNumeric(std::string_view text) { return NumericValue(text).has_value(); }

std::string GetTagContents(std::string_view text, std::string_view opening_tag) {
  const std::size_t found = text.find(opening_tag);
  if (found == std::string_view::npos || opening_tag.empty()) return "";
  const std::size_t start = found + opening_tag.size();
  const std::size_t end = text.find("</" + std::string(opening_tag.substr(1)), start);
  return end == std::string_view::npos ? std::string() : std::string(text.substr(start, end - start));
}

std::string StripSmtpAddress(std::string_view address) {
  if (address.find("[SMTP") == std::string_view::npos) return std::string(address);
  std::string bare = Mid(address, 6);
  if (EndsWith(bare, "]")) bare.pop_back();
  return bare;
}

void SelectComboEntry(ListControl& list, const std::string& text) {
  for (long index = 0; index < list.ListCount(); ++index) {
    if (list.List(index) != text) continue;
    list.SetListIndex(index);
    return;
  }
}

bool IsTabKeyDown(Run& run) { return run.toolkit.TabKeyDown(); }

void SelectAllOnTab(Run& run, TextBox& box) {
  if (!box.Text().empty() && IsTabKeyDown(run)) box.Select(0, TextLength(box.Text()));
}

}  // namespace qv
