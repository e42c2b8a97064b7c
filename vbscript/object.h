#pragma once

#include <string>

#include "vbscript/atoms.h"
#include "vbscript/context.h"

namespace qv::vbscript {

class Machine;

enum class Access : unsigned char { Get, Let, Set };

// The default member goes by no name.
inline constexpr Atom kDefaultMember = kNoAtom;

class Object : public Managed {
 public:
  using Managed::Managed;

  // What TypeName says.
  virtual std::u16string KindName() const { return u"Object"; }
  // Reads, calls or assigns a member; for Let and Set the value is the last argument. Raises 438 for an unknown one.
  virtual Value Invoke(Machine& machine, Atom member, Access access, const Value* args, int count);
  // For Each: false when the object is no collection, or when there is no such item.
  virtual bool IsCollection() const { return false; }
  virtual bool Item(Machine& machine, std::size_t index, Value& item);
  virtual bool IsScriptObject() const noexcept { return false; }
};

}  // namespace qv::vbscript
