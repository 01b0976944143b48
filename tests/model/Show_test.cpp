#include <array>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/PaneTest.h"
#include "model/RawSettings.h"
#include "model/cDevice.h"
#include "model/cNetwork.h"

namespace tavrin {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::array kOtherTypes{-1, 5};

class ShowTest : public PaneTest {
 protected:
  static void SetType(cNetwork& network, std::int32_t type) { RawSettings(network).nNetworkType = type; }
  static void SetType(cDevice& device, std::int32_t type) { RawSettings(device).nDeviceType = type; }

  /// Every drawing of a sheet happens at once, when all is in it.
  template <class Owner>
  void ExpectOneDrawing(const Owner& owner, Grid& grid) {
    const GridRecorder recorder(grid);
    owner.Show(grid);
    EXPECT_THAT(recorder.told, ElementsAre("about to reset", "reset")) << grid.Name();
    EXPECT_TRUE(grid.Redraw()) << grid.Name();
  }
};

TEST_F(ShowTest, SheetsAreFilledWithoutRedrawing) {
  ExpectOneDrawing(Project(), pane.vsgOPC);
  ExpectOneDrawing(cNetwork(), pane.vsgMPINW);
  ExpectOneDrawing(cDevice(), pane.vsgMPIDVC);
}

TEST_F(ShowTest, TheSheetComesOnShow) {
  Project().Show(pane.vsgOPC);
  EXPECT_THAT(OnShow(), ElementsAre("vsgOPC"));
  cNetwork().Show(pane.vsgMPINW);
  EXPECT_THAT(OnShow(), ElementsAre("vsgMPINW"));
  cDevice().Show(pane.vsgMPIDVC);
  EXPECT_THAT(OnShow(), ElementsAre("vsgMPIDVC", "vsgTags", "lblTags"));
}

TEST_F(ShowTest, ANetworkOfAnyOtherTypeFillsNothingYetItsSheetComesOnShow) {
  for (const int type : kOtherTypes) {
    cNetwork network;
    SetType(network, type);
    modMain::SetVisible(nullptr);
    network.Show(pane.vsgH1NW);
    EXPECT_THAT(Column(pane.vsgH1NW, 1), Each("")) << type;
    EXPECT_THAT(OnShow(), ElementsAre("vsgH1NW")) << type;
    EXPECT_TRUE(pane.vsgH1NW.Redraw()) << type;
  }
}

TEST_F(ShowTest, ADeviceSetsTheRowsOfItsType) {
  constexpr std::array kRows{5, 9, 9, 12, 10};
  for (std::size_t type = 0; type < kRows.size(); ++type) {
    Grid& sheet = *pane.Sheets().at(RightPane::kFirstDeviceSheet + type);
    sheet.Shape(2, 2, 1, 1);
    cDevice device;
    SetType(device, static_cast<std::int32_t>(type));
    device.Show(sheet);
    EXPECT_EQ(sheet.Rows(), kRows.at(type)) << type;
  }
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ShowTest, ADeviceOfAnyOtherTypeFillsNothingYetItsSheetComesOnShow) {
  for (const int type : kOtherTypes) {
    cDevice device;
    SetType(device, type);
    modMain::SetVisible(nullptr);
    device.Show(pane.vsgH1DVC);
    EXPECT_EQ(pane.vsgH1DVC.Rows(), 9) << type;
    EXPECT_THAT(Column(pane.vsgH1DVC, 1), Each("")) << type;
    EXPECT_THAT(OnShow(), ElementsAre("vsgH1DVC", "vsgTags", "lblTags")) << type;
    EXPECT_TRUE(pane.vsgH1DVC.Redraw()) << type;
    EXPECT_EQ(desktop.Pointers().back(), MousePointer::Normal) << type;
  }
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ShowTest, ADeviceShowsItsTagsInTheWidthsOfItsType) {
  directory.Write("tags.csv", "T1;MB10;RW\r\n");
  cDevice device;
  SetType(device, 4);
  device.szTagFileName("tags.csv");
  device.Tags().Refresh(0, 1);
  device.Show(pane.vsgTCPIPKDVC);
  EXPECT_THAT(Column(pane.vsgTags, 1), ElementsAre("T1", ""));
  EXPECT_EQ(pane.vsgTags.ColWidth(1), 1800);
}

TEST_F(ShowTest, ADeviceIsShownUnderTheHourglass) {
  cDevice().Show(pane.vsgMPIDVC);
  EXPECT_THAT(desktop.Pointers(), ElementsAre(MousePointer::Hourglass, MousePointer::Normal));
}

TEST_F(ShowTest, ProjectAndNetworkLeaveThePointerAlone) {
  Project().Show(pane.vsgOPC);
  cNetwork().Show(pane.vsgMPINW);
  EXPECT_THAT(desktop.Pointers(), IsEmpty());
}

TEST_F(ShowTest, AnErrorIsToldKeepsWhatWasDoneAndRedrawingComesOnAgain) {
  pane.vsgOPC.Shape(2, 2, 1, 1);
  Project().Show(pane.vsgOPC);
  EXPECT_THAT(Boxes(), ElementsAre("#199 9 #200 cOPC.Show : Subscript out of range"));
  EXPECT_EQ(pane.vsgOPC.Text({1, 1}), "ZOPCSRV.ini");
  EXPECT_TRUE(pane.vsgOPC.Redraw());

  pane.vsgMPINW.Shape(2, 2, 1, 1);
  cNetwork().Show(pane.vsgMPINW);
  EXPECT_THAT(Boxes(), ElementsAre("#199 9 #200 cNetwork.Show : Subscript out of range"));
  EXPECT_EQ(pane.vsgMPINW.Text({1, 1}), "MPI over COMPort");
  EXPECT_TRUE(pane.vsgMPINW.Redraw());
}

TEST_F(ShowTest, AnErrorWithADeviceSetsThePointerBackToo) {
  modMain::globals.pane = nullptr;
  cDevice device;
  device.szTagFileName("tags.csv");
  device.Show(pane.vsgMPIDVC);
  EXPECT_THAT(Boxes(), ElementsAre("#199 91 #200 cDevice.Show : Object variable or With block variable not set"));
  EXPECT_EQ(pane.vsgMPIDVC.Text({1, 1}), "tags.csv");
  EXPECT_TRUE(pane.vsgMPIDVC.Redraw());
  EXPECT_THAT(desktop.Pointers(), ElementsAre(MousePointer::Hourglass, MousePointer::Normal));
}

TEST_F(ShowTest, AnErrorWithTheTagsDoesNotKeepTheSheetOffShow) {
  pane.vsgTags.Shape(1, 2, 1, 1);
  cDevice().Show(pane.vsgMPIDVC);
  EXPECT_THAT(Boxes(), ElementsAre("#199 9 #200 cTags.Show : Subscript out of range"));
  EXPECT_THAT(OnShow(), ElementsAre("vsgMPIDVC", "vsgTags", "lblTags"));
}

TEST_F(ShowTest, ShowingDirtiesNothing) {
  cNetwork& network = AddNetwork(NetworkType::H1, "Net");
  cDevice& device = AddDevice(network, "Plc");
  Project().bDataDirty(false);
  Project().Show(pane.vsgOPC);
  network.Show(pane.vsgH1NW);
  device.Show(pane.vsgH1DVC);
  EXPECT_FALSE(Project().bOpcProjectDirty());
}

}  // namespace
}  // namespace tavrin
