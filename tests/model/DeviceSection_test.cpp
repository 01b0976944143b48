// Reading a device's section of the network file.
#include "model/DeviceSection.h"

#include <string>
#include <string_view>
#include <vector>

#include "model/DeviceSectionTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

constexpr NetworkType kMpi = NetworkType::Mpi;
constexpr NetworkType kH1 = NetworkType::H1;
constexpr NetworkType kIso = NetworkType::TcpIso;
constexpr NetworkType kRw = NetworkType::TcpRw;
constexpr NetworkType kIpk = NetworkType::TcpIpk;

std::string Warned(const std::string& text) { return "Device|Net.ini|" + text; }
std::string BadKeyWarning(const std::string& key, const std::string& value) {
  return Warned("#207 " + key + " (" + value + ")");
}

using DeviceSectionReading = DeviceSectionTest;

TEST_F(DeviceSectionReading, TakesAllKeysOfItsType) {
  const std::map<NetworkType, std::vector<std::string>> expected{
      {kMpi, {"nMPI_SlaveNo=7", "szMPI_DynamicTags=RO", "szMPI_Simulation=ON", "szTagFileName=tags.csv"}},
      {kH1,
       {"szH1_LocalTSAP=L-1", "szH1_RemoteTSAP=R-1", "szH1_RemoteMACAddress=08-00-06", "szH1_Active=local",
        "szH1_DynamicTags=OFF", "nH1_PLCType=3", "szH1_Simulation=ON", "szH1_PLCType=ZELKAR IEC1131",
        "szTagFileName=tags.csv"}},
      {kIso,
       {"nTCPISO_SlotNo=3", "szTCPISO_RemoteIP=1.2.3.4", "szTCPISO_DynamicTags=RO", "nTCPISO_CyclicTime=50",
        "szTCPISO_Simulation=ON", "nTCPISO_PingEnabled=0", "nTCPISO_MaxPDUSize=480", "szTagFileName=tags.csv"}},
      {kRw,
       {"nTCPRW_LocalPortRead=1", "nTCPRW_LocalPortWrite=2", "szTCPRW_RemoteIP=1.2.3.4", "nTCPRW_RemotePortRead=3",
        "nTCPRW_RemotePortWrite=4", "szTCPRW_DynamicTags=RO", "nTCPRW_PLCType=2", "szTCPRW_Simulation=ON",
        "nTCPRW_MaxGapSize=31", "nTCPRW_PingEnabled=0", "szTCPRW_PLCType=S5", "szTagFileName=tags.csv"}},
      {kIpk,
       {"nTCPIPK_LocalPortRead=1", "nTCPIPK_LocalPortWrite=2", "szTCPIPK_RemoteIP=1.2.3.4", "nTCPIPK_RemotePortRead=3",
        "nTCPIPK_RemotePortWrite=4", "szTCPIPK_DynamicTags=RO", "nTCPIPK_PLCType=2", "szTCPIPK_Simulation=ON",
        "szTCPIPK_PLCType=S5", "szTagFileName=tags.csv"}},
  };
  for (const auto& [type, properties] : expected) {
    SCOPED_TRACE(static_cast<int>(type));
    const cDevice& device = Read(type, FullSections().at(type));
    EXPECT_THAT(SectionProperties(device), ElementsAreArray(properties));
    EXPECT_TRUE(bOK);
    EXPECT_FALSE(device.bDataDirty());
    EXPECT_THAT(ReadWarnings(), IsEmpty());
    EXPECT_THAT(Boxes(), IsEmpty());
  }
}

