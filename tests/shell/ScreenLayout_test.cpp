#include "shell/ScreenLayout.h"

#include <string>
#include <vector>

#include <fmt/format.h>

#include "support/ShellTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string Shown(const Rect& place) {
  return fmt::format("{} {} {} {}", place.left, place.top, place.width, place.height);
}

/// What is expected of one property sheet.
struct Sheet {
  std::string name;
  int rows;
  int fixedRows;
  std::vector<std::string> labels;
};

const std::vector<Sheet> kSheets{
    {"vsgOPC", 6, 2, {"#100", "#103", "#290", "#291", "#294"}},
    {"vsgMPINW", 9, 3, {"#107", "#100", "#111", "#112", "#113", "#114", "#115", "#120"}},
    {"vsgH1NW", 6, 3, {"#107", "#100", "#127", "#123", "#115"}},
    {"vsgTCPISONW", 4, 3, {"#107", "#100", "#131"}},
    {"vsgTCPRWNW", 4, 3, {"#107", "#100", "#131"}},
    {"vsgTCPIPKNW", 4, 3, {"#107", "#100", "#131"}},
    {"vsgMPIDVC", 5, 2, {"#106", "#126", "#130", "#136"}},
    {"vsgH1DVC", 9, 2, {"#106", "#108", "#121", "#122", "#123", "#124", "#130", "#136"}},
    {"vsgTCPISODVC", 9, 2, {"#106", "#140", "#125", "#130", "#115", "#136", "#295", "#297"}},
    {"vsgTCPRWDVC", 12, 2, {"#106", "#108", "#132", "#134", "#125", "#133", "#135", "#130", "#136", "#293", "#295"}},
    {"vsgTCPIPKDVC", 10, 2, {"#106", "#108", "#132", "#134", "#125", "#133", "#135", "#130", "#136"}},
};

class ScreenLayoutTest : public ShellTest {
 protected:
  ScreenLayoutTest() { Start(); }

  void Resize(float width, float height) { window->UserPlace({500, 500, width, height}); }
  /// Presses a bar, moves the pointer by the distance, lets go.
  static void DragBy(Picture& bar, float x, float y) {
    bar.UserPress(0, 0);
    bar.UserMove(x, y);
    bar.UserRelease(x, y);
  }
};

// ---- shape

TEST_F(ScreenLayoutTest, SheetsHaveTheirRowsFixedRowsAndLabels) {
  const auto sheets = window->Sheets();
  ASSERT_EQ(sheets.size(), kSheets.size());
  for (std::size_t i = 0; i < kSheets.size(); ++i) {
    const Grid& grid = *sheets[i];
    SCOPED_TRACE(kSheets[i].name);
    EXPECT_EQ(grid.Name(), kSheets[i].name);
    EXPECT_EQ(grid.Rows(), kSheets[i].rows);
    EXPECT_EQ(grid.FixedRows(), kSheets[i].fixedRows);
    std::vector<std::string> labels;
    for (int row = 1; row < grid.Rows(); ++row) labels.push_back(grid.Text({row, 0}));
    EXPECT_EQ(labels, kSheets[i].labels);
  }
}

TEST_F(ScreenLayoutTest, EverySheetHasAFixedColumnOfLabelsAndOneOfValues) {
  for (const Grid* sheet : window->Sheets()) {
    SCOPED_TRACE(sheet->Name());
    EXPECT_EQ(sheet->Cols(), 2);
    EXPECT_EQ(sheet->FixedCols(), 1);
    EXPECT_EQ(sheet->ColWidth(0), 3600);
    EXPECT_EQ(sheet->ColWidth(1), 1200);
    EXPECT_EQ(sheet->Text({0, 0}), "#2");
    EXPECT_EQ(sheet->Text({0, 1}), "#3");
    EXPECT_TRUE(sheet->Redraw());
  }
}

TEST_F(ScreenLayoutTest, TheTagGridHasItsHeadingAndItsAlignments) {
  const Grid& tags = window->vsgTags;
  EXPECT_EQ(tags.Rows(), 1);
  EXPECT_EQ(tags.Cols(), 10);
  EXPECT_EQ(tags.FixedRows(), 1);
  EXPECT_EQ(tags.FixedCols(), 1);
  EXPECT_TRUE(tags.Redraw());
  for (const int col : {1, 2, 9}) EXPECT_EQ(tags.ColAlignment(col), Alignment::Left) << col;
  for (const int col : {4, 5, 6, 7, 8}) EXPECT_EQ(tags.ColAlignment(col), Alignment::Right) << col;
}

