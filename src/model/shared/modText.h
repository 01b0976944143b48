#pragma once

#include <cstdint>
#include <string>

namespace tavrin {

/// Gets the catalogue ready. @throws RuntimeError 53 when it has no words at all
void ResInit();

/// The catalogue text of a number in the current language, up to its first NUL; empty when the number is unknown or
/// the lookup fails. Never throws and never shows anything.
[[nodiscard]] std::string ResText(std::int32_t number);

}  // namespace tavrin
