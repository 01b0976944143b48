// Shape, cells, rows and columns of a grid, and what it tells its view of them.
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/RuntimeError.h"
#include "platform/controls/Form.h"
#include "platform/controls/Grid.h"
#include "platform/controls/RecordingListeners.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

ErrorNumber NumberOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const RuntimeError& error) {
    return error.Number();
  }
  return ErrorNumber{};
}

/// A heading and two rows of three columns, the first of them fixed.
class GridShapeTest : public testing::Test {
 protected:
  GridShapeTest() {
    grid.Shape(1, 3, 1, 1);
    grid.AddItem("1\ta\tb");
    grid.AddItem("2\tc\td");
  }
  void Listen() { grid.Listen(&record); }

  Form form{"frmTest"};
  Grid grid{form, "grid"};
  GridRecord record;
};

TEST(GridTest, IsEmptyAtFirst) {
  Form form("frmTest");
  const Grid grid(form, "grid");
  EXPECT_EQ(grid.Rows(), 0);
  EXPECT_EQ(grid.Cols(), 0);
  EXPECT_EQ(grid.Current(), (Cell{0, 0}));
  EXPECT_EQ(grid.MouseCell(), (Cell{-1, -1}));
  EXPECT_EQ(grid.TopRow(), 0);
  EXPECT_EQ(grid.FontSize(), 8);
  EXPECT_TRUE(grid.Redraw());
  EXPECT_FALSE(grid.Editable());
  EXPECT_FALSE(grid.TabMovesCell());
  EXPECT_EQ(grid.OpenEdit(), nullptr);
}

TEST_F(GridShapeTest, HasTheShapeThatItWasGiven) {
  EXPECT_EQ(grid.Rows(), 3);
  EXPECT_EQ(grid.Cols(), 3);
  EXPECT_EQ(grid.FixedRows(), 1);
  EXPECT_EQ(grid.FixedCols(), 1);
  EXPECT_TRUE(grid.IsFixed({0, 1}));
  EXPECT_TRUE(grid.IsFixed({1, 0}));
  EXPECT_FALSE(grid.IsFixed({1, 1}));
}

TEST_F(GridShapeTest, ANewShapeKeepsTheTextsOfTheCellsThatStay) {
  grid.Shape(4, 4, 1, 1);
  EXPECT_EQ(grid.Text({2, 2}), "d");
  EXPECT_EQ(grid.Text({2, 3}), "");
  EXPECT_EQ(grid.Text({3, 0}), "");
  grid.Shape(2, 2, 1, 1);
  EXPECT_EQ(grid.RowText(1), "1\ta");
}

TEST_F(GridShapeTest, CellsThatWentDoNotComeBackWithTheirColumn) {
  grid.Shape(3, 1, 1, 1);
  grid.Shape(3, 3, 1, 1);
  EXPECT_EQ(grid.Text({1, 0}), "1");
  EXPECT_EQ(grid.Text({1, 1}), "");
  grid.Shape(3, 0, 1, 0);
  grid.Shape(3, 3, 1, 1);
  EXPECT_EQ(grid.Text({1, 0}), "");
}

TEST_F(GridShapeTest, TheFirstCellThatIsNotFixedBecomesTheCurrentOne) {
  grid.Select({2, 2});
  grid.Shape(3, 3, 2, 1);
  EXPECT_EQ(grid.Current(), (Cell{2, 1}));
  EXPECT_EQ(grid.SelectionEnd(), (Cell{2, 1}));
  grid.Select({0, 0});
  grid.Shape(3, 3, 2, 1);
  EXPECT_EQ(grid.Current(), (Cell{2, 1}));
}

TEST_F(GridShapeTest, WhereAllCellsAreFixedTheNearestOneIsTheCurrentOne) {
  grid.Shape(1, 3, 1, 1);
  EXPECT_EQ(grid.Current(), (Cell{0, 1}));
  EXPECT_EQ(grid.TopRow(), 0);
}

TEST_F(GridShapeTest, NumbersThatMakeNoGridAreRefused) {
  Listen();
  EXPECT_EQ(NumberOf([&] { grid.Shape(1, 3, 2, 1); }), ErrorNumber::InvalidCall);
  EXPECT_EQ(NumberOf([&] { grid.Shape(3, 1, 1, 2); }), ErrorNumber::InvalidCall);
  EXPECT_EQ(NumberOf([&] { grid.Shape(3, 3, -1, 0); }), ErrorNumber::InvalidCall);
  EXPECT_EQ(NumberOf([&] { grid.Shape(3, 3, 0, -1); }), ErrorNumber::InvalidCall);
  EXPECT_THAT(record.told, IsEmpty());
  EXPECT_EQ(grid.Rows(), 3);
}

