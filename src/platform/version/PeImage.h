#pragma once

#include <cstdint>
#include <optional>

#include "platform/version/Bytes.h"

namespace tavrin {

/// The version resource of a 32-bit or 64-bit executable (PE). Any arrangement of the sections is fine; three levels
/// of directories are followed and no more, so that no file can lead in circles.
/// @param header offset of the "PE" signature
/// @param language the user's, for a file with the resource in several languages
/// @return nothing without such a resource, and when the file is damaged on the way to it
[[nodiscard]] std::optional<FileRange> FindVersionInPe(InputFile& file, std::uint64_t header, int language);

}  // namespace tavrin
