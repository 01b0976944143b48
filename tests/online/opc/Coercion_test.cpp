#include "online/opc/Coercion.h"

#include <limits>
#include <optional>

#include <gtest/gtest.h>

#include "online/opc/DateOfText.h"
#include "platform/RuntimeError.h"

namespace tavrin {
namespace {

constexpr auto kOverflow = static_cast<int>(ErrorNumber::Overflow);
constexpr auto kMismatch = static_cast<int>(ErrorNumber::TypeMismatch);

/// The error number instead of a value.
struct Case {
  Variant from;
  VariantType to;
  std::variant<Scalar, int> result;
};

Case Good(Variant from, VariantType to, Scalar result) { return {std::move(from), to, std::move(result)}; }
Case GoodText(const char* text, VariantType to, Scalar result) {
  return Good(Variant::OfText(text), to, std::move(result));
}
Case Fails(Variant from, VariantType to, int error) { return {std::move(from), to, error}; }
Case FailsText(const char* text, VariantType to, int error) { return Fails(Variant::OfText(text), to, error); }

Scalar Signed(std::int64_t value) { return value; }
Scalar Unsigned(std::uint64_t value) { return value; }

class CoercionTest : public testing::TestWithParam<Case> {};

TEST_P(CoercionTest, ValueBecomesOneOfTheType) {
  const auto& [from, to, result] = GetParam();
  std::variant<Scalar, int> got;
  try {
    got = Coerced(from, static_cast<std::uint16_t>(to)).Elements().front();
  } catch (const RuntimeError& error) {
    got = static_cast<int>(error.Number());
  }
  EXPECT_TRUE(got == result) << testing::PrintToString(from.Elements().size()) << " to " << static_cast<int>(to)
                             << ", case " << testing::UnitTest::GetInstance()->current_test_info()->name();
}

INSTANTIATE_TEST_SUITE_P(
    Texts, CoercionTest,
    testing::Values(
        GoodText("12", VariantType::UInt16, Unsigned(12)), GoodText(" -7 ", VariantType::Int8, Signed(-7)),
        GoodText("+7", VariantType::Int8, Signed(7)), GoodText("1,2", VariantType::Double, 1.2),
        GoodText("1.2", VariantType::Double, 1.2), GoodText("1,5E+02", VariantType::Double, 150.0),
        GoodText(".5", VariantType::Double, 0.5), GoodText("2,5", VariantType::Int32, Signed(2)),
        GoodText("18446744073709551615", VariantType::UInt64, Unsigned(std::numeric_limits<std::uint64_t>::max())),
        GoodText("-9223372036854775808", VariantType::Int64, Signed(std::numeric_limits<std::int64_t>::min())),
        GoodText("true", VariantType::Boolean, true), GoodText("FALSE", VariantType::Boolean, false),
        GoodText("0", VariantType::Boolean, false), GoodText("-1", VariantType::Boolean, true),
        GoodText("\xC4nderung", VariantType::Text, std::string("\xC4nderung")),
        GoodText("20.11.2026 12:00:00", VariantType::Date, 46346.5), GoodText("46346,5", VariantType::Date, 46346.5)));

INSTANTIATE_TEST_SUITE_P(
    RefusedTexts, CoercionTest,
    testing::Values(FailsText("", VariantType::Int16, kMismatch), FailsText("abc", VariantType::Int16, kMismatch),
                    FailsText("12x", VariantType::Int16, kMismatch),
                    FailsText("1.234,5", VariantType::Double, kMismatch),
                    FailsText("inf", VariantType::Double, kMismatch), FailsText("nan", VariantType::Double, kMismatch),
                    FailsText("-inf", VariantType::Double, kMismatch), FailsText("+-7", VariantType::Int8, kMismatch),
                    FailsText("yes", VariantType::Boolean, kMismatch),
                    FailsText("1E999", VariantType::Double, kOverflow), FailsText("256", VariantType::UInt8, kOverflow),
                    FailsText("-1", VariantType::UInt32, kOverflow),
                    FailsText("18446744073709551616", VariantType::UInt64, kOverflow),
                    FailsText("31.02.2026", VariantType::Date, kMismatch)));

INSTANTIATE_TEST_SUITE_P(
    Numbers, CoercionTest,
    testing::Values(Good({VariantType::Double, 0.5}, VariantType::Int16, Signed(0)),
                    Good({VariantType::Double, 1.5}, VariantType::Int16, Signed(2)),
                    Good({VariantType::Double, -0.4}, VariantType::UInt8, Unsigned(0)),
                    Good({VariantType::Double, -32768.0}, VariantType::Int16, Signed(-32768)),
                    Fails({VariantType::Double, 32768.0}, VariantType::Int16, kOverflow),
                    Fails({VariantType::Double, -32769.0}, VariantType::Int16, kOverflow),
                    Fails({VariantType::Double, 18446744073709551616.0}, VariantType::UInt64, kOverflow),
                    Fails({VariantType::Double, std::numeric_limits<double>::quiet_NaN()}, VariantType::Int32,
                          kOverflow),
                    Fails({VariantType::Double, 1e39}, VariantType::Single, kOverflow),
                    Good({VariantType::Double, 0.1}, VariantType::Single, static_cast<double>(0.1F)),
                    Good({VariantType::UInt16, Unsigned(3)}, VariantType::Double, 3.0),
                    Fails({VariantType::Int32, Signed(-1)}, VariantType::UInt16, kOverflow),
                    Good({VariantType::Boolean, true}, VariantType::Int16, Signed(-1)),
                    Good({VariantType::Boolean, true}, VariantType::UInt16, Unsigned(65535)),
                    Good({VariantType::Boolean, false}, VariantType::UInt16, Unsigned(0)),
                    Good({VariantType::Boolean, true}, VariantType::Double, -1.0),
                    Good({VariantType::Double, 0.25}, VariantType::Boolean, true),
                    Good({VariantType::Double, 1.5}, VariantType::Text, std::string("1.5")),
                    Good({VariantType::Boolean, true}, VariantType::Text, std::string("True")),
                    Good({VariantType::MachineInt, Signed(5)}, VariantType::MachineUInt, Unsigned(5))));

INSTANTIATE_TEST_SUITE_P(Nothing, CoercionTest,
                         testing::Values(Fails({}, VariantType::Int16, kMismatch),
                                         Fails({}, VariantType::Boolean, kMismatch),
                                         Fails({}, VariantType::Text, kMismatch),
                                         Fails({VariantType::Int16, Signed(1)}, VariantType::Empty, kMismatch)));

TEST(CoercionTest, ArraysAndScalarsDoNotBecomeEachOther) {
  const Variant one(VariantType::UInt16, Unsigned(1));
  const Variant many = Variant::Array(VariantType::UInt16, {Unsigned(1)});
  EXPECT_THROW((void)Coerced(one, 0x2012), RuntimeError);
  EXPECT_THROW((void)Coerced(many, 0x12), RuntimeError);
  EXPECT_EQ(Coerced(many, 0x2003), Variant::Array(VariantType::Int32, {Signed(1)}));
}

UtcTime At(int hour, int minute, int second) { return Join({2026, 11, 20, hour, minute, second, 0}); }

TEST(DateOfTextTest, ReadsBothOrders) {
  EXPECT_EQ(DateOfText("20.11.2026"), At(0, 0, 0));
  EXPECT_EQ(DateOfText("20.11.2026 14:05"), At(14, 5, 0));
  EXPECT_EQ(DateOfText("20.11.2026 14:05:09"), At(14, 5, 9));
  EXPECT_EQ(DateOfText("2026-11-20"), At(0, 0, 0));
  EXPECT_EQ(DateOfText("2026-11-20 14:05:09"), At(14, 5, 9));
  EXPECT_EQ(DateOfText("2026-11-20T14:05:09"), At(14, 5, 9));
}

TEST(DateOfTextTest, AnythingElseIsNone) {
  for (const char* text :
       {"", "20", "20.11", "20.11.2026 14", "20.11.2026 24:00:00", "20.13.2026", "30.02.2026", "20/11/2026", "20.11.26",
        "20.11.2026 14:05:09 7", "2026-11-20T", "20.11.2026 -4:00:00", "99999999999.1.2026"}) {
    EXPECT_EQ(DateOfText(text), std::nullopt) << text;
  }
}

TEST(DaysTest, DaysAndMomentsBelongTogether) {
  EXPECT_DOUBLE_EQ(DaysOf(At(12, 0, 0)), 46346.5);
  EXPECT_EQ(TimeOfDays(46346.5), At(12, 0, 0));
  EXPECT_EQ(TimeOfDays(-657435), std::nullopt);
  EXPECT_EQ(TimeOfDays(2958466), std::nullopt);
  EXPECT_EQ(TimeOfDays(std::numeric_limits<double>::quiet_NaN()), std::nullopt);
}

}  // namespace
}  // namespace tavrin
