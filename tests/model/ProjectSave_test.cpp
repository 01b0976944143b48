#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/cOPC.h"
#include "model/shared/cWarnings.h"
#include "platform/ProfileFiles.h"
#include "platform/RuntimeError.h"
#include "support/ProjectTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Profile operations whose writing ends in a run-time error for sections of one name, or for all.
class FailingProfiles : public ProfileFiles {
 public:
  explicit FailingProfiles(ProfileFiles& real) : real_(real) {}

  std::string section;  // empty: all

  [[nodiscard]] std::size_t GetString(OptionalText name, OptionalText key, OptionalText fallback,
                                      std::span<char> buffer, std::string_view file) override {
    return real_.GetString(name, key, fallback, buffer, file);
  }
  [[nodiscard]] std::size_t GetSectionNames(std::span<char> buffer, std::string_view file) override {
    return real_.GetSectionNames(buffer, file);
  }
  [[nodiscard]] std::size_t GetSection(OptionalText name, std::span<char> buffer, std::string_view file) override {
    return real_.GetSection(name, buffer, file);
  }
  ProfileError WriteString(OptionalText name, OptionalText key, OptionalText value, std::string_view file) override {
    if (section.empty() || name == section) throw RuntimeError(ErrorNumber::DiskFull);
    return real_.WriteString(name, key, value, file);
  }

 private:
  ProfileFiles& real_;
};

const std::vector<std::string> kGeneral{"[General]",       "LogFileSize=10000",     "CaseSensitive=0",
                                        "UsedSeparator=/", "TagsAlwaysUppercase=0", ""};

class ProjectSaveTest : public ProjectTest {
 protected:
  void MarkAll(bool dirty) {
    Project().bDataDirty(dirty);
    for (cNetwork& network : Project().Networks()) {
      network.bDataDirty(dirty);
      for (cDevice& device : network.Devices()) device.bDataDirty(dirty);
    }
  }
  bool Update(bool bKeepDirty = false) {
    bool bOK = false;
    Project().Update(bKeepDirty, bOK);
    return bOK;
  }

  FailingProfiles failing{files};
  Services failingServices{desktop, files, failing, registry, texts, syntax, settings, around.all, {}};
};

TEST_F(ProjectSaveTest, AnEmptyProjectIsTheSectionGeneral) {
  EXPECT_TRUE(Save());
  EXPECT_EQ(directory.Read("ZOPCSRV.ini"), Lines(kGeneral));
  EXPECT_THAT(WriteWarnings(), IsEmpty());
}

TEST_F(ProjectSaveTest, EveryNetworkIsASectionInTheOrderOfTheCollection) {
  Project().nLogFileSize(1);
  Project().nCaseSensitive(1);
  Project().szUsedSeparator("\\!");
  Project().nSaveTagsUppercase(1);
  AddNetwork(NetworkType::TcpIpk, "ipk");
  AddNetwork(NetworkType::Mpi, "mpi");
  AddNetwork(NetworkType::TcpRw, "K\xE4lte");
  AddNetwork(NetworkType::H1, "h1");
  AddNetwork(NetworkType::TcpIso, "iso");
  EXPECT_TRUE(Update());
  EXPECT_EQ(directory.Read("ZOPCSRV.ini"), Lines({"[General]",
                                                  "LogFileSize=1",
                                                  "CaseSensitive=1",
                                                  "UsedSeparator=\\!",
                                                  "TagsAlwaysUppercase=1",
                                                  "",
                                                  "[ipk]",
                                                  "Protocol=IPKoverTCPIP",
                                                  "Configuration=ipk.ini",
                                                  "",
                                                  "[mpi]",
                                                  "Protocol=MPIoverCOMPORT",
                                                  "Configuration=mpi.ini",
                                                  "",
                                                  "[K\xE4lte]",
                                                  "Protocol=RWoverTCPIP",
                                                  "Configuration=K\xE4lte.ini",
                                                  "",
                                                  "[h1]",
                                                  "Protocol=H1",
                                                  "Configuration=h1.ini",
                                                  "",
                                                  "[iso]",
                                                  "Protocol=ISOoverTCPIP",
                                                  "Configuration=iso.ini",
                                                  ""}));
}

TEST_F(ProjectSaveTest, NumbersOutsideTheSettersRangesAreWrittenAsTheyWereLoaded) {
  directory.Write("ZOPCSRV.ini",
                  "[General]\nLogFileSize=20000\nCaseSensitive=7\nUsedSeparator=xy\nTagsAlwaysUppercase=3");
  EXPECT_TRUE(Load());
  EXPECT_TRUE(Save());
  EXPECT_EQ(directory.Read("ZOPCSRV.ini"), Lines({"[General]", "LogFileSize=20000", "CaseSensitive=7",
                                                  "UsedSeparator=xy", "TagsAlwaysUppercase=3", ""}));
}

