#include "shell/MainControls.h"

#include <algorithm>
#include <string>
#include <vector>

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/RuntimeError.h"
#include "platform/controls/Form.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string Shown(const Rect& place) {
  return fmt::format("{} {} {} {}", place.left, place.top, place.width, place.height);
}

/// "name index caption shortcut", then a word for what is off.
std::vector<std::string> Design(const MenuEntry& menu) {
  std::vector<std::string> lines;
  for (const MenuEntry* entry : menu.Entries()) {
    std::string line = fmt::format("{} {}", entry->Name(), entry->Index());
    if (!entry->Caption().empty()) line += " " + entry->Caption();
    if (!entry->Shortcut().empty()) line += " " + entry->Shortcut();
    if (!entry->Enabled()) line += " disabled";
    if (!entry->Visible()) line += " hidden";
    lines.push_back(line);
  }
  return lines;
}

class MainControlsTest : public testing::Test {
 protected:
  [[nodiscard]] std::size_t Position(const Control& control) const {
    const auto& all = form.Controls();
    return static_cast<std::size_t>(std::find(all.begin(), all.end(), &control) - all.begin());
  }

  Form form{"frmOPC"};
  MainControls controls{form};
};

TEST_F(MainControlsTest, TheBarHoldsFourMenusAndTheHiddenOneOfTheTagGrid) {
  EXPECT_THAT(form.MenuBar(), ElementsAre(&controls.mnuMain(1), &controls.mnuMain(2), &controls.mnuMain(3),
                                          &controls.mnuMain(4), &controls.mnuMain(5)));
  for (int index = 1; index <= 4; ++index) EXPECT_TRUE(controls.mnuMain(index).Visible()) << index;
  EXPECT_FALSE(controls.mnuMain(5).Visible());
  EXPECT_EQ(controls.mnuMain(4).Caption(), "&?");
}

TEST_F(MainControlsTest, TheFileMenuHasRoomForTheRecentProjectsBetweenItsSeparators) {
  EXPECT_THAT(Design(controls.mnuMain(1)),
              ElementsAre("mnuFile 1", "mnuFile 2 Ctrl+O", "mnuFile 3 Ctrl+S", "mnuFile 4", "mnuFile 10 - hidden",
                          "mnuFile 11 hidden", "mnuFile 12 hidden", "mnuFile 13 hidden", "mnuFile 14 hidden",
                          "mnuFile 20 -", "mnuFile 21"));
}

TEST_F(MainControlsTest, TheEditMenuIsOffAndItsTestEntryHiddenUntilANodeIsClicked) {
  EXPECT_THAT(Design(controls.mnuMain(2)),
              ElementsAre("mnuEdit 1 Ctrl+N disabled", "mnuEdit 2 Ctrl+M disabled", "mnuEdit 3 Ctrl+D disabled",
                          "mnuEdit 4 Ctrl+F disabled", "mnuEdit 5 Ctrl+U disabled", "mnuEdit 6 Testen hidden"));
}

TEST_F(MainControlsTest, TheExtrasMenuHasTwelveLiveEntriesThreeOfThemMenus) {
  std::vector<std::string> wanted;
  for (int index = 1; index <= 12; ++index) wanted.push_back(fmt::format("mnuExtras {}", index));
  EXPECT_EQ(Design(controls.mnuMain(3)), wanted);
  EXPECT_THAT(Design(controls.mnuExtras(3)), ElementsAre("mnuLanguage 1 hidden"));
  EXPECT_THAT(Design(controls.mnuExtras(4)), ElementsAre("mnuSize 1", "mnuSize 2"));
  EXPECT_THAT(Design(controls.mnuExtras(6)), ElementsAre("mnuLog 1 LOG&1.TXT", "mnuLog 2 LOG&2.TXT"));
  for (const int index : {1, 2, 5, 7, 8, 9, 10, 11, 12}) EXPECT_THAT(controls.mnuExtras(index).Entries(), IsEmpty());
}

TEST_F(MainControlsTest, HelpAndTagMenuHaveTheirEntries) {
  EXPECT_THAT(Design(controls.mnuMain(4)), ElementsAre("mnuHelp 1", "mnuHelp 2", "mnuHelp 3", "mnuHelp 4"));
  EXPECT_THAT(Design(controls.mnuMain(5)), ElementsAre("mnuTest 1"));
}

