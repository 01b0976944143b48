// Fields and radio buttons of a dialog by their gestures and by keys and clicks: both must leave the same.
#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QLabel>
#include <QTest>
#include <QTimer>
#include <functional>
#include <sstream>

#include <gmock/gmock.h>

#include "platform/controls/Button.h"
#include "platform/controls/Grid.h"
#include "platform/controls/Label.h"
#include "platform/controls/TextBox.h"
#include "platform/qt/DialogView.h"
#include "platform/qt/FieldView.h"
#include "platform/qt/QtDesktop.h"
#include "platform/qt/Text.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A dialog that asks for a name and for one of three types. The name takes no "-" and makes "c" a capital letter.
struct FieldRig {
  FieldRig() {
    legend.Caption("Name");
    name.SpokenName("Name of it");
    name.OnKeyPress = [this](int& key) {
      events.push_back("key " + std::to_string(key));
      if (key == '-') key = 0;
      if (key == 'c') key = 'C';
    };
    for (RadioButton* type : Types()) {
      type->Caption("Type &" + std::to_string(type->Index()));
      type->OnGotFocus = [this, type] { events.push_back("type " + std::to_string(type->Index())); };
    }
    name.OnGotFocus = [this] { events.emplace_back("name"); };
    ok.Caption("OK");
    ok.Role(ButtonRole::Default);
    ok.OnClick = [this] {
      events.push_back("ok " + name.Text());
      form.Hide();
    };
    form.Arrangement({{&legend, &name}, {nullptr, &first}, {nullptr, &second}, {nullptr, &third}, {&ok}});
    name.SetFocus();
    events.clear();
  }

  [[nodiscard]] std::vector<RadioButton*> Types() { return {&first, &second, &third}; }

  std::vector<std::string> events;
  Form form{"frmTest"};
  Button ok{form, "cmdAction"};  // the first in the order of the Tab key
  Label legend{form, "lbl"};
  TextBox name{form, "txtName"};
  RadioButton first{form, "rbType", 0};
  RadioButton second{form, "rbType", 1};
  RadioButton third{form, "rbType", 2};
};

std::string Snapshot(FieldRig& rig) {
  std::ostringstream out;
  out << "'" << rig.name.Text() << "'";
  for (const RadioButton* type : rig.Types()) out << ' ' << type->Checked();
  const Control* const focused = rig.form.FocusedControl();
  out << " keyboard " << (focused == nullptr ? "nowhere" : focused->Name() + std::to_string(focused->Index()));
  return out.str();
}

struct FieldShown : FieldRig {
  FieldShown() {
    form.Show();
    view.show();
    view.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&view));
    EXPECT_THAT(events, IsEmpty());
  }

  QWidget& Widget(const Control& control) { return *view.Views().WidgetOf(control); }
  TextBoxView& Line() { return dynamic_cast<TextBoxView&>(Widget(name)); }

  void Press(int key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
  }
  void Type(const QString& text, Qt::KeyboardModifiers modifiers = {}) {
    for (const QChar character : text) {
      QKeyEvent press(QEvent::KeyPress, 0, modifiers, QString(character));
      QApplication::sendEvent(QApplication::focusWidget(), &press);
    }
  }
  void Commit(const QString& text, const QString& preedit = {}) {
    QInputMethodEvent event(preedit, {});
    event.setCommitString(text);
    QApplication::sendEvent(QApplication::focusWidget(), &event);
  }
  void Paste(const QString& text) {
    QApplication::clipboard()->setText(text);
    Press(Qt::Key_V, Qt::ControlModifier);
  }
  void Click(const RadioButton& type) {
    QWidget& button = Widget(type);
    QTest::mouseClick(&button, Qt::LeftButton, {}, {8, button.height() / 2});
  }
  /// What the widgets show otherwise than their controls hold; empty when all is shown.
  std::string Differences() {
    std::ostringstream out;
    if (Line().text() != ToQt(name.Text())) out << "text " << Line().text().toStdString() << '\n';
    for (RadioButton* type : Types()) {
      const auto& button = dynamic_cast<QRadioButton&>(Widget(*type));
      if (button.isChecked() != type->Checked()) out << "choice " << type->Index() << '\n';
      if (button.text() != ToQt(type->Caption())) out << "caption " << type->Index() << '\n';
      if (button.isEnabled() != type->Enabled()) out << "state " << type->Index() << '\n';
    }
    const Control* const focused = form.FocusedControl();
    if (focused == nullptr || QApplication::focusWidget() != &Widget(*focused)) out << "keyboard\n";
    return out.str();
  }

  DialogView view{form, nullptr};
};

/// One deed of a user in both languages.
struct FieldDeed {
  std::string name;
  std::function<void(FieldRig&)> gesture;
  std::function<void(FieldShown&)> real;
};

