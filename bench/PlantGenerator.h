#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tavrin {

/// A project as large plants have it: one network of type Read/Write with ten devices that share the tags evenly.
struct GeneratedProject {
  std::string rootFile;               ///< full path
  std::vector<std::string> tagFiles;  ///< full paths
  std::int64_t tags = 0;
  std::int64_t bytes = 0;  ///< of all tag files
};

/// Writes the files of a project into an existing directory (with a trailing separator).
GeneratedProject GenerateProject(const std::string& directory, std::int64_t tags);

}  // namespace tavrin
