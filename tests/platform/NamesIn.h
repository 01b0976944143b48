#pragma once

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "support/TemporaryDirectory.h"

namespace tavrin {

/// Names of all entries of a directory as the disk spells them, sorted.
inline std::vector<std::string> NamesIn(const TemporaryDirectory& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder.Path())) {
    names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace tavrin
