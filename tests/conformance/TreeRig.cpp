#include "conformance/TreeRig.h"

#include <QApplication>
#include <QTest>
#include <QVBoxLayout>
#include <sstream>

#include <gtest/gtest.h>

#include "platform/qt/Text.h"

namespace tavrin {

TreeRig::TreeRig() {
  Fill();
  tree.OnGotFocus = [this] { events.emplace_back("got focus"); };
  tree.OnLostFocus = [this] { events.emplace_back("lost focus"); };
  tree.OnNodeClick = [this](const TreeNode& node) { events.push_back("node " + node.Key()); };
  tree.OnMouseDown = [this](MouseButton button) {
    events.push_back("press " + std::to_string(static_cast<int>(button)));
  };
  tree.OnKeyDown = [this](Key key) { events.push_back("key down " + std::to_string(static_cast<int>(key))); };
  tree.OnAfterLabelEdit = [this](bool& cancel, const std::string& text) {
    events.push_back("label " + text);
    cancel = refuseLabel;
  };
}

void TreeRig::Fill() {
  tree.Clear();
  tree.Add("", "#1", "Project", "ROOT", 0, true);
  for (const std::string net : {"#1#1", "#1#2"}) {
    tree.Add("#1", net, "Network " + net, "NET", 1, true);
    for (const std::string device : {"#1", "#2"}) {
      tree.Add(net, net + device, "Device " + net + device, "DEVICE", 6, true);
    }
  }
}

std::string Snapshot(const Tree& tree) {
  std::ostringstream out;
  for (int position = 1; position <= tree.Count(); ++position) {
    const TreeNode& node = *tree.Node(position);
    out << node.Key() << " '" << node.Text() << "' open " << node.Expanded() << '\n';
  }
  out << "selected " << (tree.SelectedItem() == nullptr ? "none" : tree.SelectedItem()->Key());
  out << " focus " << tree.Focused() << '\n';
  if (tree.LabelEdit()) out << "label '" << *tree.LabelEdit() << "'\n";
  return out.str();
}

std::string Differences(const TreeView& view, const Tree& tree) {
  std::ostringstream out;
  for (int position = 1; position <= tree.Count(); ++position) {
    const TreeNode& node = *tree.Node(position);
    const QModelIndex index = view.Model().IndexOf(&node);
    if (index.data().toString() != ToQt(node.Text())) out << "text of " << node.Key() << '\n';
    if (!node.Children().empty() && view.isExpanded(index) != node.Expanded()) out << "sign of " << node.Key() << '\n';
    if (view.model()->rowCount(index) != static_cast<int>(node.Children().size())) out << "children\n";
  }
  if (TreeModel::NodeOf(view.currentIndex()) != tree.SelectedItem()) out << "current node\n";
  const QModelIndexList selected = view.selectionModel()->selectedIndexes();
  if (selected.size() != (tree.SelectedItem() == nullptr ? 0 : 1)) out << "selection\n";
  if (!selected.isEmpty() && TreeModel::NodeOf(selected[0]) != tree.SelectedItem()) out << "selected node\n";
  if ((view.EditorLine() != nullptr) != tree.LabelEdit().has_value()) out << "open label\n";
  if (view.EditorLine() != nullptr && tree.LabelEdit() && view.EditorLine()->text() != ToQt(*tree.LabelEdit())) {
    out << "text of the label's editor\n";
  }
  if (view.isVisible() != tree.Visible() || view.isEnabled() != tree.Enabled()) out << "state\n";
  if (view.accessibleName() != ToQt(tree.SpokenName())) out << "spoken name\n";
  return out.str();
}

TreeShown::TreeShown(bool focus) {
  auto* const layout = new QVBoxLayout(&window);
  layout->addWidget(&view);
  layout->addWidget(&neighbour);
  window.resize(400, 400);
  window.show();
  window.activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  (focus ? static_cast<QWidget&>(view) : neighbour).setFocus();
  if (!focus) other.UserFocus();
  events.clear();
}

QRect TreeShown::PlaceOf(const std::string& key) const { return view.visualRect(view.Model().IndexOf(&Node(key))); }

void TreeShown::Click(const std::string& key, Qt::MouseButton button) {
  QTest::mouseClick(view.viewport(), button, {}, PlaceOf(key).center());
}

void TreeShown::ClickSign(const std::string& key) {
  const QRect place = PlaceOf(key);
  QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, {place.left() - view.indentation() / 2, place.center().y()});
}

void TreeShown::Press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
  QTest::keyClick(QApplication::focusWidget(), key, modifiers);
}

void TreeShown::Type(const QString& text) {
  for (const QChar character : text) {
    QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(character));
    QApplication::sendEvent(QApplication::focusWidget(), &press);
  }
}

void ExpectSame(const std::vector<TreeDeed>& deeds, const std::function<void(TreeRig&)>& prepare) {
  TreeRig plain;
  TreeShown shown;
  plain.tree.UserFocus();
  plain.events.clear();
  if (prepare) prepare(plain);
  if (prepare) prepare(shown);
  ASSERT_EQ(Differences(shown.view, shown.tree), "") << "before all deeds";
  for (const TreeDeed& deed : deeds) {
    const std::string before = Snapshot(plain.tree);
    const std::size_t told = plain.events.size();
    deed.gesture(plain);
    deed.real(shown);
    EXPECT_TRUE(Snapshot(plain.tree) != before || plain.events.size() != told) << deed.name << " does nothing";
    ASSERT_EQ(Snapshot(shown.tree), Snapshot(plain.tree)) << "after " << deed.name;
    ASSERT_EQ(shown.events, plain.events) << "after " << deed.name;
    ASSERT_EQ(Differences(shown.view, shown.tree), "") << "after " << deed.name;
  }
}

}  // namespace tavrin
