#include <algorithm>
#include <array>

#include "app/session/Gestures.h"
#include "app/session/Reach.h"
#include "platform/CodePage.h"
#include "platform/controls/Button.h"
#include "platform/controls/TextBox.h"

namespace tavrin {

namespace {

struct KeyName {
  std::string_view name;
  Key key;
};
constexpr std::array kKeys{KeyName{"Enter", Key::Enter}, KeyName{"Escape", Key::Escape}, KeyName{"Tab", Key::Tab},
                           KeyName{"Delete", Key::Delete}, KeyName{"F2", Key::F2}};

constexpr std::string_view kBackwards = "Shift+Tab";
constexpr std::string_view kSpace = "Space";

template <class... Kinds>
bool IsOneOf(const Control& control) {
  return ((dynamic_cast<const Kinds*>(&control) != nullptr) || ...);
}

template <class Kind>
Kind* Focused(const Stage& stage) {
  return dynamic_cast<Kind*>(stage.Window().FocusedControl());
}

/// The button that stands for a key from anywhere in a dialog; nullptr when there is none.
Button* ButtonOf(const Stage& stage, Key key) {
  if (auto* const focused = Focused<Button>(stage); focused != nullptr && key == Key::Enter) return focused;
  const ButtonRole role = key == Key::Enter ? ButtonRole::Default : ButtonRole::Cancel;
  if (key != Key::Enter && key != Key::Escape) return nullptr;
  for (Control* control : stage.Window().Controls()) {
    auto* const button = dynamic_cast<Button*>(control);
    if (button != nullptr && button->Role() == role && button->Visible() && button->Enabled()) return button;
  }
  return nullptr;
}

void CheckEditOpen(const Grid& grid) {
  if (grid.OpenEdit() != nullptr) return;
  const std::string cell = std::to_string(grid.Row()) + " " + std::to_string(grid.Col());
  throw Refusal{"cell " + cell + " of " + NameOf(grid) + " cannot be edited"};
}

bool PressInGrid(Grid& grid, Key key) {
  if (key == Key::Tab) {
    if (grid.TabMovesCell()) grid.UserTab();
    return grid.TabMovesCell();
  }
  const bool known = grid.UserKey(key);
  if (known && key == Key::F2) CheckEditOpen(grid);
  return known;
}

bool PressInWindow(Stage& stage, Key key) {
  if (auto* const grid = Focused<Grid>(stage); grid != nullptr && PressInGrid(*grid, key)) return true;
  if (auto* const tree = Focused<Tree>(stage); tree != nullptr && tree->UserKey(key)) return true;
  if (Button* const button = ButtonOf(stage, key)) {
    button->UserClick();
    return true;
  }
  if (key != Key::Escape || stage.Window().Arrangement().empty()) return false;
  stage.Window().UserClose();  // a dialog without a cancel button
  return true;
}

/// The entry of a shortcut that is below the menus; nullptr when there is none.
MenuEntry* EntryOf(const std::vector<MenuEntry*>& menus, std::string_view keys) {
  for (MenuEntry* menu : menus) {
    if (EqualIgnoringCase(menu->Shortcut(), keys)) return menu;
    if (MenuEntry* found = EntryOf(menu->Entries(), keys)) return found;
  }
  return nullptr;
}

void PressShortcut(Stage& stage, const std::string& keys) {
  MenuEntry* const entry = keys.empty() ? nullptr : EntryOf(stage.Window().MenuBar(), keys);
  if (entry == nullptr) throw Refusal{"the key " + Quoted(keys) + " means nothing here"};
  OpenMenusAbove(stage, *entry);
  CheckChoosable(*entry);
  entry->UserShortcut();
}

/// A label editor begins with all of its text marked, so that the first text typed takes its place.
void TypeIntoLabel(Tree& tree, const std::string& text) {
  const bool isMarked = tree.SelectedItem() != nullptr && *tree.LabelEdit() == tree.SelectedItem()->Text();
  tree.UserLabelText(isMarked ? text : *tree.LabelEdit() + text);
}

void GoToNextCell(Stage& stage, bool backwards = false) {
  auto* const grid = Focused<Grid>(stage);
  if (grid == nullptr || !grid->TabMovesCell()) throw Refusal{"no grid with cells to go through has the keyboard"};
  grid->UserTab(backwards);
}

template <class Kind>
bool ClickFocused(const Stage& stage) {
  auto* const focused = Focused<Kind>(stage);
  if (focused != nullptr) focused->UserClick();
  return focused != nullptr;
}

/// Ticks the current row of a list or presses what has the keyboard. @return false when the key means nothing there
bool PressSpace(const Stage& stage) {
  if (auto* const list = Focused<ListView>(stage); list != nullptr && list->Current() >= 0) {
    list->UserCheck(list->Current(), !list->Item(list->Current()).checked);
    return true;
  }
  return ClickFocused<CheckBox>(stage) || ClickFocused<Button>(stage) || ClickFocused<RadioButton>(stage);
}

void TypeOne(Stage& stage, const std::string& text) {
  if (auto* const tree = Focused<Tree>(stage); tree != nullptr && tree->LabelEdit()) return TypeIntoLabel(*tree, text);
  if (auto* const box = Focused<TextBox>(stage)) return box->UserType(text);
  auto* const grid = Focused<Grid>(stage);
  if (grid == nullptr) throw Refusal{"nothing that takes a text has the keyboard"};
  CheckUsable(*grid);
  grid->UserType(text);
  CheckEditOpen(*grid);
}

}  // namespace

void FocusControl(Stage& stage, Words words) {
  Control& control = FindControl(stage, words);
  CheckUsable(control);
  if (!IsOneOf<Grid, Tree, ListView, ListBox, Button, CheckBox, RadioButton, TextBox>(control))
    throw Refusal{NameOf(control) + " does not take the keyboard"};
  control.UserFocus();
}

void SelectByKeys(Stage& stage, Words words) {
  Control& control = FindControl(stage, words.first(1));
  CheckUsable(control);
  if (auto* const tree = dynamic_cast<Tree*>(&control); tree != nullptr && words.size() == 2) {
    TreeNode& node = FindNode(*tree, words[1]);
    tree->UserFocus();
    return tree->UserSelect(node);
  }
  if (auto* const list = dynamic_cast<ListView*>(&control); list != nullptr && words.size() == 2) {
    return list->UserSelect(FindRow(*list, words[1]));
  }
  auto* const grid = dynamic_cast<Grid*>(&control);
  if (grid == nullptr || words.size() % 2 == 0) {
    throw Refusal{"wanted: a tree and a node, a list and the text of a row, or a grid, rows and columns"};
  }
  const Cell cell = FindSeenCell(*grid, words[1], words[2]);
  const Cell end = words.size() > 3 ? FindSeenCell(*grid, words[3], words[4]) : cell;
  if (grid->IsFixed(cell) || grid->IsFixed(end)) throw Refusal{"a fixed cell cannot be selected by keys"};
  grid->UserFocus();
  grid->UserSelect(cell, end);
}

void PressKey(Stage& stage, Words words) {
  const std::string& keys = words[0];
  if (EqualIgnoringCase(keys, kBackwards)) return GoToNextCell(stage, true);
  if (EqualIgnoringCase(keys, kSpace) && PressSpace(stage)) return;
  const auto* const named = std::find_if(kKeys.begin(), kKeys.end(),
                                         [&](const KeyName& known) { return EqualIgnoringCase(known.name, keys); });
  if (named != kKeys.end() && PressInWindow(stage, named->key)) return;
  PressShortcut(stage, keys);
}

void TypeText(Stage& stage, Words words) {
  if (words.size() == 1 || !words[0].empty()) TypeOne(stage, words[0]);
  for (const std::string& word : words.subspan(1)) {
    GoToNextCell(stage);
    if (!word.empty()) TypeOne(stage, word);
  }
}

void ClearText(Stage& stage, Words) {
  if (auto* const tree = Focused<Tree>(stage); tree != nullptr && tree->LabelEdit()) return tree->UserLabelText("");
  if (auto* const box = Focused<TextBox>(stage)) return box->UserText("");
  auto* const grid = Focused<Grid>(stage);
  if (grid == nullptr || grid->OpenEdit() == nullptr) throw Refusal{"no edit is open"};
  grid->UserEditText("");
}

void ChooseText(Stage& stage, Words words) {
  auto* const grid = Focused<Grid>(stage);
  if (grid == nullptr || grid->OpenEdit() == nullptr) throw Refusal{"no edit is open in a grid"};
  const auto& choices = grid->OpenEdit()->choices;
  if (std::find(choices.begin(), choices.end(), words[0]) == choices.end()) {
    throw Refusal{Quoted(words[0]) + " is none of the texts to choose from"};
  }
  grid->UserEditText(words[0]);
}

}  // namespace tavrin
