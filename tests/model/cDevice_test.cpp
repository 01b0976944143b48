#include "model/cDevice.h"

#include <string>
#include <string_view>
#include <vector>

#include "model/DeviceProperties.h"
#include "model/RawSettings.h"
#include "support/ProjectTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DeviceTest : public ProjectTest {
 protected:
  /// A device without any settings in the selected network, whose own MPI address is 30.
  cDevice& NewDevice() {
    cNetwork& network = AddNetwork(NetworkType::Mpi, "Net" + std::to_string(Project().Networks().Count()));
    auto made = std::make_unique<cDevice>();
    cDevice& device = *made;
    network.Devices().AddItem(std::move(made));
    return device;
  }
};

std::string Set(cDevice& device, std::string_view property, const std::string& value) {
  PropertyOfDevice(property).set(device, value);
  return PropertyOfDevice(property).get(device);
}

constexpr std::string_view kEmptyRefused = "#204 #218";
constexpr std::string_view kRights = "#204 RO / RW / OFF";
constexpr std::string_view kOnOff = "#204 ON/OFF";
constexpr std::string_view kAllPlcs = "#204 S7/S5/ZELKAR IEC1131";

TEST_F(DeviceTest, StartsWithTheDefaultsAndAnEmptyTagList) {
  const cDevice device;
  EXPECT_THAT(ChangedProperties(device), IsEmpty());
  EXPECT_FALSE(device.bDataDirty());
  EXPECT_EQ(device.Tags().Count(), 0);
}

TEST_F(DeviceTest, StoresItsFieldsInTheOrderOfTheirDeclaration) {
  std::vector<std::string_view> stored;
  for (const auto& setting : kDeviceSettings) stored.push_back(setting.name);
  std::vector<std::string_view> declared;
  for (const DeviceProperty& property : DeviceProperties()) declared.push_back(property.name);
  declared.resize(declared.size() - 6);  // the texts of the PLC types and the tag file are no fields
  EXPECT_EQ(stored, declared);
}

TEST_F(DeviceTest, NamesItsTypeLikeItsNetwork) {
  cDevice device;
  std::vector<std::string_view> names;
  for (int type = 0; type < 5; ++type) {
    device.nDeviceType(type);
    names.push_back(device.szDeviceTypeName());
  }
  EXPECT_THAT(names,
              ElementsAre("MPI over COMPort", "H1", "ISO over TCP/IP", "Read/Write over TCP/IP", "IPK over TCP/IP"));
}

TEST_F(DeviceTest, ANumberWithoutATypeOrControllerHasNoNameOfOne) {
  cDevice device;
  for (const int type : {-1, 5}) {
    RawSettings(device).nDeviceType = type;
    EXPECT_EQ(device.szDeviceTypeName(), "unbekannt !!!");
  }
  for (const int plc : {-1, 0, 4}) {
    RawSettings(device).nH1_PLCType = plc;
    EXPECT_EQ(device.szH1_PLCType(), "");
  }
  for (const int plc : {-1, 0, 3}) {
    RawSettings(device).nTCPRW_PLCType = plc;
    RawSettings(device).nTCPIPK_PLCType = plc;
    EXPECT_EQ(device.szTCPRW_PLCType(), "");
    EXPECT_EQ(device.szTCPIPK_PLCType(), "");
  }
}

struct Accepted {
  std::string_view property;
  std::string given;
  std::string stored;
};

