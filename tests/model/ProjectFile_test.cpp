#include "model/ProjectFile.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/SettingTexts.h"
#include "model/cOPC.h"
#include "support/ProjectTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// Reads project files into the open project; networks have no file of their own unless a test writes one.
class ProjectFileTest : public ProjectTest {
 protected:
  bool Refresh(const std::vector<std::string>& lines) {
    directory.Write("ZOPCSRV.ini", Lines(lines));
    modMain::globals.gOPC = std::make_unique<cOPC>();
    Project().szFileName("ZOPCSRV.ini");
    bool bOK = false;
    Project().Refresh(bOK);
    return bOK;
  }
  /// The same with a good section General before the lines.
  bool RefreshNetworks(std::vector<std::string> lines) {
    lines.insert(lines.begin(), {"[General]", "LogFileSize=500"});
    return Refresh(lines);
  }
  /// The warnings without those about the missing files of the networks.
  static std::vector<std::string> RootWarnings() {
    std::vector<std::string> told;
    for (const std::string& warning : ReadWarnings()) {
      if (warning.find("|#201 ") == std::string::npos) told.push_back(warning);
    }
    return told;
  }
  std::vector<std::string> NetworksRead() {
    std::vector<std::string> read;
    for (const cNetwork& network : Project().Networks()) {
      read.push_back(network.szNetworkName() + "|" + std::to_string(network.nNetworkType()) + "|" +
                     network.szFileName());
    }
    return read;
  }
};

TEST_F(ProjectFileTest, AMissingFileIsToldAndNothingIsRead) {
  Project().nLogFileSize(77);
  modMain::ReadWarnings().AddWarning(WarningKind::Tag, "", "of the load before");
  bool bOK = true;
  Project().Refresh(bOK);
  EXPECT_FALSE(bOK);
  EXPECT_THAT(ReadWarnings(), ElementsAre("OPC|ZOPCSRV.ini|#201 " + directory.Path() + "ZOPCSRV.ini"));
  EXPECT_EQ(Project().nLogFileSize(), 77);
  EXPECT_FALSE(Project().bDataDirty());
}

TEST_F(ProjectFileTest, AFileWithoutNetworksLoadsWithTheLogFileSizeAlone) {
  EXPECT_TRUE(Refresh({"[General]", "LogFileSize=500"}));
  EXPECT_THAT(ReadWarnings(), IsEmpty());
  EXPECT_EQ(Project().Networks().Count(), 0);
  EXPECT_EQ(Project().nLogFileSize(), 500);
  EXPECT_FALSE(Project().bDataDirty());
}

TEST_F(ProjectFileTest, AnEmptyFileWarnsOfTheLogFileSizeOnly) {
  EXPECT_FALSE(Refresh({}));
  EXPECT_THAT(ReadWarnings(), ElementsAre("OPC|ZOPCSRV.ini|#207 LogFileSize ()"));
}

/// What becomes of one key when the others are good.
struct RootRow {
  std::string_view key;
  std::optional<std::string> value;  // nothing: the key is missing
  std::string_view field;
  std::string_view stored;
  std::string warning{};  // empty: none, and the load is good
};

