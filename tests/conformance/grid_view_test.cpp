// How a grid looks: widths, fonts, positions, and how fast.
#include <QApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QScrollBar>
#include <QTest>
#include <QToolTip>

#include <gtest/gtest.h>

#include "conformance/GridShown.h"
#include "platform/qt/Text.h"
#include "platform/qt/ViewCommon.h"

namespace tavrin {
namespace {

int Total(const QHeaderView& header) { return header.length(); }

TEST(GridColumns, WidthsAreTwips) {
  GridShown shown;
  shown.grid.ColWidth(1, 1500);
  EXPECT_EQ(shown.view.columnWidth(1), ToPixels(shown.view, 1500));
  shown.grid.ColWidth(1, 0);
  EXPECT_EQ(shown.view.columnWidth(1), 0);
  shown.grid.ColWidth(1, 2000);
  EXPECT_EQ(shown.view.columnWidth(1), ToPixels(shown.view, 2000));
}

TEST(GridColumns, TheLastColumnInSightReachesToTheRightEdge) {
  GridShown shown;
  EXPECT_EQ(Total(*shown.view.horizontalHeader()), shown.view.viewport()->width());
  shown.grid.ColWidth(3, 0);
  EXPECT_EQ(Total(*shown.view.horizontalHeader()), shown.view.viewport()->width());
  shown.window.resize(900, 500);
  EXPECT_EQ(Total(*shown.view.horizontalHeader()), shown.view.viewport()->width());
  EXPECT_FLOAT_EQ(shown.grid.ColWidth(2), 1500);
}

TEST(GridColumns, TheLastColumnKeepsItsWidthInAViewThatIsTooNarrow) {
  GridShown shown;
  for (int col = 1; col < 4; ++col) shown.grid.ColWidth(col, 6000);
  EXPECT_EQ(shown.view.columnWidth(3), ToPixels(shown.view, 6000));
  EXPECT_TRUE(QTest::qWaitFor([&] { return shown.view.horizontalScrollBar()->isVisible(); }));
}

TEST(GridColumns, AColumnIsNeverNarrowerThanItsHeading) {
  GridShown shown;
  shown.grid.Text({0, 1},
                  "Eine sehr lange \xDC"
                  "berschrift");
  shown.grid.ColWidth(1, 300);
  EXPECT_GE(shown.view.columnWidth(1), shown.view.horizontalHeader()->sectionSizeHint(1));
  const int small = shown.view.columnWidth(1);
  shown.grid.FontSize(12);
  EXPECT_GT(shown.view.columnWidth(1), small);
}

TEST(GridColumns, AColumnOfLabelsIsNeverNarrowerThanThem) {
  GridShown shown;
  shown.grid.Text({5, 0}, "Eine Beschriftung, die l\xE4nger ist als ihre Spalte");
  shown.grid.ColWidth(0, 600);
  const QString label = shown.view.model()->index(4, 0).data().toString();
  EXPECT_GT(shown.view.columnWidth(0), shown.view.fontMetrics().horizontalAdvance(label));
  shown.grid.Rows(500);
  shown.grid.ColWidth(0, 601);
  EXPECT_EQ(shown.view.columnWidth(0), ToPixels(shown.view, 601)) << "a long grid is not looked through";
}

TEST(GridColumns, APullBelowTheLeastWidthStopsThere) {
  GridShown shown;
  shown.view.horizontalHeader()->resizeSection(1, 2);
  const int least = shown.view.horizontalHeader()->sectionSizeHint(1);
  EXPECT_EQ(shown.view.columnWidth(1), least);
  EXPECT_FLOAT_EQ(shown.grid.ColWidth(1), ToTwips(shown.view, least));
}

TEST(GridColumns, ALargerFontWidensColumnsButLeavesTheirTwips) {
  GridShown shown;
  shown.grid.ColWidth(1, 1500);
  shown.grid.FontSize(12);
  EXPECT_EQ(shown.view.columnWidth(1), ToPixels(shown.view, 2250));
  EXPECT_FLOAT_EQ(shown.grid.ColWidth(1), 1500);
  shown.view.horizontalHeader()->resizeSection(1, ToPixels(shown.view, 3000));
  EXPECT_FLOAT_EQ(shown.grid.ColWidth(1), 2000);
  shown.grid.FontSize(8);
  EXPECT_EQ(shown.view.columnWidth(1), ToPixels(shown.view, 2000));
}

/// Colour in the corner of the rows' area below all cells.
QColor CornerOf(GridShown& shown) {
  const QImage image = shown.view.viewport()->grab().toImage();
  return image.pixelColor(image.width() - 1, image.height() - 1);
}

TEST(GridFocus, WithoutACellInSightTheWholeGridShowsTheKeyboard) {
  GridShown shown;
  const QColor ring = shown.view.palette().color(QPalette::Text);
  shown.grid.Select({2, 1});
  EXPECT_NE(CornerOf(shown), ring);
  shown.grid.Select({0, 0});
  EXPECT_EQ(CornerOf(shown), ring);
  EXPECT_FALSE(shown.view.currentIndex().isValid()) << "the last cell must not stay marked";
  shown.neighbour.setFocus();
  EXPECT_NE(CornerOf(shown), ring);
  shown.view.setFocus();
  EXPECT_EQ(CornerOf(shown), ring);
  shown.Press(Qt::Key_Down);
  EXPECT_NE(CornerOf(shown), ring);
}

TEST(GridFont, TheFontIsThatOfTheGridInRowsAndHeadings) {
  GridShown shown;
  EXPECT_DOUBLE_EQ(shown.view.font().pointSizeF(), 8);
  const int small = shown.view.rowHeight(0);
  shown.grid.FontSize(12);
  EXPECT_DOUBLE_EQ(shown.view.font().pointSizeF(), 12);
  EXPECT_DOUBLE_EQ(shown.view.horizontalHeader()->font().pointSizeF(), 12);
  EXPECT_GT(shown.view.rowHeight(0), small);
  EXPECT_GT(shown.view.rowHeight(0), shown.view.fontMetrics().height());
}

TEST(GridScroll, TheTopRowFollowsTheProgram) {
  GridShown shown;
  shown.grid.Rows(1000);
  shown.grid.TopRow(200);
  EXPECT_EQ(shown.view.rowAt(0) + 1, 200);
  shown.grid.Redraw(false);
  shown.grid.TopRow(300);
  shown.grid.Redraw(true);
  EXPECT_EQ(shown.view.rowAt(0) + 1, 300);
  EXPECT_EQ(shown.grid.TopRow(), 300);
}

TEST(GridScroll, TheTopRowIsKeptWhileTheGridIsHidden) {
  GridShown shown;
  shown.grid.Rows(1000);
  shown.grid.Visible(false);
  shown.grid.TopRow(200);
  shown.grid.Visible(true);
  EXPECT_EQ(shown.grid.TopRow(), 200);
  EXPECT_EQ(shown.view.rowAt(0) + 1, 200);
}

TEST(GridScroll, TheCurrentCellIsBroughtIntoSight) {
  GridShown shown;
  shown.grid.Rows(1000);
  shown.grid.Select({700, 2});
  const QRect cell = shown.view.visualRect(shown.view.currentIndex());
  EXPECT_TRUE(shown.view.viewport()->rect().contains(cell.center()));
  EXPECT_EQ(shown.grid.TopRow(), shown.view.rowAt(0) + 1);
}

TEST(GridScroll, ATopRowOfALowestFixedRowShowsTheFixedRows) {
  GridShown shown;
  shown.grid.Shape(500, 3, 3, 1);
  shown.grid.TopRow(100);
  shown.grid.TopRow(3);
  EXPECT_EQ(shown.view.verticalScrollBar()->value(), 0);
}

TEST(GridState, EnabledVisibleAndNameFollowTheControl) {
  GridShown shown;
  shown.grid.SpokenName("Tags <b>");
  shown.grid.Enabled(false);
  EXPECT_EQ(Differences(shown.view, shown.grid), "");
  shown.grid.Visible(false);
  EXPECT_EQ(Differences(shown.view, shown.grid), "");
}

/// Colours of the cell's edges and middle, to tell how it looks.
QColor EdgeOf(GridShown& shown, Cell cell) {
  const QRect place = shown.view.visualRect(shown.view.model()->index(cell.row - 1, cell.col));
  return shown.view.viewport()->grab().toImage().pixelColor(place.topLeft() + QPoint(place.width() / 2, 0));
}

QColor GroundOf(GridShown& shown, Cell cell) {
  const QRect place = shown.view.visualRect(shown.view.model()->index(cell.row - 1, cell.col));
  return shown.view.viewport()->grab().toImage().pixelColor(place.topRight() + QPoint(-6, place.height() / 2));
}

TEST(GridLook, TheCurrentCellHasARingWithAndWithoutTheKeyboard) {
  GridShown shown;
  shown.grid.Select({2, 2});
  EXPECT_EQ(EdgeOf(shown, {2, 2}), shown.view.palette().color(QPalette::Text));
  EXPECT_NE(EdgeOf(shown, {3, 2}), shown.view.palette().color(QPalette::Text));
  EXPECT_EQ(GroundOf(shown, {2, 2}), shown.view.palette().color(QPalette::Highlight));
  shown.neighbour.setFocus();
  EXPECT_EQ(EdgeOf(shown, {2, 2}), shown.view.palette().color(QPalette::Text));
  EXPECT_NE(GroundOf(shown, {2, 2}), shown.view.palette().color(QPalette::Highlight));
  EXPECT_NE(GroundOf(shown, {2, 2}), GroundOf(shown, {3, 2}));
}

TEST(GridLook, FixedCellsLookLikeLabels) {
  GridShown shown;
  shown.grid.Shape(6, 4, 2, 1);
  shown.grid.ColWidth(0, 1000);
  EXPECT_EQ(GroundOf(shown, {3, 0}), shown.view.palette().color(QPalette::Button));
  EXPECT_EQ(GroundOf(shown, {1, 3}), shown.view.palette().color(QPalette::Button));
  EXPECT_EQ(GroundOf(shown, {3, 3}), shown.view.palette().color(QPalette::Base));
}

TEST(GridLook, ATextThatDoesNotFitIsShownInFull) {
  GridShown shown;
  const std::string whole = std::string(200, 'w') + " <b>&";
  shown.grid.Text({2, 1}, whole);
  const auto ask = [&](Cell cell) {
    QToolTip::hideText();
    const QPoint place = shown.PlaceOf(cell);
    QHelpEvent help(QEvent::ToolTip, place, shown.view.viewport()->mapToGlobal(place));
    QApplication::sendEvent(shown.view.viewport(), &help);
    return QToolTip::text();
  };
  EXPECT_EQ(ask({3, 1}), QString());
  EXPECT_TRUE(ask({2, 1}).contains(QStringLiteral("www &lt;b&gt;&amp;")));
  shown.grid.ToolTip("of the grid");
  EXPECT_EQ(ask({3, 1}), QStringLiteral("of the grid"));
}

TEST(GridOfAMillionRows, IsShownAndSelectedAsAWhole) {
  GridShown shown;
  constexpr int kRows = 1'000'001;
  shown.grid.Redraw(false);
  shown.grid.Rows(1);
  for (int row = 1; row < kRows; ++row) shown.grid.AddItem("k\tname of a tag\tDB1,W2\tcomment");
  shown.grid.Redraw(true);
  shown.view.grab();
  EXPECT_EQ(shown.view.model()->rowCount(), 1'000'000);
  shown.Press(Qt::Key_Down);
  shown.Press(Qt::Key_End, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(shown.grid.SelectionEnd().row, 1'000'000);
}

// ---- a grid that is only read

struct ReadOnlyGrid {
  ReadOnlyGrid() {
    grid.Shape(2, 3, 1, 0);
    for (int col = 0; col < 2; ++col) grid.ColWidth(col, 600);
    grid.Text({1, 0}, "20.11.2026 10:30:00");
    view.setFixedWidth(500);
    view.show();
  }
  [[nodiscard]] int TextWidth(int col) const { return view.fontMetrics().horizontalAdvance(ToQt(grid.Text({1, col}))); }

  Form form{"frmTest"};
  Grid grid{form, "vsgTest"};
  GridView view{grid};
};

TEST(GridThatIsRead, AColumnTakesTheRoomThatItsTextNeedsFromTheLastOne) {
  ReadOnlyGrid shown;
  EXPECT_GT(shown.view.columnWidth(0), shown.TextWidth(0));
  EXPECT_EQ(shown.view.columnWidth(1), 40) << "an empty one needs none";
  EXPECT_EQ(shown.view.columnWidth(0) + shown.view.columnWidth(1) + shown.view.columnWidth(2),
            shown.view.viewport()->width());
}

TEST(GridThatIsRead, TheLastColumnKeepsTheRoomThatItsOwnTextNeeds) {
  ReadOnlyGrid shown;
  shown.grid.Text({1, 2}, std::string(200, 'w'));
  shown.view.setFixedWidth(501);
  QCoreApplication::processEvents();
  EXPECT_EQ(shown.view.columnWidth(0), 60) << "half as wide again, however little room there is";
}

TEST(GridThatIsRead, OneThatIsEditedKeepsTheWidthsOfItsProgram) {
  ReadOnlyGrid shown;
  shown.grid.Editable(true);
  shown.view.setFixedWidth(501);
  QCoreApplication::processEvents();
  EXPECT_EQ(shown.view.columnWidth(0), 40);
}

}  // namespace
}  // namespace tavrin
