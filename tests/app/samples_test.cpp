#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "app/SampleProjects.h"
#include "app/TavrinctlRun.h"
#include "support/TemporaryDirectory.h"

/// The sample plant, as the real program loads and writes it.

namespace tavrin {
namespace {

using nlohmann::ordered_json;
using testing::ElementsAre;
using testing::IsEmpty;

/// Fields in their order, without the list of what is below.
std::string Fields(ordered_json item, const char* list) {
  item.erase(list);
  return item.dump(1);
}

/// The fields of one type beside the others of the default.
std::string Changed(ordered_json item, const ordered_json& changes) {
  for (const auto& change : changes.items()) {
    EXPECT_TRUE(item.contains(change.key())) << change.key();
    item[change.key()] = change.value();
  }
  return item.dump(1);
}

TEST(PlantSample, LoadsWithoutAWordInEveryLanguage) {
  for (const char* language : {"de", "en", "numbers"}) {
    const ProgramRun run = CallTavrinctl({std::string("--language=") + language, "check", kPlant + kRoot});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out + run.err, "");
  }
}

TEST(PlantSample, IsWrittenAsItStands) {
  const TemporaryDirectory once;
  const TemporaryDirectory twice;
  ASSERT_EQ(CallTavrinctl({"resave", kPlant + kRoot, once.Path()}).status, 0);
  EXPECT_THAT(Differences(kPlant, once.Path()), IsEmpty());
  ASSERT_EQ(CallTavrinctl({"resave", once.Path() + kRoot, twice.Path()}).status, 0);
  EXPECT_THAT(Differences(once.Path(), twice.Path()), IsEmpty());
}

TEST(PlantSample, HasAllKindsOfNetworksAndHundredsOfTags) {
  std::set<int> types;
  std::size_t devices = 0;
  std::size_t tags = 0;
  const ordered_json shown = Show(kPlant);
  for (const auto& network : shown["project"]["Networks"]) {
    types.insert(network["nNetworkType"].get<int>());
    EXPECT_EQ(network["szFileName"], network["szNetworkName"].get<std::string>() + ".ini");
    for (const auto& device : network["Devices"]) {
      ++devices;
      tags += device["Tags"].size();
      EXPECT_EQ(device["szTagFileName"], device["szDeviceName"].get<std::string>() + ".csv");
    }
  }
  EXPECT_THAT(types, ElementsAre(0, 1, 2, 3, 4));
  EXPECT_GE(devices, 12U);
  EXPECT_GE(tags, 500U);
}

TEST(PlantSample, ShowsTheOutcomeBeforeTheProject) {
  const ordered_json shown = Show(kPlant);
  std::vector<std::string> keys;
  for (const auto& item : shown.items()) keys.push_back(item.key());
  EXPECT_THAT(keys, ElementsAre("bOK", "boxes", "warnings", "project"));
  EXPECT_EQ(shown["bOK"], true);
  EXPECT_THAT(shown["boxes"], IsEmpty());
  EXPECT_THAT(shown["warnings"], IsEmpty());
  EXPECT_EQ(Fields(shown["project"], "Networks"), ordered_json::parse(R"({"szFileName": "ZOPCSRV.ini",
      "nLogFileSize": 5000, "nCaseSensitive": 0, "szUsedSeparator": "/", "nSaveTagsUppercase": 0,
      "bDataDirty": false})")
                                                      .dump(1));
}

