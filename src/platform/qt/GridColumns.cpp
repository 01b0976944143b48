#include "platform/qt/GridColumns.h"

#include <QFontMetrics>
#include <QHeaderView>
#include <QStyle>
#include <QTableView>
#include <algorithm>
#include <numeric>
#include <vector>

#include "platform/controls/Grid.h"
#include "platform/qt/Text.h"
#include "platform/qt/ViewCommon.h"

namespace tavrin {

int GridColumns::LeastWidth(int col) const {
  const int least = view_.horizontalHeader()->sectionSizeHint(col);
  if (col >= grid_.FixedCols() || grid_.Rows() > kMostLabels) return least;
  return std::max(least, TextWidth(col));
}

int GridColumns::TextWidth(int col) const {
  const int margins = 2 * (view_.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &view_) + 1) + 1;
  const QFontMetrics metrics(view_.font());
  int widest = 0;
  for (int row = 1; row < grid_.Rows(); ++row) {
    widest = std::max(widest, metrics.horizontalAdvance(ToQt(grid_.Text({row, col}))) + margins);
  }
  return widest;
}

std::vector<int> GridColumns::TextWidths(int count) const {
  std::vector<int> texts(static_cast<std::size_t>(count), 0);
  if (grid_.Editable() || grid_.Rows() > kMostMeasured) return texts;
  for (int col = 0; col < count; ++col) {
    if (grid_.ColWidth(col) > 0) texts[static_cast<std::size_t>(col)] = TextWidth(col);
  }
  return texts;
}

void GridColumns::TakeRoom(std::vector<int>& widths, const std::vector<int>& texts, int last, int room) {
  if (last < 0) return;
  const auto end = static_cast<std::size_t>(last);
  room -= std::max(texts[end] - widths[end], 0);
  for (std::size_t col = 0; col < end && room > 0; ++col) {
    const int more = std::clamp(texts[col] - widths[col], 0, room);
    widths[col] += more;
    room -= more;
  }
}

float GridColumns::FontFactor(int col) const {
  constexpr float kDesignPoints = 8;  // the font for which the program gives its widths
  return col < grid_.FixedCols() ? 1 : std::max(grid_.FontSize() / kDesignPoints, 1.0F);
}

int GridColumns::Width(int col, int text) const {
  const float twips = grid_.ColWidth(col);
  if (twips <= 0) return 0;
  const int told = std::max(ToPixels(view_, twips * FontFactor(col)), LeastWidth(col));
  return std::max(told, std::min(text, told * kMostPercent / 100));
}

void GridColumns::Apply() {
  QHeaderView& header = *view_.horizontalHeader();
  const int count = std::min(grid_.Cols(), header.count());
  const std::vector<int> texts = TextWidths(count);
  std::vector<int> widths;
  int last = -1;
  for (int col = 0; col < count; ++col) {
    widths.push_back(Width(col, texts[static_cast<std::size_t>(col)]));
    // A fixed column without width is not for the user; any other stays in the heading to be pulled open there.
    view_.setColumnHidden(col, widths.back() == 0 && col < grid_.FixedCols());
    if (widths.back() > 0) last = col;
  }
  const auto rest = [&] { return view_.viewport()->width() - std::accumulate(widths.begin(), widths.end(), 0); };
  TakeRoom(widths, texts, last, rest());
  const int behind = rest();
  for (int col = 0; col < count; ++col) {
    int width = widths[static_cast<std::size_t>(col)];
    if (col == last) width = std::max(width, width + behind);
    if (!header.isSectionHidden(col) && header.sectionSize(col) != width) header.resizeSection(col, width);
  }
}

}  // namespace tavrin
