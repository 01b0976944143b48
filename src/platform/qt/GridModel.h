#pragma once

#include <QAbstractTableModel>

#include "platform/controls/Grid.h"

namespace tavrin {

/// A grid as the toolkit asks for it. Row 0 is the horizontal header; row 1 of the grid is the first row of the model.
/// Nothing is stored: a text is converted when it is drawn. While the grid may change in any way the model has no rows.
class GridModel : public QAbstractTableModel {
 public:
  explicit GridModel(const Grid& grid) : grid_(grid) {}

  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  /// Fixed cells cannot be selected.
  [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

  /// No index for a cell of row 0 or one that does not exist.
  [[nodiscard]] QModelIndex IndexOf(Cell cell) const;
  /// Row -1 for no index.
  [[nodiscard]] static Cell CellOf(const QModelIndex& index);

  // What the grid tells, passed on in the toolkit's words.
  void BeginReset();
  void EndReset();
  void BeginAdd(int first, int count);
  void EndAdd();
  void BeginRemove(int first, int count);
  void EndRemove();
  void TellCell(Cell cell);

 private:
  [[nodiscard]] QVariant TextOrAlignment(Cell cell, int role) const;

  const Grid& grid_;
  bool resetting_ = false;
  /// Rows of the model come or go; false when only row 0 does.
  bool moving_ = false;
  bool headingChanges_ = false;
};

}  // namespace tavrin