void ExpectSame(const std::vector<FieldDeed>& deeds, const std::function<void(FieldRig&)>& prepare = {}) {
  FieldRig plain;
  FieldShown shown;
  if (prepare) prepare(plain);
  if (prepare) prepare(shown);
  ASSERT_EQ(shown.Differences(), "") << "before all deeds";
  for (const FieldDeed& deed : deeds) {
    const std::string before = Snapshot(plain);
    const std::size_t told = plain.events.size();
    deed.gesture(plain);
    deed.real(shown);
    EXPECT_TRUE(Snapshot(plain) != before || plain.events.size() != told) << deed.name << " does nothing";
    ASSERT_EQ(Snapshot(shown), Snapshot(plain)) << "after " << deed.name;
    ASSERT_EQ(shown.events, plain.events) << "after " << deed.name;
    ASSERT_EQ(shown.Differences(), "") << "after " << deed.name;
  }
}

FieldDeed Type(const std::string& characters, const QString& keys, Qt::KeyboardModifiers modifiers = {}) {
  return {"typing of " + characters, [=](FieldRig& rig) { rig.name.UserType(characters); },
          [=](FieldShown& shown) { shown.Type(keys, modifiers); }};
}

FieldDeed Commit(const std::string& characters, const QString& composed) {
  return {"composing " + characters, [=](FieldRig& rig) { rig.name.UserType(characters); },
          [=](FieldShown& shown) { shown.Commit(composed); }};
}

/// The whole text becomes another past the rule of typing.
FieldDeed Change(const std::string& name, const std::string& text, const std::function<void(FieldShown&)>& real) {
  return {name, [=](FieldRig& rig) { rig.name.UserText(text); }, real};
}

FieldDeed Choose(RadioButton FieldRig::*type, const std::function<void(FieldShown&)>& real) {
  return {"choice",
          [=](FieldRig& rig) {
            (rig.*type).UserFocus();
            (rig.*type).UserClick();
          },
          real};
}

FieldDeed Click(RadioButton FieldRig::*type) {
  return Choose(type, [=](FieldShown& shown) { shown.Click(shown.*type); });
}

TEST(Field, TypedCharactersComeInOneByOne) {
  ExpectSame({Type("ab", "ab"), Type("\xE4\x80", QString(QChar(0xE4)) + QChar(0x20AC)), Type(" ", " ")});
}

TEST(Field, ARefusedKeyLeavesTheTextAlsoTheSelectedOne) {
  ExpectSame({Type("a-b", "a-b")});
  FieldShown shown;
  shown.Type("ab");
  shown.Line().selectAll();
  shown.Type("-");
  EXPECT_EQ(shown.name.Text(), "ab");
  EXPECT_EQ(shown.Line().selectedText(), QStringLiteral("ab"));
  EXPECT_EQ(shown.Differences(), "");
}

TEST(Field, TheRuleMayChangeAKey) {
  ExpectSame({Type("abc", "abc"), Type("d", "d")});
  FieldShown shown;
  shown.Type("ab");
  shown.Line().selectAll();
  shown.Type("c");
  EXPECT_EQ(shown.name.Text(), "C");
}

class FieldKey : public testing::TestWithParam<Qt::KeyboardModifiers> {};

TEST_P(FieldKey, PassesTheRuleWhereTheFieldWouldTakeIt) {
  ExpectSame({Type("-", "-", GetParam()), Type("a", "a", GetParam())});
}

INSTANTIATE_TEST_SUITE_P(Modifiers, FieldKey,
                         testing::Values(Qt::NoModifier, Qt::ShiftModifier, Qt::AltModifier,
                                         Qt::AltModifier | Qt::ShiftModifier, Qt::MetaModifier, Qt::KeypadModifier,
                                         Qt::ControlModifier | Qt::AltModifier,
                                         Qt::ControlModifier | Qt::KeypadModifier));

