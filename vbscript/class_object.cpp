#include "vbscript/class_object.h"

#include <new>

#include "vbscript/array.h"
#include "vbscript/failure.h"
#include "vbscript/machine.h"

namespace qv::vbscript {

Value Object::Invoke(Machine&, Atom, Access, const Value*, int) { Raise(kNoSuchMember); }

bool Object::Item(Machine&, std::size_t, Value&) { return false; }

ScriptObject* ScriptObject::Create(Context& context, const ClassDef& definition) {
  auto* made = context.Make<ScriptObject>(definition.fields * sizeof(Value), definition);
  const Value holder = Value::TakeObject(made);
  for (const auto& [field, bounds] : definition.arrays) {
    Value array = Value::TakeArray(ArrayRep::Create(context, bounds));
    if (!bounds.empty()) array.MarkFixed();
    made->fields()[field] = std::move(array);
  }
  ++made->refs;
  return made;
}

ScriptObject::ScriptObject(Context& context, const ClassDef& definition) : Object(context), definition_(definition) {
  for (std::uint32_t k = 0; k < definition.fields; ++k) ::new (static_cast<void*>(fields() + k)) Value();
}

ScriptObject::~ScriptObject() {
  for (std::uint32_t k = 0; k < definition_.fields; ++k) fields()[k].~Value();
}

void ScriptObject::DropContents() noexcept {
  for (std::uint32_t k = 0; k < definition_.fields; ++k) fields()[k].Clear();
}

Value ScriptScope::Invoke(Machine& machine, Atom member, Access access, const Value* args, int count) {
  if (member == kDefaultMember) Raise(kNoSuchMember);
  const GlobalName* name = machine.globals().Find(member);
  if (!name || name->kind == GlobalName::Kind::kUnknown || name->kind == GlobalName::Kind::kClass) {
    Raise(kNoSuchMember);
  }
  if (name->kind == GlobalName::Kind::kProcedure) {
    if (access != Access::Get) Raise(kNoSuchMember);
    return machine.Call(*name->procedure, nullptr, args, count);
  }
  Value& variable = machine.globals().values()[machine.globals().Number(member)];
  if (access == Access::Get) {
    if (count != 0) Raise(kNoSuchMember);
    return variable;
  }
  if (name->kind == GlobalName::Kind::kConst) Raise(kIllegalAssignment);
  if (count != 1) Raise(kNoSuchMember);
  variable = access == Access::Let && args[0].Is(Type::Object) ? machine.DefaultValue(args[0]) : CopyOf(args[0]);
  return {};
}

}  // namespace qv::vbscript
