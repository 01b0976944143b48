// Editing of cells, by gestures and by real keys.
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QFocusEvent>
#include <QHeaderView>
#include <QInputMethodEvent>
#include <QTest>

#include <gmock/gmock.h>
#include <qtestspontaneevent.h>

#include "conformance/GridShown.h"
#include "platform/qt/ItemDelegate.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

GridDeed F2() {
  return {"F2", [](GridRig& rig) { rig.grid.UserKey(Key::F2); }, [](GridShown& shown) { shown.Press(Qt::Key_F2); }};
}

GridDeed Enter() {
  return {"Enter", [](GridRig& rig) { rig.grid.UserKey(Key::Enter); },
          [](GridShown& shown) { shown.Press(Qt::Key_Return); }};
}

GridDeed Escape() {
  return {"Escape", [](GridRig& rig) { rig.grid.UserKey(Key::Escape); },
          [](GridShown& shown) { shown.Press(Qt::Key_Escape); }};
}

/// Typed into the grid or at the end of the editor's text.
GridDeed Type(const std::string& characters, const QString& keys) {
  return {"typing of " + characters, [characters](GridRig& rig) { rig.grid.UserType(characters); },
          [keys](GridShown& shown) { shown.Type(keys); }};
}

/// The editor's text becomes another by a real change.
GridDeed Change(const std::string& name, const std::string& typed, const std::string& text,
                const std::function<void(GridShown&)>& real) {
  return {name,
          [typed, text](GridRig& rig) {
            EXPECT_EQ(rig.grid.FilterTyped(typed), typed);
            rig.grid.UserEditText(text);
          },
          real};
}

void Paste(GridShown& shown, const QString& text) {
  QApplication::clipboard()->setText(text);
  shown.Press(Qt::Key_V, Qt::ControlModifier);
}

TEST(GridEdit, F2OpensTheCellWithItsTextSelected) {
  ExpectSame(
      {F2(), Change("typing over the selected text", "n", "n", [](GridShown& shown) { shown.Type("n"); }), Enter()});
  GridShown shown;
  shown.Press(Qt::Key_F2);
  EXPECT_EQ(shown.view.EditorLine()->selectedText(), QStringLiteral("alpha"));
}

TEST(GridEdit, EnterTakesTheTextEvenIfItDidNotChange) { ExpectSame({F2(), Enter()}); }

TEST(GridEdit, EscapeKeepsTheText) {
  ExpectSame({F2(), Type("x", "x"), Escape()}, [](GridRig& rig) { rig.grid.Text({1, 1}, ""); });
}

TEST(GridEdit, TypingOpensTheCellWithTheCharacter) { ExpectSame({Type("n", "n"), Type("ew", "ew"), Enter()}); }

TEST(GridEdit, ARefusedCharacterOpensAnEmptyCell) {
  ExpectSame({Type(",", ","), Type("a", "a"), Type(",", ","), Enter()}, [](GridRig& rig) { rig.refused = ','; });
}

TEST(GridEdit, ACellThatIsRefusedStaysClosed) {
  const auto select = [](GridRig& rig) {
    rig.grid.Select({4, 1});
    rig.events.clear();
  };
  ExpectSame({F2(), Type("x", "x")}, select);
}

TEST(GridEdit, LettersBeyondAsciiAreTypedInTheCodePage) {
  ExpectSame({Type("\xE4", QString(QChar(0xE4))), Type("\x80", QString(QChar(0x20AC))), Enter()});
}

TEST(GridEdit, ACharacterThatTheCodePageLacksNeverComesIn) {
  GridShown shown;
  shown.Type(QString(QChar(0x0416)));
  EXPECT_THAT(shown.events, IsEmpty());
  EXPECT_EQ(shown.grid.OpenEdit(), nullptr);
  shown.Press(Qt::Key_F2);
  shown.Type(QString(QChar(0x0416)));
  ASSERT_NE(shown.grid.OpenEdit(), nullptr);
  EXPECT_EQ(shown.grid.OpenEdit()->text, "alpha");
  EXPECT_FALSE(shown.grid.OpenEdit()->touched);
  EXPECT_EQ(Differences(shown.view, shown.grid), "");
}