TEST(Field, AKeyWithCtrlIsACommandAndNoCharacter) {
  FieldShown shown;
  shown.Type("a", Qt::ControlModifier);
  shown.Type("a", Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_THAT(shown.events, IsEmpty());
  EXPECT_EQ(shown.name.Text(), "");
}

TEST(Field, AComposedLetterPassesTheRule) {
  ExpectSame({Commit("\xE9", QStringLiteral("e") + QChar(0x0301)), Commit("-", "-"), Commit("cd", "cd")});
  FieldShown shown;
  shown.Commit({}, QStringLiteral("x"));
  EXPECT_EQ(shown.name.Text(), "") << "nothing comes in before the letter is complete";
  shown.Commit(QStringLiteral("-"));
  EXPECT_EQ(shown.name.Text(), "");
  EXPECT_EQ(shown.Differences(), "");
}

TEST(Field, ACharacterThatTheCodePageLacksNeverComesIn) {
  FieldShown shown;
  shown.Type(QString(QChar(0x0416)));
  shown.Commit(QString(QChar(0x0416)));
  EXPECT_THAT(shown.events, IsEmpty());
  shown.Type("a");
  EXPECT_EQ(shown.name.Text(), "a");
  EXPECT_EQ(shown.Differences(), "");
}

TEST(Field, APastePassesNoRule) {
  ExpectSame({Change("paste", "a-c", [](FieldShown& shown) { shown.Paste("a-c"); })});
}

TEST(Field, APasteLosesControlCharactersAndWhatTheCodePageLacks) {
  ExpectSame({Change("paste", "1-2", [](FieldShown& shown) {
    shown.Paste(QStringLiteral("1\t-\n") + QChar(0x0416) + QStringLiteral("2\r"));
  })});
  FieldShown shown;
  shown.Type("ab");
  shown.Paste(QString(QChar(0x0416)));
  EXPECT_EQ(shown.name.Text(), "ab");
  EXPECT_EQ(shown.Differences(), "");
  shown.Paste(QStringLiteral("\n"));
  EXPECT_EQ(shown.name.Text(), "ab");
  EXPECT_EQ(shown.Differences(), "");
}

TEST(Field, TheCursorStaysBehindWhatCameIn) {
  FieldShown shown;
  shown.Type("yz");
  shown.Press(Qt::Key_Home);
  shown.Type("a");
  EXPECT_EQ(shown.Line().cursorPosition(), 1);
  shown.Type("c");
  EXPECT_EQ(shown.Line().cursorPosition(), 2);
  shown.Paste(QStringLiteral("1\n") + QChar(0x0416) + QStringLiteral("2"));
  EXPECT_EQ(shown.Line().cursorPosition(), 4);
  shown.Type("-");
  shown.Type("e");
  EXPECT_EQ(shown.name.Text(), "aC12eyz");
  EXPECT_EQ(shown.Differences(), "");
}

TEST(Field, KeysOfEditingChangeTheWholeText) {
  ExpectSame({Type("abd", "abd"), Change("Backspace", "ab", [](FieldShown& shown) { shown.Press(Qt::Key_Backspace); }),
              Change("Delete", "b",
                     [](FieldShown& shown) {
                       shown.Press(Qt::Key_Home);
                       shown.Press(Qt::Key_Delete);
                     }),
              Change("undo", "ab", [](FieldShown& shown) { shown.Press(Qt::Key_Z, Qt::ControlModifier); })});
}

TEST(Field, ShowsWhatTheProgramSets) {
  FieldShown shown;
  shown.name.Text("set-\xDC");
  EXPECT_EQ(shown.Differences(), "");
  EXPECT_EQ(shown.Line().text(), QStringLiteral("set-") + QChar(0xDC));
  EXPECT_THAT(shown.events, IsEmpty());
}

TEST(Field, AFieldThatIsSwitchedOffTakesNothing) {
  FieldShown shown;
  shown.name.Enabled(false);
  QTest::mouseClick(&shown.Line(), Qt::LeftButton);
  QTest::keyClicks(&shown.Line(), QStringLiteral("a"));
  EXPECT_EQ(shown.name.Text(), "");
  EXPECT_EQ(shown.Line().text(), QString());
}

TEST(Radio, AClickChoosesOneAndTakesTheChoiceFromTheOthers) {
  ExpectSame({Click(&FieldRig::second), Click(&FieldRig::first), Click(&FieldRig::third)});
}

TEST(Radio, AClickOnTheChosenOneKeepsTheChoice) {
  FieldShown shown;
  shown.Click(shown.second);
  shown.Click(shown.second);
  EXPECT_TRUE(shown.second.Checked());
  EXPECT_EQ(shown.Differences(), "");
}

TEST(Radio, SpaceChoosesTheOneWithTheKeyboardAndArrowsGoOnWithTheChoice) {
  ExpectSame({Choose(&FieldRig::first,
                     [](FieldShown& shown) {
                       shown.Press(Qt::Key_Tab);
                       shown.Press(Qt::Key_Space);
                     }),
              Choose(&FieldRig::second, [](FieldShown& shown) { shown.Press(Qt::Key_Down); }),
              Choose(&FieldRig::third, [](FieldShown& shown) { shown.Press(Qt::Key_Down); }),
              Choose(&FieldRig::second, [](FieldShown& shown) { shown.Press(Qt::Key_Up); })});
}

TEST(Radio, ArrowsChooseNothingBeforeTheFirstChoice) {
  FieldShown shown;
  shown.Press(Qt::Key_Tab);
  shown.Press(Qt::Key_Down);
  EXPECT_TRUE(shown.second.Focused());
  for (const RadioButton* type : shown.Types()) EXPECT_FALSE(type->Checked());
  EXPECT_EQ(shown.Differences(), "");
}

TEST(Radio, ItsLetterChoosesIt) {
  ExpectSame({Choose(&FieldRig::third, [](FieldShown& shown) {
    shown.Press(Qt::Key_2, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown.third.Checked(); }));  // it is seen pressed for a moment
  })});
}

