#include "platform/qt/TreeModel.h"

#include "platform/qt/Icons.h"
#include "platform/qt/Text.h"

namespace tavrin {

const std::vector<std::unique_ptr<TreeNode>>& TreeModel::ChildrenOf(const QModelIndex& parent) const {
  const TreeNode* const node = NodeOf(parent);
  return node == nullptr ? tree_.Roots() : node->Children();
}

QModelIndex TreeModel::index(int row, int column, const QModelIndex& parent) const {
  if (!hasIndex(row, column, parent)) return {};
  return createIndex(row, column, ChildrenOf(parent)[static_cast<std::size_t>(row)].get());
}

QModelIndex TreeModel::parent(const QModelIndex& child) const {
  const TreeNode* const node = NodeOf(child);
  return node == nullptr ? QModelIndex() : IndexOf(node->Parent());
}

int TreeModel::rowCount(const QModelIndex& parent) const {
  return clearing_ || parent.column() > 0 ? 0 : static_cast<int>(ChildrenOf(parent).size());
}

int TreeModel::columnCount(const QModelIndex&) const { return 1; }

QVariant TreeModel::data(const QModelIndex& index, int role) const {
  const TreeNode* const node = NodeOf(index);
  if (node == nullptr || clearing_) return {};
  switch (role) {
    case Qt::DisplayRole: return ToQt(node->Text());
    case Qt::DecorationRole: return IconOf(node->Image());
    default: return {};
  }
}

Qt::ItemFlags TreeModel::flags(const QModelIndex& index) const {
  return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::NoItemFlags;
}

QModelIndex TreeModel::IndexOf(const TreeNode* node) const {
  return node == nullptr || clearing_ ? QModelIndex() : createIndex(node->Position(), 0, node);
}

TreeNode* TreeModel::NodeOf(const QModelIndex& index) {
  return index.isValid() ? static_cast<TreeNode*>(index.internalPointer()) : nullptr;
}

void TreeModel::BeginClear() {
  beginResetModel();
  clearing_ = true;
}

void TreeModel::EndClear() {
  clearing_ = false;
  endResetModel();
}

void TreeModel::BeginAdd(const TreeNode* parent, int position) { beginInsertRows(IndexOf(parent), position, position); }

void TreeModel::TellNode(const TreeNode& node) {
  const QModelIndex changed = IndexOf(&node);
  Q_EMIT dataChanged(changed, changed);
}

}  // namespace tavrin