TEST_F(GridShapeTest, AnotherShapeIsToldAsAWholeAndTheSameShapeNot) {
  grid.Select({1, 1});
  Listen();
  grid.Shape(3, 3, 1, 1);
  EXPECT_THAT(record.told, IsEmpty());
  grid.Shape(3, 3, 2, 1);
  EXPECT_THAT(record.told, ElementsAre("about to reset", "reset"));
}

TEST_F(GridShapeTest, RowsAddsEmptyRowsAndDropsRowsAtTheEnd) {
  Listen();
  grid.Rows(5);
  EXPECT_EQ(grid.Rows(), 5);
  EXPECT_EQ(grid.Text({4, 2}), "");
  EXPECT_THAT(record.told, ElementsAre("about to add 3 2", "added"));
  record.told.clear();
  grid.Rows(5);
  EXPECT_THAT(record.told, IsEmpty());
  grid.Rows(2);
  EXPECT_EQ(grid.Rows(), 2);
  EXPECT_EQ(grid.Text({1, 1}), "a");
  EXPECT_THAT(record.told, ElementsAre("about to remove 2 3", "removed", "selection"));
}

TEST_F(GridShapeTest, TheFixedRowsCannotBeDroppedOrRemoved) {
  EXPECT_EQ(NumberOf([&] { grid.Rows(0); }), ErrorNumber::InvalidCall);
  EXPECT_EQ(NumberOf([&] { grid.Rows(-1); }), ErrorNumber::InvalidCall);
  EXPECT_EQ(grid.Rows(), 3);
  grid.Rows(1);
  EXPECT_EQ(NumberOf([&] { grid.RemoveItem(0); }), ErrorNumber::InvalidCall);
  EXPECT_EQ(grid.Rows(), 1);
}

TEST_F(GridShapeTest, SetsTheTextOfACellAndTellsNoEqualOne) {
  Listen();
  grid.Text({1, 1}, "new");
  grid.Text({1, 1}, "new");
  EXPECT_EQ(grid.Text({1, 1}), "new");
  EXPECT_EQ(grid.RowText(1), "1\tnew\tb");
  EXPECT_THAT(record.told, ElementsAre("cell 1 1"));
}

TEST_F(GridShapeTest, ATextBehindTheEndOfARowFillsItUp) {
  Listen();
  grid.Text({0, 2}, "");
  EXPECT_THAT(record.told, IsEmpty());
  grid.Text({0, 2}, "heading");
  EXPECT_EQ(grid.RowText(0), "\t\theading");
  grid.Text({0, 0}, "x");
  EXPECT_EQ(grid.RowText(0), "x\t\theading");
  grid.Text({0, 2}, "");
  EXPECT_EQ(grid.Text({0, 2}), "");
  EXPECT_EQ(grid.Text({0, 0}), "x");
}

TEST_F(GridShapeTest, ATabInACellBecomesABlank) {
  grid.Text({1, 1}, "a\tb");
  EXPECT_EQ(grid.Text({1, 1}), "a b");
  EXPECT_EQ(grid.Text({1, 2}), "b");
  Listen();
  grid.Text({1, 1}, "a\tb");
  EXPECT_THAT(record.told, IsEmpty());
}

TEST_F(GridShapeTest, MissingCellsOfAnAddedRowAreEmptyAndFurtherOnesAreNeverSeen) {
  grid.AddItem("only");
  EXPECT_EQ(grid.Text({3, 0}), "only");
  EXPECT_EQ(grid.Text({3, 2}), "");
  grid.AddItem("1\t2\t3\t4\t5");
  EXPECT_EQ(grid.Text({4, 2}), "3");
  grid.Shape(5, 5, 1, 1);
  EXPECT_EQ(grid.Text({4, 3}), "");
  EXPECT_EQ(grid.RowText(4), "1\t2\t3");
}

TEST_F(GridShapeTest, AnAddedAndARemovedRowAreToldInPairs) {
  Listen();
  grid.AddItem("x");
  EXPECT_THAT(record.told, ElementsAre("about to add 3 1", "added"));
  record.told.clear();
  grid.RemoveItem(1);
  EXPECT_THAT(record.told, ElementsAre("about to remove 1 1", "removed", "selection"));
  EXPECT_EQ(grid.Rows(), 3);
  EXPECT_EQ(grid.RowText(1), "2\tc\td");
}