TEST_F(ScreenLayoutTest, TheWarningsGridHasThreeFreeColumns) {
  const Grid& warnings = window->vsgWarnings;
  EXPECT_EQ(warnings.Rows(), 1);
  EXPECT_EQ(warnings.Cols(), 3);
  EXPECT_EQ(warnings.FixedRows(), 1);
  EXPECT_EQ(warnings.FixedCols(), 0);
  EXPECT_EQ(warnings.ColWidth(0), 900);
  EXPECT_EQ(warnings.ColWidth(1), 2000);
  EXPECT_TRUE(warnings.Redraw());
}

TEST_F(ScreenLayoutTest, GuiInitSetsShapesBackAndKeepsTheThirdWidthOfTheWarnings) {
  window->vsgTCPRWDVC.Rows(3);
  window->vsgTags.AddItem("T1\tT1");
  window->vsgOPC.ColWidth(0, 10);
  window->vsgWarnings.ColWidth(0, 10);
  window->vsgWarnings.ColWidth(2, 4321);
  window->vsgTags.ColAlignment(1, Alignment::Right);
  window->vsgTags.ColAlignment(2, Alignment::Right);
  window->vsgTags.ColAlignment(9, Alignment::Right);
  window->layout.GUI_Init();
  for (const int col : {1, 2, 9}) EXPECT_EQ(window->vsgTags.ColAlignment(col), Alignment::Left) << col;
  EXPECT_EQ(window->vsgTCPRWDVC.Rows(), 12);
  EXPECT_EQ(window->vsgTCPRWDVC.Text({11, 0}), "#295");
  EXPECT_EQ(window->vsgTags.Rows(), 1);
  EXPECT_EQ(window->vsgOPC.ColWidth(0), 3600);
  EXPECT_EQ(window->vsgWarnings.ColWidth(0), 900);
  EXPECT_EQ(window->vsgWarnings.ColWidth(2), 4321);
}

TEST_F(ScreenLayoutTest, GuiInitSwitchesTheEditMenuAndTheDeleteButtonOff) {
  for (int index = 1; index <= 5; ++index) window->mnuEdit(index).Enabled(true);
  window->mnuEdit(6).Visible(true);
  window->Toolbar1.Buttons(kToolDelete).Enabled(true);
  window->tvwMain.Indentation(1);
  window->layout.GUI_Init();
  for (int index = 1; index <= 5; ++index) EXPECT_FALSE(window->mnuEdit(index).Enabled()) << index;
  EXPECT_FALSE(window->mnuEdit(6).Visible());
  EXPECT_FALSE(window->Toolbar1.Buttons(kToolDelete).Enabled());
  EXPECT_EQ(window->tvwMain.Indentation(), 300);
}

// ---- font

TEST_F(ScreenLayoutTest, GuiInitEndsBySettingTheFont) {
  window->nFontSize = 12;
  window->layout.GUI_Init();
  for (const Grid* grid : window->Grids()) EXPECT_EQ(grid->FontSize(), 12) << grid->Name();
  EXPECT_EQ(window->tvwMain.FontSize(), 12);
}

TEST_F(ScreenLayoutTest, TheMenuOfTheSizesSetsTheFontOfTreeAndAllGridsAndMovesTheCheckMark) {
  window->mnuSize(2).UserClick();
  EXPECT_EQ(window->nFontSize, 12);
  EXPECT_FALSE(window->mnuSize(1).Checked());
  EXPECT_TRUE(window->mnuSize(2).Checked());
  for (const Grid* grid : window->Grids()) EXPECT_EQ(grid->FontSize(), 12) << grid->Name();
  EXPECT_EQ(window->tvwMain.FontSize(), 12);

  window->mnuSize(1).UserClick();
  EXPECT_EQ(window->nFontSize, 8);
  EXPECT_TRUE(window->mnuSize(1).Checked());
  EXPECT_FALSE(window->mnuSize(2).Checked());
  for (const Grid* grid : window->Grids()) EXPECT_EQ(grid->FontSize(), 8) << grid->Name();
  EXPECT_EQ(window->tvwMain.FontSize(), 8);
}

class StoredFontTest : public ShellTest {};

TEST_F(StoredFontTest, FontSize12FromTheSettingsIsCheckedAtTheStart) {
  for (const char* application : {"ZELKARTAVRIN", "QORVANETAVRIN"}) {
    settings.SaveSetting(application, "Settings", "Fontsize", "12");
  }
  Start();
  EXPECT_FALSE(window->mnuSize(1).Checked());
  EXPECT_TRUE(window->mnuSize(2).Checked());
  EXPECT_EQ(window->vsgOPC.FontSize(), 12);
}

// ---- places

