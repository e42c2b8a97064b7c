#include <algorithm>

#include "vbscript/array.h"
#include "vbscript/intrinsic_arguments.h"
#include "vbscript/search.h"

namespace qv::vbscript {
namespace {

Value Len(Machine& machine, const Args& args) {
  const Value value = Plain(machine, args[0]);
  if (value.Is(Type::Null)) return value;
  if (value.Is(Type::String)) return Value::Long(static_cast<std::int32_t>(value.text().size()));
  return Value::Long(static_cast<std::int32_t>(TextArgument(machine, value).view().size()));
}

// A count that must not be negative.
std::size_t Count(Machine& machine, const Value& value) {
  const std::int32_t count = ToLong(machine, value);
  if (count < 0) Raise(kInvalidCall);
  return static_cast<std::size_t>(count);
}

Value Left(Machine& machine, const Args& args) {
  const std::size_t count = Count(machine, args[1]);
  const Value value = Plain(machine, args[0]);
  if (value.Is(Type::Null)) return value;
  return FrontOf(ToText(machine, value), count);
}

Value Right(Machine& machine, const Args& args) {
  const std::size_t count = Count(machine, args[1]);
  const Value value = Plain(machine, args[0]);
  if (value.Is(Type::Null)) return value;
  const TextArgument text(machine, value);
  return MakeText(machine, text.view().substr(text.view().size() - std::min(count, text.view().size())));
}

Value Mid(Machine& machine, const Args& args) {
  const std::int32_t start = ToLong(machine, args[1]);
  const std::int32_t length = LongOr(machine, args, 2, 0x7fffffff);
  if (start < 1 || length < 0) Raise(kInvalidCall);
  const Value value = Plain(machine, args[0]);
  if (value.Is(Type::Null)) return value;
  const TextArgument text(machine, value);
  const auto from = static_cast<std::size_t>(start) - 1;
  if (from >= text.view().size()) return MakeText(machine, {});
  return MakeText(machine, text.view().substr(from, static_cast<std::size_t>(length)));
}

Value InStr(Machine& machine, const Args& args) {
  const bool has_start = args.count() > 2;
  const int first = has_start ? 1 : 0;
  const bool ignore_case = IgnoresCase(machine, args, 3);
  std::int32_t start = 1;
  if (has_start) start = ToLong(machine, args[0]);
  const Value a = Plain(machine, args[first]);
  const Value b = Plain(machine, args[first + 1]);
  if (start < 1) Raise(kInvalidCall);
  if (a.Is(Type::Null) || b.Is(Type::Null)) return Value::Null();
  const TextArgument text(machine, a);
  const TextArgument find(machine, b);
  const auto from = static_cast<std::size_t>(start) - 1;
  if (text.view().empty() || from >= text.view().size()) return Value::Long(0);
  if (find.view().empty()) return Value::Long(start);
  const std::size_t at =
      ignore_case ? Search(machine, text, find, from, true) : Finder(machine, find).In(text.value(), from);
  return Value::Long(at == std::u16string_view::npos ? 0 : static_cast<std::int32_t>(at) + 1);
}

Value InStrRev(Machine& machine, const Args& args) {
  const bool ignore_case = IgnoresCase(machine, args, 3);
  const TextArgument text(machine, args[0]);
  const TextArgument find(machine, args[1]);
  const std::int32_t start = LongOr(machine, args, 2, -1);
  if (start == 0 || start < -1) Raise(kInvalidCall);
  const std::size_t length = text.view().size();
  if (length == 0 || (start > 0 && static_cast<std::size_t>(start) > length)) return Value::Long(0);
  const std::size_t end = start == -1 ? length : static_cast<std::size_t>(start);
  const std::u16string_view needle = find.view();
  if (needle.empty()) return Value::Long(static_cast<std::int32_t>(end));
  if (needle.size() > end) return Value::Long(0);
  for (std::size_t at = end - needle.size() + 1; at-- > 0;) {
    machine.Poll(1 + static_cast<int>(std::min<std::size_t>(needle.size() / 32, 1024)));
    if (Compare(text.view().substr(at, needle.size()), needle, ignore_case) == 0) {
      return Value::Long(static_cast<std::int32_t>(at) + 1);
    }
  }
  return Value::Long(0);
}

Value Replace(Machine& machine, const Args& args) {
  const bool ignore_case = IgnoresCase(machine, args, 5);
  const TextArgument text(machine, args[0]);
  const TextArgument find(machine, args[1]);
  const TextArgument with(machine, args[2]);
  const std::int32_t start = LongOr(machine, args, 3, 1);
  std::int32_t count = LongOr(machine, args, 4, -1);
  if (start < 1 || count < -1) Raise(kInvalidCall);
  std::size_t at = static_cast<std::size_t>(start) - 1;
  if (at >= text.view().size()) return MakeText(machine, {});
  if (find.view().empty() || count == 0) return MakeText(machine, text.view().substr(at));
  const Finder finder(machine, find);
  // Storage for all of it where it is known not to become longer than the text.
  TextBuilder result(machine, with.view().size() <= find.view().size() ? text.view().size() - at : 0);
  while (count != 0) {
    const std::size_t next = ignore_case ? Search(machine, text, find, at, true) : finder.In(text.view(), at);
    if (next == std::u16string_view::npos) break;
    result.Append(text.view().substr(at, next - at));
    result.Append(with);
    at = next + find.view().size();
    if (count > 0) --count;
    machine.Poll();
  }
  result.Append(text.view().substr(at));
  Value made = result.Take();
  // A small rest of a large text does not keep the large one's storage.
  return made.text().size() < text.view().size() / 2 ? MakeText(machine, made.text()) : made;
}

template <char16_t (*Map)(char16_t)>
Value MapCase(Machine& machine, const Args& args) {
  const Value value = Plain(machine, args[0]);
  if (value.Is(Type::Null)) return value;
  std::u16string text(TextArgument(machine, value).view());
  std::transform(text.begin(), text.end(), text.begin(), Map);
  return MakeText(machine, text);
}

template <bool AtLeft, bool AtRight>
Value TrimText(Machine& machine, const Args& args) {
  const Value value = Plain(machine, args[0]);
  if (value.Is(Type::Null)) return value;
  const TextArgument argument(machine, value);
  std::u16string_view text = argument;
  while (AtLeft && !text.empty() && text.front() == u' ') text.remove_prefix(1);
  while (AtRight && !text.empty() && text.back() == u' ') text.remove_suffix(1);
  return MakeText(machine, text);
}

Value Repeated(Machine& machine, std::size_t count, char16_t c) {
  TextBuilder text(machine, count);
  text.Append(c, count);
  return text.Take();
}

Value Space(Machine& machine, const Args& args) { return Repeated(machine, Count(machine, args[0]), u' '); }

Value StringOf(Machine& machine, const Args& args) {
  const std::size_t count = Count(machine, args[0]);
  const Value what = Plain(machine, args[1]);
  if (what.Is(Type::Null)) return what;
  if (what.Is(Type::String)) {
    if (what.text().empty()) Raise(kInvalidCall);
    return Repeated(machine, count, what.text()[0]);
  }
  return Repeated(machine, count, static_cast<char16_t>(ToLong(machine, what) & 0xff));
}

Value StrReverse(Machine& machine, const Args& args) {
  std::u16string text(TextArgument(machine, args[0]).view());
  std::reverse(text.begin(), text.end());
  return MakeText(machine, text);
}

Value StrComp(Machine& machine, const Args& args) {
  const bool ignore_case = IgnoresCase(machine, args, 2);
  const Value a = Plain(machine, args[0]);
  const Value b = Plain(machine, args[1]);
  if (a.Is(Type::Null) || b.Is(Type::Null)) return Value::Null();
  const int order = Compare(TextArgument(machine, a), TextArgument(machine, b), ignore_case);
  return Value::Integer(order < 0 ? -1 : order > 0 ? 1 : 0);
}

Value Escape(Machine& machine, const Args& args) {
  static constexpr char16_t kDigits[] = u"0123456789ABCDEF";
  const TextArgument text(machine, args[0]);
  std::u16string out;
  for (const char16_t c : text.view()) {
    const bool plain = (c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') ||
                       std::u16string_view(u"@*_+-./").find(c) != std::u16string_view::npos;
    if (plain && c != u'\0') {
      out.push_back(c);
      continue;
    }
    out += c > 0xff ? u"%u" : u"%";
    for (int shift = c > 0xff ? 12 : 4; shift >= 0; shift -= 4) out.push_back(kDigits[c >> shift & 15]);
  }
  return MakeText(machine, out);
}

// The code of that many hexadecimal digits; -1 if they are none.
int HexCode(std::u16string_view digits, std::size_t count) {
  if (digits.size() < count) return -1;
  int code = 0;
  for (const char16_t c : digits.substr(0, count)) {
    const char16_t lower = static_cast<char16_t>(c | 32);
    if (c >= u'0' && c <= u'9') {
      code = code * 16 + (c - u'0');
    } else if (lower >= u'a' && lower <= u'f') {
      code = code * 16 + (lower - u'a' + 10);
    } else {
      return -1;
    }
  }
  return code;
}

Value Unescape(Machine& machine, const Args& args) {
  const TextArgument argument(machine, args[0]);
  const std::u16string_view text = argument;
  std::u16string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == u'%') {
      const bool wide = i + 1 < text.size() && (text[i + 1] | 32) == u'u';
      const int code = wide ? HexCode(text.substr(i + 2), 4) : HexCode(text.substr(i + 1), 2);
      if (code >= 0) {
        out.push_back(static_cast<char16_t>(code));
        i += wide ? 5 : 2;
        continue;
      }
    }
    out.push_back(text[i]);
  }
  return MakeText(machine, out);
}

constexpr FunctionRow kRows[] = {
    {u"Len", 1, 1, Len},
    {u"Left", 2, 2, Left},
    {u"Right", 2, 2, Right},
    {u"Mid", 2, 3, Mid},
    {u"InStr", 2, 4, InStr},
    {u"InStrRev", 2, 4, InStrRev},
    {u"Replace", 3, 6, Replace},
    {u"LCase", 1, 1, MapCase<LowerCase>},
    {u"UCase", 1, 1, MapCase<UpperCase>},
    {u"Trim", 1, 1, TrimText<true, true>},
    {u"LTrim", 1, 1, TrimText<true, false>},
    {u"RTrim", 1, 1, TrimText<false, true>},
    {u"Space", 1, 1, Space},
    {u"String", 2, 2, StringOf},
    {u"StrReverse", 1, 1, StrReverse},
    {u"StrComp", 2, 3, StrComp},
    {u"Escape", 1, 1, Escape},
    {u"Unescape", 1, 1, Unescape},
};

}  // namespace

void AddStringFunctions(Library& library) { AddRows(library, kRows); }

}  // namespace qv::vbscript