TEST(GridEdit, ARefusedCharacterLeavesTheSelectedText) {
  GridShown shown;
  shown.refused = 'x';
  shown.Press(Qt::Key_F2);
  shown.Type("x");
  EXPECT_EQ(shown.grid.OpenEdit()->text, "alpha");
  EXPECT_EQ(Differences(shown.view, shown.grid), "");
}

TEST(GridEdit, APasteIsTypingWithoutWhatIsRefused) {
  GridShown shown;
  shown.refused = ',';
  shown.Press(Qt::Key_F2);
  shown.Press(Qt::Key_End);
  Paste(shown, QStringLiteral("1,2\t\n") + QChar(0x0416) + QStringLiteral("3"));
  ASSERT_NE(shown.grid.OpenEdit(), nullptr);
  EXPECT_EQ(shown.grid.OpenEdit()->text, "alpha123");
  EXPECT_EQ(Differences(shown.view, shown.grid), "");
  EXPECT_THAT(shown.events, ElementsAre("before edit 1,1", "typed 49 in 1,1", "typed 44 in 1,1", "typed 50 in 1,1",
                                        "typed 51 in 1,1"));
}

TEST(GridEdit, AChangeInTheMiddleIsAChangeOfTheWholeText) {
  ExpectSame({F2(),
              Change("typing after Home", "n", "nalpha",
                     [](GridShown& shown) {
                       shown.Press(Qt::Key_Home);
                       shown.Type("n");
                     }),
              Change("Delete", "", "npha",
                     [](GridShown& shown) {
                       shown.Press(Qt::Key_Delete);
                       shown.Press(Qt::Key_Delete);
                     }),
              Change("undo", "al", "nalpha", [](GridShown& shown) { shown.Press(Qt::Key_Z, Qt::ControlModifier); }),
              Enter()});
}

TEST(GridEdit, AnInputMethodTypesIntoTheGridAndIntoTheEditor) {
  GridShown shown;
  const auto commit = [](const QString& text) {
    QInputMethodEvent event;
    event.setCommitString(text);
    QApplication::sendEvent(QApplication::focusWidget(), &event);
  };
  commit(QStringLiteral("e") + QChar(0x0301));  // an accent of its own: one letter of the code page
  ASSERT_NE(shown.grid.OpenEdit(), nullptr);
  commit(QString(QChar(0xFC)));
  EXPECT_EQ(shown.grid.OpenEdit()->text, "\xE9\xFC");
  EXPECT_EQ(Differences(shown.view, shown.grid), "");
  EXPECT_TRUE(shown.view.testAttribute(Qt::WA_InputMethodEnabled));
}

TEST(GridEdit, TabTakesTheTextAndGoesToTheNextCellWhereTheGridSaysSo) {
  ExpectSame({Type("n", "n"),
              {"Tab", [](GridRig& rig) { rig.grid.UserTab(); }, [](GridShown& shown) { shown.Press(Qt::Key_Tab); }},
              Type("m", "m"),
              {"Shift+Tab", [](GridRig& rig) { rig.grid.UserTab(true); },
               [](GridShown& shown) { shown.Press(Qt::Key_Backtab); }}},
             [](GridRig& rig) { rig.grid.TabMovesCell(true); });
}

TEST(GridEdit, ElseTabTakesTheTextAndLeavesTheGrid) {
  GridShown shown;
  shown.Type("n");
  shown.Press(Qt::Key_Tab);
  EXPECT_EQ(shown.grid.Text({1, 1}), "n");
  EXPECT_TRUE(shown.other.Focused());
  EXPECT_EQ(Differences(shown.view, shown.grid), "");
}

TEST(GridEdit, EnterMayGoToTheNextCellAndTheKeyboardStaysInTheGrid) {
  ExpectSame({Type("n", "n"), Enter(), Type("m", "m"), Enter()}, [](GridRig& rig) { rig.enterIsTab = true; });
}

TEST(GridEdit, UpAndDownTakeTheTextAndGoOn) {
  ExpectSame({Type("n", "n"),
              {"Down",
               [](GridRig& rig) {
                 rig.grid.UserSelect({2, 1});
               },
               [](GridShown& shown) { shown.Press(Qt::Key_Down); }}});
}

