#include "shell/TagGrid.h"

#include <memory>
#include <string>
#include <vector>

#include "support/ShellTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A device with three tags is on show.
class TagGridTest : public ShellTest {
 protected:
  TagGridTest() {
    Start();
    modMain::globals.gOPC = std::make_unique<cOPC>();
    device = &AddDevice(AddNetwork(NetworkType::Mpi, "Line"), "Press");
    AddTag("delta", "MB1");
    AddTag("Alpha", "MB3");
    AddTag("charlie", "MB2");
    ShowDevice();
  }

  void AddTag(const std::string& name, const std::string& data) {
    auto tag = std::make_unique<cTag>();
    tag->szTag(name);
    tag->szData(data);
    tag->szRW("RW");
    device->Tags().AddItem(std::move(tag));
  }
  void ShowDevice() { device->Show(window->vsgMPIDVC); }

  [[nodiscard]] Grid& Tags() { return window->vsgTags; }
  [[nodiscard]] ToolButton& Delete() { return window->Toolbar1.Buttons(kToolDelete); }
  /// Of column 1 or another, row 1 first.
  [[nodiscard]] std::vector<std::string> Column(int col = 1) {
    std::vector<std::string> cells;
    for (int row = 1; row < Tags().Rows(); ++row) cells.push_back(Tags().Text({row, col}));
    return cells;
  }
  void DoubleClickHeading(int col) {
    Tags().UserPress(MouseButton::Left, {0, col});
    Tags().UserDblClick({0, col});
  }

  cDevice* device = nullptr;
};

// ---- the current cell

TEST_F(TagGridTest, TheLabelShowsTheCurrentCellOfATagWhichCanBeDeleted) {
  Delete().Tag(kDeleteDevice);
  Tags().UserPress(MouseButton::Left, {2, 1});
  EXPECT_EQ(window->lblTags.Caption(), "Alpha");
  EXPECT_TRUE(Delete().Enabled());
  EXPECT_EQ(Delete().Tag(), kDeleteTags);
  Tags().UserSelect({3, 2});
  EXPECT_EQ(window->lblTags.Caption(), "MB2");
}

TEST_F(TagGridTest, TheEmptyLastRowHasNothingToShowOrDelete) {
  Tags().UserPress(MouseButton::Left, {3, 1});
  Tags().UserSelect({4, 1});
  EXPECT_EQ(window->lblTags.Caption(), "");
  EXPECT_FALSE(Delete().Enabled());
  Tags().UserSelect({3, 1});
  EXPECT_TRUE(Delete().Enabled());
}

TEST_F(TagGridTest, TheHeadingHasNothingToShowOrDelete) {
  Tags().UserPress(MouseButton::Left, {1, 1});
  Tags().Select({0, 1});
  EXPECT_EQ(window->lblTags.Caption(), "");
  EXPECT_FALSE(Delete().Enabled());
}

TEST_F(TagGridTest, FillingTheGridEmptiesTheLabelAndLeavesTheDeleteButtonToTheTree) {
  Tags().UserPress(MouseButton::Left, {1, 1});
  ASSERT_EQ(window->lblTags.Caption(), "delta");
  Delete().Tag(kDeleteDevice);
  Delete().Enabled(true);
  ShowDevice();
  EXPECT_EQ(window->lblTags.Caption(), "");
  EXPECT_TRUE(Delete().Enabled());
  EXPECT_EQ(Delete().Tag(), kDeleteDevice);
}

TEST_F(TagGridTest, AClickOnAnotherDeviceOffersToDeleteThatDevice) {
  AddDevice(Network(1), "Second");
  Project().ShowTVWStructure(window->tvwMain);
  window->tvwMain.UserPress(MouseButton::Left, window->tvwMain.Node("#1#1#1"));
  Tags().UserPress(MouseButton::Left, {2, 1});
  window->tvwMain.UserPress(MouseButton::Left, window->tvwMain.Node("#1#1#2"));
  EXPECT_TRUE(Delete().Enabled());
  EXPECT_EQ(Delete().Tag(), kDeleteDevice);
  EXPECT_EQ(window->lblTags.Caption(), "");
}

// ---- tool tip

TEST_F(TagGridTest, OverTheHeadingTheToolTipTellsOfTheSort) {
  Tags().UserPointAt({0, 3});
  EXPECT_EQ(Tags().ToolTip(), "#14");
  Tags().UserPointAt({1, 3});
  EXPECT_EQ(Tags().ToolTip(), "");
  Tags().UserPointAt({0, 1});
  EXPECT_EQ(Tags().ToolTip(), "#14");
  Tags().UserPointAt({-1, -1});
  EXPECT_EQ(Tags().ToolTip(), "");
}

