#include "vbscript/regexp_object.h"

#include "vbscript/array.h"
#include "vbscript/intrinsic_arguments.h"

namespace qv::vbscript {
namespace {

Value MakeArray(Machine& machine, const std::vector<Value>& elements) {
  const std::int64_t bound = static_cast<std::int64_t>(elements.size()) - 1;
  Value made = Value::TakeArray(ArrayRep::Create(machine, {&bound, 1}));
  for (std::size_t i = 0; i < elements.size(); ++i) made.array()->elements()[i] = elements[i];
  return made;
}

// Puts in the replacement with its dollar signs worked out.
void AppendReplacement(TextBuilder& out, std::u16string_view with, std::u16string_view text,
                       const std::vector<RegExp::Span>& spans) {
  for (std::size_t i = 0; i < with.size(); ++i) {
    const std::size_t dollar = with.find(u'$', i);
    out.Append(with.substr(i, dollar - i));
    if (dollar == std::u16string_view::npos) return;
    i = dollar + 1;
    const char16_t what = i < with.size() ? with[i] : u'\0';
    if (what == u'$') {
      out.Append(u"$");
    } else if (what == u'&') {
      out.Append(text.substr(spans[0].start, spans[0].end - spans[0].start));
    } else if (what == u'`') {
      out.Append(text.substr(0, spans[0].start));
    } else if (what == u'\'') {
      out.Append(text.substr(spans[0].end));
    } else if (what >= u'1' && what <= u'9' && static_cast<std::size_t>(what - u'0') < spans.size()) {
      const RegExp::Span& span = spans[static_cast<std::size_t>(what - u'0')];
      if (span.start != std::u16string_view::npos) out.Append(text.substr(span.start, span.end - span.start));
    } else {
      out.Append(u"$");
      --i;
    }
  }
}

}  // namespace

const RegExp& RegExpObject::Compiled() {
  if (!compiled_) compiled_.emplace(pattern_, flags_);
  return *compiled_;
}

Value RegExpObject::Invoke(Machine& machine, Atom member, Access access, const Value* args, int count) {
  if (access == Access::Set) Raise(kNoSuchMember);
  if (member >= kMemberPattern && member <= kMemberMultiline) {
    if (count != (access == Access::Get ? 0 : 1)) Raise(kArgumentCount);
    if (access == Access::Get) return Read(machine, member);
    Assign(machine, member, args[0]);
    return {};
  }
  if (access != Access::Get) Raise(kNoSuchMember);
  switch (member) {
    case kMemberTest:
      if (count != 1) Raise(kArgumentCount);
      return Test(machine, args[0]);
    case kMemberReplace:
      if (count != 2) Raise(kArgumentCount);
      return Replace(machine, args[0], args[1]);
    case kMemberExecute:
      if (count != 1) Raise(kArgumentCount);
      return Execute(machine, args[0]);
    default:
      Raise(kNoSuchMember);
  }
}

Value RegExpObject::Read(Machine& machine, Atom member) {
  switch (member) {
    case kMemberPattern:
      return MakeText(machine, pattern_);
    case kMemberIgnoreCase:
      return Value::Boolean(flags_.ignore_case);
    case kMemberGlobal:
      return Value::Boolean(global_);
    default:
      return Value::Boolean(flags_.multiline);
  }
}

void RegExpObject::Assign(Machine& machine, Atom member, const Value& value) {
  switch (member) {
    case kMemberPattern:
      pattern_ = std::u16string(TextArgument(machine, value).view());
      break;
    case kMemberIgnoreCase:
      flags_.ignore_case = ToBoolean(machine, value);
      break;
    case kMemberGlobal:
      global_ = ToBoolean(machine, value);
      return;
    default:
      flags_.multiline = ToBoolean(machine, value);
      break;
  }
  compiled_.reset();
}

Value RegExpObject::Test(Machine& machine, const Value& text) {
  const TextArgument subject(machine, text);
  std::vector<RegExp::Span> spans;
  return Value::Boolean(Compiled().Find(machine, subject, 0, spans));
}

Value RegExpObject::Replace(Machine& machine, const Value& text, const Value& with) {
  const TextArgument subject(machine, text);
  const Value plain = Plain(machine, with);
  const TextArgument replacement(machine,
                                 plain.Is(Type::Boolean) ? Value::Integer(static_cast<int>(plain.n())) : plain);
  const RegExp& expression = Compiled();
  TextBuilder out(machine);
  std::vector<RegExp::Span> spans;
  std::size_t copied = 0;
  std::size_t at = 0;
  while (at <= subject.view().size() && expression.Find(machine, subject, at, spans)) {
    out.Append(subject.view().substr(copied, spans[0].start - copied));
    AppendReplacement(out, replacement, subject, spans);
    copied = spans[0].end;
    at = spans[0].end == spans[0].start ? spans[0].end + 1 : spans[0].end;
    if (!global_) break;
  }
  out.Append(subject.view().substr(copied));
  return out.Take();
}

Value RegExpObject::Execute(Machine& machine, const Value& text) {
  const TextArgument subject(machine, text);
  const RegExp& expression = Compiled();
  std::vector<Value> matches;
  std::vector<RegExp::Span> spans;
  std::size_t at = 0;
  while (at <= subject.view().size() && expression.Find(machine, subject, at, spans)) {
    std::vector<Value> groups;
    for (std::size_t group = 1; group < spans.size(); ++group) {
      const RegExp::Span& span = spans[group];
      const bool took_part = span.start != std::u16string_view::npos;
      groups.push_back(took_part ? MakeText(machine, subject.view().substr(span.start, span.end - span.start))
                                 : Value::Empty());
    }
    Value found = MakeText(machine, subject.view().substr(spans[0].start, spans[0].end - spans[0].start));
    matches.push_back(Value::TakeObject(machine.Make<MatchObject>(
        0, std::move(found), static_cast<std::int32_t>(spans[0].start), MakeArray(machine, groups))));
    at = spans[0].end == spans[0].start ? spans[0].end + 1 : spans[0].end;
    if (!global_) break;
  }
  return Value::TakeObject(machine.Make<ListObject>(0, u"IMatchCollection2", MakeArray(machine, matches)));
}

Value ListObject::Invoke(Machine& machine, Atom member, Access access, const Value* args, int count) {
  if (access != Access::Get) Raise(kNoSuchMember);
  if (member == kMemberCount) {
    if (count != 0) Raise(kArgumentCount);
    return Value::Long(static_cast<std::int32_t>(items_.array()->count()));
  }
  if (member != kMemberItem && member != kDefaultMember) Raise(kNoSuchMember);
  if (count != 1) Raise(kArgumentCount);
  const std::int32_t index = ToLong(machine, args[0]);
  if (index < 0 || static_cast<std::uint32_t>(index) >= items_.array()->count()) Raise(kInvalidCall);
  return items_.array()->elements()[index];
}

bool ListObject::Item(Machine&, std::size_t index, Value& item) {
  if (index >= items_.array()->count()) return false;
  item = items_.array()->elements()[index];
  return true;
}

Value MatchObject::Invoke(Machine& machine, Atom member, Access access, const Value* args, int count) {
  if (access != Access::Get) Raise(kNoSuchMember);
  if (member == kMemberSubMatches) {
    const Value list = Value::TakeObject(machine.Make<ListObject>(0, u"ISubMatches", groups_));
    return count == 0 ? list : machine.GetMember(list, kDefaultMember, args, count);
  }
  if (count != 0) Raise(kArgumentCount);
  switch (member) {
    case kDefaultMember:
    case kMemberValue:
      return text_;
    case kMemberFirstIndex:
      return Value::Long(index_);
    case kMemberLength:
      return Value::Long(static_cast<std::int32_t>(text_.text().size()));
    default:
      Raise(kNoSuchMember);
  }
}

}  // namespace qv::vbscript