TEST_F(ProjectFileTest, KeysOfGeneralTakeWhatTheServerTakesAndWarnUnderFixedWords) {
  const std::string size = "OPC|ZOPCSRV.ini|#207 LogFileSize ";
  const std::string sensitive = "OPC|0|#207 CaseSensitive ";
  const std::string other = "OPC|1|#207 CaseSensitive ";  // the case setting stands for the file, here it is 1
  const std::vector<RootRow> rows{
      {"LogFileSize", "1", "nLogFileSize", "1"},
      {"LogFileSize", "20000 ; x", "nLogFileSize", "20000"},
      {"LogFileSize", "0", "nLogFileSize", "0"},
      {"LogFileSize", "4.5", "nLogFileSize", "4"},
      {"LogFileSize", "5.5", "nLogFileSize", "6"},
      {"LogFileSize", "-1", "nLogFileSize", "10000", size + "(-1)"},
      {"LogFileSize", "-0.2", "nLogFileSize", "10000", size + "(-0.2)"},
      {"LogFileSize", "10k", "nLogFileSize", "10000", size + "(10k)"},
      {"LogFileSize", "; x", "nLogFileSize", "10000", size + "()"},
      {"LogFileSize", "", "nLogFileSize", "10000", size + "()"},
      {"LogFileSize", std::nullopt, "nLogFileSize", "10000", size + "()"},
      {"CaseSensitive", "0", "nCaseSensitive", "0"},
      {"CaseSensitive", "7", "nCaseSensitive", "7"},
      {"CaseSensitive", "-1", "nCaseSensitive", "0", sensitive + "(-1)"},
      {"CaseSensitive", "yes", "nCaseSensitive", "0", sensitive + "(yes)"},
      {"CaseSensitive", "; x", "nCaseSensitive", "0", sensitive + "()"},
      {"CaseSensitive", "", "nCaseSensitive", "0", sensitive + "()"},
      {"CaseSensitive", std::nullopt, "nCaseSensitive", "0"},
      {"UsedSeparator", "x", "szUsedSeparator", "x"},
      {"UsedSeparator", "any text", "szUsedSeparator", "any text"},
      {"UsedSeparator", "; x", "szUsedSeparator", ""},
      {"UsedSeparator", "", "szUsedSeparator", "/", "OPC|/|#207 UsedSeparator ()"},
      {"UsedSeparator", std::nullopt, "szUsedSeparator", "/"},
      {"TagsAlwaysUppercase", "0", "nSaveTagsUppercase", "0"},
      {"TagsAlwaysUppercase", "2", "nSaveTagsUppercase", "2"},
      {"TagsAlwaysUppercase", "-1", "nSaveTagsUppercase", "0", other + "(-1)"},
      {"TagsAlwaysUppercase", "x", "nSaveTagsUppercase", "0", other + "(x)"},
      {"TagsAlwaysUppercase", "", "nSaveTagsUppercase", "0", other + "()"},
      {"TagsAlwaysUppercase", std::nullopt, "nSaveTagsUppercase", "0"},
  };
  const std::vector<std::pair<std::string, std::string>> good{
      {"LogFileSize", "500"}, {"CaseSensitive", "1"}, {"UsedSeparator", "!"}, {"TagsAlwaysUppercase", "1"}};
  const std::vector<std::string> fields{"szFileName=ZOPCSRV.ini", "nLogFileSize=500", "nCaseSensitive=1",
                                        "szUsedSeparator=!", "nSaveTagsUppercase=1"};
  for (const RootRow& row : rows) {
    SCOPED_TRACE(std::string(row.key) + "=" + row.value.value_or("(missing)"));
    std::vector<std::string> lines{"[General]"};
    for (const auto& [key, value] : good) {
      if (key != row.key) lines.push_back(key + "=" + value);
      if (key == row.key && row.value) lines.push_back(key + "=" + *row.value);
    }
    EXPECT_EQ(Refresh(lines), row.warning.empty());
    EXPECT_EQ(Fields(Project().Settings()), With(fields, row.field, row.stored));
    EXPECT_EQ(ReadWarnings(), row.warning.empty() ? std::vector<std::string>{} : std::vector{row.warning});
    EXPECT_THAT(Boxes(), IsEmpty());
  }
}

TEST_F(ProjectFileTest, KeysOfGeneralAreToldInTheOrderOfTheFormat) {
  EXPECT_FALSE(Refresh({"[General]", "TagsAlwaysUppercase=x", "UsedSeparator=", "CaseSensitive=y", "LogFileSize=z"}));
  EXPECT_THAT(ReadWarnings(), ElementsAre("OPC|ZOPCSRV.ini|#207 LogFileSize (z)", "OPC|0|#207 CaseSensitive (y)",
                                          "OPC|/|#207 UsedSeparator ()", "OPC|0|#207 CaseSensitive (x)"));
}