// ---- focus

TEST_F(TagGridTest, WithTheKeyboardTheDeleteButtonMeansTags) {
  Delete().Tag(kDeleteDevice);
  Delete().Enabled(false);
  Tags().UserFocus();
  EXPECT_TRUE(Delete().Enabled());
  EXPECT_EQ(Delete().Tag(), kDeleteTags);
}

TEST_F(TagGridTest, WithoutTheKeyboardNothingCanBeDeletedAndTheTopRowIsCurrent) {
  Tags().UserPress(MouseButton::Left, {3, 2});
  Tags().UserScroll(2);
  window->vsgMPIDVC.UserFocus();
  EXPECT_EQ(Tags().Current(), (Cell{2, 1}));
  EXPECT_EQ(Tags().SelectionEnd(), (Cell{2, 1}));
  EXPECT_FALSE(Delete().Enabled());
  EXPECT_EQ(window->lblTags.Caption(), "Alpha");
}

TEST_F(TagGridTest, AGridThatIsHiddenLosesTheKeyboardWithoutHarm) {
  Tags().UserFocus();
  window->layout.GUI_Init();
  modMain::SetVisible(nullptr);
  EXPECT_FALSE(Delete().Enabled());
  EXPECT_THAT(Boxes(), IsEmpty());
}

// ---- where the next word belongs

TEST_F(TagGridTest, AfterARefusedValueEnterAndTabStayInTheCell) {
  Tags().UserPress(MouseButton::Left, {4, 1});
  Tags().UserType("Alpha");
  Tags().UserKey(Key::Enter);
  EXPECT_THAT(Boxes(), ElementsAre("#221 (Alpha)"));
  EXPECT_EQ(Tags().Current(), (Cell{4, 1}));
  Tags().UserType("delta");
  Tags().UserTab();
  EXPECT_EQ(Tags().Current(), (Cell{4, 1}));
  Tags().UserType("Echo");
  Tags().UserTab();
  EXPECT_EQ(Tags().Current(), (Cell{4, 2}));
}

TEST_F(TagGridTest, AfterARefusedRenameOrAccessTheCellStaysCurrent) {
  Tags().UserPress(MouseButton::Left, {1, 1});
  Tags().UserType("charlie");
  Tags().UserKey(Key::Enter);
  EXPECT_EQ(Tags().Current(), (Cell{1, 1}));
  Tags().UserSelect({1, 3});
  Tags().UserType("XX");
  Tags().UserKey(Key::Enter);
  EXPECT_EQ(Tags().Current(), (Cell{1, 3}));
  Tags().UserSelect({4, 3});
  Tags().UserType("XX");
  Tags().UserKey(Key::Enter);
  EXPECT_EQ(Tags().Current(), (Cell{4, 3}));
  EXPECT_EQ(Boxes().size(), 3U);
}

TEST_F(TagGridTest, EnterOnTheCommentOfANewTagGoesToTheNextName) {
  Tags().UserPress(MouseButton::Left, {4, 1});
  for (const char* text : {"Echo", "MB4", "RO"}) {
    Tags().UserType(text);
    Tags().UserTab();
  }
  Tags().UserSelect({4, 9});
  ASSERT_EQ(Tags().Rows(), 5);
  Tags().UserKey(Key::Enter);
  EXPECT_EQ(Tags().Rows(), 6);
  EXPECT_EQ(Tags().Current(), (Cell{5, 1}));
  EXPECT_EQ(Tags().OpenEdit(), nullptr);
}

TEST_F(TagGridTest, EnterOnTheCommentOfARowWithoutATagAddsNone) {
  Tags().UserPress(MouseButton::Left, {4, 9});
  Tags().UserKey(Key::Enter);
  EXPECT_EQ(Tags().Rows(), 5);
  EXPECT_EQ(Tags().Current(), (Cell{4, 9}));
}

TEST_F(TagGridTest, AClickAfterACommentDecidesWhereEnterGoesOn) {
  Tags().UserPress(MouseButton::Left, {1, 9});
  Tags().UserType("first");
  Tags().UserPress(MouseButton::Left, {2, 2});
  Tags().UserKey(Key::Enter);
  EXPECT_EQ(Tags().Current(), (Cell{2, 3}));
}

// ---- sort

