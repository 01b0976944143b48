#include "platform/qt/GridKeys.h"

#include <algorithm>
#include <array>

namespace tavrin {
namespace {

/// A way through the grid, in rows and columns; far means to the edge.
struct Way {
  int key;
  int rows;
  int cols;
  bool pages = false;
  bool far = false;
  /// With Ctrl: rows of the way to the edge.
  int ctrlRows = 0;
};

constexpr std::array kWays{
    Way{Qt::Key_Up, -1, 0, false, false, -1},
    Way{Qt::Key_Down, 1, 0, false, false, 1},
    Way{Qt::Key_Left, 0, -1},
    Way{Qt::Key_Right, 0, 1},
    Way{Qt::Key_PageUp, -1, 0, true, false, -1},
    Way{Qt::Key_PageDown, 1, 0, true, false, 1},
    Way{Qt::Key_Home, 0, -1, false, true, -1},
    Way{Qt::Key_End, 0, 1, false, true, 1},
};

/// The next column in a direction that can be seen and is not fixed, -1 when there is none.
int NextColumn(const Grid& grid, int from, int step) {
  for (int col = from + step; col >= grid.FixedCols() && col < grid.Cols(); col += step) {
    if (grid.ColWidth(col) > 0) return col;
  }
  return -1;
}

}  // namespace

std::optional<Cell> CellReachedBy(const Grid& grid, int key, bool ctrl, Cell from, int page) {
  const auto* const way =
      std::find_if(kWays.begin(), kWays.end(), [key](const Way& known) { return known.key == key; });
  const int firstCol = NextColumn(grid, grid.FixedCols() - 1, 1);
  const int lastCol = NextColumn(grid, grid.Cols(), -1);
  const int firstRow = grid.FixedRows();
  const int lastRow = grid.Rows() - 1;
  if (way == kWays.end() || firstCol < 0 || firstRow > lastRow) return std::nullopt;
  if (grid.IsFixed(from)) return Cell{std::max(from.row, firstRow), std::max(from.col, firstCol)};

  const auto edge = [](int step, int here, int first, int last) { return step == 0 ? here : step < 0 ? first : last; };
  Cell to = from;
  if (ctrl) {
    to.row = edge(way->ctrlRows, from.row, firstRow, lastRow);
    to.col = edge(way->cols, from.col, firstCol, lastCol);
  } else {
    const int rows = way->rows * (way->pages ? std::max(page, 1) : 1);
    to.row = std::clamp(from.row + rows, firstRow, lastRow);
    const int next = way->cols == 0 ? from.col : NextColumn(grid, from.col, way->cols);
    to.col = way->far ? edge(way->cols, from.col, firstCol, lastCol) : std::max(next, next < 0 ? from.col : next);
  }
  return to;
}

}  // namespace tavrin
