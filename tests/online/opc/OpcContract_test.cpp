#include <array>
#include <atomic>
#include <thread>

#include "online/opc/DemoServer.h"
#include "online/opc/OpcClientTest.h"
#ifdef TAVRIN_HAS_OPCUA
#include "online/opc/UaTestServer.h"
#endif

namespace tavrin {
namespace {

/// A server of either kind with a moving word, a word and a text to be written, and an array of words.
struct DemoPlant {
  explicit DemoPlant(const TemporaryDirectory&) {}
  std::string progID{DemoServer::kProgID};
  std::string moving = "increment.UI2", word = "static.UI2", text = "static.BSTR", array = "static.UI2 array";
};

#ifdef TAVRIN_HAS_OPCUA
struct UaPlant {
  explicit UaPlant(const TemporaryDirectory& directory) {
    directory.Write("Tavrin.INI", "[Servers]\r\nPlant=" + server.Endpoint() + "\r\n");
    server.Start();
    const std::array<UA_UInt16, 3> words{};
    const UA_String nothing = UA_STRING_NULL;
    server.Add(moving, words.data(), UA_TYPES_UINT16);
    server.Add(word, words.data(), UA_TYPES_UINT16);
    server.Add(text, &nothing, UA_TYPES_STRING);
    server.AddArray(array, words.data(), words.size(), UA_TYPES_UINT16);
    mover = std::thread([this] {
      for (UA_UInt16 value = 1; !over; ++value) {
        server.Set(moving, &value, UA_TYPES_UINT16);
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
      }
    });
  }
  UaPlant(const UaPlant&) = delete;
  UaPlant& operator=(const UaPlant&) = delete;
  ~UaPlant() {
    over = true;
    mover.join();
  }

  std::string progID = "Plant";
  std::string moving = "D/Moving", word = "D/Word", text = "D/Text", array = "D/Array";
  UaTestServer server;
  std::atomic<bool> over = false;
  std::thread mover;
};
using Plants = testing::Types<DemoPlant, UaPlant>;
#else
using Plants = testing::Types<DemoPlant>;
#endif

/// What holds with every server.
template <class Plant>
class OpcContractTest : public OpcClientTest {
 protected:
  void ConnectAll() { Connect(plant.progID, {plant.moving, plant.word, plant.text, plant.array, "unknown"}); }

  Plant plant{directory};
};
TYPED_TEST_SUITE(OpcContractTest, Plants);

TYPED_TEST(OpcContractTest, ItemsAreToldBehindTheConnectingAndAtEachChange) {
  this->ConnectAll();
  EXPECT_EQ(this->deliveries, 0);
  EXPECT_TRUE(this->Until([this] { return this->changes[this->plant.moving] >= 3; }));
  EXPECT_EQ(this->Item(this->plant.moving).ItemQuality(), kGood);
  EXPECT_EQ(this->Item(this->plant.moving).ItemDataType(), 0x12);
  EXPECT_EQ(this->changes[this->plant.word], 1);
  EXPECT_EQ(this->Item(this->plant.array).ItemDataType(), 0x2012);
}

TYPED_TEST(OpcContractTest, TimeStampsAreOfTheDay) {
  this->ConnectAll();
  ASSERT_TRUE(this->UntilQuality(this->plant.moving, kGood));
  const auto age = std::chrono::system_clock::now() - this->Item(this->plant.moving).ItemTimeStamp();
  EXPECT_LT(age, std::chrono::seconds(10));
  EXPECT_GE(age, std::chrono::seconds(0));
}

TYPED_TEST(OpcContractTest, UnknownItemIsToldOnceWithoutAValue) {
  this->ConnectAll();
  ASSERT_TRUE(this->Until([this] { return this->changes[this->plant.moving] >= 3; }));
  EXPECT_EQ(this->changes["unknown"], 1);
  EXPECT_EQ(this->Item("unknown").ItemQuality(), kBadConfiguration);
  EXPECT_EQ(this->Item("unknown").ItemValue(), Variant());
}

TYPED_TEST(OpcContractTest, WrittenValuesComeBackInTheTypeOfTheItem) {
  this->ConnectAll();
  ASSERT_TRUE(this->UntilQuality(this->plant.array, kGood));
  this->Write(this->plant.word, Variant::OfText("12"));
  this->Write(this->plant.text, Variant::OfText("\xC4"));
  this->Write(this->plant.array, Variant::Array(VariantType::Double, {1.0, 2.0, 3.0}));
  EXPECT_TRUE(this->UntilValue(this->plant.word, Variant(VariantType::UInt16, std::uint64_t{12})));
  EXPECT_TRUE(this->UntilValue(this->plant.text, Variant::OfText("\xC4")));
  EXPECT_TRUE(this->UntilValue(
      this->plant.array, Variant::Array(VariantType::UInt16, {std::uint64_t{1}, std::uint64_t{2}, std::uint64_t{3}})));
}

TYPED_TEST(OpcContractTest, ValuesThatAreNotTakenAreError5) {
  this->ConnectAll();
  ASSERT_TRUE(this->UntilQuality(this->plant.word, kGood));
  for (const Variant& value : {Variant::OfText("65536"), Variant::OfText("x"), Variant(),
                               Variant::Array(VariantType::UInt16, {std::uint64_t{1}})}) {
    EXPECT_EQ(ErrorOf([&] { this->Write(this->plant.word, value); }), 5);
  }
  EXPECT_EQ(ErrorOf([this] { this->Write("unknown", Variant::OfText("1")); }), 5);
}

TYPED_TEST(OpcContractTest, NothingIsToldBehindTheEndAndAllAgainBehindANewBeginning) {
  this->ConnectAll();
  ASSERT_TRUE(this->UntilQuality(this->plant.moving, kGood));
  this->control.ControlDisconnect();
  const int before = this->deliveries;
  this->RunFor(700);
  EXPECT_EQ(this->deliveries, before);
  this->changes.clear();
  this->control.ControlConnect();
  EXPECT_TRUE(this->UntilQuality(this->plant.word, kGood));
}

}  // namespace
}  // namespace tavrin
