#include "shell/WarningsGrid.h"

#include <string>
#include <vector>

#include "support/ShellTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class WarningsGridTest : public ShellTest {
 protected:
  WarningsGridTest() {
    Start();
    modMain::ReadWarnings().AddWarning(WarningKind::Tag, "b.csv", "third");
    modMain::ReadWarnings().AddWarning(WarningKind::Device, "a.ini", "first");
    modMain::ReadWarnings().AddWarning(WarningKind::Device, "a.ini", "Second");
    Show();
  }

  void Show() { modMain::ReadWarnings().Show(window->vsgWarnings, window->lblWarnings); }
  [[nodiscard]] Grid& Warnings() { return window->vsgWarnings; }
  [[nodiscard]] std::vector<std::string> Texts() {
    std::vector<std::string> cells;
    for (int row = 1; row < Warnings().Rows(); ++row) cells.push_back(Warnings().Text({row, 2}));
    return cells;
  }
  void DoubleClickHeading(int col) {
    Warnings().UserPress(MouseButton::Left, {0, col});
    Warnings().UserDblClick({0, col});
  }
};

TEST_F(WarningsGridTest, TheLabelShowsTheCurrentCellInFull) {
  Warnings().UserPress(MouseButton::Left, {2, 2});
  EXPECT_EQ(window->lblWarnings.Caption(), "first");
  Warnings().UserSelect({1, 1});
  EXPECT_EQ(window->lblWarnings.Caption(), "b.csv");
  EXPECT_TRUE(window->lblWarnings.Visible());
}

TEST_F(WarningsGridTest, ADoubleClickOnTheHeadingSortsWithCase) {
  Warnings().UserSelect({1, 2});
  DoubleClickHeading(2);
  EXPECT_THAT(Texts(), ElementsAre("Second", "first", "third"));
  EXPECT_TRUE(Warnings().Redraw());
}

TEST_F(WarningsGridTest, KeysAreTheColumnsFromTheCurrentOneToTheClickedOne) {
  Warnings().UserSelect({1, 1});
  DoubleClickHeading(1);
  EXPECT_THAT(Texts(), ElementsAre("first", "Second", "third"));
  Warnings().UserSelect({1, 1});
  DoubleClickHeading(2);
  EXPECT_THAT(Texts(), ElementsAre("Second", "first", "third"));
}

TEST_F(WarningsGridTest, AfterTheSortRowOneIsCurrentOnTopAndInTheLabel) {
  Warnings().UserPress(MouseButton::Left, {3, 2});
  Warnings().UserScroll(3);
  DoubleClickHeading(2);
  EXPECT_EQ(Warnings().Current(), (Cell{1, 2}));
  EXPECT_EQ(Warnings().TopRow(), 1);
  EXPECT_EQ(window->lblWarnings.Caption(), "Second");
}

TEST_F(WarningsGridTest, TheListKeepsItsOrderAndTheNextShowBringsItBack) {
  Warnings().UserSelect({1, 2});
  DoubleClickHeading(2);
  EXPECT_THAT(ReadWarnings(),
              ElementsAre(testing::EndsWith("third"), testing::EndsWith("first"), testing::EndsWith("Second")));
  Show();
  EXPECT_THAT(Texts(), ElementsAre("third", "first", "Second"));
}

TEST_F(WarningsGridTest, ADoubleClickBelowTheHeadingDoesNothing) {
  Warnings().UserSelect({1, 2});
  Warnings().UserDblClick({2, 2});
  Warnings().UserDblClick({-1, -1});
  EXPECT_THAT(Texts(), ElementsAre("third", "first", "Second"));
  EXPECT_EQ(Warnings().Current(), (Cell{1, 2}));
}

TEST_F(WarningsGridTest, AnEmptyListHasNothingToSort) {
  modMain::globals.gReadWarnings = std::make_unique<cWarnings>();
  Show();
  DoubleClickHeading(2);
  EXPECT_EQ(Warnings().Rows(), 1);
  EXPECT_EQ(window->lblWarnings.Caption(), "") << "the heading is nothing to read";
  EXPECT_TRUE(Warnings().Redraw());
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(WarningsGridTest, AnErrorIsToldAndDrawingGoesOn) {
  Warnings().UserPress(MouseButton::Left, {2, 2});
  const Connection failing =
      window->lblWarnings.Changed.Connect([] { throw RuntimeError(ErrorNumber::PermissionDenied); });
  DoubleClickHeading(2);
  EXPECT_THAT(Boxes(), ElementsAre("#199 70 #200 frmOPC.vsgWarnings_DblClick : Permission denied"));
  EXPECT_TRUE(Warnings().Redraw());
}

}  // namespace
}  // namespace tavrin