TEST_F(MainControlsTest, AMenuIsFoundByItsName) {
  for (const char* name :
       {"mnuMain", "mnuFile", "mnuEdit", "mnuExtras", "mnuLanguage", "mnuSize", "mnuLog", "mnuHelp", "mnuTest"}) {
    EXPECT_EQ(controls.Menu(name).Name(), name);
  }
  EXPECT_THROW(static_cast<void>(controls.Menu("mnuNone")), RuntimeError);
}

TEST_F(MainControlsTest, ToolButtonsHaveGapsBetweenTheirGroupsAndDeleteIsOff) {
  std::vector<std::string> buttons;
  controls.Toolbar1.Buttons.ForEach([&](const ToolButton& button) {
    buttons.push_back(fmt::format("{} {} {}", button.Index(), button.Image(), button.Enabled() ? "live" : "disabled"));
  });
  EXPECT_THAT(buttons,
              ElementsAre("2 NEW live", "3 OPEN live", "4 SAVE live", "6 DELETE disabled", "8 RECONFIGURE live"));
}

TEST_F(MainControlsTest, PlacesThatTheLayoutTakesFromTheDesign) {
  EXPECT_EQ(controls.tvwMain.Place().left, 150);
  EXPECT_EQ(controls.tvwMain.Place().top, 480);
  EXPECT_EQ(controls.imgSplitterHorz.Place().width, 90);
  EXPECT_EQ(controls.imgSplitterVert.Place().height, 90);
  EXPECT_EQ(controls.picSplitterHorz.Place().left, 2000);
  EXPECT_EQ(controls.picSplitterVert.Place().top, 2000);
  EXPECT_EQ(controls.Toolbar1.Place().left, 0);
  EXPECT_EQ(controls.Toolbar1.Place().height, 330);
  EXPECT_EQ(Shown(controls.Frame1.Place()), "0 330 12000 30");
  EXPECT_EQ(controls.lblTags.Place().height, 330);
  EXPECT_EQ(controls.lblWarnings.Place().height, 1080);
}

TEST_F(MainControlsTest, LogosDoNotReachTheToolButtonsInTheSmallestWindow) {
  constexpr float kSmallest = 9000;
  for (const Picture* logo : {&controls.picLogo1, &controls.PicLogo2}) {
    EXPECT_LT(controls.Toolbar1.Place().Right(), kSmallest - 180 - logo->Place().width);
  }
  EXPECT_EQ(controls.picLogo1.Image(), "ZELKAR");
  EXPECT_EQ(controls.PicLogo2.Image(), "QORVANE");
}

TEST_F(MainControlsTest, ShadowsAreHiddenUntilADrag) {
  EXPECT_FALSE(controls.picSplitterHorz.Visible());
  EXPECT_FALSE(controls.picSplitterVert.Visible());
  EXPECT_EQ(controls.picSplitterHorz.Kind(), PictureKind::Shadow);
  EXPECT_EQ(controls.imgSplitterHorz.Kind(), PictureKind::Splitter);
  EXPECT_EQ(controls.imgSplitterVert.Kind(), PictureKind::Splitter);
  EXPECT_EQ(controls.Frame1.Kind(), PictureKind::Line);
}

TEST_F(MainControlsTest, TheTabKeyGoesFromTheTreeToTheGrids) {
  for (const Grid* grid : controls.Grids()) EXPECT_LT(Position(controls.tvwMain), Position(*grid)) << grid->Name();
}

TEST_F(MainControlsTest, TheBarAcrossTheWindowPassesBelowTreeAndGridsAndTheShadowsLieAboveAll) {
  EXPECT_LT(Position(controls.imgSplitterVert), Position(controls.tvwMain));
  for (const Grid* grid : controls.Grids()) {
    EXPECT_LT(Position(controls.imgSplitterVert), Position(*grid)) << grid->Name();
    EXPECT_LT(Position(*grid), Position(controls.picSplitterHorz)) << grid->Name();
    EXPECT_LT(Position(*grid), Position(controls.picSplitterVert)) << grid->Name();
  }
}

TEST_F(MainControlsTest, TheKeyColumnOfTheTagGridCannotBeSeen) { EXPECT_EQ(controls.vsgTags.ColWidth(0), 0); }

}  // namespace
}  // namespace tavrin