TEST(GridEdit, DeleteInTheEditorIsTheEditors) {
  GridShown shown;
  shown.Press(Qt::Key_F2);
  shown.Press(Qt::Key_Home);
  shown.Press(Qt::Key_Delete);
  EXPECT_EQ(shown.grid.OpenEdit()->text, "lpha");
  EXPECT_THAT(shown.events, ElementsAre("before edit 1,1"));
}

TEST(GridEdit, APressOnAnotherCellTakesTheText) {
  ExpectSame({Type("n", "n"),
              {"press",
               [](GridRig& rig) {
                 rig.grid.UserPress(MouseButton::Left, {3, 2});
               },
               [](GridShown& shown) {
                 shown.Click({3, 2});
               }}});
}

TEST(GridEdit, APressOnAHeadingTakesTheText) {
  GridShown shown;
  shown.Type("n");
  QTest::mouseClick(shown.view.horizontalHeader()->viewport(), Qt::LeftButton, {}, shown.HeadingOf(2));
  EXPECT_EQ(shown.grid.Text({1, 1}), "n");
}

TEST(GridEdit, TheKeyboardInAnotherControlTakesTheText) {
  GridShown shown;
  shown.Type("n");
  shown.otherView.setFocus(Qt::MouseFocusReason);
  EXPECT_EQ(shown.grid.Text({1, 1}), "n");
  EXPECT_THAT(shown.events, ElementsAre("before edit 1,1", "typed 110 in 1,1", "after edit 1,1 n", "lost focus"));
  EXPECT_EQ(Differences(shown.view, shown.grid), "");
}

TEST(GridEdit, TheKeyboardInAFieldOfNoControlTakesTheText) {
  GridShown shown;
  shown.Type("n");
  shown.neighbour.setFocus(Qt::MouseFocusReason);
  EXPECT_EQ(shown.grid.Text({1, 1}), "n");
  EXPECT_TRUE(shown.neighbour.hasFocus());
}

class GridEditVisit : public testing::TestWithParam<Qt::FocusReason> {};

TEST_P(GridEditVisit, ABoxOrMenuLeavesTheEditOpenAndTheKeyboardWhereItWas) {
  GridShown shown;
  shown.Press(Qt::Key_F2);
  const std::string before = Snapshot(shown.grid);
  QFocusEvent out(QEvent::FocusOut, GetParam());
  QApplication::sendEvent(shown.view.EditorLine(), &out);
  QFocusEvent otherIn(QEvent::FocusIn, GetParam());
  QApplication::sendEvent(&shown.otherView, &otherIn);
  EXPECT_EQ(Snapshot(shown.grid), before);
  EXPECT_EQ(Differences(shown.view, shown.grid), "");
}

INSTANTIATE_TEST_SUITE_P(Reasons, GridEditVisit,
                         testing::Values(Qt::PopupFocusReason, Qt::ActiveWindowFocusReason, Qt::MenuBarFocusReason));

TEST(GridEdit, TheKeyboardThatIsGivenToTheGridStaysInTheOpenEditor) {
  GridShown shown;
  shown.Press(Qt::Key_F2);
  shown.view.setFocus(Qt::OtherFocusReason);
  EXPECT_NE(shown.grid.OpenEdit(), nullptr);
  EXPECT_EQ(Differences(shown.view, shown.grid), "");
}

TEST(GridEdit, ACommandEndsTheEditAndTheKeyboardStaysInTheGrid) {
  GridShown shown;
  shown.Type("n");
  shown.form.EndPendingEdits();
  EXPECT_EQ(shown.grid.Text({1, 1}), "n");
  EXPECT_TRUE(shown.view.hasFocus());
  EXPECT_EQ(Differences(shown.view, shown.grid), "");
}

TEST(GridEdit, AProgramOpensACell) {
  ExpectSame({{"EditCell", [](GridRig& rig) { rig.grid.EditCell(); }, [](GridShown& shown) { shown.grid.EditCell(); }},
              Enter()});
}

TEST(GridEdit, AListOffersItsChoicesByTheArrowKeys) {
  const auto offer = [](GridRig& rig) { rig.choices = "RO|RW|alpha"; };
  ExpectSame({F2(), Change("Up", "", "RW", [](GridShown& shown) { shown.Press(Qt::Key_Up); }),
              Change("Up", "", "RO", [](GridShown& shown) { shown.Press(Qt::Key_Up); }), Enter()},
             offer);
}