TEST_F(TagGridTest, ADoubleClickOnTheHeadingSortsWithCaseAndKeepsTheEmptyRowLast) {
  Tags().UserSelect({1, 1});
  DoubleClickHeading(1);
  EXPECT_THAT(Column(), ElementsAre("Alpha", "charlie", "delta", ""));
  EXPECT_TRUE(Tags().Redraw());
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(TagGridTest, WholeRowsAreSorted) {
  Tags().UserSelect({1, 1});
  DoubleClickHeading(1);
  EXPECT_THAT(Column(2), ElementsAre("MB3", "MB2", "MB1", ""));
  EXPECT_THAT(Column(0), ElementsAre("Alpha", "charlie", "delta", ""));
}

TEST_F(TagGridTest, TheListKeepsItsOrderAndTheNextShowBringsItBack) {
  Tags().UserSelect({1, 1});
  DoubleClickHeading(1);
  std::vector<std::string> names;
  for (const cTag& tag : device->Tags()) names.emplace_back(tag.szTag());
  EXPECT_THAT(names, ElementsAre("delta", "Alpha", "charlie"));
  ShowDevice();
  EXPECT_THAT(Column(), ElementsAre("delta", "Alpha", "charlie", ""));
}

TEST_F(TagGridTest, KeysAreTheColumnsFromTheCurrentOneToTheClickedOne) {
  // From the hidden key column on, which is current after Show: the name decides.
  DoubleClickHeading(2);
  EXPECT_THAT(Column(), ElementsAre("Alpha", "charlie", "delta", ""));
  // From column 2 to column 2: the address decides.
  ShowDevice();
  Tags().UserSelect({1, 2});
  DoubleClickHeading(2);
  EXPECT_THAT(Column(), ElementsAre("delta", "charlie", "Alpha", ""));
  // From column 3, equal in all rows, back to column 1.
  ShowDevice();
  Tags().UserSelect({1, 3});
  DoubleClickHeading(1);
  EXPECT_THAT(Column(2), ElementsAre("MB1", "MB2", "MB3", ""));
}

TEST_F(TagGridTest, AfterTheSortRowOneIsCurrentOnTopAndShown) {
  Tags().UserPress(MouseButton::Left, {3, 2});
  Tags().UserScroll(3);
  DoubleClickHeading(2);
  EXPECT_EQ(Tags().Current(), (Cell{1, 2}));
  EXPECT_EQ(Tags().TopRow(), 1);
  EXPECT_EQ(window->lblTags.Caption(), "MB1");
  EXPECT_TRUE(Delete().Enabled());
}

TEST_F(TagGridTest, TheLabelFollowsTheSortAlsoInACellThatStaysCurrent) {
  Tags().UserPress(MouseButton::Left, {1, 1});
  ASSERT_EQ(window->lblTags.Caption(), "delta");
  DoubleClickHeading(1);
  EXPECT_EQ(window->lblTags.Caption(), "Alpha");
}

TEST_F(TagGridTest, ADoubleClickBelowTheHeadingSortsNothing) {
  Tags().UserSelect({1, 1});
  Tags().UserDblClick({2, 1});
  Tags().UserDblClick({-1, -1});
  EXPECT_THAT(Column(), ElementsAre("delta", "Alpha", "charlie", ""));
  EXPECT_TRUE(Tags().Redraw());
}

TEST_F(TagGridTest, WithTwoOpenRowsTheEmptyOneIsSortedAndAnotherIsAdded) {
  Tags().Text({4, 1}, "bravo");  // typed, but no tag yet
  Tags().AddItem("");
  Tags().UserSelect({1, 1});
  DoubleClickHeading(1);
  EXPECT_THAT(Column(), ElementsAre("", "Alpha", "bravo", "charlie", "delta", ""));
}

TEST_F(TagGridTest, WithoutTagsOnlyTheEmptyRowIsLeft) {
  for (const char* name : {"delta", "Alpha", "charlie"}) device->Tags().Remove(name);
  ShowDevice();
  DoubleClickHeading(1);
  EXPECT_EQ(Tags().Rows(), 2);
  EXPECT_TRUE(Tags().Redraw());
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(TagGridTest, AFailureIsToldAndDrawingGoesOn) {
  modMain::globals.gnCurrentDevice = 0;
  DoubleClickHeading(1);
  EXPECT_THAT(Boxes(),
              ElementsAre("#199 91 #200 frmOPC.vsgTags_DblClick : Object variable or With block variable not set"));
  EXPECT_TRUE(Tags().Redraw());
  EXPECT_THAT(Column(), ElementsAre("delta", "Alpha", "charlie", ""));
}

}  // namespace
}  // namespace tavrin
