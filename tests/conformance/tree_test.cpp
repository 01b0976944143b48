// A tree by gestures and by real keys and clicks.
#include <QApplication>
#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QScrollBar>
#include <QTest>

#include <gmock/gmock.h>

#include "conformance/TreeRig.h"
#include "platform/qt/ViewCommon.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TreeDeed Click(const std::string& key, MouseButton button = MouseButton::Left) {
  return {"press on " + key, [=](TreeRig& rig) { rig.tree.UserPress(button, &rig.Node(key)); },
          [=](TreeShown& shown) { shown.Click(key, button == MouseButton::Left ? Qt::LeftButton : Qt::RightButton); }};
}

TreeDeed To(Qt::Key toolkitKey, const std::string& key) {
  return {"key to " + key, [=](TreeRig& rig) { rig.tree.UserSelect(rig.Node(key)); },
          [=](TreeShown& shown) { shown.Press(toolkitKey); }};
}

TreeDeed Expand(const std::string& name, const std::string& key, bool expanded,
                const std::function<void(TreeShown&)>& real) {
  return {name, [=](TreeRig& rig) { rig.tree.UserExpand(rig.Node(key), expanded); }, real};
}

/// A press on the sign of a node, which is beside its name.
TreeDeed PressSign(const std::string& key, bool expanded) {
  return {"sign of " + key,
          [=](TreeRig& rig) {
            rig.tree.UserPress(MouseButton::Left, nullptr);
            rig.tree.UserExpand(rig.Node(key), expanded);
          },
          [=](TreeShown& shown) { shown.ClickSign(key); }};
}

/// A key that opens or closes the selected node.
TreeDeed ExpandBy(Qt::Key toolkitKey, const std::string& key, bool expanded) {
  return Expand("key on " + key, key, expanded, [=](TreeShown& shown) { shown.Press(toolkitKey); });
}

void SelectFirstNetwork(TreeRig& rig) { rig.tree.SelectedItem(rig.Node("#1#1")); }

void RenameFirstNetwork(TreeRig& rig) {
  SelectFirstNetwork(rig);
  rig.tree.StartLabelEdit();
}

TEST(TreeMouse, APressSelectsANodeAlsoTheSelectedOne) { ExpectSame({Click("#1#2"), Click("#1#2#1"), Click("#1#2#1")}); }

TEST(TreeMouse, ARightPressSelectsToo) { ExpectSame({Click("#1#2", MouseButton::Right), Click("#1")}); }

TEST(TreeMouse, TheMenuOfANodeOpensWithTheNodeMarked) {
  TreeShown shown;
  QString marked;
  shown.tree.OnNodeClick = [&](TreeNode&) {
    QFocusEvent toMenu(QEvent::FocusOut, Qt::PopupFocusReason);
    QApplication::sendEvent(&shown.view, &toMenu);
    marked = shown.view.currentIndex().data().toString();
  };
  shown.Click("#1#2", Qt::RightButton);
  EXPECT_EQ(marked, QStringLiteral("Network #1#2"));
}

TEST(TreeMouse, APressGivesTheKeyboardToTheTree) {
  TreeShown shown(false);
  shown.Click("#1#1");
  EXPECT_THAT(shown.events, ElementsAre("got focus", "press 1", "node #1#1"));
  EXPECT_EQ(Differences(shown.view, shown.tree), "");
}

TEST(TreeMouse, APressBesideAllNodesSelectsNothing) {
  ExpectSame({Click("#1#2"),
              {"press below", [](TreeRig& rig) { rig.tree.UserPress(MouseButton::Left, nullptr); },
               [](TreeShown& shown) {
                 const QPoint below(20, shown.view.viewport()->height() - 3);
                 QTest::mouseClick(shown.view.viewport(), Qt::LeftButton, {}, below);
               }}});
}

TEST(TreeMouse, TheSignOpensAndClosesANode) { ExpectSame({PressSign("#1#1", false), PressSign("#1#1", true)}); }

TEST(TreeMouse, APressOnTheSignIsToldAfterARightPressBesideAllNodes) {
  TreeShown shown;
  MouseButton last = MouseButton::Left;
  shown.tree.OnMouseDown = [&](MouseButton button) { last = button; };
  const QPoint below(20, shown.view.viewport()->height() - 3);
  QTest::mouseClick(shown.view.viewport(), Qt::RightButton, {}, below);
  ASSERT_EQ(last, MouseButton::Right);
  shown.ClickSign("#1#1");
  EXPECT_EQ(last, MouseButton::Left);
}

