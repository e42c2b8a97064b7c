#include "vbscript/dates.h"

#include <chrono>
#include <cmath>
#include <ctime>

namespace qv::vbscript {
namespace {

constexpr double kFirstDay = -657434;  // 0100-01-01
constexpr double kEndDay = 2958466;    // 10000-01-01
constexpr int kSecondsADay = 86400;

const char16_t* const kMonths[] = {u"January", u"February", u"March",     u"April",   u"May",      u"June",
                                   u"July",    u"August",   u"September", u"October", u"November", u"December"};
const char16_t* const kWeekdays[] = {u"Sunday",   u"Monday", u"Tuesday", u"Wednesday",
                                     u"Thursday", u"Friday", u"Saturday"};

// Days since 1899-12-30 in the calendar of today, also for the past.
std::int64_t CivilDays(std::int64_t year, int month, int day) {
  year -= month <= 2;
  const std::int64_t era = (year >= 0 ? year : year - 399) / 400;
  const std::int64_t year_of_era = year - era * 400;
  const std::int64_t day_of_year = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
  const std::int64_t day_of_era = year_of_era * 365 + year_of_era / 4 - year_of_era / 100 + day_of_year;
  return era * 146097 + day_of_era - 719468 + 25569;
}

std::u16string Number(int n, int digits = 1) {
  std::string text = std::to_string(n);
  while (static_cast<int>(text.size()) < digits) text.insert(0, 1, '0');
  return {text.begin(), text.end()};
}

std::tm LocalNow(double& fraction) {
  const auto now = std::chrono::system_clock::now();
  const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
  fraction = std::chrono::duration<double>(now - std::chrono::system_clock::from_time_t(seconds)).count();
  std::tm local{};
#ifdef _WIN32
  localtime_s(&local, &seconds);
#else
  localtime_r(&seconds, &local);
#endif
  return local;
}

}  // namespace

bool IsDateInRange(double date) { return date > kFirstDay - 1 && date < kEndDay; }

double DayOf(double date) { return std::trunc(date); }

double TimeOf(double date) { return std::fabs(date - std::trunc(date)); }

double DateOfDays(double days, double time) { return days < 0 ? days - time : days + time; }

DateParts PartsOf(double date) {
  std::int64_t days = static_cast<std::int64_t>(std::trunc(date));
  auto seconds = static_cast<int>(std::floor(TimeOf(date) * kSecondsADay + 0.5));
  if (seconds >= kSecondsADay) {
    seconds -= kSecondsADay;
    ++days;
  }
  DateParts parts;
  const std::int64_t shifted = days - 25569 + 719468;
  const std::int64_t era = (shifted >= 0 ? shifted : shifted - 146096) / 146097;
  const std::int64_t day_of_era = shifted - era * 146097;
  const std::int64_t year_of_era = (day_of_era - day_of_era / 1460 + day_of_era / 36524 - day_of_era / 146096) / 365;
  const std::int64_t day_of_year = day_of_era - (365 * year_of_era + year_of_era / 4 - year_of_era / 100);
  const std::int64_t month = (5 * day_of_year + 2) / 153;
  parts.day = static_cast<int>(day_of_year - (153 * month + 2) / 5 + 1);
  parts.month = static_cast<int>(month < 10 ? month + 3 : month - 9);
  parts.year = static_cast<int>(year_of_era + era * 400 + (parts.month <= 2 ? 1 : 0));
  parts.hour = seconds / 3600;
  parts.minute = seconds / 60 % 60;
  parts.second = seconds % 60;
  parts.weekday = static_cast<int>(((days - 1) % 7 + 7) % 7) + 1;
  return parts;
}

bool DaysOf(int year, int month, int day, double& days) {
  std::int64_t months = std::int64_t{year} * 12 + month - 1;
  const std::int64_t whole_years = (months >= 0 ? months : months - 11) / 12;
  months -= whole_years * 12;
  if (whole_years < -1000000 || whole_years > 1000000) return false;
  days = static_cast<double>(CivilDays(whole_years, static_cast<int>(months) + 1, 1) + day - 1);
  return IsDateInRange(days) && days >= kFirstDay;
}

int DaysInMonth(int year, int month) {
  static constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
  return month == 2 && leap ? 29 : kDays[month - 1];
}

int FullYear(int year) { return year < 0 || year > 99 ? year : year < 30 ? 2000 + year : 1900 + year; }

std::u16string ShortDateText(const DateParts& parts) {
  return Number(parts.month) + u"/" + Number(parts.day) + u"/" + Number(parts.year, 4);
}

std::u16string LongDateText(const DateParts& parts) {
  return std::u16string(WeekdayText(parts.weekday)) + u", " + MonthText(parts.month) + u" " + Number(parts.day) +
         u", " + Number(parts.year, 4);
}

std::u16string LongTimeText(const DateParts& parts) {
  const int hour = parts.hour % 12 == 0 ? 12 : parts.hour % 12;
  return Number(hour) + u":" + Number(parts.minute, 2) + u":" + Number(parts.second, 2) +
         (parts.hour < 12 ? u" AM" : u" PM");
}

std::u16string ShortTimeText(const DateParts& parts) { return Number(parts.hour, 2) + u":" + Number(parts.minute, 2); }

std::u16string DateText(double date) {
  const DateParts parts = PartsOf(date);
  const bool has_time = parts.hour != 0 || parts.minute != 0 || parts.second != 0;
  const bool has_day = parts.year != 1899 || parts.month != 12 || parts.day != 30;
  if (!has_day) return LongTimeText(parts);
  return has_time ? ShortDateText(parts) + u" " + LongTimeText(parts) : ShortDateText(parts);
}

const char16_t* MonthText(int month) { return kMonths[month - 1]; }

const char16_t* WeekdayText(int weekday) { return kWeekdays[weekday - 1]; }

double CurrentDate() {
  double fraction = 0;
  const std::tm local = LocalNow(fraction);
  double days = 0;
  DaysOf(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, days);
  return days + (local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec) / static_cast<double>(kSecondsADay);
}

double SecondsSinceMidnight() {
  double fraction = 0;
  const std::tm local = LocalNow(fraction);
  return local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec + fraction;
}

}  // namespace qv::vbscript
