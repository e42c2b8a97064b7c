#include "services/dates.h"

#include <array>
#include <cctype>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/text.h"

namespace qv {

namespace {

struct Piece {
  enum class Kind { Number, Word, Sign } kind = Kind::Sign;
  std::string text;  // words in capitals
  int number = 0;
};

std::optional<std::vector<Piece>> Pieces(std::string_view text) {
  std::vector<Piece> pieces;
  std::size_t at = 0;
  const auto is = [&](auto test) { return at < text.size() && test(static_cast<unsigned char>(text[at])) != 0; };
  while (at < text.size()) {
    if (is([](int c) { return std::isspace(c); })) {
      ++at;
      continue;
    }
    Piece piece;
    const std::size_t start = at;
    if (is([](int c) { return std::isdigit(c); })) {
      piece.kind = Piece::Kind::Number;
      while (is([](int c) { return std::isdigit(c); })) ++at;
      if (at - start > 4) return std::nullopt;
      piece.number = std::stoi(std::string(text.substr(start, at - start)));
    } else if (is([](int c) { return std::isalpha(c); })) {
      piece.kind = Piece::Kind::Word;
      while (is([](int c) { return std::isalpha(c); })) ++at;
    } else if (std::string_view("/-.,:").find(text[at]) != std::string_view::npos) {
      ++at;
    } else {
      return std::nullopt;
    }
    piece.text = UpperCase(text.substr(start, at - start));
    pieces.push_back(piece);
  }
  return pieces;
}

// 1 to 12 for the name of a month or its first three letters, otherwise 0.
int MonthOf(const std::string& word) {
  static constexpr std::array<std::string_view, 12> kMonths = {"JANUARY",   "FEBRUARY", "MARCH",    "APRIL",
                                                               "MAY",       "JUNE",     "JULY",     "AUGUST",
                                                               "SEPTEMBER", "OCTOBER",  "NOVEMBER", "DECEMBER"};
  for (std::size_t n = 0; n < kMonths.size(); ++n) {
    if (word == kMonths[n] || word == kMonths[n].substr(0, 3)) return static_cast<int>(n) + 1;
  }
  return 0;
}

int DaysIn(int month, int year) {
  static constexpr std::array<int, 12> kDays = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
  return month == 2 && leap ? 29 : kDays[static_cast<std::size_t>(month - 1)];
}

// Days since 30 December 1899 of the proleptic Gregorian calendar.
std::int64_t DayNumber(int year, int month, int day) {
  const std::int64_t y = month <= 2 ? year - 1 : year;
  const std::int64_t era = (y >= 0 ? y : y - 399) / 400;
  const std::int64_t year_of_era = y - era * 400;
  const std::int64_t day_of_year = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
  const std::int64_t day_of_era = year_of_era * 365 + year_of_era / 4 - year_of_era / 100 + day_of_year;
  return era * 146097 + day_of_era - 693899;
}

std::optional<double> DateOf(int year, int month, int day) {
  if (year >= 0 && year < 30) year += 2000;
  if (year >= 30 && year < 100) year += 1900;
  if (year < 100 || year > 9999 || month < 1 || month > 12 || day < 1 || day > DaysIn(month, year)) return std::nullopt;
  return static_cast<double>(DayNumber(year, month, day));
}

// The date of the pieces: three numbers, or a month by name with a day and a year in any order.
std::optional<double> ReadDate(const std::vector<Piece>& pieces) {
  int month_by_name = 0;
  std::vector<int> numbers;
  bool separator_due = false;
  for (const Piece& piece : pieces) {
    if (piece.kind == Piece::Kind::Sign) {
      if (!separator_due || piece.text == ":") return std::nullopt;
      separator_due = false;
      continue;
    }
    separator_due = true;
    if (piece.kind == Piece::Kind::Number) {
      numbers.push_back(piece.number);
    } else {
      if (month_by_name != 0) return std::nullopt;
      month_by_name = MonthOf(piece.text);
      if (month_by_name == 0) return std::nullopt;
    }
  }
  if (month_by_name != 0) {
    if (numbers.size() != 2) return std::nullopt;
    if (numbers[0] > 31) return DateOf(numbers[0], month_by_name, numbers[1]);
    return DateOf(numbers[1], month_by_name, numbers[0]);
  }
  if (numbers.size() != 3) return std::nullopt;
  if (numbers[0] > 31) return DateOf(numbers[0], numbers[1], numbers[2]);
  if (auto date = DateOf(numbers[2], numbers[0], numbers[1])) return date;
  return DateOf(numbers[2], numbers[1], numbers[0]);  // the day first, where the month can't be
}

// The time of the pieces: hours and minutes, perhaps seconds, perhaps AM or PM; hours alone only with those.
std::optional<double> ReadTime(const std::vector<Piece>& pieces) {
  std::vector<int> numbers;
  std::string half;
  bool number_due = true;
  for (const Piece& piece : pieces) {
    if (!half.empty()) return std::nullopt;
    if (piece.kind == Piece::Kind::Number && number_due) {
      numbers.push_back(piece.number);
      number_due = false;
    } else if (piece.text == ":" && !number_due) {
      number_due = true;
    } else if (piece.kind == Piece::Kind::Word && !number_due) {
      if (piece.text != "AM" && piece.text != "PM" && piece.text != "A" && piece.text != "P") return std::nullopt;
      half = piece.text.substr(0, 1);
    } else {
      return std::nullopt;
    }
  }
  if (number_due || numbers.empty() || numbers.size() > 3 || (numbers.size() == 1 && half.empty())) return std::nullopt;
  numbers.resize(3);
  if (!half.empty()) {
    if (numbers[0] < 1 || numbers[0] > 12) return std::nullopt;
    numbers[0] = numbers[0] % 12 + (half == "P" ? 12 : 0);
  }
  if (numbers[0] > 23 || numbers[1] > 59 || numbers[2] > 59) return std::nullopt;
  return (numbers[0] * 3600 + numbers[1] * 60 + numbers[2]) / 86400.0;
}

}  // namespace

std::optional<double> DateValue(std::string_view text) {
  const auto pieces = Pieces(text);
  if (!pieces || pieces->empty()) return std::nullopt;
  if (auto date = ReadDate(*pieces)) return date;
  if (auto time = ReadTime(*pieces)) return time;
  // A date and a time behind it.
  for (std::size_t split = 1; split < pieces->size(); ++split) {
    const auto middle = pieces->begin() + static_cast<std::ptrdiff_t>(split);
    const auto date = ReadDate({pieces->begin(), middle});
    const auto time = ReadTime({middle, pieces->end()});
    if (date && time) return *date + (*date < 0 ? -*time : *time);
  }
  return std::nullopt;
}

}  // namespace qv
