#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

// UTF-8 text counted in characters. Bytes that are no valid UTF-8 count as one character each.

std::size_t TextLength(std::string_view text);

// `count` characters from the character at `start` on, counted from 0; fewer where the text ends before.
std::string Mid(std::string_view text, std::size_t start, std::size_t count = std::string_view::npos);
std::string Left(std::string_view text, std::size_t count);
std::string Right(std::string_view text, std::size_t count);

// Simple case mapping, one character to one character, of the Latin, Greek and Cyrillic letters.
std::string UpperCase(std::string_view text);
std::string LowerCase(std::string_view text);

// The text without blanks (U+0020) at its ends.
std::string Trim(std::string_view text);

// The pieces between the delimiters; one empty piece for an empty text.
std::vector<std::string> Split(std::string_view text, std::string_view delimiter);
std::string Join(const std::vector<std::string>& pieces, std::string_view delimiter);

// Every occurrence of `what`, compared exactly, from the start of the text. An empty `what` changes nothing.
std::string Replace(std::string_view text, std::string_view what, std::string_view with);

bool StartsWith(std::string_view text, std::string_view beginning);
bool EndsWith(std::string_view text, std::string_view ending);

// The text with every byte sequence that is no valid UTF-8 replaced by U+FFFD.
std::string ValidUtf8(std::string_view text);

std::u32string ToCharacters(std::string_view text);
std::string FromCharacters(std::u32string_view characters);

}  // namespace qv
