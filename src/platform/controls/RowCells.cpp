#include "platform/controls/RowCells.h"

#include <algorithm>

namespace tavrin {

namespace {

/// npos when the row ends before the cell.
std::size_t StartOfCell(std::string_view row, int col) {
  std::size_t start = 0;
  for (; col > 0; --col) {
    const auto tab = row.find('\t', start);
    if (tab == std::string_view::npos) return tab;
    start = tab + 1;
  }
  return start;
}

}  // namespace

std::string_view CellIn(std::string_view row, int col) {
  const auto start = StartOfCell(row, col);
  if (start == std::string_view::npos) return {};
  return row.substr(start, row.find('\t', start) - start);
}

bool SetCellIn(std::string& row, int col, std::string_view value) {
  std::string text(value);
  std::replace(text.begin(), text.end(), '\t', ' ');
  if (CellIn(row, col) == text) return false;
  for (auto missing = col - std::count(row.begin(), row.end(), '\t'); missing > 0; --missing) row += '\t';
  row.replace(StartOfCell(row, col), CellIn(row, col).size(), text);
  return true;
}

void CutToColumns(std::string& row, int cols) {
  const auto beyond = StartOfCell(row, cols);
  if (beyond != std::string::npos) row.resize(beyond == 0 ? 0 : beyond - 1);
}

}  // namespace tavrin
