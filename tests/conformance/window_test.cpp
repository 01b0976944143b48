// The grids of the main window by gestures and by real keys and clicks: both must leave the same, in the grid and in
// the project behind it.
#include <QApplication>
#include <QHeaderView>
#include <QTest>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "platform/qt/FormView.h"
#include "platform/qt/GridView.h"
#include "platform/qt/QtWords.h"
#include "support/ShellTest.h"

namespace tavrin {
namespace {

/// One edit of a cell, from F2 to Enter.
struct Deed {
  std::string_view grid;
  std::string_view node;  ///< key of the node that brings the grid on show
  Cell cell;
  std::string_view typed;
};

void PrintTo(const Deed& deed, std::ostream* out) { *out << deed.grid; }

class WindowGrid : public ShellTest, public testing::WithParamInterface<Deed> {
 protected:
  void Open() {
    window.reset();
    modMain::globals.gOPC.reset();
    Start();
    OpenSample("plant");
    Click(GetParam().node);
  }

  [[nodiscard]] Grid& Shown() { return dynamic_cast<Grid&>(*Window().Find(GetParam().grid)); }

  /// Everything that the edit can have changed.
  [[nodiscard]] std::vector<std::string> State() {
    std::vector<std::string> state = Boxes();
    for (int row = 0; row < Shown().Rows(); ++row) state.push_back(Shown().RowText(row));
    state.push_back(std::to_string(Shown().Row()) + " " + std::to_string(Shown().Col()));
    state.push_back(Shown().OpenEdit() == nullptr ? "closed" : "open");
    state.push_back(modMain::OpenProject().bOpcProjectDirty() ? "dirty" : "clean");
    state.push_back(Window().FocusedControl() == nullptr ? "" : Window().FocusedControl()->Name());
    return state;
  }

  void EditByKeys(GridView& view) {
    const QModelIndex index = view.model()->index(GetParam().cell.row - 1, GetParam().cell.col);
    view.scrollTo(index);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(index).center());
    QTest::keyClick(&view, Qt::Key_F2);
    ASSERT_NE(view.EditorLine(), nullptr);
    QTest::keyClick(view.EditorLine(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(view.EditorLine(), QString::fromLatin1(GetParam().typed.data()));
    QTest::keyClick(view.EditorLine(), Qt::Key_Return);
    QApplication::processEvents();
  }
};

TEST_P(WindowGrid, IsEditedAlikeByGesturesAndByKeys) {
  Open();
  const std::vector<std::string> before = State();
  Enter(Shown(), GetParam().cell, GetParam().typed);
  const std::vector<std::string> byGestures = State();
  EXPECT_NE(byGestures, before) << "the edit must change something";

  Open();
  QtWords words([] { return std::string("en"); });
  FormView view(Window(), words);
  view.activateWindow();
  QApplication::processEvents();
  EXPECT_EQ(State(), before);
  auto* const grid = dynamic_cast<GridView*>(view.Views().WidgetOf(Shown()));
  ASSERT_NE(grid, nullptr);
  EditByKeys(*grid);
  EXPECT_EQ(State(), byGestures);
}

INSTANTIATE_TEST_SUITE_P(
    Grids, WindowGrid,
    testing::Values(Deed{"vsgOPC", "#1", {2, 1}, "4000"}, Deed{"vsgMPINW", "#1#1", {7, 1}, "50"},
                    Deed{"vsgH1NW", "#1#5", {5, 1}, "200"}, Deed{"vsgTCPISONW", "#1#3", {3, 1}, "10.0.x0.5"},
                    Deed{"vsgTCPRWNW", "#1#4", {3, 1}, "1.2.3"}, Deed{"vsgTCPIPKNW", "#1#6", {3, 1}, "10.0.0.7"},
                    Deed{"vsgMPIDVC", "#1#1#1", {2, 1}, "99999"}, Deed{"vsgH1DVC", "#1#5#1", {2, 1}, "S5"},
                    Deed{"vsgTCPISODVC", "#1#3#1", {7, 1}, "1"}, Deed{"vsgTCPRWDVC", "#1#4#1", {10, 1}, "5x5"},
                    Deed{"vsgTCPIPKDVC", "#1#6#1", {5, 1}, "10.1.2.3"}, Deed{"vsgTags", "#1#3#4", {1, 9}, "a,b"}),
    [](const auto& made) { return std::string(made.param.grid); });

class WindowWarnings : public ShellTest {
 protected:
  [[nodiscard]] std::vector<std::string> Sorted(bool byMouse) {
    window.reset();
    modMain::globals.gOPC.reset();
    Start();
    OpenSample("faulty");
    static_cast<void>(Boxes());
    Window().mnuExtras(1).UserClick();
    Grid& grid = Window().vsgWarnings;
    if (byMouse) {
      SortByMouse();
    } else {
      grid.UserPress(MouseButton::Left, {0, 2});
      grid.UserDblClick({0, 2});
    }
    std::vector<std::string> rows;
    for (int row = 0; row < grid.Rows(); ++row) rows.push_back(grid.RowText(row));
    rows.push_back(Window().lblWarnings.Caption());
    return rows;
  }

  void SortByMouse() {
    QtWords words([] { return std::string("en"); });
    FormView view(Window(), words);
    QApplication::processEvents();
    auto* const grid = dynamic_cast<GridView*>(view.Views().WidgetOf(Window().vsgWarnings));
    ASSERT_NE(grid, nullptr);
    QHeaderView* const heading = grid->horizontalHeader();
    const QPoint place(heading->sectionViewportPosition(2) + 20, heading->height() / 2);
    QTest::mouseClick(heading->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(heading->viewport(), Qt::LeftButton, {}, place);
    QApplication::processEvents();
  }
};

TEST_F(WindowWarnings, AreSortedAlikeByGesturesAndByTheMouse) {
  const std::vector<std::string> byGestures = Sorted(false);
  EXPECT_GT(byGestures.size(), 50U);
  EXPECT_EQ(Sorted(true), byGestures);
}

}  // namespace
}  // namespace tavrin
