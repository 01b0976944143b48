#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/PaneTest.h"
#include "model/shared/cWarnings.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class cWarningsShowTest : public PaneTest {
 protected:
  cWarningsShowTest() {
    list.AddWarning(WarningKind::Tag, "tags.csv", "second by name");
    list.AddWarning(WarningKind::Opc, "ZOPCSRV.ini", "first by name");
  }
  void Show() { list.Show(pane.vsgWarnings, pane.lblWarnings); }

  cWarnings list;
};

TEST_F(cWarningsShowTest, ARowAWarningInTheOrderOfTheList) {
  pane.vsgWarnings.Text({0, 2}, "Warning");
  Show();
  EXPECT_THAT(Lines(pane.vsgWarnings), ElementsAre("Tag|tags.csv|second by name", "OPC|ZOPCSRV.ini|first by name"));
  EXPECT_EQ(pane.vsgWarnings.Text({0, 2}), "Warning");
}

TEST_F(cWarningsShowTest, ShowingTwiceDoesNotDoubleTheRows) {
  Show();
  Show();
  EXPECT_EQ(pane.vsgWarnings.Rows(), 3);
}

TEST_F(cWarningsShowTest, SortingTheGridDoesNotChangeTheList) {
  Show();
  pane.vsgWarnings.Select({1, 0}, {1, 2});
  pane.vsgWarnings.SortAscending();
  EXPECT_THAT(Column(pane.vsgWarnings, 0), ElementsAre("OPC", "Tag"));
  EXPECT_EQ(list.Warning(1).szType(), "Tag");
  Show();
  EXPECT_THAT(Column(pane.vsgWarnings, 0), ElementsAre("Tag", "OPC"));
}

TEST_F(cWarningsShowTest, AWarningOfAnUnknownKindShowsNoKind) {
  cWarning odd;
  odd.nType(7);
  odd.szText("text");
  list.Add(odd);
  Show();
  EXPECT_EQ(Lines(pane.vsgWarnings).back(), "||text");
}

TEST_F(cWarningsShowTest, AnEmptyListShowsTheHeadingAlone) {
  Show();
  cWarnings().Show(pane.vsgWarnings, pane.lblWarnings);
  EXPECT_EQ(pane.vsgWarnings.Rows(), 1);
  EXPECT_THAT(OnShow(), ElementsAre("vsgWarnings", "lblWarnings"));
}

TEST_F(cWarningsShowTest, TheLabelOfTheCurrentCellIsEmptied) {
  pane.lblWarnings.Caption("old");
  Show();
  EXPECT_EQ(pane.lblWarnings.Caption(), "");
}

TEST_F(cWarningsShowTest, TheWarningsComeOnShowInsteadOfASheet) {
  modMain::SetVisible(&pane.vsgMPIDVC);
  Show();
  EXPECT_THAT(OnShow(), ElementsAre("vsgWarnings", "lblWarnings"));
}

TEST_F(cWarningsShowTest, RowsAreAddedWithoutRedrawing) {
  const GridRecorder recorder(pane.vsgWarnings);
  Show();
  EXPECT_THAT(recorder.told, ElementsAre("about to reset", "reset"));
  EXPECT_TRUE(pane.vsgWarnings.Redraw());
}

TEST_F(cWarningsShowTest, AnErrorIsToldAndRedrawingComesOnAgain) {
  modMain::globals.pane = nullptr;
  Show();
  EXPECT_THAT(Boxes(), ElementsAre("#199 91 #200 cWarnings.Show : Object variable or With block variable not set"));
  EXPECT_TRUE(pane.vsgWarnings.Redraw());
  EXPECT_EQ(pane.vsgWarnings.Rows(), 3);
}

}  // namespace
}  // namespace tavrin
