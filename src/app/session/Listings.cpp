#include <algorithm>
#include <array>

#include "app/session/Reach.h"
#include "app/session/Subjects.h"
#include "platform/CodePage.h"
#include "platform/controls/Picture.h"

namespace tavrin {

namespace {

void PrintGrid(Stage& stage, Words words) {
  const Grid& grid = FindGrid(stage, words[0]);
  CheckUsable(grid);
  for (int row = 0; row < grid.Rows(); ++row) {
    std::string line = "row " + std::to_string(row);
    for (int col = 0; col < grid.Cols(); ++col) {
      if (grid.ColWidth(col) > 0) line += " " + Quoted(grid.Text({row, col}));
    }
    stage.transcript.Tell(line);
  }
}

void PrintNodes(Transcript& transcript, const std::vector<std::unique_ptr<TreeNode>>& nodes, const TreeNode* selected) {
  for (const auto& node : nodes) {
    const bool isClosed = !node->Expanded() && !node->Children().empty();
    transcript.Tell("node " + Quoted(PathOf(*node)) + " " + Quoted(node->Text()) + (isClosed ? " closed" : "") +
                    (node.get() == selected ? " selected" : ""));
    if (!isClosed) PrintNodes(transcript, node->Children(), selected);
  }
}

void PrintTree(Stage& stage, Words words) {
  const Tree& tree = FindTree(stage, words[0]);
  CheckUsable(tree);
  PrintNodes(stage.transcript, tree.Roots(), tree.SelectedItem());
}

void PrintMenu(Stage& stage, Words words) {
  auto* const menu = FindKind<MenuEntry>(stage, words);
  if (menu == nullptr || menu->Entries().empty()) throw Refusal{"this is no menu"};
  if (menu != stage.popup) {
    OpenMenusAbove(stage, *menu);
    CheckUsable(*menu);
    menu->UserOpen();
  }
  PrintEntries(stage.transcript, *menu);
}

void PrintMenuBar(Stage& stage, Words) {
  for (const MenuEntry* menu : stage.Window().MenuBar()) {
    if (menu->Visible()) stage.transcript.Tell(NameOf(*menu), WithoutMnemonic(menu->Caption()));
  }
}

void PrintRows(Transcript& transcript, const ListView& list) {
  for (const ListItem& item : list.Items()) {
    transcript.Tell("row " + Quoted(item.text) + " " + ToUtf8(item.icon) + (item.checked ? " ticked" : ""));
  }
}

void PrintList(Stage& stage, Words words) {
  const Control& control = FindControl(stage, words);
  CheckUsable(control);
  if (const auto* const list = dynamic_cast<const ListView*>(&control)) return PrintRows(stage.transcript, *list);
  for (const std::string& line : FindListBox(stage, words[0]).Lines()) stage.transcript.Tell("line", line);
}

/// What a control of a dialog shows at first sight.
std::string ShownOn(const Control& control) {
  if (const auto* const grid = dynamic_cast<const Grid*>(&control)) return "rows " + std::to_string(grid->Rows());
  if (const auto* const list = dynamic_cast<const ListView*>(&control)) return "rows " + std::to_string(list->Count());
  if (const auto* const list = dynamic_cast<const ListBox*>(&control)) {
    return "lines " + std::to_string(list->Lines().size());
  }
  if (const auto* const picture = dynamic_cast<const Picture*>(&control)) return "picture " + ToUtf8(picture->Image());
  return Quoted(CaptionOf(control));
}

/// A dialog row by row: what a user sees of it.
void PrintDialog(Stage& stage, Words) {
  for (const auto& row : stage.Window().Arrangement()) {
    for (const Control* control : row) {
      if (control == nullptr || !control->Visible()) continue;
      std::string line = NameOf(*control) + " " + ShownOn(*control);
      if (CheckMark(*control).value_or(false)) line += " checked";
      if (!control->Enabled()) line += " disabled";
      stage.transcript.Tell(line);
    }
  }
}

constexpr std::array kListings{
    Listing{"grid", "GRID", "all rows of a grid on show, without hidden columns", PrintGrid},
    Listing{"tree", "TREE", "all nodes of a tree that are not in a closed one", PrintTree},
    Listing{"list", "LIST", "all rows or lines of a list on show", PrintList},
    Listing{"menubar", "", "the menus of the menu bar", PrintMenuBar},
    Listing{"menu", "CONTROL NUMBER", "opens a menu and prints its entries", PrintMenu},
    Listing{"dialog", "", "the controls of a dialog", PrintDialog},
};

}  // namespace

std::span<const Listing> Listings() { return kListings; }

const Listing* FindListing(std::string_view name) {
  const auto* const found =
      std::find_if(kListings.begin(), kListings.end(), [name](const Listing& listing) { return listing.name == name; });
  return found == kListings.end() ? nullptr : found;
}

void PrintEntries(Transcript& transcript, const MenuEntry& menu) {
  for (const MenuEntry* entry : menu.Entries()) {
    if (!entry->Visible()) continue;
    std::string line = NameOf(*entry) + " " + Quoted(entry->ShownCaption());
    if (!entry->Shortcut().empty()) line += " " + entry->Shortcut();
    if (!entry->Entries().empty()) line += " >";
    if (entry->Checked()) line += " checked";
    if (!entry->Enabled()) line += " disabled";
    transcript.Tell(line);
  }
}

}  // namespace tavrin
