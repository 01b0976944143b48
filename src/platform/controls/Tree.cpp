#include "platform/controls/Tree.h"

#include <utility>

#include "platform/RuntimeError.h"
#include "platform/controls/Form.h"
#include "platform/controls/Typed.h"

namespace tavrin {

void Tree::Clear() {
  if (nodes_.empty()) return;
  UserCancelLabelEdit();
  ++cleared_;
  Tell(&TreeListener::OnAboutToClear);
  selected_ = nullptr;
  keys_.clear();
  nodes_.clear();
  roots_.clear();
  Tell(&TreeListener::OnCleared);
}

TreeNode& Tree::Add(std::string_view parentKey, std::string key, std::string text, std::string image, int tag,
                    bool expanded) {
  TreeNode* const parent = parentKey.empty() ? nullptr : Node(parentKey);
  if (!parentKey.empty() && parent == nullptr) throw RuntimeError(ErrorNumber::InvalidCall);
  if (Node(key) != nullptr) throw RuntimeError(ErrorNumber::KeyInUse);
  auto& siblings = parent == nullptr ? roots_ : parent->children_;
  const int position = static_cast<int>(siblings.size());
  auto node = std::make_unique<TreeNode>(parent, std::move(key), std::move(text), std::move(image), tag);
  node->expanded_ = expanded;
  node->position_ = position;
  TreeNode& added = *node;
  Tell(&TreeListener::OnNodeAboutToBeAdded, parent, position);
  siblings.push_back(std::move(node));
  nodes_.push_back(&added);
  keys_.emplace(added.key_, &added);
  Tell(&TreeListener::OnNodeAdded);
  return added;
}

TreeNode* Tree::Node(int position) const {
  return position < 1 || position > Count() ? nullptr : nodes_[static_cast<std::size_t>(position) - 1];
}

TreeNode* Tree::Node(std::string_view key) const {
  const auto found = keys_.find(std::string(key));
  return found == keys_.end() ? nullptr : found->second;
}

void Tree::Text(TreeNode& node, std::string_view text) {
  if (node.text_ == text) return;
  node.text_ = text;
  if (listener_ != nullptr) listener_->OnNodeChanged(node);
}

void Tree::SelectedItem(TreeNode& node) {
  if (selected_ == &node) return;
  UserCancelLabelEdit();
  selected_ = &node;
  Tell(&TreeListener::OnSelectionChanged);
}

void Tree::StartLabelEdit() {
  if (labelEdit_) return;
  Owner().EndPendingEdits();
  SetFocus();
  if (labelEdit_ || selected_ == nullptr || !Visible() || !Enabled()) return;
  labelEdit_ = selected_->text_;
  Tell(&TreeListener::OnLabelEditChanged);
}

void Tree::UserPress(MouseButton button, TreeNode* node) {
  const auto known = cleared_;
  UserFocus();
  Owner().EndPendingEdits();
  Run(OnMouseDown, button);
  if (node != nullptr && cleared_ == known) Choose(*node);
}

void Tree::UserSelect(TreeNode& node) {
  const auto known = cleared_;
  UserFocus();
  Owner().EndPendingEdits();
  if (cleared_ == known && selected_ != &node) Choose(node);
}

void Tree::Choose(TreeNode& node) {
  if (selected_ != &node) UserCancelLabelEdit();
  selected_ = &node;
  Run(OnNodeClick, node);
}

void Tree::UserExpand(TreeNode& node, bool expanded) { node.expanded_ = expanded; }

bool Tree::UserKey(Key key) {
  if (labelEdit_) {
    if (key == Key::Enter) UserEndLabelEdit();
    if (key == Key::Escape) UserCancelLabelEdit();
    return key == Key::Enter || key == Key::Escape;
  }
  if (key != Key::F2 && key != Key::Delete) return false;
  Owner().EndPendingEdits();
  Run(OnKeyDown, key);
  return true;
}

void Tree::UserLabelText(std::string_view text) {
  if (labelEdit_) labelEdit_ = WithoutControlCharacters(text);
}

void Tree::UserEndLabelEdit() {
  if (!labelEdit_) return;
  const std::string text = *std::exchange(labelEdit_, std::nullopt);
  TreeNode* const node = selected_;
  const auto known = cleared_;
  Tell(&TreeListener::OnLabelEditChanged);
  bool cancel = false;
  Run(OnAfterLabelEdit, cancel, text);
  if (cancel || cleared_ != known || node->text_ == text) return;
  node->text_ = text;
  Tell(&TreeListener::OnNodeChanged, *node);
}

void Tree::UserCancelLabelEdit() {
  if (!labelEdit_) return;
  labelEdit_.reset();
  Tell(&TreeListener::OnLabelEditChanged);
}

}  // namespace tavrin
