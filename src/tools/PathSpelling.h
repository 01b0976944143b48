#pragma once

#include <string>
#include <string_view>

namespace tavrin {

/// Position behind the last separator: where the folder of a path ends and the name begins.
[[nodiscard]] std::size_t FolderLength(std::string_view path);

/// A folder with each of its pieces spelled as the disk spells it. Pieces that are not there stay as they are, and so
/// do the server and the share of a path that begins with two separators. The letter of a drive becomes a capital.
[[nodiscard]] std::string AsSpelledOnDisk(std::string_view folder);

}  // namespace tavrin
