#pragma once

#include <string>

namespace tavrin {

/// Opens the project whose root file has the full path `szFile`: the old project goes, whatever comes of the load.
/// The directory of the project becomes that of the file. The file must exist.
/// @return the result of cOPC::Refresh
bool LoadProject(const std::string& szFile);

}  // namespace tavrin
