#include "platform/qt/GridColumns.h"

#include <QFontMetrics>
#include <QHeaderView>
#include <QStyle>
#include <QTableView>
#include <algorithm>
#include <vector>

#include "platform/controls/Grid.h"
#include "platform/qt/Text.h"
#include "platform/qt/ViewCommon.h"

namespace tavrin {

int GridColumns::LeastWidth(int col) const {
  int least = view_.horizontalHeader()->sectionSizeHint(col);
  if (col >= grid_.FixedCols() || grid_.Rows() > kMostLabels) return least;
  const int margins = 2 * (view_.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &view_) + 1) + 1;
  const QFontMetrics metrics(view_.font());
  for (int row = 1; row < grid_.Rows(); ++row) {
    least = std::max(least, metrics.horizontalAdvance(ToQt(grid_.Text({row, col}))) + margins);
  }
  return least;
}

float GridColumns::FontFactor(int col) const {
  constexpr float kDesignPoints = 8;  // the font for which the program gives its widths
  return col < grid_.FixedCols() ? 1 : std::max(grid_.FontSize() / kDesignPoints, 1.0F);
}

int GridColumns::Width(int col) const {
  const float twips = grid_.ColWidth(col);
  if (twips <= 0) return 0;
  return std::max(ToPixels(view_, twips * FontFactor(col)), LeastWidth(col));
}

void GridColumns::Apply() {
  QHeaderView& header = *view_.horizontalHeader();
  const int count = std::min(grid_.Cols(), header.count());
  std::vector<int> widths;
  int rest = view_.viewport()->width();
  int last = -1;
  for (int col = 0; col < count; ++col) {
    widths.push_back(Width(col));
    // A fixed column without width is not for the user; any other stays in the heading to be pulled open there.
    view_.setColumnHidden(col, widths.back() == 0 && col < grid_.FixedCols());
    rest -= widths.back();
    if (widths.back() > 0) last = col;
  }
  for (int col = 0; col < count; ++col) {
    int width = widths[static_cast<std::size_t>(col)];
    if (col == last) width = std::max(width, width + rest);
    if (!header.isSectionHidden(col) && header.sectionSize(col) != width) header.resizeSection(col, width);
  }
}

}  // namespace tavrin
