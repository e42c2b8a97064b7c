#pragma once

#include <optional>
#include <vector>

#include "vbscript/object.h"
#include "vbscript/regexp.h"

namespace qv::vbscript {

// What New RegExp makes.
class RegExpObject final : public Object {
 public:
  using Object::Object;
  std::u16string KindName() const override { return u"IRegExp2"; }
  Value Invoke(Machine& machine, Atom member, Access access, const Value* args, int count) override;

 private:
  Value Read(Machine& machine, Atom member);
  void Assign(Machine& machine, Atom member, const Value& value);
  const RegExp& Compiled();
  Value Test(Machine& machine, const Value& text);
  Value Replace(Machine& machine, const Value& text, const Value& with);
  Value Execute(Machine& machine, const Value& text);

  std::u16string pattern_;
  RegExpFlags flags_;
  bool global_ = false;
  std::optional<RegExp> compiled_;
};

// The matches of one Execute, and the parts of one match: an array of values that are read by number.
class ListObject final : public Object {
 public:
  ListObject(Context& context, const char16_t* kind, Value items)
      : Object(context), kind_(kind), items_(std::move(items)) {}
  std::u16string KindName() const override { return kind_; }
  Value Invoke(Machine& machine, Atom member, Access access, const Value* args, int count) override;
  bool IsCollection() const override { return true; }
  bool Item(Machine& machine, std::size_t index, Value& item) override;
  void DropContents() noexcept override { items_.Clear(); }

 private:
  const char16_t* kind_;
  Value items_;
};

class MatchObject final : public Object {
 public:
  MatchObject(Context& context, Value text, std::int32_t index, Value groups)
      : Object(context), text_(std::move(text)), index_(index), groups_(std::move(groups)) {}
  std::u16string KindName() const override { return u"IMatch2"; }
  Value Invoke(Machine& machine, Atom member, Access access, const Value* args, int count) override;

 private:
  Value text_;
  std::int32_t index_;
  Value groups_;
};

}  // namespace qv::vbscript
