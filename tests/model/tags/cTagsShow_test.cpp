#include <array>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/PaneTest.h"
#include "model/tags/cTags.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::array kTypes{0, 1, 2, 3, 4};
constexpr std::array kOtherTypes{-1, 5, 99};

class cTagsShowTest : public PaneTest {
 protected:
  cTagsShowTest() {
    list.szFileName("tags.csv");
    for (int col = 0; col < grid.Cols(); ++col) grid.ColWidth(col, 700);
  }

  void Read(std::string_view content) {
    directory.Write("tags.csv", content);
    list.Refresh(0, 1);
  }
  [[nodiscard]] std::vector<float> Widths() const {
    std::vector<float> widths;
    for (int col = 0; col < grid.Cols(); ++col) widths.push_back(grid.ColWidth(col));
    return widths;
  }

  cTags list;
  Grid& grid = pane.vsgTags;
};

TEST_F(cTagsShowTest, ARowATagInTheOrderOfTheFileAndAnEmptyOneForANewTag) {
  Read("T2;MB10;RW;HYL=1;HYU=2;LB=3;UB=4;TST=5;CMT=a b\r\nT1;MB20;RO\r\n");
  for (const int nDeviceType : kTypes) {
    list.Show(grid, nDeviceType);
    EXPECT_THAT(Lines(grid), ElementsAre("T2|T2|MB10|RW|1|2|3|4|5|a b", "T1|T1|MB20|RO||||||", "|||||||||"))
        << nDeviceType;
  }
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(cTagsShowTest, TheHeadingStays) {
  grid.Text({0, 1}, "Tag");
  list.Show(grid, 0);
  EXPECT_EQ(grid.Text({0, 1}), "Tag");
}

TEST_F(cTagsShowTest, WidthsFollowTheTypeAndTheCommentKeepsItsOwn) {
  for (const int nDeviceType : {0, 1, 2, 3}) {
    list.Show(grid, nDeviceType);
    EXPECT_THAT(Widths(), ElementsAre(0, 3000, 1500, 1200, 0, 0, 0, 0, 1200, 700)) << nDeviceType;
  }
  list.Show(grid, 4);
  EXPECT_THAT(Widths(), ElementsAre(0, 1800, 1200, 1200, 900, 900, 0, 0, 900, 700));
}

TEST_F(cTagsShowTest, AnyOtherTypeHidesTheKeySetsNoWidthAndAddsNoTag) {
  Read("T1;MB10;RW\r\n");
  for (const int nDeviceType : kOtherTypes) {
    list.Show(grid, nDeviceType);
    EXPECT_THAT(Widths(), ElementsAre(0, 700, 700, 700, 700, 700, 700, 700, 700, 700)) << nDeviceType;
    EXPECT_THAT(Lines(grid), ElementsAre("|||||||||")) << nDeviceType;
  }
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(cTagsShowTest, AnEmptyListShowsTheEmptyRow) {
  list.Show(grid, 0);
  EXPECT_THAT(Lines(grid), ElementsAre("|||||||||"));
}

TEST_F(cTagsShowTest, TheRowsOfTheDeviceBeforeAreGone) {
  Read("T1;MB10;RW\r\nT2;MB10;RW\r\nT3;MB10;RW\r\n");
  list.Show(grid, 0);
  cTags other;
  other.Show(grid, 0);
  EXPECT_EQ(grid.Rows(), 2);
}

TEST_F(cTagsShowTest, TheCornerIsTheCurrentCellAndAloneSelected) {
  Read("T1;MB10;RW\r\n");
  list.Show(grid, 0);
  grid.Select({1, 1}, {1, 2});
  list.Show(grid, 0);
  EXPECT_EQ(grid.Current(), (Cell{0, 0}));
  EXPECT_EQ(grid.SelectionEnd(), (Cell{0, 0}));
}

TEST_F(cTagsShowTest, RowsAreAddedWithoutRedrawing) {
  Read("T1;MB10;RW\r\nT2;MB10;RW\r\n");
  const GridRecorder recorder(grid);
  list.Show(grid, 0);
  EXPECT_THAT(recorder.told, ElementsAre("about to reset", "reset"));
}

TEST_F(cTagsShowTest, AnErrorIsToldAndRedrawingComesOnAgain) {
  Read("T1;MB10;RW\r\n");
  grid.Shape(1, 3, 1, 1);
  list.Show(grid, 0);
  EXPECT_THAT(Boxes(), ElementsAre("#199 9 #200 cTags.Show : Subscript out of range"));
  EXPECT_TRUE(grid.Redraw());
}

TEST_F(cTagsShowTest, ShowingDirtiesNothing) {
  Read("T1;MB10;RW\r\n");
  list.Show(grid, 0);
  EXPECT_FALSE(list.AnyDirty());
}

}  // namespace
}  // namespace tavrin
