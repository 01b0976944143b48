// The mouse in a grid, by gestures and by real clicks.
#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QScrollBar>
#include <QTest>

#include <gmock/gmock.h>

#include "conformance/GridShown.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

GridDeed Click(const std::string& name, Cell cell, MouseButton button = MouseButton::Left) {
  return {name, [=](GridRig& rig) { rig.grid.UserPress(button, cell); },
          [=](GridShown& shown) { shown.Click(cell, button == MouseButton::Left ? Qt::LeftButton : Qt::RightButton); }};
}

GridDeed ClickHeading(int col, MouseButton button = MouseButton::Left) {
  return {"press on a heading",
          [=](GridRig& rig) {
            rig.grid.UserPress(button, {0, col});
          },
          [=](GridShown& shown) {
            QTest::mouseClick(shown.view.horizontalHeader()->viewport(),
                              button == MouseButton::Left ? Qt::LeftButton : Qt::RightButton, {}, shown.HeadingOf(col));
          }};
}

TEST(GridMouse, APressMakesACellCurrent) { ExpectSame({Click("press", {3, 2}), Click("press", {1, 3})}); }

TEST(GridMouse, ARightPressLeavesTheCurrentCell) {
  ExpectSame({Click("press", {3, 2}), Click("right press", {2, 1}, MouseButton::Right)});
}

TEST(GridMouse, APressGivesTheKeyboardToTheGrid) {
  GridRig plain;
  plain.events.clear();
  GridShown shown(false);
  plain.grid.UserPress(MouseButton::Left, {2, 2});
  shown.Click({2, 2});
  EXPECT_EQ(shown.events, plain.events);
  EXPECT_THAT(shown.events, ElementsAre("got focus", "current 2,2", "press 1 at 2,2"));
  EXPECT_EQ(Snapshot(shown.grid), Snapshot(plain.grid));
}

TEST(GridMouse, APressOnAHeadingGivesTheKeyboardToTheGridAndSelectsNothing) {
  GridShown shown(false);
  QTest::mouseClick(shown.view.horizontalHeader()->viewport(), Qt::LeftButton, {}, shown.HeadingOf(2));
  EXPECT_THAT(shown.events, ElementsAre("got focus", "press 1 at 0,2"));
  EXPECT_TRUE(shown.view.hasFocus());
  EXPECT_EQ(Differences(shown.view, shown.grid), "");
}

TEST(GridMouse, HeadingsArePressedWithBothButtons) {
  ExpectSame({ClickHeading(3), ClickHeading(1, MouseButton::Right)});
}

TEST(GridMouse, APressOnAFixedCellLeavesTheCurrentOne) {
  const auto prepare = [](GridRig& rig) {
    rig.grid.ColWidth(0, 900);
    rig.grid.Select({2, 2});
    rig.events.clear();
  };
  ExpectSame({Click("press on a label", {3, 0})}, prepare);
}

TEST(GridMouse, APressBesideAllCellsIsAPress) {
  ExpectSame({{"press below the last row",
               [](GridRig& rig) {
                 rig.grid.UserPress(MouseButton::Left, {-1, -1});
               },
               [](GridShown& shown) {
                 const QPoint below(20, shown.view.viewport()->height() - 3);
                 QTest::mouseClick(shown.view.viewport(), Qt::LeftButton, {}, below);
               }}});
}

TEST(GridMouse, ShiftWithAPressPullsTheSelection) {
  ExpectSame({Click("press", {2, 1}),
              {"Shift and press",
               [](GridRig& rig) {
                 rig.grid.UserSelect({2, 1}, {4, 3});
               },
               [](GridShown& shown) {
                 shown.Click({4, 3}, Qt::LeftButton, Qt::ShiftModifier);
               }}});
}