TEST_F(DeviceTest, StoresAnAcceptedValueAndMarksTheDevice) {
  const std::vector<Accepted> rows{
      {"nDeviceType", "0", "0"},
      {"nDeviceType", "4", "4"},
      {"szDeviceName", "a name/with anything;", "a name/with anything;"},
      {"szFileName", " ", " "},
      {"szTagFileName", "tags.txt", "tags.txt"},
      {"szH1_LocalTSAP", "?", "?"},
      {"szH1_RemoteTSAP", " x", " x"},
      {"szH1_RemoteMACAddress", "no address", "no address"},
      {"szTCPISO_RemoteIP", "no address", "no address"},
      {"szTCPISO_RemoteIP", "0.0.0.0", "0.0.0.0"},
      {"szTCPRW_RemoteIP", "255.1.1.1.1", "255.1.1.1.1"},
      {"szTCPIPK_RemoteIP", "1.2.3.4", "1.2.3.4"},
      {"szTCPIPK_RemoteIP", "225.0.0.1", "225.0.0.1"},
      {"nMPI_SlaveNo", "1", "1"},
      {"nMPI_SlaveNo", "2147483647", "2147483647"},
      {"szH1_Active", "LOCAL", "local"},
      {"szH1_Active", "Remote", "remote"},
      {"nH1_PLCType", "1", "1"},
      {"nH1_PLCType", "3", "3"},
      {"szH1_PLCType", "S7", "S7"},
      {"szH1_PLCType", "S5", "S5"},
      {"szH1_PLCType", "ZELKAR IEC1131", "ZELKAR IEC1131"},
      {"nTCPISO_SlotNo", "0", "0"},
      {"nTCPISO_SlotNo", "255", "255"},
      {"nTCPISO_CyclicTime", "20", "20"},
      {"nTCPISO_CyclicTime", "1000", "1000"},
      {"nTCPISO_PingEnabled", "0", "0"},
      {"nTCPISO_PingEnabled", "1", "1"},
      {"nTCPRW_PingEnabled", "0", "0"},
      {"nTCPRW_PingEnabled", "1", "1"},
      {"nTCPISO_MaxPDUSize", "240", "240"},
      {"nTCPISO_MaxPDUSize", "480", "480"},
      {"nTCPISO_MaxPDUSize", "960", "960"},
      {"nTCPRW_PLCType", "1", "1"},
      {"nTCPRW_PLCType", "2", "2"},
      {"szTCPRW_PLCType", "S7", "S7"},
      {"szTCPRW_PLCType", "S5", "S5"},
      {"nTCPIPK_PLCType", "1", "1"},
      {"nTCPIPK_PLCType", "2", "2"},
      {"szTCPIPK_PLCType", "S7", "S7"},
      {"szTCPIPK_PLCType", "S5", "S5"},
      {"nTCPRW_MaxGapSize", "1", "1"},
      {"nTCPRW_MaxGapSize", "200", "200"},
  };
  for (const Accepted& row : rows) {
    SCOPED_TRACE(std::string(row.property) + " = " + row.given);
    cDevice& device = NewDevice();
    EXPECT_EQ(Set(device, row.property, row.given), row.stored);
    EXPECT_TRUE(device.bDataDirty());
    EXPECT_THAT(Boxes(), IsEmpty());
  }
}

struct Refused {
  std::string_view property;
  std::string given;
  std::string_view box;
};

