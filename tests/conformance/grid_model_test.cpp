// Changes by program reach the toolkit in its own words: the tester of the model ends the program at the first wrong
// one.
#include <QAbstractItemModelTester>

#include <gtest/gtest.h>

#include "conformance/GridShown.h"
#include "platform/qt/GridModel.h"

namespace tavrin {
namespace {

TEST(GridModel, RowsComeAndGo) {
  GridShown shown;
  shown.grid.AddItem("k5\tepsilon");
  EXPECT_EQ(Differences(shown.view, shown.grid), "");
  shown.grid.Rows(20);
  EXPECT_EQ(Differences(shown.view, shown.grid), "");
  shown.grid.RemoveItem(3);
  EXPECT_EQ(Differences(shown.view, shown.grid), "");
  shown.grid.Select({18, 3}, {15, 1});
  shown.grid.Rows(4);
  EXPECT_EQ(shown.grid.Row(), 3);
  EXPECT_EQ(Differences(shown.view, shown.grid), "");
}

TEST(GridModel, TheHeadingComesAndGoesWithoutRows) {
  Form form("frmTest");
  Grid grid(form, "vsgTest");
  GridView view(grid);
  const QAbstractItemModelTester tester(view.model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
  grid.Shape(0, 2, 0, 0);
  grid.Rows(1);
  grid.Text({0, 1}, "heading");
  EXPECT_EQ(view.model()->rowCount(), 0);
  EXPECT_EQ(view.model()->headerData(1, Qt::Horizontal).toString(), QStringLiteral("heading"));
  grid.AddItem("a\tb");
  grid.AddItem("c\td");
  EXPECT_EQ(view.model()->rowCount(), 2);
  grid.RemoveItem(0);
  EXPECT_EQ(view.model()->headerData(1, Qt::Horizontal).toString(), QStringLiteral("b"));
  EXPECT_EQ(view.model()->index(0, 1).data().toString(), QStringLiteral("d"));
  grid.Rows(0);
  EXPECT_EQ(view.model()->rowCount(), 0);
  grid.Rows(3);
  EXPECT_EQ(view.model()->rowCount(), 2);
}

TEST(GridModel, NothingIsShownWhileRedrawingIsOff) {
  GridShown shown;
  shown.grid.Redraw(false);
  EXPECT_FALSE(shown.view.updatesEnabled());
  EXPECT_EQ(shown.view.model()->rowCount(), 0);
  shown.grid.Shape(3, 2, 1, 0);
  shown.grid.Text({2, 1}, "late");
  shown.grid.Visible(false);
  shown.grid.Visible(true);
  shown.window.grab();
  shown.grid.Redraw(true);
  EXPECT_TRUE(shown.view.updatesEnabled());
  EXPECT_EQ(Differences(shown.view, shown.grid), "");
}

TEST(GridModel, AViewMayComeWhileRedrawingIsOff) {
  Form form("frmTest");
  Grid grid(form, "vsgTest");
  grid.Redraw(false);
  grid.Shape(3, 2, 1, 0);
  GridView view(grid);  // no tester: it would miss the beginning of the change that ends now
  grid.Redraw(true);
  EXPECT_EQ(view.model()->rowCount(), 2);
  EXPECT_EQ(view.model()->columnCount(), 2);
}

TEST(GridModel, AGridLivesOnWithoutItsView) {
  Form form("frmTest");
  Grid grid(form, "vsgTest");
  { const GridView view(grid); }
  grid.Shape(3, 2, 1, 0);
  grid.ToolTip("after it");
  EXPECT_EQ(grid.Rows(), 3);
}

TEST(GridModel, TextsAndTheSelectionFollowTheProgram) {
  GridShown shown;
  shown.grid.Text({2, 1}, "\xC4nderung");
  shown.grid.Text({0, 1}, "Bezeichnung");
  shown.grid.Select({2, 3}, {4, 1});
  EXPECT_EQ(Differences(shown.view, shown.grid), "");
  shown.grid.Select({0, 1});
  EXPECT_EQ(Differences(shown.view, shown.grid), "");
}

TEST(GridModel, AlignmentsAreThoseOfTheColumns) {
  GridShown shown;
  shown.grid.ColAlignment(2, Alignment::Right);
  const auto alignment = [&](int col) {
    return shown.view.model()->index(0, col).data(Qt::TextAlignmentRole).value<Qt::Alignment>();
  };
  EXPECT_TRUE(alignment(2).testFlag(Qt::AlignRight));
  EXPECT_TRUE(alignment(1).testFlag(Qt::AlignLeft));
  const QVariant heading = shown.view.model()->headerData(2, Qt::Horizontal, Qt::TextAlignmentRole);
  EXPECT_TRUE(heading.value<Qt::Alignment>().testFlag(Qt::AlignRight));
}

TEST(GridModel, FixedCellsCannotBeSelectedAndOnlyAnEditableGridSaysThatItIs) {
  GridShown shown;
  const auto flags = [&](int row, int col) { return shown.view.model()->index(row, col).flags(); };
  EXPECT_FALSE(flags(0, 0).testFlag(Qt::ItemIsSelectable));
  EXPECT_FALSE(flags(0, 0).testFlag(Qt::ItemIsEditable));
  EXPECT_TRUE(flags(0, 1).testFlag(Qt::ItemIsSelectable));
  EXPECT_TRUE(flags(0, 1).testFlag(Qt::ItemIsEditable));
  shown.grid.Editable(false);
  EXPECT_FALSE(flags(0, 1).testFlag(Qt::ItemIsEditable));
}

TEST(GridModel, NobodyWritesThroughTheToolkit) {
  GridShown shown;
  EXPECT_FALSE(shown.view.model()->setData(shown.view.model()->index(0, 1), QStringLiteral("x")));
  EXPECT_EQ(shown.grid.Text({1, 1}), "alpha");
}

}  // namespace
}  // namespace tavrin
