// Menus by their gestures and by mouse and keys: both must leave the same.
#include <QAction>
#include <QMenuBar>
#include <QTest>
#include <QTimer>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/qt/FormView.h"
#include "platform/qt/MenuView.h"
#include "platform/qt/QtDesktop.h"

namespace tavrin {
namespace {

using testing::ElementsAre;

/// A window with a menu of three entries, one of them with entries below it, and a menu that opens only as a popup.
struct MenuRig {
  MenuRig() {
    for (MenuEntry* entry : {&file, &open, &line, &save, &size, &small, &large, &popup, &cut}) Listen(*entry);
    for (MenuEntry* entry : {&open, &line, &save, &size}) file.Add(*entry);
    for (MenuEntry* entry : {&small, &large}) size.Add(*entry);
    popup.Add(cut);
    popup.Visible(false);
    line.Caption("-");
    save.Enabled(false);
    save.Shortcut("Ctrl+S");
    small.Checked(true);
    // As a program does: the entry is brought up to date when its menu opens.
    file.OnOpen = [this] {
      events.emplace_back("open File");
      save.Enabled(true);
    };
    form.MenuBar({&file, &popup});
    form.Place({0, 0, 6000, 4000});
    form.Show();
  }

  void Listen(MenuEntry& entry) {
    static constexpr const char* kCaptions[] = {"&File",  "&Open...", "-",    "&Save", "Si&ze",
                                                "&Small", "&Large",   "Grid", "C&ut"};
    entry.Caption(kCaptions[count++]);
    entry.OnClick = [this, &entry] { events.push_back("click " + WithoutMnemonic(entry.Caption())); };
    entry.OnOpen = [this, &entry] { events.push_back("open " + WithoutMnemonic(entry.Caption())); };
  }

  int count = 0;
  std::vector<std::string> events;
  Form form{"frmTest"};
  MenuEntry file{form, "mnuMain", 1};
  MenuEntry open{form, "mnuFile", 1};
  MenuEntry line{form, "mnuFile", 2};
  MenuEntry save{form, "mnuFile", 3};
  MenuEntry size{form, "mnuFile", 4};
  MenuEntry small{form, "mnuSize", 1};
  MenuEntry large{form, "mnuSize", 2};
  MenuEntry popup{form, "mnuMain", 5};
  MenuEntry cut{form, "mnuTest", 1};
};

struct ShownMenu : MenuRig {
  ShownMenu() { static_cast<void>(QTest::qWaitForWindowActive(&view)); }

  MenuView& Menu() { return *view.Menus().front(); }
  void Open() {
    const QRect place = view.menuBar()->actionGeometry(Menu().menuAction());
    QTest::mouseClick(view.menuBar(), Qt::LeftButton, Qt::NoModifier, place.center());
  }
  QAction& ActionOf(const MenuEntry& entry) { return *Menu().ActionOf(entry); }
  void Click(const MenuEntry& entry) {
    QTest::mouseClick(&Menu(), Qt::LeftButton, Qt::NoModifier, Menu().actionGeometry(&ActionOf(entry)).center());
  }

