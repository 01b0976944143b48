// Deleting the tags of the selected rows.
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editing/TagRowsTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Four tags in rows 1 to 4; row 5 is the empty one.
class TagDeletionTest : public TagRowsTest {
 protected:
  TagDeletionTest() {
    NewDevice();
    for (const char* name : {"T1", "T2", "T3", "T4"}) AddTag(name);
  }
  void Delete(int first, int last) {
    grid.UserSelect({first, 1}, {last, 1});
    EXPECT_TRUE(grid.UserKey(Key::Delete));
  }
};

TEST_F(TagDeletionTest, TheTagsOfTheSelectedRowsGoAfterAsking) {
  desktop.AnswerNext(true);
  Delete(2, 3);
  EXPECT_THAT(desktop.Questions(), ElementsAre("#24"));
  EXPECT_THAT(Names(), ElementsAre("T1", "T4"));
  EXPECT_THAT(Column(grid, 1), ElementsAre("T1", "T4", ""));
  EXPECT_TRUE(modMain::CurrentDevice().bDataDirty());
  EXPECT_FALSE(Tags().AnyDirty());
}

TEST_F(TagDeletionTest, ASelectionPulledUpwardsIsTheSame) {
  desktop.AnswerNext(true);
  Delete(3, 2);
  EXPECT_THAT(Names(), ElementsAre("T1", "T4"));
}

TEST_F(TagDeletionTest, AfterNoTheTagsStayAndTheGridIsFilledAnew) {
  Enter({5, 1}, "Half");
  desktop.AnswerNext(false);
  Delete(2, 3);
  EXPECT_THAT(Names(), ElementsAre("T1", "T2", "T3", "T4"));
  EXPECT_THAT(Column(grid, 1), ElementsAre("T1", "T2", "T3", "T4", ""));
  EXPECT_FALSE(Project().bOpcProjectDirty());
}

TEST_F(TagDeletionTest, WithTheQuestionSwitchedOffTheyGoAtOnce) {
  modMain::globals.gbQueryOnDelete = false;
  Delete(1, 4);
  EXPECT_THAT(desktop.Questions(), IsEmpty());
  EXPECT_THAT(Names(), IsEmpty());
  EXPECT_THAT(Column(grid, 1), ElementsAre(""));
}

TEST_F(TagDeletionTest, OpenRowsOfTheSelectionArePassedOverAndDropped) {
  Enter({5, 1}, "Half");
  modMain::globals.gbQueryOnDelete = false;
  Delete(4, 5);
  EXPECT_THAT(Names(), ElementsAre("T1", "T2", "T3"));
  EXPECT_THAT(Column(grid, 1), ElementsAre("T1", "T2", "T3", ""));
}

TEST_F(TagDeletionTest, TheDeviceIsMarkedAlsoWhenNoTagGoes) {
  modMain::globals.gbQueryOnDelete = false;
  Delete(5, 5);
  EXPECT_EQ(Tags().Count(), 4);
  EXPECT_TRUE(modMain::CurrentDevice().bDataDirty());
}

TEST_F(TagDeletionTest, ARowWithoutAKeyRemovesNothing) {
  directory.Write("Dev.csv", ";MB5;RW\r\n");
  Tags().Refresh(0, 1);
  static_cast<void>(Boxes());
  Show();
  modMain::globals.gbQueryOnDelete = false;
  Delete(4, 5);
  EXPECT_THAT(Names(), ElementsAre("T1", "T2", "T3", ""));
}

TEST_F(TagDeletionTest, ARowIsFoundByTheNameThatItsTagHasNow) {
  // T1 takes the name that stands as key in the row of T2.
  Enter({2, 1}, "Other");
  Enter({1, 1}, "T2");
  modMain::globals.gbQueryOnDelete = false;
  Delete(2, 2);
  EXPECT_THAT(Names(), ElementsAre("Other", "T3", "T4"));
}

TEST_F(TagDeletionTest, OfTwoTagsWithOneNameTheFirstGoesForEachRow) {
  // The name of an open row was free when it was typed, and its key still is when the tag is made.
  Enter({5, 1}, "Twin");
  Enter({5, 9}, "second");
  Enter({1, 1}, "Twin");
  Enter({5, 2}, "MB9");
  Enter({5, 3}, "RW");
  EXPECT_THAT(Names(), ElementsAre("Twin", "T2", "T3", "T4", "Twin"));
  modMain::globals.gbQueryOnDelete = false;
  Delete(5, 5);
  EXPECT_THAT(Names(), ElementsAre("T2", "T3", "T4", "Twin"));
  EXPECT_EQ(TagAt(4).szComment(), "second");
}

TEST_F(TagDeletionTest, NamesAreComparedExactly) {
  Project().nCaseSensitive(1);
  AddTag("t4");
  modMain::globals.gbQueryOnDelete = false;
  Delete(5, 5);
  EXPECT_THAT(Names(), ElementsAre("T1", "T2", "T3", "T4"));
}

TEST_F(TagDeletionTest, ADeletedNameIsFreeAgainAndTheOthersAreStillFound) {
  modMain::globals.gbQueryOnDelete = false;
  Delete(2, 2);
  Enter({4, 1}, "T2");
  Enter({4, 2}, "MB9");
  Enter({4, 3}, "RO");
  Enter({1, 2}, "MB21");
  Enter({3, 2}, "MB24");
  EXPECT_THAT(Boxes(), IsEmpty());
  EXPECT_THAT(Column(grid, 0), ElementsAre("T1", "T3", "T4", "T2"));
  EXPECT_THAT(Column(grid, 2), ElementsAre("MB21", "MB10", "MB24", "MB9"));
  EXPECT_EQ(TagAt(3).szData(), "MB24");
}

TEST_F(TagDeletionTest, TheDeleteKeyInAnOpenCellBelongsToTheCell) {
  grid.UserSelect({1, 1});
  grid.UserType("x");
  EXPECT_FALSE(grid.UserKey(Key::Delete));
  EXPECT_EQ(Tags().Count(), 4);
  EXPECT_THAT(desktop.Questions(), IsEmpty());
  grid.UserCancelEdit();
}

TEST_F(TagDeletionTest, NoSelectedRowIsTakenFromTheHeading) {
  // A new show leaves the heading as the current cell.
  Show();
  modMain::globals.gbQueryOnDelete = false;
  EXPECT_TRUE(grid.UserKey(Key::Delete));
  EXPECT_EQ(Tags().Count(), 4);
}

TEST_F(TagDeletionTest, TheDeletionReachesTheFileWithTheNextSave) {
  EXPECT_TRUE(Save());
  modMain::globals.gbQueryOnDelete = false;
  Delete(1, 3);
  EXPECT_TRUE(Save());
  EXPECT_EQ(directory.Read("Dev.csv"), tavrin::Lines({"T4;MB10;RW"}));
  EXPECT_FALSE(Project().bOpcProjectDirty());
}

}  // namespace
}  // namespace tavrin
