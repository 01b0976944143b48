#include "shell/GridSort.h"

namespace tavrin {

void SortUpTo(Grid& grid, int col) {
  constexpr int kFirstRow = 1;
  if (grid.Rows() <= kFirstRow) return;
  grid.Select(grid.Current(), {grid.SelectionEnd().row, col});
  grid.SortAscending();
  grid.Select({kFirstRow, grid.Col()});
  grid.TopRow(kFirstRow);
}

}  // namespace tavrin
