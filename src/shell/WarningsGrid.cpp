#include "shell/WarningsGrid.h"

#include "model/shared/AtExit.h"
#include "shell/GridSort.h"
#include "shell/frmOPC.h"

namespace tavrin {

WarningsGrid::WarningsGrid(frmOPC& form) : form_(form) {
  form_.vsgWarnings.OnRowColChange = [this] { vsgWarnings_RowColChange(); };
  form_.vsgWarnings.OnDblClick = [this] { vsgWarnings_DblClick(); };
}

void WarningsGrid::vsgWarnings_RowColChange() {
  form_.lblWarnings.Caption(form_.vsgWarnings.Text(form_.vsgWarnings.Current()));
}

void WarningsGrid::vsgWarnings_DblClick() try {
  Grid& grid = form_.vsgWarnings;
  if (grid.MouseCell().row != 0 || grid.Rows() == 1) return;
  {
    const AtExit redraw([&grid] { grid.Redraw(true); });
    grid.Redraw(false);
    SortUpTo(grid, grid.MouseCell().col);
  }
  // The current cell may have another text now although it is the same cell.
  vsgWarnings_RowColChange();
} catch (...) {
  modMain::Trap("frmOPC.vsgWarnings_DblClick : ");
}

}  // namespace tavrin
