#include <array>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/PaneTest.h"
#include "model/RawSettings.h"
#include "model/SettingTexts.h"
#include "model/cDevice.h"
#include "model/cNetwork.h"
#include "model/sheets/DeviceSheets.h"
#include "model/sheets/NetworkSheets.h"
#include "model/sheets/ProjectSheet.h"

namespace tavrin {
namespace {

using testing::ElementsAreArray;

/// The properties of a sheet's rows from row 1 on.
using Properties = std::vector<std::string_view>;

const Properties kProjectSheet{"szFileName", "nLogFileSize", "nCaseSensitive", "szUsedSeparator", "nSaveTagsUppercase"};

const std::array<Properties, 5> kNetworkSheets{{
    {"szNetworkTypeName", "szFileName", "nMPI_Baudrate", "nMPI_COMPort", "nMPI_MaxMPINo", "nMPI_OwnMPINo",
     "nMPI_CyclicTime", "nMPI_MaxSimLines"},
    {"szNetworkTypeName", "szFileName", "szH1_LocalMACAddress", "szH1_BindMACAddress", "nH1_CyclicTime"},
    {"szNetworkTypeName", "szFileName", "szTCPISO_LocalIP"},
    {"szNetworkTypeName", "szFileName", "szTCPRW_LocalIP"},
    {"szNetworkTypeName", "szFileName", "szTCPIPK_LocalIP"},
}};
constexpr std::array<std::string_view, 5> kTypeNames{"MPI over COMPort", "H1", "ISO over TCP/IP",
                                                     "Read/Write over TCP/IP", "IPK over TCP/IP"};

const std::array<Properties, 5> kDeviceSheets{{
    {"szTagFileName", "nMPI_SlaveNo", "szMPI_DynamicTags", "szMPI_Simulation"},
    {"szTagFileName", "szH1_PLCType", "szH1_LocalTSAP", "szH1_RemoteTSAP", "szH1_RemoteMACAddress", "szH1_Active",
     "szH1_DynamicTags", "szH1_Simulation"},
    {"szTagFileName", "nTCPISO_SlotNo", "szTCPISO_RemoteIP", "szTCPISO_DynamicTags", "nTCPISO_CyclicTime",
     "szTCPISO_Simulation", "nTCPISO_PingEnabled", "nTCPISO_MaxPDUSize"},
    {"szTagFileName", "szTCPRW_PLCType", "nTCPRW_LocalPortRead", "nTCPRW_LocalPortWrite", "szTCPRW_RemoteIP",
     "nTCPRW_RemotePortRead", "nTCPRW_RemotePortWrite", "szTCPRW_DynamicTags", "szTCPRW_Simulation",
     "nTCPRW_MaxGapSize", "nTCPRW_PingEnabled"},
    {"szTagFileName", "szTCPIPK_PLCType", "nTCPIPK_LocalPortRead", "nTCPIPK_LocalPortWrite", "szTCPIPK_RemoteIP",
     "nTCPIPK_RemotePortRead", "nTCPIPK_RemotePortWrite", "szTCPIPK_DynamicTags", "szTCPIPK_Simulation"},
}};

/// Gives each field a value of its own: a number its place behind 1000, a text its name.
template <class Settings, std::size_t N>
void FillDistinct(const std::array<NamedSetting<Settings>, N>& table, Settings& settings) {
  std::int32_t number = 1000;
  for (const NamedSetting<Settings>& field : table) {
    if (const auto* member = std::get_if<std::int32_t Settings::*>(&field.member)) {
      settings.** member = ++number;
    } else {
      settings.*std::get<std::string Settings::*>(field.member) = field.name;
    }
  }
}

using Values = std::map<std::string, std::string, std::less<>>;

/// The stored fields by their names; what is shown in place of a stored field is added by the test.
template <class Settings, std::size_t N>
Values ValuesOf(const std::array<NamedSetting<Settings>, N>& table, const Settings& settings) {
  Values values;
  for (const std::string& field : FieldTexts(table, settings)) {
    const std::size_t mark = field.find('=');
    values[field.substr(0, mark)] = field.substr(mark + 1);
  }
  return values;
}

std::vector<std::string> Picked(const Values& values, const Properties& properties) {
  std::vector<std::string> picked;
  for (const std::string_view property : properties) picked.push_back(values.find(property)->second);
  return picked;
}

template <class Owner>
Properties Named(std::span<const SheetRow<Owner>> rows) {
  Properties names;
  for (const SheetRow<Owner>& row : rows) names.push_back(row.property);
  return names;
}

class SheetsTest : public PaneTest {
 protected:
  /// Shows an object in its sheet and compares the column of values.
  template <class Owner>
  void ExpectShown(int sheet, const Owner& owner, const Values& values, const Properties& properties) {
    Grid& grid = *pane.Sheets().at(static_cast<std::size_t>(sheet));
    owner.Show(grid);
    EXPECT_THAT(Column(grid, 1), ElementsAreArray(Picked(values, properties))) << grid.Name();
  }
};

TEST_F(SheetsTest, EachRowOfTheProjectShowsItsProperty) {
  ProjectSettings& raw = RawSettings(Project());
  FillDistinct(kProjectSettings, raw);
  ExpectShown(0, Project(), ValuesOf(kProjectSettings, raw), kProjectSheet);
  EXPECT_EQ(Named(ProjectSheet()), kProjectSheet);
}

TEST_F(SheetsTest, EachRowOfEachTypeOfNetworkShowsItsProperty) {
  for (int type = 0; type < kNetworkTypes; ++type) {
    const auto index = static_cast<std::size_t>(type);
    cNetwork network;
    FillDistinct(kNetworkSettings, RawSettings(network));
    RawSettings(network).nNetworkType = type;
    Values values = ValuesOf(kNetworkSettings, network.Settings());
    values["szNetworkTypeName"] = kTypeNames.at(index);
    ExpectShown(RightPane::kFirstNetworkSheet + type, network, values, kNetworkSheets.at(index));
    EXPECT_EQ(Named(NetworkSheet(type)), kNetworkSheets.at(index)) << type;
  }
}

TEST_F(SheetsTest, EachRowOfEachTypeOfDeviceShowsItsProperty) {
  for (int type = 0; type < kNetworkTypes; ++type) {
    const auto index = static_cast<std::size_t>(type);
    cDevice device;
    DeviceSettings& raw = RawSettings(device);
    FillDistinct(kDeviceSettings, raw);
    raw.nDeviceType = type;
    raw.nH1_PLCType = 3;
    raw.nTCPRW_PLCType = 1;
    raw.nTCPIPK_PLCType = 2;
    raw.nTCPRW_MaxGapSize = "76.7";
    device.szTagFileName("tags.csv");
    Values values = ValuesOf(kDeviceSettings, raw);
    values.insert({{"szTagFileName", "tags.csv"},
                   {"szH1_PLCType", "ZELKAR IEC1131"},
                   {"szTCPRW_PLCType", "S7"},
                   {"szTCPIPK_PLCType", "S5"}});
    values["nTCPRW_MaxGapSize"] = "77";
    ExpectShown(RightPane::kFirstDeviceSheet + type, device, values, kDeviceSheets.at(index));
    EXPECT_EQ(Named(DeviceSheet(type)), kDeviceSheets.at(index)) << type;
  }
}

TEST_F(SheetsTest, NumbersArePlainDecimalTextAndTextsAreAsStored) {
  RawSettings(Project()).nLogFileSize = -1234567;
  RawSettings(Project()).szUsedSeparator = " ;\xE4 ";
  Project().Show(pane.vsgOPC);
  EXPECT_EQ(pane.vsgOPC.Text({2, 1}), "-1234567");
  EXPECT_EQ(pane.vsgOPC.Text({4, 1}), " ;\xE4 ");
}

TEST_F(SheetsTest, APlcTypeWithoutATextShowsNothing) {
  cDevice device;
  RawSettings(device).nDeviceType = 1;
  RawSettings(device).nH1_PLCType = 9;
  device.Show(pane.vsgH1DVC);
  EXPECT_EQ(pane.vsgH1DVC.Text({2, 1}), "");
}

TEST_F(SheetsTest, LabelsAndHeadingAreLeftAlone) {
  for (Grid* sheet : {&pane.vsgOPC, &pane.vsgMPINW, &pane.vsgMPIDVC}) {
    sheet->Text({0, 0}, "Property");
    sheet->Text({0, 1}, "Value");
    sheet->Text({1, 0}, "label");
  }
  Project().Show(pane.vsgOPC);
  cNetwork().Show(pane.vsgMPINW);
  cDevice().Show(pane.vsgMPIDVC);
  for (const Grid* sheet : {&pane.vsgOPC, &pane.vsgMPINW, &pane.vsgMPIDVC}) {
    EXPECT_EQ(sheet->Text({0, 0}) + "|" + sheet->Text({0, 1}) + "|" + sheet->Text({1, 0}), "Property|Value|label")
        << sheet->Name();
  }
}

}  // namespace
}  // namespace tavrin
