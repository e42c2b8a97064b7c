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

// False if a character fits no byte.
bool Narrow(std::u16string_view text, char* bytes) {
  constexpr std::size_t kBlock = 64;
  while (!text.empty()) {
    const std::size_t count = std::min(text.size(), kBlock);
    char16_t all = 0;
    if (count == kBlock) {
      for (std::size_t i = 0; i < kBlock; ++i) {
        all = static_cast<char16_t>(all | text[i]);
        bytes[i] = static_cast<char>(text[i]);
      }
    } else {
      for (std::size_t i = 0; i < count; ++i) {
        all = static_cast<char16_t>(all | text[i]);
        bytes[i] = static_cast<char>(text[i]);
      }
    }
    if (all > 0xff) return false;
    bytes += count;
    text.remove_prefix(count);
  }
  return true;
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

std::string_view NarrowText(Context& context, const Value& text, std::size_t searching) {
  constexpr std::size_t kLong = 4096;            // characters; a shorter text is searched in no time
  constexpr std::uint32_t kNever = 0xffffffff;   // a character is too wide
  constexpr std::uint32_t kSearchesThatPay = 4;  // of the whole text
  const std::u16string_view wide = text.text();
  if (wide.size() < kLong) return {};
  StringRep* rep = text.string();
  if (!rep->narrow) {
    if (rep->searched / kSearchesThatPay < wide.size()) {
      rep->searched += static_cast<std::uint32_t>(std::min<std::size_t>(searching, kNever - 1 - rep->searched));
      return {};
    }
    if (rep->searched == kNever) return {};
    void* storage = context.TryAllocate(sizeof(NarrowRep) + rep->capacity / 2);
    if (!storage) return {};
    rep->narrow = ::new (storage) NarrowRep;
    rep->narrow->capacity = rep->capacity / 2;
  }
  NarrowRep* narrow = rep->narrow;
  if (narrow->used < wide.size() && !Narrow(wide.substr(narrow->used), narrow->bytes() + narrow->used)) {
    context.Free(narrow, sizeof(NarrowRep) + narrow->capacity);
    rep->narrow = nullptr;
    rep->searched = kNever;
    return {};
  }
  narrow->used = std::max(narrow->used, static_cast<std::uint32_t>(wide.size()));
  return {narrow->bytes(), wide.size()};
}

TextBuilder::TextBuilder(Context& context, std::size_t characters) : context_(context) {
  if (characters) Grow(characters * sizeof(char16_t));
}

void TextBuilder::Grow(std::size_t bytes) {
  const std::size_t have = rep_ ? static_cast<std::size_t>(end_ - rep_->bytes()) : 0;
  const std::size_t total = have + bytes;
  StringRep* made = MakeRep(context_, total, rep_ ? total + total / 2 : total);
  if (have) std::memcpy(made->bytes(), rep_->bytes(), have);
  Take();
  rep_ = made;
  end_ = made->bytes() + have;
  room_ = std::min<std::size_t>(made->capacity, context_.string_limit()) - have;
}

void TextBuilder::Append(char16_t c, std::size_t times) {
  const std::u16string piece(std::min<std::size_t>(times, 4096), c);
  if (times > context_.string_limit()) Raise(kOutOfStringSpace);
  for (; times > piece.size(); times -= piece.size()) Append(piece);
  Append(std::u16string_view(piece).substr(0, times));
}

Value TextBuilder::Take() noexcept {
  if (!rep_) return Value::TakeString(nullptr, 0);
  rep_->used = static_cast<std::uint32_t>(end_ - rep_->bytes());
  room_ = 0;
  StringRep* taken = rep_;
  rep_ = nullptr;
  return Value::TakeString(taken, taken->used);
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

int Compare(std::u16string_view left, std::u16string_view right, bool ignore_case) {
  if (!ignore_case) return left.compare(right);
  const std::size_t common = std::min(left.size(), right.size());
  for (std::size_t i = 0; i < common; ++i) {
    const int difference = static_cast<int>(LowerCase(left[i])) - static_cast<int>(LowerCase(right[i]));
    if (difference != 0) return difference;
  }
  return left.size() < right.size() ? -1 : left.size() > right.size() ? 1 : 0;
}

}  // namespace qv::vbscript
