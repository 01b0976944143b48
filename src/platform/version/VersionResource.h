#pragma once

#include <optional>
#include <string>

#include "platform/Files.h"

namespace tavrin {

/// The bytes of an executable's version resource: 16-bit, 32-bit and 64-bit files of Windows. Reads a few pieces of
/// the file, at most some megabytes in all, whatever the file claims.
/// @param language the user's, for a file with the resource in several languages
/// @return nothing for a file without one and for a damaged one
/// @throws RuntimeError 57 for a fault of the device
[[nodiscard]] std::optional<std::string> ReadVersionResource(InputFile& file, int language);

}  // namespace tavrin
