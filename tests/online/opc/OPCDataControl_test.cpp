#include "online/opc/OPCDataControl.h"

#include "online/opc/DemoServer.h"
#include "online/opc/OpcClientTest.h"

namespace tavrin {
namespace {

/// A server that notes what is asked of it.
class ScriptedServers : public OpcServers {
 public:
  class Link : public OpcLink {
   public:
    explicit Link(ScriptedServers& servers) : servers_(servers) { ++servers_.open; }
    ~Link() override { --servers_.open; }
    void Write(const std::vector<ItemWrite>& sent) override {
      servers_.writes.push_back(sent);
      if (servers_.refuses) throw RuntimeError(ErrorNumber::InvalidCall);
    }

   private:
    ScriptedServers& servers_;
  };

  std::unique_ptr<OpcLink> Connect(const std::string& progID, const std::vector<std::string>& itemIDs,
                                   Sink sink) override {
    connects.push_back({progID, itemIDs});
    if (away) throw RuntimeError(ErrorNumber::InvalidCall);
    tell = std::move(sink);
    return std::make_unique<Link>(*this);
  }

  struct Call {
    std::string progID;
    std::vector<std::string> itemIDs;
  };
  std::vector<Call> connects;
  std::vector<std::vector<ItemWrite>> writes;
  Sink tell;
  int open = 0;
  bool away = false;
  bool refuses = false;
};

class OPCDataControlTest : public testing::Test {
 protected:
  ScriptedServers servers;
  OPCDataControl control{&servers};
};

TEST_F(OPCDataControlTest, ConnectsToTheServerWithAllItemsInTheirOrder) {
  control.ServerProgID("A.B.1");
  control.ControlItems().AddItem("z");
  control.ControlItems().AddItem("a");
  control.ControlConnect();
  ASSERT_EQ(servers.connects.size(), 1U);
  EXPECT_EQ(servers.connects[0].progID, "A.B.1");
  EXPECT_THAT(servers.connects[0].itemIDs, testing::ElementsAre("z", "a"));
}

TEST_F(OPCDataControlTest, AConnectionIsMadeOnceAndEndedOnce) {
  control.ControlDisconnect();
  control.ControlConnect();
  control.ControlConnect();
  EXPECT_EQ(servers.connects.size(), 1U);
  control.ControlDisconnect();
  EXPECT_EQ(servers.open, 0);
  control.ControlDisconnect();
}

TEST_F(OPCDataControlTest, AServerThatIsAwayIsAnErrorAndMayBeTriedAgain) {
  servers.away = true;
  EXPECT_EQ(ErrorOf([this] { control.ControlConnect(); }), 5);
  servers.away = false;
  control.ControlConnect();
  EXPECT_EQ(servers.open, 1);
}

TEST_F(OPCDataControlTest, WithoutAnyServersConnectingIsAnError) {
  OPCDataControl none{nullptr};
  EXPECT_EQ(ErrorOf([&none] { none.ControlConnect(); }), 5);
}

TEST_F(OPCDataControlTest, ItemNamesAreExactAndUnique) {
  OPCItems& items = control.ControlItems();
  const OPCItem& item = items.AddItem("a");
  EXPECT_EQ(&item, &items.ItemByName("a"));
  EXPECT_EQ(ErrorOf([&items] { items.AddItem("a"); }), 457);
  EXPECT_EQ(ErrorOf([&items] { (void)items.ItemByName("A"); }), 5);
  items.ClearItems();
  EXPECT_EQ(ErrorOf([&items] { (void)items.ItemByName("a"); }), 5);
}

TEST_F(OPCDataControlTest, AChangeIsInTheItemWhenItIsTold) {
  control.ControlItems().AddItem("a");
  control.ControlItems().AddItem("b");
  std::vector<std::string> told;
  control.OnDataChanged = [&told](const std::vector<OPCItem*>& changed) {
    for (const OPCItem* item : changed) told.push_back(item->ItemID() + std::to_string(item->ItemQuality()));
  };
  control.ControlConnect();
  const UtcTime moment = Join({2026, 11, 20, 1, 2, 3, 0});
  servers.tell({{"b", {Variant(VariantType::UInt8, std::uint64_t{9}), 0xC1, moment}}, {"unknown", {}}});
  EXPECT_THAT(told, testing::ElementsAre("b193"));
  const OPCItem& item = control.ControlItems().ItemByName("b");
  EXPECT_EQ(item.ItemDataType(), 0x11);
  EXPECT_EQ(item.ItemValue(), Variant(VariantType::UInt8, std::uint64_t{9}));
  EXPECT_EQ(item.ItemTimeStamp(), moment);
  servers.tell({{"unknown", {}}});
  EXPECT_EQ(told.size(), 1U);
}

TEST_F(OPCDataControlTest, WritesOnlyWhatWasSetOrFlagged) {
  OPCItem& a = control.ControlItems().AddItem("a");
  control.ControlItems().AddItem("b");
  OPCItem& c = control.ControlItems().AddItem("c");
  control.ControlConnect();
  control.ControlWrite();
  EXPECT_EQ(servers.writes.size(), 0U);
  a.ItemValue(Variant::OfText("1"));
  c.ItemWriteFlag(true);
  control.ControlWrite();
  control.ControlWrite();
  ASSERT_EQ(servers.writes.size(), 1U);
  ASSERT_EQ(servers.writes[0].size(), 2U);
  EXPECT_EQ(servers.writes[0][0].itemID, "a");
  EXPECT_EQ(servers.writes[0][0].value, Variant::OfText("1"));
  EXPECT_EQ(servers.writes[0][1].itemID, "c");
}

TEST_F(OPCDataControlTest, AFailedWriteIsForgotten) {
  OPCItem& item = control.ControlItems().AddItem("a");
  item.ItemValue(Variant::OfText("1"));
  EXPECT_EQ(ErrorOf([this] { control.ControlWrite(); }), 5) << "not connected";
  control.ControlConnect();
  control.ControlWrite();
  EXPECT_EQ(servers.writes.size(), 0U);
  servers.refuses = true;
  item.ItemValue(Variant::OfText("2"));
  EXPECT_EQ(ErrorOf([this] { control.ControlWrite(); }), 5);
  control.ControlWrite();
  EXPECT_EQ(servers.writes.size(), 1U);
}

class OpcServersTest : public OpcClientTest {};

TEST_F(OpcServersTest, AnUnknownServerIsAnErrorAtOnce) {
  EXPECT_LT(SecondsOf([this] { EXPECT_EQ(ErrorOf([this] { Connect("Nobody.Knows.1", {}); }), 5); }), 0.5);
}

TEST_F(OpcServersTest, AnEntryThatMakesNoSenseIsAnErrorAtOnce) {
  directory.Write("Tavrin.INI", "[Servers]\r\nA=opc.tcp://127.0.0.1:1\r\nA.Security=Sing\r\n");
  EXPECT_EQ(ErrorOf([this] { Connect("A", {}); }), 5);
}

}  // namespace
}  // namespace tavrin
