#pragma once

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/Control.h"
#include "platform/controls/Keys.h"

namespace tavrin {

enum class Alignment { Left, Right };

/// A cell of a grid, row and column counted from 0.
struct Cell {
  int row = 0;
  int col = 0;
  friend bool operator==(const Cell&, const Cell&) = default;
};

/// What a view needs to follow a grid. Changes of rows come in pairs, before and after. While redrawing is off nothing
/// comes but the closing OnReset. Visibility, place and font come by Control::Changed.
class GridListener {
 public:
  GridListener() = default;
  GridListener(const GridListener&) = delete;
  GridListener& operator=(const GridListener&) = delete;
  virtual ~GridListener() = default;

  /// Everything may change until OnReset: shape, rows, widths, selection.
  virtual void OnAboutToReset() = 0;
  virtual void OnReset() = 0;
  virtual void OnRowsAboutToBeAdded(int first, int count) = 0;
  virtual void OnRowsAdded() = 0;
  virtual void OnRowsAboutToBeRemoved(int first, int count) = 0;
  virtual void OnRowsRemoved() = 0;
  virtual void OnCellChanged(Cell cell) = 0;
  /// Widths or alignments have changed by program.
  virtual void OnColumnsChanged() = 0;
  /// Current cell or selection has changed by program or by UserTab, or rows have gone: views that keep the current
  /// cell by its row must take it anew then.
  virtual void OnSelectionChanged() = 0;
  virtual void OnTopRowChanged() = 0;
  /// An edit has begun or ended, or its text has changed by program.
  virtual void OnEditChanged() = 0;
};

/// A table of texts with a current cell and a rectangle of selected cells, whose cells can be edited in place. The
/// first rows and columns are fixed: row 0 is the heading, the user can neither select nor edit a fixed cell. Rows and
/// columns count from 0. A position that does not exist is RuntimeError 9, also in a gesture.
///
/// A row is kept as one text, since a device has a hundred thousand tags: its cells are joined by tabs, and a tab in a
/// cell becomes a blank.
class Grid : public Control {
 public:
  using Control::Control;

  /// One view at a time; nullptr for none. Must outlive the grid or leave before. A view that comes while redrawing is
  /// off is told OnAboutToReset, so that the closing OnReset has its partner.
  void Listen(GridListener* listener);

  // ---- shape and cells
  [[nodiscard]] int Rows() const { return static_cast<int>(rows_.size()); }
  /// Adds empty rows at the end, or drops rows there. The fixed rows cannot be dropped: RuntimeError 5.
  void Rows(int count);
  [[nodiscard]] int Cols() const { return static_cast<int>(columns_.size()); }
  [[nodiscard]] int FixedRows() const { return fixedRows_; }
  [[nodiscard]] int FixedCols() const { return fixedCols_; }
  /// Sets the shape; the texts of cells that stay are kept. The first cell that is not fixed becomes the current one;
  /// when all are fixed it is the nearest one. Numbers that make no grid are RuntimeError 5.
  void Shape(int rows, int cols, int fixedRows, int fixedCols);
  [[nodiscard]] bool IsFixed(Cell cell) const { return cell.row < fixedRows_ || cell.col < fixedCols_; }

  [[nodiscard]] std::string Text(Cell cell) const;
  void Text(Cell cell, std::string_view value);
  /// A row as one text: its cells joined by tabs. Cells missing at the end are empty.
  [[nodiscard]] const std::string& RowText(int row) const;
  /// Adds a row at the end; cells beyond the columns are never seen.
  void AddItem(std::string line);
  /// The fixed rows cannot be removed: RuntimeError 5. Current cell and selection keep their numbers unless they would
  /// lie behind the last row.
  void RemoveItem(int row);

  /// Twips; 0 hides the column, a negative width is RuntimeError 5.
  [[nodiscard]] float ColWidth(int col) const { return Column(col).width; }
  void ColWidth(int col, float twips);
  [[nodiscard]] Alignment ColAlignment(int col) const { return Column(col).alignment; }
  void ColAlignment(int col, Alignment value);
  /// Points.
  [[nodiscard]] float FontSize() const { return fontSize_; }
  void FontSize(float points) { Assign(fontSize_, points); }

  /// While redrawing is off, views are told nothing; when it comes on again they take everything anew.
  [[nodiscard]] bool Redraw() const { return redraw_; }
  void Redraw(bool on);

