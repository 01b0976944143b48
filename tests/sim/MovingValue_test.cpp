#include "sim/MovingValue.h"

#include <algorithm>
#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrin {
namespace {

using testing::ElementsAre;

ItemBounds Between(std::optional<double> low, std::optional<double> high) { return {low, high}; }

std::vector<double> Course(const MovingValue& moving, int ticks) {
  std::vector<double> course;
  course.reserve(static_cast<std::size_t>(ticks));
  for (int tick = 0; tick < ticks; ++tick) course.push_back(moving.At(tick).front());
  return course;
}

TEST(MovingValueTest, GoesUpAndDownBetweenItsBounds) {
  EXPECT_THAT(Course(MovingValue({ValueKind::UInt16}, Between(10, 13), 0), 8),
              ElementsAre(10, 11, 12, 13, 12, 11, 10, 11));
}

TEST(MovingValueTest, BeginsWithinItsCycleByThePhase) {
  EXPECT_THAT(Course(MovingValue({ValueKind::UInt16}, Between(10, 13), 2), 3), ElementsAre(12, 13, 12));
}

TEST(MovingValueTest, OfABitChangesWithEveryTick) {
  EXPECT_THAT(Course(MovingValue({ValueKind::Bit}, {}, 0), 4), ElementsAre(0, 1, 0, 1));
}

TEST(MovingValueTest, StandsStillWhereBoundsLeaveNoRoom) {
  EXPECT_THAT(Course(MovingValue({ValueKind::UInt16}, Between(7, 7), 3), 3), ElementsAre(7, 7, 7));
}

TEST(MovingValueTest, OfAnArrayHasElementsOneTickApart) {
  EXPECT_THAT(MovingValue({ValueKind::UInt16, 3}, Between(0, 9), 0).At(1), ElementsAre(1, 2, 3));
}

class EveryKind : public testing::TestWithParam<int> {
 protected:
  ValueKind kind = static_cast<ValueKind>(GetParam());
};

TEST_P(EveryKind, MovesWithEachTickWithinWhatItCanHold) {
  for (const ItemBounds& bounds : {Between({}, {}), Between(-1e9, 1e9), Between(0.5, {}), Between({}, -0.5)}) {
    const Span span = SpanOf(kind, bounds);
    const std::vector<double> course = Course(MovingValue({kind}, bounds, 0), 200);
    EXPECT_LE(RangeOf(kind).low, *std::min_element(course.begin(), course.end()));
    EXPECT_GE(RangeOf(kind).high, *std::max_element(course.begin(), course.end()));
    const auto stop = std::adjacent_find(course.begin(), course.end());
    EXPECT_EQ(stop == course.end(), span.high > span.low);
  }
}

TEST_P(EveryKind, ReachesBothBounds) {
  const Span span = SpanOf(kind, {});
  const std::vector<double> course = Course(MovingValue({kind}, {}, 0), 100);
  EXPECT_EQ(*std::min_element(course.begin(), course.end()), Nearest(kind, span.low));
  EXPECT_EQ(*std::max_element(course.begin(), course.end()), Nearest(kind, span.high));
}

INSTANTIATE_TEST_SUITE_P(All, EveryKind, testing::Range(0, static_cast<int>(kValueKinds)));

TEST(MovingValueTest, StartsAtZeroOrTheBoundNextToIt) {
  EXPECT_THAT(MovingValue({ValueKind::Int16}, Between(-5, 5), 9).Start(), ElementsAre(0));
  EXPECT_THAT(MovingValue({ValueKind::Int16}, Between(5, 9), 9).Start(), ElementsAre(5));
  EXPECT_THAT(MovingValue({ValueKind::Int16}, Between(-9, -5), 9).Start(), ElementsAre(-5));
  EXPECT_THAT(MovingValue({ValueKind::Int16, 2}, {}, 9).Start(), ElementsAre(0, 0));
}

}  // namespace
}  // namespace tavrin
