#pragma once

#include <string>
#include <string_view>

#include "model/NetworkSettings.h"

namespace tavrin {

/// The section of a network's own keys in its file; every other section is a device. The name counts in exactly this
/// spelling: a section `general` is a device.
inline constexpr std::string_view kGeneralSection = "General";

/// Reads the keys of the network's type. Bad values leave their field, become warnings and make `bOK` false.
/// @param file full path
void ReadNetworkKeys(NetworkSettings& settings, const std::string& file, bool& bOK);

/// Writes the keys of the network's type in the order of the file format.
void WriteNetworkKeys(const NetworkSettings& settings, const std::string& file);

}  // namespace tavrin
