#pragma once

#include <string>
#include <string_view>

namespace qv::vbscript {

// A date is a number of days since 1899-12-30 with the time as its fraction, also below zero. Years 100 to 9999.
struct DateParts {
  int year = 1899;
  int month = 12;
  int day = 30;
  int hour = 0;
  int minute = 0;
  int second = 0;
  int weekday = 7;  // Sunday is 1
};

bool IsDateInRange(double date);
DateParts PartsOf(double date);
// The whole days of a date and the part of the day, from 0 to below 1.
double DayOf(double date);
double TimeOf(double date);
double DateOfDays(double days, double time);
// The days of a calendar date; months and days out of their range run over. False outside of the years.
bool DaysOf(int year, int month, int day, double& days);
int DaysInMonth(int year, int month);
// Years of one or two digits are taken for 1930 to 2029.
int FullYear(int year);

// Reads US dates, ISO dates, month names, and times with or without AM and PM. False if the text is none.
bool ParseDate(std::u16string_view text, double& date);

std::u16string DateText(double date);
std::u16string ShortDateText(const DateParts& parts);
std::u16string LongDateText(const DateParts& parts);
std::u16string LongTimeText(const DateParts& parts);
std::u16string ShortTimeText(const DateParts& parts);
// English names; months from 1, weekdays from Sunday = 1.
const char16_t* MonthText(int month);
const char16_t* WeekdayText(int weekday);

// The clock: local time now.
double CurrentDate();
// Seconds since midnight with their fraction.
double SecondsSinceMidnight();

}  // namespace qv::vbscript
