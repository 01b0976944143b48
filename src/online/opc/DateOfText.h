#pragma once

#include <optional>
#include <string_view>

#include "platform/DateTime.h"

namespace tavrin {

/// Reads "20.11.2026", "20.11.2026 14:05:09" and the same as "2026-11-20" or "2026-11-20T14:05:09"; the seconds may be
/// missing. Nothing for any other text and for a day that no calendar has.
[[nodiscard]] std::optional<UtcTime> DateOfText(std::string_view text);

}  // namespace tavrin
