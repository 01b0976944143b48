#pragma once

#include <string>
#include <string_view>

namespace tavrin {

/// A machine-wide text value, or `fallback` when it is missing or longer than 254 characters; empty on an error.
[[nodiscard]] std::string GetRegistryValue(std::string_view keyPath, std::string_view valueName,
                                           std::string_view fallback);

}  // namespace tavrin
