#pragma once

#include "platform/controls/Keys.h"

namespace tavrin {

class frmOPC;

/// The events of the tag grid: editing, deleting, sorting, the label of the current cell, tool tip, popup menu.
class TagGrid {
 public:
  explicit TagGrid(frmOPC& form);

  void vsgTags_BeforeEdit(int row, int col);
  void vsgTags_KeyPressEdit(int col, int& key) const;
  void vsgTags_AfterEdit(int row, int col);
  void vsgTags_KeyDown(Key key);
  void vsgTags_KeyPress(int& key);
  void vsgTags_MouseDown(MouseButton button);
  void vsgTags_RowColChange();
  void vsgTags_MouseMove();
  void vsgTags_GotFocus();
  void vsgTags_LostFocus();
  void vsgTags_DblClick();
  /// Removes the tags of the selected rows after asking.
  void DeleteSelectedTags();

 private:
  /// True on a tag, false on the heading and on the empty last row.
  [[nodiscard]] bool OnTag() const;
  void ShowCurrentText();
  /// The delete button deletes tags, or nothing.
  void OfferDelete(bool offered);

  /// To where the next word belongs: the next cell, after a comment the name of a new tag, and after a refusal the cell
  /// that was refused.
  void MoveOn();
  /// True on the comment of a tag that has no row below it yet.
  [[nodiscard]] bool OnCommentOfNewTag() const;

  /// Where the next word belongs.
  enum class NextCell { Neighbour, NewName, None };

  frmOPC& form_;
  /// What the last edit has left, until the user goes elsewhere.
  NextCell next_ = NextCell::Neighbour;
};

}  // namespace tavrin
