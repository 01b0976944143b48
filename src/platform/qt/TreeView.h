#pragma once

#include <QTreeView>

#include "platform/controls/Tree.h"
#include "platform/qt/InPlaceEditor.h"
#include "platform/qt/TreeModel.h"

namespace tavrin {

/// A tree on the screen. It shows what the tree holds, and turns what the user does into the tree's gestures. Place and
/// parent are given by the view of the window.
class TreeView : public QTreeView, private TreeListener {
 public:
  /// @param tree outlives the view
  explicit TreeView(Tree& tree, QWidget* parent = nullptr);
  ~TreeView() override;

  [[nodiscard]] const TreeModel& Model() const { return model_; }
  /// The line of the open label editor, nullptr when there is none.
  [[nodiscard]] QLineEdit* EditorLine() const { return editor_.Line(); }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void updateEditorGeometries() override;
  void drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 private:
  void OnAboutToClear() override;
  void OnCleared() override;
  void OnNodeAboutToBeAdded(const TreeNode* parent, int position) override;
  void OnNodeAdded() override;
  void OnNodeChanged(const TreeNode& node) override;
  void OnSelectionChanged() override;
  void OnLabelEditChanged() override;

  // ---- from the tree to the screen
  void SetUp();
  void Follow();
  void ShowExpansion(const TreeNode* node);
  void ShowSelection();
  void ShowEdit();
  /// Closes the label editor and undoes the scrolling that gave it room.
  void CloseEditor();

  // ---- from the user to the tree
  template <class Act>
  void Gesture(Act&& act);
  void ListenToExpansion();
  [[nodiscard]] InPlaceEditor::Rules EditorRules();
  /// True on the sign that opens and closes a node.
  [[nodiscard]] bool IsOnSign(const QModelIndex& index, const QPoint& position) const;
  void PressSign(const QPersistentModelIndex& node);
  bool Press(int key);
  /// Tells the tree of a node that the toolkit's keys have reached.
  void Reach(TreeNode* node);

  Tree& tree_;
  TreeModel model_;
  InPlaceEditor editor_;
  Connection following_;
  const TreeNode* addedTo_ = nullptr;
  int addedAt_ = 0;
  /// Horizontal position before a name was opened for editing.
  int scrolledBefore_ = 0;
  /// The view brings itself in line with the tree: what the toolkit reports meanwhile is no gesture.
  bool showing_ = false;
};

}  // namespace tavrin