TEST_F(DeviceSectionReading, WarnsOfMissingKeysInTheOrderOfReading) {
  const std::map<NetworkType, std::vector<std::string>> expected{
      {kMpi, {"MPISlaveNo", "Variables", "DynamicTags", "Simulation"}},
      {kH1,
       {"LocalTSAP", "RemoteTSAP", "RemoteMacAddress", "Active", "Variables", "DynamicTags", "PLCType", "Simulation"}},
      {kIso,
       {"SlotNo", "RemoteIPAddress", "Variables", "DynamicTags", "CyclicTime", "Simulation", "PingEnabled",
        "MaxPDUSize"}},
      {kRw,
       {"LocalPortRead", "LocalPortWrite", "RemoteIPAddress", "RemotePortRead", "RemotePortWrite", "DynamicTags",
        "Variables", "PLCType", "Simulation", "MaxGapSize", "PingEnabled"}},
      {kIpk,
       {"LocalPortRead", "LocalPortWrite", "RemoteIPAddress", "RemotePortRead", "RemotePortWrite", "DynamicTags",
        "Variables", "PLCType", "Simulation"}},
  };
  for (const auto& [type, keys] : expected) {
    SCOPED_TRACE(static_cast<int>(type));
    std::vector<std::string> warnings;
    for (const std::string& key : keys) warnings.push_back(BadKeyWarning(key, ""));
    // Without a name the path of the tag file is that of the directory, in which there is no file.
    warnings.push_back("Tag||#201 " + directory.Path());

    const cDevice& device = Read(type, {});
    EXPECT_THAT(ReadWarnings(), ElementsAreArray(warnings));
    EXPECT_FALSE(bOK);
    EXPECT_THAT(SectionProperties(device), IsEmpty());
    EXPECT_FALSE(device.bDataDirty());
  }
}

struct GoodKey {
  NetworkType type;
  std::string_view key;
  std::string value;
  std::string_view property;
  std::string stored;
};

