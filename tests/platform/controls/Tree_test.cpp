#include "platform/controls/Tree.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/RuntimeError.h"
#include "platform/controls/Form.h"
#include "platform/controls/Grid.h"
#include "platform/controls/Label.h"
#include "platform/controls/RecordingListeners.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

ErrorNumber NumberOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const RuntimeError& error) {
    return error.Number();
  }
  return ErrorNumber{};
}

/// A root with two nodes below it, none of them selected.
class TreeTest : public testing::Test {
 protected:
  TreeTest() {
    Fill();
    tree.OnNodeClick = [this](TreeNode& node) { events.push_back("click " + node.Key()); };
    tree.OnMouseDown = [this](MouseButton button) {
      events.push_back("mouse " + std::to_string(static_cast<int>(button)));
    };
    tree.OnKeyDown = [this](Key key) { events.push_back("key " + std::to_string(static_cast<int>(key))); };
    tree.OnAfterLabelEdit = [this](bool& cancel, const std::string& newString) {
      events.push_back("label " + newString);
      cancel = refuse;
    };
    tree.OnGotFocus = [this] { events.emplace_back("focus"); };
    tree.Listen(&record);
  }
  void Fill() {
    tree.Add("", "#1", "Root", "ROOT", 0, true);
    tree.Add("#1", "#1#1", "One", "NET", 1, true);
    tree.Add("#1", "#1#2", "Two", "NET", 2, false);
  }
  TreeNode& Node(std::string_view key) { return *tree.Node(key); }
  void OpenLabel() {
    tree.SelectedItem(Node("#1#1"));
    tree.StartLabelEdit();
    events.clear();
    record.told.clear();
  }
  [[nodiscard]] std::string Label() const { return tree.LabelEdit().value_or("(none)"); }

  Form form{"frmTest"};
  Tree tree{form, "tree"};
  Grid grid{form, "grid"};
  TreeRecord record;
  bool refuse = false;
  std::vector<std::string> events;
};

TEST_F(TreeTest, ANodeIsWhatItWasAddedAs) {
  const TreeNode& node = Node("#1#2");
  EXPECT_EQ(node.Key(), "#1#2");
  EXPECT_EQ(node.Text(), "Two");
  EXPECT_EQ(node.Image(), "NET");
  EXPECT_EQ(node.Tag(), 2);
  EXPECT_FALSE(node.Expanded());
  EXPECT_TRUE(Node("#1").Expanded());
  EXPECT_EQ(node.Parent(), &Node("#1"));
  EXPECT_EQ(node.Position(), 1);
  EXPECT_EQ(Node("#1").Parent(), nullptr);
  EXPECT_EQ(Node("#1").Children().size(), 2U);
  EXPECT_EQ(Node("#1").Children()[1].get(), &node);
  EXPECT_EQ(tree.Roots().size(), 1U);
}

TEST_F(TreeTest, NodesAreCountedFromOneInTheOrderInWhichTheyCame) {
  tree.Add("#1#1", "#1#1#1", "Below", "DEVICE", 6, true);
  EXPECT_EQ(tree.Count(), 4);
  EXPECT_EQ(tree.Node(1), &Node("#1"));
  EXPECT_EQ(tree.Node(3), &Node("#1#2"));
  EXPECT_EQ(tree.Node(4), &Node("#1#1#1"));
  EXPECT_EQ(tree.Node(0), nullptr);
  EXPECT_EQ(tree.Node(5), nullptr);
  EXPECT_EQ(tree.Node(-1), nullptr);
  EXPECT_EQ(tree.Node("#9"), nullptr);
}

TEST_F(TreeTest, AnUnknownParentAndAKeyInUseAreErrors) {
  EXPECT_EQ(NumberOf([&] { tree.Add("#9", "#9#1", "x", "", 0, true); }), ErrorNumber::InvalidCall);
  EXPECT_EQ(NumberOf([&] { tree.Add("#1", "#1#2", "x", "", 0, true); }), ErrorNumber::KeyInUse);
  EXPECT_EQ(NumberOf([&] { tree.Add("", "#1", "x", "", 0, true); }), ErrorNumber::KeyInUse);
  EXPECT_EQ(tree.Count(), 3);
  EXPECT_THAT(record.told, IsEmpty());
}

TEST_F(TreeTest, AddingAndClearingAreToldInPairs) {
  tree.Add("#1", "#1#3", "Three", "", 0, true);
  tree.Add("", "#2", "Second", "", 0, true);
  tree.Clear();
  tree.Clear();
  EXPECT_THAT(record.told,
              ElementsAre("about to add #1 2", "added", "about to add root 1", "added", "about to clear", "cleared"));
}

