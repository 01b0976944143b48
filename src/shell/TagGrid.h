#pragma once

namespace tavrin {

class frmOPC;

/// The events of the tag grid: label of the current cell, tool tip, the delete button, sort.
class TagGrid {
 public:
  explicit TagGrid(frmOPC& form);

  void vsgTags_RowColChange();
  void vsgTags_MouseMove();
  void vsgTags_GotFocus();
  void vsgTags_LostFocus();
  void vsgTags_DblClick();

 private:
  frmOPC& form_;
};

}  // namespace tavrin
