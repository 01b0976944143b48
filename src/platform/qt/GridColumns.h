#pragma once

class QTableView;

namespace tavrin {

class Grid;

/// The columns of a grid's view. A column is as wide as the grid says in a font of 8 points, but never narrower than
/// its fixed texts: the heading, and the labels of a short grid. The last one that is seen reaches to the right edge.
class GridColumns {
 public:
  /// A longer grid has no labels whose widths would be worth a look at every row.
  static constexpr int kMostLabels = 100;

  GridColumns(QTableView& view, const Grid& grid) : view_(view), grid_(grid) {}

  /// Lays the columns out anew for the present size and font of the view.
  void Apply();
  /// Pixels that the fixed texts of a column need.
  [[nodiscard]] int LeastWidth(int col) const;
  /// How much wider than the grid says a column is, so that a larger font shows the same text. Labels have their own
  /// rule.
  [[nodiscard]] float FontFactor(int col) const;
  /// The width that a column would have if it were not the last one; 0 when it is hidden.
  [[nodiscard]] int Width(int col) const;

 private:
  QTableView& view_;
  const Grid& grid_;
};

}  // namespace tavrin
