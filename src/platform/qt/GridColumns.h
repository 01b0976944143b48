#pragma once

#include <vector>

class QTableView;

namespace tavrin {

class Grid;

/// The columns of a grid's view. A column is as wide as the grid says in a font of 8 points, but never narrower than
/// its fixed texts: the heading, and the labels of a short grid. The last one that is seen reaches to the right edge.
///
/// In a grid that is only read a column is also as wide as its texts, up to one and a half times its width: the program
/// gives its widths for a font in which dates and names are narrower. More than that the others take of the last one's
/// room, as far as its own texts do not need it. A grid too long to be measured keeps the widths of its program.
class GridColumns {
 public:
  /// A longer grid has no labels whose widths would be worth a look at every row.
  static constexpr int kMostLabels = 100;
  /// Rows, with the heading, of a grid whose texts are measured each time the columns are laid out.
  static constexpr int kMostMeasured = 1001;
  /// How wide a column becomes for its texts where there is no room to spare.
  static constexpr int kMostPercent = 150;

  GridColumns(QTableView& view, const Grid& grid) : view_(view), grid_(grid) {}

  /// Lays the columns out anew for the present size and font of the view.
  void Apply();
  /// Pixels that the fixed texts of a column need.
  [[nodiscard]] int LeastWidth(int col) const;
  /// How much wider than the grid says a column is, so that a larger font shows the same text. Labels have their own
  /// rule.
  [[nodiscard]] float FontFactor(int col) const;

 private:
  /// Pixels that the texts of a column below the heading need.
  [[nodiscard]] int TextWidth(int col) const;
  /// That of each column; 0 for one that is hidden, and for all when the grid is not measured.
  [[nodiscard]] std::vector<int> TextWidths(int count) const;
  /// The width that a column with texts of a width would have if it were not the last one; 0 when it is hidden.
  [[nodiscard]] int Width(int col, int text) const;
  /// Makes the columns as wide as their texts as far as the room behind the last one allows.
  static void TakeRoom(std::vector<int>& widths, const std::vector<int>& texts, int last, int room);

  QTableView& view_;
  const Grid& grid_;
};

}  // namespace tavrin
