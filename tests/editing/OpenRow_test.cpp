// Edits in a row of the tag grid that holds no tag yet.
#include <algorithm>
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

/// One tag in row 1; row 2 is the empty one.
class OpenRowTest : public TagRowsTest {
 protected:
  OpenRowTest() {
    NewDevice();
    AddTag("T1", "MB1");
  }
  static constexpr int kOpen = 2;
  void EnterName(const char* text = "New") { Enter({kOpen, 1}, text); }
  void EnterData(const char* text = "MB2") { Enter({kOpen, 2}, text); }
  void EnterAccess(const char* text = "RW") { Enter({kOpen, 3}, text); }
};

TEST_F(OpenRowTest, TheTagIsMadeWhenTheThirdOfNameAddressAndAccessArrivesInWhateverOrder) {
  std::array<int, 3> order{1, 2, 3};
  do {
    NewDevice();
    for (std::size_t i = 0; i < order.size(); ++i) {
      EXPECT_EQ(Tags().Count(), 0);
      EXPECT_EQ(grid.Text({1, 0}), "");
      Enter({1, order.at(i)}, std::array{"", "New", "MB2", "RO"}.at(static_cast<std::size_t>(order.at(i))));
    }
    EXPECT_EQ(TextsOf(TagAt(1)), "New|MB2|RO||||||");
    EXPECT_EQ(Row(1), "New|New|MB2|RO||||||");
    EXPECT_EQ(grid.Rows(), 2);
    EXPECT_EQ(grid.Current(), (Cell{1, order.at(2)}));
  } while (std::next_permutation(order.begin(), order.end()));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(OpenRowTest, TheTextsOfTheRowAreTrimmedAndButForNameAndCommentInUpperCase) {
  for (int col = 4; col <= 9; ++col) Enter({kOpen, col}, " a\xE4" + std::to_string(col) + " ");
  // The comment has brought an empty row below.
  EnterName(" New\xE4 ");
  EnterData(" mb\xE4 ");
  EXPECT_EQ(Row(kOpen),
            "| New\xE4 | mb\xE4 || a\xE4"
            "4 | a\xE4"
            "5 | a\xE4"
            "6 | a\xE4"
            "7 | a\xE4"
            "8 | a\xE4"
            "9 ");
  EnterAccess(" ro ");
  EXPECT_EQ(TextsOf(TagAt(2)),
            "New\xE4|MB\xC4|RO|A\xC4"
            "4|A\xC4"
            "5|A\xC4"
            "6|A\xC4"
            "7|A\xC4"
            "8|a\xE4"
            "9");
  EXPECT_EQ(Row(kOpen), "New\xE4|" + TextsOf(TagAt(2)));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(OpenRowTest, TheNewTagIsAtTheEndAndDirtyAndKnowsNoFile) {
  EnterName();
  EnterData();
  EnterAccess();
  EXPECT_THAT(Names(), ElementsAre("T1", "New"));
  EXPECT_TRUE(TagAt(2).bDataDirty());
  EXPECT_EQ(TagAt(2).szFileName(), "");
  EXPECT_FALSE(TagAt(1).bDataDirty());
  EXPECT_FALSE(modMain::CurrentDevice().bDataDirty());
  EXPECT_TRUE(Project().bOpcProjectDirty());
}

TEST_F(OpenRowTest, TheNewRowIsBoundFromThenOn) {
  EnterName();
  EnterData("mb2");
  EnterAccess();
  EXPECT_EQ(grid.Text({kOpen, 2}), "MB2");
  EnterData("mb3");
  EXPECT_EQ(TagAt(2).szData(), "mb3");
  EXPECT_EQ(Tags().Count(), 2);
}

// ---- the name

TEST_F(OpenRowTest, ANameThatTheCheckerRefusesIsToldAndItsCellEmptied) {
  EnterData("mb2");
  for (const auto& [result, told] : {std::pair{1, "#225"}, {2, "#224"}, {3, "#223"}}) {
    syntax.tagName = [&, answer = result](std::string&) { return answer; };
    EnterName();
    EXPECT_THAT(Boxes(), ElementsAre(told));
    EXPECT_EQ(Row(kOpen), "||mb2|||||||");
  }
}

TEST_F(OpenRowTest, TheCheckerAloneDecidesOnTheLengthOfAName) {
  syntax.tagName = [](std::string&) { return 0; };
  EnterName(std::string(40, 'x').c_str());
  EXPECT_THAT(Boxes(), IsEmpty());
  EnterData();
  EnterAccess();
  EXPECT_EQ(TagAt(2).szTag(), std::string(40, 'x'));
}

TEST_F(OpenRowTest, TheCheckerIsAskedWithTheTrimmedNameBeforeTheList) {
  std::vector<std::string> asked;
  syntax.tagName = [&](std::string& name) {
    asked.push_back(name);
    return 2;
  };
  EnterName(" t1 ");
  EXPECT_THAT(asked, ElementsAre("t1"));
  EXPECT_THAT(Boxes(), ElementsAre("#224"));
}

TEST_F(OpenRowTest, ANameThatIsTakenIsToldAndItsCellEmptied) {
  EnterName(" t1 ");
  EXPECT_THAT(Boxes(), ElementsAre("#221 (t1)"));
  EXPECT_EQ(grid.Text({kOpen, 1}), "");
  Project().nCaseSensitive(1);
  EnterName("t1");
  EXPECT_THAT(Boxes(), IsEmpty());
  EXPECT_EQ(grid.Text({kOpen, 1}), "t1");
}

TEST_F(OpenRowTest, AnEmptiedNameIsRefused) {
  EnterName();
  EnterName("");
  EXPECT_THAT(Boxes(), ElementsAre("#223"));
  EXPECT_EQ(grid.Text({kOpen, 1}), "");
}

TEST_F(OpenRowTest, TheNameThatTheCheckerLeavesIsTheName) {
  syntax.tagName = [](std::string& name) {
    name = name.substr(0, name.find('!'));
    return 0;
  };
  EnterData();
  EnterAccess();
  EnterName("Valve!");
  EXPECT_EQ(Row(kOpen), "Valve|Valve|MB2|RW||||||");
  NewDevice();
  AddTag("Valve");
  EnterName("valve!");
  EXPECT_THAT(Boxes(), ElementsAre("#221 (valve)"));
}

// ---- the address

TEST_F(OpenRowTest, TheAddressIsAskedWithTypeAndPlcTypeOfTheDevice) {
  constexpr std::array kFields{&DeviceSettings::nMPI_PLCType, &DeviceSettings::nH1_PLCType,
                               &DeviceSettings::nTCPISO_PLCType, &DeviceSettings::nTCPRW_PLCType,
                               &DeviceSettings::nTCPIPK_PLCType};
  for (int type = 0; type < kNetworkTypes; ++type) {
    cDevice& device = NewDevice(static_cast<NetworkType>(type));
    RawSettings(device).*kFields.at(static_cast<std::size_t>(type)) = 20 + type;
    std::vector<std::string> asked;
    syntax.source = [&](std::string& text, std::int32_t deviceType, std::int32_t plcType) {
      asked.push_back(text + "," + std::to_string(deviceType) + "," + std::to_string(plcType));
      return 0;
    };
    Enter({1, 2}, "  db1.x\xE4 ");
    EXPECT_THAT(asked, ElementsAre("DB1.X\xC4," + std::to_string(type) + "," + std::to_string(20 + type)));
    EXPECT_EQ(grid.Text({1, 2}), "  db1.x\xE4 ");
  }
}

TEST_F(OpenRowTest, AnAddressThatTheCheckerRefusesIsToldAndItsCellEmptied) {
  EnterName();
  EnterAccess();
  for (const auto& [result, told] : {std::pair{1, "#228"}, {2, "#226"}, {3, "#227"}}) {
    syntax.source = [&, answer = result](std::string&, std::int32_t, std::int32_t) { return answer; };
    EnterData();
    EXPECT_THAT(Boxes(), ElementsAre(told));
    EXPECT_EQ(Row(kOpen), "|New||RW||||||");
  }
  EXPECT_EQ(Tags().Count(), 1);
}

TEST_F(OpenRowTest, AnyOtherAnswerAcceptsTheAddress) {
  syntax.source = [](std::string&, std::int32_t, std::int32_t) { return 4; };
  EnterName();
  EnterAccess();
  EnterData();
  EXPECT_EQ(Tags().Count(), 2);
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(OpenRowTest, TheAddressThatTheCheckerLeavesIsTheAddress) {
  syntax.source = [](std::string& text, std::int32_t, std::int32_t) {
    text = text.substr(0, text.find('!'));
    return 0;
  };
  EnterName();
  EnterAccess();
  EnterData("mb9!");
  EXPECT_EQ(Row(kOpen), "New|New|MB9|RW||||||");
}

TEST_F(OpenRowTest, OnlyTheEditedCellIsAsked) {
  int names = 0;
  int sources = 0;
  syntax.tagName = [&](std::string&) { return ++names, 0; };
  syntax.source = [&](std::string&, std::int32_t, std::int32_t) { return ++sources, 0; };
  EnterName();
  Enter({kOpen, 4}, "1");
  EnterAccess();
  EXPECT_EQ(names, 1);
  EXPECT_EQ(sources, 0);
  EnterData();
  EXPECT_EQ(sources, 1);
  EXPECT_EQ(names, 2);  // the tag that is made checks its name itself
}

// ---- the access

TEST_F(OpenRowTest, ARefusedAccessIsToldOnceWhileTheRowIsIncomplete) {
  EnterName();
  EnterAccess("X");
  EXPECT_THAT(Boxes(), ElementsAre("#204 RO / RW"));
  EXPECT_EQ(Row(kOpen), "|New||||||||");
}

TEST_F(OpenRowTest, ARefusedAccessOfACompleteRowIsToldTwiceAndEmptiesTheRow) {
  EnterName();
  EnterData();
  Enter({kOpen, 8}, "5");
  EnterAccess("X");
  EXPECT_THAT(Boxes(), ElementsAre("#204 RO / RW", "#204 RO / RW"));
  EXPECT_EQ(Row(kOpen), "|||||||||");
  EXPECT_EQ(Tags().Count(), 1);
  EXPECT_FALSE(Project().bOpcProjectDirty());
}

TEST_F(OpenRowTest, AnEmptiedAccessIsToldOnceAndLeavesTheRow) {
  EnterName();
  EnterData();
  EnterAccess("");
  EXPECT_THAT(Boxes(), ElementsAre("#204 RO / RW"));
  EXPECT_EQ(Row(kOpen), "|New|MB2|||||||");
}

TEST_F(OpenRowTest, ARefusedAccessEndsTheEditLikeAnyOther) {
  EnterName();
  grid.UserSelect({kOpen, 3});
  grid.UserType("X");
  grid.Select({kOpen, 9});
  grid.UserEndEdit();
  EXPECT_THAT(Boxes(), ElementsAre("#204 RO / RW"));
  EXPECT_EQ(grid.Rows(), 4);
  EXPECT_EQ(grid.Current(), (Cell{2, 1}));
}

TEST_F(OpenRowTest, ARefusedNameOrAddressStopsBeforeTheEndOfTheEdit) {
  for (const int col : {1, 2}) {
    grid.UserSelect({kOpen, col});
    grid.UserBeginEdit();
    grid.Select({kOpen, 9});
    grid.UserEndEdit();
    EXPECT_EQ(Boxes().size(), 1U);
    EXPECT_EQ(grid.Rows(), 3);
    EXPECT_EQ(grid.Current(), (Cell{kOpen, 9}));
  }
}

// ---- making the tag

TEST_F(OpenRowTest, ANameThatTheTagRefusesEmptiesTheRow) {
  EnterName();
  EnterData();
  syntax.tagName = [](std::string&) { return 2; };
  EnterAccess();
  EXPECT_THAT(Boxes(), ElementsAre("#224"));
  EXPECT_EQ(Row(kOpen), "|||||||||");
  EXPECT_EQ(Tags().Count(), 1);
}

TEST_F(OpenRowTest, TheTagTellsEachOfItsRefusals) {
  EnterName();
  EnterData();
  syntax.tagName = [](std::string&) { return 2; };
  EnterAccess("X");
  EXPECT_THAT(Boxes(), ElementsAre("#204 RO / RW", "#224", "#204 RO / RW"));
}

TEST_F(OpenRowTest, AKeyThatIsTakenIsToldWithTheNameAndEmptiesTheRow) {
  EnterName("Pump\xE4");
  EnterData();
  // Letters beyond A to Z have no case in a key.
  Project().nCaseSensitive(1);
  AddTag("Pump\xC4");
  Enter({3, 1}, "Pump\xE4");
  Enter({3, 2}, "MB2");
  Enter({3, 9}, "note");
  EXPECT_THAT(Boxes(), IsEmpty());
  Enter({3, 3}, "RW");
  EXPECT_THAT(Boxes(), ElementsAre("#221 (Pump\xE4)"));
  EXPECT_EQ(Row(3), "|||||||||");
  EXPECT_EQ(Tags().Count(), 2);
}

TEST_F(OpenRowTest, ARefusedTagEndsTheEditLikeAnyOther) {
  EnterName();
  EnterData();
  grid.UserSelect({kOpen, 3});
  grid.UserType("X");
  grid.Select({kOpen, 9});
  grid.UserEndEdit();
  EXPECT_EQ(Boxes().size(), 2U);
  EXPECT_EQ(grid.Rows(), 4);
  EXPECT_EQ(grid.Current(), (Cell{2, 1}));
}

TEST_F(OpenRowTest, TwoOpenRowsCanTakeNamesThatDifferInCaseAlone) {
  EnterName("Motor");
  Enter({kOpen, 9}, "first");
  Enter({3, 1}, "MOTOR");
  Enter({3, 2}, "MB3");
  Enter({3, 3}, "RW");
  EnterData();
  EnterAccess();
  EXPECT_THAT(Names(), ElementsAre("T1", "MOTOR", "Motor"));
  EXPECT_THAT(Boxes(), IsEmpty());
}

// ---- the end of the edit

TEST_F(OpenRowTest, ACommentInTheLastRowBringsAnEmptyRowBelow) {
  EnterName();
  EnterData();
  EnterAccess();
  EXPECT_EQ(grid.Rows(), 3);
  Enter({kOpen, 9}, "note");
  EXPECT_EQ(grid.Rows(), 4);
  EXPECT_EQ(grid.Current(), (Cell{2, 1}));
  EXPECT_EQ(Row(2), "New|New|MB2|RW||||||note");
}

TEST_F(OpenRowTest, ACommentInARowWithoutATagBringsAnEmptyRowTooAndNoTag) {
  EnterName();
  Enter({kOpen, 9}, "note");
  EXPECT_EQ(grid.Rows(), 4);
  EXPECT_EQ(Row(2), "|New||||||||note");
  EXPECT_EQ(Row(3), "|||||||||");
  EXPECT_EQ(grid.Current(), (Cell{2, 1}));
  EXPECT_EQ(Tags().Count(), 1);
  EXPECT_FALSE(Project().bOpcProjectDirty());
}

TEST_F(OpenRowTest, ACommentAsTheLastEditOfACompleteRowMovesTheCursorAfterTheTagIsMade) {
  EnterName();
  EnterData();
  grid.UserSelect({kOpen, 3});
  grid.UserType("rw");
  grid.Select({kOpen, 9});
  grid.UserEndEdit();
  EXPECT_EQ(Tags().Count(), 2);
  EXPECT_EQ(grid.Rows(), 4);
  EXPECT_EQ(grid.Current(), (Cell{2, 1}));
}

TEST_F(OpenRowTest, ARowThatIsNotTheLastBringsNoEmptyRow) {
  EnterName();
  Enter({kOpen, 9}, "note");
  Enter({kOpen, 9}, "other note");
  EXPECT_EQ(grid.Rows(), 4);
  EXPECT_EQ(grid.Current(), (Cell{2, 1}));
}

TEST_F(OpenRowTest, ANewShowDropsTheRow) {
  EnterName();
  EnterData();
  Show();
  EXPECT_THAT(PaneTest::Lines(grid), ElementsAre("T1|T1|MB1|RW||||||", "|||||||||"));
  EXPECT_FALSE(Project().bOpcProjectDirty());
}

TEST_F(OpenRowTest, ATagWithoutANameHasAnOpenRow) {
  directory.Write("Dev.csv", ";MB5;RW\r\n");
  bool bOK = false;
  modMain::CurrentDevice().Tags().Refresh(0, 1);
  static_cast<void>(bOK);
  Show();
  EXPECT_EQ(Row(2), "||MB5|RW||||||");
  static_cast<void>(Boxes());
  Enter({2, 1}, "Named");
  EXPECT_EQ(Row(2), "Named|Named|MB5|RW||||||");
  EXPECT_THAT(Names(), ElementsAre("T1", "", "Named"));
}

TEST_F(OpenRowTest, TagsAreTypedOneAfterTheOther) {
  NewDevice();
  for (int tag = 1; tag <= 5; ++tag) {
    const std::string number = std::to_string(tag);
    for (const auto& [col, text] :
         {std::pair<int, std::string>{1, "N" + number}, {2, "MB" + number}, {3, "RW"}, {9, "note " + number}}) {
      Enter({tag, col}, text);
    }
  }
  EXPECT_THAT(Names(), ElementsAre("N1", "N2", "N3", "N4", "N5"));
  EXPECT_EQ(grid.Rows(), 7);
  EXPECT_TRUE(Save());
  EXPECT_EQ(directory.Read("Dev.csv"),
            tavrin::Lines({"N1;MB1;RW;CMT=note 1", "N2;MB2;RW;CMT=note 2", "N3;MB3;RW;CMT=note 3",
                           "N4;MB4;RW;CMT=note 4", "N5;MB5;RW;CMT=note 5"}));
}

TEST_F(OpenRowTest, WithoutADeviceTheEditEndsInTheReport) {
  grid.UserSelect({kOpen, 1});
  grid.UserType("New");
  modMain::globals.gnCurrentDevice = 0;
  grid.UserEndEdit();
  EXPECT_THAT(Boxes(), ElementsAre("#199 91 #200 frmOPC.vsgTags_AfterEdit : Object variable or With block variable "
                                   "not set"));
}

}  // namespace
}  // namespace tavrin
