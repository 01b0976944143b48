#include "sim/FreeNumbers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::Optional;

TEST(FreeNumber, IsReadAsUsersTypeIt) {
  EXPECT_THAT(FreeNumber("5"), Optional(5.0));
  EXPECT_THAT(FreeNumber(" -5.5 "), Optional(-5.5));
  EXPECT_THAT(FreeNumber("0,25"), Optional(0.25));
  EXPECT_THAT(FreeNumber("+7"), Optional(7.0));
  EXPECT_THAT(FreeNumber("1E6"), Optional(1e6));
  EXPECT_THAT(FreeNumber("2.5e-3"), Optional(0.0025));
  EXPECT_THAT(FreeNumber(".5"), Optional(0.5));
  EXPECT_THAT(FreeNumber("True"), Optional(1.0));
  EXPECT_THAT(FreeNumber("FALSE"), Optional(0.0));
}

TEST(FreeNumber, IsNoneInAnyOtherText) {
  for (const char* text : {"", " ", "x", "5x", "1.2.3", "5 5", "+-5", "+", "-", "inf", "nan", "1E999", "0x10"}) {
    EXPECT_FALSE(FreeNumber(text).has_value()) << text;
  }
}

TEST(FreeNumber, ShowsARealByFractionOrExponent) {
  EXPECT_TRUE(IsWrittenAsReal("0.5"));
  EXPECT_TRUE(IsWrittenAsReal("1,0"));
  EXPECT_TRUE(IsWrittenAsReal("1E6"));
  EXPECT_FALSE(IsWrittenAsReal("5"));
  EXPECT_FALSE(IsWrittenAsReal("True"));
  EXPECT_FALSE(IsWrittenAsReal("False"));
  EXPECT_FALSE(IsWrittenAsReal("see page 2.5"));
}

TEST(TestPieces, AreWhatStandsBetweenTheBars) {
  EXPECT_THAT(TestPieces("1|2|3"), ElementsAre("1", "2", "3"));
  EXPECT_THAT(TestPieces("1 | 2"), ElementsAre("1 ", " 2"));
  EXPECT_THAT(TestPieces("1|"), ElementsAre("1", ""));
  EXPECT_THAT(TestPieces("1"), ElementsAre("1"));
  EXPECT_THAT(TestPieces(""), ElementsAre(""));
}

}  // namespace
}  // namespace tavrin
