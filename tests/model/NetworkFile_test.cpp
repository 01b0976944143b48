#include "model/NetworkFile.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
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

using Keys = std::vector<std::pair<std::string, std::string>>;

/// Keys of a file without a fault, by type, in the order of the file.
const std::array<Keys, kNetworkTypes> kGoodKeys{
    Keys{{"Baudrate", "19200"},
         {"ComPort", "3"},
         {"MaxMPISlaveNo", "63"},
         {"OwnMPISlaveNo", "12"},
         {"CyclicTime", "50"},
         {"MaxSimultaneousMPILines", "8"}},
    Keys{{"CyclicTime", "60"}, {"LocalMacAddress", "08:00"}, {"BindMacAddress", "09:00"}},
    Keys{{"LocalIPAddress", "1.2.3.4"}},
    Keys{{"LocalIPAddress", "1.2.3.5"}},
    Keys{{"LocalIPAddress", "1.2.3.6"}},
};

/// The file "net.ini" read by a network "Net".
class NetworkFileTest : public ProjectTest {
 protected:
  /// Reads keys, one of which has another value (nothing: is missing). The result of Refresh; the network is `read`.
  bool Refresh(std::int32_t type, std::string_view changed = {}, const std::optional<std::string>& value = {}) {
    std::vector<std::string> lines{"[General]"};
    for (const auto& [key, good] : kGoodKeys[static_cast<std::size_t>(type)]) {
      if (key != changed) lines.push_back(key + "=" + good);
      if (key == changed && value) lines.push_back(key + "=" + *value);
    }
    return RefreshFrom(type, Lines(lines));
  }
  bool RefreshFrom(std::int32_t type, std::string_view bytes) {
    directory.Write("net.ini", bytes);
    modMain::globals.gOPC = std::make_unique<cOPC>();
    Project().Networks().AddItem(std::make_unique<cNetwork>());
    read = &Network(1);
    read->szNetworkName("Net");
    read->szFileName("net.ini");
    read->nNetworkType(type);
    bool bOK = false;
    read->Refresh(bOK);
    return bOK;
  }
  /// Warnings of this network with the given texts.
  static std::vector<std::string> Told(const std::vector<std::string>& texts) {
    std::vector<std::string> told;
    for (const std::string& text : texts) told.push_back("Network|net.ini|" + text);
    return told;
  }

  cNetwork* read = nullptr;
};

TEST_F(NetworkFileTest, EveryTypeReadsItsKeysAndLeavesTheFieldsOfTheOthers) {
  const std::array<std::map<std::string, std::string>, kNetworkTypes> expected{{
      {{"nMPI_Baudrate", "19200"},
       {"nMPI_COMPort", "3"},
       {"nMPI_MaxMPINo", "63"},
       {"nMPI_OwnMPINo", "12"},
       {"nMPI_CyclicTime", "50"},
       {"nMPI_MaxSimLines", "8"}},
      {{"nH1_CyclicTime", "60"}, {"szH1_LocalMACAddress", "08:00"}, {"szH1_BindMACAddress", "09:00"}},
      {{"szTCPISO_LocalIP", "1.2.3.4"}},
      {{"szTCPRW_LocalIP", "1.2.3.5"}},
      {{"szTCPIPK_LocalIP", "1.2.3.6"}},
  }};
  for (std::int32_t type = 0; type < kNetworkTypes; ++type) {
    SCOPED_TRACE(type);
    EXPECT_TRUE(Refresh(type));
    EXPECT_THAT(ReadWarnings(), IsEmpty());
    EXPECT_FALSE(read->bDataDirty());
    std::vector<std::string> fields = Fields(NetworkSettings{});
    fields = With(With(fields, "szNetworkName", "Net"), "szFileName", "net.ini");
    fields = With(With(fields, "nID", "1"), "nNetworkType", std::to_string(type));
    for (const auto& [name, value] : expected[static_cast<std::size_t>(type)]) fields = With(fields, name, value);
    EXPECT_EQ(Fields(read->Settings()), fields);
  }
}

/// What becomes of one key's value when all others are good.
struct LoadRow {
  std::int32_t type;
  std::string_view key;
  std::optional<std::string> value;  // nothing: the key is missing
  std::string_view field;
  std::string_view stored;
  std::vector<std::string> warnings{};
  bool ok = true;
};

