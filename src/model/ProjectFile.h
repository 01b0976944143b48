#pragma once

#include <string>

#include "model/ProjectSettings.h"

namespace tavrin {

class cNetwork;

/// Reads the keys of the section General. Bad values leave their field, become warnings and make `bOK` false.
/// @param file full path
void ReadProjectKeys(ProjectSettings& settings, const std::string& file, bool& bOK);
void WriteProjectKeys(const ProjectSettings& settings, const std::string& file);

/// Reads type and file name of a network from its section, whose name the network already has.
void ReadNetworkEntry(cNetwork& network, const std::string& file, bool& bOK);
void WriteNetworkEntry(const cNetwork& network, const std::string& file);

}  // namespace tavrin
