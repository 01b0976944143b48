// What the user does in a grid, as gestures of the grid.
#include <QApplication>
#include <QHeaderView>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPointer>
#include <QScrollBar>
#include <algorithm>
#include <array>
#include <utility>

#include "platform/controls/Form.h"
#include "platform/qt/GridKeys.h"
#include "platform/qt/GridView.h"
#include "platform/qt/KeyNames.h"
#include "platform/qt/Showing.h"
#include "platform/qt/Text.h"
#include "platform/qt/ViewCommon.h"

namespace tavrin {
namespace {

constexpr int kPullInterval = 50;  // milliseconds between two rows while the pointer is held outside

}  // namespace

template <class Act>
void GridView::Gesture(Act&& act) {
  const QPointer<QObject> alive(this);
  act();
  if (alive) ShowSelection();
}

// ---- pointer

Cell GridView::CellAt(const QPoint& position) const { return GridModel::CellOf(indexAt(position)); }

Cell GridView::HeaderCellAt(const QPoint& position) const {
  const int col = horizontalHeader()->logicalIndexAt(position);
  return col < 0 ? Cell{-1, -1} : Cell{0, col};
}

void GridView::ListenToHeader() {
  QHeaderView& header = *horizontalHeader();
  // A press on the heading selects no column by itself.
  header.disconnect(this, SLOT(selectColumn(int)));
  header.disconnect(this, SLOT(_q_selectColumn(int)));
  header.disconnect(this, SLOT(resizeColumnToContents(int)));
  connect(&header, &QHeaderView::sectionPressed, this, [this](int col) {
    setFocus(Qt::MouseFocusReason);
    Gesture([&] { grid_.UserPress(MouseButton::Left, {0, col}); });
  });
  connect(&header, &QHeaderView::sectionDoubleClicked, this, [this](int col) {
    Gesture([&] { grid_.UserDblClick({0, col}); });
  });
  connect(&header, &QHeaderView::sectionResized, this, [this](int col, int, int pixels) { ColumnPulled(col, pixels); });
  header.viewport()->installEventFilter(this);
}

bool GridView::eventFilter(QObject* watched, QEvent* event) {
  if (watched == horizontalHeader()->viewport()) {
    if (event->type() == QEvent::Leave) grid_.UserPointAt({-1, -1});
    const auto* const mouse = dynamic_cast<QMouseEvent*>(event);
    const bool press = event->type() == QEvent::MouseButtonPress;
    if (mouse != nullptr && event->type() == QEvent::MouseMove) grid_.UserPointAt(HeaderCellAt(mouse->pos()));
    if (mouse != nullptr && press && mouse->button() == Qt::RightButton) {
      setFocus(Qt::MouseFocusReason);
      Gesture([&] { grid_.UserPress(MouseButton::Right, HeaderCellAt(mouse->pos())); });
      return true;
    }
  }
  return QTableView::eventFilter(watched, event);
}

bool GridView::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::Leave) grid_.UserPointAt({-1, -1});
  return QTableView::viewportEvent(event);
}

void GridView::mousePressEvent(QMouseEvent* event) {
  const Cell cell = CellAt(event->pos());
  const bool free = cell.row >= 0 && !grid_.IsFixed(cell);
  if (event->button() == Qt::RightButton) {
    Gesture([&] { grid_.UserPress(MouseButton::Right, cell); });
  } else if (event->button() == Qt::LeftButton) {
    pulling_ = free;
    const bool extends = free && event->modifiers() == Qt::ShiftModifier && !grid_.IsFixed(grid_.Current());
    Gesture([&] {
      if (extends) return grid_.UserSelect(grid_.Current(), cell);
      grid_.UserPress(MouseButton::Left, cell);
    });
  }
}

void GridView::mouseMoveEvent(QMouseEvent* event) {
  if (!event->buttons().testFlag(Qt::LeftButton)) pulling_ = false;
  if (!pulling_) return grid_.UserPointAt(CellAt(event->pos()));
  const bool outside = !viewport()->rect().contains(event->pos());
  if (!outside) pullTimer_.stop();
  if (outside && !pullTimer_.isActive()) pullTimer_.start(kPullInterval, this);
  PullTo(event->pos());
}

void GridView::mouseReleaseEvent(QMouseEvent*) {
  pulling_ = false;
  pullTimer_.stop();
}

void GridView::timerEvent(QTimerEvent* event) {
  if (event->timerId() != pullTimer_.timerId()) return QTableView::timerEvent(event);
  if (!pulling_ || !QGuiApplication::mouseButtons().testFlag(Qt::LeftButton)) return pullTimer_.stop();
  PullTo(viewport()->mapFromGlobal(QCursor::pos()));
}

void GridView::PullTo(const QPoint& position) {
  const QRect area = viewport()->rect();
  const QPoint inside(std::clamp(position.x(), area.left(), area.right()),
                      std::clamp(position.y(), area.top(), area.bottom()));
  const auto step = [](int where, int first, int last) { return where < first ? -1 : where > last ? 1 : 0; };
  Cell end = grid_.SelectionEnd();
  if (const int row = rowAt(inside.y()); row >= 0) {
    end.row = std::clamp(row + 1 + step(position.y(), area.top(), area.bottom()), grid_.FixedRows(), grid_.Rows() - 1);
  }
  if (const int col = columnAt(inside.x()); col >= grid_.FixedCols()) end.col = col;
  if (end == grid_.SelectionEnd() || grid_.IsFixed(grid_.Current())) return;
  Gesture([&] { grid_.UserSelect(grid_.Current(), end); });
  scrollTo(model_.IndexOf(grid_.SelectionEnd()));
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return mousePressEvent(event);
  const Cell cell = CellAt(event->pos());
  if (cell.row >= 0) Gesture([&] { grid_.UserDblClick(cell); });
}

