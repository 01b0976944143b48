// The keys of the window's commands while a cell or a name is being edited: the field leaves them to the window, also
// those that it knows as keys of its own editing on some systems.
#include <QApplication>
#include <QKeyEvent>
#include <QShortcut>
#include <QTest>
#include <array>
#include <memory>

#include <gmock/gmock.h>

#include "conformance/GridShown.h"
#include "conformance/TreeRig.h"
#include "platform/controls/MenuEntry.h"
#include "platform/qt/FormView.h"

namespace tavrin {
namespace {

using testing::ElementsAre;

constexpr std::array kCommands{"Ctrl+O", "Ctrl+S", "Ctrl+N", "Ctrl+M", "Ctrl+D", "Ctrl+F", "Ctrl+U"};

QKeyCombination Keys(const char* name) { return QKeySequence(QString::fromLatin1(name))[0]; }

/// @return true when the widget with the keyboard wants the key for itself
bool IsClaimed(const char* name) {
  const QKeyCombination keys = Keys(name);
  const bool letter = keys.keyboardModifiers() == Qt::NoModifier && keys.key() < Qt::Key_Escape;
  QKeyEvent key(QEvent::ShortcutOverride, keys.key(), keys.keyboardModifiers(),
                letter ? QString(QChar(keys.key())).toLower() : QString());
  key.ignore();
  QApplication::sendEvent(QApplication::focusWidget(), &key);
  return key.isAccepted();
}

void Press(const char* name) {
  QTest::keyClick(QApplication::focusWidget(), Keys(name).key(), Keys(name).keyboardModifiers());
}

class ShortcutOfTheWindow : public testing::TestWithParam<const char*> {
 protected:
  /// Makes the key a command of the window.
  void Claim(QWidget& window) {
    auto* const shortcut = new QShortcut(QKeySequence(QString::fromLatin1(GetParam())), &window);
    QObject::connect(shortcut, &QShortcut::activated, &window, [this] { ++commands; });
  }

  int commands = 0;
};

TEST_P(ShortcutOfTheWindow, IsNotTheCellEditors) {
  GridShown shown;
  Claim(shown.window);
  shown.Press(Qt::Key_F2);
  shown.Type("new");
  EXPECT_FALSE(IsClaimed(GetParam()));
  Press(GetParam());
  EXPECT_EQ(commands, 1);
  ASSERT_NE(shown.grid.OpenEdit(), nullptr);
  EXPECT_EQ(shown.grid.OpenEdit()->text, "new");
  EXPECT_EQ(Differences(shown.view, shown.grid), "");
}

TEST_P(ShortcutOfTheWindow, IsNotTheLists) {
  GridShown shown;
  Claim(shown.window);
  shown.choices = "RO|RW";
  shown.Press(Qt::Key_F2);
  shown.Type("r");
  EXPECT_FALSE(IsClaimed(GetParam()));
  Press(GetParam());
  EXPECT_EQ(commands, 1);
  ASSERT_NE(shown.grid.OpenEdit(), nullptr);
  EXPECT_EQ(shown.grid.OpenEdit()->text, "r");
}

TEST_P(ShortcutOfTheWindow, IsNotTheLabelEditors) {
  TreeShown shown;
  Claim(shown.window);
  shown.tree.SelectedItem(shown.Node("#1#1"));
  shown.tree.StartLabelEdit();
  shown.Type("new");
  EXPECT_FALSE(IsClaimed(GetParam()));
  Press(GetParam());
  EXPECT_EQ(commands, 1);
  EXPECT_EQ(shown.tree.LabelEdit(), "new");
  EXPECT_EQ(Differences(shown.view, shown.tree), "");
}

INSTANTIATE_TEST_SUITE_P(Commands, ShortcutOfTheWindow, testing::ValuesIn(kCommands));
// Keys that the field takes on every system, so that it is seen everywhere that they are taken from it.
INSTANTIATE_TEST_SUITE_P(KeysOfTheField, ShortcutOfTheWindow, testing::Values("Ctrl+Z", "Ctrl+A", "Shift+Home"));

class KeyOfTheField : public testing::TestWithParam<const char*> {};

TEST_P(KeyOfTheField, StaysTheFieldsBesideTheCommandsOfTheWindow) {
  GridShown shown;
  TreeShown tree(false);
  for (const char* command : kCommands) {
    new QShortcut(QKeySequence(QString::fromLatin1(command)), &shown.window);
    new QShortcut(QKeySequence(QString::fromLatin1(command)), &tree.window);
  }
  tree.tree.SelectedItem(tree.Node("#1#1"));
  tree.tree.StartLabelEdit();
  ASSERT_EQ(QApplication::focusWidget(), tree.view.EditorLine());
  EXPECT_TRUE(IsClaimed(GetParam())) << "a name";
  shown.window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&shown.window));
  shown.Press(Qt::Key_F2);
  ASSERT_EQ(QApplication::focusWidget(), shown.view.EditorLine());
  EXPECT_TRUE(IsClaimed(GetParam())) << "a cell";
}

INSTANTIATE_TEST_SUITE_P(Editing, KeyOfTheField,
                         testing::Values("Ctrl+A", "Ctrl+C", "Ctrl+V", "Ctrl+X", "Ctrl+Z", "Backspace", "Delete",
                                         "Home", "End", "Ctrl+Left", "Shift+Left", "U", "Shift+U"));

TEST(ShortcutOfASwitchedOffCommand, IsTheFieldsAgain) {
  GridShown shown;
  auto* const shortcut = new QShortcut(QKeySequence(QStringLiteral("Ctrl+Z")), &shown.window);
  shortcut->setEnabled(false);
  shown.Press(Qt::Key_F2);
  EXPECT_TRUE(IsClaimed("Ctrl+Z"));
}

TEST(ShortcutInTheWindow, TakesTheOpenCellAndThenRunsItsCommand) {
  std::vector<std::string> events;
  Form form("frmTest");
  Grid grid(form, "vsgTest");
  grid.Shape(2, 1, 1, 0);
  grid.Editable(true);
  grid.ColWidth(0, 1500);
  grid.Place({0, 0, 3000, 3000});
  MenuEntry menu(form, "mnuMain");
  std::vector<std::unique_ptr<MenuEntry>> entries;
  for (const char* command : kCommands) {
    MenuEntry& entry = *entries.emplace_back(std::make_unique<MenuEntry>(form, "mnuTest"));
    entry.Shortcut(command);
    entry.OnClick = [&grid, &events, command] { events.push_back(std::string(command) + " " + grid.Text({1, 0})); };
    menu.Add(entry);
  }
  form.MenuBar({&menu});
  form.Place({0, 0, 6000, 4000});
  form.Show();
  QtWords words([] { return std::string("en"); });
  FormView view(form, words);
  ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
  for (const char* command : kCommands) {
    grid.Text({1, 0}, "");
    grid.Select({1, 0});
    view.Views().WidgetOf(grid)->setFocus();
    grid.EditCell();
    ASSERT_NE(grid.OpenEdit(), nullptr);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("new"));
    Press(command);
    EXPECT_EQ(grid.OpenEdit(), nullptr);
  }
  EXPECT_THAT(events, ElementsAre("Ctrl+O new", "Ctrl+S new", "Ctrl+N new", "Ctrl+M new", "Ctrl+D new", "Ctrl+F new",
                                  "Ctrl+U new"));
}

}  // namespace
}  // namespace tavrin