  std::string language = "en";
  QtWords words{[this] { return language; }};
  FormView view{form, words};
};

TEST(Menu, AnEntryThatIsClickedTellsWhatItsGestureTells) {
  MenuRig plain;
  plain.file.UserOpen();
  plain.save.UserClick();

  ShownMenu shown;
  shown.Open();
  shown.Click(shown.save);
  EXPECT_EQ(shown.events, plain.events);
  EXPECT_THAT(shown.events, ElementsAre("open File", "click Save"));
}

TEST(Menu, LettersAndEnterChooseAnEntry) {
  ShownMenu shown;
  QTest::keyClick(&shown.view, Qt::Key_F, Qt::AltModifier);
  ASSERT_TRUE(shown.Menu().isVisible());
  QTest::keyClick(&shown.Menu(), Qt::Key_S);
  EXPECT_THAT(shown.events, ElementsAre("open File", "click Save"));
}

TEST(Menu, EscapeClosesItWithoutAChoice) {
  ShownMenu shown;
  shown.Open();
  QTest::keyClick(&shown.Menu(), Qt::Key_Escape);
  EXPECT_FALSE(shown.Menu().isVisible());
  EXPECT_THAT(shown.events, ElementsAre("open File"));
}

TEST(Menu, AShortcutBringsTheMenuUpToDateBeforeItChooses) {
  MenuRig plain;
  plain.save.UserShortcut();

  ShownMenu shown;
  ASSERT_FALSE(shown.ActionOf(shown.save).isEnabled());
  QTest::keyClick(&shown.view, Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(shown.events, plain.events);
  EXPECT_THAT(shown.events, ElementsAre("open File", "click Save"));
}

TEST(Menu, ShowsWhatItsEntriesSay) {
  ShownMenu shown;
  EXPECT_EQ(shown.ActionOf(shown.open).text(), QStringLiteral("&Open..."));
  EXPECT_TRUE(shown.ActionOf(shown.line).isSeparator());
  shown.open.Caption(
      "Auf\xF6"
      "ffnen");
  EXPECT_EQ(shown.ActionOf(shown.open).text(), QStringLiteral("Auföffnen"));
  shown.open.Visible(false);
  EXPECT_FALSE(shown.ActionOf(shown.open).isVisible());
  shown.open.Enabled(false);
  EXPECT_FALSE(shown.ActionOf(shown.open).isEnabled());
}

TEST(Menu, ALiteralCaptionShowsEachOfItsCharacters) {
  ShownMenu shown;
  shown.open.Caption("/R&D/a && b/ZOPCSRV.ini");
  EXPECT_EQ(shown.ActionOf(shown.open).text(), QStringLiteral("/R&D/a && b/ZOPCSRV.ini"));
  shown.open.Literal(true);
  EXPECT_EQ(shown.ActionOf(shown.open).text(), QStringLiteral("/R&&D/a &&&& b/ZOPCSRV.ini"));
  shown.open.Shortcut("Ctrl+1");
  EXPECT_EQ(shown.ActionOf(shown.open).text(), QStringLiteral("/R&&D/a &&&& b/ZOPCSRV.ini\tCtrl+1"));
  shown.size.Caption("A & B");
  shown.size.Literal(true);
  EXPECT_EQ(shown.ActionOf(shown.size).text(), QStringLiteral("A && B"));
}

TEST(Menu, NoLetterOfALiteralCaptionChoosesIt) {
  ShownMenu shown;
  shown.size.Visible(false);
  shown.save.Visible(false);
  shown.open.Caption("R&D");
  shown.open.Literal(true);
  shown.Open();
  QTest::keyClick(&shown.Menu(), Qt::Key_D);
  EXPECT_THAT(shown.events, ElementsAre("open File"));
  shown.open.Literal(false);
  QTest::keyClick(&shown.Menu(), Qt::Key_D);
  EXPECT_THAT(shown.events, ElementsAre("open File", "click RD"));
}

TEST(Menu, KeysStandBehindTheCaptionInTheLanguageOfTheProgram) {
  ShownMenu shown;
  EXPECT_EQ(shown.ActionOf(shown.save).text(), QStringLiteral("&Save\tCtrl+S"));
  shown.language = "de";
  shown.save.Caption("&Speichern");
  EXPECT_EQ(shown.ActionOf(shown.save).text(), QStringLiteral("&Speichern\tStrg+S"));
  shown.language = "en";
  shown.save.Caption("&Save");
  EXPECT_EQ(shown.ActionOf(shown.save).text(), QStringLiteral("&Save\tCtrl+S"));
}

TEST(Menu, OnlyTheProgramMovesTheCheckMark) {
  ShownMenu shown;
  QAction& small = shown.ActionOf(shown.small);
  EXPECT_TRUE(small.isChecked());
  small.trigger();
  EXPECT_TRUE(small.isChecked());
  shown.small.Checked(false);
  shown.large.Checked(true);
  EXPECT_FALSE(small.isCheckable());
  EXPECT_TRUE(shown.ActionOf(shown.large).isChecked());
}

TEST(Menu, EntriesMadeLaterAppear) {
  ShownMenu shown;
  MenuEntry further(shown.form, "mnuFile", 9);
  further.Caption("Further");
  shown.file.Add(further);
  ASSERT_NE(shown.Menu().ActionOf(further), nullptr);
  EXPECT_EQ(shown.ActionOf(further).text(), QStringLiteral("Further"));

  MenuEntry below(shown.form, "mnuBelow", 1);
  further.Add(below);
  EXPECT_NE(shown.ActionOf(further).menu(), nullptr);
  EXPECT_NE(shown.Menu().ActionOf(below), nullptr);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

TEST(Menu, AHiddenMenuIsNotInTheBarButOpensAsPopup) {
  ShownMenu shown;
  EXPECT_FALSE(shown.view.Menus().back()->menuAction()->isVisible());
  QtDesktop desktop(shown.words, [] { return std::string(); });
  QTimer::singleShot(0, [] {
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
  });
  desktop.PopupMenu(shown.popup);
  EXPECT_THAT(shown.events, ElementsAre("open Grid", "click Cut"));
}

}  // namespace
}  // namespace tavrin
