#pragma once

namespace tavrin {

class frmOPC;

/// The events of the warnings grid: the label that shows the current cell in full, and the sort.
class WarningsGrid {
 public:
  explicit WarningsGrid(frmOPC& form);

  void vsgWarnings_RowColChange();
  void vsgWarnings_DblClick();

 private:
  frmOPC& form_;
};

}  // namespace tavrin
