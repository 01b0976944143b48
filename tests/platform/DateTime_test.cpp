#include "platform/DateTime.h"

#include <chrono>

#include <gtest/gtest.h>

namespace tavrin {
namespace {

using std::chrono::hours;
using std::chrono::milliseconds;
using std::chrono::seconds;
using std::chrono::sys_days;

/// Days of the calendar, counted from the first of January 1970.
UtcTime DayNumber(int number) { return sys_days(std::chrono::days(number)); }

struct KnownDay {
  int number;
  DateTime date;
  int dayOfWeek;
};

class DateTimeOf : public testing::TestWithParam<KnownDay> {};

TEST_P(DateTimeOf, ADayHasItsNumberAndItsDayOfTheWeek) {
  const KnownDay& known = GetParam();
  EXPECT_EQ(Split(DayNumber(known.number)), known.date);
  EXPECT_EQ(Join(known.date), DayNumber(known.number));
  EXPECT_EQ(DayOfWeek(known.date), known.dayOfWeek);
}

INSTANTIATE_TEST_SUITE_P(KnownDays, DateTimeOf,
                         testing::Values(KnownDay{0, {1970, 1, 1}, 5}, KnownDay{-1, {1969, 12, 31}, 4},
                                         KnownDay{-25569, {1899, 12, 30}, 7},  // the date zero, a Saturday
                                         KnownDay{-134774, {1601, 1, 1}, 2},   // where file times begin, a Monday
                                         KnownDay{10956, {1999, 12, 31}, 6},   // before ...
                                         KnownDay{11016, {2000, 2, 29}, 3},    // ... and in the leap year of 400
                                         KnownDay{11017, {2000, 3, 1}, 4},     //
                                         KnownDay{-25508, {1900, 3, 1}, 5},    // 1900 was none,
                                         KnownDay{-25509, {1900, 2, 28}, 4},   //
                                         KnownDay{47540, {2100, 2, 28}, 1},    // nor will 2100 be
                                         KnownDay{47541, {2100, 3, 1}, 2},     //
                                         KnownDay{19782, {2024, 2, 29}, 5}, KnownDay{20777, {2026, 11, 20}, 6}));

TEST(DateTimeTest, StandsForNoDateUnlessItIsGivenOne) { EXPECT_EQ(DateTime(), (DateTime{1899, 12, 30, 0, 0, 0, 0})); }

TEST(DateTimeTest, TheClockIsSplitToTheMillisecondAndTheRestIsCutOff) {
  const UtcTime noon = DayNumber(20777) + hours(12) + seconds(3) + milliseconds(4);
  EXPECT_EQ(Split(noon), (DateTime{2026, 11, 20, 12, 0, 3, 4}));
  EXPECT_EQ(Split(noon + UtcTime::duration(9'999)), (DateTime{2026, 11, 20, 12, 0, 3, 4}));
  EXPECT_EQ(Split(noon + UtcTime::duration(10'000)), (DateTime{2026, 11, 20, 12, 0, 3, 5}));
}

TEST(DateTimeTest, TheLastMomentBefore1970IsInTheLastSecondOfItsDay) {
  EXPECT_EQ(Split(UtcTime(UtcTime::duration(-1))), (DateTime{1969, 12, 31, 23, 59, 59, 999}));
  EXPECT_EQ(Split(UtcTime(UtcTime::duration(-10'000))), (DateTime{1969, 12, 31, 23, 59, 59, 999}));
  EXPECT_EQ(Split(UtcTime(UtcTime::duration(-10'001))), (DateTime{1969, 12, 31, 23, 59, 59, 998}));
}

TEST(DateTimeTest, EveryDayOfFourCenturiesComesBackAndFollowsTheOneBefore) {
  int dayOfWeek = 2;
  for (int number = -134774; number < 11'322; ++number) {
    DateTime date = Split(DayNumber(number));
    ASSERT_EQ(Join(date), DayNumber(number));
    ASSERT_EQ(DayOfWeek(date), dayOfWeek) << number;
    dayOfWeek = dayOfWeek % 7 + 1;
    date.hour = 23;
    date.minute = 59;
    date.second = 59;
    date.milliseconds = 999;
    ASSERT_EQ(Split(Join(date)), date);
    ASSERT_EQ(Join(date) + milliseconds(1), DayNumber(number + 1));
  }
}

TEST(DateTimeTest, TheOutermostMomentsAreSplitAndCutAtTheirMillisecond) {
  const DateTime first{-27'258, 4, 19, 21, 11, 54, 522};
  const DateTime last{31'197, 9, 14, 2, 48, 5, 477};
  EXPECT_EQ(Split(UtcTime::min()), first);
  EXPECT_EQ(Split(UtcTime::max()), last);
  EXPECT_EQ(Join(last), UtcTime::max() - UtcTime::duration(5'807));
  EXPECT_EQ(Join(first), UtcTime::min() + UtcTime::duration(5'808)) << "there is no earlier one";
  EXPECT_EQ(Join({32'000, 1, 1, 0, 0, 0, 0}), Join(last));
  EXPECT_EQ(Join({-32'000, 1, 1, 0, 0, 0, 0}), Join(first));
}

TEST(DateTimeTest, ThePartsOfTheClockDoNotChangeTheDayOfTheWeek) {
  EXPECT_EQ(DayOfWeek({2026, 11, 20, 23, 59, 59, 999}), 6);
}

}  // namespace
}  // namespace tavrin
