#include <array>
#include <limits>
#include <map>

#include <gtest/gtest.h>

#include "online/opc/Coercion.h"
#include "online/opc/ua/Values.h"
#include "platform/RuntimeError.h"

namespace tavrin::ua {
namespace {

TEST(QualityTest, StatusCodesBecomeClassicQualities) {
  const std::map<UA_StatusCode, int> rows{{UA_STATUSCODE_GOOD, 0xC0},
                                          {UA_STATUSCODE_GOODLOCALOVERRIDE, 0xD8},
                                          {UA_STATUSCODE_GOODCLAMPED, 0xC0},
                                          {UA_STATUSCODE_UNCERTAIN, 0x40},
                                          {UA_STATUSCODE_UNCERTAINLASTUSABLEVALUE, 0x44},
                                          {UA_STATUSCODE_UNCERTAINSENSORNOTACCURATE, 0x50},
                                          {UA_STATUSCODE_UNCERTAINENGINEERINGUNITSEXCEEDED, 0x54},
                                          {UA_STATUSCODE_UNCERTAINSUBNORMAL, 0x58},
                                          {UA_STATUSCODE_UNCERTAINNOCOMMUNICATIONLASTUSABLEVALUE, 0x14},
                                          {UA_STATUSCODE_UNCERTAININITIALVALUE, 0x40},
                                          {UA_STATUSCODE_BAD, 0x00},
                                          {UA_STATUSCODE_BADCONFIGURATIONERROR, 0x04},
                                          {UA_STATUSCODE_BADNODEIDUNKNOWN, 0x04},
                                          {UA_STATUSCODE_BADNODEIDINVALID, 0x04},
                                          {UA_STATUSCODE_BADNOTCONNECTED, 0x08},
                                          {UA_STATUSCODE_BADDEVICEFAILURE, 0x0C},
                                          {UA_STATUSCODE_BADSENSORFAILURE, 0x10},
                                          {UA_STATUSCODE_BADNOCOMMUNICATION, 0x18},
                                          {UA_STATUSCODE_BADCOMMUNICATIONERROR, 0x18},
                                          {UA_STATUSCODE_BADTIMEOUT, 0x18},
                                          {UA_STATUSCODE_BADREQUESTTIMEOUT, 0x18},
                                          {UA_STATUSCODE_BADOUTOFSERVICE, 0x1C},
                                          {UA_STATUSCODE_BADINTERNALERROR, 0x00},
                                          {0xC0000000U, 0x00}};
  for (const auto& [status, quality] : rows) EXPECT_EQ(QualityOf(status), quality) << UA_StatusCode_name(status);
}

TEST(QualityTest, LimitBitsCountOnlyWhereTheyBelongToAValue) {
  EXPECT_EQ(QualityOf(UA_STATUSCODE_GOOD | 0x0400U | 0x0100U), 0xC1);  // at the low limit
  EXPECT_EQ(QualityOf(UA_STATUSCODE_UNCERTAINSUBNORMAL | 0x0400U | 0x0200U), 0x5A);
  EXPECT_EQ(QualityOf(UA_STATUSCODE_GOOD | 0x0400U), 0xC0);
  EXPECT_EQ(QualityOf(UA_STATUSCODE_GOOD | 0x0100U), 0xC0);
}

TEST(TimeTest, TicksCountFrom1601) {
  EXPECT_EQ(TimeOf(UA_DATETIME_UNIX_EPOCH), UtcTime());
  EXPECT_EQ(TimeOf(UA_DATETIME_UNIX_EPOCH + 5), UtcTime(UtcTime::duration(5)));
  EXPECT_EQ(Split(TimeOf(0)).year, 1601);
}

TEST(TimeTest, MomentsThatNoDateCanBeAreTheNearestThatOneCan) {
  EXPECT_EQ(Split(TimeOf(UA_INT64_MIN)), (DateTime{100, 1, 1, 0, 0, 0, 0}));
  EXPECT_EQ(Split(TimeOf(UA_INT64_MIN + UA_DATETIME_UNIX_EPOCH)), (DateTime{100, 1, 1, 0, 0, 0, 0}));
  EXPECT_EQ(Split(TimeOf(UA_INT64_MAX)), (DateTime{9999, 12, 31, 23, 59, 59, 0}));
}

TEST(TimeTest, ADateOfTheOutermostMomentIsOne) {
  for (UA_DateTime moment : std::initializer_list<UA_DateTime>{UA_INT64_MIN, UA_INT64_MAX}) {
    UA_Variant value;
    UA_Variant_setScalar(&value, &moment, &UA_TYPES[UA_TYPES_DATETIME]);
    const auto days = std::get<double>(ValueOf(value).Elements().front());
    EXPECT_TRUE(TimeOfDays(days)) << days;
  }
}

struct TypeCase {
  std::size_t type;
  std::uint16_t code;
  Variant text;  ///< written as this, comes back as that
  Scalar value;
};

class TypeTest : public testing::TestWithParam<TypeCase> {};

Variant Text(const char* text) { return Variant::OfText(text); }

TEST_P(TypeTest, ScalarIsWrittenAndReadInItsType) {
  const auto& [index, code, text, value] = GetParam();
  OwnedVariant made = MakeValue(text, {&UA_TYPES[index], NodeType::Shape::Scalar});
  EXPECT_EQ(made.Get().type, &UA_TYPES[index]);
  const Variant read = ValueOf(made.Get());
  EXPECT_EQ(read.TypeCode(), code);
  EXPECT_EQ(read.Elements().front(), value);
}

TEST_P(TypeTest, ArrayIsWrittenAndReadInItsType) {
  const auto& [index, code, text, value] = GetParam();
  const Variant two = Variant::Array(VariantType::Text, {text.Elements()[0], text.Elements()[0]});
  OwnedVariant made = MakeValue(two, {&UA_TYPES[index], NodeType::Shape::Array});
  const Variant read = ValueOf(made.Get());
  EXPECT_EQ(read.TypeCode(), code | 0x2000);
  EXPECT_EQ(read.Elements(), (std::vector<Scalar>{value, value}));
  OwnedVariant none = MakeValue(Variant::Array(VariantType::Text, {}), {&UA_TYPES[index], NodeType::Shape::Array});
  EXPECT_EQ(ValueOf(none.Get()), Variant::Array(static_cast<VariantType>(code), {}));
}

INSTANTIATE_TEST_SUITE_P(
    BuiltIn, TypeTest,
    testing::Values(
        TypeCase{UA_TYPES_BOOLEAN, 0x0B, Text("True"), true},
        TypeCase{UA_TYPES_SBYTE, 0x10, Text("-128"), std::int64_t{-128}},
        TypeCase{UA_TYPES_BYTE, 0x11, Text("255"), std::uint64_t{255}},
        TypeCase{UA_TYPES_INT16, 0x02, Text("-32768"), std::int64_t{-32768}},
        TypeCase{UA_TYPES_UINT16, 0x12, Text("65535"), std::uint64_t{65535}},
        TypeCase{UA_TYPES_INT32, 0x03, Text("-7"), std::int64_t{-7}},
        TypeCase{UA_TYPES_UINT32, 0x13, Text("4294967295"), std::uint64_t{4294967295}},
        TypeCase{UA_TYPES_INT64, 0x14, Text("-9223372036854775808"), std::numeric_limits<std::int64_t>::min()},
        TypeCase{UA_TYPES_UINT64, 0x15, Text("18446744073709551615"), std::numeric_limits<std::uint64_t>::max()},
        TypeCase{UA_TYPES_FLOAT, 0x04, Text("1,5"), 1.5}, TypeCase{UA_TYPES_DOUBLE, 0x05, Text("0.1"), 0.1},
        TypeCase{UA_TYPES_STRING, 0x08, Text("\xC4 \x80"), std::string("\xC4 \x80")},
        TypeCase{UA_TYPES_XMLELEMENT, 0x08, Text("<a/>"), std::string("<a/>")},
        TypeCase{UA_TYPES_LOCALIZEDTEXT, 0x08, Text("\xE4"), std::string("\xE4")},
        TypeCase{UA_TYPES_GUID, 0x08, Text("09087e75-8e5e-499b-954f-f2a9603db28a"),
                 std::string("09087e75-8e5e-499b-954f-f2a9603db28a")},
        TypeCase{UA_TYPES_DATETIME, 0x07, Text("20.11.2026 12:00:00"), 46346.5},
        TypeCase{UA_TYPES_STATUSCODE, 0x0A, Text("-2147467259"), std::int64_t{-2147467259}}));

TEST(ValuesTest, ByteStringIsAnArrayOfBytes) {
  const NodeType node{&UA_TYPES[UA_TYPES_BYTESTRING], NodeType::Shape::Scalar};
  const Variant bytes = Variant::Array(VariantType::UInt8, {std::uint64_t{0}, std::uint64_t{255}});
  EXPECT_EQ(ValueOf(MakeValue(bytes, node).Get()), bytes);
  EXPECT_EQ(ValueOf(MakeValue(Text("AB"), node).Get()),
            Variant::Array(VariantType::UInt8, {std::uint64_t{65}, std::uint64_t{66}}));
  EXPECT_THROW((void)MakeValue(Variant::Array(VariantType::Double, {256.0}), node), RuntimeError);
}

TEST(ValuesTest, CharacterOutsideOfTheCodePageIsAQuestionMark) {
  const std::string utf8 = "a\xE4\xB8\xAD\xC3\xA4\xFF";
  UA_String text = View(utf8);
  UA_Variant value;
  UA_Variant_setScalar(&value, &text, &UA_TYPES[UA_TYPES_STRING]);
  EXPECT_EQ(ValueOf(value), Text("a?\xE4?"));
}

TEST(ValuesTest, MatrixIsARow) {
  std::array<UA_Byte, 4> bytes{1, 2, 3, 4};
  std::array<UA_UInt32, 2> dimensions{2, 2};
  UA_Variant value;
  UA_Variant_setArray(&value, bytes.data(), bytes.size(), &UA_TYPES[UA_TYPES_BYTE]);
  value.arrayDimensions = dimensions.data();
  value.arrayDimensionsSize = dimensions.size();
  EXPECT_EQ(ValueOf(value).UpperBound(), 3);
}

TEST(ValuesTest, NothingAndStructuresAreEmpty) {
  UA_Variant value;
  UA_Variant_init(&value);
  EXPECT_EQ(ValueOf(value), Variant());
  UA_Range range{1, 2};
  UA_Variant_setScalar(&value, &range, &UA_TYPES[UA_TYPES_RANGE]);
  EXPECT_EQ(ValueOf(value), Variant());
  EXPECT_THROW((void)MakeValue(Text("1"), {&UA_TYPES[UA_TYPES_RANGE], NodeType::Shape::Scalar}), RuntimeError);
}

TEST(ValuesTest, NodeOfAnyTypeTakesTheValueAsItIs) {
  for (const std::uint16_t code :
       std::initializer_list<std::uint16_t>{0x0B, 0x10, 0x11, 0x02, 0x12, 0x03, 0x13, 0x14, 0x15, 0x04, 0x05, 0x07}) {
    const Variant one = Coerced(Variant(VariantType::Double, 1.0), code);
    EXPECT_EQ(ValueOf(MakeValue(one, {}).Get()), one) << code;
  }
  EXPECT_EQ(ValueOf(MakeValue(Variant(VariantType::MachineUInt, std::uint64_t{1}), {}).Get()).TypeCode(), 0x13);
  EXPECT_THROW((void)MakeValue(Variant(), {}), RuntimeError);
}

TEST(StateTest, TimeStampOfTheServerStandsInForTheSource) {
  UA_DataValue value;
  UA_DataValue_init(&value);
  value.hasServerTimestamp = true;
  value.serverTimestamp = UA_DATETIME_UNIX_EPOCH + 7;
  value.hasStatus = true;
  value.status = UA_STATUSCODE_BADDEVICEFAILURE;
  const ItemState state = StateOf(value);
  EXPECT_EQ(state.timeStamp, UtcTime(UtcTime::duration(7)));
  EXPECT_EQ(state.quality, 0x0C);
  EXPECT_EQ(state.value, Variant());
  value.hasSourceTimestamp = true;
  value.sourceTimestamp = UA_DATETIME_UNIX_EPOCH + 3;
  EXPECT_EQ(StateOf(value).timeStamp, UtcTime(UtcTime::duration(3)));
}

}  // namespace
}  // namespace tavrin::ua
