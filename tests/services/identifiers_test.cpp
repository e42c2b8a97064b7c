#include "services/identifiers.h"

#include <gtest/gtest.h>

#include "platform/runtime_error.h"
#include "tests/support/memory_platform.h"

namespace qv {
namespace {

class OneGuid : public GuidSource {
 public:
  explicit OneGuid(const Guid& guid) : guid_(guid) {}
  bool NewGuid(Guid& guid) override {
    guid = guid_;
    return true;
  }

 private:
  Guid guid_;
};

TEST(NewGuidString, IsUpperCaseHexadecimalWithoutBracesAndDashes) {
  OneGuid guids({0xDEADBEEF, 0xCAFE, 0xF00D, {0x11, 0x22, 0x33, 0x44, 0x55, 0x66, 0x77, 0xFE}});
  EXPECT_EQ(NewGuidString(guids), "DEADBEEFCAFEF00D11223344556677FE");
}

TEST(NewGuidString, PadsTheFirstThreePartsWithZeros) {
  OneGuid guids({0x1, 0x2, 0x0, {0x10, 0x20, 0x30, 0x40, 0x50, 0x60, 0x70, 0x80}});
  EXPECT_EQ(NewGuidString(guids), "00000001000200001020304050607080");
}

TEST(NewGuidString, ALetterDigitOfTheLastPartIsNotPadded) {
  OneGuid guids({0x12345678, 0x9ABC, 0xDEF0, {0x05, 0x0A, 0x00, 0x0F, 0x9, 0xB, 0x10, 0xC}});
  EXPECT_EQ(NewGuidString(guids),
            "123456789ABCDEF0"
            "05"
            "A"
            "00"
            "F"
            "09"
            "B"
            "10"
            "C");
}

TEST(NewGuidString, DigitsThatLookLikeAnExponentStayAsTheyAre) {
  OneGuid guids({0, 0, 0, {0x1E, 0xE1, 0x0E, 0x1D, 0xD1, 0x0D, 0xEE, 0xDD}});
  EXPECT_EQ(NewGuidString(guids),
            "0000000000000000"
            "1E"
            "E1"
            "E"
            "1D"
            "D1"
            "D"
            "EE"
            "DD");
}

TEST(NewGuidString, IsEightZerosWhenThePlatformRefuses) {
  test::CountedGuids guids;
  guids.refuse = true;
  EXPECT_EQ(NewGuidString(guids), "00000000");
}

TEST(NewGuidString, HoldsAnErrorOfThePlatform) {
  class Raising : public GuidSource {
    bool NewGuid(Guid&) override { throw RuntimeError("no"); }
  } guids;
  EXPECT_EQ(NewGuidString(guids), "00000000");
}

TEST(ZeroPad, IsWidthMinusLengthZeros) {
  EXPECT_EQ(ZeroPad(8, 3), "00000");
  EXPECT_EQ(ZeroPad(4, 4), "");
  EXPECT_EQ(ZeroPad(4, 6), "");
}

TEST(GetToken, CountsFromOne) {
  EXPECT_EQ(GetToken("a-b-c", "-", 1), "a");
  EXPECT_EQ(GetToken("a-b-c", "-", 3), "c");
  EXPECT_EQ(GetToken("FILTER-FLT1", "-", 2), "FLT1");
}

TEST(GetToken, IsTheWholeTextWithoutADelimiter) { EXPECT_EQ(GetToken("whole", "-", 1), "whole"); }

TEST(GetToken, IsEmptyBeyondTheLastToken) {
  EXPECT_EQ(GetToken("a-b", "-", 3), "");
  EXPECT_EQ(GetToken("", "-", 1), "");
  EXPECT_EQ(GetToken("", "-", 2), "");
}

TEST(GetToken, IgnoresAnIndexThatIsNone) {
  EXPECT_EQ(GetToken("a-b", "-", 0), "");
  EXPECT_EQ(GetToken("a-b", "-", -1), "");
}

TEST(GetToken, ComparesTheDelimiterExactly) {
  EXPECT_EQ(GetToken("aXbxc", "x", 1), "aXb");
  EXPECT_EQ(GetToken("a\tb\tc", "\t", 2), "b");
}

std::string Tagged(std::string_view text, std::string_view tag) {
  std::string value = "before";
  EXPECT_TRUE(GetTaggedValue(text, tag, value));
  return value;
}

TEST(GetTaggedValue, ReadsTheKeysOfTheLists) {
  EXPECT_EQ(Tagged("CRITERIA-CRT12-RULE-7", "RULE"), "7");
  EXPECT_EQ(Tagged("CRITERIA-CRT12-RULE-7", "CRITERIA"), "CRT12");
  EXPECT_EQ(Tagged("CRITERIA-CRT12-TASK-AB34", "TASK"), "AB34");
}

TEST(GetTaggedValue, GoesOnFromTheLengthOfTheMarkWhereThereIsNone) {
  // Place 0 and the mark's length of 5 make the text begin at its fifth character.
  EXPECT_EQ(Tagged("abcdefgh-i", "RULE"), "efgh");
  EXPECT_EQ(Tagged("abc", "RULE"), "");
}

TEST(GetTaggedValue, IsEmptyBetweenTwoDashes) { EXPECT_EQ(Tagged("RULE--TASK-1", "RULE"), ""); }

}  // namespace
}  // namespace qv
