#pragma once

#include <cstdint>
#include <optional>

#include "platform/version/Bytes.h"

namespace tavrin {

/// The version resource of a 16-bit executable (NE).
/// @param header offset of the "NE" signature
/// @return nothing without such a resource, and when the file is damaged on the way to it
[[nodiscard]] std::optional<FileRange> FindVersionInNe(InputFile& file, std::uint64_t header);

}  // namespace tavrin