TEST_F(ProjectSaveTest, UnknownKeysSectionsAndCommentsOfTheOldFileAreGone) {
  directory.Write("ZOPCSRV.ini", Lines({"; comment", "[Other]", "Key=1", "[General]", "Unknown=1", "LogFileSize=5"}));
  EXPECT_TRUE(Update());
  EXPECT_EQ(directory.Read("ZOPCSRV.ini"), Lines(kGeneral));
}

TEST_F(ProjectSaveTest, AnOldFileUnderAnotherCaseIsReplaced) {
  directory.Write("zopcsrv.INI", "[General]\r\nUnknown=1\r\n");
  EXPECT_TRUE(Update());
  EXPECT_FALSE(directory.Has("zopcsrv.INI"));
  EXPECT_EQ(directory.Read("ZOPCSRV.ini"), Lines(kGeneral));
}

TEST_F(ProjectSaveTest, UpdateWritesTheProjectFileAndItsOwnMarkAlone) {
  AddDevice(AddNetwork(NetworkType::H1, "net"), "dev");
  for (const bool keep : {true, false}) {
    MarkAll(true);
    EXPECT_TRUE(Update(keep));
    EXPECT_EQ(Project().bDataDirty(), keep);
    EXPECT_TRUE(Network(1).bDataDirty());
    EXPECT_TRUE(Device(1, 1).bDataDirty());
    EXPECT_FALSE(directory.Has("net.ini"));
  }
}

TEST_F(ProjectSaveTest, UpdateAllClearsEveryMarkUnlessToldNotTo) {
  cTags& tags = AddDevice(AddNetwork(NetworkType::H1, "net"), "dev").Tags();
  EXPECT_TRUE(tags.AddItem(std::make_unique<cTag>()));
  for (const bool keep : {true, false}) {
    MarkAll(true);
    tags.begin()->bDataDirty(true);
    bool bOK = false;
    Project().UpdateAll(keep, bOK);
    EXPECT_TRUE(bOK);
    EXPECT_EQ(Project().bDataDirty(), keep);
    EXPECT_EQ(Network(1).bDataDirty(), keep);
    EXPECT_EQ(Device(1, 1).bDataDirty(), keep);
    EXPECT_FALSE(tags.AnyDirty()) << "a written tag is clean whatever is told";
    for (const char* file : {"ZOPCSRV.ini", "net.ini", "dev.csv"}) EXPECT_TRUE(directory.Has(file)) << file;
  }
}

TEST_F(ProjectSaveTest, UpdateAllRenewsTheWriteWarningsAndLeavesTheReadWarnings) {
  modMain::WriteWarnings().AddWarning(WarningKind::Opc, "", "old");
  modMain::ReadWarnings().AddWarning(WarningKind::Opc, "", "old");
  EXPECT_TRUE(Save());
  EXPECT_THAT(WriteWarnings(), IsEmpty());
  EXPECT_THAT(ReadWarnings(), ElementsAre("OPC||old"));
}

TEST_F(ProjectSaveTest, ADiskThatTakesNoIniFileIsSilentlyPassedOver) {
  AddNetwork(NetworkType::H1, "net");
  MarkAll(true);
  faults.appending = FaultyFiles::Fault{".ini", ErrorNumber::PathFileAccess};
  EXPECT_TRUE(Save());
  EXPECT_THAT(Boxes(), IsEmpty());
  EXPECT_THAT(WriteWarnings(), IsEmpty());
  EXPECT_FALSE(Project().bDataDirty());
  EXPECT_FALSE(Network(1).bDataDirty());
}

TEST_F(ProjectSaveTest, AFileThatCannotBeRemovedIsChangedInPlace) {
  directory.Write("ZOPCSRV.ini", Lines({"[General]", "Unknown=1", "LogFileSize=5"}));
  faults.removing = FaultyFiles::Fault{"ZOPCSRV.ini", ErrorNumber::PathFileAccess};
  EXPECT_TRUE(Save());
  EXPECT_THAT(Boxes(), IsEmpty());
  EXPECT_EQ(directory.Read("ZOPCSRV.ini"), Lines({"[General]", "Unknown=1", "LogFileSize=10000", "CaseSensitive=0",
                                                  "UsedSeparator=/", "TagsAlwaysUppercase=0", ""}));
}

TEST_F(ProjectSaveTest, ErrorsAreTrappedFileByFileAndTheSaveGoesOn) {
  AddDevice(AddNetwork(NetworkType::H1, "one"), "a");
  AddDevice(AddNetwork(NetworkType::TcpRw, "two"), "b");
  MarkAll(true);
  modMain::globals.services = &failingServices;
  faults.creating = FaultyFiles::Fault{".csv", ErrorNumber::PathFileAccess};
  EXPECT_FALSE(Save());
  const std::string full = " : Disk full";
  const std::string tags = "#199 75 #200 cTags.Update : Path/File access error";
  EXPECT_THAT(Boxes(), ElementsAre("#199 61 #200 cOPC.Update" + full, "#199 61 #200 cNetwork.Update" + full,
                                   "#199 61 #200 cDevice.Update" + full, tags, "#199 61 #200 cNetwork.Update" + full,
                                   "#199 61 #200 cDevice.Update" + full, tags));
  EXPECT_THAT(WriteWarnings(),
              ElementsAre("OPC|ZOPCSRV.ini|#205 ZOPCSRV.ini", "Network|one.ini|#205 one.ini",
                          "Device|one.ini|#205 one.ini", "Device|a.csv|#205 a.csv", "Network|two.ini|#205 two.ini",
                          "Device|two.ini|#205 two.ini", "Device|b.csv|#205 b.csv"));
  EXPECT_TRUE(Project().bDataDirty());
  EXPECT_TRUE(Network(2).bDataDirty());
  EXPECT_TRUE(Device(2, 1).bDataDirty());
}