TEST_F(DeviceTest, RefusesABadValueByABoxAndLeavesTheField) {
  const std::vector<Refused> rows{
      {"nDeviceType", "-1", "#204 0/1/2/3/4"},
      {"nDeviceType", "5", "#204 0/1/2/3/4"},
      {"szDeviceName", "", kEmptyRefused},
      {"szFileName", "", kEmptyRefused},
      {"szTagFileName", "", kEmptyRefused},
      {"szH1_LocalTSAP", "", kEmptyRefused},
      {"szH1_RemoteTSAP", "", kEmptyRefused},
      {"szH1_RemoteMACAddress", "", kEmptyRefused},
      {"szTCPISO_RemoteIP", "", kEmptyRefused},
      {"szTCPRW_RemoteIP", "", kEmptyRefused},
      {"szTCPIPK_RemoteIP", "", kEmptyRefused},
      {"szTCPIPK_RemoteIP", "1.2.3", "#232"},
      {"szTCPIPK_RemoteIP", "1.2.3.256", "#232"},
      {"szTCPIPK_RemoteIP", "0.0.0.0", "#232"},
      {"szTCPIPK_RemoteIP", "224.0.0.1", "#238 : "},
      {"szTCPIPK_RemoteIP", "127.0.0.1", "#239 : "},
      {"nMPI_SlaveNo", "-1", "#204 >=0"},
      {"szH1_Active", " local", "#204 remote/local"},
      {"szH1_Active", "", "#204 remote/local"},
      {"nH1_PLCType", "0", "#204 1/2/3"},
      {"nH1_PLCType", "4", "#204 1/2/3"},
      {"szH1_PLCType", "s7", kAllPlcs},
      {"szH1_PLCType", "S7 ", kAllPlcs},
      {"szH1_PLCType", "", kAllPlcs},
      {"nTCPISO_SlotNo", "-1", "#204 0 .. 255"},
      {"nTCPISO_SlotNo", "256", "#204 0 .. 255"},
      {"nTCPISO_CyclicTime", "19", "#204 20..1000"},
      {"nTCPISO_CyclicTime", "1001", "#204 20..1000"},
      {"nTCPISO_PingEnabled", "-1", "#204 0 .. 1"},
      {"nTCPISO_PingEnabled", "2", "#204 0 .. 1"},
      {"nTCPRW_PingEnabled", "-1", "#204 0 .. 1"},
      {"nTCPRW_PingEnabled", "2", "#204 0 .. 1"},
      {"nTCPISO_MaxPDUSize", "239", "#204 240, 480, 960"},
      {"nTCPISO_MaxPDUSize", "961", "#204 240, 480, 960"},
      {"nTCPRW_PLCType", "0", "#204 1/2/3"},
      {"nTCPRW_PLCType", "3", "#204 1/2/3"},
      {"szTCPRW_PLCType", "s5", kAllPlcs},
      {"szTCPRW_PLCType", "ZELKAR IEC1131", kAllPlcs},
      {"nTCPIPK_PLCType", "0", "#204 1/2"},
      {"nTCPIPK_PLCType", "3", "#204 1/2"},
      {"szTCPIPK_PLCType", "ZELKAR IEC1131", "#204 S7/S5"},
      {"szTCPIPK_PLCType", "s7", "#204 S7/S5"},
      {"nTCPRW_MaxGapSize", "-1", "#204 0 .. 200"},
      {"nTCPRW_MaxGapSize", "201", "#204 0 .. 200"},
      {"nTCPRW_LocalPortRead", "-1", "#204 0 .. 65535"},
      {"nTCPRW_LocalPortRead", "65536", "#204 0 .. 65535"},
      {"nTCPRW_LocalPortWrite", "-1", "#204 0 .. 65535"},
      {"nTCPRW_LocalPortWrite", "65536", "#204 0 .. 65535"},
      {"nTCPRW_RemotePortRead", "-1", "#204 1 .. 65535"},
      {"nTCPRW_RemotePortRead", "65536", "#204 1 .. 65535"},
      {"nTCPRW_RemotePortWrite", "-1", "#204 1 .. 65535"},
      {"nTCPRW_RemotePortWrite", "65536", "#204 1 .. 65535"},
      {"nTCPIPK_LocalPortRead", "-1", "#204 0 .. 65535"},
      {"nTCPIPK_LocalPortRead", "65536", "#204 0 .. 65535"},
      {"nTCPIPK_LocalPortWrite", "-1", "#204 0 .. 65535"},
      {"nTCPIPK_LocalPortWrite", "65536", "#204 0 .. 65535"},
      {"nTCPIPK_RemotePortRead", "0", "#204 1 .. 65535"},
      {"nTCPIPK_RemotePortRead", "65536", "#204 1 .. 65535"},
      {"nTCPIPK_RemotePortWrite", "0", "#204 1 .. 65535"},
      {"nTCPIPK_RemotePortWrite", "65536", "#204 1 .. 65535"},
  };
  for (const Refused& row : rows) {
    SCOPED_TRACE(std::string(row.property) + " = " + row.given);
    cDevice& device = NewDevice();
    EXPECT_EQ(Set(device, row.property, row.given), PropertyOfDevice(row.property).atStart);
    EXPECT_FALSE(device.bDataDirty());
    EXPECT_THAT(Boxes(), ElementsAre(row.box));
  }
}

