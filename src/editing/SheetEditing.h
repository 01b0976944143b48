#pragma once

#include <string>

#include "platform/controls/Grid.h"

namespace tavrin {

/// The events of a sheet around an edit.
enum class SheetEvent { BeforeEdit, KeyPressEdit, AfterEdit };

/// The editing of one property sheet, by the rows of its table (model/sheets).
class SheetEditing {
 public:
  /// Wires the grid, which becomes editable. @param sheet position in RightPane::Sheets
  SheetEditing(Grid& grid, int sheet);
  SheetEditing(const SheetEditing&) = delete;
  SheetEditing& operator=(const SheetEditing&) = delete;

  void BeforeEdit(int row, bool& cancel);
  void KeyPressEdit(int row, int& key) const;
  void AfterEdit(int row, int col);
  /// Opens the current cell when it is a value. The project's sheet has no such event.
  void DblClick();

  /// The name under which an error in an event is reported. Two sheets report theirs before an edit under the name of
  /// the event after it, which is the name that support looks for.
  [[nodiscard]] std::string ErrorLabel(SheetEvent event) const;

 private:
  void Trap(SheetEvent event) const;

  Grid& grid_;
  int sheet_;
};

}  // namespace tavrin
