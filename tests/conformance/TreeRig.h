#pragma once

#include <QAbstractItemModelTester>
#include <QLineEdit>
#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "platform/controls/Button.h"
#include "platform/controls/Form.h"
#include "platform/controls/Tree.h"
#include "platform/qt/TreeView.h"

namespace tavrin {

/// A tree of one root with two branches of two leaves, all open. Everything that handlers are told is written down.
class TreeRig {
 public:
  TreeRig();
  void Fill();
  [[nodiscard]] TreeNode& Node(const std::string& key) const { return *tree.Node(key); }

  Form form{"frmTest"};
  Tree tree{form, "tvwTest"};
  Button other{form, "cmdOther"};
  std::vector<std::string> events;
  bool refuseLabel = false;
};

/// All that a tree holds, for a comparison.
[[nodiscard]] std::string Snapshot(const Tree& tree);

/// A rig whose tree is bound to a widget, in an active window with a field that belongs to no control.
class TreeShown : public TreeRig {
 public:
  explicit TreeShown(bool focus = true);

  [[nodiscard]] QRect PlaceOf(const std::string& key) const;
  void Click(const std::string& key, Qt::MouseButton button = Qt::LeftButton);
  /// On the sign that opens and closes the node.
  void ClickSign(const std::string& key);
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
  void Type(const QString& text);

  QWidget window;
  TreeView view{tree, &window};
  QLineEdit neighbour{&window};

 private:
  QAbstractItemModelTester tester_{view.model(), QAbstractItemModelTester::FailureReportingMode::Fatal};
};

/// What the widget shows otherwise than its tree holds; empty when all is shown.
[[nodiscard]] std::string Differences(const TreeView& view, const Tree& tree);

/// One deed of a user in both languages.
struct TreeDeed {
  std::string name;
  std::function<void(TreeRig&)> gesture;
  std::function<void(TreeShown&)> real;
};

/// Does the deeds on a tree by gestures and on a bound one by real input. After each deed both must hold the same,
/// their handlers must have been told the same, and the widget must show it.
void ExpectSame(const std::vector<TreeDeed>& deeds, const std::function<void(TreeRig&)>& prepare = {});

}  // namespace tavrin
