#pragma once

#include <array>
#include <span>

namespace tavrin {

/// The shape of one property sheet; row 0 is the heading.
struct SheetShape {
  int rows;                     ///< with the heading
  int fixedRows;                ///< rows that take no editing: the heading, type and names
  std::array<int, 11> labels;   ///< numbers of the texts in column 0 from row 1 on; 0 for none
};

/// In the order of RightPane::Sheets.
[[nodiscard]] std::span<const SheetShape, 11> SheetTable();

/// Widths of the two columns of every sheet, in twips.
inline constexpr float kLabelWidth = 3600;
inline constexpr float kValueWidth = 1200;

}  // namespace tavrin