TEST_F(ProjectSaveTest, AnErrorInANetworksSectionMakesTheResultFalseBehindAClearedMark) {
  AddNetwork(NetworkType::H1, "net");
  MarkAll(true);
  modMain::globals.services = &failingServices;
  failing.section = "net";
  EXPECT_FALSE(Update());
  EXPECT_FALSE(Project().bDataDirty());
  EXPECT_EQ(directory.Read("ZOPCSRV.ini"), Lines(kGeneral));
}

TEST_F(ProjectSaveTest, ATagFileThatCannotBeWrittenIsAFailureOfItsOwn) {
  AddDevice(AddNetwork(NetworkType::H1, "net"), "dev");
  faults.creating = FaultyFiles::Fault{"dev.csv", ErrorNumber::PathFileAccess};
  EXPECT_FALSE(Save());
  EXPECT_THAT(WriteWarnings(), ElementsAre("Device|dev.csv|#205 dev.csv"));
  EXPECT_THAT(Boxes(), ElementsAre("#199 75 #200 cTags.Update : Path/File access error"));
}

/// One network of each type with two devices that have tags, away from all defaults that a setter can change.
class WholeProjectTest : public ProjectSaveTest {
 protected:
  WholeProjectTest() {
    for (std::int32_t type = 0; type < kNetworkTypes; ++type) {
      const std::string name = "net " + std::to_string(type);
      cNetwork& network = AddNetwork(static_cast<NetworkType>(type), name);
      network.szH1_LocalMACAddress("00-11");
      network.szH1_BindMACAddress("22-33");
      network.szTCPISO_LocalIP("1.0.0.1");
      network.szTCPRW_LocalIP("1.0.0.2");
      network.szTCPIPK_LocalIP("1.0.0.3");
      for (const std::string device : {"x", "\xFC"}) Fill(AddDevice(network, device + std::to_string(type)));
    }
    EXPECT_TRUE(Save());
    EXPECT_THAT(WriteWarnings(), IsEmpty());
    for (const std::string& file : TagFiles()) directory.Write(file, Lines({"TAG1;MB1;RW", "Tag2;MB2;RO"}));
  }

  static void Fill(cDevice& device) {
    device.szH1_LocalTSAP("l");
    device.szH1_RemoteTSAP("r");
    device.szH1_RemoteMACAddress("m");
    device.szTCPIPK_RemoteIP("1.2.3.4");
  }
  static std::vector<std::string> TagFiles() {
    std::vector<std::string> names;
    for (int type = 0; type < kNetworkTypes; ++type) {
      for (const std::string device : {"x", "\xC3\xBC"}) names.push_back(device + std::to_string(type) + ".csv");
    }
    return names;
  }
  [[nodiscard]] std::map<std::string, std::string> Contents() const {
    std::vector<std::string> names = TagFiles();
    names.push_back("ZOPCSRV.ini");
    for (int type = 0; type < kNetworkTypes; ++type) names.push_back("net " + std::to_string(type) + ".ini");
    std::map<std::string, std::string> contents;
    for (const std::string& name : names) contents[name] = directory.Read(name);
    return contents;
  }
};

TEST_F(WholeProjectTest, ASavedProjectLoadsWithoutAWarningAndClean) {
  EXPECT_TRUE(Load());
  EXPECT_THAT(ReadWarnings(), IsEmpty());
  EXPECT_THAT(Boxes(), IsEmpty());
  EXPECT_FALSE(Project().bOpcProjectDirty());
  ASSERT_EQ(Project().Networks().Count(), kNetworkTypes);
  for (std::int32_t network = 1; network <= kNetworkTypes; ++network) {
    EXPECT_EQ(Network(network).nNetworkType(), network - 1);
    ASSERT_EQ(Network(network).Devices().Count(), 2);
    EXPECT_EQ(Device(network, 2).szDeviceName(), "\xFC" + std::to_string(network - 1));
    EXPECT_EQ(Device(network, 2).Tags().Count(), 2);
  }
}

TEST_F(WholeProjectTest, SavingWhatWasLoadedWritesTheSameBytes) {
  EXPECT_TRUE(Load());
  EXPECT_TRUE(Save());
  const auto first = Contents();
  EXPECT_TRUE(Load());
  EXPECT_TRUE(Save());
  EXPECT_EQ(Contents(), first);
  EXPECT_EQ(first.at("x3.csv").substr(0, 6), "TAG1;M");
}

}  // namespace
}  // namespace tavrin
