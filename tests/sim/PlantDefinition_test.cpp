#include "sim/PlantDefinition.h"

#include "sim/SimProjectTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PlantDefinitionTest : public SimProjectTest {
 protected:
  PlantDefinition Define(bool allGood = false) {
    Load();
    return DefinePlant(Project(), allGood);
  }
  static std::vector<std::string> Tags(const DeviceDefinition& device) {
    std::vector<std::string> tags;
    for (const ItemDefinition& item : device.items) tags.push_back(item.tag);
    return tags;
  }
};

TEST_F(PlantDefinitionTest, HasEveryTagOfEveryDevice) {
  WriteProject({{"Press", "ON", {"a;MW1;RW;LB=1;UB=9;TST=5;CMT=first", "b;M1.0;RO"}}, {"Kiln", "OFF", {"c;MB1;RO"}}});
  const PlantDefinition plant = Define();
  ASSERT_EQ(plant.devices.size(), 2U);
  EXPECT_EQ(plant.devices[0].name, "Press");
  EXPECT_THAT(Tags(plant.devices[0]), ElementsAre("a", "b"));
  EXPECT_THAT(Tags(plant.devices[1]), ElementsAre("c"));
  const ItemDefinition& first = plant.devices[0].items[0];
  EXPECT_EQ(first.comment, "first");
  EXPECT_EQ(first.test, "5");
  EXPECT_EQ(first.type, (ItemType{ValueKind::UInt16}));
  EXPECT_EQ(first.bounds, (ItemBounds{1, 9}));
  EXPECT_THAT(plant.dropped, IsEmpty());
}

TEST_F(PlantDefinitionTest, LetsClientsWriteToRWOnly) {
  WriteProject({{"Press", "ON", {"a;MW1;RW", "b;MW2;RO", "c;MW3", "d"}}});
  const PlantDefinition plant = Define();
  std::vector<bool> writable;
  for (const ItemDefinition& item : plant.devices.at(0).items) writable.push_back(item.writable);
  EXPECT_THAT(writable, ElementsAre(true, false, false, false));
}

TEST_F(PlantDefinitionTest, ConnectsSimulatedDevicesAndWithAllGoodAllOfThem) {
  WriteProject({{"Press", "on", {}}, {"Kiln", "OFF", {}}});
  PlantDefinition plant = Define();
  EXPECT_TRUE(plant.devices.at(0).connected);
  EXPECT_FALSE(plant.devices.at(1).connected);
  plant = Define(true);
  EXPECT_TRUE(plant.devices.at(1).connected);
}

TEST_F(PlantDefinitionTest, ConnectsASimulatedDeviceOfEveryType) {
  for (const NetworkType type :
       {NetworkType::Mpi, NetworkType::H1, NetworkType::TcpIso, NetworkType::TcpRw, NetworkType::TcpIpk}) {
    modMain::globals.gOPC = std::make_unique<cOPC>();
    cDevice& device = AddDevice(AddNetwork(type, "Net"), "Dev");
    EXPECT_FALSE(DefinePlant(Project(), false).devices.at(0).connected);
    device.szMPI_Simulation(" On ");
    device.szH1_Simulation(" On ");
    device.szTCPISO_Simulation(" On ");
    device.szTCPRW_Simulation(" On ");
    device.szTCPIPK_Simulation(" On ");
    EXPECT_TRUE(DefinePlant(Project(), false).devices.at(0).connected);
  }
}

TEST_F(PlantDefinitionTest, PublishesUpperCaseWhereTheProjectSavesIt) {
  WriteProject({{"Press", "ON", {"St\xF6rung;M1.0;RO"}}}, "0", "1");
  EXPECT_THAT(Tags(Define().devices.at(0)), ElementsAre("ST\xD6RUNG"));
  WriteProject({{"Press", "ON", {"St\xF6rung;M1.0;RO"}}}, "0", "0");
  EXPECT_THAT(Tags(Define().devices.at(0)), ElementsAre("St\xF6rung"));
}

