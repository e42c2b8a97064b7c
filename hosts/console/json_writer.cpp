#include "hosts/console/json_writer.h"

#include <array>

namespace qv {

namespace {

constexpr std::array<bool, 256> kEscaped = [] {
  std::array<bool, 256> escaped{};
  for (std::size_t c = 0; c < 0x20; ++c) escaped[c] = true;
  escaped['"'] = escaped['\\'] = true;
  return escaped;
}();

}  // namespace

void JsonWriter::Value(std::string_view text) {
  static constexpr char kDigits[] = "0123456789abcdef";
  Separate();
  text_ += '"';
  std::size_t plain = 0;  // where the stretch begins that needs no escaping
  for (std::size_t at = 0; at < text.size(); ++at) {
    const auto c = static_cast<unsigned char>(text[at]);
    if (!kEscaped[c]) continue;
    text_.append(text, plain, at - plain);
    plain = at + 1;
    text_ += '\\';
    switch (c) {
      case '"':
      case '\\':
        text_ += static_cast<char>(c);
        break;
      case '\n':
        text_ += 'n';
        break;
      case '\r':
        text_ += 'r';
        break;
      case '\t':
        text_ += 't';
        break;
      default:
        text_.append("u00").append(1, kDigits[c >> 4]).append(1, kDigits[c & 15]);
    }
  }
  text_.append(text, plain);
  text_ += '"';
  separate_ = true;
}

}  // namespace qv
