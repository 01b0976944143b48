#pragma once

#include <Qt>
#include <optional>

#include "platform/controls/Grid.h"

namespace tavrin {

/// The cell that a key of the cursor block leads to: arrows (with Ctrl to the edge), page keys, Home and End (with Ctrl
/// to the first and last row). Fixed and hidden cells are passed over; from a fixed cell the way leads to the first one
/// that is not.
/// @param page rows that a page key goes
/// @return nothing for any other key, and in a grid without a cell to go to
[[nodiscard]] std::optional<Cell> CellReachedBy(const Grid& grid, int key, bool ctrl, Cell from, int page);

}  // namespace tavrin
