#include "vbscript/text.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "vbscript/failure.h"

namespace qv::vbscript {
namespace {

StringRep* MakeRep(Context& context, std::size_t used, std::size_t capacity) {
  if (used > context.string_limit()) Raise(kOutOfStringSpace);
  context.Poll(static_cast<int>(used / 4096));
  capacity = std::min((capacity + 15) & ~std::size_t{15}, std::size_t{0xfffffff0});
  auto* rep = ::new (context.Allocate(sizeof(StringRep) + capacity, kOutOfStringSpace)) StringRep;
  rep->context = &context;
  rep->used = static_cast<std::uint32_t>(used);
  rep->capacity = static_cast<std::uint32_t>(capacity);
  return rep;
}

// How common a byte is in text, roughly: UTF-16 is full of zeros, and words are full of a few letters.
int Commonness(unsigned char byte) {
  if (byte == 0) return 100;
  static constexpr std::string_view kCommon = "zqxjkvbpygfwmucldrhsinoate ";
  const unsigned char lower = byte >= 'A' && byte <= 'Z' ? static_cast<unsigned char>(byte + 32) : byte;
  const std::size_t rank = kCommon.find(static_cast<char>(lower));
  if (rank == std::string_view::npos) return byte >= '0' && byte <= '9' ? 10 : 5;
  return static_cast<int>(rank) + (lower == byte ? 12 : 4);
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

// Looks for the rarest byte of what is to be found, as long as that byte is rare in the text too; `from` is then where
// the search has come to.
std::size_t SearchRarest(Context& context, std::u16string_view text, std::u16string_view find, std::size_t& from) {
  const auto* needle = reinterpret_cast<const char*>(find.data());
  const std::size_t length = find.size() * 2;
  std::size_t rarest = 0;
  for (std::size_t i = 1; i < std::min<std::size_t>(length, 64); ++i) {
    if (Commonness(static_cast<unsigned char>(needle[i])) < Commonness(static_cast<unsigned char>(needle[rarest]))) {
      rarest = i;
    }
  }
  const auto* bytes = reinterpret_cast<const char*>(text.data());
  const std::size_t end = text.size() * 2 - length + rarest + 1;
  const std::size_t start = from * 2 + rarest;
  std::size_t at = start;
  for (std::size_t failures = 0; at < end; ++failures) {
    const auto* found = static_cast<const char*>(std::memchr(bytes + at, needle[rarest], end - at));
    if (!found) {
      from = text.size();
      return std::u16string_view::npos;
    }
    at = static_cast<std::size_t>(found - bytes);
    const std::size_t place = at - rarest;
    if (place % 2 == 0 && std::memcmp(bytes + place, needle, length) == 0) return place / 2;
    ++at;
    if (failures > 64 && failures * 16 > at - start) break;
    if (failures % 64 == 63) context.Poll(static_cast<int>(std::min<std::size_t>(length / 64 + 1, 1024)));
  }
  from = (at - rarest + 1) / 2;
  return std::u16string_view::npos;
}

Value Extend(Context& context, const Value& left, const char* bytes, std::size_t count) {
  const std::size_t have = left.bytes();
  const std::size_t total = have + count;
  StringRep* rep = left.string();
  if (rep && rep->used == have && total <= rep->capacity && total <= context.string_limit()) {
    // Whoever shares the storage sees no more than its own front of it.
    std::memmove(rep->bytes() + have, bytes, count);
    rep->used = static_cast<std::uint32_t>(total);
    ++rep->refs;
    return Value::TakeString(rep, rep->used);
  }
  StringRep* made = MakeRep(context, total, total + total / 2 + 16);
  if (have) std::memcpy(made->bytes(), rep->bytes(), have);
  std::memcpy(made->bytes() + have, bytes, count);
  return Value::TakeString(made, made->used);
}

}  // namespace

Value MakeBytes(Context& context, std::string_view bytes) {
  if (bytes.empty()) return Value::TakeString(nullptr, 0);
  StringRep* rep = MakeRep(context, bytes.size(), bytes.size());
  std::memcpy(rep->bytes(), bytes.data(), bytes.size());
  return Value::TakeString(rep, rep->used);
}

Value MakeText(Context& context, std::u16string_view text) {
  return MakeBytes(context, {reinterpret_cast<const char*>(text.data()), text.size() * 2});
}

Value FrontOf(const Value& text, std::size_t characters) {
  if (characters == 0) return Value::TakeString(nullptr, 0);
  if (characters * 2 >= text.bytes()) return text;
  ++text.string()->refs;
  return Value::TakeString(text.string(), static_cast<std::uint32_t>(characters * 2));
}

Value Join(Context& context, const Value& left, const Value& right) {
  if (right.bytes() == 0) return left;
  if (left.bytes() == 0) return right;
  return Extend(context, left, right.string()->bytes(), right.bytes());
}

void TextBuilder::Append(std::u16string_view text) {
  if (text.empty()) return;
  Value longer = Extend(context_, text_, reinterpret_cast<const char*>(text.data()), text.size() * 2);
  text_ = std::move(longer);
}

void TextBuilder::Append(char16_t c, std::size_t times) {
  const std::u16string piece(std::min<std::size_t>(times, 4096), c);
  if (times > context_.string_limit()) Raise(kOutOfStringSpace);
  for (; times > piece.size(); times -= piece.size()) Append(piece);
  Append(std::u16string_view(piece).substr(0, times));
}

std::u16string ToUtf16(std::string_view utf8) {
  std::u16string out;
  out.reserve(utf8.size());
  for (std::size_t i = 0; i < utf8.size();) {
    const auto lead = static_cast<unsigned char>(utf8[i]);
    const int more = lead < 0x80                   ? 0
                     : lead >= 0xc2 && lead < 0xe0 ? 1
                     : (lead & 0xf0) == 0xe0       ? 2
                     : lead >= 0xf0 && lead < 0xf5 ? 3
                                                   : -1;
    char32_t c = more <= 0 ? lead : lead & (0x3f >> more);
    int taken = 0;
    while (taken < more && i + 1 + static_cast<std::size_t>(taken) < utf8.size()) {
      const auto next = static_cast<unsigned char>(utf8[i + 1 + static_cast<std::size_t>(taken)]);
      if ((next & 0xc0) != 0x80) break;
      c = c << 6 | (next & 0x3fU);
      ++taken;
    }
    const bool bad = more < 0 || taken < more || (more == 2 && (c < 0x800 || (c >= 0xd800 && c < 0xe000))) ||
                     (more == 3 && (c < 0x10000 || c > 0x10ffff));
    if (bad) {
      out.push_back(u'\xfffd');
      i += 1;
      continue;
    }
    i += 1 + static_cast<std::size_t>(more);
    if (c >= 0x10000) {
      out.push_back(static_cast<char16_t>(0xd7c0 + (c >> 10)));
      out.push_back(static_cast<char16_t>(0xdc00 + (c & 0x3ff)));
    } else {
      out.push_back(static_cast<char16_t>(c));
    }
  }
  return out;
}

std::string ToUtf8(std::u16string_view text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t c = text[i];
    if (c >= 0xd800 && c < 0xdc00 && i + 1 < text.size() && text[i + 1] >= 0xdc00 && text[i + 1] < 0xe000) {
      c = 0x10000 + ((c - 0xd800) << 10) + (text[++i] - 0xdc00U);
    } else if (c >= 0xd800 && c < 0xe000) {
      c = 0xfffd;
    }
    if (c < 0x80) {
      out.push_back(static_cast<char>(c));
    } else if (c < 0x800) {
      out.push_back(static_cast<char>(0xc0 | c >> 6));
      out.push_back(static_cast<char>(0x80 | (c & 0x3f)));
    } else if (c < 0x10000) {
      out.push_back(static_cast<char>(0xe0 | c >> 12));
      out.push_back(static_cast<char>(0x80 | (c >> 6 & 0x3f)));
      out.push_back(static_cast<char>(0x80 | (c & 0x3f)));
    } else {
      out.push_back(static_cast<char>(0xf0 | c >> 18));
      out.push_back(static_cast<char>(0x80 | (c >> 12 & 0x3f)));
      out.push_back(static_cast<char>(0x80 | (c >> 6 & 0x3f)));
      out.push_back(static_cast<char>(0x80 | (c & 0x3f)));
    }
  }
  return out;
}

char16_t LowerCase(char16_t c) {
  if (c < 0x80) return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c;
  if (c >= 0xc0 && c <= 0xde && c != 0xd7) return static_cast<char16_t>(c + 32);
  if ((c >= 0x100 && c <= 0x137 && c != 0x130) || (c >= 0x14a && c <= 0x177)) return static_cast<char16_t>(c | 1);
  if ((c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17e)) return static_cast<char16_t>((c & 1) ? c + 1 : c);
  if (c == 0x178) return 0xff;
  if (c >= 0x391 && c <= 0x3ab && c != 0x3a2) return static_cast<char16_t>(c + 32);
  if (c >= 0x410 && c <= 0x42f) return static_cast<char16_t>(c + 32);
  if (c >= 0x400 && c <= 0x40f) return static_cast<char16_t>(c + 80);
  if (c >= 0x531 && c <= 0x556) return static_cast<char16_t>(c + 48);
  if (c >= 0x1e00 && c <= 0x1eff && (c < 0x1e96 || c > 0x1e9f)) return static_cast<char16_t>(c | 1);
  if (c >= 0xff21 && c <= 0xff3a) return static_cast<char16_t>(c + 32);
  return c;
}

char16_t UpperCase(char16_t c) {
  if (c < 0x80) return c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - 32) : c;
  if (c >= 0xe0 && c <= 0xfe && c != 0xf7) return static_cast<char16_t>(c - 32);
  if (c == 0xff) return 0x178;
  if ((c >= 0x100 && c <= 0x137 && c != 0x131) || (c >= 0x14a && c <= 0x177)) return static_cast<char16_t>(c & ~1);
  if ((c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17e)) return static_cast<char16_t>((c & 1) ? c : c - 1);
  if (c >= 0x3b1 && c <= 0x3cb && c != 0x3c2) return static_cast<char16_t>(c - 32);
  if (c >= 0x430 && c <= 0x44f) return static_cast<char16_t>(c - 32);
  if (c >= 0x450 && c <= 0x45f) return static_cast<char16_t>(c - 80);
  if (c >= 0x561 && c <= 0x586) return static_cast<char16_t>(c - 48);
  if (c >= 0x1e00 && c <= 0x1eff && (c < 0x1e96 || c > 0x1e9f)) return static_cast<char16_t>(c & ~1);
  if (c >= 0xff41 && c <= 0xff5a) return static_cast<char16_t>(c - 32);
  return c;
}