TEST_F(ProjectFileTest, EverySectionButGeneralIsANetworkInTheOrderOfTheFile) {
  EXPECT_TRUE(Refresh({"[b]", "Protocol=IPKoverTCPIP", "Configuration=b.ini", "[General]", "LogFileSize=500", "[]",
                       "[a]", "Protocol=H1", "Configuration=sub\\a.ini ; x"}));
  EXPECT_THAT(NetworksRead(), ElementsAre("b|4|b.ini", "a|1|sub\\a.ini"));
  EXPECT_EQ(Network(1).nID(), 1);
  EXPECT_EQ(Network(2).nID(), 2);
  EXPECT_FALSE(Network(1).bDataDirty());
}

TEST_F(ProjectFileTest, GeneralInAnotherCaseIsANetwork) {
  EXPECT_FALSE(Refresh({"[general]", "LogFileSize=500"}));
  EXPECT_THAT(NetworksRead(), ElementsAre("general|0|"));
  EXPECT_EQ(Project().nLogFileSize(), 500);
}

TEST_F(ProjectFileTest, ProtocolIsOneOfFiveWordsInExactSpelling) {
  struct Row {
    std::string line;
    std::int32_t type;
    bool told = false;
  };
  for (const Row& row : std::vector<Row>{{"Protocol=MPIoverCOMPORT", 0},
                                         {"Protocol=H1 ; x", 1},
                                         {"Protocol=ISOoverTCPIP", 2},
                                         {"Protocol=RWoverTCPIP", 3},
                                         {"protocol=IPKoverTCPIP", 4},
                                         {"Protocol=h1", 0},
                                         {"Protocol=isoOVERtcpip", 0},
                                         {"Protocol=other", 0},
                                         {"Protocol=", 0, true},
                                         {"Protocol=; H1", 0, true},
                                         {"Other=H1", 0, true}}) {
    SCOPED_TRACE(row.line);
    EXPECT_EQ(RefreshNetworks({"[net]", row.line, "Configuration=net.ini"}), !row.told);
    EXPECT_EQ(Network(1).nNetworkType(), row.type);
    const std::vector<std::string> told{"OPC|ZOPCSRV.ini|#207 Protocol ()"};
    EXPECT_EQ(RootWarnings(), row.told ? told : std::vector<std::string>{});
  }
}

TEST_F(ProjectFileTest, ConfigurationIsTheFileOfTheNetworkAndMustNotBeEmpty) {
  struct Row {
    std::string line;
    std::string warning;
  };
  for (const Row& row : std::vector<Row>{{"Configuration=; net.ini", "#207 Configuration ()"},
                                         {"Configuration=", "#207 Configuration:"},
                                         {"Other=net.ini", "#207 Configuration:"}}) {
    SCOPED_TRACE(row.line);
    EXPECT_FALSE(RefreshNetworks({"[net]", "Protocol=H1", row.line}));
    EXPECT_THAT(NetworksRead(), ElementsAre("net|1|"));
    EXPECT_THAT(ReadWarnings(), ElementsAre("OPC|ZOPCSRV.ini|" + row.warning, "Network|net|#201 " + directory.Path()));
  }
}

TEST_F(ProjectFileTest, AFileNameInUseIsToldAndTakenAllTheSame) {
  EXPECT_TRUE(RefreshNetworks({"[a]", "Protocol=H1", "Configuration=net.ini", "[b]", "Protocol=H1",
                               "Configuration=NET.INI", "[c]", "Protocol=H1", "Configuration=zopcsrv.ini"}));
  EXPECT_THAT(NetworksRead(), ElementsAre("a|1|net.ini", "b|1|NET.INI", "c|1|zopcsrv.ini"));
  EXPECT_EQ(RootWarnings()[0], "Network|ZOPCSRV.ini|#212 (NET.INI)");
  EXPECT_EQ(RootWarnings()[1], "Network|ZOPCSRV.ini|#212 (zopcsrv.ini)");
}

