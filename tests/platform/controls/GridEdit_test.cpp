// Editing the cells of a grid.
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

/// A heading and two rows of two columns, the first of them fixed; the current cell 1, 1 holds "old".
class GridEditTest : public testing::Test {
 protected:
  GridEditTest() {
    grid.Shape(3, 2, 1, 1);
    grid.Text({1, 1}, "old");
    grid.Editable(true);
    grid.OnBeforeEdit = [this](int row, int col, bool& cancel) {
      Write("before", row, col);
      cancel = refuse;
    };
    grid.OnAfterEdit = [this](int row, int col) { Write("after", row, col); };
    grid.OnKeyPress = [this](int& key) { events.push_back("press " + std::to_string(key)); };
    grid.OnKeyDown = [this](Key key) { events.push_back("down " + std::to_string(static_cast<int>(key))); };
  }
  void Write(const std::string& what, int row, int col) {
    events.push_back(what + " " + std::to_string(row) + " " + std::to_string(col));
  }
  /// The text in the open edit.
  [[nodiscard]] std::string Open() const { return grid.OpenEdit() == nullptr ? "(none)" : grid.OpenEdit()->text; }

  Form form{"frmTest"};
  Grid grid{form, "grid"};
  Label other{form, "other"};
  bool refuse = false;
  std::vector<std::string> events;
};

TEST_F(GridEditTest, F2OpensTheCellWithItsText) {
  EXPECT_TRUE(grid.UserKey(Key::F2));
  ASSERT_NE(grid.OpenEdit(), nullptr);
  EXPECT_EQ(grid.OpenEdit()->cell, (Cell{1, 1}));
  EXPECT_EQ(grid.OpenEdit()->text, "old");
  EXPECT_THAT(grid.OpenEdit()->choices, IsEmpty());
  EXPECT_FALSE(grid.OpenEdit()->beganByTyping);
  EXPECT_FALSE(grid.OpenEdit()->touched);
  EXPECT_THAT(events, ElementsAre("before 1 1"));
  EXPECT_TRUE(grid.Focused());
}

TEST_F(GridEditTest, TheProgramOpensTheCellLikeTheUser) {
  int told = 0;
  const auto counting = form.FocusChanged.Connect([&] { ++told; });
  other.UserFocus();
  grid.EditCell();
  EXPECT_EQ(Open(), "old");
  EXPECT_TRUE(grid.Focused());
  EXPECT_EQ(told, 1);
}

TEST_F(GridEditTest, ADoubleClickOpensNothingUnlessItsRuleDoes) {
  grid.UserDblClick({1, 1});
  EXPECT_EQ(Open(), "(none)");
  grid.OnDblClick = [&] { grid.EditCell(); };
  grid.UserDblClick({1, 1});
  EXPECT_EQ(Open(), "old");
}

TEST_F(GridEditTest, TypingOpensTheCellWithWhatIsTyped) {
  grid.UserType("n");
  EXPECT_EQ(Open(), "n");
  EXPECT_TRUE(grid.OpenEdit()->beganByTyping);
  EXPECT_TRUE(grid.OpenEdit()->touched);
  grid.UserType("ew");
  EXPECT_EQ(Open(), "new");
  EXPECT_THAT(events, ElementsAre("before 1 1"));
}

TEST_F(GridEditTest, TypingIntoAnOpenEditGoesToItsEnd) {
  grid.UserBeginEdit();
  grid.UserType("er");
  EXPECT_EQ(Open(), "older");
  EXPECT_TRUE(grid.OpenEdit()->touched);
  EXPECT_FALSE(grid.OpenEdit()->beganByTyping);
}

TEST_F(GridEditTest, ACharacterThatIsSwallowedOpensTheCellEmpty) {
  grid.OnKeyPressEdit = [](int, int, int& key) { key = 0; };
  grid.UserType("n");
  EXPECT_EQ(Open(), "");
  EXPECT_FALSE(grid.OpenEdit()->touched);
}

