// Edits in a row of the tag grid that holds a tag.
#include <array>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editing/ProjectState.h"
#include "editing/TagRowsTest.h"
#include "model/RawSettings.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Two tags in rows 1 and 2; row 3 is the empty one.
class BoundRowTest : public TagRowsTest {
 protected:
  BoundRowTest() {
    NewDevice();
    AddTag("T1", "MB1");
    AddTag("T2", "MB2", "RO");
  }
};

// ---- the address

TEST_F(BoundRowTest, TheAddressIsAskedAsTypeMpiWithThePlcTypeOfTheDevice) {
  const std::array<std::pair<NetworkType, std::int32_t>, 5> kPlcTypes{{{NetworkType::Mpi, 7},
                                                                       {NetworkType::H1, 3},
                                                                       {NetworkType::TcpIso, 4},
                                                                       {NetworkType::TcpRw, 2},
                                                                       {NetworkType::TcpIpk, 2}}};
  for (const auto& [type, plc] : kPlcTypes) {
    cDevice& device = NewDevice(type);
    DeviceSettings& raw = RawSettings(device);
    raw.nMPI_PLCType = raw.nH1_PLCType = raw.nTCPISO_PLCType = raw.nTCPRW_PLCType = raw.nTCPIPK_PLCType = 1;
    constexpr std::array kFields{&DeviceSettings::nMPI_PLCType, &DeviceSettings::nH1_PLCType,
                                 &DeviceSettings::nTCPISO_PLCType, &DeviceSettings::nTCPRW_PLCType,
                                 &DeviceSettings::nTCPIPK_PLCType};
    raw.*kFields.at(static_cast<std::size_t>(type)) = plc;
    AddTag("T1");
    std::vector<std::string> asked;
    syntax.source = [&](std::string& text, std::int32_t deviceType, std::int32_t plcType) {
      asked.push_back(text + "," + std::to_string(deviceType) + "," + std::to_string(plcType));
      return 0;
    };
    Enter({1, 2}, "  db1.x\xE4 ");
    EXPECT_THAT(asked, ElementsAre("DB1.X\xC4,0," + std::to_string(plc)));
    EXPECT_EQ(TagAt(1).szData(), "  db1.x\xE4 ");
  }
}