class NetworkKeysTest : public NetworkFileTest {
 protected:
  void CheckAll(const std::vector<LoadRow>& rows) {
    for (const LoadRow& row : rows) {
      SCOPED_TRACE(std::string(row.key) + "=" + row.value.value_or("(missing)"));
      static_cast<void>(Refresh(row.type));
      const std::vector<std::string> good = Fields(read->Settings());
      EXPECT_EQ(Refresh(row.type, row.key, row.value), row.ok);
      EXPECT_EQ(Fields(read->Settings()), With(good, row.field, row.stored));
      EXPECT_EQ(ReadWarnings(), Told(row.warnings));
      EXPECT_FALSE(read->bDataDirty());
      EXPECT_THAT(Boxes(), IsEmpty());
    }
  }
};

TEST_F(NetworkKeysTest, BaudrateAndMaximumAreExactNumbersByTheirPrefixAndToldWithoutTheValue) {
  struct Row {
    std::string_view key;
    std::string_view field;
    std::string_view unchanged;
    std::vector<std::string> numbers;
  };
  for (const Row& row : std::vector<Row>{{"Baudrate", "nMPI_Baudrate", "38400", {"19200", "38400", "57600", "115200"}},
                                         {"MaxMPISlaveNo", "nMPI_MaxMPINo", "31", {"15", "31", "63", "126"}}}) {
    for (const std::string& number : row.numbers) {
      CheckAll({{0, row.key, number, row.field, number},
                {0, row.key, number + " ; comment", row.field, number},
                {0, row.key, number + "x", row.field, number},
                {0, row.key, number + ".0", row.field, number}});
    }
    const std::vector<std::string> told{"#207 " + std::string(row.key)};
    for (const char* value : {"9600", "40", "0", "x", "", "; x", "-15", "31.4", "14.9", "99999999999"}) {
      CheckAll({{0, row.key, value, row.field, row.unchanged, told, false}});
    }
    CheckAll({{0, row.key, std::nullopt, row.field, row.unchanged, told, false}});
  }
}

TEST_F(NetworkKeysTest, ComPortIsAWholeTextNumberFrom1) {
  CheckAll({
      {0, "ComPort", "1", "nMPI_COMPort", "1"},
      {0, "ComPort", " 7 ; comment", "nMPI_COMPort", "7"},
      {0, "ComPort", "+7", "nMPI_COMPort", "7"},
      {0, "ComPort", "999999", "nMPI_COMPort", "999999"},
      {0, "ComPort", "1.5", "nMPI_COMPort", "2"},  // ties to even
      {0, "ComPort", "2.5", "nMPI_COMPort", "2"},
      {0, "ComPort", "0", "nMPI_COMPort", "0", {"#207 ComPort (0)"}, false},
      {0, "ComPort", "0.9", "nMPI_COMPort", "0", {"#207 ComPort (0.9)"}, false},
      {0, "ComPort", "-1", "nMPI_COMPort", "0", {"#207 ComPort (-1)"}, false},
      {0, "ComPort", "3x", "nMPI_COMPort", "0", {"#207 ComPort (3x)"}, false},
      {0, "ComPort", "; 3", "nMPI_COMPort", "0", {"#207 ComPort ()"}, false},
      {0, "ComPort", "", "nMPI_COMPort", "0", {"#207 ComPort ()"}, false},
      {0, "ComPort", std::nullopt, "nMPI_COMPort", "0", {"#207 ComPort ()"}, false},
  });
}

TEST_F(NetworkKeysTest, AComPortInUseIsAFailureEvenIfTheNetworkItselfHasIt) {
  EXPECT_TRUE(Refresh(0));
  bool bOK = true;
  read->Refresh(bOK);
  EXPECT_FALSE(bOK);
  EXPECT_EQ(ReadWarnings(), Told({"#207 ComPort (3) #230"}));
}

TEST_F(NetworkKeysTest, OwnNumberAboveTheMaximumIsStoredAndTold) {
  CheckAll({
      {0, "OwnMPISlaveNo", "0", "nMPI_OwnMPINo", "0"},
      {0, "OwnMPISlaveNo", "63", "nMPI_OwnMPINo", "63"},
      {0, "OwnMPISlaveNo", "64 ; x", "nMPI_OwnMPINo", "64", {"#236 OwnMPISlaveNo (64)"}},
      {0, "OwnMPISlaveNo", "63.5", "nMPI_OwnMPINo", "64", {"#236 OwnMPISlaveNo (63.5)"}},
      {0, "OwnMPISlaveNo", "-1", "nMPI_OwnMPINo", "30", {"#207 OwnMPISlaveNo (-1)"}, false},
      {0, "OwnMPISlaveNo", "x", "nMPI_OwnMPINo", "30", {"#207 OwnMPISlaveNo (x)"}, false},
      {0, "OwnMPISlaveNo", std::nullopt, "nMPI_OwnMPINo", "30", {"#207 OwnMPISlaveNo ()"}, false},
  });
}

