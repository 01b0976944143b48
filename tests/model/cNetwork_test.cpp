#include "model/cNetwork.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/ErrorOf.h"
#include "model/SettingTexts.h"
#include "platform/RuntimeError.h"
#include "support/ProjectTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;

using N = cNetwork;

/// One assignment: what it stores (or not) and the boxes it shows.
template <class Given>
struct SetterRow {
  std::string_view property;
  void (N::*set)(Given);
  Given value;
  bool stored;
  std::vector<std::string> boxes;
};

using NumberRow = SetterRow<std::int32_t>;
using TextRow = SetterRow<std::string_view>;

std::string TextOf(std::int32_t value) { return std::to_string(value); }
std::string TextOf(std::string_view value) { return std::string(value); }

class cNetworkTest : public ProjectTest {
 protected:
  template <class Given>
  void Check(const SetterRow<Given>& row) {
    SCOPED_TRACE(std::string(row.property) + " := " + TextOf(row.value));
    network.bDataDirty(false);
    const std::vector<std::string> before = Fields(network.Settings());
    (network.*row.set)(row.value);
    EXPECT_EQ(Fields(network.Settings()), row.stored ? With(before, row.property, TextOf(row.value)) : before);
    EXPECT_EQ(network.bDataDirty(), row.stored);
    EXPECT_EQ(Boxes(), row.boxes);
  }
  template <class Given>
  void CheckAll(const std::vector<SetterRow<Given>>& rows) {
    for (const SetterRow<Given>& row : rows) Check(row);
  }

  cNetwork& network = AddNetwork(NetworkType::Mpi, "net");  // COM port 1
};

TEST(cNetwork, StartsWithTheDefaultsOfAllTypes) {
  const cNetwork network;
  EXPECT_THAT(Fields(network.Settings()),
              ElementsAre("nID=0", "nNetworkType=0", "szNetworkName=", "szFileName=", "nMPI_Baudrate=38400",
                          "nMPI_COMPort=0", "nMPI_MaxMPINo=31", "nMPI_OwnMPINo=30", "nMPI_CyclicTime=10",
                          "nMPI_MaxSimLines=4", "szH1_LocalMACAddress=", "szH1_BindMACAddress=", "nH1_CyclicTime=100",
                          "szTCPISO_LocalIP=0.0.0.0", "szTCPRW_LocalIP=0.0.0.0", "szTCPIPK_LocalIP=0.0.0.0"));
  EXPECT_FALSE(network.bDataDirty());
  EXPECT_EQ(network.Devices().Count(), 0);
}

TEST(cNetwork, TypeNamesAreTheSameInEveryLanguage) {
  const std::vector<std::string_view> names{"MPI over COMPort", "H1", "ISO over TCP/IP", "Read/Write over TCP/IP",
                                            "IPK over TCP/IP"};
  for (std::size_t type = 0; type < names.size(); ++type) {
    cNetwork network;
    network.nNetworkType(static_cast<std::int32_t>(type));
    EXPECT_EQ(network.szNetworkTypeName(), names[type]);
  }
  EXPECT_EQ(NetworkTypeName(-1), "");
  EXPECT_EQ(NetworkTypeName(5), "");
}

TEST_F(cNetworkTest, NumbersAreHeldAgainstTheirRanges) {
  const std::vector<std::string> type{"#204 0/1/2/3/4"};
  const std::vector<std::string> baudrate{"#204 19200/38400/57600/115200"};
  const std::vector<std::string> cyclicMpi{"#204 20..1000"};
  const std::vector<std::string> lines{"#204 1..255"};
  const std::vector<std::string> cyclicH1{"#204 50..1000"};
  CheckAll<std::int32_t>({
      {"nNetworkType", &N::nNetworkType, 4, true, {}},
      {"nNetworkType", &N::nNetworkType, 0, true, {}},
      {"nNetworkType", &N::nNetworkType, -1, false, type},
      {"nNetworkType", &N::nNetworkType, 5, false, type},
      {"nMPI_Baudrate", &N::nMPI_Baudrate, 19200, true, {}},
      {"nMPI_Baudrate", &N::nMPI_Baudrate, 38400, true, {}},
      {"nMPI_Baudrate", &N::nMPI_Baudrate, 57600, true, {}},
      {"nMPI_Baudrate", &N::nMPI_Baudrate, 115200, true, {}},
      {"nMPI_Baudrate", &N::nMPI_Baudrate, 115200, true, {}},  // the present value is stored again
      {"nMPI_Baudrate", &N::nMPI_Baudrate, 9600, false, baudrate},
      {"nMPI_Baudrate", &N::nMPI_Baudrate, 0, false, baudrate},
      {"nMPI_CyclicTime", &N::nMPI_CyclicTime, 20, true, {}},
      {"nMPI_CyclicTime", &N::nMPI_CyclicTime, 1000, true, {}},
      {"nMPI_CyclicTime", &N::nMPI_CyclicTime, 19, false, cyclicMpi},
      {"nMPI_CyclicTime", &N::nMPI_CyclicTime, 1001, false, cyclicMpi},
      {"nMPI_MaxSimLines", &N::nMPI_MaxSimLines, 1, true, {}},
      {"nMPI_MaxSimLines", &N::nMPI_MaxSimLines, 255, true, {}},
      {"nMPI_MaxSimLines", &N::nMPI_MaxSimLines, 0, false, lines},
      {"nMPI_MaxSimLines", &N::nMPI_MaxSimLines, 256, false, lines},
      {"nH1_CyclicTime", &N::nH1_CyclicTime, 50, true, {}},
      {"nH1_CyclicTime", &N::nH1_CyclicTime, 1000, true, {}},
      {"nH1_CyclicTime", &N::nH1_CyclicTime, 49, false, cyclicH1},
      {"nH1_CyclicTime", &N::nH1_CyclicTime, 1001, false, cyclicH1},
  });
}

