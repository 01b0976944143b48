#include "shell/TagGrid.h"

#include <string>
#include <utility>

#include "editing/TagRows.h"
#include "model/cDevice.h"
#include "model/shared/AtExit.h"
#include "model/shared/modMain.h"
#include "model/shared/modText.h"
#include "shell/GridSort.h"
#include "shell/frmOPC.h"

namespace tavrin {

namespace {

constexpr int kPopupMenu = 5;

}  // namespace

TagGrid::TagGrid(frmOPC& form) : form_(form) {
  Grid& grid = form_.vsgTags;
  grid.Editable(true);
  grid.TabMovesCell(true);
  grid.OnBeforeEdit = [this](int row, int col, bool&) { vsgTags_BeforeEdit(row, col); };
  grid.OnKeyPressEdit = [this](int, int col, int& key) { vsgTags_KeyPressEdit(col, key); };
  grid.OnAfterEdit = [this](int row, int col) { vsgTags_AfterEdit(row, col); };
  grid.OnKeyDown = [this](Key key) { vsgTags_KeyDown(key); };
  grid.OnKeyPress = [this](int& key) { vsgTags_KeyPress(key); };
  grid.OnMouseDown = [this](MouseButton button) { vsgTags_MouseDown(button); };
  grid.OnRowColChange = [this] { vsgTags_RowColChange(); };
  grid.OnMouseMove = [this] { vsgTags_MouseMove(); };
  grid.OnGotFocus = [this] { vsgTags_GotFocus(); };
  grid.OnLostFocus = [this] { vsgTags_LostFocus(); };
  grid.OnDblClick = [this] { vsgTags_DblClick(); };
}

void TagGrid::vsgTags_BeforeEdit(int row, int col) {
  OfferDelete(false);
  form_.vsgTags.Select({row, col});
  next_ = NextCell::Neighbour;
}

void TagGrid::vsgTags_KeyPressEdit(int col, int& key) const {
  if (!TagKeyPasses(col, key)) key = 0;
}

void TagGrid::vsgTags_AfterEdit(int row, int col) {
  bool taken = false;
  try {
    taken = AfterTagEdit(form_.vsgTags, {row, col});
  } catch (...) {
    modMain::Trap("frmOPC.vsgTags_AfterEdit : ");
  }
  const bool stays = form_.vsgTags.Current() == Cell{row, col};
  if (stays && !taken) next_ = NextCell::None;
  if (!stays && col == kTagComment) next_ = NextCell::NewName;
  ShowCurrentText();
}

void TagGrid::vsgTags_KeyDown(Key key) {
  if (key == Key::Delete) DeleteSelectedTags();
}

void TagGrid::vsgTags_KeyPress(int& key) {
  if (key != static_cast<int>(Key::Enter) && key != static_cast<int>(Key::Tab)) return;
  key = 0;
  MoveOn();
}

void TagGrid::MoveOn() {
  Grid& grid = form_.vsgTags;
  if (OnCommentOfNewTag()) {
    // The end of an edit there makes room for the next tag, also without a comment.
    grid.EditCell();
    form_.EndPendingEdits();
  }
  switch (std::exchange(next_, NextCell::Neighbour)) {
    case NextCell::Neighbour: grid.MoveNext(); break;
    case NextCell::NewName: grid.Select({grid.Rows() - 1, kTagName}); break;
    case NextCell::None: break;
  }
}

bool TagGrid::OnCommentOfNewTag() const {
  const Grid& grid = form_.vsgTags;
  const bool lastComment = grid.Current() == Cell{grid.Rows() - 1, kTagComment};
  return lastComment && !grid.Text({grid.Row(), kTagKey}).empty();
}

void TagGrid::vsgTags_MouseDown(MouseButton button) {
  next_ = NextCell::Neighbour;
  Grid& grid = form_.vsgTags;
  const Cell cell = grid.MouseCell();
  if (button != MouseButton::Right || cell.row < 1) return;
  grid.Select(cell);
  modMain::Platform().desktop.PopupMenu(form_.mnuMain(kPopupMenu));
}

void TagGrid::DeleteSelectedTags() {
  OfferDelete(false);
  DeleteTagsOfSelection(form_.vsgTags);
}

bool TagGrid::OnTag() const {
  const Grid& grid = form_.vsgTags;
  return grid.Row() >= 1 && grid.Row() < grid.Rows() - 1;
}

void TagGrid::ShowCurrentText() {
  const Grid& grid = form_.vsgTags;
  form_.lblTags.Caption(OnTag() ? grid.Text(grid.Current()) : std::string());
}

void TagGrid::OfferDelete(bool offered) {
  ToolButton& button = form_.Toolbar1.Buttons(kToolDelete);
  if (offered) button.Tag(kDeleteTags);
  button.Enabled(offered);
}

void TagGrid::vsgTags_RowColChange() {
  next_ = NextCell::Neighbour;
  ShowCurrentText();
  // While the rows are filled the cell does not change by the user's will: the button stays with what the node in the
  // tree has given it to delete.
  if (form_.vsgTags.Redraw()) OfferDelete(OnTag());
}

void TagGrid::vsgTags_MouseMove() {
  form_.vsgTags.ToolTip(form_.vsgTags.MouseCell().row == 0 ? ResText(14) : std::string());
}

void TagGrid::vsgTags_GotFocus() { OfferDelete(true); }

void TagGrid::vsgTags_LostFocus() {
  Grid& grid = form_.vsgTags;
  if (grid.TopRow() < grid.Rows()) grid.Select({grid.TopRow(), kTagName});
  // Last, since a tag that becomes current offers itself to be deleted, and from another control nothing may be.
  OfferDelete(false);
}

void TagGrid::vsgTags_DblClick() try {
  Grid& grid = form_.vsgTags;
  const Cell clicked = grid.MouseCell();
  if (clicked.row != 0) {
    if (clicked.row > 0) grid.EditCell();
    return;
  }
  const std::int32_t tags = modMain::CurrentDevice().Tags().Count();
  constexpr int kWithoutTags = 2;  // the heading and the row for a new tag
  if (tags == 0 && grid.Rows() == kWithoutTags) return;
  const std::string& last = grid.RowText(grid.Rows() - 1);
  const bool lastIsEmpty = last.find_first_not_of('\t') == std::string::npos;
  {
    const AtExit redraw([&grid] { grid.Redraw(true); });
    grid.Redraw(false);
    if (grid.Rows() - 2 == tags && lastIsEmpty) grid.RemoveItem(grid.Rows() - 1);
    SortUpTo(grid, clicked.col);
    grid.AddItem({});
  }
  vsgTags_RowColChange();
} catch (...) {
  modMain::Trap("frmOPC.vsgTags_DblClick : ");
}

}  // namespace tavrin