int Compare(std::u16string_view left, std::u16string_view right, bool ignore_case) {
  if (!ignore_case) return left.compare(right);
  const std::size_t common = std::min(left.size(), right.size());
  for (std::size_t i = 0; i < common; ++i) {
    const int difference = static_cast<int>(LowerCase(left[i])) - static_cast<int>(LowerCase(right[i]));
    if (difference != 0) return difference;
  }
  return left.size() < right.size() ? -1 : left.size() > right.size() ? 1 : 0;
}

std::size_t Search(Context& context, std::u16string_view text, std::u16string_view find, std::size_t from,
                   bool ignore_case) {
  if (find.empty()) return from <= text.size() ? from : std::u16string_view::npos;
  if (find.size() > text.size()) return std::u16string_view::npos;
  context.Poll(static_cast<int>(text.size() / 2048));
  const std::size_t end = text.size() - find.size() + 1;
  std::size_t i = from;
  if (ignore_case) {
    const char16_t first = LowerCase(find[0]);
    for (; i < end; ++i) {
      if (LowerCase(text[i]) != first) continue;
      std::size_t k = 1;
      while (k < find.size() && LowerCase(text[i + k]) == LowerCase(find[k])) ++k;
      if (k == find.size()) return i;
      context.Poll(static_cast<int>(std::min<std::size_t>(k / 16 + 1, 1024)));
    }
    return std::u16string_view::npos;
  }
  const std::size_t bytes = find.size() * sizeof(char16_t);
  if (i < end) {
    const std::size_t at = SearchRarest(context, text, find, i);
    if (at != std::u16string_view::npos) return at;
  }
  while (i < end) {
    i = SkipBlocks(text.data(), i, end, find.front(), find.back(), find.size() - 1);
    const std::size_t stop = std::min(end, i + kBlock);
    for (; i < stop; ++i) {
      if (text[i] != find.front() || text[i + find.size() - 1] != find.back()) continue;
      if (std::memcmp(text.data() + i, find.data(), bytes) == 0) return i;
      context.Poll(static_cast<int>(std::min<std::size_t>(bytes / 64 + 1, 1024)));
    }
  }
  return std::u16string_view::npos;
}

}  // namespace qv::vbscript
