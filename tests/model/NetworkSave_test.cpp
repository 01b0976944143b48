#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/cNetwork.h"
#include "model/cOPC.h"
#include "support/ProjectTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class NetworkSaveTest : public ProjectTest {
 protected:
  static bool Update(cNetwork& network, bool bKeepDirty = false) {
    bool bOK = false;
    network.Update(bKeepDirty, bOK);
    return bOK;
  }
};

struct FormatRow {
  NetworkType type;
  std::vector<std::string> defaults;
  std::vector<std::string> changed;
};

const std::vector<FormatRow> kFormats{
    {NetworkType::Mpi,
     {"Baudrate=38400", "ComPort=1", "MaxMPISlaveNo=31", "OwnMPISlaveNo=30", "CyclicTime=10",
      "MaxSimultaneousMPILines=4"},
     {"Baudrate=19200", "ComPort=12", "MaxMPISlaveNo=126", "OwnMPISlaveNo=0", "CyclicTime=20",
      "MaxSimultaneousMPILines=255"}},
    {NetworkType::H1,
     {"CyclicTime=100", "LocalMacAddress=", "BindMacAddress="},
     {"CyclicTime=50", "LocalMacAddress=Lo\xE4 cal", "BindMacAddress=bind"}},
    {NetworkType::TcpIso, {"LocalIPAddress=0.0.0.0"}, {"LocalIPAddress=1.2.3.4"}},
    {NetworkType::TcpRw, {"LocalIPAddress=0.0.0.0"}, {"LocalIPAddress=1.2.3.5"}},
    {NetworkType::TcpIpk, {"LocalIPAddress=0.0.0.0"}, {"LocalIPAddress=1.2.3.6"}},
};

/// Gives every setting of every type another value than its default.
void ChangeAll(cNetwork& network) {
  network.nMPI_Baudrate(19200);
  network.nMPI_COMPort(12 + network.nNetworkType());  // 12 is free once
  network.nMPI_MaxMPINo(126);
  network.nMPI_OwnMPINo(0);
  network.nMPI_CyclicTime(20);
  network.nMPI_MaxSimLines(255);
  network.nH1_CyclicTime(50);
  network.szH1_LocalMACAddress("Lo\xE4 cal");
  network.szH1_BindMACAddress("bind");
  network.szTCPISO_LocalIP("1.2.3.4");
  network.szTCPRW_LocalIP("1.2.3.5");
  network.szTCPIPK_LocalIP("1.2.3.6");
}

std::string FileOf(std::vector<std::string> keys) {
  keys.insert(keys.begin(), "[General]");
  keys.emplace_back();
  return Lines(keys);
}

TEST_F(NetworkSaveTest, TheFileHasTheKeysOfTheTypeInTheirOrderAndAnEmptyLine) {
  for (const FormatRow& row : kFormats) {
    const auto type = static_cast<std::int32_t>(row.type);
    SCOPED_TRACE(type);
    cNetwork& network = AddNetwork(row.type, "net" + std::to_string(type));
    EXPECT_TRUE(Update(network));
    EXPECT_EQ(directory.Read(network.szFileName()), FileOf(row.defaults));
    ChangeAll(network);
    EXPECT_TRUE(Update(network));
    EXPECT_EQ(directory.Read(network.szFileName()), FileOf(row.changed));
    EXPECT_THAT(Boxes(), IsEmpty());
  }
}

TEST_F(NetworkSaveTest, WhatIsWrittenIsReadBackAndTheFieldsOfOtherTypesKeepTheirDefaults) {
  for (const FormatRow& row : kFormats) {
    const auto type = static_cast<std::int32_t>(row.type);
    SCOPED_TRACE(type);
    cNetwork& network = AddNetwork(row.type, "net" + std::to_string(type));
    ChangeAll(network);
    EXPECT_TRUE(Update(network));
    if (row.type == NetworkType::Mpi) network.nMPI_COMPort(99);  // leaves the port to the one that reads

    cNetwork read;
    read.szNetworkName("read");
    read.szFileName(network.szFileName());
    read.nNetworkType(type);
    bool bOK = false;
    read.Refresh(bOK);
    EXPECT_TRUE(bOK);
    EXPECT_THAT(ReadWarnings(), IsEmpty());
    EXPECT_TRUE(Update(read));
    EXPECT_EQ(directory.Read(network.szFileName()), FileOf(row.changed));
    EXPECT_EQ(read.nMPI_CyclicTime(), row.type == NetworkType::Mpi ? 20 : 10);
    EXPECT_EQ(read.nH1_CyclicTime(), row.type == NetworkType::H1 ? 50 : 100);
    EXPECT_EQ(read.szTCPISO_LocalIP(), row.type == NetworkType::TcpIso ? "1.2.3.4" : "0.0.0.0");
  }
}

TEST_F(NetworkSaveTest, LoadedNumbersOutsideTheSettersRangesAreWrittenAsTheyAre) {
  const std::vector<std::string> keys{"Baudrate=115200",   "ComPort=700",  "MaxMPISlaveNo=15",
                                      "OwnMPISlaveNo=200", "CyclicTime=0", "MaxSimultaneousMPILines=9999"};
  cNetwork& network = AddNetwork(NetworkType::Mpi, "net");
  directory.Write("net.ini", FileOf(keys));
  bool bOK = false;
  network.Refresh(bOK);
  EXPECT_TRUE(bOK);
  EXPECT_THAT(ReadWarnings(), ElementsAre("Network|net.ini|#236 OwnMPISlaveNo (200)"));
  EXPECT_TRUE(Update(network));
  EXPECT_EQ(directory.Read("net.ini"), FileOf(keys));
}

