// What a user does in the tag grid of the main window: typing, keys, mouse, deletion, sort with open rows.
#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "shell/TagGrid.h"
#include "support/ShellTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

/// A device with the tags A, B and C is selected in the tree; everything is clean.
class TagEditingTest : public ShellTest {
 protected:
  TagEditingTest() {
    Start();
    OpenDevice(NetworkType::Mpi);
  }

  void OpenDevice(NetworkType type) {
    modMain::globals.gOPC = std::make_unique<cOPC>();
    modMain::globals.gszProjectDir = directory.Path();
    Project().szFileName("ZOPCSRV.ini");
    Project().bDataDirty(false);
    AddDevice(AddNetwork(type, "Line"), "Press");
    for (const char* name : {"A", "B", "C"}) {
      auto tag = std::make_unique<cTag>();
      tag->szTag(name);
      tag->szData("MB1");
      tag->szRW("RW");
      tag->bDataDirty(false);
      EXPECT_TRUE(Device(1, 1).Tags().AddItem(std::move(tag)));
    }
    Device(1, 1).bDataDirty(false);
    Window().tree.Rebuild();
    Click("#1#1#1");
  }
  [[nodiscard]] Grid& Tags() { return Window().vsgTags; }
  [[nodiscard]] ToolButton& Delete() { return Window().Toolbar1.Buttons(kToolDelete); }
  [[nodiscard]] int LastRow() { return Tags().Rows() - 1; }
  /// A row's cells from the name on, joined by "|".
  [[nodiscard]] std::string Row(int row) {
    std::string line = Tags().Text({row, 1});
    for (int col = 2; col < Tags().Cols(); ++col) line += "|" + Tags().Text({row, col});
    return line;
  }
  [[nodiscard]] std::vector<std::string> Names() {
    std::vector<std::string> names;
    for (const cTag& tag : Device(1, 1).Tags()) names.emplace_back(tag.szTag());
    return names;
  }
  [[nodiscard]] std::vector<std::string> Keys() {
    std::vector<std::string> keys;
    for (int row = 1; row < Tags().Rows(); ++row) keys.push_back(Tags().Text({row, 0}));
    return keys;
  }
  void Point(Cell cell) { Tags().UserPress(MouseButton::Left, cell); }
  void EnterKey() { Tags().UserKey(Key::Enter); }
  void DoubleClickHeading(int col) {
    Point({0, col});
    Tags().UserDblClick({0, col});
  }
  /// The columns that Enter or Tab visits from the name of row 1 on, up to the next row.
  template <class Press>
  std::vector<int> Walk(const Press& press) {
    std::vector<int> visited;
    for (Point({1, 1}); Tags().Row() == 1 && visited.size() < 20; press()) visited.push_back(Tags().Col());
    EXPECT_EQ(Tags().Current(), (Cell{2, 1}));
    return visited;
  }
};

// ---- the edit

TEST_F(TagEditingTest, BeginningAnEditSwitchesDeletingOffAndSelectsTheCellAlone) {
  Point({1, 1});
  Tags().UserSelect({1, 1}, {3, 4});
  ASSERT_TRUE(Delete().Enabled());
  Tags().UserKey(Key::F2);
  ASSERT_NE(Tags().OpenEdit(), nullptr);
  EXPECT_FALSE(Delete().Enabled());
  EXPECT_EQ(Tags().Current(), (Cell{1, 1}));
  EXPECT_EQ(Tags().SelectionEnd(), (Cell{1, 1}));
}

