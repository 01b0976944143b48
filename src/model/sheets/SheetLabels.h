#pragma once

#include <vector>

namespace tavrin {

/// The numbers of the texts that label the rows of a property sheet, from row 1 on.
/// @param sheet position in RightPane::Sheets @throws RuntimeError 9 for a position without a sheet
[[nodiscard]] std::vector<int> SheetLabels(int sheet);

}  // namespace tavrin
