// How wide the columns of a grid are that is only read.
#include <QCoreApplication>
#include <string>

#include <gtest/gtest.h>

#include "platform/controls/Form.h"
#include "platform/controls/Grid.h"
#include "platform/qt/GridColumns.h"
#include "platform/qt/GridView.h"
#include "platform/qt/Text.h"

namespace tavrin {
namespace {

constexpr float kTwipsPerPixel = 15;

/// Columns 0 and 1 have a width; the texts of the last column leave no room for those of the others.
struct FullGrid {
  explicit FullGrid(int rows = 1) {
    grid.Shape(rows + 1, 3, 1, 0);
    for (int col = 0; col < 2; ++col) grid.ColWidth(col, kTold * kTwipsPerPixel);
    grid.Text({rows, 2}, std::string(300, 'w'));
    view.setFixedWidth(500);
    view.show();
  }
  void LayOut() {
    view.setFixedWidth(view.width() + 1);
    QCoreApplication::processEvents();
  }
  [[nodiscard]] int Advance(const std::string& text) const { return view.fontMetrics().horizontalAdvance(ToQt(text)); }

  static constexpr int kTold = 80;
  Form form{"frmTest"};
  Grid grid{form, "vsgTest"};
  GridView view{grid};
};

TEST(ColumnsThatAreRead, AreWideEnoughForTextsThatAreALittleWiderThanTold) {
  FullGrid shown;
  std::string text = "i";
  while (shown.Advance(text) <= FullGrid::kTold) text += 'i';
  shown.grid.Text({1, 0}, text);
  shown.LayOut();
  EXPECT_GT(shown.view.columnWidth(0), shown.Advance(text));
  EXPECT_LT(shown.view.columnWidth(0), FullGrid::kTold * 3 / 2);
  EXPECT_EQ(shown.view.columnWidth(1), FullGrid::kTold) << "an empty one needs no more";
}

TEST(ColumnsThatAreRead, AreAtMostHalfAsWideAgain) {
  FullGrid shown;
  shown.grid.Text({1, 1}, std::string(200, 'w'));
  shown.LayOut();
  EXPECT_EQ(shown.view.columnWidth(0), FullGrid::kTold);
  EXPECT_EQ(shown.view.columnWidth(1), FullGrid::kTold * 3 / 2);
}

TEST(ColumnsThatAreRead, AreMeasuredWhenTheirRowsCome) {
  FullGrid shown;
  shown.grid.Redraw(false);
  shown.grid.Rows(1);
  shown.grid.AddItem(std::string(200, 'w') + "\t\t" + std::string(200, 'w'));
  shown.grid.Redraw(true);
  EXPECT_EQ(shown.view.columnWidth(0), FullGrid::kTold * 3 / 2);
}

TEST(ColumnsThatAreRead, KeepTheWidthsOfTheProgramInALongGrid) {
  constexpr int kMost = GridColumns::kMostMeasured - 1;
  for (const int rows : {kMost, kMost + 1}) {
    FullGrid shown(rows);
    shown.grid.Text({rows, 0}, std::string(200, 'w'));
    shown.LayOut();
    EXPECT_EQ(shown.view.columnWidth(0), rows == kMost ? FullGrid::kTold * 3 / 2 : FullGrid::kTold) << rows;
  }
}

TEST(ColumnsThatAreRead, KeepTheWidthsOfTheProgramWhenTheyCanBeEdited) {
  FullGrid shown;
  shown.grid.Editable(true);
  shown.grid.Text({1, 0}, std::string(200, 'w'));
  shown.LayOut();
  EXPECT_EQ(shown.view.columnWidth(0), FullGrid::kTold);
}

TEST(ColumnsThatAreRead, StayAwayWhenTheyHaveNoWidth) {
  FullGrid shown;
  shown.grid.ColWidth(0, 0);
  shown.grid.Text({1, 0}, std::string(200, 'w'));
  shown.LayOut();
  EXPECT_EQ(shown.view.columnWidth(0), 0);
}

}  // namespace
}  // namespace tavrin
