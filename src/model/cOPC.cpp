#include "model/cOPC.h"

#include <algorithm>
#include <array>
#include <memory>

#include "model/NetworkFile.h"
#include "model/ProjectFile.h"
#include "model/SettingRules.h"
#include "model/shared/AtExit.h"
#include "model/shared/IniAccess.h"
#include "model/shared/Messages.h"
#include "model/shared/RightPane.h"
#include "model/shared/cWarnings.h"
#include "model/shared/modFiles.h"
#include "model/shared/modMain.h"
#include "model/shared/modParser.h"
#include "model/shared/modText.h"
#include "model/sheets/ProjectSheet.h"
#include "platform/CodePage.h"
#include "platform/NumberText.h"
#include "platform/controls/Tree.h"

namespace tavrin {

namespace {

using S = ProjectSettings;

/// True when `taken` holds for no device of the open project.
template <class Taken>
bool NoDevice(const Taken& taken) {
  for (const cNetwork& network : modMain::OpenProject().Networks()) {
    if (std::any_of(network.Devices().begin(), network.Devices().end(), taken)) return false;
  }
  return true;
}

/// Runs a uniqueness question; an error in it is told and leaves the answer at what it starts with.
template <class Question>
bool Ask(std::string_view label, const Question& question) {
  try {
    return question();
  } catch (...) {
    modMain::Trap(label);
    return true;
  }
}

constexpr std::string_view kRootKey = "#1";
// A node has the position of its sheet as its tag.
constexpr int kFirstNetworkTag = RightPane::kFirstNetworkSheet;
constexpr int kFirstDeviceTag = RightPane::kFirstDeviceSheet;

/// What the key of a node adds to that of its parent.
std::string KeyPart(std::int32_t nID) { return "#" + std::to_string(nID); }

/// Notes a failed Update of one file.
void CheckWritten(bool written, WarningKind kind, const std::string& szFileName, bool& bOK) {
  if (written) return;
  bOK = false;
  modMain::WriteWarnings().AddWarning(kind, szFileName, TextAnd(205, szFileName));
}

}  // namespace

cOPC::cOPC() {
  modMain::globals.gReadWarnings = std::make_unique<cWarnings>();
  modMain::globals.gWriteWarnings = std::make_unique<cWarnings>();
}

void cOPC::szFileName(std::string_view value) {
  if (!AcceptNotEmpty(value) || EqualIgnoringCase(value, settings_.szFileName)) return;
  const bool unique = modMain::OpenProject().CheckFilenameUnique(value);
  Store(&S::szFileName, value, unique || Refuse(NameProblem(212, value)));
}

std::string cOPC::szFullName() const { return modMain::globals.gszProjectDir + settings_.szFileName; }

void cOPC::nLogFileSize(std::int32_t value) {
  Store(&S::nLogFileSize, value, AcceptRange(value, 1, 10000, "1..10000"));
}

void cOPC::nCaseSensitive(std::int32_t value) { Store(&S::nCaseSensitive, value, AcceptRange(value, 0, 1, "0..1")); }

void cOPC::szUsedSeparator(std::string_view value) {
  const bool accepted = settings_.szACCEPTEDSEPARATORS.find(value) != std::string::npos;
  Store(&S::szUsedSeparator, value, accepted || Refuse(RangeRefused(settings_.szACCEPTEDSEPARATORS)));
}

void cOPC::szACCEPTEDSEPARATORS(std::string_view value) { Store(&S::szACCEPTEDSEPARATORS, value, true); }

void cOPC::nSaveTagsUppercase(std::int32_t value) {
  Store(&S::nSaveTagsUppercase, value, AcceptRange(value, 0, 1, "0..1"));
}

bool cOPC::CheckDeviceNameUnique(std::string_view name) const {
  return Ask("cOPC.CheckDeviceNameUnique : ", [&] {
    return NoDevice([&](const cDevice& device) { return EqualIgnoringCase(device.szDeviceName(), name); });
  });
}

bool cOPC::CheckNetworkNameUnique(std::string_view name) const {
  return Ask("cOPC.CheckNetworkNameUnique : ", [&] {
    const cNetworks& networks = modMain::OpenProject().Networks();
    return std::none_of(networks.begin(), networks.end(),
                        [&](const cNetwork& network) { return EqualIgnoringCase(network.szNetworkName(), name); });
  });
}

bool cOPC::CheckFilenameUnique(std::string_view name) const {
  return Ask("cOPC.CheckFilenameUnique : ", [&] {
    const cOPC& project = modMain::OpenProject();
    const auto isTaken = [&](const std::string& taken) { return EqualIgnoringCase(taken, name); };
    if (isTaken(project.szFileName())) return false;
    const cNetworks& networks = project.Networks();
    return std::none_of(networks.begin(), networks.end(),
                        [&](const cNetwork& network) { return isTaken(network.szFileName()); }) &&
           NoDevice(
               [&](const cDevice& device) { return isTaken(device.szFileName()) || isTaken(device.szTagFileName()); });
  });
}

bool cOPC::CheckMPICOMPortUnique(std::int32_t port) const {
  return Ask("cOPC.CheckMPICOMPortUnique : ", [&] {
    return std::none_of(networks_.begin(), networks_.end(), [&](const cNetwork& network) {
      return network.nNetworkType() == static_cast<std::int32_t>(NetworkType::Mpi) && network.nMPI_COMPort() == port;
    });
  });
}

std::int32_t cOPC::GetNewMPICOMPort() const {
  std::int32_t highest = 0;
  for (const cNetwork& network : networks_) {
    if (network.nNetworkType() == static_cast<std::int32_t>(NetworkType::Mpi)) {
      highest = std::max(highest, network.nMPI_COMPort());
    }
  }
  return NextNumber(highest);
}

void cOPC::AddNetwork(std::string szNetworkName, const std::string& file, bool& bOK) {
  const std::int32_t problem = NameCheckText(ParserIsValidNodeName(szNetworkName));
  if (problem != 0) {
    modMain::ReadWarnings().AddWarning(WarningKind::Network, szFileName(), NameProblem(problem, szNetworkName));
  }
  if (!modMain::OpenProject().CheckNetworkNameUnique(szNetworkName)) {
    modMain::ReadWarnings().AddWarning(WarningKind::Network, szFileName(), NameProblem(210, szNetworkName));
  }
  auto network = std::make_unique<cNetwork>();
  network->szNetworkName(szNetworkName);
  ReadNetworkEntry(*network, file, bOK);
  network->bDataDirty(false);
  networks_.AddItem(std::move(network));
}

void cOPC::RefreshFrom(const std::string& file, bool& bOK) {
  if (!FileExists(file)) {
    modMain::ReadWarnings().AddWarning(WarningKind::Opc, szFileName(), TextAnd(201, file));
    bOK = false;
    return;
  }
  ReadProjectKeys(settings_, file, bOK);
  for (const std::string& name : ReadIniSections(file)) {
    if (name != kGeneralSection) AddNetwork(name, file, bOK);
  }
  networks_.Refresh();
}

void cOPC::Refresh(bool& bOK) {
  bOK = true;
  modMain::globals.gReadWarnings = std::make_unique<cWarnings>();
  try {
    RefreshFrom(szFullName(), bOK);
  } catch (...) {
    modMain::Trap("cOPC.Refresh : ");
  }
  bDataDirty_ = false;
}

void cOPC::Update(bool bKeepDirty, bool& bOK) try {
  bOK = true;
  const std::string file = szFullName();
  RemoveBeforeRewrite(file);
  WriteProjectKeys(settings_, file);
  if (!bKeepDirty) bDataDirty_ = false;
  AppendEmptyLine(file);
  for (const cNetwork& network : networks_) {
    WriteNetworkEntry(network, file);
    AppendEmptyLine(file);
  }
} catch (...) {
  bOK = false;
  modMain::Trap("cOPC.Update : ");
}

void cOPC::UpdateNetwork(cNetwork& network, bool bKeepDirty, bool& bOK) {
  // The network's own Update removes its file, and the sections of its devices go into that same file: so each
  // network is finished with its devices before the next one starts.
  bool written = true;
  network.Update(bKeepDirty, written);
  CheckWritten(written, WarningKind::Network, network.szFileName(), bOK);
  for (cDevice& device : network.Devices()) {
    device.Update(bKeepDirty, written);
    CheckWritten(written, WarningKind::Device, device.szFileName(), bOK);
    CheckWritten(device.Tags().Update(), WarningKind::Device, device.szTagFileName(), bOK);
  }
}

void cOPC::UpdateAll(bool bKeepDirty, bool& bOK) try {
  bOK = true;
  modMain::globals.gWriteWarnings = std::make_unique<cWarnings>();
  bool written = true;
  Update(bKeepDirty, written);
  CheckWritten(written, WarningKind::Opc, szFileName(), bOK);
  for (cNetwork& network : networks_) UpdateNetwork(network, bKeepDirty, bOK);
} catch (...) {
  bOK = false;
  modMain::Trap("cOPC.UpdateAll : ");
}

void cOPC::Show(Grid& grid) const try {
  const AtExit redraw([&] { grid.Redraw(true); });
  grid.Redraw(false);
  FillSheet(grid, ProjectSheet(), *this);
  modMain::SetVisible(&grid);
} catch (...) {
  modMain::Trap("cOPC.Show : ");
}

void cOPC::ShowTVWStructure(Tree& tree) const try {
  tree.Clear();
  tree.Add("", std::string(kRootKey), ResText(10), "ROOT", 0, true);
  for (const cNetwork& network : networks_) {
    const std::string key = std::string(kRootKey) + KeyPart(network.nID());
    tree.Add(kRootKey, key, network.szNetworkName(), "NET", kFirstNetworkTag + network.nNetworkType(), true);
    for (const cDevice& device : network.Devices()) {
      // By the type of the network, which is what the user sees the device in.
      tree.Add(key, key + KeyPart(device.nID()), device.szDeviceName(), "DEVICE",
               kFirstDeviceTag + network.nNetworkType(), true);
    }
  }
  tree.Visible(true);
} catch (...) {
  modMain::Trap("cOPC.ShowTVWStructure : ");
}

bool cOPC::bOpcProjectDirty() const {
  const cOPC& project = modMain::OpenProject();
  bool dirty = project.bDataDirty();
  for (const cNetwork& network : project.Networks()) {
    dirty = dirty || network.bDataDirty();
    for (const cDevice& device : network.Devices()) dirty = dirty || device.bDataDirty() || device.Tags().AnyDirty();
  }
  return dirty;
}

}  // namespace tavrin
