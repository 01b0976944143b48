#include "app/session/Reach.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <vector>

#include "platform/CodePage.h"

namespace tavrin {

namespace {

/// The node of the path below one of the nodes. A text may have a "/" of its own.
TreeNode* FindBelow(const std::vector<std::unique_ptr<TreeNode>>& nodes, std::string_view path) {
  for (const auto& node : nodes) {
    if (!path.starts_with(node->Text())) continue;
    const std::string_view rest = path.substr(node->Text().size());
    if (rest.empty()) return node.get();
    if (rest.front() != '/') continue;
    if (TreeNode* found = FindBelow(node->Children(), rest.substr(1))) return found;
  }
  return nullptr;
}

TreeNode* SearchNode(const Tree& tree, const std::string& path) {
  if (TreeNode* node = tree.Node(std::string_view(path))) return node;
  if (tree.Roots().empty()) return nullptr;
  if (path == "/") return tree.Roots().front().get();
  for (const auto& root : tree.Roots()) {
    if (TreeNode* found = FindBelow(root->Children(), path)) return found;
  }
  return nullptr;
}

bool IsInMenuBar(const Stage& stage, const MenuEntry& entry) {
  const auto& bar = stage.Window().MenuBar();
  return std::find(bar.begin(), bar.end(), &entry) != bar.end() && entry.Visible();
}

/// The menus above an entry that have to be opened, the outermost first.
std::vector<MenuEntry*> MenusAbove(const Stage& stage, const MenuEntry& entry) {
  std::vector<MenuEntry*> menus;
  MenuEntry* menu = entry.Parent();
  for (; menu != nullptr && menu != stage.popup; menu = menu->Parent()) menus.push_back(menu);
  std::reverse(menus.begin(), menus.end());
  if (stage.popup != nullptr && menu == stage.popup) return menus;
  const MenuEntry& first = menus.empty() ? entry : *menus.front();
  if (!IsInMenuBar(stage, first)) throw Refusal{NameOf(first) + " is not in the menu bar"};
  return menus;
}

}  // namespace

int NumberOf(const std::string& word) {
  int number = 0;
  const auto read = std::from_chars(word.data(), word.data() + word.size(), number);
  if (word.empty() || read.ec != std::errc{} || read.ptr != word.data() + word.size()) {
    throw Refusal{Quoted(word) + " is no whole number"};
  }
  return number;
}

std::string NameOf(const Control& control) {
  const std::string name = ToUtf8(control.Name());
  return control.Index() == 0 ? name : name + " " + std::to_string(control.Index());
}

Control& FindControl(const Stage& stage, Words words) {
  const Form& form = stage.Window();
  const int index = words.size() > 1 ? NumberOf(words[1]) : 0;
  if (Control* control = form.Find(words[0], index)) return *control;
  const std::string number = words.size() > 1 ? " " + std::to_string(index) : "";
  throw Refusal{form.Name() + " has no control " + ToUtf8(words[0]) + number};
}

Grid& FindGrid(const Stage& stage, const std::string& name) {
  Grid* grid = FindKind<Grid>(stage, Words(&name, 1));
  if (grid == nullptr) throw Refusal{ToUtf8(name) + " is no grid"};
  return *grid;
}

Tree& FindTree(const Stage& stage, const std::string& name) {
  Tree* tree = FindKind<Tree>(stage, Words(&name, 1));
  if (tree == nullptr) throw Refusal{ToUtf8(name) + " is no tree"};
  return *tree;
}

ListView& FindListView(const Stage& stage, const std::string& name) {
  ListView* list = FindKind<ListView>(stage, Words(&name, 1));
  if (list == nullptr) throw Refusal{ToUtf8(name) + " is no list with boxes"};
  return *list;
}

ListBox& FindListBox(const Stage& stage, const std::string& name) {
  ListBox* list = FindKind<ListBox>(stage, Words(&name, 1));
  if (list == nullptr) throw Refusal{ToUtf8(name) + " is no list of lines"};
  return *list;
}

int FindRow(const ListView& list, const std::string& text) {
  const auto& items = list.Items();
  const auto found = std::find_if(items.begin(), items.end(), [&](const ListItem& item) { return item.text == text; });
  if (found == items.end()) throw Refusal{NameOf(list) + " has no row " + Quoted(text)};
  return static_cast<int>(found - items.begin());
}

void CheckUsable(const Control& control) {
  if (!control.Visible()) throw Refusal{NameOf(control) + " is not on show"};
  if (!control.Enabled()) throw Refusal{NameOf(control) + " is disabled"};
}

TreeNode& FindNode(const Tree& tree, const std::string& path) {
  TreeNode* node = SearchNode(tree, path);
  if (node == nullptr) throw Refusal{NameOf(tree) + " has no node " + Quoted(path)};
  return *node;
}

std::string PathOf(const TreeNode& node) {
  if (node.Parent() == nullptr) return "/";
  std::string path = node.Text();
  for (const TreeNode* above = node.Parent(); above->Parent() != nullptr; above = above->Parent()) {
    path.insert(0, above->Text() + "/");
  }
  return path;
}

Cell FindCell(const Grid& grid, const std::string& row, const std::string& col) {
  const Cell cell{NumberOf(row), NumberOf(col)};
  if (cell.row < 0 || cell.row >= grid.Rows() || cell.col < 0 || cell.col >= grid.Cols()) {
    throw Refusal{NameOf(grid) + " has no cell " + row + " " + col};
  }
  return cell;
}

Cell FindSeenCell(const Grid& grid, const std::string& row, const std::string& col) {
  const Cell cell = FindCell(grid, row, col);
  if (grid.ColWidth(cell.col) <= 0) throw Refusal{"column " + col + " of " + NameOf(grid) + " is hidden"};
  return cell;
}

void OpenMenusAbove(const Stage& stage, const MenuEntry& entry) {
  for (MenuEntry* menu : MenusAbove(stage, entry)) {
    CheckUsable(*menu);
    menu->UserOpen();
  }
}

void CheckChoosable(const MenuEntry& entry) {
  CheckUsable(entry);
  if (entry.IsSeparator()) throw Refusal{NameOf(entry) + " is a separator"};
  if (!entry.Entries().empty()) throw Refusal{NameOf(entry) + " is a menu: name an entry of it"};
}

std::string AbsolutePath(const std::string& path) {
  if (path.empty()) throw Refusal{"a path must not be empty"};
  const std::filesystem::path utf8(ToUtf8(path));
  auto absolute = FromUtf8(std::filesystem::absolute(utf8).lexically_normal().string());
  if (!absolute) throw Refusal{"the path of the working directory has characters that the code page does not have"};
  return *absolute;
}

}  // namespace tavrin
