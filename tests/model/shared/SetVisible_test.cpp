#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/ErrorOf.h"
#include "model/PaneTest.h"
#include "model/shared/modMain.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SetVisibleTest : public PaneTest {};

TEST_F(SetVisibleTest, ASheetOfTheProjectOrANetworkIsOnShowAlone) {
  for (int i = 0; i < RightPane::kFirstDeviceSheet; ++i) {
    const Grid* sheet = pane.Sheets().at(static_cast<std::size_t>(i));
    modMain::SetVisible(sheet);
    EXPECT_THAT(OnShow(), ElementsAre(sheet->Name()));
  }
}

TEST_F(SetVisibleTest, ASheetOfADeviceIsOnShowWithTheTagsAndTheirLabel) {
  for (std::size_t i = RightPane::kFirstDeviceSheet; i < pane.Sheets().size(); ++i) {
    const Grid* sheet = pane.Sheets().at(i);
    modMain::SetVisible(sheet);
    EXPECT_THAT(OnShow(), ElementsAre(sheet->Name(), "vsgTags", "lblTags"));
  }
}

TEST_F(SetVisibleTest, TheWarningsAreOnShowWithTheirLabel) {
  modMain::SetVisible(&pane.vsgMPIDVC);
  modMain::SetVisible(&pane.vsgWarnings);
  EXPECT_THAT(OnShow(), ElementsAre("vsgWarnings", "lblWarnings"));
}

TEST_F(SetVisibleTest, ASheetTakesThePlaceOfTheWarnings) {
  modMain::SetVisible(&pane.vsgWarnings);
  modMain::SetVisible(&pane.vsgOPC);
  EXPECT_THAT(OnShow(), ElementsAre("vsgOPC"));
}

TEST_F(SetVisibleTest, NothingHidesEverything) {
  modMain::SetVisible(&pane.vsgH1DVC);
  modMain::SetVisible(nullptr);
  EXPECT_THAT(OnShow(), IsEmpty());
}

TEST_F(SetVisibleTest, AnyOtherNameHidesEverythingThatOfTheTagGridToo) {
  Grid other(form, "vsgOther");
  for (const Grid* grid : {&other, &pane.vsgTags}) {
    modMain::SetVisible(&pane.vsgH1DVC);
    modMain::SetVisible(grid);
    EXPECT_THAT(OnShow(), IsEmpty()) << grid->Name();
  }
}

TEST_F(SetVisibleTest, TheNameDecidesNotTheObject) {
  Form elsewhere("elsewhere");
  const Grid namesake(elsewhere, "vsgH1NW");
  modMain::SetVisible(&namesake);
  EXPECT_THAT(OnShow(), ElementsAre("vsgH1NW"));
}

TEST_F(SetVisibleTest, NeedsTheMainWindow) {
  modMain::globals.pane = nullptr;
  EXPECT_EQ(ErrorOf([&] { modMain::SetVisible(&pane.vsgOPC); }), ErrorNumber::NoObject);
  EXPECT_EQ(ErrorOf([] { static_cast<void>(modMain::Pane()); }), ErrorNumber::NoObject);
}

}  // namespace
}  // namespace tavrin