TEST_F(TagEditingTest, ACommaCannotBeTypedIntoACommentAndASemicolonCan) {
  Enter(Tags(), {1, 9}, "a,b;c,");
  EXPECT_EQ(Tags().Text({1, 9}), "ab;c");
  for (int col = 4; col <= 8; ++col) {
    Enter(Tags(), {1, col}, "x,1e+");
    EXPECT_EQ(Tags().Text({1, col}), "x,1e+") << col;
  }
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(TagEditingTest, TheLabelShowsWhatTheEditHasLeft) {
  Point({1, 2});
  Tags().UserType("mb7");
  Tags().EndPendingEdit();
  EXPECT_EQ(Window().lblTags.Caption(), "mb7");
}

TEST_F(TagEditingTest, AnErrorBehindAnEditIsToldUnderTheNameOfTheEvent) {
  Point({1, 2});
  Tags().UserType("MB9");
  modMain::globals.gnCurrentDevice = 0;
  EnterKey();
  EXPECT_THAT(Boxes(), ElementsAre(StartsWith("#199 91 #200 frmOPC.vsgTags_AfterEdit : ")));
  EXPECT_EQ((*Device(1, 1).Tags().begin()).szData(), "MB1");
}

TEST_F(TagEditingTest, ADoubleClickBelowTheHeadingOpensTheCell) {
  Point({2, 2});
  Tags().UserDblClick({2, 2});
  ASSERT_NE(Tags().OpenEdit(), nullptr);
  EXPECT_EQ(Tags().OpenEdit()->cell, (Cell{2, 2}));
  EXPECT_EQ(Tags().OpenEdit()->text, "MB1");
  Tags().UserKey(Key::Escape);
  Tags().UserDblClick({-1, -1});
  EXPECT_EQ(Tags().OpenEdit(), nullptr) << "beside all cells there is nothing to open";
}

// ---- where Enter and Tab go

TEST_F(TagEditingTest, EnterAndTabGoFromCellToCellPastTheHiddenColumns) {
  const std::vector<int> shown{1, 2, 3, 8, 9};
  EXPECT_EQ(Walk([this] { EnterKey(); }), shown);
  EXPECT_EQ(Walk([this] { Tags().UserTab(); }), shown);
  OpenDevice(NetworkType::TcpIpk);
  const std::vector<int> withHysteresis{1, 2, 3, 4, 5, 8, 9};
  EXPECT_EQ(Walk([this] { EnterKey(); }), withHysteresis);
  EXPECT_EQ(Walk([this] { Tags().UserTab(); }), withHysteresis);
  EXPECT_FALSE(Project().bOpcProjectDirty()) << "walking changes nothing";
}

TEST_F(TagEditingTest, EnterAndTabEndAnEditAndGoOnToTheNextCell) {
  const std::array<std::function<void()>, 2> ways{[this] { EnterKey(); }, [this] { Tags().UserTab(); }};
  for (const auto& press : ways) {
    Point({1, 3});
    Tags().UserType("RO");
    press();
    EXPECT_EQ(Tags().OpenEdit(), nullptr);
    EXPECT_EQ(Tags().Text({1, 3}), "RO");
    EXPECT_EQ(Tags().Current(), (Cell{1, 8}));
  }
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(TagEditingTest, BehindACommentEnterAndTabGoToTheNameOfANewTag) {
  Point({1, 9});
  Tags().UserType("one");
  EnterKey();
  EXPECT_EQ(Tags().Current(), (Cell{4, 1}));
  Point({2, 9});
  Tags().UserType("two");
  Tags().UserTab();
  EXPECT_EQ(Tags().Current(), (Cell{4, 1}));
  EXPECT_EQ(Tags().Rows(), 5) << "the empty row is there already";
  EXPECT_EQ(Tags().Text({1, 9}) + Tags().Text({2, 9}), "onetwo");
}

TEST_F(TagEditingTest, AnyOtherEndOfACommentLeavesTheCursorOnTheLastTag) {
  Point({1, 9});
  Tags().UserType("one");
  Window().mnuMain(3).UserOpen();
  EXPECT_EQ(Tags().Current(), (Cell{3, 1}));
  EXPECT_EQ(Tags().Text({1, 9}), "one");
  Point({2, 2});
  EnterKey();
  EXPECT_EQ(Tags().Current(), (Cell{2, 3})) << "the click has ended what the comment has left";
}

TEST_F(TagEditingTest, ACommentThatIsGivenUpLeavesTheCursorThere) {
  Point({1, 9});
  Tags().UserType("one");
  Tags().UserKey(Key::Escape);
  EXPECT_EQ(Tags().Current(), (Cell{1, 9}));
  EnterKey();
  EXPECT_EQ(Tags().Current(), (Cell{2, 1}));
}

// ---- mouse

TEST_F(TagEditingTest, ARightPressOnARowMakesItCurrentAndOpensTheMenuOfTheTags) {
  Point({1, 1});
  std::vector<const MenuEntry*> opened;
  desktop.OnPopup = [&](const MenuEntry& menu) {
    opened.push_back(&menu);
    EXPECT_EQ(Tags().Current(), (Cell{2, 2}));
    EXPECT_EQ(Window().lblTags.Caption(), "MB1");
  };
  Tags().UserPress(MouseButton::Right, {2, 2});
  EXPECT_THAT(opened, ElementsAre(&Window().mnuMain(5)));
}

TEST_F(TagEditingTest, NoMenuOpensOnTheHeadingBesideTheRowsOrForTheLeftButton) {
  desktop.OnPopup = [](const MenuEntry& menu) { ADD_FAILURE() << menu.Name(); };
  Point({2, 2});
  Tags().UserPress(MouseButton::Right, {0, 1});
  Tags().UserPress(MouseButton::Right, {-1, -1});
  EXPECT_EQ(Tags().Current(), (Cell{2, 2})) << "and the current cell stays";
  for (int row = 0; row < Tags().Rows(); ++row) Point({row, 1});
}

// ---- deletion

TEST_F(TagEditingTest, TheDeleteKeyDeletesTheSelectedTagsAfterAYes) {
  Tags().UserSelect({2, 1}, {3, 1});
  ASSERT_TRUE(Delete().Enabled());
  desktop.AnswerNext(true);
  Tags().UserKey(Key::Delete);
  EXPECT_THAT(desktop.Questions(), ElementsAre("#24"));
  EXPECT_THAT(Names(), ElementsAre("A"));
  EXPECT_THAT(Keys(), ElementsAre("A", ""));
  EXPECT_TRUE(Device(1, 1).bDataDirty());
  EXPECT_FALSE(Delete().Enabled());
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(TagEditingTest, AfterANoAllTagsStay) {
  Tags().UserSelect({1, 1}, {3, 1});
  desktop.AnswerNext(false);
  Tags().UserKey(Key::Delete);
  EXPECT_THAT(Names(), ElementsAre("A", "B", "C"));
  EXPECT_THAT(Keys(), ElementsAre("A", "B", "C", ""));
  EXPECT_FALSE(Project().bOpcProjectDirty());
  EXPECT_FALSE(Delete().Enabled());
}

TEST_F(TagEditingTest, TheDeleteButtonDeletesTheSelectedTags) {
  modMain::globals.gbQueryOnDelete = false;
  Point({2, 1});
  Delete().UserClick();
  EXPECT_THAT(Names(), ElementsAre("A", "C"));
  EXPECT_FALSE(Delete().Enabled());
  EXPECT_THAT(desktop.Questions(), IsEmpty());
}

TEST_F(TagEditingTest, TheDeleteKeyInAnOpenCellDeletesNoTag) {
  Point({2, 1});
  Tags().UserKey(Key::F2);
  Tags().UserKey(Key::Delete);
  EXPECT_NE(Tags().OpenEdit(), nullptr);
  EXPECT_THAT(desktop.Questions(), IsEmpty());
  EXPECT_THAT(Names(), ElementsAre("A", "B", "C"));
}

// ---- what is refused in a new row

struct RefusedRow {
  int col;
  int result;  ///< of the server's check; 0 for the access, which it does not know
  const char* typed;
  const char* box;
};
class RefusedInNewRowTest : public TagEditingTest, public testing::WithParamInterface<RefusedRow> {};

TEST_P(RefusedInNewRowTest, IsToldAndItsCellIsEmptiedAndTheRestOfTheRowStays) {
  Enter(Tags(), {4, 9}, "kept");
  const int row = 4;
  syntax.tagName = [](std::string& /*name*/) { return GetParam().result; };
  syntax.source = [](std::string& /*source*/, std::int32_t /*type*/, std::int32_t /*plc*/) {
    return GetParam().result;
  };
  Enter(Tags(), {row, GetParam().col}, GetParam().typed);
  EXPECT_THAT(Boxes(), ElementsAre(GetParam().box));
  EXPECT_EQ(Row(row), "||||||||kept");
  EXPECT_EQ(Tags().Current(), (Cell{row, GetParam().col})) << "where it is to be mended";
  EXPECT_THAT(Names(), ElementsAre("A", "B", "C"));
  EXPECT_FALSE(Project().bOpcProjectDirty());
}

INSTANTIATE_TEST_SUITE_P(Rows, RefusedInNewRowTest,
                         testing::Values(RefusedRow{1, 1, "x", "#225"}, RefusedRow{1, 2, "x", "#224"},
                                         RefusedRow{1, 3, "x", "#223"}, RefusedRow{1, 0, "b", "#221 (b)"},
                                         RefusedRow{2, 1, "x", "#228"}, RefusedRow{2, 2, "x", "#226"},
                                         RefusedRow{2, 3, "x", "#227"}, RefusedRow{3, 0, "WO", "#204 RO / RW"},
                                         RefusedRow{3, 0, "", "#204 RO / RW"}));

TEST_F(TagEditingTest, ARefusedAccessThatCompletesTheRowIsToldTwiceAndEmptiesIt) {
  Enter(Tags(), {4, 1}, "D");
  Enter(Tags(), {4, 2}, "MB4");
  Enter(Tags(), {4, 8}, "SIM");
  Enter(Tags(), {4, 3}, "WO");
  EXPECT_THAT(Boxes(), ElementsAre("#204 RO / RW", "#204 RO / RW"));
  EXPECT_EQ(Row(4), "||||||||");
  EXPECT_THAT(Keys(), ElementsAre("A", "B", "C", ""));
  EXPECT_THAT(Names(), ElementsAre("A", "B", "C"));
}

// ---- sort with open rows

TEST_F(TagEditingTest, ASortOfAnEmptyListChangesNothing) {
  modMain::globals.gbQueryOnDelete = false;
  Tags().UserSelect({1, 1}, {3, 1});
  Tags().UserKey(Key::Delete);
  for (const Cell cell : {Cell{1, 1}, Cell{1, 3}}) {
    Point(cell);
    DoubleClickHeading(2);
    EXPECT_EQ(Tags().Rows(), 2);
    EXPECT_EQ(Tags().Current(), cell);
    EXPECT_EQ(Tags().SelectionEnd(), cell);
    EXPECT_TRUE(Tags().Redraw());
  }
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(TagEditingTest, ASortKeepsEachTagAlsoWithAnOpenRowAmongThemAndATagInTheLastRow) {
  Enter(Tags(), {4, 9}, "no tag yet");
  Enter(Tags(), {5, 1}, "a0");
  Enter(Tags(), {5, 2}, "MB5");
  Enter(Tags(), {5, 3}, "RO");
  ASSERT_THAT(Keys(), ElementsAre("A", "B", "C", "", "a0"));
  Point({1, 1});
  DoubleClickHeading(1);
  EXPECT_THAT(Keys(), ElementsAre("", "A", "B", "C", "a0", ""));
  EXPECT_EQ(Row(1), "||||||||no tag yet");
  Enter(Tags(), {5, 2}, "MB6");
  EXPECT_EQ(Device(1, 1).Tags().Tag("a0")->szData(), "MB6");
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(TagEditingTest, ASortKeepsWhatIsTypedInTheLastRow) {
  Enter(Tags(), {4, 1}, "Bb");
  Point({1, 1});
  DoubleClickHeading(1);
  EXPECT_THAT(Keys(), ElementsAre("A", "B", "", "C", ""));
  EXPECT_EQ(Tags().Text({3, 1}), "Bb");
}

TEST_F(TagEditingTest, AClickOnTheCurrentCellEndsTheWayToTheNextName) {
  Enter(Tags(), {3, 8}, "SIM");
  Tags().UserPress(MouseButton::Left, {3, 9});
  Tags().UserType("last");
  Window().EndPendingEdits();
  const Cell last = Tags().Current();
  EXPECT_EQ(last, (Cell{3, 1}));
  Tags().UserPress(MouseButton::Left, last);
  Tags().UserKey(Key::Enter);
  EXPECT_EQ(Tags().Current(), (Cell{3, 2}));
}

// ---- a whole list

TEST_F(TagEditingTest, FiftyTagsAreTypedByTheKeyboardAloneAndSaved) {
  modMain::globals.gbQueryOnDelete = modMain::globals.gbQueryOnSave = false;
  Tags().UserFocus();
  Tags().UserSelect({1, 1}, {3, 1});
  Tags().UserKey(Key::Delete);
  Tags().UserSelect({1, 1});
  std::string file;
  for (int i = 0; i < 50; ++i) {
    const std::string number = std::to_string(i);
    const bool tab = i % 2 != 0;
    const auto goOn = [&] {
      if (tab) return Tags().UserTab();
      EnterKey();
    };
    for (const std::string& word : {"T" + number, "mb" + number, std::string(tab ? "rw" : "RO")}) {
      Tags().UserType(word);
      goOn();
    }
    goOn();  // past the simulation
    if (i % 3 == 0) Tags().UserType("note " + number);
    goOn();
    ASSERT_EQ(Tags().Current(), (Cell{i + 2, 1})) << "where the next name belongs";
    file += "T" + number + ";MB" + number + (tab ? ";RW" : ";RO") + (i % 3 == 0 ? ";CMT=note " + number : "") + "\r\n";
  }
  Window().mnuFile(3).UserShortcut();
  EXPECT_THAT(Boxes(), IsEmpty());
  EXPECT_EQ(directory.Read("Press.csv"), file);
  EXPECT_FALSE(Project().bOpcProjectDirty());
}

}  // namespace
}  // namespace tavrin