TEST_F(DeviceSectionReading, TakesGoodValuesPastTheSetters) {
  const std::vector<GoodKey> rows{
      {kMpi, "MPISlaveNo", "0", "nMPI_SlaveNo", "0"},
      {kMpi, "MPISlaveNo", "30", "nMPI_SlaveNo", "30"},  // the network's own number: not asked here
      {kMpi, "MPISlaveNo", "2147483647", "nMPI_SlaveNo", "2147483647"},
      {kMpi, "MPISlaveNo", "2.5", "nMPI_SlaveNo", "2"},
      {kMpi, "MPISlaveNo", "+3.5", "nMPI_SlaveNo", "4"},
      {kMpi, "MPISlaveNo", "  7 ; address", "nMPI_SlaveNo", "7"},
      {kMpi, "MPISlaveNo", "7\tcomment", "nMPI_SlaveNo", "7"},
      {kMpi, "PLCType", "anything", "nMPI_PLCType", "1"},
      {kMpi, "DynamicTags", "rw", "szMPI_DynamicTags", "RW"},
      {kMpi, "DynamicTags", "off", "szMPI_DynamicTags", "OFF"},
      {kMpi, "Simulation", "on", "szMPI_Simulation", "ON"},
      {kMpi, "Simulation", " Off ", "szMPI_Simulation", "OFF"},
      {kMpi, "Variables", "TAGS.csv", "szTagFileName", "TAGS.csv"},
      {kH1, "Active", "LOCAL", "szH1_Active", "LOCAL"},
      {kH1, "Active", "Remote", "szH1_Active", "Remote"},
      {kH1, "DynamicTags", "Ro", "szH1_DynamicTags", "RO"},
      {kH1, "PLCType", "s7", "nH1_PLCType", "1"},
      {kH1, "PLCType", "s5", "nH1_PLCType", "2"},
      {kH1, "PLCType", "Zelkar iec1131", "nH1_PLCType", "3"},
      {kH1, "Simulation", "off", "szH1_Simulation", "OFF"},
      {kH1, "LocalTSAP", "\xE4 x", "szH1_LocalTSAP", "\xE4 x"},
      {kIso, "PLCType", "S5", "nTCPISO_PLCType", "1"},
      {kIso, "SlotNo", "0", "nTCPISO_SlotNo", "0"},
      {kIso, "SlotNo", "255", "nTCPISO_SlotNo", "255"},
      {kIso, "RemoteIPAddress", "no address", "szTCPISO_RemoteIP", "no address"},
      {kIso, "CyclicTime", "0", "nTCPISO_CyclicTime", "0"},
      {kIso, "CyclicTime", "100000", "nTCPISO_CyclicTime", "100000"},
      {kIso, "DynamicTags", "rw", "szTCPISO_DynamicTags", "RW"},
      {kIso, "Simulation", "off", "szTCPISO_Simulation", "OFF"},
      {kIso, "PingEnabled", "x", "nTCPISO_PingEnabled", "0"},
      {kIso, "PingEnabled", "; x", "nTCPISO_PingEnabled", "0"},
      {kIso, "PingEnabled", "1x", "nTCPISO_PingEnabled", "1"},
      {kIso, "PingEnabled", "0.9", "nTCPISO_PingEnabled", "1"},
      {kIso, "MaxPDUSize", "240 bytes", "nTCPISO_MaxPDUSize", "240"},
      {kIso, "MaxPDUSize", "960", "nTCPISO_MaxPDUSize", "960"},
      {kRw, "LocalPortRead", "2", "nTCPRW_LocalPortRead", "2"},  // the other direction's number
      {kRw, "LocalPortWrite", "70000", "nTCPRW_LocalPortWrite", "70000"},
      {kRw, "RemotePortRead", "70000", "nTCPRW_RemotePortRead", "70000"},
      {kRw, "RemotePortWrite", "3", "nTCPRW_RemotePortWrite", "3"},
      {kRw, "RemoteIPAddress", "0.0.0.0", "szTCPRW_RemoteIP", "0.0.0.0"},
      {kRw, "DynamicTags", "off", "szTCPRW_DynamicTags", "OFF"},
      {kRw, "PLCType", "s7", "nTCPRW_PLCType", "1"},
      {kRw, "Simulation", "off", "szTCPRW_Simulation", "OFF"},
      {kRw, "MaxGapSize", "0", "nTCPRW_MaxGapSize", "0"},
      {kRw, "MaxGapSize", "200", "nTCPRW_MaxGapSize", "200"},
      {kRw, "MaxGapSize", "x", "nTCPRW_MaxGapSize", "0"},
      {kRw, "MaxGapSize", "12x", "nTCPRW_MaxGapSize", "12"},
      {kRw, "PingEnabled", "1", "nTCPRW_PingEnabled", "1"},
      {kRw, "PingEnabled", "-", "nTCPRW_PingEnabled", "0"},
      {kIpk, "LocalPortRead", "0", "nTCPIPK_LocalPortRead", "0"},
      {kIpk, "LocalPortWrite", "70000", "nTCPIPK_LocalPortWrite", "70000"},
      {kIpk, "RemotePortRead", "0", "nTCPIPK_RemotePortRead", "0"},
      {kIpk, "RemotePortWrite", "70000", "nTCPIPK_RemotePortWrite", "70000"},
      {kIpk, "RemoteIPAddress", "10.0.0.1x", "szTCPIPK_RemoteIP", "10.0.0.1x"},
      {kIpk, "DynamicTags", "rw", "szTCPIPK_DynamicTags", "RW"},
      {kIpk, "PLCType", "S7", "nTCPIPK_PLCType", "1"},
      {kIpk, "Simulation", "oFF", "szTCPIPK_Simulation", "OFF"},
  };
  directory.Write("TAGS.csv", "");
  for (const GoodKey& row : rows) {
    SCOPED_TRACE(std::string(row.key) + "=" + row.value);
    const cDevice& device = Read(row.type, With(row.type, row.key, row.value));
    EXPECT_EQ(PropertyOfDevice(row.property).get(device), row.stored);
    EXPECT_TRUE(bOK);
    EXPECT_THAT(ReadWarnings(), IsEmpty());
  }
}

struct BadValue {
  NetworkType type;
  std::string_view key;
  std::string value;
  std::string_view property;
  std::string_view told = {};  ///< the value in the warning; the value itself when left out
};

