#include "sim/ItemBounds.h"

#include <limits>

#include "sim/SimProjectTest.h"

namespace tavrin {
namespace {

using testing::Eq;
using testing::Optional;

class ItemBoundsTest : public SimProjectTest {
 protected:
  ItemBounds Bounds(const std::string& fields) { return ItemBounds::Of(TagOf("a;MW1;RW;" + fields)); }
};

TEST_F(ItemBoundsTest, AreTheNumbersOfTheTag) {
  const ItemBounds bounds = Bounds("HYL=0.5;HYU=2;LB=-1;UB=9");
  EXPECT_THAT(bounds.low, Optional(-1.0));
  EXPECT_THAT(bounds.high, Optional(9.0));
  EXPECT_EQ(bounds.hysteresisDown, 0.5);
  EXPECT_EQ(bounds.hysteresisUp, 2);
}

TEST_F(ItemBoundsTest, AreNoneForOtherTextsAndAWrongOrder) {
  EXPECT_EQ(Bounds("HYL=some;HYU=-2;LB=low;UB="), ItemBounds{});
  EXPECT_EQ(Bounds("LB=9;UB=1"), ItemBounds{});
}

TEST_F(ItemBoundsTest, AllowWhatLiesWithinThem) {
  const ItemBounds bounds = Bounds("LB=0;UB=10");
  EXPECT_TRUE(bounds.Allow({0, 10}));
  EXPECT_FALSE(bounds.Allow({-0.1}));
  EXPECT_FALSE(bounds.Allow({5, 10.1}));
  EXPECT_FALSE(bounds.Allow({std::numeric_limits<double>::quiet_NaN()}));
  EXPECT_TRUE(ItemBounds{}.Allow({std::numeric_limits<double>::quiet_NaN(), -1e300}));
}

TEST_F(ItemBoundsTest, TellOnlyWhatLeavesTheBandOfTheHysteresis) {
  const ItemBounds bounds = Bounds("HYL=1;HYU=2");
  EXPECT_FALSE(bounds.IsNews({10}, {9}));
  EXPECT_FALSE(bounds.IsNews({10}, {12}));
  EXPECT_TRUE(bounds.IsNews({10}, {8.9}));
  EXPECT_TRUE(bounds.IsNews({10}, {12.1}));
  EXPECT_TRUE(bounds.IsNews({10, 10}, {10, 13}));
}

TEST(SpanOfKind, IsTheBoundsOrWhatIsUsual) {
  const auto span = [](ValueKind kind, const ItemBounds& bounds) {
    const Span found = SpanOf(kind, bounds);
    return std::pair(found.low, found.high);
  };
  EXPECT_THAT(span(ValueKind::UInt8, {}), Eq(std::pair(0.0, 255.0)));
  EXPECT_THAT(span(ValueKind::Single, {}), Eq(std::pair(0.0, 100.0)));
  EXPECT_THAT(span(ValueKind::UInt8, {5, 1000}), Eq(std::pair(5.0, 255.0)));
  EXPECT_THAT(span(ValueKind::Int16, {0.5, 7.5}), Eq(std::pair(1.0, 7.0)));
  EXPECT_THAT(span(ValueKind::Int16, {500, std::nullopt}), Eq(std::pair(500.0, 1500.0)));
  EXPECT_THAT(span(ValueKind::Int16, {std::nullopt, -500}), Eq(std::pair(-1500.0, -500.0)));
  EXPECT_THAT(span(ValueKind::Int16, {std::nullopt, 500}), Eq(std::pair(0.0, 500.0)));
  EXPECT_THAT(span(ValueKind::UInt16, {-9, -5}), Eq(std::pair(0.0, 0.0)));
}

}  // namespace
}  // namespace tavrin
