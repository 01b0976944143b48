#include "shell/StructureCommands.h"

#include <memory>
#include <string>
#include <utility>

#include "model/cDevice.h"
#include "model/cNetwork.h"
#include "model/cOPC.h"
#include "model/shared/Messages.h"
#include "model/shared/modMain.h"
#include "online/frmTest.h"
#include "platform/CodePage.h"
#include "shell/frmCreate.h"
#include "shell/frmOPC.h"

namespace tavrin {

namespace {

constexpr int kMpi = 0;
// A node has the position of its sheet as its tag.
constexpr int kFirstNetworkTag = RightPane::kFirstNetworkSheet;
constexpr int kFirstDeviceTag = RightPane::kFirstDeviceSheet;

void TellTaken(int text, std::string_view name) { modMain::Platform().desktop.ShowBox(NameProblem(text, name)); }

/// The devices of the network are looked at apart: each of the same name is told.
bool IsNameOfNewDevice(const std::string& name, const cNetwork& network) {
  bool free = modMain::OpenProject().CheckDeviceNameUnique(name);
  if (!free) TellTaken(211, name);
  for (const cDevice& device : network.Devices()) {
    if (!EqualIgnoringCase(device.szDeviceName(), name)) continue;
    TellTaken(211, name);
    free = false;
  }
  return free;
}

}  // namespace

StructureCommands::StructureCommands(frmOPC& form) : form_(form) {
  form_.mnuEdit.ForEach([this](MenuEntry& entry) { entry.OnClick = [this, &entry] { mnuEdit_Click(entry.Index()); }; });
}

void StructureCommands::mnuEdit_Click(int index) try {
  switch (index) {
    case 1: return AddNetwork();
    case 2: return DeleteNetwork();
    case 3: return AddDevice();
    case 4: return DeleteDevice();
    case 5: return form_.tvwMain.StartLabelEdit();
    case 6: return Test();
    default: return;
  }
} catch (...) {
  modMain::Trap("frmOPC.mnuEdit_Click : ");
}

void StructureCommands::AddNetwork() {
  frmCreate dialog(frmCreate::kNetwork);
  modMain::Platform().desktop.ShowModal(dialog);
  if (dialog.bCancel) return;
  cOPC& project = modMain::OpenProject();
  if (!project.CheckNetworkNameUnique(dialog.szName)) return TellTaken(210, dialog.szName);

  auto made = std::make_unique<cNetwork>();
  cNetwork& network = *made;
  network.szNetworkName(dialog.szName);
  network.szFileName(dialog.szName + ".ini");
  network.nNetworkType(dialog.nType);
  project.Networks().AddItem(std::move(made));
  if (dialog.nType == kMpi) network.nMPI_COMPort(project.GetNewMPICOMPort());
  form_.tvwMain.Add("#1", "#1#" + std::to_string(network.nID()), network.szNetworkName(), "NET",
                    network.nNetworkType() + kFirstNetworkTag, true);
}

void StructureCommands::AddDevice() {
  frmCreate dialog(frmCreate::kDevice);
  modMain::Platform().desktop.ShowModal(dialog);
  if (dialog.bCancel) return;
  cNetwork& network = modMain::CurrentNetwork();
  if (!IsNameOfNewDevice(dialog.szName, network)) return;

  auto made = std::make_unique<cDevice>();
  cDevice& device = *made;
  device.szFileName(network.szFileName());
  device.szDeviceName(dialog.szName);
  device.szTagFileName(dialog.szName + ".csv");
  device.nDeviceType(network.nNetworkType());
  if (network.nNetworkType() == kMpi) device.nMPI_SlaveNo(network.GetNewMPISlaveNo());
  network.Devices().AddItem(std::move(made));
  const TreeNode* const parent = form_.tvwMain.SelectedItem();
  if (parent == nullptr) return;
  const std::string parentKey = parent->Key();
  form_.tvwMain.Add(parentKey, parentKey + "#" + std::to_string(device.nID()), device.szDeviceName(), "DEVICE",
                    network.nNetworkType() + kFirstDeviceTag, true);
}

void StructureCommands::DeleteNetwork() {
  const auto& globals = modMain::globals;
  if (!modMain::QueryDelete(NameProblem(22, modMain::CurrentNetwork().szNetworkName()))) return;
  cOPC& project = modMain::OpenProject();
  project.Networks().Remove(globals.gnCurrentNetwork);
  project.bDataDirty(true);
  form_.tree.Rebuild();
}

void StructureCommands::DeleteDevice() {
  const auto& globals = modMain::globals;
  if (!modMain::QueryDelete(NameProblem(23, modMain::CurrentDevice().szDeviceName()))) return;
  cNetwork& network = modMain::CurrentNetwork();
  network.Devices().Remove(globals.gnCurrentDevice);
  network.bDataDirty(true);
  form_.tree.Rebuild();
}

void StructureCommands::Test() {
  frmTest window;
  window.Form_Load();
  modMain::Platform().desktop.ShowModal(window);
}

}  // namespace tavrin
