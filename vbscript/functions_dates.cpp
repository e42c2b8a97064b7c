#include <algorithm>
#include <cmath>

#include "vbscript/dates.h"
#include "vbscript/intrinsic_arguments.h"

namespace qv::vbscript {
namespace {

Value Now(Machine&, const Args&) { return Value::Date(CurrentDate()); }
Value Today(Machine&, const Args&) { return Value::Date(DayOf(CurrentDate())); }
Value Clock(Machine&, const Args&) { return Value::Date(TimeOf(CurrentDate())); }
Value Timer(Machine&, const Args&) { return Value::Single(SecondsSinceMidnight()); }

template <int DateParts::*Field>
Value Part(Machine& machine, const Args& args) {
  const Value value = Plain(machine, args[0]);
  if (value.Is(Type::Null)) return value;
  return Value::Integer(PartsOf(ToDate(machine, value)).*Field);
}

// The first day of the week, Sunday = 1. Raises 5 outside of 0 to 7; 0 is the system's, which is Sunday.
int FirstDay(Machine& machine, const Args& args, int i) {
  const std::int32_t first = LongOr(machine, args, i, 1);
  if (first < 0 || first > 7) Raise(kInvalidCall);
  return first == 0 ? 1 : first;
}

int FirstWeek(Machine& machine, const Args& args, int i) {
  const std::int32_t first = LongOr(machine, args, i, 1);
  if (first < 0 || first > 3) Raise(kInvalidCall);
  return first == 0 ? 1 : first;
}

int WeekdayFrom(int weekday, int first) { return (weekday - first + 7) % 7 + 1; }

Value Weekday(Machine& machine, const Args& args) {
  const int first = FirstDay(machine, args, 1);
  const Value value = Plain(machine, args[0]);
  if (value.Is(Type::Null)) return value;
  return Value::Integer(WeekdayFrom(PartsOf(ToDate(machine, value)).weekday, first));
}

Value WeekdayName(Machine& machine, const Args& args) {
  const std::int32_t number = ToLong(machine, args[0]);
  const bool brief = args.Has(1) && ToBoolean(machine, args[1]);
  const int first = args.Has(2) ? FirstDay(machine, args, 2) : 1;
  if (number < 1 || number > 7) Raise(kInvalidCall);
  const std::u16string_view name = WeekdayText((number - 1 + first - 1) % 7 + 1);
  return MakeText(machine, brief ? name.substr(0, 3) : name);
}

Value MonthName(Machine& machine, const Args& args) {
  const std::int32_t number = ToLong(machine, args[0]);
  const bool brief = args.Has(1) && ToBoolean(machine, args[1]);
  if (number < 1 || number > 12) Raise(kInvalidCall);
  const std::u16string_view name = MonthText(number);
  return MakeText(machine, brief ? name.substr(0, 3) : name);
}

Value DateSerial(Machine& machine, const Args& args) {
  const std::int32_t year = ToLong(machine, args[0]);
  const std::int32_t month = ToLong(machine, args[1]);
  const std::int32_t day = ToLong(machine, args[2]);
  constexpr std::int32_t kFar = 10000000;
  double days = 0;
  if (year < 0 || std::abs(month) > kFar || std::abs(day) > kFar || !DaysOf(FullYear(year), month, day, days)) {
    Raise(kInvalidCall);
  }
  return Value::Date(days);
}

Value TimeSerial(Machine& machine, const Args& args) {
  const std::int64_t hour = ToLong(machine, args[0]);
  const std::int64_t minute = ToLong(machine, args[1]);
  const std::int64_t second = ToLong(machine, args[2]);
  const double total = static_cast<double>(hour * 3600 + minute * 60 + second) / 86400;
  const double days = std::trunc(total);
  const double date = DateOfDays(days, std::fabs(total - days));
  if (!IsDateInRange(date)) Raise(kInvalidCall);
  return Value::Date(total < 0 && days == 0 ? -total : date);
}

// Text or a Date, and no number.
double DateArgument(Machine& machine, const Value& argument) {
  const Value value = Plain(machine, argument);
  if (value.Is(Type::Null)) Raise(kInvalidNull);
  if (value.Is(Type::Date)) return value.d();
  double date = 0;
  if (!value.Is(Type::String) || !ParseDate(value.text(), date)) Raise(kTypeMismatch);
  return date;
}

Value DateValue(Machine& machine, const Args& args) { return Value::Date(DayOf(DateArgument(machine, args[0]))); }
Value TimeValue(Machine& machine, const Args& args) { return Value::Date(TimeOf(DateArgument(machine, args[0]))); }

enum class Interval : unsigned char {
  kYear,
  kQuarter,
  kMonth,
  kDayOfYear,
  kDay,
  kWeekday,
  kWeek,
  kHour,
  kMinute,
  kSecond
};

Interval IntervalOf(Machine& machine, const Value& argument) {
  static constexpr struct {
    const char16_t* name;
    Interval interval;
  } kIntervals[] = {
      {u"yyyy", Interval::kYear}, {u"q", Interval::kQuarter}, {u"m", Interval::kMonth}, {u"y", Interval::kDayOfYear},
      {u"d", Interval::kDay},     {u"w", Interval::kWeekday}, {u"ww", Interval::kWeek}, {u"h", Interval::kHour},
      {u"n", Interval::kMinute},  {u"s", Interval::kSecond},
  };
  const TextArgument name(machine, argument);
  for (const auto& row : kIntervals) {
    if (Compare(name, row.name, true) == 0) return row.interval;
  }
  Raise(kInvalidCall);
}

// Seconds since 1899-12-30, whole.
double SecondsOf(double date) { return DayOf(date) * 86400 + std::floor(TimeOf(date) * 86400 + 0.5); }

double DateOfSeconds(double seconds) {
  const double days = std::floor(seconds / 86400);
  return DateOfDays(days, (seconds - days * 86400) / 86400);
}

Value DateAdd(Machine& machine, const Args& args) {
  const Interval interval = IntervalOf(machine, args[0]);
  const double amount = std::nearbyint(ToDouble(machine, args[1]));
  if (!(std::fabs(amount) < 1e12)) Raise(kInvalidCall);
  const Value value = Plain(machine, args[2]);
  if (value.Is(Type::Null)) return value;
  const double date = ToDate(machine, value);
  double result = 0;
  switch (interval) {
    case Interval::kYear:
    case Interval::kQuarter:
    case Interval::kMonth: {
      const DateParts parts = PartsOf(date);
      const double scale = interval == Interval::kYear ? 12 : interval == Interval::kQuarter ? 3 : 1;
      const double months = parts.year * 12.0 + parts.month - 1 + amount * scale;
      if (months < 0 || months > 12e5) Raise(kInvalidCall);
      const int year = static_cast<int>(months) / 12;
      const int month = static_cast<int>(months) % 12 + 1;
      const int day = std::min(parts.day, DaysInMonth(year, month));
      double days = 0;
      if (!DaysOf(year, month, day, days)) Raise(kInvalidCall);
      result = DateOfDays(days, TimeOf(date));
      break;
    }
    case Interval::kHour:
      result = DateOfSeconds(SecondsOf(date) + amount * 3600);
      break;
    case Interval::kMinute:
      result = DateOfSeconds(SecondsOf(date) + amount * 60);
      break;
    case Interval::kSecond:
      result = DateOfSeconds(SecondsOf(date) + amount);
      break;
    default:
      result = DateOfDays(DayOf(date) + amount * (interval == Interval::kWeek ? 7 : 1), TimeOf(date));
      break;
  }
  if (!IsDateInRange(result)) Raise(kInvalidCall);
  return Value::Date(result);
}

double WholeDay(double date) { return std::floor(SecondsOf(date) / 86400); }

Value DateDiff(Machine& machine, const Args& args) {
  const Interval interval = IntervalOf(machine, args[0]);
  const int first = FirstDay(machine, args, 3);
  FirstWeek(machine, args, 4);
  const Value a = Plain(machine, args[1]);
  const Value b = Plain(machine, args[2]);
  if (a.Is(Type::Null) || b.Is(Type::Null)) return Value::Null();
  const double from = ToDate(machine, a);
  const double to = ToDate(machine, b);
  const DateParts x = PartsOf(from);
  const DateParts y = PartsOf(to);
  double result = 0;
  switch (interval) {
    case Interval::kYear:
      result = y.year - x.year;
      break;
    case Interval::kQuarter:
      result = (y.year * 4 + (y.month - 1) / 3) - (x.year * 4 + (x.month - 1) / 3);
      break;
    case Interval::kMonth:
      result = (y.year * 12 + y.month) - (x.year * 12 + x.month);
      break;
    case Interval::kDay:
    case Interval::kDayOfYear:
      result = WholeDay(to) - WholeDay(from);
      break;
    case Interval::kWeekday:
      result = std::trunc((WholeDay(to) - WholeDay(from)) / 7);
      break;
    case Interval::kWeek: {
      const double start_x = WholeDay(from) - (WeekdayFrom(x.weekday, first) - 1);
      const double start_y = WholeDay(to) - (WeekdayFrom(y.weekday, first) - 1);
      result = (start_y - start_x) / 7;
      break;
    }
    case Interval::kHour:
      result = std::floor(SecondsOf(to) / 3600) - std::floor(SecondsOf(from) / 3600);
      break;
    case Interval::kMinute:
      result = std::floor(SecondsOf(to) / 60) - std::floor(SecondsOf(from) / 60);
      break;
    case Interval::kSecond:
      result = SecondsOf(to) - SecondsOf(from);
      break;
  }
  return Value::Long(RoundToLong(result));
}

// The week of the year, counted from the first week that the rule accepts.
int WeekOfYear(const DateParts& parts, double day, int first_day, int rule) {
  const auto start_of_week_one = [&](int year) {
    double new_year = 0;
    if (!DaysOf(year, 1, 1, new_year)) Raise(kInvalidCall);
    const int offset = WeekdayFrom(PartsOf(new_year).weekday, first_day) - 1;
    const double start = new_year - offset;
    const int days_in_first = 7 - offset;
    const bool counts = rule == 1 || (rule == 2 ? days_in_first >= 4 : days_in_first == 7);
    return counts ? start : start + 7;
  };
  double start = start_of_week_one(parts.year);
  if (rule != 1) {
    if (day < start) start = start_of_week_one(parts.year - 1);
    if (parts.year < 9999 && day >= start_of_week_one(parts.year + 1)) start = start_of_week_one(parts.year + 1);
  }
  return static_cast<int>((day - start) / 7) + 1;
}

Value DatePart(Machine& machine, const Args& args) {
  const Interval interval = IntervalOf(machine, args[0]);
  const int first = FirstDay(machine, args, 2);
  const int rule = FirstWeek(machine, args, 3);
  const Value value = Plain(machine, args[1]);
  if (value.Is(Type::Null)) return value;
  const double date = ToDate(machine, value);
  const DateParts parts = PartsOf(date);
  double new_year = 0;
  DaysOf(parts.year, 1, 1, new_year);
  switch (interval) {
    case Interval::kYear:
      return Value::Integer(parts.year);
    case Interval::kQuarter:
      return Value::Integer((parts.month - 1) / 3 + 1);
    case Interval::kMonth:
      return Value::Integer(parts.month);
    case Interval::kDayOfYear:
      return Value::Integer(static_cast<int>(WholeDay(date) - new_year) + 1);
    case Interval::kDay:
      return Value::Integer(parts.day);
    case Interval::kWeekday:
      return Value::Integer(WeekdayFrom(parts.weekday, first));
    case Interval::kWeek:
      return Value::Integer(WeekOfYear(parts, WholeDay(date), first, rule));
    case Interval::kHour:
      return Value::Integer(parts.hour);
    case Interval::kMinute:
      return Value::Integer(parts.minute);
    default:
      return Value::Integer(parts.second);
  }
}

constexpr FunctionRow kRows[] = {
    {u"Now", 0, 0, Now},
    {u"Date", 0, 0, Today},
    {u"Time", 0, 0, Clock},
    {u"Timer", 0, 0, Timer},
    {u"Year", 1, 1, Part<&DateParts::year>},
    {u"Month", 1, 1, Part<&DateParts::month>},
    {u"Day", 1, 1, Part<&DateParts::day>},
    {u"Hour", 1, 1, Part<&DateParts::hour>},
    {u"Minute", 1, 1, Part<&DateParts::minute>},
    {u"Second", 1, 1, Part<&DateParts::second>},
    {u"Weekday", 1, 2, Weekday},
    {u"WeekdayName", 1, 3, WeekdayName},
    {u"MonthName", 1, 2, MonthName},
    {u"DateSerial", 3, 3, DateSerial},
    {u"TimeSerial", 3, 3, TimeSerial},
    {u"DateValue", 1, 1, DateValue},
    {u"TimeValue", 1, 1, TimeValue},
    {u"DateAdd", 3, 3, DateAdd},
    {u"DateDiff", 3, 5, DateDiff},
    {u"DatePart", 2, 4, DatePart},
};

}  // namespace

void AddDateFunctions(Library& library) { AddRows(library, kRows); }

}  // namespace qv::vbscript
