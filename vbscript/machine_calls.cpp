#include "vbscript/convert.h"
#include "vbscript/failure.h"
#include "vbscript/machine_frames.h"
#include "vbscript/regexp_object.h"

namespace qv::vbscript {
namespace {

// The arguments behind t have been used.
void ClearArguments(Value* t, std::uint32_t count) {
  for (std::uint32_t k = 1; k <= count; ++k) t[k].Clear();
}

}  // namespace

// An error about a member carries its name with the object's; about the object, the object's alone.
void Machine::FailMember(int number) const {
  std::string name = NameHere();
  if (number == kObjectRequired) {
    const std::size_t dot = name.rfind('.');
    name = dot == std::string::npos ? std::string() : name.substr(0, dot);
  }
  RaiseNamed(number, name);
}

bool Machine::LoadName(Value& into, Value* slot, std::uint32_t number, bool by_reference) {
  Value* variable = nullptr;
  if (slot && !slot->Is(Type::Empty)) {
    variable = &slot->Target();
  } else {
    GlobalName& name = globals_.name(number);
    switch (name.kind) {
      case GlobalName::Kind::kProcedure:
        Enter(*name.procedure, &into, 0, nullptr);
        return true;
      case GlobalName::Kind::kClass:
        Raise(kTypeMismatch);
      case GlobalName::Kind::kConst:
        into = globals_.values()[number];
        return false;
      case GlobalName::Kind::kVariable:
        variable = &globals_.values()[number];
        if (slot) *slot = Value::RefTo(variable);
        break;
      case GlobalName::Kind::kUnknown:
        if (frame().procedure->option_explicit) Raise(kUndefinedName);
        if (!slot) name.kind = GlobalName::Kind::kVariable;
        variable = slot ? slot : &globals_.values()[number];
        break;
    }
  }
  if (by_reference) {
    into = Value::RefTo(variable);
  } else {
    into = *variable;
  }
  return false;
}

void Machine::BindWrite(Value& slot, std::uint32_t number, bool always) {
  if (!slot.Is(Type::Empty)) return;
  const GlobalName& name = globals_.name(number);
  if (name.kind == GlobalName::Kind::kVariable) {
    slot = Value::RefTo(&globals_.values()[number]);
  } else if (name.kind != GlobalName::Kind::kUnknown) {
    Raise(kIllegalAssignment);
  } else if (!always && frame().procedure->option_explicit) {
    Raise(kUndefinedName);
  }
}

void Machine::Touch(std::uint32_t number, bool always) {
  GlobalName& name = globals_.name(number);
  if (name.kind == GlobalName::Kind::kVariable) return;
  if (name.kind != GlobalName::Kind::kUnknown) Raise(kIllegalAssignment);
  if (!always && frame().procedure->option_explicit) Raise(kUndefinedName);
  name.kind = GlobalName::Kind::kVariable;
}

// The variable of that name in an activation; a null pointer if there is none.
Value* Machine::FindScoped(Frame& activation, Atom name) {
  for (const LocalName& local : activation.procedure->locals) {
    if (local.name == name) return &activation.registers[local.slot].Target();
  }
  if (!activation.made) return nullptr;
  const auto made = activation.made->find(name);
  return made == activation.made->end() ? nullptr : made->second.get();
}

// The same, made if there is none.
Value& Machine::ScopedVariable(Frame& activation, Atom name) {
  if (Value* found = FindScoped(activation, name)) return *found;
  if (!activation.made) activation.made = new std::unordered_map<Atom, std::unique_ptr<Value>>;
  return *activation.made->emplace(name, std::make_unique<Value>()).first->second;
}

// Looks in the activation that executes the text, then among the globals; makes the variable there otherwise.
void Machine::BindScoped(Value& slot, Atom name, bool always) {
  Frame& activation = frames_[static_cast<std::size_t>(frame().activation)];
  Value* variable = FindScoped(activation, name);
  if (!variable && !always) {
    const GlobalName* global = globals_.Find(name);
    if (global && global->kind == GlobalName::Kind::kVariable) {
      variable = &globals_.values()[globals_.Number(name)];
    } else if (frame().procedure->option_explicit) {
      Raise(kUndefinedName);
    }
  }
  slot = Value::RefTo(variable ? variable : &ScopedVariable(activation, name));
}

// A call of a name that is no procedure, or that only the run can tell.
bool Machine::CallName(Value* t, std::uint32_t number, Value* slot, std::uint32_t n) {
  const GlobalName& name = globals_.name(number);
  const Value* variable = nullptr;
  if (slot && !slot->Is(Type::Empty)) {
    variable = &slot->Deref();
  } else if (name.kind == GlobalName::Kind::kVariable || name.kind == GlobalName::Kind::kConst) {
    variable = &globals_.values()[number];
  } else if (name.kind == GlobalName::Kind::kProcedure) {
    Enter(*name.procedure, t, n & kCountMask, nullptr);
    return true;
  } else if (name.kind == GlobalName::Kind::kUnknown && frame().procedure->option_explicit) {
    Raise(kUndefinedName);
  } else {
    Raise(kTypeMismatch);
  }
  *t = *variable;
  return CallValue(t, n);
}

bool Machine::CallValue(Value* t, std::uint32_t n) {
  const std::uint32_t count = n & kCountMask;
  if (t->IsRef()) {
    Value held = t->Deref();
    *t = std::move(held);
  }
  if (t->Is(Type::Array) && !(n & kAsStatement)) {
    const std::uint32_t position = Position(*t, t + 1, count);
    Value element = t->array()->elements()[position];
    ClearArguments(t, count);
    *t = std::move(element);
    return false;
  }
  if (!t->Is(Type::Object)) Raise(kTypeMismatch);
  if (t->IsNothing()) Raise(kObjectNotSet);
  if (const auto* reference = dynamic_cast<ProcedureReference*>(t->object())) {
    Enter(reference->procedure(), t, count, nullptr);
    return true;
  }
  if (t->object()->IsScriptObject()) {
    auto* object = static_cast<ScriptObject*>(t->object());
    if (!object->definition().default_member) Raise(kNoSuchMember);
    Enter(*object->definition().default_member, t, count, object);
    return true;
  }
  return CallNative(t, *t->object(), kDefaultMember, Access::Get, count);
}

bool Machine::CallNative(Value* t, Object& object, Atom member, Access access, std::uint32_t n) {
  for (std::uint32_t k = 1; k <= n; ++k) {
    if (!t[k].IsRef()) continue;
    Value held = t[k].Deref();
    t[k] = std::move(held);
  }
  Value result = object.Invoke(*this, member, access, t + 1, static_cast<int>(n));
  ClearArguments(t, n);
  *t = std::move(result);
  return false;
}

bool Machine::CallOwn(Value* t, Atom member, std::uint32_t n) {
  ScriptObject* me = frame().me;
  const ClassMember& found = me->definition().members.at(member);
  if (!found.get) Raise(kNoSuchMember);
  Enter(*found.get, t, n & kCountMask, me);
  return true;
}

bool Machine::CallMember(Value* t, Atom member, std::uint32_t n) {
  const std::uint32_t count = n & kCountMask;
  if (t->IsRef()) {
    Value held = t->Deref();
    *t = std::move(held);
  }
  if (!t->Is(Type::Object) || t->IsNothing()) {
    const std::string name = NameHere();
    if (name.find('.') == std::string::npos) RaiseNamed(kObjectRequired, Described(*t));
    FailMember(kObjectRequired);
  }
  if (!t->object()->IsScriptObject()) return CallNative(t, *t->object(), member, Access::Get, count);
  auto* object = static_cast<ScriptObject*>(t->object());
  const auto found = object->definition().members.find(member);
  if (found == object->definition().members.end() || !found->second.is_public) FailMember(kNoSuchMember);
  const ClassMember& definition = found->second;
  if (!definition.is_field) {
    if (!definition.get) FailMember(kNoSuchMember);
    Enter(*definition.get, t, count, object);
    return true;
  }
  const Value& field = object->fields()[definition.field];
  if (count == 0) {
    if ((n & kWithList) && !(n & kAsStatement)) FailMember(kInvalidCall);
    Value held = field;
    *t = std::move(held);
    return false;
  }
  if (!field.Is(Type::Array) && !field.Is(Type::Object)) FailMember(kNoSuchMember);
  Value held = field;
  *t = std::move(held);
  return CallValue(t, count);
}

bool Machine::AssignMember(Value* t, Atom member, std::uint32_t n, bool is_set, bool own) {
  if (t->IsRef()) {
    Value held = t->Deref();
    *t = std::move(held);
  }
  if (!t->Is(Type::Object) || t->IsNothing()) {
    const std::string name = NameHere();
    if (name.find('.') == std::string::npos) RaiseNamed(kObjectRequired, Described(*t));
    FailMember(kObjectRequired);
  }
  Value& value = t[n + 1];
  if (is_set && !value.Deref().Is(Type::Object)) RaiseNamed(kObjectRequired, Described(value.Deref()));
  if (!t->object()->IsScriptObject()) {
    return CallNative(t, *t->object(), member, is_set ? Access::Set : Access::Let, n + 1);
  }
  auto* object = static_cast<ScriptObject*>(t->object());
  const auto found = object->definition().members.find(member);
  if (found == object->definition().members.end() || !(own || found->second.is_public)) FailMember(kNoSuchMember);
  const ClassMember& definition = found->second;
  if (!definition.is_field) {
    Procedure* assign = is_set ? definition.set : definition.let;
    if (!assign) FailMember(kNoSuchMember);
    Enter(*assign, t, n + 1, object);
    return true;
  }
  Value& field = object->fields()[definition.field];
  if (n != 0) {
    if (!field.Is(Type::Array) && !field.Is(Type::Object)) FailMember(kNoSuchMember);
    IndexLet(field, t + 1, n, value.Deref(), is_set);
  } else if (is_set) {
    Set(field, value.Deref());
  } else {
    Let(field, value.Deref());
  }
  ClearArguments(t, n + 1);
  return false;
}

void Machine::CallIntrinsic(Value& into, Value* args, std::uint32_t number, std::uint32_t n) {
  const Intrinsic& function = library_.function(number);
  const int count = static_cast<int>(n);
  if (count < function.fewest || (function.most >= 0 && count > function.most)) Raise(kArgumentCount);
  Value result = function.plain ? function.plain(*this, Args(args, count)) : function.host(*this, Args(args, count));
  for (std::uint32_t k = 0; k < n; ++k) args[k].Clear();
  into = std::move(result);
}

void Machine::NewObject(Value& into, std::uint32_t number) {
  const GlobalName& name = globals_.name(number);
  if (name.kind == GlobalName::Kind::kUnknown) Raise(kUndefinedName);
  if (name.kind != GlobalName::Kind::kClass) Raise(kClassNotDefined);
  auto* object = ScriptObject::Create(*this, *name.class_def);
  into = Value::TakeObject(object);
  if (Procedure* initialize = name.class_def->initialize) Call(*initialize, object, nullptr, 0);
}

void Machine::NewRegExp(Value& into) { into = Value::TakeObject(Make<RegExpObject>(0)); }

Value Machine::GetMember(const Value& object, Atom member, const Value* args, int count) {
  if (object.IsNothing()) Raise(kObjectNotSet);
  Object& target = *object.object();
  if (!target.IsScriptObject()) {
    if (const auto* reference = dynamic_cast<ProcedureReference*>(&target)) {
      if (member != kDefaultMember || (count == 0 && !reference->is_name())) Raise(kNoSuchMember);
      return Call(reference->procedure(), nullptr, args, count);
    }
    return target.Invoke(*this, member, Access::Get, args, count);
  }
  auto& script_object = static_cast<ScriptObject&>(target);
  if (!script_object.definition().default_member) Raise(kNoSuchMember);
  return Call(*script_object.definition().default_member, &script_object, args, count);
}

Value Machine::DefaultValue(const Value& object) {
  Value value = object;
  for (int links = 0; value.Is(Type::Object); ++links) {
    if (links == 100) Raise(kOutOfStack);
    const Value holder = value;
    value = GetMember(holder, kDefaultMember, nullptr, 0);
  }
  return value;
}

}  // namespace qv::vbscript
