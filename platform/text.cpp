#include "platform/text.h"

#include "platform/case_pairs.h"

namespace qv {

namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kInvalid = 0xFFFFFFFF;

struct Character {
  char32_t code;  // kInvalid for a byte that begins no valid sequence
  std::size_t bytes;
};

// The character at a position inside the text.
Character At(std::string_view text, std::size_t at) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned first = byte(at);
  if (first < 0x80) return {first, 1};
  std::size_t bytes = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if (first < 0xC2 || first > 0xF4 || text.size() - at < bytes) return {kInvalid, 1};
  char32_t code = first & (0x7Fu >> bytes);
  for (std::size_t i = 1; i < bytes; ++i) {
    if ((byte(at + i) & 0xC0u) != 0x80u) return {kInvalid, 1};
    code = (code << 6) | (byte(at + i) & 0x3Fu);
  }
  const bool overlong = (bytes == 3 && code < 0x800) || (bytes == 4 && code < 0x10000);
  if (overlong || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) return {kInvalid, 1};
  return {code, bytes};
}

void Append(std::string& text, char32_t code) {
  const auto tail = [&](int shift) { text += static_cast<char>(0x80u | ((code >> shift) & 0x3Fu)); };
  if (code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) code = kReplacement;
  if (code < 0x80) {
    text += static_cast<char>(code);
  } else if (code < 0x800) {
    text += static_cast<char>(0xC0u | (code >> 6));
    tail(0);
  } else if (code < 0x10000) {
    text += static_cast<char>(0xE0u | (code >> 12));
    tail(6), tail(0);
  } else {
    text += static_cast<char>(0xF0u | (code >> 18));
    tail(12), tail(6), tail(0);
  }
}

// The byte at which the character of an index stands; the text's end when it has no such character.
std::size_t ByteOf(std::string_view text, std::size_t index, std::size_t from = 0) {
  std::size_t at = from;
  for (; index > 0 && at < text.size(); --index) at += At(text, at).bytes;
  return at;
}

template <class Map>
std::string MapCharacters(std::string_view text, Map map) {
  std::string mapped;
  mapped.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const Character c = At(text, at);
    if (c.code == kInvalid) {
      mapped += text[at];
    } else {
      Append(mapped, map(c.code));
    }
    at += c.bytes;
  }
  return mapped;
}

}  // namespace

std::size_t TextLength(std::string_view text) {
  std::size_t length = 0;
  for (std::size_t at = 0; at < text.size(); ++length) at += At(text, at).bytes;
  return length;
}

std::string Mid(std::string_view text, std::size_t start, std::size_t count) {
  const std::size_t from = ByteOf(text, start);
  return std::string(text.substr(from, ByteOf(text, count, from) - from));
}

std::string Left(std::string_view text, std::size_t count) { return Mid(text, 0, count); }

std::string Right(std::string_view text, std::size_t count) {
  const std::size_t length = TextLength(text);
  return Mid(text, length > count ? length - count : 0);
}

std::string UpperCase(std::string_view text) { return MapCharacters(text, UpperCaseOf); }
std::string LowerCase(std::string_view text) { return MapCharacters(text, LowerCaseOf); }

std::string Trim(std::string_view text) {
  const std::size_t from = text.find_first_not_of(' ');
  if (from == std::string_view::npos) return "";
  return std::string(text.substr(from, text.find_last_not_of(' ') - from + 1));
}

std::vector<std::string> Split(std::string_view text, std::string_view delimiter) {
  std::vector<std::string> pieces;
  std::size_t from = 0;
  if (!delimiter.empty()) {
    for (std::size_t at; (at = text.find(delimiter, from)) != std::string_view::npos; from = at + delimiter.size()) {
      pieces.emplace_back(text.substr(from, at - from));
    }
  }
  pieces.emplace_back(text.substr(from));
  return pieces;
}

std::string Join(const std::vector<std::string>& pieces, std::string_view delimiter) {
  std::string text;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    if (i > 0) text += delimiter;
    text += pieces[i];
  }
  return text;
}

std::string Replace(std::string_view text, std::string_view what, std::string_view with) {
  return what.empty() ? std::string(text) : Join(Split(text, what), with);
}

bool StartsWith(std::string_view text, std::string_view beginning) {
  return text.substr(0, beginning.size()) == beginning;
}

bool EndsWith(std::string_view text, std::string_view ending) {
  return text.size() >= ending.size() && text.substr(text.size() - ending.size()) == ending;
}

std::string ValidUtf8(std::string_view text) {
  std::string valid;
  valid.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const Character c = At(text, at);
    if (c.code == kInvalid) {
      Append(valid, kReplacement);
    } else {
      valid += text.substr(at, c.bytes);
    }
    at += c.bytes;
  }
  return valid;
}

std::u32string ToCharacters(std::string_view text) {
  std::u32string characters;
  characters.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const Character c = At(text, at);
    characters += c.code == kInvalid ? kReplacement : c.code;
    at += c.bytes;
  }
  return characters;
}

std::string FromCharacters(std::u32string_view characters) {
  std::string text;
  text.reserve(characters.size());
  for (const char32_t code : characters) Append(text, code);
  return text;
}

}  // namespace qv
