#pragma once

namespace tavrin {

/// Which characters can be typed into a cell of a sheet.
enum class KeyClass {
  Name,       ///< letters a to z, digits, "_", "."
  Digits,     ///< 0 to 9
  Flag,       ///< 0 and 1
  Address,    ///< digits and "."
  Separator,  ///< the separators that the open project accepts
  Free,       ///< everything
  None,       ///< nothing, not even Backspace
};

/// True for a character, or Backspace (8), that may be typed. Backspace may be typed everywhere but in None.
[[nodiscard]] bool Passes(KeyClass keys, int key);

}  // namespace tavrin