TEST(GridEdit, AListTakesTypedTextAsItIs) {
  GridShown shown;
  shown.choices = "RO|RW";
  shown.Press(Qt::Key_F2);
  shown.Type("r");
  ASSERT_NE(shown.grid.OpenEdit(), nullptr);
  EXPECT_EQ(shown.grid.OpenEdit()->text, "r");
  EXPECT_EQ(Differences(shown.view, shown.grid), "");
  shown.Press(Qt::Key_Return);
  EXPECT_EQ(shown.grid.Text({1, 1}), "r");
}

TEST(GridEdit, AChoiceIsTakenFromTheOpenListByAClick) {
  GridShown shown;
  shown.choices = "RO|RW";
  shown.Press(Qt::Key_F2);
  auto* const list = shown.view.findChild<QComboBox*>();
  ASSERT_NE(list, nullptr);
  list->showPopup();
  EXPECT_NE(shown.grid.OpenEdit(), nullptr);
  QAbstractItemView* const choices = list->view();
  QTest::mouseMove(choices->viewport(), choices->visualRect(choices->model()->index(1, 0)).center());
  QTest::keyClick(choices, Qt::Key_End);
  QTest::keyClick(choices, Qt::Key_Return);
  ASSERT_NE(shown.grid.OpenEdit(), nullptr);
  EXPECT_EQ(shown.grid.OpenEdit()->text, "RW");
  EXPECT_EQ(Differences(shown.view, shown.grid), "");
}

TEST(GridEdit, TheWheelScrollsTheGridAndNeverChangesTheChoice) {
  GridShown shown;
  shown.grid.Rows(500);
  QApplication::processEvents();
  shown.choices = "RO|RW|alpha";
  shown.Press(Qt::Key_F2);
  auto* const list = shown.view.findChild<QComboBox*>();
  QWheelEvent wheel(QPointF(5, 5), list->mapToGlobal(QPointF(5, 5)), {}, {0, -240}, Qt::NoButton, {}, Qt::NoScrollPhase,
                    false);
  QSpontaneKeyEvent::setSpontaneous(&wheel);  // only a real one goes on to the parent
  qApp->notify(list, &wheel);
  EXPECT_EQ(shown.grid.OpenEdit()->text, "alpha");
  EXPECT_GT(shown.grid.TopRow(), 1);
}

TEST(GridEdit, TheEditorLiesOverItsCellAlsoAfterAScrollAndAPull) {
  GridShown shown;
  shown.grid.Rows(500);
  shown.grid.Select({3, 2});
  shown.Press(Qt::Key_F2);
  const auto place = [&] { return ItemDelegate::InsideOfRing(shown.view.visualRect(shown.view.model()->index(2, 2))); };
  EXPECT_EQ(shown.view.EditorLine()->geometry(), place());
  shown.grid.TopRow(3);
  shown.grid.ColWidth(1, 3000);
  EXPECT_TRUE(QTest::qWaitFor([&] { return shown.view.EditorLine()->geometry() == place(); }));
}

TEST(GridEdit, TheEditIsGivenUpWithItsRow) {
  GridShown shown;
  shown.Press(Qt::Key_F2);
  shown.grid.RemoveItem(1);
  EXPECT_EQ(shown.view.EditorLine(), nullptr);
  EXPECT_EQ(Differences(shown.view, shown.grid), "");
}

TEST(GridEdit, ARuleMayRebuildTheGridWhileTheEditorsKeyIsOnItsWay) {
  GridShown shown;
  shown.grid.OnAfterEdit = [&](int, int) {
    shown.grid.Redraw(false);
    shown.grid.Rows(1);
    for (int row = 0; row < 50; ++row) shown.grid.AddItem("k\tnew\tx\ty");
    shown.grid.Select({7, 2});
    shown.grid.Redraw(true);
  };
  shown.Type("n");
  shown.Press(Qt::Key_Return);
  EXPECT_EQ(shown.grid.Current(), (Cell{7, 2}));
  EXPECT_EQ(Differences(shown.view, shown.grid), "");
}

}  // namespace
}  // namespace tavrin
