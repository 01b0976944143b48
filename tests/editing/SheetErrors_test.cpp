// Which name a sheet reports an unexpected error under.
#include <array>
#include <string>
#include <string_view>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editing/SheetEditingTest.h"
#include "editing/SheetRows.h"

namespace tavrin {
namespace {

using testing::ElementsAre;

struct LabelCase {
  std::string_view grid;
  std::string_view beforeEdit;
};
constexpr std::array<LabelCase, kSheets> kLabels{{{"vsgOPC", "BeforeEdit"},
                                                  {"vsgMPINW", "BeforeEdit"},
                                                  {"vsgH1NW", "BeforeEdit"},
                                                  {"vsgTCPISONW", "BeforeEdit"},
                                                  {"vsgTCPRWNW", "BeforeEdit"},
                                                  {"vsgTCPIPKNW", "BeforeEdit"},
                                                  {"vsgMPIDVC", "BeforeEdit"},
                                                  {"vsgH1DVC", "BeforeEdit"},
                                                  {"vsgTCPISODVC", "BeforeEdit"},
                                                  {"vsgTCPRWDVC", "AfterEdit"},
                                                  {"vsgTCPIPKDVC", "AfterEdit"}}};

std::string Report(std::string_view number, std::string_view label, std::string_view description) {
  return "#199 " + std::string(number) + " #200 " + std::string(label) + std::string(description);
}

class SheetErrorsTest : public SheetEditingTest {};

TEST_F(SheetErrorsTest, AnErrorIsReportedUnderGridAndEvent) {
  for (int sheet = 0; sheet < kSheets; ++sheet) {
    const LabelCase& expected = kLabels.at(static_cast<std::size_t>(sheet));
    const SheetEditing& rules = *editing.at(static_cast<std::size_t>(sheet));
    const std::string grid = "frmOPC." + std::string(expected.grid);
    EXPECT_EQ(rules.ErrorLabel(SheetEvent::BeforeEdit), grid + "_" + std::string(expected.beforeEdit) + " : ");
    EXPECT_EQ(rules.ErrorLabel(SheetEvent::KeyPressEdit), grid + "_KeyPressEdit : ");
    EXPECT_EQ(rules.ErrorLabel(SheetEvent::AfterEdit), grid + "_AfterEdit : ");
  }
}

TEST_F(SheetErrorsTest, AnObjectThatIsGoneEndsTheEditInTheReport) {
  for (int sheet = 0; sheet < kSheets; ++sheet) {
    Grid& grid = Show(sheet).grid;
    const int row = grid.Rows() - 1;
    Type(grid, row, "1");
    modMain::globals.gnCurrentNetwork = modMain::globals.gnCurrentDevice = 0;
    if (sheet == 0) modMain::globals.gOPC.reset();
    grid.UserEndEdit();
    EXPECT_THAT(Boxes(), ElementsAre(Report("91", "frmOPC." + grid.Name() + "_AfterEdit : ",
                                            "Object variable or With block variable not set")));
    EXPECT_EQ(grid.OpenEdit(), nullptr);
    EXPECT_EQ(grid.Text({row, 1}), "1");
  }
}

TEST_F(SheetErrorsTest, AFilterThatCannotAskItsProjectReportsAndLetsTheKeyPass) {
  Grid& grid = Show(0).grid;
  constexpr int kSeparatorRow = 4;
  Type(grid, kSeparatorRow, "");
  modMain::globals.gOPC.reset();
  grid.UserType("x");
  EXPECT_THAT(Boxes(), ElementsAre(Report(
                           "91", "frmOPC.vsgOPC_KeyPressEdit : ", "Object variable or With block variable not set")));
  EXPECT_EQ(grid.OpenEdit()->text, "x");
  grid.UserCancelEdit();
}

TEST_F(SheetErrorsTest, ANumberBeyondAllBoundsIsReportedAndStaysInItsCell) {
  const OpenSheet open = Show(RightPane::kFirstNetworkSheet);
  Enter(open.grid, 4, "99999999999");
  EXPECT_THAT(Boxes(), ElementsAre(Report("6", "frmOPC.vsgMPINW_AfterEdit : ", "Overflow")));
  EXPECT_EQ(open.grid.Text({4, 1}), "99999999999");
  EXPECT_EQ(open.network->nMPI_COMPort(), 1);
}

}  // namespace
}  // namespace tavrin
