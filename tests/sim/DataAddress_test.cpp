#include "sim/DataAddress.h"

#include <gtest/gtest.h>

namespace tavrin {
namespace {

struct Row {
  const char* address;
  ValueKind kind;
  std::uint32_t count = 0;
};

class AddressForms : public testing::TestWithParam<Row> {};

TEST_P(AddressForms, TellTheTypeOfAValue) {
  const auto type = TypeAtAddress(GetParam().address);
  ASSERT_TRUE(type.has_value()) << GetParam().address;
  EXPECT_EQ(*type, (ItemType{GetParam().kind, GetParam().count})) << GetParam().address;
}

constexpr Row kForms[] = {
    {"M1.0", ValueKind::Bit},
    {"E0.7", ValueKind::Bit},
    {"A4.1", ValueKind::Bit},
    {"I0.7", ValueKind::Bit},
    {"Q4.1", ValueKind::Bit},
    {"F12.3", ValueKind::Bit},
    {"DB50.DBX0.3", ValueKind::Bit},
    {"DB11.D9.0", ValueKind::Bit},
    {"%MX100.1", ValueKind::Bit},
    {"%QX2.0", ValueKind::Bit},
    {"MB10", ValueKind::UInt8},
    {"EB3", ValueKind::UInt8},
    {"DB99.DBB10", ValueKind::UInt8},
    {"%MB90", ValueKind::UInt8},
    {"FY10", ValueKind::UInt8},
    {"DB11.DL4", ValueKind::UInt8},
    {"DB11.DR4", ValueKind::UInt8},
    {"MW20", ValueKind::UInt16},
    {"EW2", ValueKind::UInt16},
    {"AW4", ValueKind::UInt16},
    {"PEW256", ValueKind::UInt16},
    {"DB50.DBW2", ValueKind::UInt16},
    {"DB11.DW1", ValueKind::UInt16},
    {"%IW0", ValueKind::UInt16},
    {"T5", ValueKind::UInt16},
    {"Z7", ValueKind::UInt16},
    {"C7", ValueKind::UInt16},
    {"MD8", ValueKind::UInt32},
    {"ED4", ValueKind::UInt32},
    {"DB50.DBD6", ValueKind::UInt32},
    {"DB11.DD3", ValueKind::UInt32},
    {"%MD100", ValueKind::UInt32},
    {"DX3.DW0", ValueKind::UInt16},
    {"DB5.REAL8", ValueKind::Single},
    {"DB5,REAL8", ValueKind::Single},
    {"MREAL4", ValueKind::Single},
    {"DB5,INT4", ValueKind::Int16},
    {"DB5,DINT4", ValueKind::Int32},
    {"DB5,CHAR4", ValueKind::Int8},
    {"DB5,WORD4", ValueKind::UInt16},
    {"DB5,DWORD4", ValueKind::UInt32},
    {"DB5,BYTE4", ValueKind::UInt8},
    {"DB5,X4.1", ValueKind::Bit},
    {"DB1.DBW0[10]", ValueKind::UInt16, 10},
    {"DB1.DBB0,3", ValueKind::UInt8, 3},
    {"M1.0[8]", ValueKind::Bit, 8},
    {"MW0,65535", ValueKind::UInt16, 65535},
};
INSTANTIATE_TEST_SUITE_P(Table, AddressForms, testing::ValuesIn(kForms));

class OtherTexts : public testing::TestWithParam<const char*> {};

TEST_P(OtherTexts, AreNoAddress) { EXPECT_FALSE(TypeAtAddress(GetParam()).has_value()) << GetParam(); }

INSTANTIATE_TEST_SUITE_P(Table, OtherTexts,
                         testing::Values("", "%", "M", "12", "M5", "DB5", "DB5.", "DB5.DBW", "MW1.0", "M1.", "XW4",
                                         "LIGHT", "MW0[", "MW0[]", "MW0[0]", "MW0[3", "MW0,", "MW0,65536", "MW0,X",
                                         "MW0[2]X", "MW0 ", "mw0", "\xC4W0", "MW0,99999999999999999999"));

}  // namespace
}  // namespace tavrin