TEST_F(NetworkSaveTest, UpdateTakesTheOldFileAwayWithItsDevices) {
  cNetwork& network = AddNetwork(NetworkType::TcpIso, "net");
  AddDevice(network, "dev");
  directory.Write("NET.INI", "; comment\r\n[dev]\r\nSlotNo=1\r\n[General]\r\nUnknown=1\r\n");
  EXPECT_TRUE(Update(network));
  EXPECT_FALSE(directory.Has("NET.INI"));
  EXPECT_EQ(directory.Read("net.ini"), FileOf({"LocalIPAddress=0.0.0.0"}));
}

TEST_F(NetworkSaveTest, TheDevicesSectionsFollowInTheirOrder) {
  cNetwork& network = AddNetwork(NetworkType::TcpIso, "net");
  AddDevice(network, "b");
  AddDevice(network, "a");
  EXPECT_TRUE(Save());
  const std::vector<std::string> address{"SlotNo=2", "RemoteIPAddress=0.0.0.1"};
  const std::vector<std::string> more{"DynamicTags=RW", "CyclicTime=10",  "Simulation=OFF",
                                      "PingEnabled=1",  "MaxPDUSize=960", ""};
  std::vector<std::string> expected{"[General]", "LocalIPAddress=0.0.0.0", ""};
  for (const std::string name : {"b", "a"}) {
    expected.insert(expected.end(), {"[" + name + "]", "PLCType=S7"});
    expected.insert(expected.end(), address.begin(), address.end());
    expected.push_back("Variables=" + name + ".csv");
    expected.insert(expected.end(), more.begin(), more.end());
  }
  EXPECT_EQ(directory.Read("net.ini"), Lines(expected));
}

TEST_F(NetworkSaveTest, AnUnknownSectionComesBackAsADeviceWithItsDefaults) {
  AddNetwork(NetworkType::TcpIso, "net");
  EXPECT_TRUE(Save());
  directory.Write("net.ini", FileOf({"LocalIPAddress=0.0.0.0", "Unknown=1"}) + "[Unknown]\r\nx=1\r\n");
  EXPECT_TRUE(Load());
  EXPECT_TRUE(Save());
  EXPECT_EQ(directory.Read("net.ini"),
            FileOf({"LocalIPAddress=0.0.0.0"}) +
                Lines({"[Unknown]", "PLCType=S7", "SlotNo=2", "RemoteIPAddress=0.0.0.1", "Variables=", "DynamicTags=RW",
                       "CyclicTime=10", "Simulation=OFF", "PingEnabled=1", "MaxPDUSize=960", ""}));
}

TEST_F(NetworkSaveTest, UpdateClearsTheMarkUnlessToldNotToAndLeavesThoseOfTheDevices) {
  cNetwork& network = AddNetwork(NetworkType::H1, "net");
  cDevice& device = AddDevice(network, "dev");
  for (const bool keep : {true, false}) {
    network.bDataDirty(true);
    device.bDataDirty(true);
    EXPECT_TRUE(Update(network, keep));
    EXPECT_EQ(network.bDataDirty(), keep);
    EXPECT_TRUE(device.bDataDirty());
  }
}

TEST_F(NetworkSaveTest, WithoutAFileNameNothingIsWrittenAndTheMarkStays) {
  cNetwork network;
  network.szNetworkName("nameless");
  EXPECT_TRUE(Update(network));
  EXPECT_THAT(WriteWarnings(), ElementsAre("Network||#215 nameless"));
  EXPECT_TRUE(network.bDataDirty());
  EXPECT_TRUE(std::filesystem::is_directory(directory.Path()));
  EXPECT_TRUE(std::filesystem::is_empty(directory.Path()));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(NetworkSaveTest, WithoutAProjectDirectoryNothingIsWrittenAndTheMarkStays) {
  cNetwork& network = AddNetwork(NetworkType::H1, "no such network anywhere");
  network.bDataDirty(true);
  modMain::globals.gszProjectDir.clear();
  EXPECT_TRUE(Update(network));
  EXPECT_THAT(WriteWarnings(), ElementsAre("Network|ZOPCSRV.ini|#214 "));
  EXPECT_TRUE(network.bDataDirty());
  EXPECT_FALSE(std::filesystem::exists(network.szFileName()));
}

TEST_F(NetworkSaveTest, OfFileNameAndProjectDirectoryTheFileNameIsMissedFirst) {
  cNetwork network;
  network.szNetworkName("nameless");
  modMain::globals.gszProjectDir.clear();
  EXPECT_TRUE(Update(network));
  EXPECT_THAT(WriteWarnings(), ElementsAre("Network||#215 nameless"));
}

TEST_F(NetworkSaveTest, ANetworkLoadedWithoutAFileNameIsToldOnSaveWhichSucceeds) {
  directory.Write("ZOPCSRV.ini", Lines({"[General]", "LogFileSize=5", "[net]", "Protocol=H1"}));
  EXPECT_FALSE(Load());
  EXPECT_TRUE(Save());
  EXPECT_THAT(WriteWarnings(), ElementsAre("Network||#215 net"));
  EXPECT_EQ(directory.Read("ZOPCSRV.ini"),
            Lines({"[General]", "LogFileSize=5", "CaseSensitive=0", "UsedSeparator=/", "TagsAlwaysUppercase=0", "",
                   "[net]", "Protocol=H1", "Configuration=", ""}));
}

}  // namespace
}  // namespace tavrin
