#pragma once

#include <QAbstractTableModel>

#include "platform/controls/ListView.h"

namespace tavrin {

/// A list view as the toolkit asks for it, in one column. Nothing is stored. A box that the user ticks goes to the list
/// as its gesture.
class ListViewModel : public QAbstractTableModel {
 public:
  explicit ListViewModel(ListView& list) : list_(list) {}

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

  /// No index for -1.
  [[nodiscard]] QModelIndex IndexOf(int row) const;

  // What the list tells, passed on in the toolkit's words.
  void BeginReset();
  void EndReset();
  void TellItem(int row);
  void TellHeader();

 private:
  ListView& list_;
  bool resetting_ = false;
};

}  // namespace tavrin
