// The edges of the sheets' rules: what begins and ends an edit, conversions, and where a row departs from the rule.
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editing/SheetEditingTest.h"
#include "editing/SheetRows.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kOpc = 0;
constexpr int kMpiNetwork = 1;
constexpr int kH1Network = 2;
constexpr int kMpiDevice = 6;
constexpr int kIsoDevice = 8;
constexpr int kRwDevice = 9;
constexpr int kIpkDevice = 10;

class SheetEdgesTest : public SheetEditingTest {};

// ---- beginning and ending

TEST_F(SheetEdgesTest, ADoubleClickOnAValueOpensItWithItsTextInEverySheetButTheProjects) {
  for (int sheet = 0; sheet < kSheets; ++sheet) {
    Grid& grid = Show(sheet).grid;
    const int row = grid.Rows() - 1;
    grid.UserPress(MouseButton::Left, {row, 1});
    grid.UserDblClick({row, 1});
    ASSERT_EQ(grid.OpenEdit() != nullptr, sheet != kOpc) << grid.Name();
    if (sheet == kOpc) continue;
    EXPECT_EQ(grid.OpenEdit()->text, grid.Text({row, 1}));
    EXPECT_FALSE(grid.OpenEdit()->beganByTyping);
    grid.UserCancelEdit();
  }
}

TEST_F(SheetEdgesTest, ADoubleClickOpensNothingWhileALabelIsCurrent) {
  for (int sheet = kMpiNetwork; sheet < kSheets; ++sheet) {
    Grid& grid = Show(sheet).grid;
    grid.Select({grid.Rows() - 1, 0});
    grid.UserDblClick({grid.Rows() - 1, 0});
    EXPECT_EQ(grid.OpenEdit(), nullptr) << grid.Name();
  }
}

TEST_F(SheetEdgesTest, ADoubleClickOnALabelOpensTheValueThatIsCurrent) {
  Grid& grid = Show(kMpiNetwork).grid;
  grid.UserPress(MouseButton::Left, {4, 1});
  grid.UserPress(MouseButton::Left, {6, 0});
  grid.UserDblClick({6, 0});
  ASSERT_NE(grid.OpenEdit(), nullptr);
  EXPECT_EQ(grid.OpenEdit()->cell, (Cell{4, 1}));
}

TEST_F(SheetEdgesTest, TypingBeginsWithTheFirstCharacterInPlaceOfTheOldText) {
  const OpenSheet open = Show(kMpiNetwork);
  open.grid.UserSelect({7, 1});
  open.grid.UserType("4");
  open.grid.UserType("0");
  EXPECT_EQ(open.grid.OpenEdit()->text, "40");
  EXPECT_TRUE(open.grid.UserKey(Key::Enter));
  EXPECT_EQ(open.network->nMPI_CyclicTime(), 40);
}

TEST_F(SheetEdgesTest, F2BeginsWithTheOldText) {
  const OpenSheet open = Show(kMpiNetwork);
  open.grid.UserSelect({7, 1});
  EXPECT_TRUE(open.grid.UserKey(Key::F2));
  open.grid.UserType("0");
  open.grid.UserTab();
  EXPECT_EQ(open.network->nMPI_CyclicTime(), 100);
}

TEST_F(SheetEdgesTest, AnUntouchedEditRunsItsRuleAllTheSame) {
  const OpenSheet open = Show(kMpiNetwork);
  open.grid.UserSelect({4, 1});
  open.grid.UserBeginEdit();
  open.grid.UserEndEdit();
  EXPECT_THAT(Boxes(), ElementsAre("#230"));
  EXPECT_EQ(open.grid.Text({4, 1}), "1");
  EXPECT_FALSE(open.network->bDataDirty());
}

TEST_F(SheetEdgesTest, ACommandElsewhereEndsTheEditFirst) {
  const OpenSheet open = Show(kMpiNetwork);
  Type(open.grid, 7, "500");
  form.EndPendingEdits();
  EXPECT_EQ(open.network->nMPI_CyclicTime(), 500);
}

