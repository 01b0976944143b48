#pragma once

#include "platform/controls/Grid.h"

namespace tavrin {

/// Sorts as a double click on the heading of a column asks for: by the columns from the current one to that one. The
/// first row below the heading becomes the current one and the first in sight; without such a row nothing happens.
void SortUpTo(Grid& grid, int col);

}  // namespace tavrin
