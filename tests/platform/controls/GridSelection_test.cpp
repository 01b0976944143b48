// Current cell, selection, scroll position, pointer and sort of a grid.
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/controls/Form.h"
#include "platform/controls/Grid.h"
#include "platform/controls/Label.h"
#include "platform/controls/RecordingListeners.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A heading and four rows of three columns, the first of them fixed.
class GridSelectionTest : public testing::Test {
 protected:
  GridSelectionTest() {
    grid.Shape(5, 3, 1, 1);
    for (int row = 1; row < 5; ++row) grid.Text({row, 1}, std::string(1, static_cast<char>('a' + row)));
    grid.OnRowColChange = [this] { moves.push_back(std::to_string(grid.Row()) + " " + std::to_string(grid.Col())); };
    grid.Listen(&record);
  }
  [[nodiscard]] std::vector<std::string> Column(int col) const {
    std::vector<std::string> texts;
    for (int row = 0; row < grid.Rows(); ++row) texts.push_back(grid.Text({row, col}));
    return texts;
  }

  Form form{"frmTest"};
  Grid grid{form, "grid"};
  GridRecord record;
  std::vector<std::string> moves;
};

TEST_F(GridSelectionTest, SelectsOneCellOrARectangle) {
  grid.Select({2, 2});
  EXPECT_EQ(grid.Current(), (Cell{2, 2}));
  EXPECT_EQ(grid.Row(), 2);
  EXPECT_EQ(grid.Col(), 2);
  EXPECT_EQ(grid.SelectionEnd(), (Cell{2, 2}));
  grid.Select({3, 1}, {1, 2});
  EXPECT_EQ(grid.Current(), (Cell{3, 1}));
  EXPECT_EQ(grid.SelectionEnd(), (Cell{1, 2}));
  EXPECT_EQ(grid.FirstSelectedRow(), 1);
  EXPECT_EQ(grid.LastSelectedRow(), 3);
}

TEST_F(GridSelectionTest, TellsAMoveExactlyWhenRowOrColumnChange) {
  grid.Select({1, 1});
  EXPECT_THAT(moves, IsEmpty());
  grid.Select({1, 1}, {3, 2});
  EXPECT_THAT(moves, IsEmpty());
  grid.Select({1, 2});
  grid.Select({2, 2});
  grid.Select({2, 2});
  EXPECT_THAT(moves, ElementsAre("1 2", "2 2"));
}

TEST_F(GridSelectionTest, TheViewIsToldEachOtherSelectionOfTheProgram) {
  grid.Select({1, 1}, {3, 2});
  grid.Select({1, 1}, {3, 2});
  EXPECT_THAT(record.told, ElementsAre("selection"));
}

TEST_F(GridSelectionTest, TheProgramMaySelectAFixedCell) {
  grid.Select({0, 0});
  EXPECT_EQ(grid.Current(), (Cell{0, 0}));
}

TEST_F(GridSelectionTest, TheCurrentCellStaysInsideWhenItsRowGoes) {
  grid.Select({4, 2}, {3, 2});
  moves.clear();
  grid.Rows(3);
  EXPECT_EQ(grid.Current(), (Cell{2, 2}));
  EXPECT_EQ(grid.SelectionEnd(), (Cell{2, 2}));
  EXPECT_THAT(moves, ElementsAre("2 2"));
  grid.RemoveItem(2);
  EXPECT_THAT(moves, ElementsAre("2 2", "1 2"));
  grid.Rows(1);
  EXPECT_EQ(grid.Current(), (Cell{0, 2}));
}

TEST_F(GridSelectionTest, TheCurrentCellGoesWithItsColumn) {
  grid.Select({2, 2});
  moves.clear();
  grid.Shape(5, 2, 1, 1);
  EXPECT_THAT(moves, ElementsAre("1 1"));
}

TEST_F(GridSelectionTest, ARowThatGoesAboveLeavesTheNumberOfTheCurrentOne) {
  grid.Select({3, 1});
  moves.clear();
  grid.RemoveItem(1);
  EXPECT_EQ(grid.Current(), (Cell{3, 1}));
  EXPECT_THAT(moves, IsEmpty());
}

TEST_F(GridSelectionTest, AHandlerThatMovesOnLeavesItsOwnCell) {
  grid.OnRowColChange = [&] {
    if (grid.Row() == 2) grid.Select({4, 1});
  };
  grid.Select({2, 1});
  EXPECT_EQ(grid.Current(), (Cell{4, 1}));
}

