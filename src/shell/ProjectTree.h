#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/controls/Keys.h"

namespace tavrin {

class frmOPC;
class TreeNode;

/// The tree of the project: a click on a node decides which object is the current one, which sheet shows it and which
/// commands are live; a rename happens in the tree.
class ProjectTree {
 public:
  explicit ProjectTree(frmOPC& form);

  /// Position in its collection, counted from 1, of the network that a node's key names; 0 when there is none.
  [[nodiscard]] static std::int32_t GetNWIndexFromKey(std::string_view szKey);
  /// The same for the device of a key, in the current network, which must have been set from the same key.
  [[nodiscard]] static std::int32_t GetDVCIndexFromKey(std::string_view szKey);

  void tvwMain_NodeClick(TreeNode& node);
  void tvwMain_MouseDown(MouseButton button);
  void tvwMain_KeyDown(Key key);
  void tvwMain_AfterLabelEdit(bool& cancel, const std::string& newString);

  /// Fills the sheet of the node's object and brings it on show; nullptr does nothing.
  void ShowNodeData(const TreeNode* node);
  /// Selects node 1 and runs the click on it, when the tree has a node: after every rebuilding of the tree.
  void ActivateFirstNode();
  /// Rebuilds the tree from the open project, gives it the keyboard and activates its first node.
  void Rebuild();

 private:
  void SetCommands(int tag);
  /// Opens the edit menu at the pointer after a right click on a node of the tag.
  void OpenPopup(int tag);

  frmOPC& form_;
};

}  // namespace tavrin