TEST(Radio, OneThatIsSwitchedOffCannotBeChosen) {
  FieldShown shown;
  shown.second.Enabled(false);
  shown.Click(shown.second);
  EXPECT_FALSE(shown.second.Checked());
  EXPECT_EQ(shown.Differences(), "");
}

TEST(Radio, OneThatTheEndOfAnEditSwitchesOffTakesTheChoiceFromNobody) {
  Form form("frmTest");
  Grid grid(form, "vsgTest");
  RadioButton first(form, "rbType", 0);
  RadioButton second(form, "rbType", 1);
  grid.Shape(2, 1, 1, 0);
  grid.Editable(true);
  grid.OnAfterEdit = [&](int, int) { second.Enabled(false); };
  form.Arrangement({{&grid}, {&first}, {&second}});
  first.Checked(true);
  DialogView view(form, nullptr);
  view.show();
  const auto button = [&](const RadioButton& radio) {
    return dynamic_cast<QRadioButton*>(view.Views().WidgetOf(radio));
  };
  grid.EditCell();
  ASSERT_NE(grid.OpenEdit(), nullptr);
  button(second)->click();  // as a screen reader does, without the keyboard
  EXPECT_EQ(grid.OpenEdit(), nullptr);
  EXPECT_TRUE(first.Checked());
  EXPECT_TRUE(button(first)->isChecked());
  EXPECT_FALSE(button(second)->isChecked());
}

TEST(Radio, TheProgramMovesTheChoice) {
  FieldShown shown;
  shown.first.Checked(true);
  EXPECT_EQ(shown.Differences(), "");
  shown.third.Checked(true);
  EXPECT_FALSE(shown.first.Checked());
  EXPECT_EQ(shown.Differences(), "");
  shown.third.Checked(false);
  EXPECT_EQ(shown.Differences(), "");
}

TEST(Radio, TheChoiceIsOneAWindow) {
  FieldShown shown;
  FieldShown another;
  another.first.UserClick();
  shown.second.UserClick();
  EXPECT_TRUE(another.first.Checked());
  EXPECT_EQ(another.Widget(another.first).property("checked"), true);
}

TEST(FieldDialog, OpensWithTheKeyboardInTheControlThatHasIt) {
  FieldShown shown;
  EXPECT_TRUE(shown.name.Focused());
  EXPECT_TRUE(shown.Line().hasFocus());
}

TEST(FieldDialog, TheNameIsTypedAndEnteredWithoutATouchOfTheMouse) {
  FieldRig rig;
  QtWords words([] { return std::string("en"); });
  QtDesktop desktop(words, [] { return std::string("Title"); });
  QTimer::singleShot(0, [&] {
    QWidget* const dialog = QApplication::activeModalWidget();
    ASSERT_NE(dialog, nullptr);
    EXPECT_TRUE(QTest::qWaitForWindowActive(dialog));
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("ab"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    if (rig.form.Visible()) rig.form.Hide();
  });
  desktop.ShowModal(rig.form);
  EXPECT_THAT(rig.events, ElementsAre("key 97", "key 98", "ok ab"));
}

TEST(FieldDialog, TheTabKeyWalksInTheOrderOfTheControlsAndStopsOnceAtTheChoices) {
  FieldShown shown;
  std::vector<std::string> order;
  for (int i = 0; i < 3; ++i) {
    order.push_back(shown.form.FocusedControl()->Name() + std::to_string(shown.form.FocusedControl()->Index()));
    EXPECT_EQ(shown.Differences(), "");
    shown.Press(Qt::Key_Tab);
  }
  EXPECT_THAT(order, ElementsAre("txtName0", "rbType0", "cmdAction0"));
  EXPECT_TRUE(shown.name.Focused());
  shown.Press(Qt::Key_Backtab);
  EXPECT_TRUE(shown.ok.Focused());
}

TEST(FieldDialog, ALabelBelongsToTheFieldBehindIt) {
  FieldShown shown;
  const auto& label = dynamic_cast<QLabel&>(shown.Widget(shown.legend));
  EXPECT_EQ(label.buddy(), &shown.Line());
}

TEST(FieldDialog, AScreenReaderIsToldTheSpokenName) {
  FieldShown shown;
  const auto spoken = [](QWidget& widget) {
    return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Name);
  };
  EXPECT_EQ(spoken(shown.Line()), QStringLiteral("Name of it"));
  EXPECT_EQ(spoken(shown.Widget(shown.second)), QStringLiteral("Type 1"));
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&shown.Widget(shown.second))->role(), QAccessible::RadioButton);
}

}  // namespace
}  // namespace tavrin
