#pragma once

#include <string_view>

namespace tavrin {

/// True when a file name matches a pattern. Case does not count. "*" stands for any characters, "?" for one. Where
/// patterns come from, a name always has an extension, if only an empty one: so "*.*" means all names, "*." those
/// without a point and "a.*" also the name "a"; a "?" before a point or at the end may stand for nothing.
[[nodiscard]] bool MatchesPattern(std::string_view name, std::string_view pattern);

}  // namespace tavrin
