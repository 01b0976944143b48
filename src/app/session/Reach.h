#pragma once

#include <string>
#include <string_view>

#include "app/session/Stage.h"
#include "platform/controls/Grid.h"
#include "platform/controls/ListBox.h"
#include "platform/controls/ListView.h"
#include "platform/controls/MenuEntry.h"
#include "platform/controls/Tree.h"

namespace tavrin {

/// How a script names things, and what a user can reach. Everything throws Refusal when there is no such thing.

/// A whole number, also one with a sign.
[[nodiscard]] int NumberOf(const std::string& word);
/// How a script calls a control: "vsgOPC", "mnuFile 3".
[[nodiscard]] std::string NameOf(const Control& control);

/// The control of the window in front, in whatever state. @param words its name, and its number when it has one
[[nodiscard]] Control& FindControl(const Stage& stage, Words words);
/// The same of a certain kind; nullptr when the control is of another one.
template <class Kind>
[[nodiscard]] Kind* FindKind(const Stage& stage, Words words) {
  return dynamic_cast<Kind*>(&FindControl(stage, words));
}
[[nodiscard]] Grid& FindGrid(const Stage& stage, const std::string& name);
[[nodiscard]] Tree& FindTree(const Stage& stage, const std::string& name);

[[nodiscard]] ListView& FindListView(const Stage& stage, const std::string& name);
[[nodiscard]] ListBox& FindListBox(const Stage& stage, const std::string& name);
/// The row of a list by its text.
[[nodiscard]] int FindRow(const ListView& list, const std::string& text);

/// Refuses a control that is hidden or disabled.
void CheckUsable(const Control& control);

/// A node by its path, the texts from the first level below the root on, joined by "/"; "/" is the root. A key of the
/// tree is taken as well.
[[nodiscard]] TreeNode& FindNode(const Tree& tree, const std::string& path);
/// The path of a node in the code page.
[[nodiscard]] std::string PathOf(const TreeNode& node);

/// A cell that is in the grid.
[[nodiscard]] Cell FindCell(const Grid& grid, const std::string& row, const std::string& col);
/// The same, not in a hidden column.
[[nodiscard]] Cell FindSeenCell(const Grid& grid, const std::string& row, const std::string& col);

/// Opens the menus above an entry as the user must to see it: from the menu bar, or from the open popup menu down.
void OpenMenusAbove(const Stage& stage, const MenuEntry& entry);
/// Refuses an entry that cannot be chosen. The menus above it have been opened.
void CheckChoosable(const MenuEntry& entry);

/// An absolute path, as a dialog gives it back.
[[nodiscard]] std::string AbsolutePath(const std::string& path);

}  // namespace tavrin
