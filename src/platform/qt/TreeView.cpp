// What a tree holds, on the screen; what the user does is in TreeInput.cpp.
#include "platform/qt/TreeView.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <QStyle>

#include "platform/qt/ItemDelegate.h"
#include "platform/qt/Showing.h"
#include "platform/qt/Text.h"
#include "platform/qt/ViewCommon.h"

namespace tavrin {

TreeView::TreeView(Tree& tree, QWidget* parent)
    : QTreeView(parent), tree_(tree), model_(tree), editor_(*this, *viewport(), EditorRules()) {
  SetUp();
  ListenToExpansion();
  following_ = tree_.Changed.Connect([this] { Follow(); });
  tree_.Listen(this);
  Follow();
  for (int position = 1; position <= tree_.Count(); ++position) ShowExpansion(tree_.Node(position));
  ShowSelection();
  ShowEdit();
}

TreeView::~TreeView() { tree_.Listen(nullptr); }

void TreeView::SetUp() {
  setItemDelegate(new ItemDelegate(*this));
  setModel(&model_);
  setEditTriggers(NoEditTriggers);
  setAutoScroll(false);
  setUniformRowHeights(true);
  setHeaderHidden(true);
  setExpandsOnDoubleClick(false);
  setTextElideMode(Qt::ElideNone);
  // A long name is reached by a scroll bar.
  header()->setStretchLastSection(false);
  header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  setHorizontalScrollMode(ScrollPerPixel);
}

void TreeView::Follow() {
  ShowCommon(*this, tree_);
  ShowFontSize(*this, tree_.FontSize());
  setIndentation(ToPixels(*this, tree_.Indentation()));
}

void TreeView::ShowExpansion(const TreeNode* node) {
  const Showing showing(showing_);
  // A node without children that counted as open would take a key to close.
  if (node != nullptr) setExpanded(model_.IndexOf(node), node->Expanded() && !node->Children().empty());
}

void TreeView::ShowSelection() {
  const Showing showing(showing_);
  selectionModel()->setCurrentIndex(model_.IndexOf(tree_.SelectedItem()), QItemSelectionModel::ClearAndSelect);
}

void TreeView::ShowEdit() {
  if (!tree_.LabelEdit()) return CloseEditor();
  const QString text = ToQt(*tree_.LabelEdit());
  if (editor_.IsOpen()) return editor_.Show(text);
  scrollTo(currentIndex());
  scrolledBefore_ = horizontalScrollBar()->value();
  const QRect item = visualRect(currentIndex());
  if (item.right() > viewport()->rect().right()) horizontalScrollBar()->setValue(scrolledBefore_ + item.left());
  editor_.Open(text, {}, true);
  updateEditorGeometries();
}

void TreeView::CloseEditor() {
  if (!editor_.IsOpen()) return;
  editor_.Close();
  horizontalScrollBar()->setValue(scrolledBefore_);
}

void TreeView::drawRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  QStyleOptionViewItem row = option;
  // The sign beside a selected name is no part of it; the name itself is drawn in the colours of the view.
  row.palette.setColor(QPalette::Highlight, Qt::transparent);
  QTreeView::drawRow(painter, row, index);
}

void TreeView::updateEditorGeometries() {
  QTreeView::updateEditorGeometries();
  const TreeNode* const node = tree_.SelectedItem();
  if (node == nullptr || !editor_.IsOpen()) return;
  QRect place = ItemDelegate::InsideOfRing(visualRect(model_.IndexOf(node)));
  const auto metric = [this](QStyle::PixelMetric which) { return style()->pixelMetric(which, nullptr, this); };
  const int icon = metric(QStyle::PM_SmallIconSize) + 2 * (metric(QStyle::PM_FocusFrameHMargin) + 1);
  if (!place.isEmpty()) place.setLeft(place.left() + icon - 1);
  place.setRight(viewport()->rect().right());
  editor_.Place(place);
}

void TreeView::OnAboutToClear() { model_.BeginClear(); }

void TreeView::OnCleared() {
  const Showing showing(showing_);
  model_.EndClear();
}

void TreeView::OnNodeAboutToBeAdded(const TreeNode* parent, int position) {
  addedTo_ = parent;
  addedAt_ = position;
  model_.BeginAdd(parent, position);
}

void TreeView::OnNodeAdded() {
  const Showing showing(showing_);
  model_.EndAdd();
  const auto& siblings = addedTo_ == nullptr ? tree_.Roots() : addedTo_->Children();
  ShowExpansion(addedTo_);
  ShowExpansion(siblings[static_cast<std::size_t>(addedAt_)].get());
}

void TreeView::OnNodeChanged(const TreeNode& node) {
  model_.TellNode(node);
  ShowExpansion(&node);
}

void TreeView::OnSelectionChanged() {
  ShowSelection();
  if (isVisible()) scrollTo(currentIndex());
}

void TreeView::OnLabelEditChanged() { ShowEdit(); }

void TreeView::resizeEvent(QResizeEvent* event) {
  QTreeView::resizeEvent(event);
  updateEditorGeometries();
}

}  // namespace tavrin
