#include "model/sheets/DeviceSheets.h"

#include <array>

#include "model/NetworkSettings.h"
#include "model/cDevice.h"
#include "model/cNetwork.h"
#include "model/shared/Messages.h"
#include "model/shared/modMain.h"

namespace tavrin {

namespace {

using S = Shown<cDevice>;
using E = Edited<cDevice>;
using Row = SheetRow<cDevice>;

constexpr std::string_view kRightsList = "OFF|RO|RW";
constexpr std::string_view kOnOffList = "ON|OFF";

/// The highest address of the bus limits the address of a controller on it.
bool AssignSlaveNo(cDevice& device, std::string_view text) {
  const std::int32_t highest = modMain::CurrentNetwork().nMPI_MaxMPINo();
  const double number = NumericPrefix(text);
  if (number > highest) {
    modMain::Platform().desktop.ShowBox(RangeRefused("0 <= x <= " + std::to_string(highest)));
    return false;
  }
  device.nMPI_SlaveNo(E::ToNumber(text));
  return true;
}

constexpr Row kTagFileName{"szTagFileName", 106, S::Text<&cDevice::szTagFileName>,
                           E::ClosedText<&cDevice::szTagFileName>()};

constexpr auto kMpi = std::to_array<Row>({
    kTagFileName,
    {"nMPI_SlaveNo", 126, S::Text<&cDevice::nMPI_SlaveNo>, {CellEditor::TextBox, KeyClass::Digits, {}, AssignSlaveNo}},
    {"szMPI_DynamicTags", 130, S::Text<&cDevice::szMPI_DynamicTags>,
     E::TextOf<&cDevice::szMPI_DynamicTags>(kRightsList)},
    {"szMPI_Simulation", 136, S::Text<&cDevice::szMPI_Simulation>, E::TextOf<&cDevice::szMPI_Simulation>(kOnOffList)},
});

constexpr auto kH1 = std::to_array<Row>({
    kTagFileName,
    {"szH1_PLCType", 108, S::Text<&cDevice::szH1_PLCType>, E::TextOf<&cDevice::szH1_PLCType>("S7|S5|ZELKAR IEC1131")},
    {"szH1_LocalTSAP", 121, S::Text<&cDevice::szH1_LocalTSAP>, E::Text<&cDevice::szH1_LocalTSAP>(KeyClass::Digits)},
    {"szH1_RemoteTSAP", 122, S::Text<&cDevice::szH1_RemoteTSAP>, E::Text<&cDevice::szH1_RemoteTSAP>(KeyClass::Digits)},
    {"szH1_RemoteMACAddress", 123, S::Text<&cDevice::szH1_RemoteMACAddress>,
     E::Text<&cDevice::szH1_RemoteMACAddress>(KeyClass::Free)},
    {"szH1_Active", 124, S::Text<&cDevice::szH1_Active>, E::TextOf<&cDevice::szH1_Active>("remote|local")},
    {"szH1_DynamicTags", 130, S::Text<&cDevice::szH1_DynamicTags>, E::TextOf<&cDevice::szH1_DynamicTags>(kRightsList)},
    {"szH1_Simulation", 136, S::Text<&cDevice::szH1_Simulation>, E::TextOf<&cDevice::szH1_Simulation>(kOnOffList)},
});

constexpr auto kTcpIso = std::to_array<Row>({
    kTagFileName,
    {"nTCPISO_SlotNo", 140, S::Text<&cDevice::nTCPISO_SlotNo>, E::Number<&cDevice::nTCPISO_SlotNo>(KeyClass::Digits)},
    {"szTCPISO_RemoteIP", 125, S::Text<&cDevice::szTCPISO_RemoteIP>,
     E::Text<&cDevice::szTCPISO_RemoteIP>(KeyClass::Free, AfterEdit::KeepTyped)},
    {"szTCPISO_DynamicTags", 130, S::Text<&cDevice::szTCPISO_DynamicTags>,
     E::TextOf<&cDevice::szTCPISO_DynamicTags>(kRightsList)},
    {"nTCPISO_CyclicTime", 115, S::Text<&cDevice::nTCPISO_CyclicTime>,
     E::Number<&cDevice::nTCPISO_CyclicTime>(KeyClass::Digits)},
    {"szTCPISO_Simulation", 136, S::Text<&cDevice::szTCPISO_Simulation>,
     E::TextOf<&cDevice::szTCPISO_Simulation>(kOnOffList)},
    {"nTCPISO_PingEnabled", 295, S::Text<&cDevice::nTCPISO_PingEnabled>,
     E::StrictNumber<&cDevice::nTCPISO_PingEnabled>(KeyClass::Digits)},
    {"nTCPISO_MaxPDUSize", 297, S::Text<&cDevice::nTCPISO_MaxPDUSize>,
     E::NumberOf<&cDevice::nTCPISO_MaxPDUSize>("240|480|960")},
});

constexpr auto kTcpRw = std::to_array<Row>({
    kTagFileName,
    {"szTCPRW_PLCType", 108, S::Text<&cDevice::szTCPRW_PLCType>, E::TextOf<&cDevice::szTCPRW_PLCType>("S7|S5")},
    {"nTCPRW_LocalPortRead", 132, S::Text<&cDevice::nTCPRW_LocalPortRead>,
     E::Number<&cDevice::nTCPRW_LocalPortRead>(KeyClass::Digits)},
    {"nTCPRW_LocalPortWrite", 134, S::Text<&cDevice::nTCPRW_LocalPortWrite>,
     E::Number<&cDevice::nTCPRW_LocalPortWrite>(KeyClass::Digits)},
    {"szTCPRW_RemoteIP", 125, S::Text<&cDevice::szTCPRW_RemoteIP>,
     E::Text<&cDevice::szTCPRW_RemoteIP>(KeyClass::Free, AfterEdit::KeepTyped)},
    {"nTCPRW_RemotePortRead", 133, S::Text<&cDevice::nTCPRW_RemotePortRead>,
     E::Number<&cDevice::nTCPRW_RemotePortRead>(KeyClass::Digits)},
    {"nTCPRW_RemotePortWrite", 135, S::Text<&cDevice::nTCPRW_RemotePortWrite>,
     E::Number<&cDevice::nTCPRW_RemotePortWrite>(KeyClass::Digits)},
    {"szTCPRW_DynamicTags", 130, S::Text<&cDevice::szTCPRW_DynamicTags>,
     E::TextOf<&cDevice::szTCPRW_DynamicTags>(kRightsList)},
    {"szTCPRW_Simulation", 136, S::Text<&cDevice::szTCPRW_Simulation>,
     E::TextOf<&cDevice::szTCPRW_Simulation>(kOnOffList)},
    {"nTCPRW_MaxGapSize", 293, S::Text<&cDevice::nTCPRW_MaxGapSize>,
     E::Number<&cDevice::nTCPRW_MaxGapSize>(KeyClass::Digits)},
    {"nTCPRW_PingEnabled", 295, S::Text<&cDevice::nTCPRW_PingEnabled>,
     E::Number<&cDevice::nTCPRW_PingEnabled>(KeyClass::Digits)},
});

constexpr auto kTcpIpk = std::to_array<Row>({
    kTagFileName,
    {"szTCPIPK_PLCType", 108, S::Text<&cDevice::szTCPIPK_PLCType>, E::TextOf<&cDevice::szTCPIPK_PLCType>("S7|S5")},
    {"nTCPIPK_LocalPortRead", 132, S::Text<&cDevice::nTCPIPK_LocalPortRead>,
     E::Number<&cDevice::nTCPIPK_LocalPortRead>(KeyClass::Digits)},
    {"nTCPIPK_LocalPortWrite", 134, S::Text<&cDevice::nTCPIPK_LocalPortWrite>,
     E::Number<&cDevice::nTCPIPK_LocalPortWrite>(KeyClass::Digits)},
    {"szTCPIPK_RemoteIP", 125, S::Text<&cDevice::szTCPIPK_RemoteIP>,
     E::Text<&cDevice::szTCPIPK_RemoteIP>(KeyClass::Address)},
    {"nTCPIPK_RemotePortRead", 133, S::Text<&cDevice::nTCPIPK_RemotePortRead>,
     E::Number<&cDevice::nTCPIPK_RemotePortRead>(KeyClass::Digits)},
    {"nTCPIPK_RemotePortWrite", 135, S::Text<&cDevice::nTCPIPK_RemotePortWrite>,
     E::Number<&cDevice::nTCPIPK_RemotePortWrite>(KeyClass::Digits)},
    {"szTCPIPK_DynamicTags", 130, S::Text<&cDevice::szTCPIPK_DynamicTags>,
     E::TextOf<&cDevice::szTCPIPK_DynamicTags>(kRightsList)},
    {"szTCPIPK_Simulation", 136, S::Text<&cDevice::szTCPIPK_Simulation>,
     E::TextOf<&cDevice::szTCPIPK_Simulation>(kOnOffList)},
});

constexpr std::array<std::span<const Row>, kNetworkTypes> kSheets{kMpi, kH1, kTcpIso, kTcpRw, kTcpIpk};

}  // namespace

std::span<const SheetRow<cDevice>> DeviceSheet(std::int32_t nDeviceType) {
  if (nDeviceType < 0 || nDeviceType >= kNetworkTypes) return {};
  return kSheets[static_cast<std::size_t>(nDeviceType)];
}

}  // namespace tavrin