  // ---- current cell, selection, position
  [[nodiscard]] int Row() const { return current_.row; }
  [[nodiscard]] int Col() const { return current_.col; }
  [[nodiscard]] Cell Current() const { return current_; }
  /// The corner of the selected rectangle opposite to the current cell.
  [[nodiscard]] Cell SelectionEnd() const { return selectionEnd_; }
  /// Makes a cell current, fixed or not, and selects it alone or up to `end`. OnRowColChange runs exactly when the row
  /// or column of the current cell changes; so it does when the current cell goes with its row or column.
  void Select(Cell cell) { Select(cell, cell); }
  void Select(Cell cell, Cell end);
  /// First and last selected row.
  [[nodiscard]] int FirstSelectedRow() const { return std::min(current_.row, selectionEnd_.row); }
  [[nodiscard]] int LastSelectedRow() const { return std::max(current_.row, selectionEnd_.row); }
  /// To the next cell that can be seen and is not fixed, from the end of a row to the start of the next; stays on the
  /// last one.
  void MoveNext(bool backwards = false);
  /// The first row below the fixed ones that is in sight; the last row when there are only fixed ones.
  [[nodiscard]] int TopRow() const { return topRow_; }
  void TopRow(int row);
  /// The cell under the pointer, row -1 when it is on none.
  [[nodiscard]] Cell MouseCell() const { return mouse_; }

  /// Sorts the rows that are not fixed, ascending by the bytes of their texts. Keys are the columns from the current
  /// one to that of SelectionEnd, in this order; rows with equal keys keep theirs.
  void SortAscending();

  // ---- editing
  // An open edit is given up when its row goes or moves: by Shape, Rows, RemoveItem, SortAscending.

  /// An open edit: the cell, the text as it stands in the editor, the texts to choose from (none: a text box).
  struct Edit {
    Cell cell;
    std::string text;
    std::vector<std::string> choices;
    bool beganByTyping = false;
    /// The user has typed or chosen something.
    bool touched = false;
  };
  [[nodiscard]] bool Editable() const { return editable_; }
  void Editable(bool value) { Assign(editable_, value); }
  /// True: the Tab key goes from cell to cell. False: it leaves the grid.
  [[nodiscard]] bool TabMovesCell() const { return tabMovesCell_; }
  void TabMovesCell(bool value) { Assign(tabMovesCell_, value); }
  /// The choices of the next edit, joined by "|"; empty for a text box. OnBeforeEdit sets them.
  void ComboList(std::string_view choices) { comboList_ = choices; }
  /// The open edit, nullptr when there is none.
  [[nodiscard]] const Edit* OpenEdit() const { return edit_ ? &*edit_ : nullptr; }
  /// Opens the current cell as UserBeginEdit does.
  void EditCell() { UserBeginEdit(); }
  void EndPendingEdit() override { UserEndEdit(); }

  // ---- gestures
  /// A press on a cell: gives the keyboard to the grid, ends an open edit, makes the cell current unless it is fixed or
  /// the right button is pressed, and runs OnMouseDown. `cell` row -1: beside all cells. The pointer is then there.
  void UserPress(MouseButton button, Cell cell);
  /// A cell is made current by keys, or by pulling the selection on to `end`. Ends an open edit. Fixed cells are left
  /// out.
  void UserSelect(Cell cell) { UserSelect(cell, cell); }
  void UserSelect(Cell cell, Cell end);
  /// The second press of a double click, which follows the UserPress of the first: gives the keyboard to the grid, ends
  /// an open edit and runs OnDblClick. No edit begins unless the handler asks for it.
  void UserDblClick(Cell cell);
  /// The pointer moves over a cell, row -1: it leaves; runs OnMouseMove.
  void UserPointAt(Cell cell);
  void UserScroll(int topRow);
  /// Makes a column wider or narrower.
  void UserColWidth(int col, float twips);
  /// In the grid: Delete runs OnKeyDown, F2 begins the edit, Enter runs OnKeyPress and, unless that swallows it, begins
  /// the edit. In an open edit: Enter ends it and then runs OnKeyPress, Escape gives it up. @return false for a key
  /// that means nothing here
  bool UserKey(Key key);
  /// Ends an open edit, runs OnKeyPress, and unless that swallows the key goes on as MoveNext does. `backwards` for
  /// Shift+Tab, which no rule is asked about.
  void UserTab(bool backwards = false);

