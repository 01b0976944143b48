// Shape, rows and cells of a grid. Current cell, position and sort are in GridSelection.cpp, gestures and edits in
// GridEdit.cpp.
#include "platform/controls/Grid.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "platform/RuntimeError.h"
#include "platform/controls/RowCells.h"

namespace tavrin {

namespace {

std::size_t At(int position) { return static_cast<std::size_t>(position); }

}  // namespace

void Grid::Listen(GridListener* listener) {
  listener_ = listener;
  if (listener_ != nullptr && !redraw_) listener_->OnAboutToReset();
}

void Grid::Rows(int count) {
  if (count < fixedRows_) throw RuntimeError(ErrorNumber::InvalidCall);
  if (count > Rows()) AddRows(count - Rows());
  if (count < Rows()) DropRows(count, Rows() - count);
}

void Grid::AddRows(int count) {
  Tell(&GridListener::OnRowsAboutToBeAdded, Rows(), count);
  rows_.resize(rows_.size() + At(count));
  Tell(&GridListener::OnRowsAdded);
  TopRowInside();
}

void Grid::DropRows(int first, int count) {
  GiveUpEditFrom(first);
  const Cell before = current_;
  Tell(&GridListener::OnRowsAboutToBeRemoved, first, count);
  rows_.erase(rows_.begin() + first, rows_.begin() + first + count);
  StayInside();
  Tell(&GridListener::OnRowsRemoved);
  Tell(&GridListener::OnSelectionChanged);
  TopRowInside();
  TellMove(before);
}

void Grid::Shape(int rows, int cols, int fixedRows, int fixedCols) {
  if (fixedRows < 0 || fixedCols < 0 || rows < fixedRows || cols < fixedCols) {
    throw RuntimeError(ErrorNumber::InvalidCall);
  }
  const Cell before = current_;
  const bool same = rows == Rows() && cols == Cols() && fixedRows == fixedRows_ && fixedCols == fixedCols_;
  if (!same) {
    GiveUpEditFrom(0);
    Tell(&GridListener::OnAboutToReset);
    const bool narrower = cols < Cols();
    rows_.resize(At(rows));
    columns_.resize(At(cols));
    if (narrower) std::for_each(rows_.begin(), rows_.end(), [cols](std::string& row) { CutToColumns(row, cols); });
    fixedRows_ = fixedRows;
    fixedCols_ = fixedCols;
    current_ = selectionEnd_ = FirstFree();
    StayInside();
    topRow_ = NearestTopRow(topRow_);
    Tell(&GridListener::OnReset);
    TellMove(before);
    return;
  }
  MoveTo(FirstFree(), FirstFree(), true);
}

std::string Grid::Text(Cell cell) const {
  CheckCell(cell);
  return std::string(CellIn(rows_[At(cell.row)], cell.col));
}

void Grid::Text(Cell cell, std::string_view value) {
  CheckCell(cell);
  if (SetCellIn(rows_[At(cell.row)], cell.col, value)) Tell(&GridListener::OnCellChanged, cell);
}

const std::string& Grid::RowText(int row) const {
  CheckRow(row);
  return rows_[At(row)];
}

void Grid::AddItem(std::string line) {
  CutToColumns(line, Cols());
  Tell(&GridListener::OnRowsAboutToBeAdded, Rows(), 1);
  rows_.push_back(std::move(line));
  Tell(&GridListener::OnRowsAdded);
  TopRowInside();
}

void Grid::RemoveItem(int row) {
  CheckRow(row);
  if (Rows() == fixedRows_) throw RuntimeError(ErrorNumber::InvalidCall);
  DropRows(row, 1);
}

void Grid::ColWidth(int col, float twips) {
  if (SetWidth(col, twips)) Tell(&GridListener::OnColumnsChanged);
}

bool Grid::SetWidth(int col, float twips) {
  if (twips < 0) throw RuntimeError(ErrorNumber::InvalidCall);
  if (Column(col).width == twips) return false;
  columns_[At(col)].width = twips;
  return true;
}

void Grid::ColAlignment(int col, Alignment value) {
  if (Column(col).alignment == value) return;
  columns_[At(col)].alignment = value;
  Tell(&GridListener::OnColumnsChanged);
}

void Grid::Redraw(bool on) {
  if (redraw_ == on) return;
  if (!on) Tell(&GridListener::OnAboutToReset);
  redraw_ = on;
  if (on) Tell(&GridListener::OnReset);
}

const Grid::ColumnShape& Grid::Column(int col) const {
  if (col < 0 || col >= Cols()) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
  return columns_[At(col)];
}

bool Grid::Has(Cell cell) const { return cell.row >= 0 && cell.row < Rows() && cell.col >= 0 && cell.col < Cols(); }

void Grid::CheckRow(int row) const {
  if (row < 0 || row >= Rows()) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
}

void Grid::CheckCell(Cell cell) const {
  if (!Has(cell)) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
}

void Grid::CheckPointer(Cell cell) const {
  if (cell.row != -1) CheckCell(cell);
}

}  // namespace tavrin