TEST_F(NetworkKeysTest, OwnNumberIsComparedWithTheMaximumAlsoWhenItsKeyFailed) {
  for (const std::string own : {"", "OwnMPISlaveNo=x"}) {
    const std::string shown = own.empty() ? "" : "x";
    EXPECT_FALSE(RefreshFrom(0, Lines({"[General]", "Baudrate=19200", "ComPort=1", "MaxMPISlaveNo=15", own,
                                       "CyclicTime=1", "MaxSimultaneousMPILines=1"})));
    EXPECT_EQ(ReadWarnings(), Told({"#207 OwnMPISlaveNo (" + shown + ")", "#236 OwnMPISlaveNo (" + shown + ")"}));
    EXPECT_EQ(read->nMPI_OwnMPINo(), 30);
  }
}

TEST_F(NetworkKeysTest, TimesAndLinesAreWholeTextNumbersFrom0WithoutAnUpperBound) {
  struct Row {
    std::int32_t type;
    std::string_view key;
    std::string_view field;
    std::string_view unchanged;
  };
  for (const Row& row :
       {Row{0, "CyclicTime", "nMPI_CyclicTime", "10"}, Row{0, "MaxSimultaneousMPILines", "nMPI_MaxSimLines", "4"},
        Row{1, "CyclicTime", "nH1_CyclicTime", "100"}}) {
    for (const auto& [value, stored] : Keys{{"0", "0"},
                                            {"-0", "0"},
                                            {"5000", "5000"},
                                            {"2147483647", "2147483647"},
                                            {"12.5", "12"},
                                            {"13.5", "14"},
                                            {".5", "0"},
                                            {"5. ; x", "5"}}) {
      CheckAll({{row.type, row.key, value, row.field, stored}});
    }
    for (const std::string bad : {"-1", "-0.1", "10 ms", "x", "1e3", "0x10", ""}) {
      CheckAll({{row.type,
                 row.key,
                 bad,
                 row.field,
                 row.unchanged,
                 {"#207 " + std::string(row.key) + " (" + bad + ")"},
                 false}});
    }
  }
}

TEST_F(NetworkKeysTest, MacAddressesAreAnyTextThatIsNotEmpty) {
  for (const auto& [key, field] :
       Keys{{"LocalMacAddress", "szH1_LocalMACAddress"}, {"BindMacAddress", "szH1_BindMACAddress"}}) {
    const std::vector<std::string> told{"#207 " + key + " ()"};
    CheckAll({{1, key, "Any \xE4 text ; x", field, "Any \xE4 text"},
              {1, key, "a\tb", field, "a"},
              {1, key, std::string(300, 'x'), field, std::string(254, 'x')},
              {1, key, "", field, "", told, false},
              {1, key, "; x", field, "", told, false},
              {1, key, std::nullopt, field, "", told, false}});
  }
}

TEST_F(NetworkKeysTest, LocalAddressesAreHeldAgainstFormAndRange) {
  const std::array<std::string_view, 3> fields{"szTCPISO_LocalIP", "szTCPRW_LocalIP", "szTCPIPK_LocalIP"};
  for (std::int32_t type = 2; type < kNetworkTypes; ++type) {
    const std::string_view field = fields[static_cast<std::size_t>(type) - 2];
    for (const char* good : {"0.0.0.0", "10.1.2.3", "127.0.0.2", "225.1.1.1", "a.b.c.d", "1.2.3.4x"}) {
      CheckAll({{type, "LocalIPAddress", good, field, good}});
    }
    for (const std::string bad : {"1.2.3", "256.1.1.1", "x", ""}) {
      CheckAll({{type, "LocalIPAddress", bad, field, "0.0.0.0", {"#207 LocalIPAddress (" + bad + ")"}, false}});
    }
    CheckAll({
        {type, "LocalIPAddress", std::nullopt, field, "0.0.0.0", {"#207 LocalIPAddress ()"}, false},
        {type, "LocalIPAddress", "224.1.1.1", field, "0.0.0.0", {"#238 :  LocalIPAddress (224.1.1.1)"}, false},
        {type, "LocalIPAddress", "127.0.0.1", field, "0.0.0.0", {"#239 :  LocalIPAddress (127.0.0.1)"}, false},
    });
  }
}