TEST(PlantSample, ShowsEveryFieldOfANetworkOfEachType) {
  const auto defaults = ordered_json::parse(R"({"nID": 0, "nNetworkType": 0, "szNetworkName": "", "szFileName": "",
      "nMPI_Baudrate": 38400, "nMPI_COMPort": 0, "nMPI_MaxMPINo": 31, "nMPI_OwnMPINo": 30, "nMPI_CyclicTime": 10,
      "nMPI_MaxSimLines": 4, "szH1_LocalMACAddress": "", "szH1_BindMACAddress": "", "nH1_CyclicTime": 100,
      "szTCPISO_LocalIP": "0.0.0.0", "szTCPRW_LocalIP": "0.0.0.0", "szTCPIPK_LocalIP": "0.0.0.0",
      "bDataDirty": false})");
  const ordered_json networks = Show(kPlant)["project"]["Networks"];
  for (const char* changes : {
           R"({"nID": 2, "szNetworkName": "Spuelanlage", "szFileName": "Spuelanlage.ini", "nMPI_Baudrate": 115200,
               "nMPI_COMPort": 2, "nMPI_MaxMPINo": 15, "nMPI_OwnMPINo": 1, "nMPI_CyclicTime": 50,
               "nMPI_MaxSimLines": 2})",
           R"({"nID": 3, "nNetworkType": 2, "szNetworkName": "Leitnetz", "szFileName": "Leitnetz.ini",
               "szTCPISO_LocalIP": "192.168.10.5"})",
           R"({"nID": 4, "nNetworkType": 3, "szNetworkName": "Brunnenfeld", "szFileName": "Brunnenfeld.ini"})",
           R"({"nID": 5, "nNetworkType": 1, "szNetworkName": "Chemie", "szFileName": "Chemie.ini",
               "szH1_LocalMACAddress": "080006010005", "szH1_BindMACAddress": "08000601000A",
               "nH1_CyclicTime": 200})",
           R"({"nID": 6, "nNetworkType": 4, "szNetworkName": "Aussenstationen", "szFileName": "Aussenstationen.ini",
               "szTCPIPK_LocalIP": "10.30.0.5"})"}) {
    const auto expected = ordered_json::parse(changes);
    const auto& network = Find(networks, "szNetworkName", expected["szNetworkName"]);
    EXPECT_EQ(Fields(network, "Devices"), Changed(defaults, expected));
  }
}

TEST(PlantSample, ShowsEveryFieldOfADeviceOfEachType) {
  const auto defaults = ordered_json::parse(R"({"nID": 0, "nDeviceType": 0, "szDeviceName": "", "szFileName": "",
      "szTagFileName": "", "nMPI_SlaveNo": 0, "szMPI_DynamicTags": "RW", "nMPI_PLCType": 1,
      "szMPI_Simulation": "OFF", "szH1_LocalTSAP": "", "szH1_RemoteTSAP": "", "szH1_RemoteMACAddress": "",
      "szH1_Active": "remote", "szH1_DynamicTags": "RW", "nH1_PLCType": 1, "szH1_Simulation": "OFF",
      "nTCPISO_PLCType": 1, "nTCPISO_SlotNo": 2, "szTCPISO_RemoteIP": "0.0.0.1", "szTCPISO_DynamicTags": "RW",
      "nTCPISO_CyclicTime": 10, "szTCPISO_Simulation": "OFF", "nTCPISO_PingEnabled": 1, "nTCPISO_MaxPDUSize": 960,
      "nTCPRW_LocalPortRead": 0, "nTCPRW_LocalPortWrite": 0, "szTCPRW_RemoteIP": "0.0.0.1",
      "nTCPRW_RemotePortRead": 0, "nTCPRW_RemotePortWrite": 0, "szTCPRW_DynamicTags": "RW", "nTCPRW_PLCType": 1,
      "szTCPRW_Simulation": "OFF", "nTCPRW_MaxGapSize": "30", "nTCPRW_PingEnabled": 1, "nTCPIPK_LocalPortRead": 0,
      "nTCPIPK_LocalPortWrite": 0, "szTCPIPK_RemoteIP": "", "nTCPIPK_RemotePortRead": 0,
      "nTCPIPK_RemotePortWrite": 0, "szTCPIPK_DynamicTags": "RW", "nTCPIPK_PLCType": 1,
      "szTCPIPK_Simulation": "OFF", "bDataDirty": false})");
  const ordered_json networks = Show(kPlant)["project"]["Networks"];
  for (const auto& [network, changes] : std::map<std::string, std::string>{
           {"Filterhalle", R"({"nID": 2, "szDeviceName": "Filterstrasse_B", "szFileName": "Filterhalle.ini",
               "szTagFileName": "Filterstrasse_B.csv", "nMPI_SlaveNo": 3, "szMPI_DynamicTags": "RO"})"},
           {"Leitnetz", R"({"nID": 4, "nDeviceType": 2, "szDeviceName": "Pruefplatz", "szFileName": "Leitnetz.ini",
               "szTagFileName": "Pruefplatz.csv", "szTCPISO_RemoteIP": "192.168.10.99", "nTCPISO_CyclicTime": 20,
               "szTCPISO_Simulation": "ON", "nTCPISO_PingEnabled": 0})"},
           {"Brunnenfeld", R"({"nID": 3, "nDeviceType": 3, "szDeviceName": "Brunnen_3",
               "szFileName": "Brunnenfeld.ini", "szTagFileName": "Brunnen_3.csv", "nTCPRW_LocalPortRead": 3004,
               "nTCPRW_LocalPortWrite": 3005, "szTCPRW_RemoteIP": "10.20.1.13", "nTCPRW_RemotePortRead": 2000,
               "nTCPRW_RemotePortWrite": 2001, "szTCPRW_DynamicTags": "RO", "nTCPRW_PLCType": 2,
               "nTCPRW_MaxGapSize": "120", "nTCPRW_PingEnabled": 0})"},
           {"Chemie", R"({"nID": 3, "nDeviceType": 1, "szDeviceName": "Labor", "szFileName": "Chemie.ini",
               "szTagFileName": "Labor.csv", "szH1_LocalTSAP": "12", "szH1_RemoteTSAP": "22",
               "szH1_RemoteMACAddress": "080006010023", "szH1_Active": "local", "szH1_DynamicTags": "OFF",
               "nH1_PLCType": 3, "szH1_Simulation": "ON"})"},
           {"Aussenstationen", R"({"nID": 1, "nDeviceType": 4, "szDeviceName": "Hebewerk_Sued",
               "szFileName": "Aussenstationen.ini", "szTagFileName": "Hebewerk_Sued.csv",
               "nTCPIPK_LocalPortRead": 4000, "nTCPIPK_LocalPortWrite": 4001, "szTCPIPK_RemoteIP": "10.30.1.10",
               "nTCPIPK_RemotePortRead": 2100, "nTCPIPK_RemotePortWrite": 2101, "szTCPIPK_DynamicTags": "RO",
               "nTCPIPK_PLCType": 2})"}}) {
    const auto expected = ordered_json::parse(changes);
    const auto& devices = Find(networks, "szNetworkName", network)["Devices"];
    EXPECT_EQ(Fields(Find(devices, "szDeviceName", expected["szDeviceName"]), "Tags"), Changed(defaults, expected));
  }
}

