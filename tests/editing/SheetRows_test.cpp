// Every row of every sheet by table: how its cell opens, what can be typed, what becomes of the text.
#include "editing/SheetRows.h"

#include <algorithm>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editing/ProjectState.h"
#include "editing/SheetEditingTest.h"
#include "model/SettingTexts.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string Joined(const std::vector<std::string>& choices) {
  std::string joined;
  for (const std::string& choice : choices) joined += (joined.empty() ? "" : "|") + choice;
  return joined;
}

/// Plays a case for each row of each sheet, with a new object each time.
class SheetRowsTest : public SheetEditingTest {
 protected:
  template <class Play>
  void ForEachRow(const Play& play) {
    for (int sheet = 0; sheet < kSheets; ++sheet) {
      int row = 0;
      for (const RowCase& expected : ExpectedRows(sheet)) {
        OpenSheet open = Show(sheet);
        SCOPED_TRACE(open.grid.Name() + " " + std::string(expected.property));
        play(open, ++row, expected);
      }
      EXPECT_EQ(pane.Sheets().at(static_cast<std::size_t>(sheet))->Rows(), row + 1) << sheet;
    }
  }
  template <class Play>
  void ForEachRowThatOpens(const Play& play) {
    ForEachRow([&](OpenSheet& open, int row, const RowCase& expected) {
      if (expected.editor != kClosed) play(open, row, expected);
    });
  }

  /// Of the object that a sheet shows.
  std::vector<std::string> State(const OpenSheet& open) {
    if (open.device != nullptr) return StateOf(*open.device);
    return open.network != nullptr ? StateOf(*open.network) : Fields(Project().Settings());
  }
  std::string Value(const OpenSheet& open, std::string_view property) {
    const std::string start = std::string(property) + "=";
    for (const std::string& line : State(open)) {
      if (line.compare(0, start.size(), start) == 0) return line.substr(start.size());
    }
    return "(no such property)";
  }
  bool Dirty(const OpenSheet& open) {
    if (open.device != nullptr) return open.device->bDataDirty();
    return open.network != nullptr ? open.network->bDataDirty() : Project().bDataDirty();
  }
};

