#pragma once

#include <QBasicTimer>
#include <QTableView>

#include "platform/controls/Grid.h"
#include "platform/qt/GridColumns.h"
#include "platform/qt/GridModel.h"
#include "platform/qt/InPlaceEditor.h"

namespace tavrin {

/// A grid on the screen. It shows what the grid holds, and turns what the user does into the grid's gestures. Place and
/// parent are given by the view of the window.
class GridView : public QTableView, private GridListener {
 public:
  /// @param grid outlives the view
  explicit GridView(Grid& grid, QWidget* parent = nullptr);
  ~GridView() override;

  [[nodiscard]] const GridModel& Model() const { return model_; }
  /// The line of the open cell editor, nullptr when there is none.
  [[nodiscard]] QLineEdit* EditorLine() const { return editor_.Line(); }

 protected:
  bool event(QEvent* event) override;
  bool viewportEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void updateEditorGeometries() override;

 private:
  void OnAboutToReset() override;
  void OnReset() override;
  void OnRowsAboutToBeAdded(int first, int count) override;
  void OnRowsAdded() override;
  void OnRowsAboutToBeRemoved(int first, int count) override;
  void OnRowsRemoved() override;
  void OnCellChanged(Cell cell) override;
  void OnColumnsChanged() override;
  void OnSelectionChanged() override;
  void OnTopRowChanged() override;
  void OnEditChanged() override;

  // ---- from the grid to the screen
  void SetUp();
  void SetUpHeader();
  void Follow();
  void ShowFont();
  void ShowColumns();
  void ShowSelection();
  void MarkSelection();
  void ShowTopRow();
  void ShowEdit();
  /// Without a current cell in sight the whole grid shows that it has the keyboard.
  void ShowRing();

  // ---- from the user to the grid
  /// Runs a gesture and shows the selection that it has made. The gesture may have destroyed the view.
  template <class Act>
  void Gesture(Act&& act);
  void ListenToHeader();
  [[nodiscard]] InPlaceEditor::Rules EditorRules();
  [[nodiscard]] Cell CellAt(const QPoint& position) const;
  [[nodiscard]] Cell HeaderCellAt(const QPoint& position) const;
  bool Go(int key, Qt::KeyboardModifiers modifiers);
  bool Press(int key);
  bool PressInEditor(const QKeyEvent& key);
  bool Type(const QKeyEvent& key);
  bool Tab(int key, Qt::KeyboardModifiers modifiers);
  /// Pulls the selection on to the cell at a position, or towards it when it is outside.
  void PullTo(const QPoint& position);
  void Scrolled(int value);
  void ColumnPulled(int col, int pixels);
  [[nodiscard]] int TopRowAt(int scrolled) const;

  Grid& grid_;
  GridModel model_;
  GridColumns columns_;
  InPlaceEditor editor_;
  Connection following_;
  /// The view brings itself in line with the grid: what the toolkit reports meanwhile is no gesture.
  bool showing_ = false;
  bool ringed_ = false;
  /// The left button was pressed on a cell and is still held.
  bool pulling_ = false;
  QBasicTimer pullTimer_;
};

}  // namespace tavrin
