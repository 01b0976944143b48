#include "app/manual/SheetTables.h"

#include <array>
#include <memory>
#include <string_view>

#include "model/NetworkSettings.h"
#include "model/cOPC.h"
#include "model/shared/modMain.h"
#include "model/shared/modText.h"
#include "model/sheets/DeviceSheets.h"
#include "model/sheets/NetworkSheets.h"
#include "model/sheets/ProjectSheet.h"
#include "platform/headless/HeadlessDesktop.h"

namespace tavrin {

namespace {

/// No setting takes all of them.
constexpr std::array<std::string_view, 4> kProbes{"-1", "999999999", "x", ""};

/// What the user is told when the text is given to the row; empty when it is taken.
template <class Owner>
std::string Refusal(const SheetRow<Owner>& row, Owner& owner, std::string_view text, HeadlessDesktop& desktop) {
  static_cast<void>(desktop.TakeBoxes());
  try {
    static_cast<void>(row.edit.assign(owner, text));
  } catch (const RuntimeError&) {
    return {};  // no number at all: says nothing of the range
  }
  const auto boxes = desktop.TakeBoxes();
  return boxes.empty() ? std::string{} : boxes.front();
}

std::string Joined(std::string_view choices) {
  std::string joined;
  for (const char character : choices) joined += character == '|' ? std::string(", ") : std::string(1, character);
  return joined;
}

template <class Owner>
void Probe(SheetLine& line, const SheetRow<Owner>& row, Owner& owner, HeadlessDesktop& desktop) {
  const std::string range = ResText(204) + " ";
  for (const std::string_view probe : kProbes) {
    const std::string told = Refusal(row, owner, probe, desktop);
    line.address = line.address || told == ResText(232);
    // Of several tellings the one with both ends of the range is the longest.
    if (told.starts_with(range) && told.size() > range.size() + line.allowed.size())
      line.allowed = told.substr(range.size());
  }
}

template <class Owner>
std::vector<SheetLine> LinesOf(std::span<const SheetRow<Owner>> rows, Owner& owner, HeadlessDesktop& desktop) {
  std::vector<SheetLine> lines;
  for (const SheetRow<Owner>& row : rows) {
    SheetLine line{
        std::string(row.property), row.label, row.edit.editor == CellEditor::Closed, false, {}, row.read(owner)};
    if (row.edit.editor == CellEditor::List) {
      line.allowed = Joined(row.edit.choices);
    } else if (!line.fixed) {
      Probe(line, row, owner, desktop);
    }
    lines.push_back(std::move(line));
  }
  return lines;
}

cOPC& NewProject() {
  modMain::globals.gOPC = std::make_unique<cOPC>();
  modMain::globals.gOPC->szFileName("ZOPCSRV.ini");
  return *modMain::globals.gOPC;
}

/// Added as the command of the menu adds it, and selected.
cNetwork& NewNetwork(std::int32_t type) {
  cOPC& project = NewProject();
  auto network = std::make_unique<cNetwork>();
  network->szNetworkName("Name");
  network->szFileName("Name.ini");
  network->nNetworkType(type);
  cNetwork& added = *network;
  project.Networks().AddItem(std::move(network));
  modMain::globals.gnCurrentNetwork = 1;
  if (NetworkType{type} == NetworkType::Mpi) added.nMPI_COMPort(project.GetNewMPICOMPort());
  return added;
}

cDevice& NewDevice(std::int32_t type) {
  cNetwork& network = NewNetwork(type);
  auto device = std::make_unique<cDevice>();
  device->szFileName(network.szFileName());
  device->szDeviceName("Name");
  device->szTagFileName("Name.csv");
  device->nDeviceType(type);
  cDevice& added = *device;
  network.Devices().AddItem(std::move(device));
  modMain::globals.gnCurrentDevice = 1;
  if (NetworkType{type} == NetworkType::Mpi) added.nMPI_SlaveNo(2);
  return added;
}

}  // namespace

std::vector<SheetLine> ProjectLines(HeadlessDesktop& desktop) { return LinesOf(ProjectSheet(), NewProject(), desktop); }

std::vector<SheetLine> NetworkLines(std::int32_t type, HeadlessDesktop& desktop) {
  return LinesOf(NetworkSheet(type), NewNetwork(type), desktop);
}

std::vector<SheetLine> DeviceLines(std::int32_t type, HeadlessDesktop& desktop) {
  return LinesOf(DeviceSheet(type), NewDevice(type), desktop);
}

}  // namespace tavrin