  /// Opens the current cell with its text. Without effect when the grid is not editable, hidden or disabled, the cell
  /// is fixed, an edit is open or OnBeforeEdit refuses or moves the current cell. The keyboard goes to the grid.
  void UserBeginEdit();
  /// Types characters one by one, each through OnKeyPressEdit, at the end of the open edit's text. Without an open edit
  /// it opens the current cell with an empty text first. In a list the typed text is taken as it is. Control characters
  /// are never taken, here and below.
  void UserType(std::string_view characters);
  /// For an editor with a cursor of its own: what of the typed or pasted characters passes OnKeyPressEdit, ...
  [[nodiscard]] std::string FilterTyped(std::string_view characters);
  /// ... and the whole text of the editor after it.
  void UserEditText(std::string_view text);
  /// Ends the edit: the text goes into the cell and OnAfterEdit runs, also when it did not change.
  void UserEndEdit();
  /// Gives the edit up: the cell keeps its text, no rule runs.
  void UserCancelEdit();

  // ---- events
  std::function<void()> OnRowColChange;
  std::function<void(MouseButton button)> OnMouseDown;
  std::function<void()> OnMouseMove;
  std::function<void()> OnDblClick;
  std::function<void(Key key)> OnKeyDown;
  /// A key press in the grid itself; setting it to 0 swallows it.
  std::function<void(int& key)> OnKeyPress;
  std::function<void(int row, int col, bool& cancel)> OnBeforeEdit;
  /// A character that is typed into an edit; setting it to 0 swallows it.
  std::function<void(int row, int col, int& key)> OnKeyPressEdit;
  std::function<void(int row, int col)> OnAfterEdit;

 private:
  struct ColumnShape {
    float width = 960;
    Alignment alignment = Alignment::Left;
  };

  [[nodiscard]] const ColumnShape& Column(int col) const;
  [[nodiscard]] bool Has(Cell cell) const;
  void CheckRow(int row) const;
  void CheckCell(Cell cell) const;
  /// @throws RuntimeError 9 for a cell that does not exist, but for row -1, which stands for none
  void CheckPointer(Cell cell) const;
  [[nodiscard]] Cell FirstFree() const;
  [[nodiscard]] int NearestTopRow(int row) const;
  void TopRowInside();
  void MoveTo(Cell cell, Cell end, bool byProgram);
  bool SetWidth(int col, float twips);
  void AddRows(int count);
  void DropRows(int first, int count);
  /// Brings current cell, selection and pointer back into the grid after rows or columns have gone.
  void StayInside();
  /// Runs OnRowColChange when the current cell is no longer where it was.
  void TellMove(Cell before);
  void TakeKeyboard();
  [[nodiscard]] Cell NextFree(bool backwards) const;
  [[nodiscard]] int NextColumn(int from, int step) const;
  [[nodiscard]] bool CanOpen() const;
  void Open(bool byTyping);
  void GiveUpEditFrom(int row);
  bool EditKey(Key key);
  /// Runs OnKeyPress. @return false when it has swallowed the key
  bool PassesKeyPress(Key pressed);

  /// Tells the view unless redrawing is off.
  template <class... Parameters, class... Arguments>
  void Tell(void (GridListener::*notice)(Parameters...), Arguments... arguments) {
    if (listener_ != nullptr && redraw_) (listener_->*notice)(arguments...);
  }

  GridListener* listener_ = nullptr;
  std::vector<std::string> rows_;
  std::vector<ColumnShape> columns_;
  int fixedRows_ = 0;
  int fixedCols_ = 0;
  float fontSize_ = 8;
  bool redraw_ = true;
  bool editable_ = false;
  bool tabMovesCell_ = false;
  Cell current_;
  Cell selectionEnd_;
  Cell mouse_{-1, -1};
  int topRow_ = 0;
  std::string comboList_;
  std::optional<Edit> edit_;
  /// Counts the edits, so that a routine sees whether a handler has put another one in the place of its own.
  unsigned editsOpened_ = 0;
  /// OnBeforeEdit runs: an edit that it asks for would ask it again.
  bool opening_ = false;
};

}  // namespace tavrin
