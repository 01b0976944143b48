#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavrin {

/// The longest source file that is accepted, in lines.
inline constexpr int kMaxLines = 600;

/// What is wrong with an include, or nothing.
/// @param file the including file, relative to src/, with '/' between the pieces
/// @param target what stands behind #include, with its quotes or angle brackets
[[nodiscard]] std::optional<std::string> IncludeFault(std::string_view file, std::string_view target);

/// True when a line names a place of somebody's own machine, such as a home directory.
[[nodiscard]] bool NamesMachinePath(std::string_view line);

/// All breaches in the tree below `root`, as "path:line: what is wrong" with the path relative to `root`, sorted by
/// path. A folder that the tree does not have is passed over.
struct TreeReport {
  int filesRead = 0;
  std::vector<std::string> breaches;
};

[[nodiscard]] TreeReport CheckIncludes(const std::filesystem::path& root);      ///< all sources of src/
[[nodiscard]] TreeReport CheckLengths(const std::filesystem::path& root);       ///< all sources
[[nodiscard]] TreeReport CheckMachinePaths(const std::filesystem::path& root);  ///< all texts people write

}  // namespace tavrin
