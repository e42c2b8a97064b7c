#include <algorithm>
#include <bit>
#include <cmath>

#include "vbscript/arithmetic.h"
#include "vbscript/dates.h"
#include "vbscript/intrinsic_arguments.h"

namespace qv::vbscript {
namespace {

Value Finite(double result) {
  if (!std::isfinite(result)) Raise(kOverflow);
  return Value::Double(result);
}

Value Abs(Machine& machine, const Args& args) {
  const Value value = Plain(machine, args[0]);
  if (value.Is(Type::Null)) return value;
  const Value number = ToNumber(machine, value);
  const bool negative =
      number.Is(Type::Double) || number.Is(Type::Single) || number.Is(Type::Date) ? number.d() < 0 : number.n() < 0;
  return negative ? Negate(machine, number) : number;
}

Value Sgn(Machine& machine, const Args& args) {
  const double number = ToDouble(machine, args[0]);
  return Value::Integer(number > 0 ? 1 : number < 0 ? -1 : 0);
}

template <double (*Cut)(double)>
Value Whole(Machine& machine, const Args& args) {
  const Value value = Plain(machine, args[0]);
  if (value.Is(Type::Null)) return value;
  const Value number = ToNumber(machine, value);
  switch (number.type()) {
    case Type::Single:
    case Type::Double:
    case Type::Date:
      return Value::Of(number.type(), Cut(number.d()));
    case Type::Currency: {
      const std::int64_t rest = number.n() % 10000;
      const bool down = rest < 0 && Cut(-0.5) < -0.5;
      if (down && number.n() < INT64_MIN + 10000) Raise(kOverflow);
      return Value::Currency(number.n() - rest - (down ? 10000 : 0));
    }
    default:
      return number;
  }
}

double Floor(double number) { return std::floor(number); }
double Truncate(double number) { return std::trunc(number); }

Value Round(Machine& machine, const Args& args) {
  const std::int32_t digits = LongOr(machine, args, 1, 0);
  if (digits < 0) Raise(kInvalidCall);
  const Value value = Plain(machine, args[0]);
  if (value.IsInt() || value.Is(Type::Boolean) || value.Is(Type::Byte)) return value;
  const Value number = ToNumber(machine, value);
  if (number.IsInt()) return number;
  if (number.Is(Type::Currency)) {
    std::int64_t unit = 10000;
    for (std::int32_t i = 0; i < std::min(digits, 4); ++i) unit /= 10;
    std::int64_t rounded = 0;
    if (__builtin_mul_overflow(DivideToEven(number.n(), unit), unit, &rounded)) Raise(kOverflow);
    return Value::Currency(rounded);
  }
  const double scale = std::pow(10.0, digits);
  const double exact = ToDouble(machine, number);
  const double scaled = exact * scale;
  // Far from the point there is nothing to round.
  const double rounded =
      std::isfinite(scaled) && std::fabs(scaled) < 4503599627370496.0 ? std::nearbyint(scaled) / scale : exact;
  if (number.Is(Type::Single)) return Value::Single(rounded);
  return Value::Of(number.type(), rounded);
}

Value Sqr(Machine& machine, const Args& args) {
  const double number = ToDouble(machine, args[0]);
  if (number < 0) Raise(kInvalidCall);
  return Value::Double(std::sqrt(number));
}

Value Exp(Machine& machine, const Args& args) { return Finite(std::exp(ToDouble(machine, args[0]))); }

Value Log(Machine& machine, const Args& args) {
  const double number = ToDouble(machine, args[0]);
  if (number <= 0) Raise(kInvalidCall);
  return Value::Double(std::log(number));
}

Value Sin(Machine& machine, const Args& args) { return Finite(std::sin(ToDouble(machine, args[0]))); }
Value Cos(Machine& machine, const Args& args) { return Finite(std::cos(ToDouble(machine, args[0]))); }
Value Tan(Machine& machine, const Args& args) { return Finite(std::tan(ToDouble(machine, args[0]))); }
Value Atn(Machine& machine, const Args& args) { return Finite(std::atan(ToDouble(machine, args[0]))); }

Value Rnd(Machine& machine, const Args& args) {
  Random& random = machine.random();
  if (!args.Has(0)) return Value::Single(random.Next());
  const double number = ToDouble(machine, args[0]);
  if (number == 0) return Value::Single(random.Last());
  return Value::Single(number < 0 ? random.Restart(static_cast<float>(number)) : random.Next());
}

Value Randomize(Machine& machine, const Args& args) {
  machine.random().Mix(args.Has(0) ? ToDouble(machine, args[0]) : SecondsSinceMidnight());
  return {};
}

Value Rgb(Machine& machine, const Args& args) {
  std::int32_t colour = 0;
  for (int i = 0; i < 3; ++i) {
    const std::int32_t part = ToLong(machine, args[i]);
    if (part < 0) Raise(kInvalidCall);
    colour |= std::min<std::int32_t>(part, 255) << (8 * i);
  }
  return Value::Long(colour);
}

constexpr FunctionRow kRows[] = {
    {u"Abs", 1, 1, Abs},     {u"Sgn", 1, 1, Sgn}, {u"Int", 1, 1, Whole<Floor>}, {u"Fix", 1, 1, Whole<Truncate>},
    {u"Round", 1, 2, Round}, {u"Sqr", 1, 1, Sqr}, {u"Exp", 1, 1, Exp},          {u"Log", 1, 1, Log},
    {u"Sin", 1, 1, Sin},     {u"Cos", 1, 1, Cos}, {u"Tan", 1, 1, Tan},          {u"Atn", 1, 1, Atn},
    {u"Rnd", 0, 1, Rnd},     {u"RGB", 3, 3, Rgb},
};

}  // namespace

double Random::Restart(float seed) {
  const auto bits = std::bit_cast<std::uint32_t>(seed);
  state_ = (bits + (bits >> 24)) & 0xffffffU;
  return Next();
}

void Random::Mix(double seed) {
  const auto bits = std::bit_cast<std::uint64_t>(seed);
  const auto high = static_cast<std::uint32_t>(bits >> 32);
  state_ = (state_ & 0xff0000ffU) | ((((high & 0xffffU) ^ (high >> 16)) << 8) & 0x00ffff00U);
}

void AddMathFunctions(Library& library) {
  AddRows(library, kRows);
  Intrinsic randomize;
  randomize.name = "Randomize";
  randomize.most = 1;
  randomize.plain = Randomize;
  randomize.statement_only = true;
  library.AddFunction(u"Randomize", std::move(randomize));
}

}  // namespace qv::vbscript
