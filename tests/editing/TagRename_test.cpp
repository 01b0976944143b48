// Edits of the name of a tag, and what a row and its tag are to each other afterwards.
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editing/TagRowsTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kNotInTheList = "#199 5 #200 cTags.Get_Tag : Invalid procedure call or argument";

/// Two tags in rows 1 and 2; row 3 is the empty one.
class TagRenameTest : public TagRowsTest {
 protected:
  TagRenameTest() {
    NewDevice();
    AddTag("T1", "MB1");
    AddTag("T2", "MB2");
  }
};

TEST_F(TagRenameTest, ANewNameGoesToTheTag) {
  Enter({1, 1}, "Pump_1.x");
  EXPECT_EQ(TagAt(1).szTag(), "Pump_1.x");
  EXPECT_EQ(grid.Text({1, 1}), "Pump_1.x");
  EXPECT_TRUE(TagAt(1).bDataDirty());
  EXPECT_FALSE(TagAt(2).bDataDirty());
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(TagRenameTest, ANewNameIsTrimmed) {
  Enter({1, 1}, "  a b ");
  EXPECT_EQ(TagAt(1).szTag(), "a b");
  EXPECT_EQ(grid.Text({1, 1}), "a b");
}

TEST_F(TagRenameTest, TheSameNameAgainChangesNothing) {
  int asked = 0;
  syntax.tagName = [&](std::string&) { return ++asked, 0; };
  for (const char* text : {"T1", " T1  "}) {
    Enter({1, 1}, text);
    EXPECT_EQ(grid.Text({1, 1}), "T1");
  }
  EXPECT_FALSE(TagAt(1).bDataDirty());
  EXPECT_EQ(asked, 0);
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(TagRenameTest, ANameOf33CharactersIsToldAndNobodyAsked) {
  int asked = 0;
  syntax.tagName = [&](std::string&) { return ++asked, 0; };
  Enter({1, 1}, std::string(33, 'x'));
  EXPECT_THAT(Boxes(), ElementsAre("#225"));
  EXPECT_EQ(grid.Text({1, 1}), "T1");
  EXPECT_EQ(asked, 0);
  Enter({1, 1}, " " + std::string(32, 'x') + " ");
  EXPECT_EQ(TagAt(1).szTag(), std::string(32, 'x'));
}

TEST_F(TagRenameTest, ANameThatIsTakenIsToldWithTheName) {
  Enter({1, 1}, " t2 ");
  EXPECT_THAT(Boxes(), ElementsAre("#221 (t2)"));
  EXPECT_EQ(grid.Text({1, 1}), "T1");
  EXPECT_FALSE(TagAt(1).bDataDirty());
}

TEST_F(TagRenameTest, TheOwnNameInAnotherCaseIsTaken) {
  Enter({1, 1}, "t1");
  EXPECT_THAT(Boxes(), ElementsAre("#221 (t1)"));
  EXPECT_EQ(TagAt(1).szTag(), "T1");
}

TEST_F(TagRenameTest, WithCaseSensitiveNamesAnotherCaseIsAnotherName) {
  Project().nCaseSensitive(1);
  Enter({1, 1}, "t2");
  EXPECT_EQ(TagAt(1).szTag(), "t2");
  Enter({2, 1}, "t2");
  EXPECT_THAT(Boxes(), ElementsAre("#221 (t2)"));
  EXPECT_EQ(TagAt(2).szTag(), "T2");
}

TEST_F(TagRenameTest, ANameThatTheCheckerRefusesIsToldAndTheOldOneComesBack) {
  for (const auto& [result, told] : {std::pair{1, "#225"}, {2, "#224"}, {3, "#223"}}) {
    syntax.tagName = [&, answer = result](std::string&) { return answer; };
    Enter({1, 1}, "new");
    EXPECT_THAT(Boxes(), ElementsAre(told));
    EXPECT_EQ(grid.Text({1, 1}), "T1");
    EXPECT_EQ(TagAt(1).szTag(), "T1");
    EXPECT_FALSE(TagAt(1).bDataDirty());
  }
}

TEST_F(TagRenameTest, AnAnswerThatNoCheckerGivesIsToldInItsOwnWords) {
  syntax.tagName = [](std::string&) { return 4; };
  Enter({1, 1}, "new");
  EXPECT_THAT(Boxes(), ElementsAre("unbekannter Fehler beim Pr\xFC"
                                   "fen eibnes Tagnames (cTag.szTag)"));
  EXPECT_EQ(grid.Text({1, 1}), "T1");
}

TEST_F(TagRenameTest, TheNameThatTheCheckerLeavesIsTheName) {
  syntax.tagName = [](std::string& name) {
    name.pop_back();
    return 0;
  };
  Enter({1, 1}, "Valve!");
  EXPECT_EQ(TagAt(1).szTag(), "Valve");
  EXPECT_EQ(grid.Text({1, 1}), "Valve");
}

TEST_F(TagRenameTest, AnEmptiedNameIsRefused) {
  for (const char* text : {"", "   "}) {
    Enter({1, 1}, text);
    EXPECT_THAT(Boxes(), ElementsAre("#223"));
    EXPECT_EQ(grid.Text({1, 1}), "T1");
  }
}

TEST_F(TagRenameTest, TheEndOfTheEditIsLeftOut) {
  grid.UserSelect({1, 1});
  grid.UserType("New");
  grid.Select({1, 9});
  grid.UserEndEdit();
  EXPECT_EQ(grid.Current(), (Cell{1, 9}));
  EXPECT_EQ(grid.Rows(), 4);
}

// ---- row and tag after a rename

TEST_F(TagRenameTest, FurtherEditsOfTheRowStillFindTheTag) {
  Enter({1, 1}, "New");
  EXPECT_EQ(grid.Text({1, 0}), "T1");
  Enter({1, 9}, "note");
  Enter({1, 1}, "Newer");
  EXPECT_EQ(grid.Text({1, 0}), "T1");
  EXPECT_EQ(TagAt(1).szTag(), "Newer");
  EXPECT_EQ(TagAt(1).szComment(), "note");
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(TagRenameTest, TheRowIsNotDeleted) {
  Enter({1, 1}, "New");
  desktop.AnswerNext(true);
  grid.UserSelect({1, 1});
  grid.UserKey(Key::Delete);
  EXPECT_THAT(Names(), ElementsAre("New", "T2"));
  EXPECT_TRUE(modMain::CurrentDevice().bDataDirty());
}

TEST_F(TagRenameTest, AfterANewShowTheNextEditEndsInOneReportAndKeepsWhatWasTyped) {
  Enter({1, 1}, "New");
  Show();
  EXPECT_EQ(Row(1), "New|New|MB1|RW||||||");
  Enter({1, 9}, "note");
  EXPECT_THAT(Boxes(), ElementsAre(kNotInTheList));
  EXPECT_EQ(grid.Text({1, 9}), "note");
  EXPECT_EQ(grid.Current(), (Cell{1, 9}));
  EXPECT_EQ(TagAt(1).szComment(), "");
  Enter({1, 1}, "Newer");
  EXPECT_THAT(Boxes(), ElementsAre(kNotInTheList));
  EXPECT_EQ(grid.Text({1, 1}), "Newer");
  EXPECT_EQ(TagAt(1).szTag(), "New");
}

TEST_F(TagRenameTest, AfterANewShowTheRowIsDeletedAgain) {
  Enter({1, 1}, "New");
  Show();
  desktop.AnswerNext(true);
  grid.UserSelect({1, 1});
  grid.UserKey(Key::Delete);
  EXPECT_THAT(Names(), ElementsAre("T2"));
}

TEST_F(TagRenameTest, SaveAndLoadHealTheRow) {
  Enter({1, 1}, "New");
  EXPECT_TRUE(Save());
  EXPECT_TRUE(Load());
  Show();
  Enter({1, 9}, "note");
  EXPECT_EQ(TagAt(1).szComment(), "note");
  desktop.AnswerNext(true);
  grid.UserSelect({1, 1});
  grid.UserKey(Key::Delete);
  EXPECT_THAT(Names(), ElementsAre("T2"));
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(TagRenameTest, TheOldNameIsFreeAndYetItsKeyIsNot) {
  Enter({1, 1}, "New");
  Enter({3, 1}, "T1");
  Enter({3, 2}, "MB3");
  EXPECT_THAT(Boxes(), IsEmpty());
  Enter({3, 3}, "RW");
  EXPECT_THAT(Boxes(), ElementsAre("#221 (T1)"));
  EXPECT_EQ(Row(3), "|||||||||");
  EXPECT_THAT(Names(), ElementsAre("New", "T2"));
}

TEST_F(TagRenameTest, TwoTagsCanSwapTheirNames) {
  Enter({1, 1}, "Temp");
  Enter({2, 1}, "T1");
  Enter({1, 1}, "T2");
  EXPECT_THAT(Names(), ElementsAre("T2", "T1"));
  Enter({1, 2}, "MB11");
  EXPECT_EQ(TagAt(1).szData(), "MB11");
  EXPECT_THAT(Boxes(), IsEmpty());
}

}  // namespace
}  // namespace tavrin
