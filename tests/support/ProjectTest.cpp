#include "support/ProjectTest.h"

#include <memory>

#include "model/ProjectLoad.h"

namespace tavrin {

namespace {

std::vector<std::string> Told(const cWarnings& warnings) {
  std::vector<std::string> lines;
  for (const cWarning& warning : warnings) {
    lines.push_back(std::string(warning.szType()) + "|" + warning.szFileName() + "|" + warning.szText());
  }
  return lines;
}

}  // namespace

std::string Lines(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  return text;
}

ProjectTest::ProjectTest() {
  modMain::globals = modMain::State{};
  modMain::globals.services = &services;
  modMain::globals.gszProjectDir = directory.Path();
  modMain::globals.gOPC = std::make_unique<cOPC>();
  Project().szFileName("ZOPCSRV.ini");
  Project().bDataDirty(false);
}

ProjectTest::~ProjectTest() { modMain::globals = modMain::State{}; }

void ProjectTest::TearDown() { EXPECT_THAT(desktop.UnexpectedQuestions(), testing::IsEmpty()); }

bool ProjectTest::Load() { return LoadProject(directory.Path() + "ZOPCSRV.ini"); }

bool ProjectTest::Save() {
  bool bOK = false;
  Project().UpdateAll(false, bOK);
  return bOK;
}

cNetwork& ProjectTest::Network(std::int32_t position) {
  cNetwork* network = Project().Networks().Network(position);
  if (network == nullptr) throw std::out_of_range("no network " + std::to_string(position));
  return *network;
}

cDevice& ProjectTest::Device(std::int32_t network, std::int32_t device) {
  cDevice* found = Network(network).Devices().Device(device);
  if (found == nullptr) throw std::out_of_range("no device " + std::to_string(device));
  return *found;
}

cNetwork& ProjectTest::AddNetwork(NetworkType type, std::string_view name) {
  auto made = std::make_unique<cNetwork>();
  cNetwork& network = *made;
  network.szNetworkName(name);
  network.szFileName(std::string(name) + ".ini");
  network.nNetworkType(static_cast<std::int32_t>(type));
  if (type == NetworkType::Mpi) network.nMPI_COMPort(Project().GetNewMPICOMPort());
  network.bDataDirty(false);
  Project().Networks().AddItem(std::move(made));
  modMain::globals.gnCurrentNetwork = Project().Networks().Count();
  return network;
}

cDevice& ProjectTest::AddDevice(cNetwork& network, std::string_view name) {
  auto made = std::make_unique<cDevice>();
  cDevice& device = *made;
  device.nDeviceType(network.nNetworkType());
  device.szDeviceName(name);
  device.szTagFileName(std::string(name) + ".csv");
  device.szFileName(network.szFileName());
  if (network.nNetworkType() == 0) device.nMPI_SlaveNo(network.GetNewMPISlaveNo());
  device.bDataDirty(false);
  network.Devices().AddItem(std::move(made));
  modMain::globals.gnCurrentDevice = network.Devices().Count();
  return device;
}

std::vector<std::string> ProjectTest::ReadWarnings() { return Told(modMain::ReadWarnings()); }
std::vector<std::string> ProjectTest::WriteWarnings() { return Told(modMain::WriteWarnings()); }

}  // namespace tavrin
