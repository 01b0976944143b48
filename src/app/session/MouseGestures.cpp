#include "app/session/Gestures.h"
#include "app/session/Reach.h"
#include "platform/controls/Button.h"
#include "platform/controls/Picture.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Toolbar.h"

namespace tavrin {

namespace {

void WantWords(Words words, std::size_t count, const char* what) {
  if (words.size() != count) throw Refusal{std::string("wanted: ") + what};
}

void PressNode(Stage& stage, MouseButton button, Words words) {
  WantWords(words, 2, "the tree and the path of a node");
  Tree& tree = FindTree(stage, words[0]);
  CheckUsable(tree);
  tree.UserPress(button, &FindNode(tree, words[1]));
}

/// The pointer is on the cell before a button can be pressed there.
Grid& PressCell(Stage& stage, MouseButton button, Words words, Cell& cell) {
  WantWords(words, 3, "the grid, a row and a column");
  Grid& grid = FindGrid(stage, words[0]);
  CheckUsable(grid);
  cell = FindSeenCell(grid, words[1], words[2]);
  grid.UserPointAt(cell);
  grid.UserPress(button, cell);
  return grid;
}

void Press(Stage& stage, MouseButton button, Words words) {
  const Control& control = FindControl(stage, words.first(1));
  Cell cell;
  if (dynamic_cast<const Tree*>(&control) != nullptr) {
    PressNode(stage, button, words);
  } else if (dynamic_cast<const Grid*>(&control) != nullptr) {
    PressCell(stage, button, words, cell);
  } else {
    throw Refusal{"a click on " + NameOf(control) + " means nothing"};
  }
}

void ChooseEntry(Stage& stage, MenuEntry& entry) {
  OpenMenusAbove(stage, entry);
  CheckChoosable(entry);
  entry.UserClick();
}

/// @return false when the control is of another kind
template <class Kind>
bool ClickKind(Control& control) {
  auto* const known = dynamic_cast<Kind*>(&control);
  if (known == nullptr) return false;
  CheckUsable(control);
  known->UserClick();
  return true;
}

/// True for the name of a control that has places in it to click on.
bool HasPlaces(Stage& stage, Words words) {
  const Control* control = stage.Window().Find(words[0]);
  return dynamic_cast<const Tree*>(control) != nullptr || dynamic_cast<const Grid*>(control) != nullptr;
}

}  // namespace

void Click(Stage& stage, Words words) {
  if (HasPlaces(stage, words)) return Press(stage, MouseButton::Left, words);
  if (words.size() > 2) throw Refusal{"wanted: a control, and its number when it has one"};
  Control& control = FindControl(stage, words);
  if (auto* const entry = dynamic_cast<MenuEntry*>(&control)) return ChooseEntry(stage, *entry);
  const bool clicked = ClickKind<Button>(control) || ClickKind<CheckBox>(control) || ClickKind<RadioButton>(control) ||
                       ClickKind<ToolButton>(control);
  if (!clicked) throw Refusal{"a click on " + NameOf(control) + " means nothing"};
}

void RightClick(Stage& stage, Words words) { Press(stage, MouseButton::Right, words); }

void DoubleClick(Stage& stage, Words words) {
  Cell cell;
  PressCell(stage, MouseButton::Left, words, cell).UserDblClick(cell);
}

void PointAt(Stage& stage, Words words) {
  Grid& grid = FindGrid(stage, words[0]);
  CheckUsable(grid);
  grid.UserPointAt(FindSeenCell(grid, words[1], words[2]));
}

void ExpandNode(Stage& stage, Words words) {
  Tree& tree = FindTree(stage, words[0]);
  CheckUsable(tree);
  tree.UserExpand(FindNode(tree, words[1]), true);
}

void CollapseNode(Stage& stage, Words words) {
  Tree& tree = FindTree(stage, words[0]);
  CheckUsable(tree);
  tree.UserExpand(FindNode(tree, words[1]), false);
}

void DragSplitter(Stage& stage, Words words) {
  auto* const bar = FindKind<Picture>(stage, words.first(1));
  if (bar == nullptr || bar->Kind() != PictureKind::Splitter) throw Refusal{"only a splitter can be dragged"};
  CheckUsable(*bar);
  const auto twips = static_cast<float>(NumberOf(words[1]));
  const bool across = bar->Place().height > bar->Place().width;
  const float x = across ? twips : 0;
  const float y = across ? 0 : twips;
  bar->UserPress(0, 0);
  bar->UserMove(x, y);
  bar->UserRelease(x, y);
}

void WidenColumn(Stage& stage, Words words) {
  Grid& grid = FindGrid(stage, words[0]);
  CheckUsable(grid);
  const int col = FindCell(grid, "0", words[1]).col;
  const int twips = NumberOf(words[2]);
  if (twips <= 0) throw Refusal{"a column cannot be pulled to nothing"};
  // The keys of the rows: a fixed column without width has no edge.
  if (col < grid.FixedCols() && grid.ColWidth(col) <= 0) {
    throw Refusal{"column " + words[1] + " of " + NameOf(grid) + " is hidden"};
  }
  grid.UserColWidth(col, static_cast<float>(twips));
}

}  // namespace tavrin
