#pragma once

#include <span>
#include <string_view>

namespace tavrin {

class Studio;

/// A picture of the manual: how the program comes to look like that.
struct Scene {
  std::string_view name;
  void (*act)(Studio& studio);
  std::string_view words = {};  ///< of the command line
};

[[nodiscard]] std::span<const Scene> Scenes();

}  // namespace tavrin
