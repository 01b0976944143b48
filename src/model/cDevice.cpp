#include "model/cDevice.h"

#include <algorithm>
#include <array>

#include "model/Choices.h"
#include "model/DeviceSection.h"
#include "model/NetworkSettings.h"
#include "model/SettingRules.h"
#include "model/cOPC.h"
#include "model/shared/AtExit.h"
#include "model/shared/IniAccess.h"
#include "model/shared/Messages.h"
#include "model/shared/RightPane.h"
#include "model/shared/cWarnings.h"
#include "model/shared/modMain.h"
#include "model/shared/modText.h"
#include "model/sheets/DeviceSheets.h"
#include "platform/CodePage.h"
#include "platform/NumberText.h"

namespace tavrin {

namespace {

using S = DeviceSettings;

constexpr std::array<std::int32_t, 3> kPlcNumbers{1, 2, 3};
constexpr std::array<std::int32_t, 2> kPlcNumbersWithoutIec{1, 2};
constexpr std::string_view kAllPlcNames = "S7/S5/ZELKAR IEC1131";

std::string_view PlcName(std::int32_t number, std::span<const std::string_view> names) {
  const bool known = number >= 1 && static_cast<std::size_t>(number) <= names.size();
  return known ? names[static_cast<std::size_t>(number) - 1] : std::string_view{};
}

std::int32_t PlcNumber(std::string_view name) {
  return static_cast<std::int32_t>(std::find(kPlcNames.begin(), kPlcNames.end(), name) - kPlcNames.begin()) + 1;
}

bool IsFreeForReadWrite(std::int32_t port) { return modMain::CurrentNetwork().CheckTCPRWPortNoUnique(port); }
bool IsFreeForIpkLocal(std::int32_t port) { return modMain::CurrentNetwork().CheckTCPIPKPortNoUnique(port, true); }

}  // namespace

void cDevice::nDeviceType(std::int32_t value) { Store(&S::nDeviceType, value, AcceptOneOf(value, kTypeNumbers)); }

std::string_view cDevice::szDeviceTypeName() const {
  const std::string_view name = NetworkTypeName(settings_.nDeviceType);
  return name.empty() ? "unbekannt !!!" : name;
}

void cDevice::szDeviceName(std::string_view value) { Store(&S::szDeviceName, value, AcceptNotEmpty(value)); }

void cDevice::szFileName(std::string_view value) { Store(&S::szFileName, value, AcceptNotEmpty(value)); }

void cDevice::szTagFileName(std::string_view value) {
  if (!AcceptNotEmpty(value)) return;
  tags_.szFileName(value);
  bDataDirty_ = true;
}

// What several types have alike.

void cDevice::StoreRights(std::string S::*field, std::string_view value) {
  const std::string rights = UpperCase(modMain::TrimBlanks(value));
  Store(field, rights, AcceptWord(rights, kRights, "RO / RW / OFF"));
}

void cDevice::StoreSimulation(std::string S::*field, std::string_view value) {
  // Kept as it was given, with its blanks and its case; only the test is made on the plain word.
  Store(field, value, AcceptWord(UpperCase(modMain::TrimBlanks(value)), kOnOff, "ON/OFF"));
}

void cDevice::StoreLocalPort(std::int32_t S::*field, std::int32_t value, bool isFree(std::int32_t)) {
  if (AcceptRange(value, 0, 65535, "0 .. 65535")) Store(field, value, isFree(value) || Refuse(ResText(233)));
}

void cDevice::StoreRwRemotePort(std::int32_t S::*field, std::int32_t value, std::int32_t otherDirection) {
  if (value == 0) {
    Store(field, value, true);
  } else if (AcceptRange(value, 1, 65535, "1 .. 65535")) {
    Store(field, value, value != otherDirection || Refuse(ResText(235)));
  }
}

void cDevice::StoreIpkRemotePort(std::int32_t S::*field, std::int32_t value) {
  if (!AcceptRange(value, 1, 65535, "1 .. 65535")) return;
  Store(field, value, modMain::CurrentNetwork().CheckTCPIPKPortNoUnique(value, false) || Refuse(ResText(233)));
}

// MPI

void cDevice::nMPI_SlaveNo(std::int32_t value) {
  if (value < 0) {
    Refuse(RangeRefused(">=0"));
  } else {
    Store(&S::nMPI_SlaveNo, value, modMain::CurrentNetwork().CheckMPISlaveNoUnique(value) || Refuse(ResText(229)));
  }
}

void cDevice::szMPI_DynamicTags(std::string_view value) { StoreRights(&S::szMPI_DynamicTags, value); }

void cDevice::nMPI_PLCType(std::int32_t value) { settings_.nMPI_PLCType = value; }

std::string_view cDevice::szMPI_PLCType() const { return kPlcNames.front(); }

void cDevice::szMPI_PLCType(std::string_view value) {
  if (value == kPlcNames.front()) nMPI_PLCType(1);
}

void cDevice::szMPI_Simulation(std::string_view value) { StoreSimulation(&S::szMPI_Simulation, value); }

// H1

void cDevice::szH1_LocalTSAP(std::string_view value) { Store(&S::szH1_LocalTSAP, value, AcceptNotEmpty(value)); }

void cDevice::szH1_RemoteTSAP(std::string_view value) { Store(&S::szH1_RemoteTSAP, value, AcceptNotEmpty(value)); }

void cDevice::szH1_RemoteMACAddress(std::string_view value) {
  Store(&S::szH1_RemoteMACAddress, value, AcceptNotEmpty(value));
}

void cDevice::szH1_Active(std::string_view value) {
  const std::string side = LowerCase(value);
  Store(&S::szH1_Active, side, AcceptWord(side, kSides, "remote/local"));
}

void cDevice::szH1_DynamicTags(std::string_view value) { StoreRights(&S::szH1_DynamicTags, value); }

void cDevice::nH1_PLCType(std::int32_t value) { Store(&S::nH1_PLCType, value, AcceptOneOf(value, kPlcNumbers)); }

std::string_view cDevice::szH1_PLCType() const { return PlcName(settings_.nH1_PLCType, kPlcNames); }

void cDevice::szH1_PLCType(std::string_view value) {
  if (AcceptWord(value, kPlcNames, kAllPlcNames)) nH1_PLCType(PlcNumber(value));
}

void cDevice::szH1_Simulation(std::string_view value) { StoreSimulation(&S::szH1_Simulation, value); }

// ISO over TCP/IP

void cDevice::nTCPISO_PLCType(std::int32_t /*value*/) { settings_.nTCPISO_PLCType = 1; }

std::string_view cDevice::szTCPISO_PLCType() const { return kPlcNames.front(); }

void cDevice::szTCPISO_PLCType(std::string_view value) {
  if (value == kPlcNames.front()) nTCPISO_PLCType(1);
}

void cDevice::nTCPISO_SlotNo(std::int32_t value) {
  Store(&S::nTCPISO_SlotNo, value, AcceptRange(value, 0, 255, "0 .. 255"));
}

void cDevice::szTCPISO_RemoteIP(std::string_view value) { Store(&S::szTCPISO_RemoteIP, value, AcceptNotEmpty(value)); }

void cDevice::szTCPISO_DynamicTags(std::string_view value) { StoreRights(&S::szTCPISO_DynamicTags, value); }

void cDevice::nTCPISO_CyclicTime(std::int32_t value) {
  Store(&S::nTCPISO_CyclicTime, value, AcceptRange(value, 20, 1000, "20..1000"));
}

void cDevice::szTCPISO_Simulation(std::string_view value) { StoreSimulation(&S::szTCPISO_Simulation, value); }

void cDevice::nTCPISO_PingEnabled(std::int32_t value) {
  Store(&S::nTCPISO_PingEnabled, value, AcceptRange(value, 0, 1, "0 .. 1"));
}

void cDevice::nTCPISO_MaxPDUSize(std::int32_t value) {
  const bool known = std::find(kPduSizes.begin(), kPduSizes.end(), value) != kPduSizes.end();
  Store(&S::nTCPISO_MaxPDUSize, value, known || Refuse(RangeRefused("240, 480, 960")));
}

// IPK over TCP/IP

void cDevice::nTCPIPK_LocalPortRead(std::int32_t value) {
  StoreLocalPort(&S::nTCPIPK_LocalPortRead, value, IsFreeForIpkLocal);
}

void cDevice::nTCPIPK_LocalPortWrite(std::int32_t value) {
  StoreLocalPort(&S::nTCPIPK_LocalPortWrite, value, IsFreeForIpkLocal);
}

void cDevice::szTCPIPK_RemoteIP(std::string_view value) {
  Store(&S::szTCPIPK_RemoteIP, value, AcceptAddress(value, false));
}

void cDevice::nTCPIPK_RemotePortRead(std::int32_t value) { StoreIpkRemotePort(&S::nTCPIPK_RemotePortRead, value); }

void cDevice::nTCPIPK_RemotePortWrite(std::int32_t value) { StoreIpkRemotePort(&S::nTCPIPK_RemotePortWrite, value); }

void cDevice::szTCPIPK_DynamicTags(std::string_view value) { StoreRights(&S::szTCPIPK_DynamicTags, value); }

void cDevice::nTCPIPK_PLCType(std::int32_t value) {
  Store(&S::nTCPIPK_PLCType, value, AcceptOneOf(value, kPlcNumbersWithoutIec));
}

std::string_view cDevice::szTCPIPK_PLCType() const { return PlcName(settings_.nTCPIPK_PLCType, kPlcWithoutIec); }

void cDevice::szTCPIPK_PLCType(std::string_view value) {
  if (AcceptWord(value, kPlcWithoutIec, "S7/S5")) nTCPIPK_PLCType(PlcNumber(value));
}

void cDevice::szTCPIPK_Simulation(std::string_view value) { StoreSimulation(&S::szTCPIPK_Simulation, value); }

// Read/Write over TCP/IP

void cDevice::nTCPRW_LocalPortRead(std::int32_t value) {
  StoreLocalPort(&S::nTCPRW_LocalPortRead, value, IsFreeForReadWrite);
}

void cDevice::nTCPRW_LocalPortWrite(std::int32_t value) {
  StoreLocalPort(&S::nTCPRW_LocalPortWrite, value, IsFreeForReadWrite);
}

void cDevice::szTCPRW_RemoteIP(std::string_view value) { Store(&S::szTCPRW_RemoteIP, value, AcceptNotEmpty(value)); }

void cDevice::nTCPRW_RemotePortRead(std::int32_t value) {
  StoreRwRemotePort(&S::nTCPRW_RemotePortRead, value, settings_.nTCPRW_RemotePortWrite);
}

void cDevice::nTCPRW_RemotePortWrite(std::int32_t value) {
  StoreRwRemotePort(&S::nTCPRW_RemotePortWrite, value, settings_.nTCPRW_RemotePortRead);
}

void cDevice::szTCPRW_DynamicTags(std::string_view value) { StoreRights(&S::szTCPRW_DynamicTags, value); }

void cDevice::nTCPRW_PLCType(std::int32_t value) {
  // The refusal names the type 3 as well, which a Read/Write device does not take.
  const bool known = value == 1 || value == 2;
  Store(&S::nTCPRW_PLCType, value, known || Refuse(RangeRefused(JoinNumbers(kPlcNumbers))));
}

std::string_view cDevice::szTCPRW_PLCType() const { return PlcName(settings_.nTCPRW_PLCType, kPlcWithoutIec); }

void cDevice::szTCPRW_PLCType(std::string_view value) {
  if (AcceptWord(value, kPlcWithoutIec, kAllPlcNames)) nTCPRW_PLCType(PlcNumber(value));
}

void cDevice::szTCPRW_Simulation(std::string_view value) { StoreSimulation(&S::szTCPRW_Simulation, value); }

std::int32_t cDevice::nTCPRW_MaxGapSize() const { return RoundToInt32(NumericPrefix(settings_.nTCPRW_MaxGapSize)); }

void cDevice::nTCPRW_MaxGapSize(std::int32_t value) {
  if (value == 0) return;  // told as the lower end of the range, yet without any effect
  Store(&S::nTCPRW_MaxGapSize, std::to_string(value), AcceptRange(value, 1, 200, "0 .. 200"));
}

void cDevice::nTCPRW_PingEnabled(std::int32_t value) {
  Store(&S::nTCPRW_PingEnabled, value, AcceptRange(value, 0, 1, "0 .. 1"));
}

// The sheet

void cDevice::Show(Grid& grid) const try {
  Desktop& desktop = modMain::Platform().desktop;
  const AtExit redraw([&] { grid.Redraw(true); });
  const AtExit pointer([&] { desktop.Pointer(MousePointer::Normal); });
  desktop.Pointer(MousePointer::Hourglass);
  grid.Redraw(false);
  const auto rows = DeviceSheet(nDeviceType());
  if (!rows.empty()) grid.Rows(1 + static_cast<int>(rows.size()));
  FillSheet(grid, rows, *this);
  tags_.Show(modMain::Pane().vsgTags, nDeviceType());
  modMain::SetVisible(&grid);
} catch (...) {
  modMain::Trap("cDevice.Show : ");
}

// The section in the file

std::string cDevice::szFullName() const { return modMain::globals.gszProjectDir + settings_.szFileName; }

std::int32_t cDevice::PlcTypeForTags() const {
  static constexpr std::array<std::int32_t S::*, kNetworkTypes> kFields{&S::nMPI_PLCType, &S::nH1_PLCType, nullptr,
                                                                        &S::nTCPRW_PLCType, &S::nTCPIPK_PLCType};
  const auto field = kFields[static_cast<std::size_t>(settings_.nDeviceType)];
  return field == nullptr ? 1 : settings_.*field;  // ISO devices are always S7
}

void cDevice::Refresh(bool& bOK) {
  bOK = true;
  try {
    ReadDeviceKeys(settings_, *this, szFullName(), bOK);
    if (!NetworkTypeName(settings_.nDeviceType).empty()) tags_.Refresh(settings_.nDeviceType, PlcTypeForTags());
  } catch (...) {
    modMain::Trap("cDevice.Refresh : ");
  }
  bDataDirty_ = false;
}

void cDevice::Update(bool bKeepDirty, bool& bOK) try {
  bOK = true;
  if (szFileName().empty()) {
    modMain::WriteWarnings().AddWarning(WarningKind::Device, "", TextAnd(216, szDeviceName()));
    return;
  }
  if (modMain::globals.gszProjectDir.empty()) {
    modMain::WriteWarnings().AddWarning(WarningKind::Device, modMain::RootFileName(), TextAnd(214, ""));
    return;
  }
  const std::string file = szFullName();
  WriteDeviceKeys(settings_, tags_, file);
  AppendEmptyLine(file);
  if (!bKeepDirty) bDataDirty_ = false;
} catch (...) {
  bOK = false;
  modMain::Trap("cDevice.Update : ");
}

}  // namespace tavrin