TEST_F(TreeTest, ClearRemovesAllNodesAndTheSelection) {
  tree.SelectedItem(Node("#1"));
  tree.Clear();
  EXPECT_EQ(tree.Count(), 0);
  EXPECT_EQ(tree.SelectedItem(), nullptr);
  EXPECT_EQ(tree.Node("#1"), nullptr);
  EXPECT_THAT(tree.Roots(), IsEmpty());
  EXPECT_THAT(events, IsEmpty());
  Fill();
  EXPECT_EQ(tree.Count(), 3);
}

TEST_F(TreeTest, ClearGivesAnOpenLabelUp) {
  OpenLabel();
  tree.Clear();
  EXPECT_EQ(Label(), "(none)");
  EXPECT_THAT(events, IsEmpty());
  EXPECT_THAT(record.told, ElementsAre("label", "about to clear", "cleared"));
}

TEST_F(TreeTest, TheProgramSelectsWithoutTheRule) {
  EXPECT_EQ(tree.SelectedItem(), nullptr);
  tree.SelectedItem(Node("#1#1"));
  tree.SelectedItem(Node("#1#1"));
  EXPECT_EQ(tree.SelectedItem(), &Node("#1#1"));
  EXPECT_THAT(record.told, ElementsAre("selection"));
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(TreeTest, IndentationAndFontComeAsPropertiesOfAControl) {
  int changes = 0;
  const auto counting = tree.Changed.Connect([&] { ++changes; });
  for (int i = 0; i < 2; ++i) {
    tree.Indentation(450);
    tree.FontSize(12);
    EXPECT_EQ(changes, 2);
  }
  EXPECT_EQ(tree.Indentation(), 450);
  EXPECT_EQ(tree.FontSize(), 12);
}

TEST_F(TreeTest, APressGivesTheKeyboardRunsTheMouseRuleAndThenClicksTheNode) {
  tree.UserPress(MouseButton::Right, &Node("#1#2"));
  EXPECT_THAT(events, ElementsAre("focus", "mouse 2", "click #1#2"));
  EXPECT_EQ(tree.SelectedItem(), &Node("#1#2"));
  EXPECT_TRUE(tree.Focused());
}

TEST_F(TreeTest, APressOnTheSelectedNodeClicksItAgain) {
  tree.SelectedItem(Node("#1"));
  record.told.clear();
  tree.UserPress(MouseButton::Left, &Node("#1"));
  tree.UserPress(MouseButton::Left, &Node("#1"));
  EXPECT_THAT(events, ElementsAre("focus", "mouse 1", "click #1", "mouse 1", "click #1"));
  EXPECT_THAT(record.told, IsEmpty());
}

TEST_F(TreeTest, APressBesideAllNodesRunsTheMouseRuleOnly) {
  tree.UserPress(MouseButton::Left, nullptr);
  EXPECT_THAT(events, ElementsAre("focus", "mouse 1"));
  EXPECT_EQ(tree.SelectedItem(), nullptr);
}

TEST_F(TreeTest, ThePressedNodeIsSelectedOnlyAfterTheMouseRule) {
  tree.SelectedItem(Node("#1"));
  tree.OnMouseDown = [&](MouseButton) { events.push_back("selected " + tree.SelectedItem()->Key()); };
  tree.UserPress(MouseButton::Left, &Node("#1#1"));
  EXPECT_THAT(events, ElementsAre("focus", "selected #1", "click #1#1"));
}

TEST_F(TreeTest, APressEndsOpenEditsBeforeTheMouseRule) {
  OpenLabel();
  tree.UserLabelText("New");
  tree.UserPress(MouseButton::Left, &Node("#1#2"));
  EXPECT_THAT(events, ElementsAre("label New", "mouse 1", "click #1#2"));
  EXPECT_EQ(Node("#1#1").Text(), "New");
}

TEST_F(TreeTest, APressEndsTheEditOfAGrid) {
  grid.Shape(2, 1, 1, 0);
  grid.Editable(true);
  grid.UserType("x");
  tree.UserPress(MouseButton::Left, &Node("#1"));
  EXPECT_EQ(grid.OpenEdit(), nullptr);
  EXPECT_EQ(grid.Text({1, 0}), "x");
}

TEST_F(TreeTest, ANodeThatARuleHasClearedAwayIsNotClicked) {
  tree.OnMouseDown = [&](MouseButton) {
    tree.Clear();
    Fill();
  };
  tree.UserPress(MouseButton::Left, &Node("#1#1"));
  EXPECT_EQ(tree.SelectedItem(), nullptr);
  EXPECT_THAT(events, ElementsAre("focus"));
  OpenLabel();
  tree.OnAfterLabelEdit = [&](bool&, const std::string&) { tree.Clear(); };
  tree.UserSelect(Node("#1#2"));
  EXPECT_EQ(tree.Count(), 0);
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(TreeTest, TheClickRuleMayClearTheTree) {
  tree.OnNodeClick = [&](TreeNode&) { tree.Clear(); };
  tree.UserPress(MouseButton::Left, &Node("#1#1"));
  EXPECT_EQ(tree.Count(), 0);
  Fill();
  tree.UserSelect(Node("#1#1"));
  EXPECT_EQ(tree.Count(), 0);
}

TEST_F(TreeTest, KeysReachAnotherNodeAndClickIt) {
  tree.UserSelect(Node("#1#1"));
  EXPECT_THAT(events, ElementsAre("focus", "click #1#1"));
  EXPECT_EQ(tree.SelectedItem(), &Node("#1#1"));
  EXPECT_THAT(record.told, IsEmpty());
  events.clear();
  tree.UserSelect(Node("#1#1"));
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(TreeTest, KeysEndAnOpenEditFirst) {
  OpenLabel();
  tree.UserSelect(Node("#1#2"));
  EXPECT_THAT(events, ElementsAre("label One", "click #1#2"));
}

TEST_F(TreeTest, TheUserExpandsAndCollapses) {
  tree.UserExpand(Node("#1"), false);
  EXPECT_FALSE(Node("#1").Expanded());
  tree.UserExpand(Node("#1"), true);
  EXPECT_TRUE(Node("#1").Expanded());
  EXPECT_THAT(record.told, IsEmpty());
}

TEST_F(TreeTest, F2AndDeleteRunTheKeyRuleAndOtherKeysMeanNothing) {
  EXPECT_TRUE(tree.UserKey(Key::F2));
  EXPECT_TRUE(tree.UserKey(Key::Delete));
  for (const Key key : {Key::Enter, Key::Escape, Key::Tab, Key::Back}) EXPECT_FALSE(tree.UserKey(key));
  EXPECT_THAT(events, ElementsAre("key 113", "key 46"));
}

TEST_F(TreeTest, TheLabelOfTheSelectedNodeOpensWithItsText) {
  tree.SelectedItem(Node("#1#1"));
  record.told.clear();
  tree.StartLabelEdit();
  EXPECT_EQ(Label(), "One");
  EXPECT_TRUE(tree.Focused());
  EXPECT_THAT(record.told, ElementsAre("label"));
}

TEST_F(TreeTest, NoLabelOpensWithoutASelectedNodeOrInAHiddenOrDisabledTree) {
  tree.StartLabelEdit();
  EXPECT_EQ(Label(), "(none)");
  tree.SelectedItem(Node("#1#1"));
  tree.Visible(false);
  tree.StartLabelEdit();
  EXPECT_EQ(Label(), "(none)");
  tree.Visible(true);
  tree.Enabled(false);
  tree.StartLabelEdit();
  EXPECT_EQ(Label(), "(none)");
}

TEST_F(TreeTest, AnOpenLabelIsNotOpenedAgain) {
  OpenLabel();
  tree.UserLabelText("half");
  tree.StartLabelEdit();
  EXPECT_EQ(Label(), "half");
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(TreeTest, OpeningALabelEndsAnEditElsewhere) {
  tree.SelectedItem(Node("#1#1"));
  grid.Shape(2, 1, 1, 0);
  grid.Editable(true);
  grid.UserType("x");
  tree.StartLabelEdit();
  EXPECT_EQ(grid.Text({1, 0}), "x");
  EXPECT_EQ(Label(), "One");
}

TEST_F(TreeTest, TheEndOfALabelEditRunsTheRuleAndThenSetsTheText) {
  OpenLabel();
  tree.UserLabelText("New");
  tree.OnAfterLabelEdit = [&](bool& cancel, const std::string& newString) {
    EXPECT_FALSE(cancel);
    EXPECT_EQ(Label(), "(none)");
    EXPECT_EQ(Node("#1#1").Text(), "One");
    events.push_back(newString);
  };
  tree.UserEndLabelEdit();
  EXPECT_EQ(Node("#1#1").Text(), "New");
  EXPECT_THAT(events, ElementsAre("New"));
  EXPECT_THAT(record.told, ElementsAre("label", "node New"));
}

TEST_F(TreeTest, TheRuleRunsForAnUnchangedLabelToo) {
  OpenLabel();
  tree.EndPendingEdit();
  EXPECT_THAT(events, ElementsAre("label One"));
  EXPECT_THAT(record.told, ElementsAre("label"));
}

TEST_F(TreeTest, TheRuleMayKeepTheOldLabel) {
  OpenLabel();
  refuse = true;
  tree.UserLabelText("New");
  tree.UserEndLabelEdit();
  EXPECT_EQ(Node("#1#1").Text(), "One");
  EXPECT_THAT(record.told, ElementsAre("label"));
}

TEST_F(TreeTest, TheRuleMayClearTheTree) {
  OpenLabel();
  tree.OnAfterLabelEdit = [&](bool&, const std::string&) {
    tree.Clear();
    Fill();
  };
  tree.UserLabelText("New");
  tree.UserEndLabelEdit();
  EXPECT_EQ(Node("#1#1").Text(), "One");
}

TEST_F(TreeTest, TheRuleRunsOnceEvenWhenItEndsAllEdits) {
  OpenLabel();
  int runs = 0;
  tree.OnAfterLabelEdit = [&](bool&, const std::string&) {
    ++runs;
    form.EndPendingEdits();
  };
  form.EndPendingEdits();
  EXPECT_EQ(runs, 1);
}

TEST_F(TreeTest, TheEditedNodeGetsTheTextThoughTheRuleSelectsAnother) {
  OpenLabel();
  tree.OnAfterLabelEdit = [&](bool&, const std::string&) { tree.SelectedItem(Node("#1#2")); };
  tree.UserLabelText("New");
  tree.UserEndLabelEdit();
  EXPECT_EQ(Node("#1#1").Text(), "New");
  EXPECT_EQ(Node("#1#2").Text(), "Two");
}

TEST_F(TreeTest, EnterEndsALabelEditAndEscapeGivesItUp) {
  OpenLabel();
  tree.UserLabelText("New");
  EXPECT_TRUE(tree.UserKey(Key::Enter));
  EXPECT_EQ(Node("#1#1").Text(), "New");
  EXPECT_THAT(events, ElementsAre("label New"));
  OpenLabel();
  tree.UserLabelText("Newer");
  EXPECT_TRUE(tree.UserKey(Key::Escape));
  EXPECT_EQ(Label(), "(none)");
  EXPECT_EQ(Node("#1#1").Text(), "New");
  EXPECT_THAT(events, IsEmpty());
  EXPECT_THAT(record.told, ElementsAre("label"));
}

TEST_F(TreeTest, OtherKeysInALabelEditBelongToItsEditor) {
  OpenLabel();
  for (const Key key : {Key::Delete, Key::F2, Key::Tab, Key::Back}) EXPECT_FALSE(tree.UserKey(key));
  EXPECT_EQ(Label(), "One");
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(TreeTest, ControlCharactersNeverComeIntoALabel) {
  OpenLabel();
  tree.UserLabelText("A\tB\r\nC\x7F \xE4");
  EXPECT_EQ(Label(), "ABC \xE4");
}

TEST_F(TreeTest, WithoutAnOpenLabelItsGesturesDoNothing) {
  tree.SelectedItem(Node("#1#1"));
  record.told.clear();
  tree.UserLabelText("x");
  tree.UserEndLabelEdit();
  tree.UserCancelLabelEdit();
  EXPECT_EQ(Label(), "(none)");
  EXPECT_EQ(Node("#1#1").Text(), "One");
  EXPECT_THAT(events, IsEmpty());
  EXPECT_THAT(record.told, IsEmpty());
}

TEST_F(TreeTest, SelectingAnotherNodeByProgramGivesTheLabelEditUp) {
  OpenLabel();
  tree.UserLabelText("New");
  tree.SelectedItem(Node("#1#2"));
  EXPECT_EQ(Label(), "(none)");
  EXPECT_EQ(Node("#1#1").Text(), "One");
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(TreeTest, ALabelThatAMouseRuleOpensIsGivenUpByTheClickOnAnotherNode) {
  tree.SelectedItem(Node("#1#1"));
  tree.OnMouseDown = [&](MouseButton) { tree.StartLabelEdit(); };
  tree.UserPress(MouseButton::Left, &Node("#1#2"));
  EXPECT_EQ(Label(), "(none)");
}

TEST_F(TreeTest, AViewThatLeftIsToldNothing) {
  tree.Listen(nullptr);
  tree.Clear();
  EXPECT_THAT(record.told, IsEmpty());
}

}  // namespace
}  // namespace tavrin
