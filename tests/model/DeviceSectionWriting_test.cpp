// Writing a device's section into the network file.
#include <cstddef>
#include <cstdio>
#include <string>
#include <vector>

#include "model/DeviceSectionTest.h"
#include "model/RawSettings.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DeviceSectionWriting : public DeviceSectionTest {
 protected:
  /// The network file's bytes after the device has been written into a missing file.
  std::string Written(cDevice& device, bool bKeepDirty = false) {
    std::remove((directory.Path() + "Net.ini").c_str());
    device.Update(bKeepDirty, bOK);
    return directory.Read("Net.ini");
  }
};

TEST_F(DeviceSectionWriting, WritesTheKeysOfTheTypeInTheirOrderAndAnEmptyLine) {
  for (const auto& [type, lines] : FullSections()) {
    SCOPED_TRACE(static_cast<int>(type));
    cDevice& device = Read(type, lines);
    EXPECT_EQ(Written(device), Section(lines) + "\r\n");
    EXPECT_TRUE(bOK);
    EXPECT_THAT(WriteWarnings(), IsEmpty());
    EXPECT_THAT(Boxes(), IsEmpty());
  }
}

TEST_F(DeviceSectionWriting, WritesTheDefaultsOfANewDeviceAsTheyAre) {
  cDevice& iso = NewDevice(NetworkType::TcpIso);
  EXPECT_EQ(Written(iso),
            Lines({"[Dev]", "PLCType=S7", "SlotNo=2", "RemoteIPAddress=0.0.0.1", "Variables=", "DynamicTags=RW",
                   "CyclicTime=10", "Simulation=OFF", "PingEnabled=1", "MaxPDUSize=960", ""}));
}

TEST_F(DeviceSectionWriting, AddsTheSectionBehindWhatTheFileHas) {
  directory.Write("Net.ini", Lines({"[General]", "Baudrate=19200", ""}));
  cDevice& device = NewDevice(NetworkType::Mpi);
  device.Update(false, bOK);
  EXPECT_EQ(directory.Read("Net.ini"), Lines({"[General]", "Baudrate=19200", "", "[Dev]", "PLCType=S7", "MPISlaveNo=0",
                                              "Variables=", "DynamicTags=RW", "Simulation=OFF", ""}));
}

TEST_F(DeviceSectionWriting, TheSimulationIsWrittenAsItWasGiven) {
  cDevice& device = Read(NetworkType::Mpi, FullSections().at(NetworkType::Mpi));
  device.szMPI_Simulation("on");
  EXPECT_THAT(Written(device), testing::HasSubstr("\r\nSimulation=on\r\n"));
  device.szMPI_Simulation(" oN ");
  EXPECT_THAT(Written(device), testing::HasSubstr("\r\nSimulation= oN \r\n"));
  cDevice& again = NewDevice(NetworkType::Mpi);
  again.Refresh(bOK);
  EXPECT_EQ(again.szMPI_Simulation(), "ON");
  EXPECT_TRUE(bOK);
}

TEST_F(DeviceSectionWriting, TheSideIsWrittenInTheCaseOfTheFile) {
  cDevice& device = Read(NetworkType::H1, With(NetworkType::H1, "Active", "Local"));
  EXPECT_THAT(Written(device), testing::HasSubstr("\r\nActive=Local\r\n"));
}

TEST_F(DeviceSectionWriting, AGapSizeIsRoundedWhenItIsWritten) {
  cDevice& device = Read(NetworkType::TcpRw, With(NetworkType::TcpRw, "MaxGapSize", "31.5"));
  EXPECT_THAT(Written(device), testing::HasSubstr("\r\nMaxGapSize=32\r\n"));
}

TEST_F(DeviceSectionWriting, AnMpiControllerIsAlwaysS7) {
  cDevice& device = NewDevice(NetworkType::Mpi);
  device.nMPI_PLCType(2);
  EXPECT_THAT(Written(device), testing::StartsWith("[Dev]\r\nPLCType=S7\r\n"));
}

TEST_F(DeviceSectionWriting, AControllerWithoutATextIsNotWritten) {
  for (const NetworkType type : {NetworkType::H1, NetworkType::TcpRw, NetworkType::TcpIpk}) {
    SCOPED_TRACE(static_cast<int>(type));
    cDevice& device = Read(type, FullSections().at(type));
    auto& raw = RawSettings(device);
    raw.nH1_PLCType = raw.nTCPRW_PLCType = raw.nTCPIPK_PLCType = 4;
    EXPECT_EQ(Written(device), Section(With(type, "PLCType", std::nullopt)) + "\r\n");
    EXPECT_TRUE(bOK);
  }
}

