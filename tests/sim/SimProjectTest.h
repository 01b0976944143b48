#pragma once

#include <string>
#include <vector>

#include "sim/PlantDefinition.h"
#include "support/ProjectTest.h"

namespace tavrin {

/// A project whose tags are given as lines of tag files.
class SimProjectTest : public ProjectTest {
 protected:
  /// The first tag of a file with this line.
  const cTag& TagOf(const std::string& line) {
    WriteProject({{"Press", "ON", {line}}});
    Load();
    return *Device(1, 1).Tags().begin();
  }

  struct DeviceFiles {
    std::string name;
    std::string simulation;
    std::vector<std::string> tags;
  };

  void WriteProject(const std::vector<DeviceFiles>& devices, const std::string& caseSensitive = "0",
                    const std::string& upperCase = "0") {
    directory.Write("ZOPCSRV.ini", Lines({"[General]", "LogFileSize=5000", "CaseSensitive=" + caseSensitive,
                                          "UsedSeparator=/", "TagsAlwaysUppercase=" + upperCase, "", "[Hall]",
                                          "Protocol=ISOoverTCPIP", "Configuration=Hall.ini"}));
    std::vector<std::string> network{"[General]", "LocalIPAddress=10.0.0.1"};
    int number = 1;
    for (const DeviceFiles& device : devices) {
      const std::string address = std::to_string(number++);
      network.insert(network.end(),
                     {"", "[" + device.name + "]", "PLCType=S7", "SlotNo=2", "RemoteIPAddress=10.0.1." + address,
                      "Variables=" + address + ".csv", "DynamicTags=RW", "CyclicTime=100",
                      "Simulation=" + device.simulation, "PingEnabled=0", "MaxPDUSize=960"});
      directory.Write(address + ".csv", Lines(device.tags));
    }
    directory.Write("Hall.ini", Lines(network));
  }

  [[nodiscard]] std::string ProjectFile() const { return directory.Path() + "ZOPCSRV.ini"; }
};

}  // namespace tavrin