TEST_F(ScreenLayoutTest, TreeAndItsBarFollowTheSplitterAndTheHeightOfTheWindow) {
  Resize(12000, 10000);
  EXPECT_EQ(Shown(window->tvwMain.Place()), "150 480 1850 8800");
  EXPECT_EQ(Shown(window->imgSplitterHorz.Place()), "2000 480 90 8800");
}

TEST_F(ScreenLayoutTest, SheetsOfProjectAndNetworksTakeTheWholeRightSide) {
  Resize(12000, 10000);
  for (const Grid* grid : {&window->vsgOPC, &window->vsgMPINW, &window->vsgH1NW, &window->vsgTCPISONW,
                           &window->vsgTCPRWNW, &window->vsgTCPIPKNW}) {
    EXPECT_EQ(Shown(grid->Place()), "2090 480 9760 8800") << grid->Name();
  }
}

TEST_F(ScreenLayoutTest, WarningsLeaveRoomForTheirLabel) {
  Resize(12000, 10000);
  EXPECT_EQ(Shown(window->vsgWarnings.Place()), "2090 480 9760 7660");
  EXPECT_EQ(Shown(window->lblWarnings.Place()), "2090 8200 9760 1080");
}

TEST_F(ScreenLayoutTest, DeviceSheetsEndAtTheSplitterAndTagsTakeTheRestBelowTheirLabel) {
  Resize(12000, 10000);
  for (const Grid* grid :
       {&window->vsgMPIDVC, &window->vsgH1DVC, &window->vsgTCPISODVC, &window->vsgTCPRWDVC, &window->vsgTCPIPKDVC}) {
    EXPECT_EQ(Shown(grid->Place()), "2090 480 9760 1520") << grid->Name();
  }
  EXPECT_EQ(Shown(window->lblTags.Place()), "2090 2090 9760 330");
  EXPECT_EQ(Shown(window->vsgTags.Place()), "2090 2480 9760 6800");
  EXPECT_EQ(Shown(window->imgSplitterVert.Place()), "0 2000 12000 90");
  EXPECT_EQ(window->vsgTags.Place().Bottom(), window->tvwMain.Place().Bottom());
}

TEST_F(ScreenLayoutTest, TheWidthOfTheBarCountsInWholeTwips) {
  window->imgSplitterHorz.Place({2000, 480, 90.75F, 8800});
  Resize(12000, 9000);
  EXPECT_EQ(window->vsgOPC.Place().left, 2090);
  EXPECT_EQ(window->lblTags.Place().top, 2090);
}

TEST_F(ScreenLayoutTest, ABarIsAsHighAsTheTreeAtOnceWhenTheWindowGrows) {
  Resize(12000, 6000);
  Resize(12000, 15000);
  EXPECT_EQ(window->imgSplitterHorz.Place().height, 13800);
  EXPECT_EQ(window->tvwMain.Place().height, 13800);
}

TEST_F(ScreenLayoutTest, ShrinkingTheWindowNeverMovesTheSplitters) {
  DragBy(window->imgSplitterHorz, 5000, 0);
  DragBy(window->imgSplitterVert, 0, 4000);
  Resize(9000, 6000);
  EXPECT_EQ(window->picSplitterHorz.Place().left, 7000);
  EXPECT_EQ(window->picSplitterVert.Place().top, 6000);
  Resize(12000, 10000);
  EXPECT_EQ(window->picSplitterHorz.Place().left, 7000);
  EXPECT_EQ(window->picSplitterVert.Place().top, 6000);
}

TEST_F(ScreenLayoutTest, ANegativeSizeLeavesThatControlAloneAndTheOthersMove) {
  Resize(12000, 10000);
  window->picSplitterVert.Place({0, 9000, 12000, 90});  // below the end of the tree when the window is small
  Resize(9000, 6000);
  EXPECT_EQ(Shown(window->vsgTags.Place()), "2090 2480 9760 6800");
  EXPECT_EQ(Shown(window->vsgMPIDVC.Place()), "2090 480 6760 8520");
  EXPECT_EQ(Shown(window->lblTags.Place()), "2090 9090 6760 330");
  EXPECT_EQ(Shown(window->imgSplitterVert.Place()), "0 9000 9000 90");
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ScreenLayoutTest, ASplitterOutsideOfTheWindowIsNoError) {
  window->picSplitterHorz.Place({-500, 480, 90, 8800});
  Resize(10000, 9000);
  EXPECT_EQ(Shown(window->tvwMain.Place()), "150 480 1850 8800");
  EXPECT_EQ(window->imgSplitterHorz.Place().left, -500);
  EXPECT_EQ(window->vsgOPC.Place().width, 10000 - 2090 - 150);
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ScreenLayoutTest, TheTreeKeepsTheLeftAndTopOfTheDesign) {
  for (const float width : {9000.0F, 20000.0F}) {
    Resize(width, 7000);
    EXPECT_EQ(window->tvwMain.Place().left, 150);
    EXPECT_EQ(window->tvwMain.Place().top, 480);
  }
}

