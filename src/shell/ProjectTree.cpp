#include "shell/ProjectTree.h"

#include <algorithm>
#include <array>
#include <vector>

#include "model/NetworkSettings.h"
#include "model/cOPC.h"
#include "model/shared/Messages.h"
#include "model/shared/modMain.h"
#include "model/shared/modParser.h"
#include "platform/CodePage.h"
#include "platform/NumberText.h"
#include "platform/RuntimeError.h"
#include "shell/frmOPC.h"

namespace tavrin {

namespace {

constexpr int kEditMenu = 2;

// A node has the position of its sheet as its tag.
constexpr int kFirstNetworkTag = RightPane::kFirstNetworkSheet;
constexpr int kFirstDeviceTag = RightPane::kFirstDeviceSheet;
constexpr int kLastDeviceTag = kFirstDeviceTag + kNetworkTypes - 1;

/// Which commands are live while a node with one of the tags is the current one.
struct CommandRow {
  int firstTag;
  int lastTag;
  std::array<bool, 5> edit;  ///< of mnuEdit 1 to 5
  bool test;                 ///< mnuEdit 6, when test runs are offered at all
  bool canDelete;            ///< the delete button
  int deleteTarget;          ///< its tag, when it is live
  bool popup;                ///< the edit menu opens on a right click
};

constexpr std::array kCommands{
    CommandRow{0, 0, {true, false, false, false, false}, false, false, 0, true},
    CommandRow{1, 5, {false, true, true, false, true}, false, true, kDeleteNetwork, true},
    CommandRow{6, 10, {false, false, false, true, true}, true, true, kDeleteDevice, true},
};
constexpr CommandRow kNoCommands{0, 0, {}, false, false, 0, false};

const CommandRow& CommandsOf(int tag) {
  const auto* const row = std::find_if(kCommands.begin(), kCommands.end(), [tag](const CommandRow& candidate) {
    return candidate.firstTag <= tag && tag <= candidate.lastTag;
  });
  return row == kCommands.end() ? kNoCommands : *row;
}

bool IsNetworkTag(int tag) { return kFirstNetworkTag <= tag && tag < kFirstDeviceTag; }
bool IsDeviceTag(int tag) { return kFirstDeviceTag <= tag && tag <= kLastDeviceTag; }

/// The pieces of a key between its marks; the one before the first mark is empty.
std::vector<std::string_view> PiecesOf(std::string_view szKey) {
  std::vector<std::string_view> pieces;
  for (;;) {
    const std::size_t end = szKey.find('#');
    pieces.push_back(szKey.substr(0, end));
    if (end == std::string_view::npos) return pieces;
    szKey.remove_prefix(end + 1);
  }
}

/// Position, counted from 1, of the object whose nID is the number of the key's piece; 0 for none.
template <class Collection>
std::int32_t PositionOf(const Collection& collection, std::string_view piece) {
  const double number = NumericPrefix(piece);
  std::int32_t position = 0;
  for (const auto& item : collection) {
    ++position;
    if (item.nID() == number) return position;
  }
  return 0;
}

/// What a rename in the tree changes, by kind of node.
struct RenameRow {
  bool (cOPC::*unique)(std::string_view name) const;
  std::int32_t takenText;
  std::string_view fileEnd;
  const std::string& (*file)();
  void (*rename)(const std::string& name);
};

const std::string& FileOfNetwork() { return modMain::CurrentNetwork().szFileName(); }
const std::string& FileOfDevice() { return modMain::CurrentDevice().szTagFileName(); }

/// A file of another object must not become that of this one as well: each would overwrite the other.
bool IsFileFree(const std::string& file, const std::string& own) {
  return EqualIgnoringCase(file, own) || modMain::OpenProject().CheckFilenameUnique(file);
}

void RenameNetwork(const std::string& name) {
  cNetwork& network = modMain::CurrentNetwork();
  network.szNetworkName(name);
  network.szFileName(name + ".ini");
}

void RenameDevice(const std::string& name) {
  cDevice& device = modMain::CurrentDevice();
  device.szDeviceName(name);
  device.szTagFileName(name + ".csv");
}

constexpr RenameRow kRenameNetwork{&cOPC::CheckNetworkNameUnique, 210, ".ini", &FileOfNetwork, &RenameNetwork};
constexpr RenameRow kRenameDevice{&cOPC::CheckDeviceNameUnique, 211, ".csv", &FileOfDevice, &RenameDevice};

/// @return false for a name that was refused, which has been told
bool Rename(const RenameRow& row, const std::string& newString) {
  std::string checked = newString;
  const std::int32_t problem = NameCheckText(ParserIsValidNodeName(checked));
  if (problem != 0) return Refuse(NameProblem(problem, checked));
  // The present name of the object counts as taken too, in any case.
  if (!(modMain::OpenProject().*row.unique)(checked)) return Refuse(NameProblem(row.takenText, checked));
  const std::string file = checked + std::string(row.fileEnd);
  if (!IsFileFree(file, row.file())) return Refuse(NameProblem(212, file));
  row.rename(checked);
  return true;
}

}  // namespace

ProjectTree::ProjectTree(frmOPC& form) : form_(form) {
  Tree& tvwMain = form_.tvwMain;
  tvwMain.OnNodeClick = [this](TreeNode& node) { tvwMain_NodeClick(node); };
  tvwMain.OnMouseDown = [this](MouseButton button) { tvwMain_MouseDown(button); };
  tvwMain.OnKeyDown = [this](Key key) { tvwMain_KeyDown(key); };
  tvwMain.OnAfterLabelEdit = [this](bool& cancel, const std::string& newString) {
    tvwMain_AfterLabelEdit(cancel, newString);
  };
}

std::int32_t ProjectTree::GetNWIndexFromKey(std::string_view szKey) {
  const auto pieces = PiecesOf(szKey);
  return pieces.size() < 3 ? 0 : PositionOf(modMain::OpenProject().Networks(), pieces[2]);
}

std::int32_t ProjectTree::GetDVCIndexFromKey(std::string_view szKey) {
  const auto pieces = PiecesOf(szKey);
  if (pieces.size() < 4) return 0;
  const cNetwork* const network = modMain::OpenProject().Networks().Network(modMain::globals.gnCurrentNetwork);
  return network == nullptr ? 0 : PositionOf(network->Devices(), pieces[3]);
}

void ProjectTree::SetCommands(int tag) {
  const CommandRow& row = CommandsOf(tag);
  int index = 0;
  for (const bool enabled : row.edit) form_.mnuEdit(++index).Enabled(enabled);
  form_.mnuEdit(kEditTest).Visible(row.test && modMain::globals.gbTest);
  ToolButton& button = form_.Toolbar1.Buttons(kToolDelete);
  if (row.canDelete) button.Tag(row.deleteTarget);
  button.Enabled(row.canDelete);
}

void ProjectTree::OpenPopup(int tag) {
  if (form_.nMouseButton != static_cast<std::int32_t>(MouseButton::Right) || !CommandsOf(tag).popup) return;
  // Taken back first: the chosen command may run the click on another node, which nobody has clicked.
  form_.nMouseButton = static_cast<std::int32_t>(MouseButton::Left);
  modMain::Platform().desktop.PopupMenu(form_.mnuMain(kEditMenu));
}

void ProjectTree::tvwMain_NodeClick(TreeNode& node) try {
  // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): a command of the menu may rebuild the tree
  const std::string key = node.Key();
  modMain::globals.gnCurrentNetwork = GetNWIndexFromKey(key);
  modMain::globals.gnCurrentDevice = GetDVCIndexFromKey(key);
  if (modMain::globals.gOPC) {
    SetCommands(node.Tag());
    OpenPopup(node.Tag());
  }
  ShowNodeData(form_.tvwMain.Node(key));
} catch (...) {
  modMain::Trap("frmOPC.tvwMain_NodeClick : ");
}

void ProjectTree::tvwMain_MouseDown(MouseButton button) {
  form_.nMouseButton = static_cast<std::int32_t>(button);
  if (TreeNode* const selected = form_.tvwMain.SelectedItem()) form_.tvwMain.SelectedItem(*selected);
}

void ProjectTree::tvwMain_KeyDown(Key key) {
  const TreeNode* const node = form_.tvwMain.SelectedItem();
  if (node == nullptr) return;
  // The node alone decides, and not whether the entry is enabled: after a change of the language all are off.
  const bool isNetwork = IsNetworkTag(node->Tag());
  if (!isNetwork && !IsDeviceTag(node->Tag())) return;
  if (key == Key::Delete) Run(form_.mnuEdit(isNetwork ? kEditDeleteNetwork : kEditDeleteDevice).OnClick);
  if (key == Key::F2) Run(form_.mnuEdit(kEditRename).OnClick);
}

void ProjectTree::tvwMain_AfterLabelEdit(bool& cancel, const std::string& newString) try {
  const TreeNode* const node = form_.tvwMain.SelectedItem();
  if (node == nullptr) return;
  const bool isNetwork = IsNetworkTag(node->Tag());
  if (!isNetwork && !IsDeviceTag(node->Tag())) return;
  if (!Rename(isNetwork ? kRenameNetwork : kRenameDevice, newString)) {
    cancel = true;
    return;
  }
  ShowNodeData(node);
} catch (...) {
  cancel = true;  // no label but the object's name
  modMain::Trap("frmOPC.tvwMain_AfterLabelEdit : ");
}

void ProjectTree::ShowNodeData(const TreeNode* node) try {
  if (node == nullptr) return;
  const int tag = node->Tag();
  const auto sheets = form_.Sheets();
  if (tag < 0 || tag >= static_cast<int>(sheets.size())) return;
  Grid& sheet = *sheets[static_cast<std::size_t>(tag)];
  if (IsDeviceTag(tag)) {
    modMain::CurrentDevice().Show(sheet);
  } else if (IsNetworkTag(tag)) {
    modMain::CurrentNetwork().Show(sheet);
  } else {
    modMain::OpenProject().Show(sheet);
  }
} catch (...) {
  modMain::Trap("frmOPC.ShowNodeData : ");
}

void ProjectTree::ActivateFirstNode() {
  TreeNode* const first = form_.tvwMain.Node(1);
  if (first == nullptr) return;
  form_.tvwMain.SelectedItem(*first);
  tvwMain_NodeClick(*first);
}

void ProjectTree::Rebuild() {
  modMain::OpenProject().ShowTVWStructure(form_.tvwMain);
  form_.tvwMain.SetFocus();
  ActivateFirstNode();
}

}  // namespace tavrin
