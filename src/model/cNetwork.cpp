#include "model/cNetwork.h"

#include <algorithm>
#include <array>
#include <memory>

#include "model/Choices.h"
#include "model/NetworkFile.h"
#include "model/SettingRules.h"
#include "model/cOPC.h"
#include "model/shared/AtExit.h"
#include "model/shared/IniAccess.h"
#include "model/shared/Messages.h"
#include "model/shared/cWarnings.h"
#include "model/shared/modFiles.h"
#include "model/shared/modMain.h"
#include "model/shared/modParser.h"
#include "model/shared/modText.h"
#include "model/sheets/NetworkSheets.h"
#include "platform/NumberText.h"

namespace tavrin {

namespace {

bool IsOfType(const cDevice& device, NetworkType type) {
  return device.nDeviceType() == static_cast<std::int32_t>(type);
}

}  // namespace

using S = NetworkSettings;

void cNetwork::nNetworkType(std::int32_t value) { Store(&S::nNetworkType, value, AcceptOneOf(value, kTypeNumbers)); }

void cNetwork::szNetworkName(std::string_view value) { Store(&S::szNetworkName, value, true); }

void cNetwork::szFileName(std::string_view value) {
  if (!AcceptNotEmpty(value)) return;
  Store(&S::szFileName, value, true);
  for (cDevice& device : devices_) device.szFileName(settings_.szFileName);
}

std::string cNetwork::szFullName() const { return modMain::globals.gszProjectDir + settings_.szFileName; }

void cNetwork::nMPI_Baudrate(std::int32_t value) { Store(&S::nMPI_Baudrate, value, AcceptOneOf(value, kBaudrates)); }

void cNetwork::nMPI_COMPort(std::int32_t value) {
  if (value < 1) {
    Refuse(RangeRefused(">=1"));
  } else {
    Store(&S::nMPI_COMPort, value, modMain::OpenProject().CheckMPICOMPortUnique(value) || Refuse(ResText(230)));
  }
}

void cNetwork::nMPI_MaxMPINo(std::int32_t value) {
  Store(&S::nMPI_MaxMPINo, value, AcceptOneOf(value, kMaxMpiNumbers));
  if (value < settings_.nMPI_OwnMPINo) Refuse(ResText(236));
}

void cNetwork::nMPI_OwnMPINo(std::int32_t value) {
  const std::string allowed = "0 <= x <= " + std::to_string(settings_.nMPI_MaxMPINo);
  if (!AcceptRange(value, 0, settings_.nMPI_MaxMPINo, allowed)) return;
  Store(&S::nMPI_OwnMPINo, value, modMain::CurrentNetwork().CheckMPISlaveNoUnique(value) || Refuse(ResText(229)));
}

void cNetwork::nMPI_CyclicTime(std::int32_t value) {
  Store(&S::nMPI_CyclicTime, value, AcceptRange(value, 20, 1000, "20..1000"));
}

void cNetwork::nMPI_MaxSimLines(std::int32_t value) {
  Store(&S::nMPI_MaxSimLines, value, AcceptRange(value, 1, 255, "1..255"));
}

void cNetwork::szH1_LocalMACAddress(std::string_view value) {
  Store(&S::szH1_LocalMACAddress, value, AcceptNotEmpty(value));
}

void cNetwork::szH1_BindMACAddress(std::string_view value) {
  Store(&S::szH1_BindMACAddress, value, AcceptNotEmpty(value));
}

void cNetwork::nH1_CyclicTime(std::int32_t value) {
  Store(&S::nH1_CyclicTime, value, AcceptRange(value, 50, 1000, "50..1000"));
}

void cNetwork::szTCPIPK_LocalIP(std::string_view value) {
  Store(&S::szTCPIPK_LocalIP, value, AcceptAddress(value, true));
}

void cNetwork::szTCPISO_LocalIP(std::string_view value) {
  Store(&S::szTCPISO_LocalIP, value, AcceptAddress(value, true));
}

void cNetwork::szTCPRW_LocalIP(std::string_view value) {
  Store(&S::szTCPRW_LocalIP, value, AcceptAddress(value, true));
}

void cNetwork::AddDevice(std::string szDeviceName) {
  const std::int32_t problem = NameCheckText(ParserIsValidNodeName(szDeviceName));
  if (problem != 0) {
    modMain::ReadWarnings().AddWarning(WarningKind::Device, szFileName(), NameProblem(problem, szDeviceName));
  }
  if (!modMain::OpenProject().CheckDeviceNameUnique(szDeviceName)) {
    modMain::ReadWarnings().AddWarning(WarningKind::Device, szFileName(), NameProblem(211, szDeviceName));
  }
  auto device = std::make_unique<cDevice>();
  device->nDeviceType(nNetworkType());
  device->szDeviceName(szDeviceName);
  device->szFileName(szFileName());
  device->bDataDirty(false);
  devices_.AddItem(std::move(device));
}

void cNetwork::Refresh(bool& bOK) {
  bOK = true;
  try {
    const std::string file = szFullName();
    if (FileExists(file)) {
      ReadNetworkKeys(settings_, file, bOK);
      for (const std::string& name : ReadIniSections(file)) {
        if (name != kGeneralSection) AddDevice(name);
      }
      devices_.Refresh();
    } else {
      modMain::ReadWarnings().AddWarning(WarningKind::Network, szNetworkName(), TextAnd(201, file));
      bOK = false;
    }
  } catch (...) {
    modMain::Trap("cNetwork.Refresh : ");
  }
  bDataDirty_ = false;
}

void cNetwork::Update(bool bKeepDirty, bool& bOK) try {
  bOK = true;
  const std::string file = szFullName();
  RemoveBeforeRewrite(file);
  if (szFileName().empty()) {
    modMain::WriteWarnings().AddWarning(WarningKind::Network, "", TextAnd(215, szNetworkName()));
    return;
  }
  if (modMain::globals.gszProjectDir.empty()) {
    modMain::WriteWarnings().AddWarning(WarningKind::Network, modMain::RootFileName(), TextAnd(214, ""));
    return;
  }
  WriteNetworkKeys(settings_, file);
  AppendEmptyLine(file);
  if (!bKeepDirty) bDataDirty_ = false;
} catch (...) {
  bOK = false;
  modMain::Trap("cNetwork.Update : ");
}

void cNetwork::Show(Grid& grid) const try {
  const AtExit redraw([&] { grid.Redraw(true); });
  grid.Redraw(false);
  FillSheet(grid, NetworkSheet(nNetworkType()), *this);
  modMain::SetVisible(&grid);
} catch (...) {
  modMain::Trap("cNetwork.Show : ");
}

bool cNetwork::CheckMPISlaveNoUnique(std::int32_t number) const {
  const bool usedByDevice = std::any_of(devices_.begin(), devices_.end(), [&](const cDevice& device) {
    return IsOfType(device, NetworkType::Mpi) && device.nMPI_SlaveNo() == number;
  });
  return !usedByDevice && number != settings_.nMPI_OwnMPINo;
}

bool cNetwork::CheckTCPRWPortNoUnique(std::int32_t port) const {
  return port == 0 || std::none_of(devices_.begin(), devices_.end(), [&](const cDevice& device) {
           return IsOfType(device, NetworkType::TcpRw) &&
                  (device.nTCPRW_LocalPortRead() == port || device.nTCPRW_LocalPortWrite() == port);
         });
}

bool cNetwork::CheckTCPIPKPortNoUnique(std::int32_t port, bool local) const {
  return std::none_of(devices_.begin(), devices_.end(), [&](const cDevice& device) {
    const std::int32_t read = local ? device.nTCPIPK_LocalPortRead() : device.nTCPIPK_RemotePortRead();
    const std::int32_t write = local ? device.nTCPIPK_LocalPortWrite() : device.nTCPIPK_RemotePortWrite();
    return IsOfType(device, NetworkType::TcpIpk) && (read == port || write == port);
  });
}

std::int32_t cNetwork::GetNewMPISlaveNo() const {
  std::int32_t highest = 0;
  for (const cDevice& device : devices_) {
    if (IsOfType(device, NetworkType::Mpi)) highest = std::max(highest, device.nMPI_SlaveNo());
  }
  return highest == 0 ? 2 : NextNumber(highest);
}

}  // namespace tavrin
