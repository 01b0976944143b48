#include "sim/TagType.h"

#include "sim/SimProjectTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::Optional;

class TagTypeTest : public SimProjectTest {
 protected:
  ItemType Type(const std::string& line) { return TypeOf(TagOf(line)); }
};

TEST_F(TagTypeTest, ComesFromTheAddress) {
  EXPECT_EQ(Type("a;M1.0;RO"), (ItemType{ValueKind::Bit}));
  EXPECT_EQ(Type("a;MB1;RO;LB=0;UB=200"), (ItemType{ValueKind::UInt8}));
  EXPECT_EQ(Type("a;DB1.DBD0;RO;LB=0;UB=200"), (ItemType{ValueKind::UInt32}));
  EXPECT_EQ(Type("a;DB1.DBW0[4];RO"), (ItemType{ValueKind::UInt16, 4}));
}

TEST_F(TagTypeTest, IsDoubleAtAnUnknownAddress) { EXPECT_EQ(Type("a;boiler;RO"), (ItemType{ValueKind::Double})); }

TEST_F(TagTypeTest, IsSignedWithANegativeNumberInTheTag) {
  EXPECT_EQ(Type("a;MB1;RW;TST=-1"), (ItemType{ValueKind::Int8}));
  EXPECT_EQ(Type("a;MW1;RW;LB=-32768;UB=32767"), (ItemType{ValueKind::Int16}));
  EXPECT_EQ(Type("a;MD1;RW;TST=1|-2"), (ItemType{ValueKind::Int32, 2}));
  EXPECT_EQ(Type("a;M1.0;RW;TST=-1"), (ItemType{ValueKind::Bit}));
}

TEST_F(TagTypeTest, IsRealForADoubleWordWithAFractionInTheTag) {
  EXPECT_EQ(Type("a;MD1;RO;HYL=0.2"), (ItemType{ValueKind::Single}));
  EXPECT_EQ(Type("a;MD1;RW;TST=1E6"), (ItemType{ValueKind::Single}));
  EXPECT_EQ(Type("a;MD1;RW;TST=-0.5"), (ItemType{ValueKind::Single}));
  EXPECT_EQ(Type("a;MW1;RW;TST=0.5"), (ItemType{ValueKind::UInt16})) << "a word has no room for it";
}

TEST_F(TagTypeTest, IsAnArrayWithABarInTheTestValue) {
  EXPECT_EQ(Type("a;MW1;RW;TST=1|2|3"), (ItemType{ValueKind::UInt16, 3}));
  EXPECT_EQ(Type("a;MW1[10];RW;TST=1|2|3"), (ItemType{ValueKind::UInt16, 3}));
  EXPECT_EQ(Type("a;MW1;RW;TST=|"), (ItemType{ValueKind::UInt16, 2}));
}

TEST(TestValuesOf, AreWhatTheTypeHolds) {
  EXPECT_THAT(TestValues("7", {ValueKind::UInt16}), Optional(ElementsAre(7.0)));
  EXPECT_THAT(TestValues("0.1", {ValueKind::Single}), Optional(ElementsAre(static_cast<double>(0.1F))));
  EXPECT_THAT(TestValues("2.5", {ValueKind::UInt16}), Optional(ElementsAre(2.0)));
  EXPECT_THAT(TestValues("300", {ValueKind::UInt8}), Optional(ElementsAre(255.0)));
  EXPECT_THAT(TestValues("1|2", {ValueKind::UInt8, 2}), Optional(ElementsAre(1.0, 2.0)));
}

TEST(TestValuesOf, AreNoneForATextOrAnotherLength) {
  EXPECT_FALSE(TestValues("open", {ValueKind::UInt16}).has_value());
  EXPECT_FALSE(TestValues("1|x", {ValueKind::UInt8, 2}).has_value());
  EXPECT_FALSE(TestValues("1|2", {ValueKind::UInt8, 3}).has_value());
  EXPECT_FALSE(TestValues("1|2", {ValueKind::UInt8}).has_value());
}

}  // namespace
}  // namespace tavrin
