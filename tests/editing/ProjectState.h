#pragma once

#include <string>
#include <vector>

#include "model/cOPC.h"

namespace tavrin {

/// All fields of a project that a file holds or an edit can change, as "name=value" lines: project, then each network,
/// then each of its devices with its tags.
[[nodiscard]] std::vector<std::string> StateOf(const cOPC& project);

/// The lines of an object's own fields and of the texts that its sheet shows in place of them.
[[nodiscard]] std::vector<std::string> StateOf(const cNetwork& network);
[[nodiscard]] std::vector<std::string> StateOf(const cDevice& device);

/// The nine texts of a tag in the order of the columns, joined by "|".
[[nodiscard]] std::string TextsOf(const cTag& tag);

}  // namespace tavrin