TEST_F(SheetRowsTest, ARowOpensAsATextBoxAsAListOrNotAtAll) {
  ForEachRow([](OpenSheet& open, int row, const RowCase& expected) {
    open.grid.UserSelect({row, 1});
    open.grid.UserBeginEdit();
    const Grid::Edit* const edit = open.grid.OpenEdit();
    ASSERT_EQ(edit == nullptr, expected.editor == kClosed);
    if (edit == nullptr) return;
    EXPECT_EQ(Joined(edit->choices), expected.editor == kTextBox ? "" : expected.editor);
    EXPECT_EQ(edit->text, open.grid.Text({row, 1}));
    open.grid.UserCancelEdit();
  });
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(SheetRowsTest, ARowShowsItsProperty) {
  ForEachRow([this](OpenSheet& open, int row, const RowCase& expected) {
    EXPECT_EQ(open.grid.Text({row, 1}), Value(open, expected.property));
  });
}

TEST_F(SheetRowsTest, OnlyTheCharactersOfTheRowCanBeTypedOrPasted) {
  ForEachRowThatOpens([](OpenSheet& open, int row, const RowCase& expected) {
    const std::string_view keys = expected.keys == "all" ? AllKeys() : expected.keys;
    Type(open.grid, row, AllKeys());
    EXPECT_EQ(open.grid.OpenEdit()->text, keys);
    EXPECT_EQ(open.grid.FilterTyped(AllKeys()), keys);
    open.grid.UserCancelEdit();
  });
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(SheetRowsTest, ATextThatIsTakenReachesThePropertyAndItsNormalFormTheCell) {
  ForEachRowThatOpens([this](OpenSheet& open, int row, const RowCase& expected) {
    const auto before = State(open);
    Enter(open.grid, row, expected.typed);
    EXPECT_THAT(Boxes(), IsEmpty());
    EXPECT_EQ(Value(open, expected.property), expected.shown);
    EXPECT_EQ(open.grid.Text({row, 1}), expected.shown);
    EXPECT_TRUE(Dirty(open));
    EXPECT_NE(State(open), before);
  });
}

TEST_F(SheetRowsTest, NoOtherRowOfTheSheetChanges) {
  ForEachRowThatOpens([](OpenSheet& open, int row, const RowCase& expected) {
    std::vector<std::string> before = Column(open.grid, 1);
    Enter(open.grid, row, expected.typed);
    before.at(static_cast<std::size_t>(row) - 1) = expected.shown;
    EXPECT_EQ(Column(open.grid, 1), before);
  });
}

TEST_F(SheetRowsTest, ATextThatIsRefusedIsToldAndChangesNothing) {
  ForEachRowThatOpens([this](OpenSheet& open, int row, const RowCase& expected) {
    const auto before = State(open);
    const std::string shown = open.grid.Text({row, 1});
    Enter(open.grid, row, expected.refused);
    if (expected.told.empty()) {
      EXPECT_THAT(Boxes(), IsEmpty());
    } else {
      EXPECT_THAT(Boxes(), ElementsAre(expected.told));
    }
    EXPECT_EQ(State(open), before);
    EXPECT_FALSE(Dirty(open));
    EXPECT_EQ(open.grid.Text({row, 1}), expected.keepsTyped ? expected.refused : shown);
  });
}

TEST_F(SheetRowsTest, ARefusedTextThatStaysInItsCellGoesWithTheNextShow) {
  int kept = 0;
  ForEachRowThatOpens([&](OpenSheet& open, int row, const RowCase& expected) {
    if (!expected.keepsTyped) return;
    ++kept;
    const std::string shown = open.grid.Text({row, 1});
    Enter(open.grid, row, expected.refused);
    open.device->Show(open.grid);
    EXPECT_EQ(open.grid.Text({row, 1}), shown);
  });
  EXPECT_EQ(kept, 3);
  EXPECT_EQ(Boxes().size(), 3U);
}

TEST_F(SheetRowsTest, AnEditThatIsGivenUpRunsNoRule) {
  ForEachRowThatOpens([this](OpenSheet& open, int row, const RowCase& expected) {
    const std::string shown = open.grid.Text({row, 1});
    Type(open.grid, row, expected.refused);
    EXPECT_TRUE(open.grid.UserKey(Key::Escape));
    Type(open.grid, row, expected.typed);
    EXPECT_TRUE(open.grid.UserKey(Key::Escape));
    EXPECT_EQ(open.grid.Text({row, 1}), shown);
    EXPECT_FALSE(Dirty(open));
  });
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(SheetRowsTest, AClosedRowOpensByNoGesture) {
  int closed = 0;
  ForEachRow([&](OpenSheet& open, int row, const RowCase& expected) {
    if (expected.editor != kClosed) return;
    ++closed;
    open.grid.UserSelect({row, 1});
    open.grid.UserType("x");
    open.grid.UserKey(Key::F2);
    open.grid.UserPress(MouseButton::Left, {row, 1});
    open.grid.UserDblClick({row, 1});
    EXPECT_EQ(open.grid.OpenEdit(), nullptr);
    EXPECT_FALSE(Dirty(open));
  });
  EXPECT_EQ(closed, 1 + 5 * 2 + 5);
}

TEST_F(SheetRowsTest, EachChoiceOfAListIsTaken) {
  ForEachRowThatOpens([this](OpenSheet& open, int row, const RowCase& expected) {
    if (expected.editor == kTextBox) return;
    open.grid.UserSelect({row, 1});
    open.grid.UserBeginEdit();
    const std::vector<std::string> choices = open.grid.OpenEdit()->choices;
    open.grid.UserCancelEdit();
    for (const std::string& choice : choices) {
      open.grid.UserBeginEdit();
      open.grid.UserEditText(choice);
      open.grid.UserKey(Key::Enter);
      EXPECT_EQ(Value(open, expected.property), choice);
      EXPECT_EQ(open.grid.Text({row, 1}), choice);
    }
  });
  // The own number 30 lies above the lowest of the highest numbers.
  EXPECT_THAT(Boxes(), ElementsAre("#236"));
}

}  // namespace
}  // namespace tavrin
