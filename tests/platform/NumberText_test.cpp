#include "platform/NumberText.h"

#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "platform/RuntimeError.h"

namespace tavrin {
namespace {

TEST(NumberText, IsNumericTakesSignDigitsAndFractionOnly) {
  for (const char* text : {"5", "-5.25", "5.", ".5", "+5", "007", "-.5", "+.0", "123456789012345678901234567890"}) {
    EXPECT_TRUE(IsNumeric(text)) << text;
  }
  for (const char* text : {"", " 5", "5 ", "1e3", "0x5", ".", "-", "+.", "--5", "5-", "1.2.3", "1,5", "inf", "nan"}) {
    EXPECT_FALSE(IsNumeric(text)) << text;
  }
  EXPECT_FALSE(IsNumeric(std::string_view("5\0", 2)));
}

TEST(NumberText, NumericPrefixReadsUpToTheFirstForeignCharacter) {
  const std::vector<std::pair<std::string, double>> cases = {
      {"", 0},          {"5", 5},   {"5abc", 5}, {"-5.25 V", -5.25},
      {"+3", 3},        {"1e3", 1}, {"0x5", 0},  {".5.5", .5},
      {"5.", 5},        {".", 0},   {"-", 0},    {" 5", 0},
      {"\t5", 0},       {"abc", 0}, {"1,5", 1},  {"192.168", 192.168},
      {"1.2.3.4", 1.2}, {"inf", 0}, {"nan", 0},  {"--1", 0},
      {"007", 7}};
  for (const auto& [text, value] : cases) EXPECT_EQ(NumericPrefix(text), value) << text;
}

TEST(NumberText, NumericPrefixOfNumbersBeyondADoubleIsInfinityOrZero) {
  EXPECT_EQ(NumericPrefix("1" + std::string(400, '0')), std::numeric_limits<double>::infinity());
  EXPECT_EQ(NumericPrefix("-1" + std::string(400, '0') + ".5x"), -std::numeric_limits<double>::infinity());
  EXPECT_EQ(NumericPrefix("0." + std::string(400, '0') + "1"), 0);
  EXPECT_EQ(NumericPrefix(std::string(400, '0') + "." + std::string(400, '0') + "1"), 0);
}

TEST(NumberText, RoundToInt32RoundsToTheNearestAndTiesToEven) {
  const std::vector<std::pair<double, std::int32_t>> cases = {
      {0.5, 0},
      {1.5, 2},
      {2.5, 2},
      {-0.5, 0},
      {-1.5, -2},
      {2.4999, 2},
      {2.5001, 3},
      {2147483647.4, 2147483647},
      {-2147483648.5, std::numeric_limits<std::int32_t>::min()}};
  for (const auto& [value, rounded] : cases) EXPECT_EQ(RoundToInt32(value), rounded) << value;
}

TEST(NumberText, RoundToInt32OutsideTheRangeIsOverflow) {
  const double infinity = std::numeric_limits<double>::infinity();
  for (const double value : {2147483647.5, 2147483648.0, -2147483649.0, 1e300, infinity, -infinity, std::nan("")}) {
    try {
      (void)RoundToInt32(value);
      ADD_FAILURE() << value << " was rounded";
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.Number(), ErrorNumber::Overflow);
    }
  }
}

TEST(NumberText, DecimalTextIsShortestWithoutExponent) {
  const std::vector<std::pair<double, std::string>> cases = {{0, "0"},
                                                             {-0.0, "0"},
                                                             {30, "30"},
                                                             {12.5, "12.5"},
                                                             {0.001, "0.001"},
                                                             {-7.25, "-7.25"},
                                                             {0.1, "0.1"},
                                                             {1e-7, "0.0000001"},
                                                             {1e15, "1000000000000000"},
                                                             {0.1 + 0.2, "0.30000000000000004"}};
  for (const auto& [value, text] : cases) EXPECT_EQ(DecimalText(value), text);
}

TEST(NumberText, DecimalTextReadsBackAsTheSameNumber) {
  std::mt19937_64 random(1);
  for (int round = 0; round < 2000; ++round) {
    const double value = std::ldexp(static_cast<double>(random()) - 9e18, static_cast<int>(random() % 900) - 450);
    EXPECT_EQ(NumericPrefix(DecimalText(value)), value);
    EXPECT_TRUE(IsNumeric(DecimalText(value)));
  }
  EXPECT_EQ(NumericPrefix(DecimalText(std::numeric_limits<double>::denorm_min())),
            std::numeric_limits<double>::denorm_min());
  EXPECT_EQ(NumericPrefix(DecimalText(-std::numeric_limits<double>::max())), -std::numeric_limits<double>::max());
}

}  // namespace
}  // namespace tavrin
