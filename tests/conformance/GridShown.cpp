#include "conformance/GridShown.h"

#include <QApplication>
#include <QHeaderView>
#include <QMouseEvent>
#include <QTest>
#include <QVBoxLayout>
#include <sstream>

#include <gtest/gtest.h>

#include "platform/qt/Text.h"

namespace tavrin {
namespace {

template <class Shown, class Held>
void Compare(std::ostream& out, const std::string& what, const Shown& shown, const Held& held) {
  if (!(shown == held)) out << what << " is shown otherwise than held\n";
}

void CompareCells(std::ostream& out, const GridView& view, const Grid& grid) {
  const auto& model = *view.model();
  Compare(out, "row count", model.rowCount(), grid.Rows() - 1);
  Compare(out, "column count", model.columnCount(), grid.Cols());
  for (int col = 0; col < grid.Cols(); ++col) {
    Compare(out, "column without width", view.columnWidth(col) == 0, grid.ColWidth(col) <= 0);
    Compare(out, "heading", model.headerData(col, Qt::Horizontal).toString(), ToQt(grid.Text({0, col})));
    for (int row = 1; row < grid.Rows(); ++row) {
      Compare(out, "text", model.index(row - 1, col).data().toString(), ToQt(grid.Text({row, col})));
    }
  }
}

void CompareSelection(std::ostream& out, const GridView& view, const Grid& grid) {
  const bool heading = grid.Row() == 0 || grid.SelectionEnd().row == 0;
  if (grid.Row() > 0) Compare(out, "current cell", GridModel::CellOf(view.currentIndex()), grid.Current());
  const QItemSelection selection = view.selectionModel()->selection();
  if (heading) return Compare(out, "selection of a heading", selection.isEmpty(), true);
  if (selection.size() != 1) {
    out << "the selection is no rectangle\n";
    return;
  }
  const Cell end = grid.SelectionEnd();
  Compare(out, "first selected row", selection[0].top() + 1, grid.FirstSelectedRow());
  Compare(out, "last selected row", selection[0].bottom() + 1, grid.LastSelectedRow());
  Compare(out, "first selected column", selection[0].left(), std::min(grid.Col(), end.col));
  Compare(out, "last selected column", selection[0].right(), std::max(grid.Col(), end.col));
}

}  // namespace

std::string Differences(const GridView& view, const Grid& grid) {
  std::ostringstream out;
  CompareCells(out, view, grid);
  CompareSelection(out, view, grid);
  const auto* edit = grid.OpenEdit();
  Compare(out, "open edit", view.EditorLine() != nullptr, edit != nullptr);
  if (edit != nullptr && view.EditorLine() != nullptr) {
    Compare(out, "editor text", view.EditorLine()->text(), ToQt(edit->text));
    Compare(out, "editor seen", view.EditorLine()->isVisible(), true);
    Compare(out, "keyboard in the editor", view.isAncestorOf(QApplication::focusWidget()), grid.Focused());
  }
  Compare(out, "visible", view.isVisible(), grid.Visible());
  Compare(out, "enabled", view.isEnabled(), grid.Enabled());
  Compare(out, "spoken name", view.accessibleName(), ToQt(grid.SpokenName()));
  Compare(out, "tool tip", view.toolTip(), ToQt(grid.ToolTip()));
  return out.str();
}

GridShown::GridShown(bool focus) {
  auto* const layout = new QVBoxLayout(&window);
  layout->addWidget(&view);
  layout->addWidget(&otherView);
  layout->addWidget(&neighbour);
  window.resize(500, 500);
  window.show();
  window.activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  (focus ? view : otherView).setFocus();
  events.clear();
}

QPoint GridShown::PlaceOf(Cell cell) const {
  return view.visualRect(view.model()->index(cell.row - 1, cell.col)).center();
}

QPoint GridShown::HeadingOf(int col) const {
  const QHeaderView& header = *view.horizontalHeader();
  return {header.sectionViewportPosition(col) + header.sectionSize(col) / 2, header.height() / 2};
}

void GridShown::Click(Cell cell, Qt::MouseButton button, Qt::KeyboardModifiers modifiers) {
  QTest::mouseClick(view.viewport(), button, modifiers, PlaceOf(cell));
}

void GridShown::Press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
  QTest::keyClick(QApplication::focusWidget(), key, modifiers);
}

void GridShown::Type(const QString& text) {
  for (const QChar character : text) {
    QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(character));
    QApplication::sendEvent(QApplication::focusWidget(), &press);
  }
}

void GridShown::Move(const QPoint& to, Qt::MouseButtons held) {
  QMouseEvent move(QEvent::MouseMove, to, view.viewport()->mapToGlobal(to), Qt::NoButton, held, Qt::NoModifier);
  QApplication::sendEvent(view.viewport(), &move);
}

void ExpectSame(const std::vector<GridDeed>& deeds, const std::function<void(GridRig&)>& prepare) {
  GridRig plain;
  GridShown shown;
  plain.grid.UserFocus();
  plain.events.clear();
  if (prepare) prepare(plain);
  if (prepare) prepare(shown);
  ASSERT_EQ(Differences(shown.view, shown.grid), "") << "before all deeds";
  for (const GridDeed& deed : deeds) {
    const std::string before = Snapshot(plain.grid);
    const std::size_t told = plain.events.size();
    deed.gesture(plain);
    deed.real(shown);
    EXPECT_TRUE(Snapshot(plain.grid) != before || plain.events.size() != told) << deed.name << " does nothing";
    ASSERT_EQ(Snapshot(shown.grid), Snapshot(plain.grid)) << "after " << deed.name;
    ASSERT_EQ(shown.events, plain.events) << "after " << deed.name;
    ASSERT_EQ(Differences(shown.view, shown.grid), "") << "after " << deed.name;
  }
}

}  // namespace tavrin