TEST_F(SheetEdgesTest, ARowPastTheSheetIsLeftAlone) {
  for (int sheet = 0; sheet < kSheets; ++sheet) {
    Grid& grid = Show(sheet).grid;
    const int row = grid.Rows();
    grid.Rows(row + 1);
    Type(grid, row, "a 1;");
    ASSERT_NE(grid.OpenEdit(), nullptr) << grid.Name();
    EXPECT_THAT(grid.OpenEdit()->choices, IsEmpty());
    grid.UserEndEdit();
    EXPECT_EQ(grid.Text({row, 1}), "a 1;");
    grid.Rows(row);
    EXPECT_FALSE(Project().bOpcProjectDirty()) << grid.Name();
  }
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(SheetEdgesTest, AListDoesNotStayForTheNextTextBox) {
  Grid& grid = Show(kMpiNetwork).grid;
  Type(grid, 3, "57600");
  grid.UserSelect({4, 1});
  grid.UserBeginEdit();
  EXPECT_THAT(grid.OpenEdit()->choices, IsEmpty());
  grid.UserCancelEdit();
}

// ---- the project

TEST_F(SheetEdgesTest, AnEmptyCellOfANumberIsTheNumber0) {
  Grid& grid = Show(kOpc).grid;
  Project().nCaseSensitive(1);
  Project().Show(grid);
  Enter(grid, 3, "");
  EXPECT_EQ(Project().nCaseSensitive(), 0);
  EXPECT_EQ(grid.Text({3, 1}), "0");
  EXPECT_THAT(Boxes(), IsEmpty());
  Enter(grid, 2, "");
  EXPECT_EQ(grid.Text({2, 1}), "10000");
  EXPECT_THAT(Boxes(), ElementsAre("#204 1..10000"));
}

TEST_F(SheetEdgesTest, SeveralSeparatorsAreTakenInTheOrderOfTheAcceptedOnes) {
  Grid& grid = Show(kOpc).grid;
  Enter(grid, 4, "/\\");
  EXPECT_EQ(Project().szUsedSeparator(), "/\\");
  EXPECT_THAT(Boxes(), IsEmpty());
  Enter(grid, 4, "\\/");
  EXPECT_EQ(grid.Text({4, 1}), "/\\");
  EXPECT_THAT(Boxes(), ElementsAre("#204 /\\!|"));
  Enter(grid, 4, "");
  EXPECT_EQ(Project().szUsedSeparator(), "");
}

TEST_F(SheetEdgesTest, TheSeparatorsThatCanBeTypedAreThoseOfTheProject) {
  Grid& grid = Show(kOpc).grid;
  Project().szACCEPTEDSEPARATORS("x#");
  Type(grid, 4, "/x\\#!a|");
  EXPECT_EQ(grid.OpenEdit()->text, "x#");
  grid.UserCancelEdit();
}

// ---- networks

TEST_F(SheetEdgesTest, TheListsOfAnMpiNetworkTakeTheNumberAtTheStartOfTheText) {
  const OpenSheet open = Show(kMpiNetwork);
  Enter(open.grid, 3, "57600 Baud");
  EXPECT_EQ(open.network->nMPI_Baudrate(), 57600);
  EXPECT_EQ(open.grid.Text({3, 1}), "57600");
  Enter(open.grid, 3, "Baud 19200");
  Enter(open.grid, 3, "");
  EXPECT_EQ(open.grid.Text({3, 1}), "57600");
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(SheetEdgesTest, AHighestNumberBelowTheOwnOneIsStoredAndTold) {
  const OpenSheet open = Show(kMpiNetwork);
  Enter(open.grid, 5, "15");
  EXPECT_EQ(open.network->nMPI_MaxMPINo(), 15);
  EXPECT_EQ(open.grid.Text({5, 1}), "15");
  EXPECT_THAT(Boxes(), ElementsAre("#236"));
}

TEST_F(SheetEdgesTest, AnUnknownHighestNumberDoesNotReachTheNetworkAtAll) {
  const OpenSheet open = Show(kMpiNetwork);
  Enter(open.grid, 5, "7");
  EXPECT_EQ(open.network->nMPI_MaxMPINo(), 31);
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(SheetEdgesTest, TheOwnNumberAgainCountsAsTaken) {
  const OpenSheet open = Show(kMpiNetwork);
  Enter(open.grid, 6, "30");
  EXPECT_EQ(open.grid.Text({6, 1}), "30");
  EXPECT_THAT(Boxes(), ElementsAre("#229"));
}

TEST_F(SheetEdgesTest, TheNetworkThatIsSelectedIsTheOneThatIsEdited) {
  const OpenSheet open = Show(kMpiNetwork);
  cNetwork& second = AddNetwork(NetworkType::Mpi, "Second");
  second.Show(open.grid);
  Enter(open.grid, 7, "777");
  EXPECT_EQ(second.nMPI_CyclicTime(), 777);
  EXPECT_EQ(open.network->nMPI_CyclicTime(), 10);
}

TEST_F(SheetEdgesTest, OnlyTheAddressToBindToTakesTheLettersOfAMacAddress) {
  const OpenSheet open = Show(kH1Network);
  Enter(open.grid, 3, "08-00-AB");
  Enter(open.grid, 4, "08-00-AB");
  EXPECT_EQ(open.network->szH1_LocalMACAddress(), "0800");
  EXPECT_EQ(open.network->szH1_BindMACAddress(), "08-00-AB");
}

TEST_F(SheetEdgesTest, ALocalAddressMayBe0AndMayNotBeTheMachineItself) {
  for (int sheet = 3; sheet <= 5; ++sheet) {
    Grid& grid = Show(sheet).grid;
    Enter(grid, 3, "10.1.1.1");
    Enter(grid, 3, "0.0.0.0");
    EXPECT_EQ(grid.Text({3, 1}), "0.0.0.0") << grid.Name();
    EXPECT_THAT(Boxes(), IsEmpty());
    Enter(grid, 3, "127.0.0.1");
    Enter(grid, 3, "");
    EXPECT_EQ(grid.Text({3, 1}), "0.0.0.0") << grid.Name();
    EXPECT_THAT(Boxes(), ElementsAre("#239 : ", "#204 #218"));
  }
}

// ---- devices

TEST_F(SheetEdgesTest, TheHighestNumberOfTheBusBoundsTheAddressOfADevice) {
  const OpenSheet open = Show(kMpiDevice);
  open.network->nMPI_OwnMPINo(1);
  open.network->nMPI_MaxMPINo(15);
  Enter(open.grid, 2, "15");
  EXPECT_EQ(open.device->nMPI_SlaveNo(), 15);
  EXPECT_THAT(Boxes(), IsEmpty());
  Enter(open.grid, 2, "16");
  EXPECT_EQ(open.grid.Text({2, 1}), "16");
  EXPECT_EQ(open.device->nMPI_SlaveNo(), 15);
  EXPECT_THAT(Boxes(), ElementsAre("#204 0 <= x <= 15"));
}

TEST_F(SheetEdgesTest, AnAddressWithinTheBusIsStillTheDevicesToRefuse) {
  const OpenSheet open = Show(kMpiDevice);
  Enter(open.grid, 2, "30");
  EXPECT_EQ(open.grid.Text({2, 1}), "2");
  EXPECT_EQ(open.device->nMPI_SlaveNo(), 2);
  EXPECT_THAT(Boxes(), ElementsAre("#229"));
}

TEST_F(SheetEdgesTest, AnEmptyAddressOfADeviceIsTheNumber0) {
  const OpenSheet open = Show(kMpiDevice);
  Enter(open.grid, 2, "");
  EXPECT_EQ(open.device->nMPI_SlaveNo(), 0);
  EXPECT_EQ(open.grid.Text({2, 1}), "0");
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(SheetEdgesTest, AnAddressFarBeyondTheBusIsOutOfRangeAndNoError) {
  const OpenSheet open = Show(kMpiDevice);
  Enter(open.grid, 2, "99999999999");
  EXPECT_EQ(open.grid.Text({2, 1}), "99999999999");
  EXPECT_THAT(Boxes(), ElementsAre("#204 0 <= x <= 31"));
}

TEST_F(SheetEdgesTest, ThePingOfAnIsoDeviceMustBeANumber) {
  const OpenSheet open = Show(kIsoDevice);
  Enter(open.grid, 7, "");
  EXPECT_THAT(Boxes(), ElementsAre("#199 13 #200 frmOPC.vsgTCPISODVC_AfterEdit : Type mismatch"));
  EXPECT_EQ(open.grid.Text({7, 1}), "");
  EXPECT_EQ(open.device->nTCPISO_PingEnabled(), 1);
  EXPECT_FALSE(open.device->bDataDirty());
  open.device->Show(open.grid);
  EXPECT_EQ(open.grid.Text({7, 1}), "1");
}

TEST_F(SheetEdgesTest, AnEmptyPingOfAReadWriteDeviceIsTheNumber0) {
  const OpenSheet open = Show(kRwDevice);
  Enter(open.grid, 11, "");
  EXPECT_EQ(open.device->nTCPRW_PingEnabled(), 0);
  EXPECT_EQ(open.grid.Text({11, 1}), "0");
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(SheetEdgesTest, AGapOf0IsPassedOverAndTheOldOneComesBack) {
  const OpenSheet open = Show(kRwDevice);
  Enter(open.grid, 10, "0");
  EXPECT_EQ(open.grid.Text({10, 1}), "30");
  EXPECT_FALSE(open.device->bDataDirty());
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(SheetEdgesTest, OnlyTheRemoteAddressOfAnIpkDeviceIsFiltered) {
  for (const auto& [sheet, row] : {std::pair{kIsoDevice, 3}, {kRwDevice, 5}, {kIpkDevice, 5}}) {
    Grid& grid = Show(sheet).grid;
    Type(grid, row, "plc-7.1");
    EXPECT_EQ(grid.OpenEdit()->text, sheet == kIpkDevice ? "7.1" : "plc-7.1") << grid.Name();
    grid.UserCancelEdit();
  }
}

TEST_F(SheetEdgesTest, APortThatAnotherDeviceHasIsToldAndGoesFromTheCell) {
  const OpenSheet open = Show(kRwDevice);
  open.device->nTCPRW_LocalPortRead(2000);
  cDevice& second = AddDevice(*open.network, "Second");
  second.Show(open.grid);
  Enter(open.grid, 4, "2000");
  EXPECT_EQ(open.grid.Text({4, 1}), "0");
  EXPECT_THAT(Boxes(), ElementsAre("#233"));
  Enter(open.grid, 4, "0");
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(SheetEdgesTest, AChangeOfThePlcTypeLeavesTheTagsAlone) {
  const OpenSheet open = Show(kRwDevice);
  auto tag = std::make_unique<cTag>();
  tag->szTag("T");
  tag->szData("MB10");
  tag->bDataDirty(false);
  open.device->Tags().AddItem(std::move(tag));
  int asked = 0;
  syntax.source = [&](std::string&, std::int32_t, std::int32_t) { return ++asked, 0; };
  Enter(open.grid, 2, "S5");
  EXPECT_EQ(asked, 0);
  EXPECT_FALSE(open.device->Tags().AnyDirty());
  EXPECT_EQ(open.device->nTCPRW_PLCType(), 2);
}

}  // namespace
}  // namespace tavrin