TEST_F(ProjectFileTest, ResultsOfTheNameCheckAreToldAndTheNetworkIsLoaded) {
  syntax.nodeName = [](std::string& name) { return name[0] - '0'; };
  std::vector<std::string> lines;
  for (const std::string name : {"0a", "1b", "2c", "3d", "4e", "9f"}) {
    for (const std::string& line : {"[" + name + "]", std::string("Protocol=H1"), "Configuration=" + name}) {
      lines.push_back(line);
    }
  }
  EXPECT_TRUE(RefreshNetworks(lines));
  EXPECT_THAT(RootWarnings(), ElementsAre("Network|ZOPCSRV.ini|#225 (1b)", "Network|ZOPCSRV.ini|#224 (2c)",
                                          "Network|ZOPCSRV.ini|#223 (3d)"));
  EXPECT_EQ(Project().Networks().Count(), 6);
}

TEST_F(ProjectFileTest, ANameThatTheCheckHasNormalisedIsUsedFromThenOn) {
  syntax.nodeName = [](std::string& name) {
    name = name.substr(0, 1);
    return 1;
  };
  EXPECT_TRUE(RefreshNetworks({"[a]", "Protocol=H1", "Configuration=a.ini", "[abc]"}));
  EXPECT_THAT(RootWarnings(), ElementsAre("Network|ZOPCSRV.ini|#225 (a)", "Network|ZOPCSRV.ini|#225 (a)",
                                          "Network|ZOPCSRV.ini|#210 (a)", "Network|ZOPCSRV.ini|#212 (a.ini)"));
  EXPECT_THAT(NetworksRead(), ElementsAre("a|1|a.ini", "a|1|a.ini"));
}

// The list has both names, but the keys of the second section are never found: the first of a name counts.
TEST_F(ProjectFileTest, TwoSectionsThatDifferOnlyInCaseAreTwoNetworksOfTheFirstSectionsKeys) {
  EXPECT_TRUE(RefreshNetworks({"[K\xE4lte]", "Protocol=H1", "Configuration=a.ini", "[K\xC4LTE]",
                               "Protocol=ISOoverTCPIP", "Configuration=b.ini"}));
  EXPECT_THAT(NetworksRead(), ElementsAre("K\xE4lte|1|a.ini", "K\xC4LTE|1|a.ini"));
  EXPECT_THAT(RootWarnings(), ElementsAre("Network|ZOPCSRV.ini|#210 (K\xC4LTE)", "Network|ZOPCSRV.ini|#212 (a.ini)"));
}

TEST_F(ProjectFileTest, WarningsOfANetworkStandInTheOrderOfItsTestsAndBeforeThoseOfAnyNetworkFile) {
  const std::string name(33, 'x');
  EXPECT_FALSE(RefreshNetworks({"[" + name + "]", "Configuration=a.ini", "[b]", "Protocol=H1", "[" + name + "]"}));
  const std::string file = "|ZOPCSRV.ini|";
  EXPECT_THAT(ReadWarnings(),
              ElementsAre("Network" + file + "#225 (" + name + ")", "OPC" + file + "#207 Protocol ()",
                          "OPC" + file + "#207 Configuration:", "Network" + file + "#225 (" + name + ")",
                          "Network" + file + "#210 (" + name + ")", "OPC" + file + "#207 Protocol ()",
                          "Network" + file + "#212 (a.ini)", "Network|" + name + "|#201 " + directory.Path() + "a.ini",
                          "Network|b|#201 " + directory.Path(),
                          "Network|" + name + "|#201 " + directory.Path() + "a.ini"));
}

