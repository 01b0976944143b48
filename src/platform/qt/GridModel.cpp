#include "platform/qt/GridModel.h"

#include <algorithm>
#include <utility>

#include "platform/qt/Text.h"

namespace tavrin {

int GridModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() || resetting_ ? 0 : std::max(grid_.Rows() - 1, 0);
}

int GridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() || resetting_ ? 0 : grid_.Cols();
}

QModelIndex GridModel::IndexOf(Cell cell) const {
  return hasIndex(cell.row - 1, cell.col) ? index(cell.row - 1, cell.col) : QModelIndex();
}

Cell GridModel::CellOf(const QModelIndex& index) {
  return index.isValid() ? Cell{index.row() + 1, index.column()} : Cell{-1, -1};
}

QVariant GridModel::TextOrAlignment(Cell cell, int role) const {
  if (resetting_ || cell.row >= grid_.Rows() || cell.col >= grid_.Cols()) return {};
  switch (role) {
    case Qt::DisplayRole: return ToQt(grid_.Text(cell));
    case Qt::TextAlignmentRole: {
      const bool right = grid_.ColAlignment(cell.col) == Alignment::Right;
      return QVariant::fromValue(Qt::AlignVCenter | (right ? Qt::AlignRight : Qt::AlignLeft));
    }
    default: return {};
  }
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  return index.isValid() ? TextOrAlignment(CellOf(index), role) : QVariant();
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  return orientation == Qt::Horizontal && section >= 0 ? TextOrAlignment({0, section}, role) : QVariant();
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::NoItemFlags;
  const Qt::ItemFlags any = Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
  if (grid_.IsFixed(CellOf(index))) return any;
  return any | Qt::ItemIsSelectable | (grid_.Editable() ? Qt::ItemIsEditable : Qt::NoItemFlags);
}

void GridModel::BeginReset() {
  beginResetModel();
  resetting_ = true;
}

void GridModel::EndReset() {
  resetting_ = false;
  endResetModel();
}

void GridModel::BeginAdd(int first, int count) {
  headingChanges_ = first == 0;
  const int added = headingChanges_ ? count - 1 : count;
  moving_ = added > 0;
  const int start = std::max(first - 1, 0);
  if (moving_) beginInsertRows({}, start, start + added - 1);
}

void GridModel::EndAdd() {
  if (std::exchange(moving_, false)) endInsertRows();
  if (std::exchange(headingChanges_, false) && grid_.Cols() > 0)
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, grid_.Cols() - 1);
}

void GridModel::BeginRemove(int first, int count) {
  headingChanges_ = first == 0;
  const int start = std::max(first - 1, 0);
  const int end = std::min(start + count, rowCount());
  moving_ = end > start;
  if (moving_) beginRemoveRows({}, start, end - 1);
}

void GridModel::EndRemove() {
  if (std::exchange(moving_, false)) endRemoveRows();
  if (std::exchange(headingChanges_, false) && grid_.Cols() > 0)
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, grid_.Cols() - 1);
}

void GridModel::TellCell(Cell cell) {
  if (cell.row == 0) Q_EMIT headerDataChanged(Qt::Horizontal, cell.col, cell.col);
  if (const QModelIndex changed = IndexOf(cell); changed.isValid()) Q_EMIT dataChanged(changed, changed);
}

}  // namespace tavrin
