#pragma once

#include <QAbstractItemModel>

#include "platform/controls/Tree.h"

namespace tavrin {

/// A tree as the toolkit asks for it, in one column. Nothing is stored.
class TreeModel : public QAbstractItemModel {
 public:
  explicit TreeModel(const Tree& tree) : tree_(tree) {}

  [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
  [[nodiscard]] QModelIndex parent(const QModelIndex& child) const override;
  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

  /// No index for nullptr.
  [[nodiscard]] QModelIndex IndexOf(const TreeNode* node) const;
  /// nullptr for no index.
  [[nodiscard]] static TreeNode* NodeOf(const QModelIndex& index);

  // What the tree tells, passed on in the toolkit's words.
  void BeginClear();
  void EndClear();
  void BeginAdd(const TreeNode* parent, int position);
  void EndAdd() { endInsertRows(); }
  void TellNode(const TreeNode& node);

 private:
  [[nodiscard]] const std::vector<std::unique_ptr<TreeNode>>& ChildrenOf(const QModelIndex& parent) const;

  const Tree& tree_;
  bool clearing_ = false;
};

}  // namespace tavrin
