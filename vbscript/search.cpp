#include "vbscript/search.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string>

#include "vbscript/text.h"

namespace qv::vbscript {
namespace {

constexpr std::size_t kNowhere = std::u16string_view::npos;

// How common each byte is in text, roughly: UTF-16 is full of zeros, and words are full of a few letters.
constexpr std::array<unsigned char, 256> MakeCommonness() {
  std::array<unsigned char, 256> table{};
  for (unsigned char& entry : table) entry = 5;
  table[0] = 100;
  for (std::size_t digit = '0'; digit <= '9'; ++digit) table[digit] = 10;
  constexpr std::string_view kCommon = "zqxjkvbpygfwmucldrhsinoate ";
  for (std::size_t rank = 0; rank < kCommon.size(); ++rank) {
    const auto letter = static_cast<std::size_t>(kCommon[rank]);
    table[letter] = static_cast<unsigned char>(rank + 12);
    if (letter >= 'a' && letter <= 'z') table[letter - 32] = static_cast<unsigned char>(rank + 4);
  }
  return table;
}

constexpr std::array<unsigned char, 256> kCommonness = MakeCommonness();

std::size_t RarestByte(const char* bytes, std::size_t count) {
  const auto commonness = [bytes](std::size_t i) { return kCommonness[static_cast<unsigned char>(bytes[i])]; };
  std::size_t rarest = 0;
  for (std::size_t i = 1; i < std::min<std::size_t>(count, 64); ++i) {
    if (commonness(i) < commonness(rarest)) rarest = i;
  }
  return rarest;
}

int PollsFor(std::size_t bytes) { return static_cast<int>(std::min<std::size_t>(bytes / 64 + 1, 1024)); }

// Looks for the rarest byte of what is to be found, in characters of `width` bytes, as long as that byte is rare in the
// text too. `from`, in bytes, is then where the search has come to; at the text's end if there is nothing.
std::size_t FindByRarest(Context& context, std::string_view text, std::string_view find, std::size_t rarest,
                         std::size_t width, std::size_t& from) {
  const std::size_t end = text.size() - find.size() + rarest + 1;
  const std::size_t start = from + rarest;
  std::size_t at = start;
  for (std::size_t failures = 0; at < end; ++failures) {
    const auto* found = static_cast<const char*>(std::memchr(text.data() + at, find[rarest], end - at));
    if (!found) {
      from = text.size();
      return kNowhere;
    }
    at = static_cast<std::size_t>(found - text.data());
    const std::size_t place = at - rarest;
    if (place % width == 0 && std::memcmp(text.data() + place, find.data(), find.size()) == 0) return place;
    ++at;
    if (failures > 64 && failures * 16 > at - start) break;
    if (failures % 64 == 63) context.Poll(PollsFor(find.size()));
  }
  from = (at - rarest + width - 1) / width * width;
  return kNowhere;
}

// Passes over blocks in which no place has both the first character and, `reach` behind it, the last one. What is left
// before `end` may be less than a block.
constexpr std::size_t kBlock = 32;

std::size_t SkipBlocks(const char16_t* text, std::size_t i, std::size_t end, char16_t first, char16_t last,
                       std::size_t reach) {
  for (; i + kBlock <= end; i += kBlock) {
    char16_t any = 0;
    for (std::size_t k = 0; k < kBlock; ++k) {
      const char16_t difference = static_cast<char16_t>((text[i + k] ^ first) | (text[i + k + reach] ^ last));
      any = static_cast<char16_t>(any | (difference == 0 ? 1 : 0));
    }
    if (any) break;
  }
  return i;
}

std::size_t SearchIgnoringCase(Context& context, std::u16string_view text, std::u16string_view find, std::size_t from) {
  const std::size_t end = text.size() - find.size() + 1;
  const char16_t first = LowerCase(find[0]);
  for (std::size_t i = from; i < end; ++i) {
    if (LowerCase(text[i]) != first) continue;
    std::size_t k = 1;
    while (k < find.size() && LowerCase(text[i + k]) == LowerCase(find[k])) ++k;
    if (k == find.size()) return i;
    context.Poll(static_cast<int>(std::min<std::size_t>(k / 16 + 1, 1024)));
  }
  return kNowhere;
}

std::string_view BytesOf(std::u16string_view text) {
  return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t)};
}

}  // namespace

Finder::Finder(Context& context, std::u16string_view find)
    : context_(context), find_(find), rarest_(RarestByte(BytesOf(find).data(), BytesOf(find).size())) {}

std::size_t Finder::In(std::u16string_view text, std::size_t from) const {
  if (find_.empty()) return from <= text.size() ? from : kNowhere;
  if (find_.size() > text.size() || from > text.size() - find_.size()) return kNowhere;
  context_.Poll(static_cast<int>((text.size() - from) / 2048));
  std::size_t byte = from * sizeof(char16_t);
  const std::size_t at = FindByRarest(context_, BytesOf(text), BytesOf(find_), rarest_, sizeof(char16_t), byte);
  if (at != kNowhere) return at / sizeof(char16_t);
  std::size_t i = byte / sizeof(char16_t);
  const std::size_t end = text.size() - find_.size() + 1;
  while (i < end) {
    i = SkipBlocks(text.data(), i, end, find_.front(), find_.back(), find_.size() - 1);
    const std::size_t stop = std::min(end, i + kBlock);
    for (; i < stop; ++i) {
      if (text[i] != find_.front() || text[i + find_.size() - 1] != find_.back()) continue;
      if (text.compare(i, find_.size(), find_) == 0) return i;
      context_.Poll(PollsFor(BytesOf(find_).size()));
    }
  }
  return kNowhere;
}

// `from` is where the search has come to if it gave up.
std::size_t Finder::InNarrow(std::string_view text, std::size_t& from) const {
  std::string find;
  for (const char16_t c : find_) {
    if (c > 0xff) {
      from = text.size();
      return kNowhere;
    }
    find.push_back(static_cast<char>(c));
  }
  context_.Poll(static_cast<int>((text.size() - from) / 4096));
  return FindByRarest(context_, text, find, RarestByte(find.data(), find.size()), 1, from);
}

std::size_t Finder::In(const Value& text, std::size_t from) const {
  const std::size_t size = text.text().size();
  if (!find_.empty() && find_.size() <= size && from <= size - find_.size()) {
    if (const std::string_view narrow = NarrowText(context_, text, size - from); !narrow.empty()) {
      const std::size_t at = InNarrow(narrow, from);
      if (at != kNowhere) return at;
    }
  }
  return In(text.text(), from);
}

std::size_t Search(Context& context, std::u16string_view text, std::u16string_view find, std::size_t from,
                   bool ignore_case) {
  if (!ignore_case || find.empty()) return Finder(context, find).In(text, from);
  if (find.size() > text.size()) return kNowhere;
  context.Poll(static_cast<int>(text.size() / 2048));
  return SearchIgnoringCase(context, text, find, from);
}

}  // namespace qv::vbscript
