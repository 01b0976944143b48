#pragma once

#include <span>

namespace tavrin {

/// Rows that take no editing of each property sheet, in the order of RightPane::Sheets: the heading, and the type and
/// the name below it. How many rows follow is the matter of the sheets themselves (model/sheets).
[[nodiscard]] std::span<const int, 11> FixedRowsOfSheets();

/// Widths of the two columns of every sheet, in twips.
inline constexpr float kLabelWidth = 3600;
inline constexpr float kValueWidth = 1200;

}  // namespace tavrin
