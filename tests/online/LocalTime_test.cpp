#include "online/LocalTime.h"

#include "support/ProjectTest.h"

namespace tavrin {
namespace {

using LocalTime = ProjectTest;

TEST_F(LocalTime, UtcBecomesLocalTimeInPlaceWithItsDayOfTheWeek) {
  TimeParts time{2026, 11, 20, 6, 23, 5, 9, 0};  // a Friday
  EXPECT_EQ(Utc2LocalTime(time), 0);
  EXPECT_EQ(time, (TimeParts{2026, 11, 21, 7, 0, 5, 9, 0}));
}

TEST_F(LocalTime, TheGivenDayOfTheWeekDoesNotMatter) {
  TimeParts time{2026, 11, 20, 1, 12, 0, 0, 250};
  EXPECT_EQ(Utc2LocalTime(time), 0);
  EXPECT_EQ(time, (TimeParts{2026, 11, 20, 6, 13, 0, 0, 250}));
}

TEST_F(LocalTime, PartsThatAreNoMomentStayAndAreTold) {
  for (const TimeParts none : {TimeParts{2026, 2, 30, 1, 12, 0, 0, 0}, TimeParts{2026, 1, 1, 1, 24, 0, 0, 0},
                               TimeParts{2026, 13, 1, 1, 0, 0, 0, 0}}) {
    TimeParts time = none;
    EXPECT_NE(Utc2LocalTime(time), 0);
    EXPECT_EQ(time, none);
  }
}

TEST_F(LocalTime, SundayIsTheFirstDayAndSaturdayTheSeventh) {
  EXPECT_EQ(PartsOf({2026, 11, 22, 0, 0, 0, 0}).dayOfWeek, 1);
  EXPECT_EQ(PartsOf({2026, 11, 21, 0, 0, 0, 0}).dayOfWeek, 7);
}

TEST_F(LocalTime, AllButTheYearHaveTwoDigits) {
  EXPECT_EQ(LocalTimeText(Join({2026, 1, 2, 3, 4, 5, 999})), "02.01.2026 04:04:05");
  EXPECT_EQ(LocalTimeText(Join({2026, 12, 31, 23, 59, 58, 0})), "01.01.2027 00:59:58");
  EXPECT_EQ(LocalTimeText(Join({101, 1, 2, 3, 4, 5, 0})), "02.01.101 04:04:05");
}

TEST_F(LocalTime, TheOutermostMomentsHaveAText) {
  EXPECT_EQ(LocalTimeText(UtcTime::min()), "19.04.-27258 21:11:54") << "which no other clock can tell";
  EXPECT_EQ(LocalTimeText(UtcTime::max() - std::chrono::days(1)), "13.09.31197 03:48:05");
}

}  // namespace
}  // namespace tavrin