TEST(TreeMouse, APressOnTheSignGivesTheKeyboardToTheTreeAndTakesAnOpenName) {
  ExpectSame({{"typing", [](TreeRig& rig) { rig.tree.UserLabelText("x"); }, [](TreeShown& shown) { shown.Type("x"); }},
              PressSign("#1#2", false)},
             RenameFirstNetwork);
  TreeShown shown(false);
  shown.ClickSign("#1#1");
  EXPECT_THAT(shown.events, ElementsAre("got focus", "press 1"));
  EXPECT_FALSE(shown.Node("#1#1").Expanded());
}

TEST(TreeMouse, APressOnTheSignOpensNothingInATreeThatAHandlerHasFilledAnew) {
  TreeShown shown;
  shown.tree.OnMouseDown = [&](MouseButton) { shown.Fill(); };
  shown.ClickSign("#1#1");
  EXPECT_TRUE(shown.Node("#1#1").Expanded());
  EXPECT_EQ(Differences(shown.view, shown.tree), "");
  shown.tree.OnMouseDown = [&](MouseButton) { shown.tree.Clear(); };
  shown.ClickSign("#1#1");
  EXPECT_EQ(shown.tree.Count(), 0);
  EXPECT_EQ(Differences(shown.view, shown.tree), "");
}

TEST(TreeMouse, APressOnTheSignStillOpensItsNodeWhereAHandlerHasAddedNodes) {
  TreeShown shown;
  shown.tree.OnMouseDown = [&](MouseButton) { shown.tree.Add("#1#1", "#1#1#9", "late", "DEVICE", 6, true); };
  shown.ClickSign("#1#1");
  EXPECT_FALSE(shown.Node("#1#1").Expanded());
  EXPECT_TRUE(shown.Node("#1#2").Expanded());
  EXPECT_EQ(Differences(shown.view, shown.tree), "");
}

TEST(TreeMouse, ADoubleClickOpensAndClosesANode) {
  ExpectSame({{"double click",
               [](TreeRig& rig) {
                 rig.tree.UserPress(MouseButton::Left, &rig.Node("#1#2"));
                 rig.tree.UserExpand(rig.Node("#1#2"), false);
               },
               [](TreeShown& shown) {
                 shown.Click("#1#2");
                 QTest::mouseDClick(shown.view.viewport(), Qt::LeftButton, {}, shown.PlaceOf("#1#2").center());
               }}});
}

TEST(TreeMouse, AHandlerMayClearTheTree) {
  TreeShown shown;
  shown.tree.OnNodeClick = [&](const TreeNode&) { shown.Fill(); };
  shown.Click("#1#2#2");
  shown.Press(Qt::Key_Down);
  EXPECT_EQ(shown.tree.SelectedItem(), nullptr);
  EXPECT_EQ(Differences(shown.view, shown.tree), "");
}

TEST(TreeMouse, TheContextMenuKeyIsARightPressOnTheSelectedNode) {
  ExpectSame({{"context menu key", [](TreeRig& rig) { rig.tree.UserPress(MouseButton::Right, &rig.Node("#1#1")); },
               [](TreeShown& shown) {
                 QContextMenuEvent menu(QContextMenuEvent::Keyboard, {5, 5}, shown.view.mapToGlobal(QPoint(5, 5)));
                 QApplication::sendEvent(&shown.view, &menu);
               }}},
             SelectFirstNetwork);
}

TEST(TreeKeys, ArrowsReachNodesAndOpenAndCloseThem) {
  ExpectSame({To(Qt::Key_Down, "#1#1#1"), To(Qt::Key_Up, "#1#1"), ExpandBy(Qt::Key_Left, "#1#1", false),
              To(Qt::Key_Down, "#1#2"), To(Qt::Key_Up, "#1#1"), ExpandBy(Qt::Key_Right, "#1#1", true),
              To(Qt::Key_End, "#1#2#2"), To(Qt::Key_Left, "#1#2"), To(Qt::Key_Home, "#1")},
             SelectFirstNetwork);
}

TEST(TreeKeys, SignsOpenAndCloseANode) {
  ExpectSame({ExpandBy(Qt::Key_Minus, "#1#1", false), ExpandBy(Qt::Key_Plus, "#1#1", true)}, SelectFirstNetwork);
}