// ---- splitters

TEST_F(ScreenLayoutTest, APressShowsTheShadowOverTheBar) {
  window->imgSplitterHorz.UserPress(30, 100);
  EXPECT_TRUE(window->picSplitterHorz.Visible());
  EXPECT_EQ(window->picSplitterHorz.Place(), window->imgSplitterHorz.Place());
  EXPECT_TRUE(window->bSplitterDrag);
}

TEST_F(ScreenLayoutTest, AMoveTakesTheShadowAlongAndNothingElse) {
  window->imgSplitterHorz.UserPress(0, 0);
  window->imgSplitterHorz.UserMove(1500, 4000);
  EXPECT_EQ(Shown(window->picSplitterHorz.Place()), "3500 480 90 8800");
  EXPECT_EQ(window->imgSplitterHorz.Place().left, 2000);
  EXPECT_EQ(window->tvwMain.Place().width, 1850);
}

TEST_F(ScreenLayoutTest, ReleasePlacesEverythingAnewAndEndsTheDrag) {
  DragBy(window->imgSplitterHorz, 1500, 0);
  EXPECT_EQ(window->tvwMain.Place().width, 3350);
  EXPECT_EQ(window->imgSplitterHorz.Place().left, 3500);
  EXPECT_EQ(window->vsgOPC.Place().left, 3590);
  EXPECT_FALSE(window->picSplitterHorz.Visible());
  EXPECT_FALSE(window->bSplitterDrag);
}

TEST_F(ScreenLayoutTest, TheBarBelowTheDeviceSheetIsDraggedUpAndDown) {
  DragBy(window->imgSplitterVert, 700, 1000);
  EXPECT_EQ(window->picSplitterVert.Place().top, 3000);
  EXPECT_EQ(window->picSplitterVert.Place().left, 0);
  EXPECT_EQ(window->vsgMPIDVC.Place().height, 2520);
  EXPECT_EQ(window->imgSplitterVert.Place().top, 3000);
  EXPECT_FALSE(window->picSplitterVert.Visible());
}

TEST_F(ScreenLayoutTest, AMoveWithoutAPressMeansNothing) {
  window->imgSplitterHorz.UserMove(1500, 0);
  window->imgSplitterVert.UserMove(0, 1500);
  EXPECT_EQ(window->picSplitterHorz.Place().left, 2000);
  EXPECT_EQ(window->picSplitterVert.Place().top, 2000);
}

struct DragRow {
  float distance;
  float across;     ///< left of the shadow in a window 12000 wide
  float upAndDown;  ///< top of the shadow in a window 10000 high
};

class SplitterLimitTest : public ScreenLayoutTest, public testing::WithParamInterface<DragRow> {};

TEST_P(SplitterLimitTest, SplittersStayAwayFromTheEdges) {
  Resize(12000, 10000);
  DragBy(window->imgSplitterHorz, GetParam().distance, 0);
  DragBy(window->imgSplitterVert, 0, GetParam().distance);
  EXPECT_EQ(window->picSplitterHorz.Place().left, GetParam().across);
  EXPECT_EQ(window->picSplitterVert.Place().top, GetParam().upAndDown);
}

INSTANTIATE_TEST_SUITE_P(Distances, SplitterLimitTest,
                         testing::Values(DragRow{-1999, 2000, 2000}, DragRow{-1, 2000, 2000}, DragRow{0, 2000, 2000},
                                         DragRow{1, 2001, 2001}, DragRow{6000, 8000, 8000}, DragRow{6001, 8001, 8000},
                                         DragRow{8000, 10000, 8000}, DragRow{8001, 10000, 8000},
                                         DragRow{50000, 10000, 8000}));

TEST_F(ScreenLayoutTest, BarsCanBeSeenOnlyBesideWhatTheyDivide) {
  EXPECT_FALSE(window->imgSplitterHorz.Visible());
  EXPECT_FALSE(window->imgSplitterVert.Visible());
  OpenSample("plant");
  EXPECT_TRUE(window->imgSplitterHorz.Visible());
  EXPECT_FALSE(window->imgSplitterVert.Visible());
  modMain::SetVisible(&window->vsgTCPRWDVC);
  EXPECT_TRUE(window->imgSplitterVert.Visible());
  modMain::SetVisible(&window->vsgWarnings);
  EXPECT_FALSE(window->imgSplitterVert.Visible());
}

}  // namespace
}  // namespace tavrin