TEST_F(NetworkFileTest, AnEmptyFileWarnsAboutEveryKeyOfTheTypeInItsOrder) {
  const std::array<std::vector<std::string>, kNetworkTypes> expected{{
      {"#207 Baudrate", "#207 ComPort ()", "#207 MaxMPISlaveNo", "#207 OwnMPISlaveNo ()", "#207 CyclicTime ()",
       "#207 MaxSimultaneousMPILines ()"},
      {"#207 CyclicTime ()", "#207 LocalMacAddress ()", "#207 BindMacAddress ()"},
      {"#207 LocalIPAddress ()"},
      {"#207 LocalIPAddress ()"},
      {"#207 LocalIPAddress ()"},
  }};
  for (std::int32_t type = 0; type < kNetworkTypes; ++type) {
    SCOPED_TRACE(type);
    EXPECT_FALSE(RefreshFrom(type, ""));
    EXPECT_EQ(ReadWarnings(), Told(expected[static_cast<std::size_t>(type)]));
    EXPECT_EQ(read->Devices().Count(), 0);
  }
}

TEST_F(NetworkFileTest, OneFailedKeyAmongGoodOnesMakesTheResultFalse) {
  for (std::int32_t type = 0; type < kNetworkTypes; ++type) {
    for (const auto& [key, good] : kGoodKeys[static_cast<std::size_t>(type)]) {
      EXPECT_FALSE(Refresh(type, key, std::nullopt)) << key;
      EXPECT_EQ(ReadWarnings().size(), 1U) << key;
    }
  }
}

TEST_F(NetworkFileTest, AMissingFileIsToldUnderTheNameOfTheNetwork) {
  bool bOK = true;
  cNetwork& network = AddNetwork(NetworkType::H1, "Net");
  network.bDataDirty(true);
  network.Refresh(bOK);
  EXPECT_FALSE(bOK);
  EXPECT_THAT(ReadWarnings(), ElementsAre("Network|Net|#201 " + directory.Path() + "Net.ini"));
  EXPECT_FALSE(network.bDataDirty());
  EXPECT_EQ(network.Devices().Count(), 0);
}

TEST_F(NetworkFileTest, WithoutAFileNameTheDirectoryIsNoFile) {
  bool bOK = true;
  cNetwork network;
  network.szNetworkName("Net");
  network.Refresh(bOK);
  EXPECT_FALSE(bOK);
  EXPECT_THAT(ReadWarnings(), ElementsAre("Network|Net|#201 " + directory.Path()));
}

TEST_F(NetworkFileTest, AFileThatCannotBeReadCountsAsEmpty) {
  faults.reading = FaultyFiles::Fault{"net.ini", ErrorNumber::PathFileAccess};
  EXPECT_FALSE(Refresh(2));
  EXPECT_EQ(ReadWarnings(), Told({"#207 LocalIPAddress ()"}));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(NetworkFileTest, ANumberThatDoesNotFitIsAnErrorThatEndsTheLoadOfThisNetwork) {
  EXPECT_TRUE(RefreshFrom(1, Lines({"[General]", "CyclicTime=99999999999", "[dev]", "LocalTSAP=1"})));
  EXPECT_THAT(Boxes(), ElementsAre("#199 6 #200 cNetwork.Refresh : Overflow"));
  EXPECT_THAT(ReadWarnings(), IsEmpty());
  EXPECT_EQ(read->nH1_CyclicTime(), 100);
  EXPECT_EQ(read->Devices().Count(), 0);
  EXPECT_FALSE(read->bDataDirty());
}

TEST_F(NetworkFileTest, AnErrorLeavesTheResultThatWasReached) {
  EXPECT_FALSE(RefreshFrom(0, Lines({"[General]", "Baudrate=1", "ComPort=99999999999"})));
  EXPECT_THAT(Boxes(), ElementsAre("#199 6 #200 cNetwork.Refresh : Overflow"));
  EXPECT_EQ(ReadWarnings(), Told({"#207 Baudrate"}));
}

}  // namespace
}  // namespace tavrin