TEST_F(DeviceSectionReading, WarnsOfABadValueAndLeavesTheField) {
  const std::vector<BadValue> rows{
      {kMpi, "MPISlaveNo", "-1", "nMPI_SlaveNo"},
      {kMpi, "MPISlaveNo", "-0.4", "nMPI_SlaveNo"},
      {kMpi, "MPISlaveNo", "7x", "nMPI_SlaveNo"},
      {kMpi, "MPISlaveNo", "1e3", "nMPI_SlaveNo"},
      {kMpi, "MPISlaveNo", " x ; y", "nMPI_SlaveNo", "x"},
      {kMpi, "DynamicTags", "ON", "szMPI_DynamicTags"},
      {kMpi, "Simulation", "RW", "szMPI_Simulation"},
      {kH1, "Active", "both", "szH1_Active"},
      {kH1, "DynamicTags", "R", "szH1_DynamicTags"},
      {kH1, "PLCType", "S", "nH1_PLCType"},
      {kH1, "PLCType", "1", "nH1_PLCType"},
      {kH1, "Simulation", "1", "szH1_Simulation"},
      {kIso, "SlotNo", "-1", "nTCPISO_SlotNo"},
      {kIso, "SlotNo", "256", "nTCPISO_SlotNo"},
      {kIso, "SlotNo", "255.4", "nTCPISO_SlotNo"},
      {kIso, "SlotNo", "x", "nTCPISO_SlotNo"},
      {kIso, "CyclicTime", "-1", "nTCPISO_CyclicTime"},
      {kIso, "CyclicTime", "x", "nTCPISO_CyclicTime"},
      {kIso, "DynamicTags", "x", "szTCPISO_DynamicTags"},
      {kIso, "Simulation", "x", "szTCPISO_Simulation"},
      {kIso, "PingEnabled", "2", "nTCPISO_PingEnabled"},
      {kIso, "PingEnabled", "-1", "nTCPISO_PingEnabled"},
      {kIso, "PingEnabled", "1.1", "nTCPISO_PingEnabled"},
      {kIso, "MaxPDUSize", "480.5", "nTCPISO_MaxPDUSize"},
      {kIso, "MaxPDUSize", "x", "nTCPISO_MaxPDUSize"},
      {kRw, "LocalPortRead", "-1", "nTCPRW_LocalPortRead"},
      {kRw, "LocalPortWrite", "x", "nTCPRW_LocalPortWrite"},
      {kRw, "RemotePortRead", "0x5", "nTCPRW_RemotePortRead"},
      {kRw, "RemotePortWrite", "-5", "nTCPRW_RemotePortWrite"},
      {kRw, "DynamicTags", "x", "szTCPRW_DynamicTags"},
      {kRw, "PLCType", "ZELKAR IEC1131", "nTCPRW_PLCType"},
      {kRw, "Simulation", "x", "szTCPRW_Simulation"},
      {kRw, "MaxGapSize", "250", "nTCPRW_MaxGapSize"},
      {kRw, "MaxGapSize", "200.1", "nTCPRW_MaxGapSize"},
      {kRw, "MaxGapSize", "-1", "nTCPRW_MaxGapSize"},
      {kRw, "PingEnabled", "2", "nTCPRW_PingEnabled"},
      {kIpk, "LocalPortRead", "-1", "nTCPIPK_LocalPortRead"},
      {kIpk, "LocalPortWrite", "x", "nTCPIPK_LocalPortWrite"},
      {kIpk, "RemotePortRead", "x", "nTCPIPK_RemotePortRead"},
      {kIpk, "RemotePortWrite", "-1", "nTCPIPK_RemotePortWrite"},
      {kIpk, "RemoteIPAddress", "1.2.3", "szTCPIPK_RemoteIP"},
      {kIpk, "RemoteIPAddress", "0.0.0.0", "szTCPIPK_RemoteIP"},
      {kIpk, "RemoteIPAddress", "1.2.3.256", "szTCPIPK_RemoteIP"},
      {kIpk, "DynamicTags", "x", "szTCPIPK_DynamicTags"},
      {kIpk, "PLCType", "ZELKAR IEC1131", "nTCPIPK_PLCType"},
      {kIpk, "Simulation", "x", "szTCPIPK_Simulation"},
  };
  for (const BadValue& row : rows) {
    SCOPED_TRACE(std::string(row.key) + "=" + row.value);
    const cDevice& device = Read(row.type, With(row.type, row.key, row.value));
    EXPECT_EQ(PropertyOfDevice(row.property).get(device), PropertyOfDevice(row.property).atStart);
    EXPECT_FALSE(bOK);
    const std::string told(row.told.empty() ? std::string_view(row.value) : row.told);
    EXPECT_THAT(ReadWarnings(), ElementsAre(BadKeyWarning(std::string(row.key), told)));
    EXPECT_THAT(Boxes(), IsEmpty());
  }
}

