#pragma once

#include <array>
#include <span>
#include <string_view>

namespace tavrin {

/// What a cell that does not open is noted as.
inline constexpr std::string_view kClosed = "closed";
/// What a cell that opens as a text box is noted as; any other word is its list of choices.
inline constexpr std::string_view kTextBox = "text box";

/// What is expected of one row of a sheet around an edit.
struct RowCase {
  std::string_view property;
  std::string_view editor;  ///< kClosed, kTextBox or the choices
  std::string_view keys;    ///< what can be typed, in the order of the codes

  std::string_view typed;  ///< a text that is taken
  std::string_view shown;  ///< what the property and the cell are after it

  std::string_view refused;  ///< a text that is not taken
  std::string_view told;     ///< the box that says so; empty for none
  bool keepsTyped = false;   ///< the cell keeps the refused text; otherwise the old value comes back
};

/// The rows of a sheet from row 1 on. @param sheet position in RightPane::Sheets
[[nodiscard]] std::span<const RowCase> ExpectedRows(int sheet);
inline constexpr int kSheets = 11;

/// All characters that a keyboard can give, in the order of their codes.
[[nodiscard]] std::string_view AllKeys();

}  // namespace tavrin