TEST(GridMouse, TheButtonHeldPullsTheSelection) {
  ExpectSame({{"press",
               [](GridRig& rig) {
                 rig.grid.UserPress(MouseButton::Left, {4, 3});
               },
               [](GridShown& shown) {
                 QTest::mousePress(shown.view.viewport(), Qt::LeftButton, {}, shown.PlaceOf({4, 3}));
               }},
              {"move",
               [](GridRig& rig) {
                 rig.grid.UserSelect({4, 3}, {3, 2});
               },
               [](GridShown& shown) {
                 shown.Move(shown.PlaceOf({3, 2}), Qt::LeftButton);
               }},
              {"move above the grid",
               [](GridRig& rig) {
                 rig.grid.UserSelect({4, 3}, {1, 2});
               },
               [](GridShown& shown) {
                 shown.Move({shown.PlaceOf({3, 2}).x(), -50}, Qt::LeftButton);
                 QTest::mouseRelease(shown.view.viewport(), Qt::LeftButton, {}, shown.PlaceOf({1, 2}));
               }},
              {"move with no button",
               [](GridRig& rig) {
                 rig.grid.UserPointAt({5, 1});
               },
               [](GridShown& shown) {
                 shown.Move(shown.PlaceOf({5, 1}));
               }}});
}

TEST(GridMouse, PullingBelowTheLastRowInSightScrolls) {
  GridShown shown;
  shown.grid.Rows(1000);
  QApplication::processEvents();
  QTest::mousePress(shown.view.viewport(), Qt::LeftButton, {}, shown.PlaceOf({2, 1}));
  for (int i = 0; i < 30; ++i) shown.Move({20, shown.view.viewport()->height() + 20}, Qt::LeftButton);
  EXPECT_EQ(shown.grid.Current(), (Cell{2, 1}));
  EXPECT_GT(shown.grid.SelectionEnd().row, 30);
  EXPECT_GT(shown.grid.TopRow(), 1);
  EXPECT_EQ(Differences(shown.view, shown.grid), "");
}

TEST(GridMouse, ADoubleClickIsAPressAndADoubleClick) {
  ExpectSame({{"double click",
               [](GridRig& rig) {
                 rig.grid.UserPress(MouseButton::Left, {3, 1});
                 rig.grid.UserDblClick({3, 1});
               },
               [](GridShown& shown) {
                 shown.Click({3, 1});
                 QTest::mouseDClick(shown.view.viewport(), Qt::LeftButton, {}, shown.PlaceOf({3, 1}));
               }}});
}

TEST(GridMouse, ADoubleClickOnAHeadingMaySortTheGrid) {
  const auto sort = [](GridRig& rig) {
    rig.grid.OnDblClick = [&rig] {
      rig.grid.Redraw(false);
      rig.grid.Select(rig.grid.Current(), {rig.grid.Row(), rig.grid.MouseCell().col});
      rig.grid.SortAscending();
      rig.grid.Select({1, 1});
      rig.grid.TopRow(1);
      rig.grid.Redraw(true);
    };
  };
  ExpectSame({Click("press", {4, 1}),
              {"double click on the heading",
               [](GridRig& rig) {
                 rig.grid.UserPress(MouseButton::Left, {0, 1});
                 rig.grid.UserDblClick({0, 1});
               },
               [](GridShown& shown) {
                 QWidget* const header = shown.view.horizontalHeader()->viewport();
                 QTest::mouseClick(header, Qt::LeftButton, {}, shown.HeadingOf(1));
                 QTest::mouseDClick(header, Qt::LeftButton, {}, shown.HeadingOf(1));
               }}},
             sort);
}

TEST(GridMouse, ThePointerIsFollowedOverCellsHeadingsAndOut) {
  const auto over = [](const std::string& name, Cell cell, const std::function<void(GridShown&)>& real) {
    return GridDeed{name, [cell](GridRig& rig) { rig.grid.UserPointAt(cell); }, real};
  };
  const auto heading = [](GridShown& shown) {
    QWidget* const header = shown.view.horizontalHeader()->viewport();
    const QPoint place = shown.HeadingOf(2);
    QMouseEvent move(QEvent::MouseMove, place, header->mapToGlobal(place), Qt::NoButton, {}, {});
    QApplication::sendEvent(header, &move);
  };
  const auto leave = [](GridShown& shown) {
    QEvent event(QEvent::Leave);
    QApplication::sendEvent(shown.view.viewport(), &event);
  };
  ExpectSame({over("over a cell", {3, 2},
                   [](GridShown& shown) {
                     shown.Move(shown.PlaceOf({3, 2}));
                   }),
              over("over a heading", {0, 2}, heading), over("out", {-1, -1}, leave)});
}

