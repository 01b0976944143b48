#include "platform/qt/ListViewModel.h"

#include "platform/qt/Icons.h"
#include "platform/qt/Text.h"
#include "platform/qt/ViewCommon.h"

namespace tavrin {

int ListViewModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() || resetting_ ? 0 : list_.Count();
}

int ListViewModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : 1; }

QVariant ListViewModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || resetting_ || index.row() >= list_.Count()) return {};
  const ListItem& item = list_.Item(index.row());
  switch (role) {
    case Qt::DisplayRole: return ToQt(item.text);
    case Qt::DecorationRole: return IconOf(item.icon);
    case Qt::CheckStateRole: return item.checked ? Qt::Checked : Qt::Unchecked;
    // Who does not see the picture hears its key.
    case Qt::AccessibleDescriptionRole: return ToQt(item.icon);
    default: return {};
  }
}

QVariant ListViewModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section != 0) return {};
  switch (role) {
    case Qt::DisplayRole: return ToQt(list_.HeaderText());
    case Qt::ToolTipRole: return PlainToolTip(ToQt(list_.HeaderText()));
    case Qt::TextAlignmentRole: return QVariant::fromValue(Qt::AlignVCenter | Qt::AlignLeft);
    default: return {};
  }
}

Qt::ItemFlags ListViewModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::NoItemFlags;
  return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable | Qt::ItemNeverHasChildren;
}

bool ListViewModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!index.isValid() || role != Qt::CheckStateRole) return false;
  list_.UserCheck(index.row(), value.toInt() == Qt::Checked);
  return true;
}

QModelIndex ListViewModel::IndexOf(int row) const { return hasIndex(row, 0) ? index(row, 0) : QModelIndex(); }

void ListViewModel::BeginReset() {
  beginResetModel();
  resetting_ = true;
}

void ListViewModel::EndReset() {
  resetting_ = false;
  endResetModel();
}

void ListViewModel::TellItem(int row) {
  if (const QModelIndex changed = IndexOf(row); changed.isValid()) Q_EMIT dataChanged(changed, changed);
}

void ListViewModel::TellHeader() { Q_EMIT headerDataChanged(Qt::Horizontal, 0, 0); }

}  // namespace tavrin