void GridView::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
  const Cell cell = grid_.Current();
  const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
  if (byKey && model_.IndexOf(cell).isValid()) Gesture([&] { grid_.UserPress(MouseButton::Right, cell); });
}

void GridView::Scrolled(int value) {
  ShowRing();
  const int top = TopRowAt(value);
  if (!showing_ && isVisible() && top < grid_.Rows()) grid_.UserScroll(top);
}

void GridView::ColumnPulled(int col, int pixels) {
  if (showing_ || pixels <= 0) return;
  grid_.UserColWidth(col, ToTwips(*this, std::max(pixels, columns_.LeastWidth(col))) / columns_.FontFactor(col));
  ShowColumns();
}

// ---- keyboard

bool GridView::event(QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const auto& key = static_cast<QKeyEvent&>(*event);
    if (grid_.TabMovesCell() && Tab(key.key(), key.modifiers())) return true;
  }
  return QTableView::event(event);
}

bool GridView::Tab(int key, Qt::KeyboardModifiers modifiers) {
  const bool back = key == Qt::Key_Backtab;
  if ((key != Qt::Key_Tab && !back) || (modifiers & (Qt::ControlModifier | Qt::AltModifier))) return false;
  Gesture([&] { grid_.UserTab(back); });
  return true;
}

void GridView::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  if (event->modifiers() & Qt::AltModifier && event->text().isEmpty()) return event->ignore();
  // Where Tab goes from cell to cell, Ctrl+Tab is the way out.
  if (key == Qt::Key_Tab && focusNextPrevChild(true)) return;
  if (key == Qt::Key_Backtab && focusNextPrevChild(false)) return;
  event->setAccepted(Go(key, event->modifiers()) || Press(key) || Type(*event));
}

bool GridView::Go(int key, Qt::KeyboardModifiers modifiers) {
  const bool extends = modifiers.testFlag(Qt::ShiftModifier) && !grid_.IsFixed(grid_.Current());
  const Cell from = extends ? grid_.SelectionEnd() : grid_.Current();
  const int rowHeight = std::max(verticalHeader()->defaultSectionSize(), 1);
  const auto to =
      CellReachedBy(grid_, key, modifiers.testFlag(Qt::ControlModifier), from, viewport()->height() / rowHeight - 1);
  if (!to) return false;
  Gesture([&] { grid_.UserSelect(extends ? grid_.Current() : *to, *to); });
  scrollTo(model_.IndexOf(grid_.SelectionEnd()));
  return true;
}

bool GridView::Press(int key) {
  const auto known = KeyOf(key);
  bool meant = false;
  if (known) Gesture([&] { meant = grid_.UserKey(*known); });
  return meant;
}

bool GridView::Type(const QKeyEvent& key) {
  const QString text = key.text();
  const bool shortcut = key.modifiers().testFlag(Qt::ControlModifier) != key.modifiers().testFlag(Qt::AltModifier);
  if (text.isEmpty() || !text[0].isPrint() || shortcut || !grid_.Editable()) return false;
  if (const std::string typed = KnownCharacters(text); !typed.empty()) Gesture([&] { grid_.UserType(typed); });
  return true;
}

void GridView::inputMethodEvent(QInputMethodEvent* event) {
  const std::string typed = KnownCharacters(event->commitString());
  if (!typed.empty()) Gesture([&] { grid_.UserType(typed); });
  event->accept();
}

// ---- cell editor

InPlaceEditor::Rules GridView::EditorRules() {
  return {[this](std::string_view typed) { return grid_.FilterTyped(typed); },
          [this](std::string_view text) { grid_.UserEditText(text); },
          [this](QKeyEvent& key) { return PressInEditor(key); }, [this] { Gesture([&] { grid_.UserEndEdit(); }); }};
}

bool GridView::PressInEditor(const QKeyEvent& key) {
  const int code = key.key();
  if (code == Qt::Key_Tab || code == Qt::Key_Backtab) {
    if (grid_.TabMovesCell() && Tab(code, key.modifiers())) return true;
    Gesture([&] { grid_.UserEndEdit(); });
    return focusNextPrevChild(code == Qt::Key_Tab);
  }
  const Grid::Edit* const edit = grid_.OpenEdit();
  const bool leaves = code == Qt::Key_Up || code == Qt::Key_Down || code == Qt::Key_PageUp || code == Qt::Key_PageDown;
  if (leaves && edit != nullptr && edit->choices.empty()) return Go(code, Qt::NoModifier);
  return Press(code);
}

void GridView::focusOutEvent(QFocusEvent* event) {
  QTableView::focusOutEvent(event);
  ShowRing();
}

void GridView::focusInEvent(QFocusEvent* event) {
  QTableView::focusInEvent(event);
  ShowRing();
  const bool visit = IsVisit(event->reason()) && grid_.Owner().FocusedControl() != nullptr;
  const bool byTab = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
  Gesture([&] {
    if (!visit) grid_.UserFocus();
    if (!byTab || !grid_.IsFixed(grid_.Current())) return;
    const auto first = CellReachedBy(grid_, Qt::Key_Down, false, grid_.Current(), 1);
    if (first) grid_.UserSelect(*first);
  });
  editor_.TakeKeyboard();
}

}  // namespace tavrin
