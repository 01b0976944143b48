// Gestures of a grid and the edit of its cells; a handler may do anything to the grid, so that nothing that was known
// before one holds after it.
#include <algorithm>
#include <utility>

#include "platform/controls/Form.h"
#include "platform/controls/Grid.h"
#include "platform/controls/Typed.h"

namespace tavrin {

namespace {

std::vector<std::string> Split(std::string_view choices) {
  std::vector<std::string> split;
  if (choices.empty()) return split;
  for (auto bar = choices.find('|'); bar != std::string_view::npos; bar = choices.find('|')) {
    split.emplace_back(choices.substr(0, bar));
    choices.remove_prefix(bar + 1);
  }
  split.emplace_back(choices);
  return split;
}

/// True for its lifetime.
class Flag {
 public:
  explicit Flag(bool& flag) : flag_(flag) { flag_ = true; }
  Flag(const Flag&) = delete;
  Flag& operator=(const Flag&) = delete;
  ~Flag() { flag_ = false; }

 private:
  bool& flag_;
};

}  // namespace

void Grid::TakeKeyboard() {
  UserFocus();
  Owner().EndPendingEdits();
}

void Grid::UserPress(MouseButton button, Cell cell) {
  CheckPointer(cell);
  TakeKeyboard();
  mouse_ = Has(cell) ? cell : Cell{-1, -1};
  if (Has(cell) && !IsFixed(cell) && button == MouseButton::Left) MoveTo(cell, cell, false);
  Run(OnMouseDown, button);
}

void Grid::UserSelect(Cell cell, Cell end) {
  CheckCell(cell);
  CheckCell(end);
  TakeKeyboard();
  if (!Has(cell) || !Has(end) || IsFixed(cell)) return;
  MoveTo(cell, {std::max(end.row, fixedRows_), std::max(end.col, fixedCols_)}, false);
}

void Grid::UserDblClick(Cell cell) {
  CheckPointer(cell);
  TakeKeyboard();
  mouse_ = Has(cell) ? cell : Cell{-1, -1};
  Run(OnDblClick);
}

void Grid::UserPointAt(Cell cell) {
  CheckPointer(cell);
  mouse_ = cell.row == -1 ? Cell{-1, -1} : cell;
  Run(OnMouseMove);
}

void Grid::UserScroll(int topRow) {
  CheckRow(topRow);
  topRow_ = NearestTopRow(topRow);
}

void Grid::UserColWidth(int col, float twips) { SetWidth(col, twips); }

bool Grid::UserKey(Key key) {
  if (edit_) return EditKey(key);
  switch (key) {
    case Key::F2: UserBeginEdit(); return true;
    case Key::Enter:
      Owner().EndPendingEdits();
      if (PassesKeyPress(Key::Enter)) UserBeginEdit();
      return true;
    case Key::Delete:
      Owner().EndPendingEdits();
      Run(OnKeyDown, key);
      return true;
    default: return false;
  }
}

bool Grid::EditKey(Key key) {
  switch (key) {
    case Key::Enter:
      UserEndEdit();
      static_cast<void>(PassesKeyPress(Key::Enter));
      return true;
    case Key::Escape: UserCancelEdit(); return true;
    default: return false;
  }
}

bool Grid::PassesKeyPress(Key pressed) {
  int key = static_cast<int>(pressed);
  Run(OnKeyPress, key);
  return key != 0;
}

void Grid::UserTab(bool backwards) {
  Owner().EndPendingEdits();
  if (backwards || PassesKeyPress(Key::Tab)) MoveNext(backwards);
}

void Grid::MoveNext(bool backwards) {
  const Cell next = NextFree(backwards);
  if (next != current_) MoveTo(next, next, true);
}

Cell Grid::NextFree(bool backwards) const {
  const int step = backwards ? -1 : 1;
  const int edge = backwards ? Cols() : fixedCols_ - 1;
  const int row = current_.row;
  const bool fromHeading = row < fixedRows_;
  if (const int col = fromHeading ? -1 : NextColumn(current_.col, step); col >= 0) return {row, col};
  const int nextRow = fromHeading && !backwards ? fixedRows_ : row + step;
  const int col = NextColumn(edge, step);
  return col < 0 || nextRow < fixedRows_ || nextRow >= Rows() ? current_ : Cell{nextRow, col};
}

int Grid::NextColumn(int from, int step) const {
  for (int col = step > 0 ? std::max(from + 1, fixedCols_) : from - 1; col >= fixedCols_ && col < Cols(); col += step) {
    if (ColWidth(col) > 0) return col;
  }
  return -1;
}

void Grid::UserBeginEdit() { Open(false); }

bool Grid::CanOpen() const {
  return !edit_ && !opening_ && editable_ && Visible() && Enabled() && Has(current_) && !IsFixed(current_);
}

void Grid::Open(bool byTyping) {
  if (edit_ || opening_) return;
  Owner().EndPendingEdits();
  SetFocus();
  if (!CanOpen()) return;
  const Cell cell = current_;
  bool cancel = false;
  comboList_.clear();
  {
    const Flag asking(opening_);
    Run(OnBeforeEdit, cell.row, cell.col, cancel);
  }
  if (cancel || !CanOpen() || current_ != cell) return;
  edit_ = Edit{cell, byTyping ? std::string() : Text(cell), Split(comboList_), byTyping};
  ++editsOpened_;
  Tell(&GridListener::OnEditChanged);
}

void Grid::UserType(std::string_view characters) {
  if (std::none_of(characters.begin(), characters.end(), CanBeTyped)) return;
  Open(true);
  const std::string typed = FilterTyped(characters);
  if (!edit_ || typed.empty()) return;
  edit_->text += typed;
  edit_->touched = true;
  Tell(&GridListener::OnEditChanged);
}

std::string Grid::FilterTyped(std::string_view characters) {
  std::string passed;
  const auto ours = editsOpened_;
  for (const char character : WithoutControlCharacters(characters)) {
    if (!edit_ || editsOpened_ != ours) return {};
    int key = static_cast<unsigned char>(character);
    if (const Cell cell = edit_->cell; edit_->choices.empty()) Run(OnKeyPressEdit, cell.row, cell.col, key);
    if (const auto taken = static_cast<char>(static_cast<unsigned char>(key)); CanBeTyped(taken)) passed += taken;
  }
  return edit_ && editsOpened_ == ours ? passed : std::string();
}

void Grid::UserEditText(std::string_view text) {
  if (!edit_) return;
  edit_->touched = true;
  edit_->text = WithoutControlCharacters(text);
  if (edit_->text != text) Tell(&GridListener::OnEditChanged);
}

void Grid::UserEndEdit() {
  if (!edit_) return;
  const Edit ended = *std::exchange(edit_, std::nullopt);
  Tell(&GridListener::OnEditChanged);
  Text(ended.cell, ended.text);
  Run(OnAfterEdit, ended.cell.row, ended.cell.col);
}

void Grid::UserCancelEdit() {
  if (!edit_) return;
  edit_.reset();
  Tell(&GridListener::OnEditChanged);
}

void Grid::GiveUpEditFrom(int row) {
  if (edit_ && edit_->cell.row >= row) UserCancelEdit();
}

}  // namespace tavrin
