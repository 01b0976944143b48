#include "online/opc/Variant.h"

#include <limits>

#include <gtest/gtest.h>

#include "platform/RuntimeError.h"

namespace tavrin {
namespace {

ErrorNumber NumberThrown(const auto& action) {
  try {
    action();
  } catch (const RuntimeError& error) {
    return error.Number();
  }
  return ErrorNumber{};
}

struct TextCase {
  VariantType type;
  Scalar value;
  const char* text;
};

class ScalarTextTest : public testing::TestWithParam<TextCase> {};

TEST_P(ScalarTextTest, DefaultTextForm) {
  EXPECT_EQ(ScalarText(GetParam().type, GetParam().value, ","), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, ScalarTextTest,
    testing::Values(TextCase{VariantType::Int16, std::int64_t{-32768}, "-32768"},
                    TextCase{VariantType::UInt64, std::numeric_limits<std::uint64_t>::max(), "18446744073709551615"},
                    TextCase{VariantType::Double, 0.0, "0"}, TextCase{VariantType::Double, -0.0, "0"},
                    TextCase{VariantType::Double, 1.5, "1,5"}, TextCase{VariantType::Double, -0.25, "-0,25"},
                    TextCase{VariantType::Double, 0.1 + 0.2, "0,3"},
                    TextCase{VariantType::Double, 1.0 / 3, "0,333333333333333"},
                    TextCase{VariantType::Double, 123456789012345.0, "123456789012345"},
                    TextCase{VariantType::Double, 1e15, "1E+15"}, TextCase{VariantType::Double, 1.25e100, "1,25E+100"},
                    TextCase{VariantType::Double, 0.0001, "0,0001"}, TextCase{VariantType::Double, 0.00001, "1E-05"},
                    TextCase{VariantType::Single, static_cast<double>(0.1F), "0,1"},
                    TextCase{VariantType::Single, static_cast<double>(3.14159265F), "3,141593"},
                    TextCase{VariantType::Single, 1234567.0, "1234567"},
                    TextCase{VariantType::Single, 10000000.0, "1E+07"}, TextCase{VariantType::Currency, 12.5, "12,5"},
                    TextCase{VariantType::Double, std::numeric_limits<double>::infinity(), "1.#INF"},
                    TextCase{VariantType::Double, -std::numeric_limits<double>::infinity(), "-1.#INF"},
                    TextCase{VariantType::Double, std::numeric_limits<double>::quiet_NaN(), "1.#QNAN"}));

INSTANTIATE_TEST_SUITE_P(Others, ScalarTextTest,
                         testing::Values(TextCase{VariantType::Boolean, true, "True"},
                                         TextCase{VariantType::Boolean, false, "False"},
                                         TextCase{VariantType::Text, std::string("a.b \xE4"), "a.b \xE4"},
                                         TextCase{VariantType::Empty, std::monostate(), ""},
                                         TextCase{VariantType::Error, std::int64_t{-2147467259}, "Error -2147467259"}));

INSTANTIATE_TEST_SUITE_P(Dates, ScalarTextTest,
                         testing::Values(TextCase{VariantType::Date, 46346.0, "20.11.2026"},
                                         TextCase{VariantType::Date, 46346.5, "20.11.2026 12:00:00"},
                                         TextCase{VariantType::Date, 0.75, "18:00:00"},
                                         TextCase{VariantType::Date, 0.0, "00:00:00"},
                                         TextCase{VariantType::Date, 46346.999999999, "21.11.2026"},
                                         TextCase{VariantType::Date, 1e9, "1000000000"}));

TEST(ScalarTextTest, DecimalSeparatorIsThatOfTheUser) {
  EXPECT_EQ(ScalarText(VariantType::Double, 1.5, "."), "1.5");
  EXPECT_EQ(ScalarText(VariantType::Double, 1.5, "::"), "1::5");
}

TEST(ScalarTextTest, NullHasNoText) {
  EXPECT_EQ(NumberThrown([] { (void)ScalarText(VariantType::Null, std::monostate(), ","); }),
            ErrorNumber::TypeMismatch);
}

TEST(ArrayTextTest, ElementsInBracketsWithBars) {
  EXPECT_EQ(ArrayText(Variant::Array(VariantType::Double, {1.0, 2.5, -3.0}), ","), "(1 | 2,5 | -3)");
  EXPECT_EQ(ArrayText(Variant::Array(VariantType::UInt16, {std::uint64_t{7}}), ","), "(7)");
  EXPECT_EQ(ArrayText(Variant::Array(VariantType::Text, {std::string("a"), std::string("b")}), ","), "(a | b)");
}

TEST(VariantTest, TypeCodeOfAnArrayHasTheArrayBit) {
  EXPECT_EQ(Variant().TypeCode(), 0);
  EXPECT_EQ(Variant(VariantType::UInt16, std::uint64_t{1}).TypeCode(), 0x12);
  EXPECT_EQ(Variant::Array(VariantType::UInt16, {}).TypeCode(), 0x2012);
}

TEST(VariantTest, UpperBoundOfAnEmptyArrayIsMinusOne) {
  EXPECT_EQ(Variant::Array(VariantType::Int8, {}).UpperBound(), -1);
  EXPECT_EQ(Variant::Array(VariantType::Int8, {std::int64_t{1}, std::int64_t{2}}).UpperBound(), 1);
}

TEST(CNumericArrayTest, CodeFiveMakesDoubles) {
  const Variant words = Variant::Array(VariantType::UInt16, {std::uint64_t{1}, std::uint64_t{65535}});
  EXPECT_EQ(CNumericArray(words, 5), Variant::Array(VariantType::Double, {1.0, 65535.0}));
  const Variant truths = Variant::Array(VariantType::Boolean, {true, false});
  EXPECT_EQ(CNumericArray(truths, 5), Variant::Array(VariantType::Double, {-1.0, 0.0}));
  EXPECT_EQ(CNumericArray(Variant::Array(VariantType::Int32, {}), 5), Variant::Array(VariantType::Double, {}));
}

TEST(CNumericArrayTest, TypeCodeOfTheItemMakesItBackAgain) {
  const Variant doubles = Variant::Array(VariantType::Double, {1.0, 2.5, 3.5});
  const Variant words =
      Variant::Array(VariantType::UInt16, {std::uint64_t{1}, std::uint64_t{2}, std::uint64_t{4}});  // ties to even
  EXPECT_EQ(CNumericArray(doubles, 0x2012), words);
  EXPECT_EQ(CNumericArray(doubles, 0x12), words);
}

TEST(CNumericArrayTest, EveryTypeOfNumbersComesBackUnchanged) {
  for (const std::uint16_t code :
       std::initializer_list<std::uint16_t>{0x2002, 0x2003, 0x2004, 0x2005, 0x2006, 0x2007, 0x200B, 0x2010, 0x2011,
                                            0x2012, 0x2013, 0x2014, 0x2015, 0x2016, 0x2017}) {
    const Variant there = CNumericArray(Variant::Array(VariantType::Double, {0.0, 1.0}), code);
    EXPECT_EQ(there.TypeCode(), code);
    EXPECT_EQ(CNumericArray(CNumericArray(there, 5), code), there) << code;
  }
}

TEST(CNumericArrayTest, TextThatWasPutIntoAnArrayOfNumbersIsRead) {
  const Variant mixed = Variant::Array(VariantType::Double, {std::string("1,5"), std::string(" 2.5 ")});
  EXPECT_EQ(CNumericArray(mixed, 0x2004), Variant::Array(VariantType::Single, {1.5, 2.5}));
}

TEST(CNumericArrayTest, OnlyArraysOfNumbersConvert) {
  const auto number = [](const Variant& value, std::uint16_t code) {
    return NumberThrown([&] { (void)CNumericArray(value, code); });
  };
  EXPECT_EQ(number(Variant(VariantType::UInt16, std::uint64_t{1}), 5), ErrorNumber::TypeMismatch);
  EXPECT_EQ(number(Variant(), 5), ErrorNumber::TypeMismatch);
  EXPECT_EQ(number(Variant::Array(VariantType::Text, {std::string("1")}), 5), ErrorNumber::TypeMismatch);
  EXPECT_EQ(number(Variant::Array(VariantType::Double, {1.0}), 0x2008), ErrorNumber::TypeMismatch);
  EXPECT_EQ(number(Variant::Array(VariantType::Double, {65536.0}), 0x2012), ErrorNumber::Overflow);
  EXPECT_EQ(number(Variant::Array(VariantType::Double, {-1.0}), 0x2012), ErrorNumber::Overflow);
}

}  // namespace
}  // namespace tavrin