TEST(PlantSample, ShowsTagsInUtf8) {
  const ordered_json networks = Show(kPlant)["project"]["Networks"];
  const auto& tags = Find(Find(networks, "szNetworkName", "Leitnetz")["Devices"], "szDeviceName", "Energie")["Tags"];
  EXPECT_EQ(Find(tags, "szTag", "Trafo1.Öltemperatur.Wert").dump(1), ordered_json::parse(R"({
      "szTag": "Trafo1.Öltemperatur.Wert", "szData": "DB40.DBD20", "szRW": "RO", "szHystLB": "0.5",
      "szHystUB": "0.5", "szLB": "-20", "szUB": "120", "szComment": "Trafo 1 Öltemperatur in °C", "szTest": "",
      "bDataDirty": false})")
                                                                         .dump(1));
  EXPECT_EQ(Find(tags, "szTag", "Zähler.Tarif")["szComment"], "Preis in € je kWh");
  EXPECT_EQ(Find(tags, "szTag", "Zähler.Tarif")["szTest"], "0.21");
}

TEST(PlantSample, EveryNumberLiesWhereTheEditorAcceptsIt) {
  const std::map<std::string, std::pair<int, int>> ranges{{"nMPI_COMPort", {1, 256}},
                                                          {"nMPI_CyclicTime", {20, 1000}},
                                                          {"nMPI_MaxSimLines", {1, 255}},
                                                          {"nH1_CyclicTime", {50, 1000}},
                                                          {"nTCPISO_SlotNo", {0, 255}},
                                                          {"nTCPISO_CyclicTime", {20, 1000}},
                                                          {"nTCPIPK_RemotePortRead", {1, 65535}},
                                                          {"nTCPIPK_RemotePortWrite", {1, 65535}}};
  const std::map<std::string, int> types{{"nMPI", 0}, {"nH1_", 1}, {"nTCPISO", 2}, {"nTCPIPK", 4}};
  const auto check = [&](const ordered_json& item, const char* typeField) {
    for (const auto& [field, range] : ranges) {
      const auto type =
          std::find_if(types.begin(), types.end(), [&, name = std::string_view(field)](const auto& entry) {
            return name.substr(0, entry.first.size()) == entry.first;
          });
      if (!item.contains(field) || item[typeField] != type->second) continue;
      EXPECT_GE(item[field].get<int>(), range.first) << field;
      EXPECT_LE(item[field].get<int>(), range.second) << field;
    }
  };
  const ordered_json shown = Show(kPlant);
  for (const auto& network : shown["project"]["Networks"]) {
    check(network, "nNetworkType");
    for (const auto& device : network["Devices"]) check(device, "nDeviceType");
  }
}

}  // namespace
}  // namespace tavrin
