#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace tavrin {

/// Whether a character can come into an edit: control characters cannot, since the files know no way to write them.
[[nodiscard]] inline bool CanBeTyped(char character) {
  const auto code = static_cast<unsigned char>(character);
  return code >= 32 && code != 127;
}

/// A text without its control characters.
[[nodiscard]] inline std::string WithoutControlCharacters(std::string_view text) {
  std::string typed(text);
  std::erase_if(typed, [](char character) { return !CanBeTyped(character); });
  return typed;
}

}  // namespace tavrin
