#include "services/dates.h"

#include <gtest/gtest.h>

#include <string>

namespace qv {
namespace {

struct Case {
  const char* text;
  double value;
};

class Dates : public ::testing::TestWithParam<Case> {};

TEST_P(Dates, HaveTheirDayNumber) {
  const auto value = DateValue(GetParam().text);
  ASSERT_TRUE(value) << GetParam().text;
  EXPECT_NEAR(*value, GetParam().value, 1e-9) << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(Known, Dates,
                         ::testing::Values(Case{"12/30/1899", 0}, Case{"12/31/1899", 1}, Case{"1/1/1900", 2},
                                           Case{"1/1/2000", 36526}, Case{"2000-01-01", 36526}, Case{"2/29/2000", 36585},
                                           Case{"12/29/1899", -1}, Case{"1.2.2000", 36527}, Case{"31/1/2000", 36556},
                                           Case{"1/15/29", 47133}, Case{"1/15/30", 10973},
                                           Case{"January 15, 2024", 45306}, Case{"15 Jan 2024", 45306},
                                           Case{" 1/1/2000 ", 36526}, Case{"12:00", 0.5}, Case{"6:00 PM", 0.75},
                                           Case{"12 AM", 0}, Case{"1/1/2000 12:00:00", 36526.5},
                                           Case{"2000-01-01 6:00 AM", 36526.25}));

class NoDates : public ::testing::TestWithParam<const char*> {};

TEST_P(NoDates, AreNone) { EXPECT_FALSE(DateValue(GetParam())) << GetParam(); }

INSTANTIATE_TEST_SUITE_P(Known, NoDates,
                         ::testing::Values("", " ", "abc", "12", "13/13/2000", "2/30/2001", "2/29/1900", "1/1", "24:00",
                                           "12:60", "13 PM", "1//2000", "/1/2000", "1/1/2000 25:00", "5 Foo 2000",
                                           "1/1/99999", "12:00 12:00", "#1/1/2000#"));

}  // namespace
}  // namespace qv