TEST_F(PlantDefinitionTest, DropsSecondNamesWithoutRegardToCase) {
  WriteProject({{"Press", "ON", {"Speed;MW1;RO", "SPEED;MW2;RO"}}, {"PRESS", "ON", {"Level;MW1;RO"}}});
  const PlantDefinition plant = Define();
  ASSERT_EQ(plant.devices.size(), 1U);
  EXPECT_THAT(Tags(plant.devices[0]), ElementsAre("Speed"));
  EXPECT_THAT(plant.dropped, ElementsAre("Press/SPEED", "PRESS"));
}

TEST_F(PlantDefinitionTest, KeepsNamesInOtherCaseWhereCaseCounts) {
  WriteProject({{"Press", "ON", {"Speed;MW1;RO", "SPEED;MW2;RO"}}, {"PRESS", "ON", {"Level;MW1;RO"}}}, "1");
  const PlantDefinition plant = Define();
  EXPECT_TRUE(plant.caseSensitive);
  ASSERT_EQ(plant.devices.size(), 2U);
  EXPECT_THAT(Tags(plant.devices[0]), ElementsAre("Speed", "SPEED"));
  EXPECT_THAT(plant.dropped, IsEmpty());
}

TEST_F(PlantDefinitionTest, DropsWhatReadsLikeAnItemOfAnotherDevice) {
  WriteProject({{"A", "ON", {"B/C;MW1;RO"}}, {"A/B", "ON", {"C;MW1;RO", "D;MW2;RO"}}});
  const PlantDefinition plant = Define();
  EXPECT_THAT(Tags(plant.devices.at(1)), ElementsAre("D"));
  EXPECT_THAT(plant.dropped, ElementsAre("A/B/C"));
}

TEST_F(PlantDefinitionTest, DropsATagWithoutAName) {
  WriteProject({{"Press", "ON", {";MW1;RO", "a;MW1;RO"}}});
  const PlantDefinition plant = Define();
  EXPECT_THAT(Tags(plant.devices.at(0)), ElementsAre("a"));
  EXPECT_THAT(plant.dropped, ElementsAre("Press/"));
}

TEST_F(PlantDefinitionTest, FindsThePartnerOfTheTestRun) {
  WriteProject(
      {{"Press", "ON", {"a;MW1;RO", "COMMAND;MW2;RW", "RESULT;MW3;RO;UB=1", "b;MW4;RO", "RESULTARRAY;MB5;RO"}}});
  const std::vector<ItemDefinition> items = Define().devices.at(0).items;
  EXPECT_EQ(items[0].role, ItemRole::Plain);
  EXPECT_EQ(items[1].role, ItemRole::Command);
  EXPECT_EQ(items[2].role, ItemRole::Result);
  EXPECT_EQ(items[2].bounds, ItemBounds{});
  EXPECT_EQ(items[4].role, ItemRole::ResultArray);
  EXPECT_EQ(items[4].type, (ItemType{ValueKind::UInt8, 2})) << "an element for each plain tag";
  EXPECT_TRUE(items[2].writable && items[4].writable) << "the test run writes to every tag";
  EXPECT_FALSE(items[0].writable);
}

TEST_F(PlantDefinitionTest, HasNoPartnerWithoutCommand) {
  WriteProject({{"Press", "ON", {"RESULT;MW3;RO", "RESULTARRAY;MB5;RO"}}});
  const std::vector<ItemDefinition> items = Define().devices.at(0).items;
  EXPECT_EQ(items[0].role, ItemRole::Plain);
  EXPECT_FALSE(items[0].writable);
  EXPECT_EQ(items[1].type, (ItemType{ValueKind::UInt8}));
}

TEST_F(PlantDefinitionTest, KnowsReservedTagsInOtherCaseOnlyWhereCaseDoesNotCount) {
  WriteProject({{"Press", "ON", {"Command;MW2;RW"}}});
  EXPECT_EQ(Define().devices.at(0).items[0].role, ItemRole::Command);
  WriteProject({{"Press", "ON", {"Command;MW2;RW"}}}, "1");
  EXPECT_EQ(Define().devices.at(0).items[0].role, ItemRole::Plain);
}

}  // namespace
}  // namespace tavrin
