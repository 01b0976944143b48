#pragma once

#include <string>

#include "model/DeviceSettings.h"

namespace tavrin {

class cDevice;
class cTags;

/// Reads the keys of the device's type from its section. Bad values leave their field, become warnings and make `bOK`
/// false.
/// @param device owner of the settings; takes the tag file name by its setter @param file full path
void ReadDeviceKeys(DeviceSettings& settings, cDevice& device, const std::string& file, bool& bOK);

/// Writes the keys of the device's type into its section in the order of the file format.
void WriteDeviceKeys(const DeviceSettings& settings, const cTags& tags, const std::string& file);

}  // namespace tavrin