TEST(GridMouse, TheToolTipThatAHandlerSetsIsTheWidgets) {
  GridShown shown;
  shown.grid.OnMouseMove = [&] { shown.grid.ToolTip(shown.grid.MouseCell().row == 2 ? "Second" : ""); };
  shown.Move(shown.PlaceOf({2, 2}));
  EXPECT_EQ(shown.view.toolTip(), QStringLiteral("Second"));
  shown.Move(shown.PlaceOf({3, 2}));
  EXPECT_EQ(shown.view.toolTip(), QString());
}

TEST(GridMouse, TheContextMenuKeyIsARightPressOnTheCurrentCell) {
  ExpectSame({Click("press", {3, 2}),
              {"context menu key",
               [](GridRig& rig) {
                 rig.grid.UserPress(MouseButton::Right, {3, 2});
               },
               [](GridShown& shown) {
                 QContextMenuEvent menu(QContextMenuEvent::Keyboard, {5, 5}, shown.view.mapToGlobal(QPoint(5, 5)));
                 QApplication::sendEvent(&shown.view, &menu);
               }}});
}

TEST(GridMouse, TheContextMenuOfTheMouseIsThePressAlone) {
  GridShown shown;
  QContextMenuEvent menu(QContextMenuEvent::Mouse, shown.PlaceOf({2, 2}), QCursor::pos());
  QApplication::sendEvent(shown.view.viewport(), &menu);
  EXPECT_THAT(shown.events, IsEmpty());
}

TEST(GridMouse, AHeadingIsPulledToMakeItsColumnWider) {
  ExpectSame({{"pull", [](GridRig& rig) { rig.grid.UserColWidth(1, 2250); },
               [](GridShown& shown) {
                 QWidget* const header = shown.view.horizontalHeader()->viewport();
                 const int edge = shown.view.columnViewportPosition(1) + shown.view.columnWidth(1) - 1;
                 const int y = header->height() / 2;
                 QTest::mousePress(header, Qt::LeftButton, {}, {edge, y});
                 QMouseEvent move(QEvent::MouseMove, QPoint(edge + 50, y), header->mapToGlobal(QPoint(edge + 50, y)),
                                  Qt::NoButton, Qt::LeftButton, {});
                 shown.grid.OnMouseMove = nullptr;
                 QApplication::sendEvent(header, &move);
                 QTest::mouseRelease(header, Qt::LeftButton, {}, {edge + 50, y});
                 shown.grid.UserPointAt({-1, -1});
               }}});
}

TEST(GridMouse, AColumnWithoutWidthIsPulledOpenByTheEdgeWhereItStands) {
  ExpectSame({{"pull open", [](GridRig& rig) { rig.grid.UserColWidth(2, 1500); },
               [](GridShown& shown) {
                 QWidget* const header = shown.view.horizontalHeader()->viewport();
                 const int edge = shown.view.columnViewportPosition(3);
                 const int y = header->height() / 2;
                 QTest::mousePress(header, Qt::LeftButton, {}, {edge, y});
                 QMouseEvent move(QEvent::MouseMove, QPoint(edge + 100, y), header->mapToGlobal(QPoint(edge + 100, y)),
                                  Qt::NoButton, Qt::LeftButton, {});
                 shown.grid.OnMouseMove = nullptr;
                 QApplication::sendEvent(header, &move);
                 QTest::mouseRelease(header, Qt::LeftButton, {}, {edge + 100, y});
                 shown.grid.UserPointAt({-1, -1});
               }}},
             [](GridRig& rig) { rig.grid.ColWidth(2, 0); });
}

TEST(GridMouse, TheScrollBarMovesTheTopRow) {
  const auto longer = [](GridRig& rig) { rig.grid.Rows(500); };
  ExpectSame({{"scroll", [](GridRig& rig) { rig.grid.UserScroll(101); },
               [](GridShown& shown) {
                 QApplication::processEvents();
                 shown.view.verticalScrollBar()->setValue(100);
               }}},
             longer);
}

}  // namespace
}  // namespace tavrin
