#pragma once

#include <QMenu>
#include <vector>

#include "platform/controls/MenuEntry.h"
#include "platform/qt/QtWords.h"

namespace tavrin {

/// Draws an entry with entries below it as a menu: in a menu bar, below another menu, or as a popup.
class MenuView : public QMenu {
 public:
  /// @param entry and words outlive the view
  MenuView(MenuEntry& entry, QtWords& words, QWidget* parent);

  [[nodiscard]] const MenuEntry& Entry() const { return entry_; }
  /// What stands for an entry of this menu or of one below it; nullptr for an unknown one.
  [[nodiscard]] QAction* ActionOf(const MenuEntry& entry) const;

 private:
  struct Row {
    MenuEntry* entry;
    QAction* action;
    MenuView* submenu;  // nullptr for an entry without entries below it
    Connection changed;
  };

  void Follow();
  [[nodiscard]] bool HasShapeOfEntry() const;
  void Rebuild();
  void AddRow(MenuEntry& entry);
  void ShowRow(const Row& row);
  void Open();

  MenuEntry& entry_;
  QtWords& words_;
  std::vector<Row> rows_;
  Connection changed_;
};

}  // namespace tavrin
