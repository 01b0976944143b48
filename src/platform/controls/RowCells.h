#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tavrin {

/// The cells of a row that is kept as one text, joined by tabs and counted from 0. A cell behind the end is empty. Only
/// the row that is asked for is looked at.
[[nodiscard]] std::string_view CellIn(std::string_view row, int col);

/// Puts a text into a cell, filling the row up to it; a tab in the text becomes a blank.
/// @return false when the cell had this text already
bool SetCellIn(std::string& row, int col, std::string_view value);

/// Without what lies behind the last column, so that it does not come up when columns are added.
void CutToColumns(std::string& row, int cols);

}  // namespace tavrin