TEST_F(GridSelectionTest, TheTopRowIsNeverAFixedOneWhileThereAreOthers) {
  EXPECT_EQ(grid.TopRow(), 1);
  grid.TopRow(3);
  grid.TopRow(3);
  EXPECT_EQ(grid.TopRow(), 3);
  EXPECT_THAT(record.told, ElementsAre("top row"));
  grid.TopRow(0);
  EXPECT_EQ(grid.TopRow(), 1);
  grid.Rows(1);
  EXPECT_EQ(grid.TopRow(), 0);
  grid.AddItem("x");
  EXPECT_EQ(grid.TopRow(), 1);
}

TEST_F(GridSelectionTest, TheTopRowStaysInsideWhenRowsGo) {
  grid.TopRow(4);
  record.told.clear();
  grid.Rows(3);
  EXPECT_EQ(grid.TopRow(), 2);
  EXPECT_THAT(record.told, ElementsAre("about to remove 3 2", "removed", "selection", "top row"));
}

TEST_F(GridSelectionTest, WhatTheUserScrollsIsNotToldBack) {
  grid.UserScroll(3);
  EXPECT_EQ(grid.TopRow(), 3);
  grid.UserScroll(0);
  EXPECT_EQ(grid.TopRow(), 1);
  EXPECT_THAT(record.told, IsEmpty());
}

TEST_F(GridSelectionTest, ThePointerIsOnACellOrOnNone) {
  std::vector<Cell> seen;
  grid.OnMouseMove = [&] { seen.push_back(grid.MouseCell()); };
  grid.UserPointAt({0, 2});
  grid.UserPointAt({-1, 2});
  EXPECT_THAT(seen, ElementsAre(Cell{0, 2}, Cell{-1, -1}));
  EXPECT_FALSE(grid.Focused());
}

TEST_F(GridSelectionTest, ThePointerIsOnNoCellOnceItsRowHasGone) {
  grid.UserPointAt({4, 1});
  grid.Rows(4);
  EXPECT_EQ(grid.MouseCell(), (Cell{-1, -1}));
}

TEST_F(GridSelectionTest, APressGivesTheKeyboardMakesTheCellCurrentAndRunsTheRule) {
  std::vector<std::string> events;
  grid.OnGotFocus = [&] { events.emplace_back("focus"); };
  grid.OnRowColChange = [&] { events.emplace_back("move"); };
  grid.OnMouseDown = [&](MouseButton button) {
    events.push_back("down " + std::to_string(static_cast<int>(button)));
    EXPECT_EQ(grid.MouseCell(), (Cell{3, 2}));
  };
  grid.UserPress(MouseButton::Left, {3, 2});
  EXPECT_EQ(grid.Current(), (Cell{3, 2}));
  EXPECT_THAT(events, ElementsAre("focus", "move", "down 1"));
  EXPECT_THAT(record.told, IsEmpty());
}

TEST_F(GridSelectionTest, APressOnTheCurrentCellDropsTheRestOfTheSelection) {
  grid.Select({1, 1}, {4, 2});
  grid.UserPress(MouseButton::Left, {1, 1});
  EXPECT_EQ(grid.SelectionEnd(), (Cell{1, 1}));
  EXPECT_THAT(moves, IsEmpty());
}

TEST_F(GridSelectionTest, APressOnAFixedCellOrWithTheRightButtonOrBesideKeepsTheCurrentCell) {
  int presses = 0;
  grid.OnMouseDown = [&](MouseButton) { ++presses; };
  grid.Select({2, 1}, {3, 2});
  moves.clear();
  grid.UserPress(MouseButton::Left, {0, 2});
  EXPECT_TRUE(grid.Focused());
  EXPECT_EQ(grid.MouseCell(), (Cell{0, 2}));
  grid.UserPress(MouseButton::Left, {3, 0});
  grid.UserPress(MouseButton::Right, {4, 2});
  grid.UserPress(MouseButton::Left, {-1, 0});
  EXPECT_EQ(grid.MouseCell(), (Cell{-1, -1}));
  EXPECT_EQ(grid.Current(), (Cell{2, 1}));
  EXPECT_EQ(grid.SelectionEnd(), (Cell{3, 2}));
  EXPECT_EQ(presses, 4);
  EXPECT_THAT(moves, IsEmpty());
}

