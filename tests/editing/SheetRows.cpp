#include "editing/SheetRows.h"

#include <string>

namespace tavrin {

namespace {

constexpr std::string_view kDigits = "0123456789";
constexpr std::string_view kFlag = "01";
constexpr std::string_view kAddress = ".0123456789";
constexpr std::string_view kSeparator = "!/\\|";
constexpr std::string_view kFree = "all";

constexpr std::string_view kRights = "OFF|RO|RW";
constexpr std::string_view kSimulation = "ON|OFF";
constexpr std::string_view kRightsTold = "#204 RO / RW / OFF";
constexpr std::string_view kEmptyTold = "#204 #218";

constexpr RowCase Closed(std::string_view property) { return {property, kClosed, {}, {}, {}, {}, {}}; }
constexpr RowCase Rights(std::string_view property) {
  return {property, kRights, kFree, " ro ", "RO", "WO", kRightsTold};
}
constexpr RowCase Simulation(std::string_view property) {
  return {property, kSimulation, kFree, " on", " on", "1", "#204 ON/OFF"};
}
constexpr RowCase LocalAddress(std::string_view property) {
  return {property, kTextBox, kAddress, "10.0.0.1", "10.0.0.1", "1.2.3", "#232"};
}
constexpr RowCase Tsap(std::string_view property) {
  return {property, kTextBox, kDigits, "0102", "0102", "", kEmptyTold};
}
constexpr RowCase LocalPort(std::string_view property) {
  return {property, kTextBox, kDigits, "65535", "65535", "65536", "#204 0 .. 65535"};
}
constexpr RowCase RemotePort(std::string_view property) {
  return {property, kTextBox, kDigits, "1", "1", "65536", "#204 1 .. 65535"};
}

constexpr auto kOpc = std::to_array<RowCase>({
    Closed("szFileName"),
    {"nLogFileSize", kTextBox, kDigits, "5000", "5000", "0", "#204 1..10000"},
    {"nCaseSensitive", kTextBox, kFlag, "1", "1", "11", "#204 0..1"},
    {"szUsedSeparator", kTextBox, kSeparator, "!", "!", "//", "#204 /\\!|"},
    {"nSaveTagsUppercase", kTextBox, kFlag, "01", "1", "10", "#204 0..1"},
});

constexpr auto kMpiNetwork = std::to_array<RowCase>({
    Closed("szNetworkTypeName"),
    Closed("szFileName"),
    {"nMPI_Baudrate", "19200|38400|57600|115200", kFree, "115200", "115200", "300", ""},
    {"nMPI_COMPort", kTextBox, kDigits, "007", "7", "0", "#204 >=1"},
    {"nMPI_MaxMPINo", "15|31|63|126", kFree, "126", "126", "40", ""},
    {"nMPI_OwnMPINo", kTextBox, kDigits, "12", "12", "32", "#204 0 <= x <= 31"},
    {"nMPI_CyclicTime", kTextBox, kDigits, "20", "20", "19", "#204 20..1000"},
    {"nMPI_MaxSimLines", kTextBox, kDigits, "255", "255", "256", "#204 1..255"},
});

constexpr auto kH1Network = std::to_array<RowCase>({
    Closed("szNetworkTypeName"),
    Closed("szFileName"),
    {"szH1_LocalMACAddress", kTextBox, kDigits, "080006", "080006", "", kEmptyTold},
    {"szH1_BindMACAddress", kTextBox, kFree, "08-AB:\xE4;", "08-AB:\xE4;", "", kEmptyTold},
    {"nH1_CyclicTime", kTextBox, kFree, "59.6 ms", "60", "49", "#204 50..1000"},
});

constexpr auto kIsoNetwork =
    std::to_array<RowCase>({Closed("szNetworkTypeName"), Closed("szFileName"), LocalAddress("szTCPISO_LocalIP")});
constexpr auto kRwNetwork =
    std::to_array<RowCase>({Closed("szNetworkTypeName"), Closed("szFileName"), LocalAddress("szTCPRW_LocalIP")});
constexpr auto kIpkNetwork =
    std::to_array<RowCase>({Closed("szNetworkTypeName"), Closed("szFileName"), LocalAddress("szTCPIPK_LocalIP")});

constexpr auto kMpiDevice = std::to_array<RowCase>({
    Closed("szTagFileName"),
    {"nMPI_SlaveNo", kTextBox, kDigits, "05", "5", "32", "#204 0 <= x <= 31", true},
    Rights("szMPI_DynamicTags"),
    Simulation("szMPI_Simulation"),
});

constexpr auto kH1Device = std::to_array<RowCase>({
    Closed("szTagFileName"),
    {"szH1_PLCType", "S7|S5|ZELKAR IEC1131", kFree, "ZELKAR IEC1131", "ZELKAR IEC1131", "s5",
     "#204 S7/S5/ZELKAR IEC1131"},
    Tsap("szH1_LocalTSAP"),
    Tsap("szH1_RemoteTSAP"),
    {"szH1_RemoteMACAddress", kTextBox, kFree, "no address", "no address", "", kEmptyTold},
    {"szH1_Active", "remote|local", kFree, "LOCAL", "local", "none", "#204 remote/local"},
    Rights("szH1_DynamicTags"),
    Simulation("szH1_Simulation"),
});

constexpr auto kIsoDevice = std::to_array<RowCase>({
    Closed("szTagFileName"),
    {"nTCPISO_SlotNo", kTextBox, kDigits, "255", "255", "256", "#204 0 .. 255"},
    {"szTCPISO_RemoteIP", kTextBox, kFree, "no address", "no address", "", kEmptyTold, true},
    Rights("szTCPISO_DynamicTags"),
    {"nTCPISO_CyclicTime", kTextBox, kDigits, "1000", "1000", "1001", "#204 20..1000"},
    Simulation("szTCPISO_Simulation"),
    {"nTCPISO_PingEnabled", kTextBox, kDigits, "00", "0", "2", "#204 0 .. 1"},
    {"nTCPISO_MaxPDUSize", "240|480|960", kFree, "240", "240", "100", "#204 240, 480, 960"},
});

constexpr auto kRwDevice = std::to_array<RowCase>({
    Closed("szTagFileName"),
    {"szTCPRW_PLCType", "S7|S5", kFree, "S5", "S5", "ZELKAR IEC1131", "#204 S7/S5/ZELKAR IEC1131"},
    LocalPort("nTCPRW_LocalPortRead"),
    LocalPort("nTCPRW_LocalPortWrite"),
    {"szTCPRW_RemoteIP", kTextBox, kFree, "no address", "no address", "", kEmptyTold, true},
    RemotePort("nTCPRW_RemotePortRead"),
    RemotePort("nTCPRW_RemotePortWrite"),
    Rights("szTCPRW_DynamicTags"),
    Simulation("szTCPRW_Simulation"),
    {"nTCPRW_MaxGapSize", kTextBox, kDigits, "200", "200", "201", "#204 0 .. 200"},
    {"nTCPRW_PingEnabled", kTextBox, kDigits, "", "0", "2", "#204 0 .. 1"},
});

constexpr auto kIpkDevice = std::to_array<RowCase>({
    Closed("szTagFileName"),
    {"szTCPIPK_PLCType", "S7|S5", kFree, "S5", "S5", "ZELKAR IEC1131", "#204 S7/S5"},
    LocalPort("nTCPIPK_LocalPortRead"),
    LocalPort("nTCPIPK_LocalPortWrite"),
    {"szTCPIPK_RemoteIP", kTextBox, kAddress, "1.2.3.4", "1.2.3.4", "0.0.0.0", "#232"},
    RemotePort("nTCPIPK_RemotePortRead"),
    RemotePort("nTCPIPK_RemotePortWrite"),
    Rights("szTCPIPK_DynamicTags"),
    Simulation("szTCPIPK_Simulation"),
});

constexpr std::array<std::span<const RowCase>, kSheets> kAll{kOpc,       kMpiNetwork, kH1Network, kIsoNetwork,
                                                             kRwNetwork, kIpkNetwork, kMpiDevice, kH1Device,
                                                             kIsoDevice, kRwDevice,   kIpkDevice};

}  // namespace

std::span<const RowCase> ExpectedRows(int sheet) { return kAll.at(static_cast<std::size_t>(sheet)); }

std::string_view AllKeys() {
  static const std::string keys = [] {
    std::string made;
    for (int code = 32; code < 256; ++code) {
      if (code != 127) made += static_cast<char>(code);
    }
    return made;
  }();
  return keys;
}

}  // namespace tavrin