TEST_F(cNetworkTest, ComPortIsOneThatNoMpiNetworkHasNotEvenThisOne) {
  AddNetwork(NetworkType::Mpi, "other");  // COM port 2
  CheckAll<std::int32_t>({
      {"nMPI_COMPort", &N::nMPI_COMPort, 0, false, {"#204 >=1"}},
      {"nMPI_COMPort", &N::nMPI_COMPort, -1, false, {"#204 >=1"}},
      {"nMPI_COMPort", &N::nMPI_COMPort, 1, false, {"#230"}},
      {"nMPI_COMPort", &N::nMPI_COMPort, 2, false, {"#230"}},
      {"nMPI_COMPort", &N::nMPI_COMPort, 3, true, {}},
      {"nMPI_COMPort", &N::nMPI_COMPort, 1, true, {}},
      {"nMPI_COMPort", &N::nMPI_COMPort, 2147483647, true, {}},
  });
}

TEST_F(cNetworkTest, MaxNumberBelowTheOwnNumberIsToldWhateverCameOfTheStore) {
  const std::string range = "#204 15/31/63/126";
  CheckAll<std::int32_t>({
      {"nMPI_MaxMPINo", &N::nMPI_MaxMPINo, 31, true, {}},
      {"nMPI_MaxMPINo", &N::nMPI_MaxMPINo, 63, true, {}},
      {"nMPI_MaxMPINo", &N::nMPI_MaxMPINo, 126, true, {}},
      {"nMPI_MaxMPINo", &N::nMPI_MaxMPINo, 15, true, {"#236"}},
      {"nMPI_MaxMPINo", &N::nMPI_MaxMPINo, 40, false, {range}},
      {"nMPI_MaxMPINo", &N::nMPI_MaxMPINo, 30, false, {range}},
      {"nMPI_MaxMPINo", &N::nMPI_MaxMPINo, 29, false, {range, "#236"}},
      {"nMPI_MaxMPINo", &N::nMPI_MaxMPINo, 0, false, {range, "#236"}},
  });
}

TEST_F(cNetworkTest, OwnNumberIsAtMostTheMaximumAndFree) {
  AddDevice(network, "dev").nMPI_SlaveNo(7);
  const std::vector<std::string> range{"#204 0 <= x <= 31"};
  CheckAll<std::int32_t>({
      {"nMPI_OwnMPINo", &N::nMPI_OwnMPINo, 30, false, {"#229"}},  // its own present value
      {"nMPI_OwnMPINo", &N::nMPI_OwnMPINo, 7, false, {"#229"}},
      {"nMPI_OwnMPINo", &N::nMPI_OwnMPINo, -1, false, range},
      {"nMPI_OwnMPINo", &N::nMPI_OwnMPINo, 32, false, range},
      {"nMPI_OwnMPINo", &N::nMPI_OwnMPINo, 31, true, {}},
      {"nMPI_OwnMPINo", &N::nMPI_OwnMPINo, 0, true, {}},
      {"nMPI_MaxMPINo", &N::nMPI_MaxMPINo, 15, true, {}},
      {"nMPI_OwnMPINo", &N::nMPI_OwnMPINo, 16, false, {"#204 0 <= x <= 15"}},
  });
}

TEST_F(cNetworkTest, OwnNumberIsAskedOfTheSelectedNetworkAndNotOfTheObject) {
  AddDevice(network, "dev").nMPI_SlaveNo(7);
  cNetwork& selected = AddNetwork(NetworkType::Mpi, "selected");
  selected.nMPI_OwnMPINo(12);
  CheckAll<std::int32_t>({
      {"nMPI_OwnMPINo", &N::nMPI_OwnMPINo, 12, false, {"#229"}},
      {"nMPI_OwnMPINo", &N::nMPI_OwnMPINo, 7, true, {}},  // the device of this network is not looked at
      {"nMPI_OwnMPINo", &N::nMPI_OwnMPINo, 7, true, {}},  // and neither is its own value
  });
}

