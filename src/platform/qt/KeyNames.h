#pragma once

#include <optional>

#include "platform/controls/Keys.h"

namespace tavrin {

/// The key that rules know, for a key of the toolkit; nothing for one that no rule knows.
[[nodiscard]] std::optional<Key> KeyOf(int toolkitKey);

}  // namespace tavrin
