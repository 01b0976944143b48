#pragma once

#include <QAbstractItemModelTester>
#include <QLineEdit>
#include <QWidget>
#include <functional>
#include <string>

#include "conformance/GridRig.h"
#include "platform/qt/GridView.h"

namespace tavrin {

/// A rig whose grid is bound to a widget, in an active window with a field that belongs to no control.
class GridShown : public GridRig {
 public:
  /// @param focus gives the keyboard to the grid, else to the other one; what handlers are told of it is not kept
  explicit GridShown(bool focus = true);

  /// Centre of a cell that can be seen, in the viewport.
  [[nodiscard]] QPoint PlaceOf(Cell cell) const;
  /// Centre of a heading, in the header's viewport.
  [[nodiscard]] QPoint HeadingOf(int col) const;
  void Click(Cell cell, Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers modifiers = {});
  /// A key to whatever has the keyboard.
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
  void Type(const QString& text);
  /// Moves the pointer with the left button held or not.
  void Move(const QPoint& to, Qt::MouseButtons held = {});

  QWidget window;
  GridView view{grid, &window};
  GridView otherView{other, &window};
  QLineEdit neighbour{&window};

 private:
  QAbstractItemModelTester tester_{view.model(), QAbstractItemModelTester::FailureReportingMode::Fatal};
};

/// What the widget shows otherwise than its grid holds; empty when all is shown.
[[nodiscard]] std::string Differences(const GridView& view, const Grid& grid);

/// One deed of a user in both languages.
struct GridDeed {
  std::string name;
  std::function<void(GridRig&)> gesture;
  std::function<void(GridShown&)> real;
};

/// Does the deeds on a grid by gestures and on a bound one by real input. After each deed both grids must hold the
/// same, their handlers must have been told the same, and the widget must show it.
void ExpectSame(const std::vector<GridDeed>& deeds, const std::function<void(GridRig&)>& prepare = {});

}  // namespace tavrin