TEST_F(ProjectFileTest, TheFirstMpiNetworkKeepsAPortThatTwoHave) {
  const std::vector<std::string> keys{
      "[General]",     "Baudrate=19200",           "ComPort=1", "MaxMPISlaveNo=31", "OwnMPISlaveNo=1",
      "CyclicTime=20", "MaxSimultaneousMPILines=4"};
  directory.Write("a.ini", Lines(keys));
  directory.Write("b.ini", Lines(keys));
  EXPECT_TRUE(RefreshNetworks({"[a]", "Protocol=MPIoverCOMPORT", "Configuration=a.ini", "[b]",
                               "Protocol=MPIoverCOMPORT", "Configuration=b.ini"}));
  EXPECT_EQ(Network(1).nMPI_COMPort(), 1);
  EXPECT_EQ(Network(2).nMPI_COMPort(), 0);
  EXPECT_THAT(ReadWarnings(), ElementsAre("Network|b.ini|#207 ComPort (1) #230"));
}

TEST_F(ProjectFileTest, NetworksBehindTheEndOfTheSectionListAreSilentlyNotLoaded) {
  std::vector<std::string> lines;
  for (int i = 100; i < 140; ++i) {
    lines.push_back("[" + std::string(27, 'n') + std::to_string(i) + "]");
    lines.push_back("Protocol=H1");
    lines.push_back("Configuration=" + std::to_string(i));
  }
  EXPECT_FALSE(RefreshNetworks(lines));  // the name that is cut has no section, so no Protocol
  EXPECT_EQ(Project().Networks().Count(), 33);
  EXPECT_EQ(Network(33).szNetworkName(), std::string(22, 'n'));
}

TEST_F(ProjectFileTest, ANumberThatDoesNotFitIsAnErrorThatEndsTheLoad) {
  EXPECT_TRUE(Refresh({"[General]", "LogFileSize=99999999999", "CaseSensitive=1", "[net]"}));
  EXPECT_THAT(Boxes(), ElementsAre("#199 6 #200 cOPC.Refresh : Overflow"));
  EXPECT_EQ(Project().nLogFileSize(), 10000);
  EXPECT_EQ(Project().nCaseSensitive(), 0);
  EXPECT_EQ(Project().Networks().Count(), 0);
  EXPECT_FALSE(Project().bDataDirty());
}

TEST_F(ProjectFileTest, AnErrorInTheMiddleLeavesTheNetworksMadeSoFarUnread) {
  syntax.nodeName = [](std::string& name) -> std::int32_t {
    if (name == "b") throw RuntimeError(ErrorNumber::InvalidCall);
    return 0;
  };
  EXPECT_TRUE(RefreshNetworks({"[a]", "Protocol=H1", "Configuration=a.ini", "[b]", "[c]"}));
  EXPECT_THAT(Boxes(), ElementsAre("#199 5 #200 cOPC.Refresh : Invalid procedure call or argument"));
  EXPECT_THAT(NetworksRead(), ElementsAre("a|1|a.ini"));
  EXPECT_FALSE(Network(1).bDataDirty());
  EXPECT_THAT(ReadWarnings(), IsEmpty());  // the missing a.ini would be told
}

TEST_F(ProjectFileTest, ReadingTwiceDoublesTheNetworksAndReadsTheFirstOnesAgain) {
  directory.Write("a.ini", Lines({"[General]", "CyclicTime=50", "LocalMacAddress=1", "BindMacAddress=2", "[dev]"}));
  EXPECT_TRUE(RefreshNetworks({"[a]", "Protocol=H1", "Configuration=a.ini"}));
  bool bOK = false;
  Project().Refresh(bOK);
  EXPECT_TRUE(bOK);
  EXPECT_THAT(NetworksRead(), ElementsAre("a|1|a.ini", "a|1|a.ini"));
  EXPECT_EQ(Network(1).Devices().Count(), 2);
  EXPECT_EQ(Network(2).Devices().Count(), 1);
  ASSERT_THAT(RootWarnings(), SizeIs(testing::Gt(2U)));
  EXPECT_EQ(RootWarnings()[0], "Network|ZOPCSRV.ini|#210 (a)");
  EXPECT_EQ(RootWarnings()[1], "Network|ZOPCSRV.ini|#212 (a.ini)");
  EXPECT_EQ(RootWarnings()[2], "Device|a.ini|#211 (dev)");
}

}  // namespace
}  // namespace tavrin
