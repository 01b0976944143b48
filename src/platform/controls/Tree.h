#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/controls/Control.h"
#include "platform/controls/Keys.h"

namespace tavrin {

/// A node of a tree. Its key is unique in the tree; its number ties it to something of the program.
class TreeNode {
 public:
  TreeNode(TreeNode* parent, std::string key, std::string text, std::string image, int tag)
      : parent_(parent), key_(std::move(key)), text_(std::move(text)), image_(std::move(image)), tag_(tag) {}
  TreeNode(const TreeNode&) = delete;
  TreeNode& operator=(const TreeNode&) = delete;

  [[nodiscard]] const std::string& Key() const { return key_; }
  [[nodiscard]] const std::string& Text() const { return text_; }
  /// Key of the picture.
  [[nodiscard]] const std::string& Image() const { return image_; }
  [[nodiscard]] int Tag() const { return tag_; }
  [[nodiscard]] bool Expanded() const { return expanded_; }
  /// nullptr for a root.
  [[nodiscard]] TreeNode* Parent() const { return parent_; }
  [[nodiscard]] const std::vector<std::unique_ptr<TreeNode>>& Children() const { return children_; }
  /// Position among its parent's children, counted from 0.
  [[nodiscard]] int Position() const { return position_; }

 private:
  friend class Tree;

  TreeNode* parent_;
  std::string key_;
  std::string text_;
  std::string image_;
  int tag_;
  bool expanded_ = false;
  int position_ = 0;
  std::vector<std::unique_ptr<TreeNode>> children_;
};

/// What a view needs to follow a tree; changes of nodes come in pairs. Visibility, place and font come by
/// Control::Changed.
class TreeListener {
 public:
  TreeListener() = default;
  TreeListener(const TreeListener&) = delete;
  TreeListener& operator=(const TreeListener&) = delete;
  virtual ~TreeListener() = default;

  virtual void OnAboutToClear() = 0;
  virtual void OnCleared() = 0;
  /// @param parent nullptr for a root @param position among its children
  virtual void OnNodeAboutToBeAdded(const TreeNode* parent, int position) = 0;
  virtual void OnNodeAdded() = 0;
  /// Text or expansion of a node has changed by program.
  virtual void OnNodeChanged(const TreeNode& node) = 0;
  /// Another node is selected by program.
  virtual void OnSelectionChanged() = 0;
  /// A label edit has begun or ended.
  virtual void OnLabelEditChanged() = 0;
};

/// A tree of named nodes, one of which is selected.
class Tree : public Control {
 public:
  using Control::Control;

  /// One view at a time; nullptr for none. Must outlive the tree or leave before.
  void Listen(TreeListener* listener) { listener_ = listener; }

  /// Removes all nodes; an open label edit is given up, no node is selected.
  void Clear();
  /// @param parentKey empty for a root @throws RuntimeError 5 for an unknown parent, 457 for a key in use
  TreeNode& Add(std::string_view parentKey, std::string key, std::string text, std::string image, int tag,
                bool expanded);
  [[nodiscard]] int Count() const { return static_cast<int>(nodes_.size()); }
  /// Nodes in the order in which they were added, counted from 1. @return nullptr for an unknown position or key
  [[nodiscard]] TreeNode* Node(int position) const;
  [[nodiscard]] TreeNode* Node(std::string_view key) const;
  [[nodiscard]] const std::vector<std::unique_ptr<TreeNode>>& Roots() const { return roots_; }

  /// Changes a node's text by program; no rule runs.
  void Text(TreeNode& node, std::string_view text);

  [[nodiscard]] TreeNode* SelectedItem() const { return selected_; }
  /// Selects by program; OnNodeClick does not run. A label edit of another node is given up.
  void SelectedItem(TreeNode& node);

  /// Indentation of a level in twips.
  [[nodiscard]] float Indentation() const { return indentation_; }
  void Indentation(float twips) { Assign(indentation_, twips); }
  /// Points.
  [[nodiscard]] float FontSize() const { return fontSize_; }
  void FontSize(float points) { Assign(fontSize_, points); }

  /// Opens the label of the selected node for editing, with its text, and hands the keyboard to the tree; an open edit
  /// elsewhere ends. Without effect when no node is selected, a label is open, or the tree is hidden or disabled.
  void StartLabelEdit();
  /// The text in the open label edit; nothing when none is open.
  [[nodiscard]] const std::optional<std::string>& LabelEdit() const { return labelEdit_; }
  void EndPendingEdit() override { UserEndLabelEdit(); }

  // ---- gestures
  /// A press of a mouse button: gives the keyboard to the tree, ends an open edit, runs OnMouseDown; on a node it then
  /// selects the node and runs OnNodeClick, also when it was selected already. `node` nullptr: beside all nodes.
  /// Nothing is selected when a handler has cleared the tree meanwhile.
  void UserPress(MouseButton button, TreeNode* node);
  /// Another node is reached by keys: gives the keyboard to the tree, ends an open edit, selects the node and runs
  /// OnNodeClick. Without effect on the selected node.
  void UserSelect(TreeNode& node);
  void UserExpand(TreeNode& node, bool expanded);
  /// In the tree: Delete and F2 run OnKeyDown. In a label edit: Enter ends it, Escape gives it up. @return false for a
  /// key that means nothing here
  bool UserKey(Key key);
  /// The whole text of the label's editor; control characters are left out. Without effect when none is open.
  void UserLabelText(std::string_view text);
  /// Ends the label edit: OnAfterLabelEdit runs, and unless it cancels the node gets the text.
  void UserEndLabelEdit();
  /// Gives the label edit up; no rule runs.
  void UserCancelLabelEdit();

  // ---- events
  std::function<void(TreeNode& node)> OnNodeClick;
  std::function<void(MouseButton button)> OnMouseDown;
  std::function<void(Key key)> OnKeyDown;
  std::function<void(bool& cancel, const std::string& newString)> OnAfterLabelEdit;

 private:
  void Choose(TreeNode& node);

  /// Tells the view, if there is one.
  template <class... Parameters, class... Arguments>
  void Tell(void (TreeListener::*notice)(Parameters...), Arguments&&... arguments) {
    if (listener_ != nullptr) (listener_->*notice)(std::forward<Arguments>(arguments)...);
  }

  TreeListener* listener_ = nullptr;
  std::vector<std::unique_ptr<TreeNode>> roots_;
  std::vector<TreeNode*> nodes_;
  std::unordered_map<std::string, TreeNode*> keys_;
  TreeNode* selected_ = nullptr;
  float indentation_ = 300;
  float fontSize_ = 8;
  std::optional<std::string> labelEdit_;
  /// Counts the clearings: a node from before one is gone.
  unsigned cleared_ = 0;
};

}  // namespace tavrin
