#pragma once

#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "model/cDevice.h"

namespace tavrin {

/// A property of a device by its name, its values as text.
struct DeviceProperty {
  std::string_view name;
  std::string_view atStart;
  std::function<std::string(const cDevice&)> get;
  std::function<void(cDevice&, const std::string&)> set;
};

inline DeviceProperty Describe(std::string_view name, std::string_view atStart, std::int32_t (cDevice::*get)() const,
                               void (cDevice::*set)(std::int32_t)) {
  return {name, atStart, [get](const cDevice& device) { return std::to_string((device.*get)()); },
          [set](cDevice& device, const std::string& value) { (device.*set)(std::stoi(value)); }};
}

template <class Text>
DeviceProperty Describe(std::string_view name, std::string_view atStart, Text (cDevice::*get)() const,
                        void (cDevice::*set)(std::string_view)) {
  return {name, atStart, [get](const cDevice& device) { return std::string((device.*get)()); },
          [set](cDevice& device, const std::string& value) { (device.*set)(value); }};
}

/// All stored properties in the order of their declaration, then the texts of the PLC types and the tag file's name.
inline const std::vector<DeviceProperty>& DeviceProperties() {
#define PROPERTY(name, atStart) Describe(#name, atStart, &cDevice::name, &cDevice::name)
  static const std::vector<DeviceProperty> kProperties{
      PROPERTY(nID, "0"),
      PROPERTY(nDeviceType, "0"),
      PROPERTY(szDeviceName, ""),
      PROPERTY(szFileName, ""),
      PROPERTY(nMPI_SlaveNo, "0"),
      PROPERTY(szMPI_DynamicTags, "RW"),
      PROPERTY(nMPI_PLCType, "1"),
      PROPERTY(szMPI_Simulation, "OFF"),
      PROPERTY(szH1_LocalTSAP, ""),
      PROPERTY(szH1_RemoteTSAP, ""),
      PROPERTY(szH1_RemoteMACAddress, ""),
      PROPERTY(szH1_Active, "remote"),
      PROPERTY(szH1_DynamicTags, "RW"),
      PROPERTY(nH1_PLCType, "1"),
      PROPERTY(szH1_Simulation, "OFF"),
      PROPERTY(nTCPISO_PLCType, "1"),
      PROPERTY(nTCPISO_SlotNo, "2"),
      PROPERTY(szTCPISO_RemoteIP, "0.0.0.1"),
      PROPERTY(szTCPISO_DynamicTags, "RW"),
      PROPERTY(nTCPISO_CyclicTime, "10"),
      PROPERTY(szTCPISO_Simulation, "OFF"),
      PROPERTY(nTCPISO_PingEnabled, "1"),
      PROPERTY(nTCPISO_MaxPDUSize, "960"),
      PROPERTY(nTCPRW_LocalPortRead, "0"),
      PROPERTY(nTCPRW_LocalPortWrite, "0"),
      PROPERTY(szTCPRW_RemoteIP, "0.0.0.1"),
      PROPERTY(nTCPRW_RemotePortRead, "0"),
      PROPERTY(nTCPRW_RemotePortWrite, "0"),
      PROPERTY(szTCPRW_DynamicTags, "RW"),
      PROPERTY(nTCPRW_PLCType, "1"),
      PROPERTY(szTCPRW_Simulation, "OFF"),
      PROPERTY(nTCPRW_MaxGapSize, "30"),
      PROPERTY(nTCPRW_PingEnabled, "1"),
      PROPERTY(nTCPIPK_LocalPortRead, "0"),
      PROPERTY(nTCPIPK_LocalPortWrite, "0"),
      PROPERTY(szTCPIPK_RemoteIP, ""),
      PROPERTY(nTCPIPK_RemotePortRead, "0"),
      PROPERTY(nTCPIPK_RemotePortWrite, "0"),
      PROPERTY(szTCPIPK_DynamicTags, "RW"),
      PROPERTY(nTCPIPK_PLCType, "1"),
      PROPERTY(szTCPIPK_Simulation, "OFF"),
      PROPERTY(szMPI_PLCType, "S7"),
      PROPERTY(szH1_PLCType, "S7"),
      PROPERTY(szTCPISO_PLCType, "S7"),
      PROPERTY(szTCPIPK_PLCType, "S7"),
      PROPERTY(szTCPRW_PLCType, "S7"),
      PROPERTY(szTagFileName, ""),
  };
#undef PROPERTY
  return kProperties;
}

inline const DeviceProperty& PropertyOfDevice(std::string_view name) {
  for (const DeviceProperty& property : DeviceProperties()) {
    if (property.name == name) return property;
  }
  throw std::out_of_range("no property " + std::string(name));
}

/// "name=value" of every property that no longer has the value of a new device, in the order of their declaration.
inline std::vector<std::string> ChangedProperties(const cDevice& device) {
  std::vector<std::string> changed;
  for (const DeviceProperty& property : DeviceProperties()) {
    const std::string value = property.get(device);
    if (value != property.atStart) changed.push_back(std::string(property.name) + "=" + value);
  }
  return changed;
}

}  // namespace tavrin
