#include <optional>
#include <string>
#include <vector>

#include "vbscript/dates.h"
#include "vbscript/text.h"

namespace qv::vbscript {
namespace {

struct Part {
  enum class Kind : unsigned char { kNumber, kMonth, kWeekday, kMorning, kEvening };
  Kind kind = Kind::kNumber;
  int number = 0;
  int digits = 0;
  char16_t before = u' ';  // the separator before it; a blank for none
};

// The month or weekday that a word of at least three letters starts; 0 for none.
int NamedIndex(std::u16string_view word, const char16_t* (*name)(int), int count) {
  if (word.size() < 3) return 0;
  for (int i = 1; i <= count; ++i) {
    const std::u16string_view full = name(i);
    if (word.size() <= full.size() && Compare(word, full.substr(0, word.size()), true) == 0) return i;
  }
  return 0;
}

bool IsLetter(char16_t c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'); }
bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

std::optional<Part> WordPart(std::u16string_view word) {
  Part part;
  if (Compare(word, u"am", true) == 0 || Compare(word, u"a", true) == 0) {
    part.kind = Part::Kind::kMorning;
  } else if (Compare(word, u"pm", true) == 0 || Compare(word, u"p", true) == 0) {
    part.kind = Part::Kind::kEvening;
  } else if (const int month = NamedIndex(word, MonthText, 12)) {
    part.kind = Part::Kind::kMonth;
    part.number = month;
  } else if (NamedIndex(word, WeekdayText, 7)) {
    part.kind = Part::Kind::kWeekday;
  } else {
    return std::nullopt;
  }
  return part;
}

std::optional<std::vector<Part>> Split(std::u16string_view text) {
  std::vector<Part> parts;
  char16_t separator = u' ';
  for (std::size_t i = 0; i < text.size();) {
    const char16_t c = text[i];
    const std::size_t start = i;
    if (IsDigit(c)) {
      Part part;
      while (i < text.size() && IsDigit(text[i])) ++i;
      part.digits = static_cast<int>(i - start);
      if (part.digits > 4) return std::nullopt;
      for (std::size_t k = start; k < i; ++k) part.number = part.number * 10 + (text[k] - u'0');
      part.before = separator;
      parts.push_back(part);
      separator = u' ';
    } else if (IsLetter(c)) {
      while (i < text.size() && IsLetter(text[i])) ++i;
      std::optional<Part> part = WordPart(text.substr(start, i - start));
      if (!part) return std::nullopt;
      part->before = separator;
      parts.push_back(*part);
      separator = u' ';
    } else if (c == u'/' || c == u'-' || c == u':' || c == u',' || c == u'.') {
      if (separator != u' ' || parts.empty()) return std::nullopt;
      separator = c;
      ++i;
    } else if (c == u' ' || c == u'\t') {
      ++i;
    } else {
      return std::nullopt;
    }
  }
  if (separator != u' ' || parts.empty() || parts.size() > 10) return std::nullopt;
  return parts;
}

int CurrentYear() { return PartsOf(CurrentDate()).year; }

bool MakeDate(int year, int year_digits, int month, int day, double& days) {
  if (year_digits <= 2) year = FullYear(year);
  if (year < 100 || month < 1 || month > 12 || day < 1 || day > DaysInMonth(year, month)) return false;
  return DaysOf(year, month, day, days);
}

// The calendar part: two or three numbers, one of which may be a month's name.
bool DateFromParts(const std::vector<Part>& parts, double& days) {
  std::vector<Part> numbers;
  int month = 0;
  std::size_t month_at = 0;
  for (const Part& part : parts) {
    if (part.kind == Part::Kind::kMonth) {
      if (month) return false;
      month = part.number;
      month_at = numbers.size();
    } else {
      numbers.push_back(part);
    }
  }
  if (month) {
    if (numbers.size() == 1) {
      const Part& only = numbers[0];
      if (only.digits > 2 || only.number > DaysInMonth(2000, month)) {
        return MakeDate(only.number, only.digits, month, 1, days);
      }
      return MakeDate(CurrentYear(), 4, month, only.number, days);
    }
    if (numbers.size() != 2 || month_at == 2) return false;
    const bool year_first = numbers[0].digits > 2;
    const Part& year = numbers[year_first ? 0 : 1];
    const Part& day = numbers[year_first ? 1 : 0];
    return MakeDate(year.number, year.digits, month, day.number, days);
  }
  if (numbers.size() == 2) {
    const Part& first = numbers[0];
    const Part& second = numbers[1];
    if (first.digits > 2) return MakeDate(first.number, first.digits, second.number, 1, days);
    if (second.digits > 2) return MakeDate(second.number, second.digits, first.number, 1, days);
    return MakeDate(CurrentYear(), 4, first.number, second.number, days) ||
           MakeDate(CurrentYear(), 4, second.number, first.number, days) ||
           MakeDate(second.number, second.digits, first.number, 1, days);
  }
  if (numbers.size() != 3) return false;
  const Part* n = numbers.data();
  if (n[0].digits > 2) {
    return MakeDate(n[0].number, n[0].digits, n[1].number, n[2].number, days) ||
           MakeDate(n[0].number, n[0].digits, n[2].number, n[1].number, days);
  }
  return MakeDate(n[2].number, n[2].digits, n[0].number, n[1].number, days) ||
         MakeDate(n[2].number, n[2].digits, n[1].number, n[0].number, days) ||
         MakeDate(n[0].number, n[0].digits, n[1].number, n[2].number, days);
}

bool TimeFromParts(const std::vector<Part>& parts, const Part* half, double& time) {
  if (parts.empty() || parts.size() > 3) return false;
  const int hour = parts[0].number;
  const int minute = parts.size() > 1 ? parts[1].number : 0;
  const int second = parts.size() > 2 ? parts[2].number : 0;
  if (hour > 23 || minute > 59 || second > 59) return false;
  int day_hour = hour;
  if (half && hour <= 12) {
    day_hour = hour % 12 + (half->kind == Part::Kind::kEvening ? 12 : 0);
  } else if (half) {
    return false;
  }
  time = (day_hour * 3600 + minute * 60 + second) / 86400.0;
  return true;
}

bool IsHalf(const Part& part) { return part.kind == Part::Kind::kMorning || part.kind == Part::Kind::kEvening; }

}  // namespace

bool ParseDate(std::u16string_view text, double& date) {
  const std::optional<std::vector<Part>> parts = Split(text);
  if (!parts) return false;
  std::vector<Part> calendar;
  std::vector<Part> clock;
  const Part* half = nullptr;
  bool has_weekday = false;
  for (std::size_t i = 0; i < parts->size(); ++i) {
    const Part& part = (*parts)[i];
    const Part* next = i + 1 < parts->size() ? &(*parts)[i + 1] : nullptr;
    if (IsHalf(part)) {
      if (half || clock.empty() || part.before != u' ') return false;
      half = &part;
    } else if (part.kind == Part::Kind::kWeekday) {
      if (has_weekday) return false;
      has_weekday = true;
    } else if (part.kind == Part::Kind::kNumber &&
               (part.before == u':' || (next && (next->before == u':' || IsHalf(*next))))) {
      if (part.digits > 2 || half || (!clock.empty() && part.before != u':')) return false;
      if (part.before == u':' && clock.empty()) return false;
      clock.push_back(part);
    } else {
      if (part.before == u':') return false;
      calendar.push_back(part);
    }
  }
  double days = 0;
  double time = 0;
  if (!calendar.empty() && !DateFromParts(calendar, days)) return false;
  if (!clock.empty() && !TimeFromParts(clock, half, time)) return false;
  if (calendar.empty() && (clock.empty() || has_weekday)) return false;
  date = DateOfDays(days, time);
  return true;
}

}  // namespace qv::vbscript
