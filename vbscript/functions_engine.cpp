#include "vbscript/err_object.h"
#include "vbscript/intrinsic_arguments.h"
#include "vbscript/locales.h"

namespace qv::vbscript {
namespace {

Value ScriptEngine(Machine& machine, const Args&) { return MakeText(machine, u"VBScript"); }
Value MajorVersion(Machine&, const Args&) { return Value::Long(5); }
Value MinorVersion(Machine&, const Args&) { return Value::Long(8); }
Value BuildVersion(Machine&, const Args&) { return Value::Long(16978); }

Value GetLocale(Machine& machine, const Args&) { return Value::Long(machine.locale()); }

Value SetLocale(Machine& machine, const Args& args) {
  const Value old = Value::Long(machine.locale());
  const Locale* locale = &kHostLocale;
  if (args.Has(0)) {
    const Value value = Plain(machine, args[0]);
    if (value.Is(Type::Null)) Raise(kInvalidNull);
    double number = 0;
    if (value.Is(Type::String) && !ParseNumber(machine, value.text(), number)) {
      locale = FindLocale(value.text());
    } else if (!value.Is(Type::Empty)) {
      locale = FindLocale(ToLong(machine, value));
    }
    if (!locale) Raise(kBadLocale);
  }
  machine.SetLocale(locale->id, locale->decimal_mark);
  return old;
}

Value Execute(Machine& machine, const Args& args) {
  machine.Execute(args[0], false);
  return {};
}

Value ExecuteGlobal(Machine& machine, const Args& args) {
  machine.Execute(args[0], true);
  return {};
}

Value Eval(Machine& machine, const Args& args) { return machine.Eval(args[0]); }
Value GetRef(Machine& machine, const Args& args) { return machine.ReferenceTo(args[0]); }
Value Err(Machine& machine, const Args&) { return Value::TakeObject(machine.Make<ErrObject>(0)); }

// Nothing outside of the script can be reached, whatever is asked for.
Value CreateObject(Machine& machine, const Args& args) {
  const TextArgument name(machine, args[0]);
  RaiseNamed(kCannotCreate, ToUtf8(name));
}

Value GetObject(Machine& machine, const Args& args) {
  const bool has_class = args.Has(1);
  if (!has_class && !args.Has(0)) Raise(kCannotCreate);
  const TextArgument name(machine, args[has_class ? 1 : 0]);
  RaiseNamed(kCannotCreate, ToUtf8(name));
}

Value RefuseWindow(Machine&, const Args&) { Raise(kPermissionDenied); }
Value RefusePicture(Machine&, const Args&) { Raise(kCannotCreate); }

constexpr FunctionRow kRows[] = {
    {u"ScriptEngine", 0, 0, ScriptEngine},
    {u"ScriptEngineMajorVersion", 0, 0, MajorVersion},
    {u"ScriptEngineMinorVersion", 0, 0, MinorVersion},
    {u"ScriptEngineBuildVersion", 0, 0, BuildVersion},
    {u"GetLocale", 0, 0, GetLocale},
    {u"SetLocale", 0, 1, SetLocale},
    {u"MsgBox", 1, 5, RefuseWindow},
    {u"InputBox", 1, 7, RefuseWindow},
    {u"LoadPicture", 1, 1, RefusePicture},
};

// What these give may be an object, or they run code.
constexpr FunctionRow kObjectRows[] = {
    {u"Execute", 1, 1, Execute},
    {u"ExecuteGlobal", 1, 1, ExecuteGlobal},
    {u"Eval", 1, 1, Eval},
    {u"GetRef", 1, 1, GetRef},
    {u"Err", 0, 0, Err},
    {u"CreateObject", 1, 2, CreateObject},
    {u"GetObject", 0, 2, GetObject},
};

}  // namespace

void AddEngineFunctions(Library& library) {
  AddRows(library, kRows);
  for (const FunctionRow& row : kObjectRows) {
    Intrinsic made;
    made.name = ToUtf8(row.name);
    made.fewest = row.fewest;
    made.most = row.most;
    made.plain = row.function;
    made.gives_object = true;
    library.AddFunction(row.name, std::move(made));
  }
}

}  // namespace qv::vbscript
