// What the user does in a tree, as gestures of the tree.
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPointer>

#include "platform/controls/Form.h"
#include "platform/controls/Typed.h"
#include "platform/qt/KeyNames.h"
#include "platform/qt/Showing.h"
#include "platform/qt/TreeView.h"

namespace tavrin {

/// Runs a gesture and shows the selection that it has made. The gesture may have destroyed the view.
template <class Act>
void TreeView::Gesture(Act&& act) {
  const QPointer<QObject> alive(this);
  act();
  if (alive) ShowSelection();
}

void TreeView::ListenToExpansion() {
  const auto tell = [this](const QModelIndex& index, bool expanded) {
    if (!showing_) tree_.UserExpand(*TreeModel::NodeOf(index), expanded);
  };
  connect(this, &QTreeView::expanded, this, [tell](const QModelIndex& index) { tell(index, true); });
  connect(this, &QTreeView::collapsed, this, [tell](const QModelIndex& index) { tell(index, false); });
}

// ---- pointer

bool TreeView::IsOnSign(const QModelIndex& index, const QPoint& position) const {
  if (!index.isValid() || !model_.hasChildren(index)) return false;
  const int left = visualRect(index).left();
  return position.x() < left && position.x() >= left - indentation();
}

void TreeView::mousePressEvent(QMouseEvent* event) {
  const QModelIndex index = indexAt(event->pos());
  const bool left = event->button() == Qt::LeftButton;
  if (!left && event->button() != Qt::RightButton) return;
  if (left && IsOnSign(index, event->pos())) return PressSign(index);
  Gesture([&] { tree_.UserPress(left ? MouseButton::Left : MouseButton::Right, TreeModel::NodeOf(index)); });
}

void TreeView::PressSign(const QPersistentModelIndex& node) {
  const QPointer<QObject> alive(this);
  // A press like any other beside the names; its handlers may fill the tree anew, and the node is gone.
  Gesture([&] { tree_.UserPress(MouseButton::Left, nullptr); });
  if (alive && node.isValid()) setExpanded(node, !isExpanded(node));
}

// The toolkit would select while the button is held, and again when it is let go.
void TreeView::mouseMoveEvent(QMouseEvent*) {}
void TreeView::mouseReleaseEvent(QMouseEvent*) {}

void TreeView::mouseDoubleClickEvent(QMouseEvent* event) {
  const QModelIndex index = indexAt(event->pos());
  const bool onSign = IsOnSign(index, event->pos());
  if (event->button() != Qt::LeftButton || onSign) return mousePressEvent(event);
  if (model_.hasChildren(index)) setExpanded(index, !isExpanded(index));
}

void TreeView::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
  TreeNode* const node = tree_.SelectedItem();
  const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
  if (byKey && node != nullptr) Gesture([&] { tree_.UserPress(MouseButton::Right, node); });
}

// ---- keyboard

void TreeView::keyPressEvent(QKeyEvent* event) {
  if (Press(event->key())) return event->accept();
  // The toolkit knows the ways through a tree, opens and closes nodes by keys and finds names by their first letters.
  QTreeView::keyPressEvent(event);
  Reach(TreeModel::NodeOf(currentIndex()));
}

void TreeView::Reach(TreeNode* node) {
  if (node != nullptr && node != tree_.SelectedItem()) Gesture([&] { tree_.UserSelect(*node); });
  scrollTo(currentIndex());
}

bool TreeView::Press(int key) {
  const auto known = KeyOf(key);
  bool meant = false;
  if (known) Gesture([&] { meant = tree_.UserKey(*known); });
  return meant;
}

void TreeView::focusInEvent(QFocusEvent* event) {
  {
    const Showing showing(showing_);
    QTreeView::focusInEvent(event);
  }
  const bool visit = IsVisit(event->reason()) && tree_.Owner().FocusedControl() != nullptr;
  Gesture([&] {
    if (!visit) tree_.UserFocus();
  });
  editor_.TakeKeyboard();
}

void TreeView::focusOutEvent(QFocusEvent* event) {
  // In the middle of a press, when its menu or its question opens: the node that it is about must be marked by then.
  ShowSelection();
  QTreeView::focusOutEvent(event);
}

// ---- label editor

InPlaceEditor::Rules TreeView::EditorRules() {
  return {[](std::string_view typed) { return WithoutControlCharacters(typed); },
          [this](std::string_view text) { tree_.UserLabelText(text); },
          [this](QKeyEvent& key) {
            const bool tab = key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab;
            if (tab) Gesture([&] { tree_.UserEndLabelEdit(); });
            return tab || Press(key.key());
          },
          [this] { Gesture([&] { tree_.UserEndLabelEdit(); }); }};
}

}  // namespace tavrin
