// The keyboard in a grid, by gestures and by real keys.
#include <QApplication>
#include <QKeyEvent>

#include <gmock/gmock.h>

#include "conformance/GridShown.h"

namespace tavrin {
namespace {

using testing::ElementsAre;

/// A key that leads to a cell.
GridDeed To(const std::string& name, Qt::Key key, Cell cell, Qt::KeyboardModifiers modifiers = {}) {
  return {name, [cell](GridRig& rig) { rig.grid.UserSelect(cell); },
          [key, modifiers](GridShown& shown) { shown.Press(key, modifiers); }};
}

/// A key that pulls the selection on.
GridDeed Pull(const std::string& name, Qt::Key key, Cell end, Qt::KeyboardModifiers modifiers = {}) {
  return {name, [end](GridRig& rig) { rig.grid.UserSelect(rig.grid.Current(), end); },
          [key, modifiers](GridShown& shown) { shown.Press(key, modifiers | Qt::ShiftModifier); }};
}

TEST(GridKeys, ArrowsGoFromCellToCell) {
  ExpectSame({To("Down", Qt::Key_Down, {2, 1}), To("Right", Qt::Key_Right, {2, 2}), To("Down", Qt::Key_Down, {3, 2}),
              To("Up", Qt::Key_Up, {2, 2}), To("Left", Qt::Key_Left, {2, 1})});
}

TEST(GridKeys, HomeAndEndGoToTheEdgesOfTheRowAndWithCtrlOfTheGrid) {
  ExpectSame({To("End", Qt::Key_End, {1, 3}), To("Down", Qt::Key_Down, {2, 3}), To("Home", Qt::Key_Home, {2, 1}),
              To("Ctrl+End", Qt::Key_End, {5, 3}, Qt::ControlModifier),
              To("Ctrl+Home", Qt::Key_Home, {1, 1}, Qt::ControlModifier)});
}

TEST(GridKeys, CtrlWithAnArrowGoesToTheEdge) {
  ExpectSame({To("Ctrl+Down", Qt::Key_Down, {5, 1}, Qt::ControlModifier),
              To("Ctrl+Right", Qt::Key_Right, {5, 3}, Qt::ControlModifier),
              To("Ctrl+Up", Qt::Key_Up, {1, 3}, Qt::ControlModifier),
              To("Ctrl+Left", Qt::Key_Left, {1, 1}, Qt::ControlModifier)});
}

TEST(GridKeys, PageKeysGoToTheEdgeOfAShortGrid) {
  ExpectSame({To("PageDown", Qt::Key_PageDown, {5, 1}), To("PageUp", Qt::Key_PageUp, {1, 1})});
}

TEST(GridKeys, APageIsWhatIsInSight) {
  GridShown shown;
  shown.grid.Rows(1000);
  shown.view.setFixedHeight(200);
  QApplication::processEvents();
  const int seen = shown.view.viewport()->height() / shown.view.rowHeight(0);
  ASSERT_GT(seen, 3);
  shown.Press(Qt::Key_PageDown);
  EXPECT_EQ(shown.grid.Row(), 1 + seen - 1);
  EXPECT_EQ(Differences(shown.view, shown.grid), "");
}

TEST(GridKeys, ShiftPullsTheSelectionFromTheCurrentCell) {
  ExpectSame({To("Down", Qt::Key_Down, {2, 1}), Pull("Shift+Down", Qt::Key_Down, {3, 1}),
              Pull("Shift+Down", Qt::Key_Down, {4, 1}), Pull("Shift+Right", Qt::Key_Right, {4, 2}),
              Pull("Shift+Ctrl+End", Qt::Key_End, {5, 3}, Qt::ControlModifier),
              Pull("Shift+Home", Qt::Key_Home, {5, 1}),
              Pull("Shift+Ctrl+Home", Qt::Key_Home, {1, 1}, Qt::ControlModifier), To("Down", Qt::Key_Down, {3, 1})});
}

TEST(GridKeys, FixedAndHiddenCellsAreLeftOut) {
  GridShown shown;
  shown.Press(Qt::Key_Left);
  shown.Press(Qt::Key_Up);
  EXPECT_EQ(shown.grid.Current(), (Cell{1, 1}));
  shown.grid.ColWidth(2, 0);
  shown.Press(Qt::Key_Right);
  EXPECT_EQ(shown.grid.Current(), (Cell{1, 3}));
  shown.grid.ColWidth(3, 0);
  shown.grid.Select({1, 1});
  shown.Press(Qt::Key_End);
  EXPECT_EQ(shown.grid.Current(), (Cell{1, 1}));
}

TEST(GridKeys, DownFromTheHeadingGoesToTheFirstCell) {
  ExpectSame({To("Down", Qt::Key_Down, {1, 2})}, [](GridRig& rig) {
    rig.grid.Select({0, 2});
    rig.events.clear();
  });
}

TEST(GridKeys, TabIntoAGridWhoseHeadingIsCurrentGoesToTheFirstCell) {
  GridShown shown(false);
  shown.grid.Select({0, 0});
  shown.events.clear();
  shown.view.setFocus(Qt::TabFocusReason);
  EXPECT_THAT(shown.events, ElementsAre("got focus", "current 1,1"));
  EXPECT_EQ(Differences(shown.view, shown.grid), "");
}

TEST(GridKeys, AGridOfAHeadingOnlyTakesTheKeyboardAndItsKeysDoNothing) {
  GridShown shown(false);
  shown.grid.Rows(1);
  shown.view.setFocus(Qt::TabFocusReason);
  shown.Press(Qt::Key_Down);
  shown.Press(Qt::Key_End, Qt::ControlModifier);
  EXPECT_TRUE(shown.grid.Focused());
  EXPECT_EQ(shown.grid.Row(), 0);
  EXPECT_EQ(Differences(shown.view, shown.grid), "");
}

TEST(GridKeys, DeleteAndEnterAreKeysOfTheGrid) {
  ExpectSame({{"Delete", [](GridRig& rig) { rig.grid.UserKey(Key::Delete); },
               [](GridShown& shown) { shown.Press(Qt::Key_Delete); }},
              {"Enter", [](GridRig& rig) { rig.grid.UserKey(Key::Enter); },
               [](GridShown& shown) { shown.Press(Qt::Key_Return); }},
              {"Enter of the keypad", [](GridRig& rig) { rig.grid.UserKey(Key::Enter); },
               [](GridShown& shown) { shown.Press(Qt::Key_Enter, Qt::KeypadModifier); }}});
}

TEST(GridKeys, TabGoesFromCellToCellWhereTheGridSaysSo) {
  const auto tab = [](const std::string& name, bool back) {
    return GridDeed{name, [back](GridRig& rig) { rig.grid.UserTab(back); },
                    [back](GridShown& shown) { shown.Press(back ? Qt::Key_Backtab : Qt::Key_Tab); }};
  };
  ExpectSame({tab("Tab", false), tab("Tab", false), tab("Tab to the next row", false), tab("Shift+Tab", true)},
             [](GridRig& rig) { rig.grid.TabMovesCell(true); });
}

TEST(GridKeys, ElseTabLeavesTheGrid) {
  GridShown shown;
  shown.Press(Qt::Key_Tab);
  EXPECT_TRUE(shown.other.Focused());
  EXPECT_EQ(shown.grid.Current(), (Cell{1, 1}));
  shown.Press(Qt::Key_Backtab);
  EXPECT_TRUE(shown.grid.Focused());
}

TEST(GridKeys, CtrlTabIsTheWayOutWhereTabGoesFromCellToCell) {
  GridShown shown;
  shown.grid.TabMovesCell(true);
  shown.Press(Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_TRUE(shown.other.Focused());
  EXPECT_EQ(shown.grid.Current(), (Cell{1, 1}));
}

TEST(GridKeys, HidingAGridThatHasTheKeyboardMovesNoCell) {
  GridShown shown;
  shown.grid.TabMovesCell(true);
  shown.grid.Visible(false);
  EXPECT_EQ(shown.grid.Current(), (Cell{1, 1}));
  EXPECT_EQ(Differences(shown.view, shown.grid), "");
}

TEST(GridKeys, AKeyThatMeansNothingIsLeftToTheWindow) {
  GridShown shown;
  QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
  QApplication::sendEvent(&shown.view, &escape);
  EXPECT_FALSE(escape.isAccepted());
  QKeyEvent mnemonic(QEvent::KeyPress, Qt::Key_F, Qt::AltModifier, QStringLiteral("f"));
  QApplication::sendEvent(&shown.view, &mnemonic);
  EXPECT_FALSE(mnemonic.isAccepted());
  EXPECT_EQ(shown.grid.OpenEdit(), nullptr);
}

TEST(GridKeys, ALetterMovesNoCellInAGridThatIsNotEdited) {
  GridShown shown;
  shown.grid.Editable(false);
  shown.Press(Qt::Key_D);
  EXPECT_EQ(shown.grid.Current(), (Cell{1, 1}));
  EXPECT_EQ(shown.grid.OpenEdit(), nullptr);
}

}  // namespace
}  // namespace tavrin