TEST_F(GridSelectionTest, APressSurvivesThatTheCellGoesWhileTheKeyboardComes) {
  int presses = 0;
  grid.OnGotFocus = [&] { grid.Rows(2); };
  grid.OnMouseDown = [&](MouseButton) { ++presses; };
  grid.UserPress(MouseButton::Left, {4, 2});
  EXPECT_EQ(grid.Current(), (Cell{1, 1}));
  EXPECT_EQ(grid.MouseCell(), (Cell{-1, -1}));
  EXPECT_EQ(presses, 1);
}

TEST_F(GridSelectionTest, KeysAndPullingSelectAndGiveTheKeyboard) {
  grid.UserSelect({2, 1});
  EXPECT_TRUE(grid.Focused());
  EXPECT_EQ(grid.Current(), (Cell{2, 1}));
  grid.UserSelect({2, 1}, {4, 2});
  EXPECT_EQ(grid.SelectionEnd(), (Cell{4, 2}));
  EXPECT_THAT(moves, ElementsAre("2 1"));
  EXPECT_THAT(record.told, IsEmpty());
}

TEST_F(GridSelectionTest, KeysLeaveFixedCellsOut) {
  grid.Select({2, 2});
  moves.clear();
  grid.UserSelect({0, 2});
  grid.UserSelect({2, 0});
  EXPECT_EQ(grid.Current(), (Cell{2, 2}));
  EXPECT_THAT(moves, IsEmpty());
  grid.UserSelect({2, 2}, {0, 0});
  EXPECT_EQ(grid.SelectionEnd(), (Cell{1, 1}));
}

TEST_F(GridSelectionTest, ASelectionSurvivesThatItsRowsGoWhileTheKeyboardComes) {
  grid.OnGotFocus = [&] { grid.Rows(2); };
  grid.UserSelect({1, 2}, {4, 2});
  EXPECT_EQ(grid.Current(), (Cell{1, 1}));
}

TEST_F(GridSelectionTest, ADoubleClickGivesTheKeyboardAndRunsTheRuleWithThePointerThere) {
  std::vector<Cell> seen;
  grid.OnDblClick = [&] { seen.push_back(grid.MouseCell()); };
  grid.UserDblClick({0, 1});
  grid.UserDblClick({-1, 0});
  EXPECT_THAT(seen, ElementsAre(Cell{0, 1}, Cell{-1, -1}));
  EXPECT_TRUE(grid.Focused());
  EXPECT_EQ(grid.Current(), (Cell{1, 1}));
}

TEST_F(GridSelectionTest, TabGoesFromCellToCellAndFromTheEndOfARowToTheNext) {
  grid.UserTab();
  EXPECT_EQ(grid.Current(), (Cell{1, 2}));
  grid.UserTab();
  EXPECT_EQ(grid.Current(), (Cell{2, 1}));
  grid.UserTab(true);
  EXPECT_EQ(grid.Current(), (Cell{1, 2}));
  EXPECT_THAT(moves, ElementsAre("1 2", "2 1", "1 2"));
  EXPECT_THAT(record.told, ElementsAre("selection", "selection", "selection"));
}

TEST_F(GridSelectionTest, TabStaysOnTheLastCellAndBackwardsOnTheFirst) {
  grid.Select({4, 2});
  grid.UserTab();
  EXPECT_EQ(grid.Current(), (Cell{4, 2}));
  grid.Select({1, 1});
  grid.UserTab(true);
  EXPECT_EQ(grid.Current(), (Cell{1, 1}));
}

TEST_F(GridSelectionTest, TabLeavesOutHiddenColumns) {
  grid.ColWidth(2, 0);
  grid.UserTab();
  EXPECT_EQ(grid.Current(), (Cell{2, 1}));
  grid.ColWidth(1, 0);
  grid.UserTab();
  EXPECT_EQ(grid.Current(), (Cell{2, 1}));
}

TEST_F(GridSelectionTest, TabFromAFixedCellGoesToTheFirstFreeOneBehindIt) {
  grid.Select({0, 2});
  grid.UserTab();
  EXPECT_EQ(grid.Current(), (Cell{1, 1}));
  grid.Select({3, 0});
  grid.UserTab();
  EXPECT_EQ(grid.Current(), (Cell{3, 1}));
  grid.Select({3, 0});
  grid.UserTab(true);
  EXPECT_EQ(grid.Current(), (Cell{2, 2}));
  grid.Select({0, 2});
  grid.UserTab(true);
  EXPECT_EQ(grid.Current(), (Cell{0, 2}));
}

TEST_F(GridSelectionTest, TabInAGridWithoutFreeCellsStays) {
  grid.Shape(1, 3, 1, 1);
  grid.UserTab();
  grid.UserTab(true);
  EXPECT_EQ(grid.Current(), (Cell{0, 1}));
  Grid empty(form, "empty");
  empty.UserTab();
  EXPECT_EQ(empty.Current(), (Cell{0, 0}));
}