TEST(TreeKeys, TheFirstLettersOfANameReachIt) {
  ExpectSame({{"d", [](TreeRig& rig) { rig.tree.UserSelect(rig.Node("#1#1#1")); },
               [](TreeShown& shown) { shown.Press(Qt::Key_D); }}},
             SelectFirstNetwork);
}

TEST(TreeKeys, DeleteAndF2AreKeysOfTheTree) {
  ExpectSame(
      {{"Delete", [](TreeRig& rig) { rig.tree.UserKey(Key::Delete); },
        [](TreeShown& shown) { shown.Press(Qt::Key_Delete); }},
       {"F2", [](TreeRig& rig) { rig.tree.UserKey(Key::F2); }, [](TreeShown& shown) { shown.Press(Qt::Key_F2); }}},
      SelectFirstNetwork);
}

TEST(TreeKeys, TheKeyboardInTheTreeSelectsNothing) {
  TreeShown shown(false);
  shown.view.setFocus(Qt::TabFocusReason);
  EXPECT_THAT(shown.events, ElementsAre("got focus"));
  EXPECT_EQ(shown.tree.SelectedItem(), nullptr);
  EXPECT_EQ(Differences(shown.view, shown.tree), "");
}

TEST(TreeKeys, AnEmptyTreeTakesAllKeys) {
  TreeShown shown;
  shown.tree.Clear();
  for (const auto key : {Qt::Key_Down, Qt::Key_Home, Qt::Key_Left, Qt::Key_Asterisk, Qt::Key_Return}) shown.Press(key);
  EXPECT_EQ(Differences(shown.view, shown.tree), "");
  EXPECT_THAT(shown.events, IsEmpty());
}

TEST(TreeLabel, EnterTakesTheTypedName) {
  ExpectSame({{"typing",
               [](TreeRig& rig) {
                 rig.tree.UserLabelText(
                     "B\xFC"
                     "ro");
               },
               [](TreeShown& shown) { shown.Type(QStringLiteral("B") + QChar(0xFC) + QStringLiteral("ro")); }},
              {"Enter", [](TreeRig& rig) { rig.tree.UserKey(Key::Enter); },
               [](TreeShown& shown) { shown.Press(Qt::Key_Return); }}},
             RenameFirstNetwork);
}

TEST(TreeLabel, EscapeKeepsTheName) {
  ExpectSame({{"Delete", [](TreeRig& rig) { rig.tree.UserLabelText(""); },
               [](TreeShown& shown) { shown.Press(Qt::Key_Delete); }},
              {"Escape", [](TreeRig& rig) { rig.tree.UserKey(Key::Escape); },
               [](TreeShown& shown) { shown.Press(Qt::Key_Escape); }}},
             RenameFirstNetwork);
}

TEST(TreeLabel, ARefusedNameIsPutBack) {
  ExpectSame({{"typing", [](TreeRig& rig) { rig.tree.UserLabelText("x"); }, [](TreeShown& shown) { shown.Type("x"); }},
              {"Enter", [](TreeRig& rig) { rig.tree.UserKey(Key::Enter); },
               [](TreeShown& shown) { shown.Press(Qt::Key_Return); }}},
             [](TreeRig& rig) {
               RenameFirstNetwork(rig);
               rig.refuseLabel = true;
             });
}

TEST(TreeLabel, TheLabelOpensWithItsWholeNameSelectedAndTheKeyboardComesBackToTheTree) {
  TreeShown shown;
  RenameFirstNetwork(shown);
  ASSERT_NE(shown.view.EditorLine(), nullptr);
  EXPECT_EQ(shown.view.EditorLine()->selectedText(), QStringLiteral("Network #1#1"));
  EXPECT_TRUE(shown.view.EditorLine()->hasFocus());
  shown.Press(Qt::Key_Return);
  EXPECT_TRUE(shown.view.hasFocus());
  EXPECT_THAT(shown.events, ElementsAre("label Network #1#1"));
}

TEST(TreeLabel, ANameThatIsCutOffScrollsIntoSightForTheTimeOfItsEdit) {
  TreeShown shown;
  shown.window.resize(90, 400);
  SelectFirstNetwork(shown);
  const int left = shown.view.horizontalScrollBar()->value();
  shown.tree.StartLabelEdit();
  EXPECT_GT(shown.view.horizontalScrollBar()->value(), left);
  EXPECT_EQ(shown.PlaceOf("#1#1").left(), 0);
  shown.Press(Qt::Key_Escape);
  EXPECT_EQ(shown.view.horizontalScrollBar()->value(), left);
}