TEST_F(GridShapeTest, APositionThatDoesNotExistIsAnError) {
  const std::vector<std::function<void()>> calls = {
      [&] {
        (void)grid.Text({3, 0});
      },
      [&] {
        (void)grid.Text({0, 3});
      },
      [&] {
        (void)grid.Text({-1, 0});
      },
      [&] {
        (void)grid.Text({0, -1});
      },
      [&] {
        grid.Text({3, 0}, "x");
      },
      [&] {
        grid.Text({0, 3}, "x");
      },
      [&] { (void)grid.RowText(3); },
      [&] { (void)grid.RowText(-1); },
      [&] { grid.RemoveItem(3); },
      [&] { grid.RemoveItem(-1); },
      [&] { (void)grid.ColWidth(3); },
      [&] { grid.ColWidth(-1, 1); },
      [&] { (void)grid.ColAlignment(3); },
      [&] { grid.ColAlignment(3, Alignment::Right); },
      [&] {
        grid.Select({3, 0});
      },
      [&] {
        grid.Select({1, 1}, {1, 3});
      },
      [&] { grid.TopRow(3); },
      [&] { grid.UserScroll(-1); },
      [&] {
        grid.UserPointAt({3, 0});
      },
      [&] {
        grid.UserPress(MouseButton::Left, {1, 3});
      },
      [&] {
        grid.UserPress(MouseButton::Left, {-2, 0});
      },
      [&] {
        grid.UserSelect({3, 1});
      },
      [&] {
        grid.UserSelect({1, 1}, {3, 1});
      },
      [&] {
        grid.UserDblClick({0, 3});
      },
      [&] { grid.UserColWidth(3, 1); },
  };
  for (std::size_t i = 0; i < calls.size(); ++i) {
    EXPECT_EQ(NumberOf(calls[i]), ErrorNumber::SubscriptOutOfRange) << "call " << i;
  }
}

TEST_F(GridShapeTest, ColumnsHaveWidthsAndAlignments) {
  Listen();
  EXPECT_EQ(grid.ColWidth(1), 960);
  EXPECT_EQ(grid.ColAlignment(1), Alignment::Left);
  for (int i = 0; i < 2; ++i) {
    grid.ColWidth(1, 0);
    grid.ColAlignment(1, Alignment::Right);
    EXPECT_THAT(record.told, ElementsAre("columns", "columns"));
  }
  EXPECT_EQ(grid.ColWidth(1), 0);
  EXPECT_EQ(grid.ColAlignment(1), Alignment::Right);
  EXPECT_EQ(NumberOf([&] { grid.ColWidth(1, -1); }), ErrorNumber::InvalidCall);
  EXPECT_EQ(NumberOf([&] { grid.UserColWidth(1, -1); }), ErrorNumber::InvalidCall);
  EXPECT_EQ(grid.ColWidth(1), 0);
}

TEST_F(GridShapeTest, AWidthThatTheUserPullsIsNotToldBack) {
  Listen();
  grid.UserColWidth(2, 500);
  EXPECT_EQ(grid.ColWidth(2), 500);
  EXPECT_THAT(record.told, IsEmpty());
}

TEST_F(GridShapeTest, FontAndEditingComeAsPropertiesOfAControl) {
  int changes = 0;
  const auto counting = grid.Changed.Connect([&] { ++changes; });
  for (int i = 0; i < 2; ++i) {
    grid.FontSize(12);
    grid.Editable(true);
    grid.TabMovesCell(true);
    EXPECT_EQ(changes, 3);
  }
}

TEST_F(GridShapeTest, WhileRedrawingIsOffNothingIsToldButTheEnd) {
  Listen();
  grid.Editable(true);
  grid.Redraw(false);
  grid.Redraw(false);
  EXPECT_FALSE(grid.Redraw());
  EXPECT_THAT(record.told, ElementsAre("about to reset"));
  grid.Rows(1);
  grid.AddItem("x");
  grid.AddItem("y");
  grid.Text({1, 1}, "z");
  grid.ColWidth(1, 1);
  grid.Select({2, 2});
  grid.TopRow(2);
  grid.SortAscending();
  grid.Shape(4, 3, 1, 1);
  grid.UserBeginEdit();
  grid.UserEndEdit();
  grid.RemoveItem(1);
  EXPECT_THAT(record.told, ElementsAre("about to reset"));
  grid.Redraw(true);
  grid.Redraw(true);
  EXPECT_THAT(record.told, ElementsAre("about to reset", "reset"));
}

TEST_F(GridShapeTest, AViewThatComesWhileRedrawingIsOffIsToldThatEverythingChanges) {
  grid.Redraw(false);
  Listen();
  grid.Redraw(true);
  EXPECT_THAT(record.told, ElementsAre("about to reset", "reset"));
}

TEST_F(GridShapeTest, AViewThatLeftIsToldNothing) {
  Listen();
  grid.Listen(nullptr);
  grid.AddItem("x");
  EXPECT_THAT(record.told, IsEmpty());
}

/// Generous: these take some ten milliseconds, and a whole pass for each row would take minutes.
constexpr int kMany = 100'000;

TEST_F(GridShapeTest, AHundredThousandRowsAreFilledReadAndDropped) {
  Listen();
  for (int i = 0; i < kMany; ++i) grid.AddItem(std::to_string(i) + "\tname\tdata");
  for (int row = 3; row < grid.Rows(); ++row) ASSERT_EQ(grid.Text({row, 0}), std::to_string(row - 3));
  while (grid.Rows() > 3) grid.RemoveItem(grid.Rows() - 1);
  EXPECT_EQ(grid.Rows(), 3);
}

}  // namespace
}  // namespace tavrin
