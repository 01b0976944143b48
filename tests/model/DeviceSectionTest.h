#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "model/DeviceProperties.h"
#include "support/ProjectTest.h"

namespace tavrin {

/// A section's keys with their values in the order of the file.
using SectionLines = std::vector<std::pair<std::string, std::string>>;

/// A complete section of each device type with values that no new device has, in the order of writing. The tag file
/// is tags.csv.
inline const std::map<NetworkType, SectionLines>& FullSections() {
  static const std::map<NetworkType, SectionLines> kSections{
      {NetworkType::Mpi,
       {{"PLCType", "S7"},
        {"MPISlaveNo", "7"},
        {"Variables", "tags.csv"},
        {"DynamicTags", "RO"},
        {"Simulation", "ON"}}},
      {NetworkType::H1,
       {{"LocalTSAP", "L-1"},
        {"RemoteTSAP", "R-1"},
        {"RemoteMacAddress", "08-00-06"},
        {"Active", "local"},
        {"Variables", "tags.csv"},
        {"DynamicTags", "OFF"},
        {"PLCType", "ZELKAR IEC1131"},
        {"Simulation", "ON"}}},
      {NetworkType::TcpIso,
       {{"PLCType", "S7"},
        {"SlotNo", "3"},
        {"RemoteIPAddress", "1.2.3.4"},
        {"Variables", "tags.csv"},
        {"DynamicTags", "RO"},
        {"CyclicTime", "50"},
        {"Simulation", "ON"},
        {"PingEnabled", "0"},
        {"MaxPDUSize", "480"}}},
      {NetworkType::TcpRw,
       {{"LocalPortRead", "1"},
        {"LocalPortWrite", "2"},
        {"RemoteIPAddress", "1.2.3.4"},
        {"RemotePortRead", "3"},
        {"RemotePortWrite", "4"},
        {"Variables", "tags.csv"},
        {"DynamicTags", "RO"},
        {"PLCType", "S5"},
        {"Simulation", "ON"},
        {"MaxGapSize", "31"},
        {"PingEnabled", "0"}}},
      {NetworkType::TcpIpk,
       {{"LocalPortRead", "1"},
        {"LocalPortWrite", "2"},
        {"RemoteIPAddress", "1.2.3.4"},
        {"RemotePortRead", "3"},
        {"RemotePortWrite", "4"},
        {"Variables", "tags.csv"},
        {"DynamicTags", "RO"},
        {"PLCType", "S5"},
        {"Simulation", "ON"}}},
  };
  return kSections;
}

/// What is left of ChangedProperties when the identity of the fixture's device is taken away.
inline std::vector<std::string> SectionProperties(const cDevice& device) {
  std::vector<std::string> changed;
  for (const std::string& line : ChangedProperties(device)) {
    const std::string name = line.substr(0, line.find('='));
    const bool identity = name == "nID" || name == "nDeviceType" || name == "szDeviceName" || name == "szFileName";
    if (!identity) changed.push_back(line);
  }
  return changed;
}

/// A device "Dev" in the network file Net.ini; its tag file tags.csv is there and empty.
class DeviceSectionTest : public ProjectTest {
 protected:
  DeviceSectionTest() { directory.Write("tags.csv", ""); }

  static std::string Section(const SectionLines& lines) {
    std::string text = "[Dev]\r\n";
    for (const auto& [key, value] : lines) text += key + "=" + value + "\r\n";
    return text;
  }

  /// A device with the defaults of its class in a new network of its type, which is the selected one.
  cDevice& NewDevice(NetworkType type) {
    modMain::globals.gOPC = std::make_unique<cOPC>();
    cNetwork& network = AddNetwork(type, "Net");
    auto made = std::make_unique<cDevice>();
    cDevice& device = *made;
    device.nDeviceType(static_cast<std::int32_t>(type));
    device.szDeviceName("Dev");
    device.szFileName("Net.ini");
    network.Devices().AddItem(std::move(made));
    return device;
  }

  /// Reads a section into a new device; `bOK` and the warnings are those of this read.
  cDevice& Read(NetworkType type, const SectionLines& lines) {
    directory.Write("Net.ini", Section(lines));
    cDevice& device = NewDevice(type);
    device.Refresh(bOK);
    return device;
  }

  /// The full section with one key changed, or left out without a value.
  static SectionLines With(NetworkType type, std::string_view key, const std::optional<std::string>& value) {
    SectionLines lines;
    for (const auto& line : FullSections().at(type)) {
      if (line.first != key) {
        lines.push_back(line);
      } else if (value) {
        lines.emplace_back(key, *value);
      }
    }
    return lines;
  }

  bool bOK = false;
};

}  // namespace tavrin
