#include "vbscript/err_object.h"

#include <cmath>

#include "vbscript/intrinsic_arguments.h"

namespace qv::vbscript {
namespace {

struct Mapping {
  std::uint32_t result;
  int number;
};

// Results of the platform that have a number of the language's own.
constexpr Mapping kMappings[] = {
    {0x80004001, 445}, {0x80004002, 430}, {0x80070057, 5},   {0x8007000e, 7},   {0x80070005, 70},  {0x80020001, 438},
    {0x80020003, 438}, {0x80020004, 448}, {0x80020005, 13},  {0x80020006, 438}, {0x80020007, 446}, {0x80020008, 458},
    {0x8002000a, 6},   {0x8002000b, 9},   {0x8002000c, 447}, {0x8002000d, 10},  {0x8002000e, 450}, {0x8002000f, 449},
    {0x80020011, 451}, {0x80020012, 11},  {0x8002802f, 453}, {0x80028ca0, 13},  {0x80028ca1, 9},   {0x80028ca2, 57},
    {0x80028ca3, 322}, {0x80030002, 432}, {0x80030003, 76},  {0x80030004, 67},  {0x80030005, 70},  {0x80030008, 7},
    {0x80030012, 67},  {0x80030013, 70},  {0x8003001d, 57},  {0x8003001e, 57},  {0x80030020, 75},  {0x80030021, 70},
    {0x80030050, 58},  {0x80030070, 61},  {0x800300fc, 53},  {0x80030100, 70},  {0x80030101, 70},  {0x80030103, 57},
    {0x80040154, 429}, {0x800401e3, 429}, {0x800401e6, 432}, {0x800401ea, 432}, {0x800401f3, 429}, {0x800401f5, 429},
    {0x800401fe, 429}, {0x800706ba, 462}, {0x80080005, 429},
};

std::int32_t NumberOf(std::int32_t given) {
  if (given == 0) return kInvalidCall;
  if (given > 0) return given > 65535 ? kInvalidCall : given;
  const auto result = static_cast<std::uint32_t>(given);
  if ((result & 0xffff0000U) == 0x800a0000U) return static_cast<std::int32_t>(result & 0xffffU);
  for (const Mapping& row : kMappings) {
    if (row.result == result) return row.number;
  }
  return given;
}

}  // namespace

void ErrorState::Take(const Failure& failure) {
  number = failure.number;
  description = failure.description;
  source = failure.source;
  help_file = failure.help_file;
  help_context = failure.help_context;
}

void ErrObject::RaiseError(Machine& machine, const Value* args, int count) {
  const Args given(args, count);
  if (count < 1 || count > 5) RaiseBare(kArgumentCount);
  ErrorState& state = machine.error();
  const double wanted = std::nearbyint(ToDouble(machine, args[0]));
  if (!(wanted >= static_cast<double>(kMinLong) && wanted <= static_cast<double>(kMaxLong))) RaiseBare(kOverflow);
  Failure failure;
  failure.number = NumberOf(static_cast<std::int32_t>(wanted));
  failure.takes_name = false;
  failure.source = given.Has(1)            ? ToUtf8(TextArgument(machine, args[1]))
                   : !state.source.empty() ? state.source
                                           : std::string(kRuntimeSource);
  failure.description = given.Has(2)                 ? ToUtf8(TextArgument(machine, args[2]))
                        : !state.description.empty() ? state.description
                                                     : std::string(RuntimeErrorText(failure.number));
  failure.help_file = given.Has(3) ? ToUtf8(TextArgument(machine, args[3])) : state.help_file;
  failure.help_context = given.Has(4) ? ToLong(machine, args[4]) : state.help_context;
  throw failure;
}

Value ErrObject::Invoke(Machine& machine, Atom member, Access access, const Value* args, int count) {
  ErrorState& state = machine.error();
  const bool reads = access == Access::Get;
  if (member == kMemberRaise && reads) RaiseError(machine, args, count);
  if (access == Access::Set) Raise(kNoSuchMember);
  if (count != (reads ? 0 : 1)) RaiseBare(kArgumentCount);
  switch (member) {
    case kMemberClear:
      if (!reads) break;
      state.Clear();
      return {};
    case kDefaultMember:
    case kMemberNumber:
      if (reads) return Value::Long(state.number);
      state.number = ToLong(machine, args[0]);
      return {};
    case kMemberHelpContext:
      if (reads) return Value::Long(state.help_context);
      state.help_context = ToLong(machine, args[0]);
      return {};
    case kMemberDescription:
    case kMemberSource:
    case kMemberHelpFile: {
      std::string& text = member == kMemberDescription ? state.description
                          : member == kMemberSource    ? state.source
                                                       : state.help_file;
      if (reads) return MakeText(machine, ToUtf16(text));
      text = ToUtf8(TextArgument(machine, args[0]));
      return {};
    }
    default:
      break;
  }
  Raise(kNoSuchMember);
}

}  // namespace qv::vbscript
