#pragma once

#include <cstdint>
#include <string_view>

namespace tavrin {

/// The words for an OPC quality code. The whole code counts: one with limit bits is "unknown".
[[nodiscard]] std::string_view QualityText(std::uint16_t quality);

}  // namespace tavrin