TEST_F(GridEditTest, ControlCharactersNeitherOpenACellNorComeIntoIt) {
  grid.UserType("\t\r\n\x1B\x7F");
  grid.UserType("");
  EXPECT_EQ(Open(), "(none)");
  EXPECT_THAT(events, IsEmpty());
  grid.UserType(
      std::string_view("a\tb\0c\nd\x7F"
                       "e\x1F \xE4",
                       13));
  EXPECT_EQ(Open(), "abcde \xE4");
  EXPECT_EQ(grid.FilterTyped("\tx\x01"), "x");
  grid.UserEditText("p\ta\nsted\x7F");
  EXPECT_EQ(Open(), "pasted");
}

TEST_F(GridEditTest, NothingOpensInAGridThatIsNotEditable) {
  grid.Editable(false);
  grid.UserBeginEdit();
  grid.UserType("x");
  EXPECT_TRUE(grid.UserKey(Key::F2));
  EXPECT_EQ(Open(), "(none)");
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(GridEditTest, NothingOpensInAHiddenOrDisabledGrid) {
  grid.Visible(false);
  grid.UserBeginEdit();
  grid.Visible(true);
  grid.Enabled(false);
  grid.UserType("x");
  EXPECT_EQ(Open(), "(none)");
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(GridEditTest, AFixedCellAndAMissingOneDoNotOpen) {
  grid.Select({0, 1});
  grid.UserBeginEdit();
  grid.Select({1, 0});
  grid.UserType("x");
  Grid empty(form, "empty");
  empty.Editable(true);
  empty.UserBeginEdit();
  EXPECT_EQ(Open(), "(none)");
  EXPECT_EQ(empty.OpenEdit(), nullptr);
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(GridEditTest, TheRuleBeforeMayRefuse) {
  refuse = true;
  grid.UserBeginEdit();
  grid.UserType("x");
  EXPECT_EQ(Open(), "(none)");
  EXPECT_EQ(grid.Text({1, 1}), "old");
  EXPECT_THAT(events, ElementsAre("before 1 1", "before 1 1"));
}

TEST_F(GridEditTest, AnOpenEditIsNotOpenedAgain) {
  grid.UserBeginEdit();
  grid.UserEditText("half");
  grid.UserBeginEdit();
  EXPECT_EQ(Open(), "half");
  EXPECT_THAT(events, ElementsAre("before 1 1"));
}

TEST_F(GridEditTest, TheRuleBeforeMaySelectItsOwnCellButNotMoveAway) {
  grid.Select({1, 1}, {2, 1});
  grid.OnBeforeEdit = [&](int row, int col, bool&) { grid.Select({row, col}); };
  grid.UserBeginEdit();
  EXPECT_EQ(Open(), "old");
  grid.UserCancelEdit();
  grid.OnBeforeEdit = [&](int, int, bool&) { grid.Select({2, 1}); };
  grid.UserBeginEdit();
  EXPECT_EQ(Open(), "(none)");
}

TEST_F(GridEditTest, TheRuleBeforeMayTakeTheRowsAway) {
  grid.OnBeforeEdit = [&](int, int, bool&) { grid.Rows(1); };
  grid.UserBeginEdit();
  EXPECT_EQ(Open(), "(none)");
}

TEST_F(GridEditTest, TheRuleBeforeIsNotAskedAgainByAnEditOfItsOwn) {
  int asked = 0;
  grid.OnBeforeEdit = [&](int, int, bool&) {
    ++asked;
    grid.EditCell();
  };
  grid.UserBeginEdit();
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(Open(), "old");
}

TEST_F(GridEditTest, AnErrorInTheRuleBeforeLeavesTheGridUsable) {
  grid.OnBeforeEdit = [](int, int, bool&) { throw RuntimeError(ErrorNumber::NoObject); };
  EXPECT_THROW(grid.UserBeginEdit(), RuntimeError);
  EXPECT_EQ(Open(), "(none)");
  grid.OnBeforeEdit = nullptr;
  grid.UserBeginEdit();
  EXPECT_EQ(Open(), "old");
}

TEST_F(GridEditTest, TheRuleBeforeSetsTheChoicesOfItsOwnEditOnly) {
  grid.OnBeforeEdit = [&](int row, int, bool&) {
    if (row == 1) grid.ComboList("15|31||63");
  };
  grid.UserBeginEdit();
  EXPECT_THAT(grid.OpenEdit()->choices, ElementsAre("15", "31", "", "63"));
  EXPECT_EQ(Open(), "old");
  grid.UserSelect({2, 1});
  grid.UserBeginEdit();
  EXPECT_THAT(grid.OpenEdit()->choices, IsEmpty());
}

TEST_F(GridEditTest, ChoicesSetBeforeTheRuleIsAskedAreForgotten) {
  grid.ComboList("1|2");
  grid.UserBeginEdit();
  EXPECT_THAT(grid.OpenEdit()->choices, IsEmpty());
}

TEST_F(GridEditTest, InAListTypedTextIsTakenAsItIs) {
  grid.OnBeforeEdit = [&](int, int, bool&) { grid.ComboList("15|31"); };
  grid.OnKeyPressEdit = [](int, int, int& key) { key = 0; };
  grid.UserType("9x");
  EXPECT_EQ(Open(), "9x");
  EXPECT_EQ(grid.FilterTyped("ab\t"), "ab");
  grid.UserEndEdit();
  EXPECT_EQ(grid.Text({1, 1}), "9x");
}

TEST_F(GridEditTest, EachTypedCharacterPassesTheFilterWithItsCell) {
  std::vector<std::string> keys;
  grid.OnKeyPressEdit = [&](int row, int col, int& key) {
    keys.push_back(std::to_string(row) + " " + std::to_string(col) + " " + std::to_string(key));
    if (key == 'b') key = 0;
    if (key == 'c') key = 'C';
  };
  grid.UserType("abc\xE4");
  EXPECT_THAT(keys, ElementsAre("1 1 97", "1 1 98", "1 1 99", "1 1 228"));
  EXPECT_EQ(Open(), "aC\xE4");
}

TEST_F(GridEditTest, AnEditorWithACursorOfItsOwnAsksTheFilterAndTellsItsWholeText) {
  grid.OnKeyPressEdit = [](int, int, int& key) { key = key == '-' ? 0 : key; };
  grid.UserBeginEdit();
  EXPECT_EQ(grid.FilterTyped("1-2"), "12");
  EXPECT_EQ(Open(), "old");
  EXPECT_FALSE(grid.OpenEdit()->touched);
  grid.UserEditText("o12ld");
  EXPECT_EQ(Open(), "o12ld");
  EXPECT_TRUE(grid.OpenEdit()->touched);
}

TEST_F(GridEditTest, WithoutAnOpenEditThereIsNothingToFilterOrToTell) {
  EXPECT_EQ(grid.FilterTyped("x"), "");
  grid.UserEditText("x");
  grid.UserEndEdit();
  grid.UserCancelEdit();
  grid.EndPendingEdit();
  EXPECT_EQ(grid.Text({1, 1}), "old");
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(GridEditTest, TheFilterMayEndTheEdit) {
  grid.OnKeyPressEdit = [&](int, int, int&) { grid.UserCancelEdit(); };
  grid.UserType("abc");
  EXPECT_EQ(Open(), "(none)");
  EXPECT_EQ(grid.Text({1, 1}), "old");
}

TEST_F(GridEditTest, WhatIsTypedDoesNotComeIntoAnEditThatTheFilterOpensInstead) {
  grid.OnKeyPressEdit = [&](int, int, int&) {
    grid.UserCancelEdit();
    grid.Select({2, 1});
    grid.EditCell();
  };
  grid.UserType("a");
  ASSERT_NE(grid.OpenEdit(), nullptr);
  EXPECT_EQ(grid.OpenEdit()->cell, (Cell{2, 1}));
  EXPECT_EQ(Open(), "");
}

TEST_F(GridEditTest, TheEndPutsTheTextIntoTheCellAndThenRunsTheRule) {
  grid.OnAfterEdit = [&](int row, int col) {
    Write("after", row, col);
    EXPECT_EQ(grid.OpenEdit(), nullptr);
    EXPECT_EQ(grid.Text({row, col}), "new");
  };
  grid.UserType("new");
  EXPECT_EQ(grid.Text({1, 1}), "old");
  grid.UserEndEdit();
  EXPECT_THAT(events, ElementsAre("before 1 1", "after 1 1"));
  EXPECT_EQ(grid.Text({1, 1}), "new");
}

TEST_F(GridEditTest, TheRuleAfterRunsForAnUnchangedTextToo) {
  grid.UserBeginEdit();
  grid.UserEndEdit();
  EXPECT_THAT(events, ElementsAre("before 1 1", "after 1 1"));
}

TEST_F(GridEditTest, EscapeGivesUpWithoutTheRuleAfter) {
  grid.UserType("new");
  EXPECT_TRUE(grid.UserKey(Key::Escape));
  EXPECT_EQ(Open(), "(none)");
  EXPECT_EQ(grid.Text({1, 1}), "old");
  EXPECT_THAT(events, ElementsAre("before 1 1"));
}

TEST_F(GridEditTest, EnterEndsTheEditAndIsThenAKeyOfTheGrid) {
  grid.UserType("new");
  EXPECT_TRUE(grid.UserKey(Key::Enter));
  EXPECT_EQ(grid.Text({1, 1}), "new");
  EXPECT_THAT(events, ElementsAre("before 1 1", "after 1 1", "press 13"));
  EXPECT_EQ(grid.Current(), (Cell{1, 1}));
}

TEST_F(GridEditTest, EnterKeepsTheEditThatTheRuleAfterOpens) {
  grid.OnAfterEdit = [&](int row, int) {
    if (row == 1) {
      grid.Select({2, 1});
      grid.EditCell();
    }
  };
  grid.UserType("new");
  grid.UserKey(Key::Enter);
  ASSERT_NE(grid.OpenEdit(), nullptr);
  EXPECT_EQ(grid.OpenEdit()->cell, (Cell{2, 1}));
}

TEST_F(GridEditTest, EnterWithoutAnEditOpensTheCellWithItsText) {
  EXPECT_TRUE(grid.UserKey(Key::Enter));
  ASSERT_NE(grid.OpenEdit(), nullptr);
  EXPECT_EQ(grid.OpenEdit()->text, grid.Text(grid.Current()));
  EXPECT_EQ(events.front(), "press 13");
}

TEST_F(GridEditTest, ARuleThatSwallowsEnterKeepsTheCellClosed) {
  grid.OnKeyPress = [](int& key) { key = 0; };
  EXPECT_TRUE(grid.UserKey(Key::Enter));
  EXPECT_EQ(grid.OpenEdit(), nullptr);
}

TEST_F(GridEditTest, ARuleMaySwallowTabButNotItsWayBack) {
  const Cell before = grid.Current();
  grid.OnKeyPress = [](int& key) { key = 0; };
  grid.UserTab();
  EXPECT_EQ(grid.Current(), before);
  grid.Select({2, 1});
  grid.UserTab(true);
  EXPECT_NE(grid.Current(), (Cell{2, 1}));
}

TEST_F(GridEditTest, TheRuleOfEnterMaySwallowItAndMoveOn) {
  grid.OnKeyPress = [&](int& key) {
    key = 0;
    grid.MoveNext();
  };
  grid.UserType("new");
  grid.UserKey(Key::Enter);
  EXPECT_EQ(grid.Current(), (Cell{2, 1}));
  EXPECT_EQ(grid.Text({1, 1}), "new");
}

TEST_F(GridEditTest, DeleteBelongsToTheGridOnlyWithoutAnEdit) {
  EXPECT_TRUE(grid.UserKey(Key::Delete));
  EXPECT_THAT(events, ElementsAre("down 46"));
  grid.UserBeginEdit();
  events.clear();
  EXPECT_FALSE(grid.UserKey(Key::Delete));
  EXPECT_EQ(Open(), "old");
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(GridEditTest, OtherKeysMeanNothing) {
  for (const Key key : {Key::Back, Key::Tab, Key::Escape}) EXPECT_FALSE(grid.UserKey(key));
  grid.UserBeginEdit();
  for (const Key key : {Key::Back, Key::Tab, Key::F2}) EXPECT_FALSE(grid.UserKey(key));
  EXPECT_EQ(Open(), "old");
}

TEST_F(GridEditTest, EveryOtherGestureOfTheGridEndsTheEdit) {
  const std::vector<std::function<void()>> gestures = {[&] {
                                                         grid.UserPress(MouseButton::Left, {1, 1});
                                                       },
                                                       [&] {
                                                         grid.UserPress(MouseButton::Right, {2, 1});
                                                       },
                                                       [&] {
                                                         grid.UserPress(MouseButton::Left, {-1, 0});
                                                       },
                                                       [&] {
                                                         grid.UserSelect({1, 1});
                                                       },
                                                       [&] {
                                                         grid.UserDblClick({0, 1});
                                                       },
                                                       [&] { grid.UserTab(); },
                                                       [&] { other.UserFocus(); },
                                                       [&] { grid.EndPendingEdit(); }};
  for (std::size_t i = 0; i < gestures.size(); ++i) {
    grid.Select({1, 1});
    grid.UserType(std::to_string(i));
    gestures[i]();
    EXPECT_EQ(Open(), "(none)") << i;
    EXPECT_EQ(grid.Text({1, 1}), std::to_string(i));
  }
}

TEST_F(GridEditTest, ScrollingAndPointingLeaveTheEditOpen) {
  grid.UserBeginEdit();
  grid.UserScroll(2);
  grid.UserPointAt({2, 1});
  grid.UserColWidth(1, 500);
  EXPECT_EQ(Open(), "old");
}

TEST_F(GridEditTest, TheRuleAfterRunsOnceEvenWhenItEndsAllEdits) {
  int runs = 0;
  grid.OnAfterEdit = [&](int, int) {
    ++runs;
    form.EndPendingEdits();
    other.UserFocus();
  };
  grid.UserBeginEdit();
  form.EndPendingEdits();
  EXPECT_EQ(runs, 1);
}

TEST_F(GridEditTest, TheRuleAfterMayTakeTheRowsAway) {
  grid.OnAfterEdit = [&](int, int) { grid.Shape(1, 1, 1, 1); };
  grid.UserType("x");
  grid.UserSelect({2, 1});
  EXPECT_EQ(grid.Rows(), 1);
  EXPECT_EQ(grid.Current(), (Cell{0, 0}));
}

TEST_F(GridEditTest, AnErrorInTheRuleAfterLeavesTheEditEnded) {
  grid.OnAfterEdit = [](int, int) { throw RuntimeError(ErrorNumber::NoObject); };
  grid.UserType("x");
  EXPECT_THROW(grid.UserEndEdit(), RuntimeError);
  EXPECT_EQ(Open(), "(none)");
  EXPECT_EQ(grid.Text({1, 1}), "x");
}

TEST_F(GridEditTest, AnEditIsGivenUpWhenItsRowGoesOrMoves) {
  const std::vector<std::function<void()>> changes = {[&] { grid.Rows(1); }, [&] { grid.RemoveItem(1); },
                                                      [&] { grid.Shape(3, 3, 1, 1); }, [&] { grid.SortAscending(); }};
  for (std::size_t i = 0; i < changes.size(); ++i) {
    grid.Shape(3, 2, 1, 1);
    grid.UserBeginEdit();
    ASSERT_NE(grid.OpenEdit(), nullptr);
    events.clear();
    changes[i]();
    EXPECT_EQ(Open(), "(none)") << i;
    EXPECT_THAT(events, IsEmpty()) << i;
  }
}

TEST_F(GridEditTest, AnEditStaysOpenWhenARowBehindItGoesOrComes) {
  grid.UserBeginEdit();
  grid.RemoveItem(2);
  grid.AddItem("x");
  EXPECT_EQ(Open(), "old");
}

TEST_F(GridEditTest, TheViewIsToldOfTheEditAndOfTextsThatItDoesNotKnow) {
  GridRecord record;
  grid.Listen(&record);
  grid.UserBeginEdit();
  EXPECT_THAT(record.told, ElementsAre("edit"));
  grid.UserType("x");
  EXPECT_THAT(record.told, ElementsAre("edit", "edit"));
  grid.UserEditText("oldx!");
  EXPECT_THAT(record.told, ElementsAre("edit", "edit"));
  grid.UserEditText("a\tb");
  EXPECT_THAT(record.told, ElementsAre("edit", "edit", "edit"));
  record.told.clear();
  grid.UserEndEdit();
  EXPECT_THAT(record.told, ElementsAre("edit", "cell 1 1"));
  record.told.clear();
  grid.UserType("x");
  EXPECT_THAT(record.told, ElementsAre("edit", "edit"));
  record.told.clear();
  grid.UserCancelEdit();
  EXPECT_THAT(record.told, ElementsAre("edit"));
}

}  // namespace
}  // namespace tavrin
