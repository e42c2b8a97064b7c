#include "vbscript/engine.h"

#include <new>
#include <type_traits>
#include <utility>

#include "vbscript/convert.h"
#include "vbscript/failure.h"
#include "vbscript/machine.h"
#include "vbscript/text.h"

namespace qv::vbscript {
namespace {

ScriptError ErrorOf(const Failure& failure) {
  ScriptError error;
  error.number = failure.number;
  error.source = failure.source;
  error.description = failure.name.empty() ? failure.description : failure.description + ": '" + failure.name + "'";
  error.text = failure.text;
  error.line = failure.place.line;
  error.column = failure.place.column;
  return error;
}

template <class Step>
std::optional<ScriptError> Guarded(Step&& step) {
  try {
    std::forward<Step>(step)();
    return std::nullopt;
  } catch (const Failure& failure) {
    return ErrorOf(failure);
  } catch (const std::bad_alloc&) {
    ScriptError error;
    error.number = kOutOfMemory;
    error.source = kRuntimeSource;
    error.description = RuntimeErrorText(kOutOfMemory);
    error.line = 1;
    return error;
  }
}

HostValue ToHost(Machine& machine, const Value& value) {
  switch (value.type()) {
    case Type::Empty:
    case Type::Missing:
      return std::monostate();
    case Type::Null:
      return nullptr;
    case Type::Boolean:
      return value.n() != 0;
    case Type::String:
      return ToUtf8(value.text());
    case Type::Single:
    case Type::Currency:
    case Type::Date:
      return ToUtf8(ToText(machine, value).text());
    case Type::Object:
      return ToHost(machine, machine.DefaultValue(value));
    default:
      return ToDouble(machine, value);
  }
}

Value FromHost(Machine& machine, const HostValue& value) {
  if (std::holds_alternative<std::monostate>(value)) return {};
  if (std::holds_alternative<std::nullptr_t>(value)) return Value::Null();
  if (const bool* boolean = std::get_if<bool>(&value)) return Value::Boolean(*boolean);
  if (const double* number = std::get_if<double>(&value)) return Value::Double(*number);
  return MakeText(machine, ToUtf16(std::get<std::string>(value)));
}

}  // namespace

struct Engine::State {
  explicit State(const EngineOptions& options) : machine(options) {}
  Machine machine;
};

Engine::Engine(const EngineOptions& options) : state_(std::make_unique<State>(options)) {}
Engine::~Engine() = default;

std::optional<ScriptError> Engine::AddCode(std::string_view utf8) {
  return Guarded([&] { state_->machine.Run(utf8); });
}

std::optional<ScriptError> Engine::End() {
  return Guarded([&] { state_->machine.End(); });
}

std::optional<ScriptError> Engine::Check(std::string_view utf8) {
  return Guarded([&] { state_->machine.CheckText(utf8); });
}

std::optional<ScriptError> Engine::Eval(std::string_view utf8, std::string& result) {
  return Guarded([&] {
    const Value value = state_->machine.EvaluateText(utf8);
    if (value.Is(Type::Null)) {
      result = "Null";
    } else {
      result = ToUtf8(ToText(state_->machine, value).text());
    }
  });
}

void Engine::RegisterFunction(std::string_view name, int fewest, int most, HostFunction function) {
  Intrinsic made;
  made.name = std::string(name);
  made.fewest = fewest;
  made.most = most;
  made.host = [function = std::move(function)](Machine& machine, const Args& args) {
    std::vector<HostValue> given;
    for (int i = 0; i < args.count(); ++i) given.push_back(ToHost(machine, args[i]));
    try {
      return FromHost(machine, function(given));
    } catch (const ScriptError& error) {
      Failure failure;
      failure.number = static_cast<int>(error.number);
      failure.description = error.description;
      failure.source = error.source;
      failure.takes_name = false;
      throw failure;
    }
  };
  state_->machine.library().AddFunction(ToUtf16(name), std::move(made));
}

}  // namespace qv::vbscript
