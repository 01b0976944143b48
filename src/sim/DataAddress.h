#pragma once

#include <optional>
#include <string_view>

#include "sim/ItemType.h"

namespace tavrin {

/// What lies at an address of a controller, as its letters tell: a bit ("M1.0", "DB5.DBX2.7", "DB11.D0.3", "%QX2.0"), a
/// byte ("MB10", "DB5.DBB2", "DL4"), a word ("EW2", "DB5.DBW2", "DB11.DW1", "T5"), a double word ("DB5.DBD2",
/// "DB11.DD3", "%MD100"), or what a type word says ("DB5.REAL8", "DB5,INT4"). A number of elements may follow:
/// "DB5.DBW0[10]" or "DB5.DBW0,10". Signs and fractions are not in the letters: a word is unsigned, a double word
/// whole.
/// @param address in upper case, as the tag file gives it
/// @return nothing for an address of another form
[[nodiscard]] std::optional<ItemType> TypeAtAddress(std::string_view address);

}  // namespace tavrin
