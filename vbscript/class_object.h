#pragma once

#include "vbscript/code.h"
#include "vbscript/object.h"

namespace qv::vbscript {

// An instance of a class of the script. Its fields stand behind it.
class alignas(16) ScriptObject final : public Object {
 public:
  static ScriptObject* Create(Context& context, const ClassDef& definition);

  ScriptObject(Context& context, const ClassDef& definition);
  ~ScriptObject() override;

  std::u16string KindName() const override { return definition_.name; }
  void DropContents() noexcept override;
  bool WantsFarewell() const noexcept override { return definition_.terminate && alive_; }
  bool IsScriptObject() const noexcept override { return true; }
  // Class_Terminate is about to run, and will not run again.
  void BeginFarewell() noexcept { alive_ = false; }

  const ClassDef& definition() const { return definition_; }
  Value* fields() noexcept { return reinterpret_cast<Value*>(this + 1); }

 private:
  const ClassDef& definition_;
  bool alive_ = true;
};

// What GetRef gives: calling it calls the procedure.
class ProcedureReference final : public Object {
 public:
  ProcedureReference(Context& context, Procedure& procedure, bool is_name = false)
      : Object(context), procedure_(procedure), is_name_(is_name) {}
  Procedure& procedure() const { return procedure_; }
  // It stands for a procedure that only one activation knows: its value is what calling it without arguments gives.
  bool is_name() const { return is_name_; }

 private:
  Procedure& procedure_;
  bool is_name_;
};

// `Me` outside of classes: the global names as members.
class ScriptScope final : public Object {
 public:
  using Object::Object;
  Value Invoke(Machine& machine, Atom member, Access access, const Value* args, int count) override;
};

}  // namespace qv::vbscript
