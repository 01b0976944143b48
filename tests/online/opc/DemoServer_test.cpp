#include "online/opc/DemoServer.h"

#include "online/opc/Coercion.h"
#include "online/opc/OpcClientTest.h"

namespace tavrin {
namespace {

const std::string kProgID(DemoServer::kProgID);

std::uint64_t First(const OPCItem& item) { return std::get<std::uint64_t>(item.ItemValue().Elements().front()); }

class DemoServerTest : public OpcClientTest {};

TEST_F(DemoServerTest, ArrayOfTheDemonstrationGoesOnTwiceASecond) {
  const std::string name = "increment.UI2 array";
  Connect(kProgID, {name});
  ASSERT_TRUE(UntilQuality(name, kGood));
  EXPECT_EQ(Item(name).ItemDataType(), 0x2012);
  EXPECT_GT(Item(name).ItemValue().UpperBound(), 0);
  const std::uint64_t before = First(Item(name));
  const int changesBefore = changes[name];
  RunFor(1200);
  EXPECT_GE(First(Item(name)), before + 1);
  EXPECT_LE(changes[name], changesBefore + 3);
}

TEST_F(DemoServerTest, UnknownItemIsToldOnceAsAFaultOfTheConfiguration) {
  Connect(kProgID, {"nobody knows", "increment.I4", "INCREMENT.I4"});
  ASSERT_TRUE(Until([this] { return changes["increment.I4"] >= 2; }));
  EXPECT_EQ(Item("nobody knows").ItemQuality(), kBadConfiguration);
  EXPECT_EQ(changes["nobody knows"], 1);
  EXPECT_EQ(Item("INCREMENT.I4").ItemQuality(), kBadConfiguration);
}

TEST_F(DemoServerTest, ItemsMoveInTheirTypes) {
  const std::map<std::string, int> types{
      {"increment.I1", 0x10},         {"increment.I2", 0x02},  {"increment.I4", 0x03},
      {"increment.UI1", 0x11},        {"increment.UI2", 0x12}, {"increment.UI4", 0x13},
      {"increment.R8 array", 0x2005}, {"wave.R4", 0x04},       {"wave.R8", 0x05},
      {"toggle.BOOL", 0x0B},          {"clock.DATE", 0x07}};
  std::vector<std::string> names;
  for (const auto& [name, code] : types) names.push_back(name);
  Connect(kProgID, names);
  ASSERT_TRUE(Until([&] {
    return std::all_of(names.begin(), names.end(), [this](const std::string& name) { return changes[name] >= 2; });
  }));
  for (const auto& [name, code] : types) EXPECT_EQ(Item(name).ItemDataType(), code) << name;
}

TEST_F(DemoServerTest, CountersBeginAnewBehindTheLargestNumberOfTheirType) {
  DemoItems items;
  const auto item = items.Find("increment.I1");
  ASSERT_TRUE(item);
  for (int step = 0; step < 127; ++step) items.Step({});
  EXPECT_EQ(items.Value(*item), Variant(VariantType::Int8, std::int64_t{127}));
  items.Step({});
  EXPECT_EQ(items.Value(*item), Variant(VariantType::Int8, std::int64_t{0}));
}

TEST_F(DemoServerTest, WhatIsWrittenComesBack) {
  Connect(kProgID, {"static.R4", "static.BSTR", "static.UI2 array"});
  Write("static.R4", Variant::OfText("1,5"));
  EXPECT_TRUE(UntilValue("static.R4", Variant(VariantType::Single, 1.5)));
  Write("static.BSTR", Variant::OfText("\xE4"));
  EXPECT_TRUE(UntilValue("static.BSTR", Variant::OfText("\xE4")));
  Write("static.UI2 array", Variant::Array(VariantType::Double, {1.0, 2.0}));
  EXPECT_TRUE(UntilValue("static.UI2 array", CNumericArray(Variant::Array(VariantType::Double, {1.0, 2.0}), 0x2012)));
}

TEST_F(DemoServerTest, OnlyChangedItemsAreTold) {
  Connect(kProgID, {"static.I2", "static.I4"});
  ASSERT_TRUE(UntilQuality("static.I4", kGood));
  Write("static.I2", Variant::OfText("5"));
  ASSERT_TRUE(UntilValue("static.I2", Variant(VariantType::Int16, std::int64_t{5})));
  EXPECT_EQ(changes["static.I2"], 2);
  EXPECT_EQ(changes["static.I4"], 1);
}

TEST_F(DemoServerTest, ValuesThatCannotBeTakenAreRefused) {
  Connect(kProgID, {"static.I2", "static.I4", "increment.I4", "unknown"});
  EXPECT_EQ(ErrorOf([this] { Write("static.I2", Variant::OfText("40000")); }), 5);
  EXPECT_EQ(ErrorOf([this] { Write("increment.I4", Variant::OfText("1")); }), 5);
  EXPECT_EQ(ErrorOf([this] { Write("unknown", Variant::OfText("1")); }), 5);
  EXPECT_EQ(ErrorOf([this] { Write("static.I2", Variant()); }), 5);
  Item("static.I2").ItemValue(Variant::OfText("x"));
  Item("static.I4").ItemValue(Variant::OfText("3"));
  EXPECT_EQ(ErrorOf([this] { control.ControlWrite(); }), 5);
  EXPECT_TRUE(UntilValue("static.I4", Variant(VariantType::Int32, std::int64_t{3}))) << "the others are sent";
}

TEST_F(DemoServerTest, DeviceOfTheDemonstrationAnswersCommands) {
  Connect(kProgID, {"Demo/COMMAND", "Demo/RESULT", "Demo/RESULTARRAY"});
  Write("Demo/COMMAND", Variant(VariantType::Int32, std::int64_t{2}));
  ASSERT_TRUE(UntilValue("Demo/RESULT", Variant(VariantType::UInt16, std::uint64_t{2})));
  EXPECT_EQ(Item("Demo/RESULTARRAY").ItemValue(),
            Variant::Array(VariantType::UInt16, {std::uint64_t{2}, std::uint64_t{1}}));
}

TEST_F(DemoServerTest, ValuesOutliveTheConnection) {
  Connect(kProgID, {"static.I4"});
  Write("static.I4", Variant::OfText("77"));
  control.ControlDisconnect();
  control.ControlConnect();
  EXPECT_TRUE(UntilValue("static.I4", Variant(VariantType::Int32, std::int64_t{77})));
}

TEST_F(DemoServerTest, NothingIsToldBehindTheEndOfTheConnection) {
  Connect(kProgID, {"increment.I4"});
  control.ControlDisconnect();
  RunFor(700);
  EXPECT_EQ(deliveries, 0);
}

TEST_F(DemoServerTest, ConnectionsEndAtOnce) {
  Connect(kProgID, {"increment.I4"});
  EXPECT_LT(SecondsOf([this] {
              control.ControlDisconnect();
              servers.reset();
            }),
            0.2);
}

}  // namespace
}  // namespace tavrin
