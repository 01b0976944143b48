// Current cell, selection, scroll position and sort of a grid.
#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>

#include "platform/controls/Grid.h"
#include "platform/controls/RowCells.h"

namespace tavrin {

namespace {

/// A row on its way through the sort, with its first key; further ones are looked up only where that is equal.
struct SortedRow {
  std::string_view key;
  std::string* row;
};

bool KeysLess(const SortedRow& left, const SortedRow& right, int first, int last) {
  if (const int order = left.key.compare(right.key); order != 0) return order < 0;
  for (int col = first; col != last;) {
    col += first < last ? 1 : -1;
    if (const int order = CellIn(*left.row, col).compare(CellIn(*right.row, col)); order != 0) return order < 0;
  }
  return false;
}

}  // namespace

void Grid::Select(Cell cell, Cell end) {
  CheckCell(cell);
  CheckCell(end);
  MoveTo(cell, end, true);
}

void Grid::MoveTo(Cell cell, Cell end, bool byProgram) {
  if (current_ == cell && selectionEnd_ == end) return;
  const Cell before = std::exchange(current_, cell);
  selectionEnd_ = end;
  if (byProgram) Tell(&GridListener::OnSelectionChanged);
  TellMove(before);
}

void Grid::TellMove(Cell before) {
  if (current_ != before) Run(OnRowColChange);
}

void Grid::TopRow(int row) {
  CheckRow(row);
  const int nearest = NearestTopRow(row);
  if (std::exchange(topRow_, nearest) != nearest) Tell(&GridListener::OnTopRowChanged);
}

void Grid::TopRowInside() {
  if (!rows_.empty()) TopRow(NearestTopRow(topRow_));
}

int Grid::NearestTopRow(int row) const {
  const int last = std::max(Rows() - 1, 0);
  return std::clamp(row, std::min(fixedRows_, last), last);
}

Cell Grid::FirstFree() const {
  return {std::min(fixedRows_, std::max(Rows() - 1, 0)), std::min(fixedCols_, std::max(Cols() - 1, 0))};
}

void Grid::StayInside() {
  const auto bring = [this](Cell& cell) {
    cell.row = std::clamp(cell.row, 0, std::max(Rows() - 1, 0));
    cell.col = std::clamp(cell.col, 0, std::max(Cols() - 1, 0));
  };
  bring(current_);
  bring(selectionEnd_);
  if (!Has(mouse_)) mouse_ = Cell{-1, -1};
}

void Grid::SortAscending() {
  const int first = current_.col;
  const int last = selectionEnd_.col;
  std::vector<SortedRow> sorted;
  sorted.reserve(rows_.size());
  for (int row = fixedRows_; row < Rows(); ++row)
    sorted.push_back({CellIn(rows_[static_cast<std::size_t>(row)], first), &rows_[static_cast<std::size_t>(row)]});
  std::stable_sort(sorted.begin(), sorted.end(), [first, last](const SortedRow& left, const SortedRow& right) {
    return KeysLess(left, right, first, last);
  });
  GiveUpEditFrom(0);
  Tell(&GridListener::OnAboutToReset);
  std::vector<std::string> taken;
  taken.reserve(rows_.size());
  std::move(rows_.begin(), rows_.begin() + fixedRows_, std::back_inserter(taken));
  for (const SortedRow& row : sorted) taken.push_back(std::move(*row.row));
  rows_ = std::move(taken);
  Tell(&GridListener::OnReset);
}

}  // namespace tavrin