TEST_F(DeviceSectionWriting, ClearsTheMarkUnlessItIsToBeKept) {
  cDevice& device = NewDevice(NetworkType::Mpi);
  device.bDataDirty(true);
  static_cast<void>(Written(device, true));
  EXPECT_TRUE(device.bDataDirty());
  static_cast<void>(Written(device, false));
  EXPECT_FALSE(device.bDataDirty());
}

TEST_F(DeviceSectionWriting, ADeviceWithoutAFileIsToldAndNotWritten) {
  cDevice device;
  device.szDeviceName("Dev");
  device.Update(false, bOK);
  EXPECT_TRUE(bOK);
  EXPECT_TRUE(device.bDataDirty());
  EXPECT_THAT(WriteWarnings(), ElementsAre("Device||#216 Dev"));
}

TEST_F(DeviceSectionWriting, ADeviceInAnUnknownDirectoryIsToldAndNotWritten) {
  cDevice& device = NewDevice(NetworkType::Mpi);
  modMain::globals.gszProjectDir.clear();
  device.Update(false, bOK);
  EXPECT_TRUE(bOK);
  EXPECT_TRUE(device.bDataDirty());
  EXPECT_THAT(WriteWarnings(), ElementsAre("Device||#214 ")) << "a project that has no name yet";
  EXPECT_FALSE(directory.Has("Net.ini"));
}

TEST_F(DeviceSectionWriting, OfFileNameAndProjectDirectoryTheFileNameIsMissedFirst) {
  cDevice device;
  device.szDeviceName("Dev");
  modMain::globals.gszProjectDir.clear();
  device.Update(false, bOK);
  EXPECT_TRUE(bOK);
  EXPECT_THAT(WriteWarnings(), ElementsAre("Device||#216 Dev"));
}

TEST_F(DeviceSectionWriting, AFailedEmptyLineIsIgnored) {
  cDevice& device = NewDevice(NetworkType::Mpi);
  device.bDataDirty(true);
  faults.appending = {"Net.ini", ErrorNumber::PathFileAccess};
  device.Update(false, bOK);
  EXPECT_TRUE(bOK);
  EXPECT_FALSE(device.bDataDirty());
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(DeviceSectionWriting, AnErrorIsReportedAndMakesTheResultFalse) {
  cDevice& device = NewDevice(NetworkType::Mpi);
  device.bDataDirty(true);
  modMain::globals.services = nullptr;
  device.Update(false, bOK);
  modMain::globals.services = &services;
  EXPECT_FALSE(bOK);
  EXPECT_TRUE(device.bDataDirty());
}

TEST_F(DeviceSectionWriting, AProjectOfAllTypesComesBackAsItWasSaved) {
  for (const auto& [type, lines] : FullSections()) {
    const std::string number = std::to_string(static_cast<int>(type));
    AddDevice(AddNetwork(type, "Net" + number), "Dev" + number);
  }
  Network(2).szH1_LocalMACAddress("\xC4");
  Network(2).szH1_BindMACAddress("b");
  for (const char* text : {"szH1_LocalTSAP", "szH1_RemoteTSAP", "szH1_RemoteMACAddress"}) {
    PropertyOfDevice(text).set(Device(2, 1), "\xFC");
  }
  Device(2, 1).szH1_PLCType("ZELKAR IEC1131");
  Device(5, 1).szTCPIPK_RemoteIP("1.2.3.4");
  ASSERT_TRUE(Save());
  std::vector<std::vector<std::string>> saved;
  for (int i = 1; i <= 5; ++i) saved.push_back(ChangedProperties(Device(i, 1)));

  EXPECT_TRUE(Load());
  EXPECT_THAT(ReadWarnings(), IsEmpty());
  EXPECT_THAT(Boxes(), IsEmpty());
  for (int i = 1; i <= 5; ++i) {
    SCOPED_TRACE(i);
    EXPECT_EQ(ChangedProperties(Device(i, 1)), saved[static_cast<std::size_t>(i) - 1]);
    EXPECT_FALSE(Device(i, 1).bDataDirty());
  }
}

}  // namespace
}  // namespace tavrin