TEST_F(BoundRowTest, AnAcceptedAddressIsTakenAsItStands) {
  syntax.source = [](std::string& text, std::int32_t, std::int32_t) {
    text = "OTHER";
    return 0;
  };
  Enter({1, 2}, " mb7 ");
  EXPECT_EQ(TagAt(1).szData(), " mb7 ");
  EXPECT_EQ(grid.Text({1, 2}), " mb7 ");
  EXPECT_TRUE(TagAt(1).bDataDirty());
  EXPECT_FALSE(TagAt(2).bDataDirty());
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(BoundRowTest, AnAddressInLowerCaseComesBackInUpperCaseWithTheNextLoad) {
  Enter({1, 2}, "mb7");
  EXPECT_TRUE(Save());
  EXPECT_TRUE(Load());
  EXPECT_EQ(TagAt(1).szData(), "MB7");
}

TEST_F(BoundRowTest, ARefusedAddressIsToldAndTheOldOneComesBack) {
  for (const auto& [result, told] : {std::pair{1, "#228"}, {2, "#226"}, {3, "#227"}}) {
    syntax.source = [&, answer = result](std::string&, std::int32_t, std::int32_t) { return answer; };
    Enter({1, 2}, "MB7");
    EXPECT_THAT(Boxes(), ElementsAre(told));
    EXPECT_EQ(grid.Text({1, 2}), "MB1");
    EXPECT_EQ(TagAt(1).szData(), "MB1");
    EXPECT_FALSE(TagAt(1).bDataDirty());
  }
}

TEST_F(BoundRowTest, AnyOtherAnswerAcceptsTheAddress) {
  for (const int result : {4, -1}) {
    syntax.source = [&, answer = result](std::string&, std::int32_t, std::int32_t) { return answer; };
    Enter({1, 2}, "MB" + std::to_string(result));
    EXPECT_EQ(TagAt(1).szData(), "MB" + std::to_string(result));
  }
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(BoundRowTest, AnEmptiedAddressIsTheCheckersToRefuse) {
  Enter({1, 2}, "");
  EXPECT_THAT(Boxes(), ElementsAre("#227"));
  EXPECT_EQ(grid.Text({1, 2}), "MB1");
}

TEST_F(BoundRowTest, AnEmptyAddressThatTheCheckerAcceptsIsTheTagsToRefuse) {
  syntax.source = [](std::string&, std::int32_t, std::int32_t) { return 0; };
  Enter({1, 2}, "");
  EXPECT_THAT(Boxes(), ElementsAre("#227"));
  EXPECT_EQ(grid.Text({1, 2}), "MB1");
}

// ---- access, bounds, test value, comment

TEST_F(BoundRowTest, AnAccessIsTakenInItsNormalForm) {
  Enter({1, 3}, " ro ");
  EXPECT_EQ(TagAt(1).szRW(), "RO");
  EXPECT_EQ(grid.Text({1, 3}), "RO");
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(BoundRowTest, ARefusedAccessIsToldAndTheOldOneComesBack) {
  for (const char* text : {"R", "", "OFF"}) {
    Enter({1, 3}, text);
    EXPECT_THAT(Boxes(), ElementsAre("#204 RO / RW"));
    EXPECT_EQ(grid.Text({1, 3}), "RW");
  }
  EXPECT_FALSE(TagAt(1).bDataDirty());
}

TEST_F(BoundRowTest, TheFreeTextsAreTakenAsTheyStand) {
  for (int col = 4; col <= 9; ++col) {
    TagAt(1).bDataDirty(false);
    const std::string text = " Any \xE4 " + std::to_string(col) + ";";
    Enter({1, col}, text);
    EXPECT_EQ(grid.Text({1, col}), text);
    EXPECT_TRUE(TagAt(1).bDataDirty());
  }
  EXPECT_EQ(TextsOf(TagAt(1)),
            "T1|MB1|RW| Any \xE4 4;| Any \xE4 5;| Any \xE4 6;| Any \xE4 7;| Any \xE4 8;| Any \xE4 9;");
  EXPECT_EQ(Row(1), "T1|" + TextsOf(TagAt(1)));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(BoundRowTest, AFreeTextCanBeEmptied) {
  TagAt(1).szComment("old");
  TagAt(1).szLB("1");
  Show();
  Enter({1, 9}, "");
  Enter({1, 6}, "");
  EXPECT_EQ(TextsOf(TagAt(1)), "T1|MB1|RW||||||");
}

TEST_F(BoundRowTest, OnlyTheCommaOfACommentCannotBeTyped) {
  for (int col = 1; col <= 9; ++col) {
    grid.UserSelect({1, col});
    grid.UserType("a,Ee+-;Z 9\xE4");
    EXPECT_EQ(grid.OpenEdit()->text, col == 9 ? "aEe+-;Z 9\xE4" : "a,Ee+-;Z 9\xE4") << col;
    EXPECT_EQ(grid.FilterTyped("p,q"), col == 9 ? "pq" : "p,q") << col;
    grid.UserCancelEdit();
  }
}

TEST_F(BoundRowTest, ACommentEndsAtItsSemicolonWithTheNextLoad) {
  Enter({1, 9}, "one;two");
  EXPECT_EQ(TagAt(1).szComment(), "one;two");
  EXPECT_TRUE(Save());
  EXPECT_TRUE(Load());
  EXPECT_EQ(TagAt(1).szComment(), "one");
}

// ---- the end of the edit

TEST_F(BoundRowTest, AfterACommentTheCursorStandsOnTheLastTag) {
  AddTag("T3");
  for (int row = 1; row <= 3; ++row) {
    Enter({row, 9}, "note");
    EXPECT_EQ(grid.Current(), (Cell{3, 1})) << row;
    EXPECT_EQ(grid.SelectionEnd(), (Cell{3, 1})) << row;
    EXPECT_EQ(grid.Rows(), 5) << row;
  }
}

TEST_F(BoundRowTest, ACommentInTheLastRowBringsAnEmptyRow) {
  grid.RemoveItem(3);
  Enter({2, 9}, "note");
  EXPECT_EQ(grid.Rows(), 4);
  EXPECT_EQ(Row(3), "|||||||||");
  EXPECT_EQ(grid.Current(), (Cell{2, 1}));
}

TEST_F(BoundRowTest, OtherColumnsLeaveTheCursorWhereItIs) {
  for (int col = 2; col <= 8; ++col) {
    Enter({1, col}, col == 3 ? "RO" : "x");
    EXPECT_EQ(grid.Current(), (Cell{1, col}));
  }
  EXPECT_EQ(grid.Rows(), 4);
}

TEST_F(BoundRowTest, TheCurrentColumnDecidesOnTheEndOfTheEditAndNotTheEditedOne) {
  grid.UserSelect({1, 4});
  grid.UserType("5");
  grid.Select({2, 9});
  grid.UserEndEdit();
  EXPECT_EQ(TagAt(1).szHystLB(), "5");
  EXPECT_EQ(grid.Current(), (Cell{2, 1}));
}

TEST_F(BoundRowTest, ARefusedTextEndsTheEditLikeAnyOther) {
  grid.UserSelect({1, 3});
  grid.UserType("X");
  grid.Select({1, 9});
  grid.UserEndEdit();
  EXPECT_THAT(Boxes(), ElementsAre("#204 RO / RW"));
  EXPECT_EQ(grid.Current(), (Cell{2, 1}));
}

TEST_F(BoundRowTest, AnEditThatIsGivenUpRunsNoRule) {
  for (int col = 1; col <= 9; ++col) {
    grid.UserSelect({1, col});
    grid.UserType("other");
    EXPECT_TRUE(grid.UserKey(Key::Escape));
    EXPECT_EQ(grid.Current(), (Cell{1, col}));
  }
  EXPECT_EQ(Row(1), "T1|T1|MB1|RW||||||");
  EXPECT_FALSE(TagAt(1).bDataDirty());
}

TEST_F(BoundRowTest, AllCellsAreTextBoxes) {
  for (int row = 1; row <= 3; ++row) {
    for (int col = 1; col <= 9; ++col) {
      grid.UserSelect({row, col});
      grid.UserBeginEdit();
      ASSERT_NE(grid.OpenEdit(), nullptr);
      EXPECT_THAT(grid.OpenEdit()->choices, IsEmpty());
      grid.UserCancelEdit();
    }
  }
}

TEST_F(BoundRowTest, WithoutADeviceTheEditEndsInTheReport) {
  grid.UserSelect({1, 2});
  grid.UserType("MB7");
  modMain::globals.gnCurrentDevice = 0;
  grid.UserEndEdit();
  EXPECT_THAT(Boxes(), ElementsAre("#199 91 #200 frmOPC.vsgTags_AfterEdit : Object variable or With block variable "
                                   "not set"));
  EXPECT_EQ(grid.Text({1, 2}), "MB7");
}

}  // namespace
}  // namespace tavrin