/// The five properties of the types that follow one rule.
std::vector<std::string> OfEachType(std::string_view rule) {
  std::vector<std::string> names;
  for (const std::string_view type : {"MPI", "H1", "TCPISO", "TCPRW", "TCPIPK"}) {
    names.push_back("sz" + std::string(type) + "_" + std::string(rule));
  }
  return names;
}

TEST_F(DeviceTest, KeepsTheRightsOfDynamicTagsInUpperCase) {
  for (const std::string& property : OfEachType("DynamicTags")) {
    SCOPED_TRACE(property);
    cDevice& device = NewDevice();
    EXPECT_EQ(Set(device, property, "ro"), "RO");
    EXPECT_EQ(Set(device, property, "  oFf "), "OFF");
    EXPECT_EQ(Set(device, property, "RW"), "RW");
    EXPECT_TRUE(device.bDataDirty());
    EXPECT_THAT(Boxes(), IsEmpty());
    for (const char* bad : {"", "ON", "R O", "\tRO"}) EXPECT_EQ(Set(device, property, bad), "RW");
    EXPECT_THAT(Boxes(), ElementsAre(kRights, kRights, kRights, kRights));
  }
}

TEST_F(DeviceTest, KeepsTheSimulationAsItWasGiven) {
  for (const std::string& property : OfEachType("Simulation")) {
    SCOPED_TRACE(property);
    cDevice& device = NewDevice();
    EXPECT_EQ(Set(device, property, "on"), "on");
    EXPECT_EQ(Set(device, property, "  oFf "), "  oFf ");
    EXPECT_TRUE(device.bDataDirty());
    EXPECT_THAT(Boxes(), IsEmpty());
    for (const char* bad : {"", "RW", "\tON"}) EXPECT_EQ(Set(device, property, bad), "  oFf ");
    EXPECT_THAT(Boxes(), ElementsAre(kOnOff, kOnOff, kOnOff));
  }
}

TEST_F(DeviceTest, PlcTextsSetTheNumber) {
  cDevice& device = NewDevice();
  device.szH1_PLCType("ZELKAR IEC1131");
  device.szTCPRW_PLCType("S5");
  device.szTCPIPK_PLCType("S5");
  EXPECT_EQ(device.nH1_PLCType(), 3);
  EXPECT_EQ(device.nTCPRW_PLCType(), 2);
  EXPECT_EQ(device.nTCPIPK_PLCType(), 2);
}

TEST_F(DeviceTest, ChangesUnmarkedWhatIsNoEdit) {
  cDevice& device = NewDevice();
  EXPECT_EQ(Set(device, "nID", "-7"), "-7");
  EXPECT_EQ(Set(device, "nMPI_PLCType", "-7"), "-7");
  EXPECT_EQ(device.szMPI_PLCType(), "S7");
  device.szMPI_PLCType("S5");
  EXPECT_EQ(device.nMPI_PLCType(), -7) << "another text than S7 is ignored";
  device.szMPI_PLCType("S7");
  EXPECT_EQ(device.nMPI_PLCType(), 1);
  EXPECT_EQ(Set(device, "nTCPISO_PLCType", "2"), "1");
  EXPECT_EQ(Set(device, "szTCPISO_PLCType", "S5"), "S7");
  EXPECT_FALSE(device.bDataDirty());
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(DeviceTest, GapSizeZeroDoesNothingAtAll) {
  cDevice& device = NewDevice();
  EXPECT_EQ(Set(device, "nTCPRW_MaxGapSize", "0"), "30");
  EXPECT_FALSE(device.bDataDirty());
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(DeviceTest, TheTagFileIsThatOfTheTagList) {
  cDevice& device = NewDevice();
  device.szTagFileName("a.csv");
  EXPECT_EQ(device.Tags().szFileName(), "a.csv");
  device.Tags().szFileName("b.csv");
  EXPECT_EQ(device.szTagFileName(), "b.csv");
}

TEST_F(DeviceTest, TheDirtyMarkIsAPlainFlag) {
  cDevice device;
  device.bDataDirty(true);
  EXPECT_TRUE(device.bDataDirty());
  device.bDataDirty(false);
  EXPECT_FALSE(device.bDataDirty());
}

}  // namespace
}  // namespace tavrin