TEST_F(cNetworkTest, OwnNumberNeedsASelectedNetworkButARangeIsToldBefore) {
  modMain::globals.gnCurrentNetwork = 0;
  EXPECT_EQ(ErrorOf([&] { network.nMPI_OwnMPINo(3); }), ErrorNumber::NoObject);
  EXPECT_EQ(network.nMPI_OwnMPINo(), 30);
  EXPECT_FALSE(network.bDataDirty());
  network.nMPI_OwnMPINo(32);
  EXPECT_THAT(Boxes(), ElementsAre("#204 0 <= x <= 31"));
}

TEST_F(cNetworkTest, TextsMustNotBeEmptyWhereTheyAreNeeded) {
  const std::vector<std::string> empty{"#204 #218"};
  CheckAll<std::string_view>({
      {"szNetworkName", &N::szNetworkName, "", true, {}},
      {"szNetworkName", &N::szNetworkName, "any; \xE4", true, {}},
      {"szFileName", &N::szFileName, "", false, empty},
      {"szFileName", &N::szFileName, "other.ini", true, {}},
      {"szFileName", &N::szFileName, "other.ini", true, {}},
      {"szH1_LocalMACAddress", &N::szH1_LocalMACAddress, "", false, empty},
      {"szH1_LocalMACAddress", &N::szH1_LocalMACAddress, "no MAC at all", true, {}},
      {"szH1_BindMACAddress", &N::szH1_BindMACAddress, "", false, empty},
      {"szH1_BindMACAddress", &N::szH1_BindMACAddress, " ", true, {}},
  });
}

TEST_F(cNetworkTest, LocalAddressesAreHeldAgainstFormAndRange) {
  struct Property {
    std::string_view name;
    void (N::*set)(std::string_view);
  };
  for (const Property& property :
       {Property{"szTCPISO_LocalIP", &N::szTCPISO_LocalIP}, Property{"szTCPRW_LocalIP", &N::szTCPRW_LocalIP},
        Property{"szTCPIPK_LocalIP", &N::szTCPIPK_LocalIP}}) {
    CheckAll<std::string_view>({
        {property.name, property.set, "1.2.3.4", true, {}},
        {property.name, property.set, "0.0.0.0", true, {}},
        {property.name, property.set, "a.b.c.d", true, {}},
        {property.name, property.set, "1.2.3.4x", true, {}},
        {property.name, property.set, "127.0.0.2", true, {}},
        {property.name, property.set, "225.1.1.1", true, {}},
        {property.name, property.set, "", false, {"#204 #218"}},
        {property.name, property.set, " ", false, {"#232"}},
        {property.name, property.set, "1.2.3", false, {"#232"}},
        {property.name, property.set, "256.1.1.1", false, {"#232"}},
        {property.name, property.set, "224.1.1.1", false, {"#238 : "}},
        {property.name, property.set, "255.0.0.1", false, {"#238 : "}},
        {property.name, property.set, "127.0.0.1", false, {"#239 : "}},
    });
  }
}

TEST_F(cNetworkTest, NumberAndMarkDoNotMark) {
  network.nID(12);
  EXPECT_EQ(network.nID(), 12);
  EXPECT_FALSE(network.bDataDirty());
  network.bDataDirty(true);
  EXPECT_TRUE(network.bDataDirty());
}

TEST_F(cNetworkTest, FileNameGoesToEveryDeviceAndMarksIt) {
  cDevice& first = AddDevice(network, "first");
  cDevice& second = AddDevice(network, "second");
  network.szFileName("new.ini");
  for (const cDevice* device : {&first, &second}) {
    EXPECT_EQ(device->szFileName(), "new.ini");
    EXPECT_TRUE(device->bDataDirty());
    EXPECT_EQ(device->szTagFileName(), device->szDeviceName() + ".csv");
  }
  EXPECT_TRUE(network.bDataDirty());
  EXPECT_EQ(network.szFullName(), directory.Path() + "new.ini");
}

TEST_F(cNetworkTest, ARefusedFileNameLeavesTheDevicesAlone) {
  const cDevice& device = AddDevice(network, "dev");
  network.szFileName("");
  EXPECT_EQ(device.szFileName(), "net.ini");
  EXPECT_FALSE(device.bDataDirty());
  EXPECT_THAT(Boxes(), ElementsAre("#204 #218"));
}

TEST_F(cNetworkTest, OtherSettingsDoNotMarkTheDevicesNorTheProject) {
  const cDevice& device = AddDevice(network, "dev");
  network.szNetworkName("other");
  network.nMPI_CyclicTime(30);
  EXPECT_TRUE(network.bDataDirty());
  EXPECT_FALSE(device.bDataDirty());
  EXPECT_FALSE(Project().bDataDirty());
}

}  // namespace
}  // namespace tavrin