TEST_F(GridSelectionTest, TabEndsAnOpenEditAndGoesOnFromWhereItsRuleHasGone) {
  grid.Editable(true);
  grid.UserType("x");
  grid.OnAfterEdit = [&](int, int) { grid.Select({3, 1}); };
  grid.UserTab();
  EXPECT_EQ(grid.Text({1, 1}), "x");
  EXPECT_EQ(grid.Current(), (Cell{3, 2}));
}

TEST_F(GridSelectionTest, SortsTheFreeRowsByTheBytesOfTheCurrentColumn) {
  grid.Rows(1);
  grid.Text({0, 1}, "Z");
  for (const char* text : {"1\tb", "2\t\xE4", "3\tB", "4\ta", "5\t"}) grid.AddItem(text);
  grid.Select({1, 1});
  record.told.clear();
  grid.SortAscending();
  EXPECT_THAT(Column(1), ElementsAre("Z", "", "B", "a", "b", "\xE4"));
  EXPECT_THAT(Column(0), ElementsAre("", "5", "3", "4", "1", "2"));
  EXPECT_THAT(record.told, ElementsAre("about to reset", "reset"));
}

TEST_F(GridSelectionTest, SortsByTheColumnsFromTheCurrentOneToTheEndOfTheSelection) {
  grid.Rows(1);
  for (const char* text : {"1\tb\t1", "2\ta\t2", "3\ta\t1", "4\tb\t0"}) grid.AddItem(text);
  grid.Select({1, 1}, {1, 2});
  grid.SortAscending();
  EXPECT_THAT(Column(0), ElementsAre("", "3", "2", "4", "1"));
  grid.Select({1, 2}, {1, 1});
  grid.SortAscending();
  EXPECT_THAT(Column(0), ElementsAre("", "4", "3", "1", "2"));
}

TEST_F(GridSelectionTest, RowsWithEqualKeysKeepTheirOrder) {
  constexpr int kRows = 200;  // enough that a sort which mixes equal keys would do so
  grid.Rows(1);
  for (int i = 0; i < kRows; ++i) grid.AddItem(std::to_string(i) + (i % 2 == 0 ? "\tb" : "\ta"));
  grid.Select({1, 1});
  grid.SortAscending();
  std::vector<std::string> expected{""};
  for (int i = 1; i < kRows; i += 2) expected.push_back(std::to_string(i));
  for (int i = 0; i < kRows; i += 2) expected.push_back(std::to_string(i));
  EXPECT_EQ(Column(0), expected);
}

TEST_F(GridSelectionTest, AKeyIsTheTextOfItsCellAloneAndNotOfTheRow) {
  grid.Rows(1);
  for (const char* text : {"1\ta\x01\t", "2\ta\t", "3\ta"}) grid.AddItem(text);
  grid.Select({1, 1}, {1, 2});
  grid.SortAscending();
  EXPECT_THAT(Column(0), ElementsAre("", "2", "3", "1"));
}

TEST_F(GridSelectionTest, TheCurrentCellKeepsItsPlaceInASort) {
  grid.Select({2, 1});
  moves.clear();
  grid.Text({1, 1}, "z");
  grid.SortAscending();
  EXPECT_EQ(grid.Current(), (Cell{2, 1}));
  EXPECT_THAT(moves, IsEmpty());
}

TEST_F(GridSelectionTest, AGridWithoutRowsOrColumnsIsSorted) {
  Grid empty(form, "empty");
  empty.SortAscending();
  empty.Rows(2);
  empty.SortAscending();
  EXPECT_EQ(empty.Rows(), 2);
}

TEST_F(GridSelectionTest, AHundredThousandRowsAreSortedByNineKeys) {
  constexpr int kMany = 100'000;
  grid.Shape(1, 10, 1, 1);
  grid.Redraw(false);
  for (int i = 0; i < kMany; ++i) {
    const auto number = std::to_string((i * 7919LL) % kMany + kMany);
    grid.AddItem(number + "\tsame\tDB10,REAL" + number + "\tRW\t\t\t\t\t\tcomment");
  }
  grid.Select({1, 1}, {1, 9});
  grid.SortAscending();
  for (int row = 1; row < grid.Rows(); ++row) ASSERT_EQ(grid.Text({row, 0}), std::to_string(kMany + row - 1));
}

}  // namespace
}  // namespace tavrin