TEST(TreeLabel, TabAndTheKeyboardElsewhereTakeTheName) {
  TreeShown shown;
  RenameFirstNetwork(shown);
  shown.Type("one");
  shown.Press(Qt::Key_Tab);
  EXPECT_EQ(shown.Node("#1#1").Text(), "one");
  EXPECT_TRUE(shown.view.hasFocus());
  shown.tree.StartLabelEdit();
  shown.Type("two");
  shown.neighbour.setFocus(Qt::MouseFocusReason);
  EXPECT_EQ(shown.Node("#1#1").Text(), "two");
  EXPECT_EQ(Differences(shown.view, shown.tree), "");
}

TEST(TreeLabel, APressOnAnotherNodeTakesTheName) {
  ExpectSame({{"typing", [](TreeRig& rig) { rig.tree.UserLabelText("x"); }, [](TreeShown& shown) { shown.Type("x"); }},
              Click("#1#2")},
             RenameFirstNetwork);
}

TEST(TreeLabel, ABoxOrMenuLeavesTheLabelOpen) {
  TreeShown shown;
  RenameFirstNetwork(shown);
  for (const auto reason : {Qt::PopupFocusReason, Qt::ActiveWindowFocusReason, Qt::MenuBarFocusReason}) {
    QFocusEvent out(QEvent::FocusOut, reason);
    QApplication::sendEvent(shown.view.EditorLine(), &out);
    EXPECT_TRUE(shown.tree.LabelEdit().has_value());
  }
}

TEST(TreeLabel, ACharacterThatTheCodePageLacksNeverComesIn) {
  TreeShown shown;
  RenameFirstNetwork(shown);
  shown.Press(Qt::Key_End);
  shown.Type(QString(QChar(0x0416)) + QStringLiteral("!"));
  EXPECT_EQ(shown.tree.LabelEdit(), "Network #1#1!");
  EXPECT_EQ(Differences(shown.view, shown.tree), "");
}

TEST(TreeModel, NodesComeAndGoWithTheProgram) {
  TreeShown shown;
  SelectFirstNetwork(shown);
  shown.Fill();
  EXPECT_EQ(Differences(shown.view, shown.tree), "");
  shown.tree.Add("#1#2", "#1#2#9", "late", "DEVICE", 6, false);
  shown.tree.Add("#1#2#9", "#1#2#9#1", "later", "DEVICE", 6, true);
  EXPECT_EQ(Differences(shown.view, shown.tree), "");
  shown.tree.Clear();
  EXPECT_EQ(shown.view.model()->rowCount(), 0);
  EXPECT_EQ(Differences(shown.view, shown.tree), "");
}

TEST(TreeModel, AViewTakesWhatIsThere) {
  TreeRig rig;
  RenameFirstNetwork(rig);
  rig.tree.UserExpand(rig.Node("#1#2"), false);
  QWidget window;
  const TreeView view(rig.tree, &window);
  window.show();
  EXPECT_EQ(Differences(view, rig.tree), "");
}

TEST(TreeModel, ATreeLivesOnWithoutItsView) {
  TreeRig rig;
  { const TreeView view(rig.tree); }
  rig.Fill();
  EXPECT_EQ(rig.tree.Count(), 7);
}

TEST(TreeLook, IndentationIsTwipsAndTheFontIsThatOfTheTree) {
  TreeShown shown;
  shown.tree.Indentation(300);
  EXPECT_EQ(shown.view.indentation(), ToPixels(shown.view, 300));
  shown.tree.FontSize(12);
  EXPECT_DOUBLE_EQ(shown.view.font().pointSizeF(), 12);
}

TEST(TreeLook, TheSelectedNodeIsBroughtIntoSight) {
  TreeShown shown;
  for (int i = 0; i < 200; ++i) shown.tree.Add("#1", "n" + std::to_string(i), "node", "NET", 1, true);
  shown.tree.SelectedItem(shown.Node("n150"));
  EXPECT_TRUE(shown.view.viewport()->rect().contains(shown.PlaceOf("n150").center()));
}

TEST(TreeState, EnabledVisibleAndNameFollowTheControl) {
  TreeShown shown;
  shown.tree.SpokenName("Projekt");
  shown.tree.Enabled(false);
  shown.tree.Visible(false);
  EXPECT_EQ(Differences(shown.view, shown.tree), "");
}

}  // namespace
}  // namespace tavrin
