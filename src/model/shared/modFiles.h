#pragma once

#include <string_view>

namespace tavrin {

/// True when the path exists and is no directory; false on any error.
[[nodiscard]] bool FileExists(std::string_view path);

}  // namespace tavrin
