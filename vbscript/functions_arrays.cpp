#include <vector>

#include "vbscript/array.h"
#include "vbscript/intrinsic_arguments.h"
#include "vbscript/search.h"

namespace qv::vbscript {
namespace {

Value MakeArray(Machine& machine, const std::vector<Value>& elements) {
  const std::int64_t bound = static_cast<std::int64_t>(elements.size()) - 1;
  Value made = Value::TakeArray(ArrayRep::Create(machine, {&bound, 1}));
  for (std::size_t i = 0; i < elements.size(); ++i) made.array()->elements()[i] = elements[i];
  return made;
}

Value ArrayOf(Machine& machine, const Args& args) {
  std::vector<Value> elements;
  for (int i = 0; i < args.count(); ++i) elements.push_back(CopyOf(args[i]));
  return MakeArray(machine, elements);
}

// The array and the dimension asked for, counted from 0.
std::uint32_t Dimension(Machine& machine, const Value& array, const Args& args) {
  if (!array.Is(Type::Array)) Raise(kTypeMismatch);
  const std::int32_t dimension = LongOr(machine, args, 1, 1);
  if (dimension < 1 || static_cast<std::uint32_t>(dimension) > array.array()->dimensions()) Raise(kSubscript);
  return static_cast<std::uint32_t>(dimension) - 1;
}

Value LBound(Machine& machine, const Args& args) {
  const Value array = Plain(machine, args[0]);
  Dimension(machine, array, args);
  return Value::Long(0);
}

Value UBound(Machine& machine, const Args& args) {
  const Value array = Plain(machine, args[0]);
  const std::uint32_t dimension = Dimension(machine, array, args);
  return Value::Long(static_cast<std::int32_t>(array.array()->size(dimension)) - 1);
}

Value SplitText(Machine& machine, const Args& args) {
  const bool ignore_case = IgnoresCase(machine, args, 3);
  const TextArgument argument(machine, args[0]);
  const std::u16string_view text = argument;
  const Value delimiter_value = args.Has(1) ? ToText(machine, args[1]) : MakeText(machine, u" ");
  const std::u16string_view delimiter = delimiter_value.text();
  const std::int32_t count = LongOr(machine, args, 2, -1);
  if (count < -1) Raise(kInvalidCall);
  std::vector<Value> pieces;
  if (text.empty() || count == 0) return MakeArray(machine, pieces);
  const Finder finder(machine, delimiter);
  std::size_t at = 0;
  while (!delimiter.empty() && (count == -1 || pieces.size() + 1 < static_cast<std::size_t>(count))) {
    const std::size_t next = ignore_case ? Search(machine, text, delimiter, at, true) : finder.In(text, at);
    if (next == std::u16string_view::npos) break;
    pieces.push_back(MakeText(machine, text.substr(at, next - at)));
    at = next + delimiter.size();
    machine.Poll();
  }
  pieces.push_back(MakeText(machine, text.substr(at)));
  return MakeArray(machine, pieces);
}

Value JoinPieces(Machine& machine, const Args& args) {
  const Value array = Plain(machine, args[0]);
  if (array.Is(Type::Null)) Raise(kInvalidNull);
  if (!array.Is(Type::Array) || array.array()->dimensions() != 1) Raise(kTypeMismatch);
  const Value delimiter = args.Has(1) ? ToText(machine, args[1]) : MakeText(machine, u" ");
  TextBuilder text(machine);
  for (std::uint32_t i = 0; i < array.array()->count(); ++i) {
    machine.Poll();
    const Value& element = array.array()->elements()[i];
    if (element.Is(Type::Null)) Raise(kTypeMismatch);
    if (i != 0) text.Append(delimiter.text());
    text.Append(ToText(machine, element).text());
  }
  return text.Take();
}

Value FilterPieces(Machine& machine, const Args& args) {
  const Value array = Plain(machine, args[0]);
  if (array.Is(Type::Null)) Raise(kInvalidNull);
  if (!array.Is(Type::Array) || array.array()->dimensions() != 1) Raise(kTypeMismatch);
  const TextArgument find(machine, args[1]);
  const bool include = !args.Has(2) || ToBoolean(machine, args[2]);
  const bool ignore_case = IgnoresCase(machine, args, 3);
  std::vector<Value> kept;
  for (std::uint32_t i = 0; i < array.array()->count(); ++i) {
    machine.Poll();
    const Value text = ToText(machine, array.array()->elements()[i]);
    const bool found = Search(machine, text.text(), find, 0, ignore_case) != std::u16string_view::npos;
    if (found == include) kept.push_back(text);
  }
  return MakeArray(machine, kept);
}

constexpr FunctionRow kRows[] = {
    {u"Array", 0, -1, ArrayOf},  {u"LBound", 1, 2, LBound},   {u"UBound", 1, 2, UBound},
    {u"Split", 1, 4, SplitText}, {u"Join", 1, 2, JoinPieces}, {u"Filter", 2, 4, FilterPieces},
};

}  // namespace

void AddArrayFunctions(Library& library) { AddRows(library, kRows); }

}  // namespace qv::vbscript
