// Every row of the eleven sheets, edited in the main window: what the user types reaches the object of the node.
#include "editing/SheetEditing.h"

#include <memory>
#include <string>
#include <vector>

#include "editing/ProjectState.h"
#include "editing/SheetRows.h"
#include "model/SettingTexts.h"
#include "support/ShellTest.h"

namespace tavrin {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

class SheetWindowTest : public ShellTest {
 protected:
  SheetWindowTest() { Start(); }

  /// Brings a sheet on show by a click on a new object of its kind, the only one of the project.
  Grid& Show(int sheet) {
    modMain::globals.gOPC = std::make_unique<cOPC>();
    Project().szFileName("ZOPCSRV.ini");
    Project().bDataDirty(false);
    std::string key = "#1";
    if (sheet >= RightPane::kFirstNetworkSheet) {
      const bool isDevice = sheet >= RightPane::kFirstDeviceSheet;
      const int first = isDevice ? RightPane::kFirstDeviceSheet : RightPane::kFirstNetworkSheet;
      cNetwork& network = AddNetwork(static_cast<NetworkType>(sheet - first), "Net");
      if (isDevice) AddDevice(network, "Dev");
      key += isDevice ? "#1#1" : "#1";
    }
    Window().tree.Rebuild();
    Click(key);
    Grid& grid = *Window().Sheets().at(static_cast<std::size_t>(sheet));
    EXPECT_TRUE(grid.Visible()) << grid.Name();
    return grid;
  }
  /// Of the object that the sheet shows.
  std::vector<std::string> State(int sheet) {
    if (sheet >= RightPane::kFirstDeviceSheet) return StateOf(Device(1, 1));
    return sheet >= RightPane::kFirstNetworkSheet ? StateOf(Network(1)) : Fields(Project().Settings());
  }
  /// Runs `play` for each row of each sheet that opens, with a new object each time.
  template <class Play>
  void ForEachRow(const Play& play) {
    for (int sheet = 0; sheet < kSheets; ++sheet) {
      int row = 0;
      for (const RowCase& expected : ExpectedRows(sheet)) {
        ++row;
        Grid& grid = Show(sheet);
        SCOPED_TRACE(grid.Name() + " " + std::string(expected.property));
        if (expected.editor != kClosed) play(sheet, grid, Cell{row, 1}, expected);
      }
    }
  }
};

TEST_F(SheetWindowTest, AnAcceptedTextReachesTheObjectAndMarksTheProject) {
  ForEachRow([this](int sheet, Grid& grid, Cell cell, const RowCase& expected) {
    Enter(grid, cell, expected.typed);
    EXPECT_THAT(Boxes(), IsEmpty());
    EXPECT_THAT(State(sheet), Contains(std::string(expected.property) + "=" + std::string(expected.shown)));
    EXPECT_EQ(grid.Text(cell), expected.shown);
    EXPECT_TRUE(Project().bOpcProjectDirty());
  });
}

TEST_F(SheetWindowTest, ARefusedTextIsToldAndTheObjectStays) {
  ForEachRow([this](int sheet, Grid& grid, Cell cell, const RowCase& expected) {
    const auto before = State(sheet);
    const bool dirty = Project().bOpcProjectDirty();
    const std::string shown = grid.Text(cell);
    Enter(grid, cell, expected.refused);
    const auto boxes = Boxes();
    EXPECT_EQ(boxes, expected.told.empty() ? std::vector<std::string>{} : std::vector{std::string(expected.told)});
    EXPECT_EQ(State(sheet), before);
    EXPECT_EQ(Project().bOpcProjectDirty(), dirty);
    EXPECT_EQ(grid.Text(cell), expected.keepsTyped ? expected.refused : shown);
    EXPECT_TRUE(grid.Focused());
    EXPECT_EQ(grid.Current(), cell);
  });
}

TEST_F(SheetWindowTest, ARefusedTextThatStaysIsGoneWithTheNextClickOnTheNode) {
  ForEachRow([this](int /*sheet*/, Grid& grid, Cell cell, const RowCase& expected) {
    if (!expected.keepsTyped) return;
    const std::string shown = grid.Text(cell);
    Enter(grid, cell, expected.refused);
    Click("#1#1#1");
    EXPECT_EQ(grid.Text(cell), shown);
  });
}

TEST_F(SheetWindowTest, EachRowTakesItsKeysAlone) {
  ForEachRow([](int /*sheet*/, Grid& grid, Cell cell, const RowCase& expected) {
    grid.UserPress(MouseButton::Left, cell);
    grid.UserType("7aZ._/!-;1");
    std::string passed;
    for (const char key : std::string_view("7aZ._/!-;1")) {
      if (expected.keys == "all" || expected.keys.find(key) != std::string_view::npos) passed += key;
    }
    ASSERT_NE(grid.OpenEdit(), nullptr);
    EXPECT_EQ(grid.OpenEdit()->text, passed);
    grid.UserKey(Key::Escape);
  });
}

TEST_F(SheetWindowTest, ARowThatIsOnlyShownNeverOpens) {
  for (int sheet = 0; sheet < kSheets; ++sheet) {
    int row = 0;
    for (const RowCase& expected : ExpectedRows(sheet)) {
      ++row;
      if (expected.editor != kClosed) continue;
      Grid& grid = Show(sheet);
      grid.UserPress(MouseButton::Left, {row, 1});
      grid.UserKey(Key::F2);
      grid.UserType("1");
      // What cannot be reached leaves the user on the first value that can.
      const bool opened = grid.OpenEdit() != nullptr && grid.OpenEdit()->cell.row == row;
      EXPECT_FALSE(opened) << grid.Name() << ' ' << expected.property;
    }
  }
}

TEST_F(SheetWindowTest, ADoubleClickOpensAValueInAllSheetsButThatOfTheProject) {
  ForEachRow([](int sheet, Grid& grid, Cell cell, const RowCase& /*expected*/) {
    grid.UserPress(MouseButton::Left, cell);
    grid.UserDblClick(cell);
    EXPECT_EQ(grid.OpenEdit() != nullptr, sheet != 0);
    grid.UserCancelEdit();
  });
}

TEST_F(SheetWindowTest, AnErrorIsToldUnderTheNameOfTheSheet) {
  for (int sheet = 0; sheet < kSheets; ++sheet) {
    Grid& grid = Show(sheet);
    const int last = grid.Rows() - 1;
    grid.UserPress(MouseButton::Left, {last, 1});
    grid.UserKey(Key::F2);
    modMain::globals.gOPC.reset();
    grid.UserKey(Key::Enter);
    EXPECT_THAT(Boxes(), ElementsAre(StartsWith("#199 91 #200 frmOPC." + grid.Name() + "_AfterEdit : ")));
  }
}

}  // namespace
}  // namespace tavrin