TEST_F(DeviceSectionReading, NamesTheReasonForAnAddressThatTheServerCannotUse) {
  static_cast<void>(Read(kIpk, With(kIpk, "RemoteIPAddress", "224.0.0.1")));
  EXPECT_THAT(ReadWarnings(), ElementsAre(Warned("#238 :  RemoteIPAddress (224.0.0.1)")));
  EXPECT_FALSE(bOK);
  const cDevice& device = Read(kIpk, With(kIpk, "RemoteIPAddress", "127.0.0.1"));
  EXPECT_THAT(ReadWarnings(), ElementsAre(Warned("#239 :  RemoteIPAddress (127.0.0.1)")));
  EXPECT_FALSE(bOK);
  EXPECT_EQ(device.szTCPIPK_RemoteIP(), "");
}

TEST_F(DeviceSectionReading, AKeyThatIsThereButEmptyCountsAsMissing) {
  for (const auto& [type, lines] : FullSections()) {
    for (const auto& [key, value] : lines) {
      if (key == "PLCType" && (type == kMpi || type == kIso)) continue;  // never read
      SCOPED_TRACE(key);
      static_cast<void>(Read(type, With(type, key, "")));
      ASSERT_FALSE(ReadWarnings().empty());
      EXPECT_EQ(ReadWarnings().front(), BadKeyWarning(key, ""));
      EXPECT_FALSE(bOK);
    }
  }
}

TEST_F(DeviceSectionReading, AValueThatIsAllCommentIsABadOne) {
  for (const char* key : {"LocalTSAP", "RemoteTSAP", "RemoteMacAddress", "Active", "DynamicTags", "PLCType"}) {
    SCOPED_TRACE(key);
    static_cast<void>(Read(kH1, With(kH1, key, "; later")));
    EXPECT_THAT(ReadWarnings(), ElementsAre(BadKeyWarning(key, "")));
    EXPECT_FALSE(bOK);
  }
}

TEST_F(DeviceSectionReading, TheControllerOfMpiAndIsoIsNeverRead) {
  for (const NetworkType type : {kMpi, kIso}) {
    static_cast<void>(Read(type, With(type, "PLCType", std::nullopt)));
    EXPECT_THAT(ReadWarnings(), IsEmpty());
    EXPECT_TRUE(bOK);
  }
}

TEST_F(DeviceSectionReading, AnMpiControllerIsS7AfterEveryRead) {
  cDevice& device = Read(kMpi, FullSections().at(kMpi));
  device.nMPI_PLCType(2);
  device.Refresh(bOK);
  EXPECT_EQ(device.nMPI_PLCType(), 1);
}

TEST_F(DeviceSectionReading, AGapSizeKeepsItsFractionAndIsToldRounded) {
  const cDevice& device = Read(kRw, With(kRw, "MaxGapSize", "12.50 items"));
  EXPECT_EQ(device.Settings().nTCPRW_MaxGapSize, "12.5");
  EXPECT_EQ(device.nTCPRW_MaxGapSize(), 12);
  EXPECT_THAT(ReadWarnings(), IsEmpty());
}

TEST_F(DeviceSectionReading, OneBadKeyDoesNotStopTheOthers) {
  const cDevice& device = Read(kMpi, {{"MPISlaveNo", "x"}, {"Variables", "tags.csv"}, {"Simulation", "ON"}});
  EXPECT_THAT(SectionProperties(device), ElementsAre("szMPI_Simulation=ON", "szTagFileName=tags.csv"));
  EXPECT_THAT(ReadWarnings(), ElementsAre(BadKeyWarning("MPISlaveNo", "x"), BadKeyWarning("DynamicTags", "")));
  EXPECT_FALSE(bOK);
}

TEST_F(DeviceSectionReading, ANumberOutsideThe32BitRangeEndsTheLoadOfTheDevice) {
  const cDevice& device = Read(kIso, With(kIso, "CyclicTime", "2147483648"));
  EXPECT_THAT(Boxes(), ElementsAre("#199 6 #200 cDevice.Refresh : Overflow"));
  EXPECT_THAT(ReadWarnings(), IsEmpty());
  EXPECT_THAT(SectionProperties(device), ElementsAre("nTCPISO_SlotNo=3", "szTCPISO_RemoteIP=1.2.3.4",
                                                     "szTCPISO_DynamicTags=RO", "szTagFileName=tags.csv"));
  EXPECT_TRUE(bOK);
  EXPECT_FALSE(device.bDataDirty());
}

}  // namespace
}  // namespace tavrin
