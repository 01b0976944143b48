// Networks and devices that go: by menu, key, button, popup.
#include <map>
#include <string>
#include <vector>

#include "shell/StructureCommands.h"
#include "shell/StructureTest.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct DeleteRow {
  const char* key;
  int entry;
  const char* question;
  std::map<std::string, std::vector<std::string>> left;
};
class DeleteTest : public StructureTest, public testing::WithParamInterface<DeleteRow> {
 protected:
  DeleteTest() {
    OpenPlant();
    EXPECT_TRUE(Save());
    Click(GetParam().key);
  }
};

TEST_P(DeleteTest, NoLeavesEverything) {
  const auto names = Names();
  desktop.AnswerNext(false);
  Edit(GetParam().entry);
  EXPECT_THAT(desktop.Questions(), ElementsAre(GetParam().question));
  EXPECT_EQ(Names(), names);
  EXPECT_FALSE(Project().bOpcProjectDirty());
  EXPECT_EQ(Window().tvwMain.SelectedItem()->Key(), GetParam().key);
  EXPECT_EQ(Window().tvwMain.Count(), 5);
}

TEST_P(DeleteTest, YesDeletesAndActivatesTheRoot) {
  desktop.AnswerNext(true);
  Edit(GetParam().entry);
  EXPECT_EQ(Names(), GetParam().left);
  EXPECT_EQ(Window().tvwMain.Node(GetParam().key), nullptr);
  EXPECT_TRUE(Window().tvwMain.Focused());
  ExpectRootActive();
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_P(DeleteTest, WhatTheObjectWasInIsMarkedAndNothingElse) {
  const bool network = GetParam().entry == 2;
  desktop.AnswerNext(true);
  Edit(GetParam().entry);
  EXPECT_EQ(Project().bDataDirty(), network);
  EXPECT_EQ(Network(1).bDataDirty(), !network);
}

TEST_P(DeleteTest, TheFilesStay) {
  desktop.AnswerNext(true);
  Edit(GetParam().entry);
  ASSERT_TRUE(Save());
  for (const char* file : {"Line.ini", "Hall.ini", "Press.csv", "Saw.csv"}) EXPECT_TRUE(directory.Has(file)) << file;
}

TEST_P(DeleteTest, WithTheQuestionOffItActsAtOnce) {
  modMain::globals.gbQueryOnDelete = false;
  Edit(GetParam().entry);
  EXPECT_THAT(desktop.Questions(), IsEmpty());
  EXPECT_EQ(Names(), GetParam().left);
}

TEST_P(DeleteTest, TheDeleteKeyOfTheTreeActsAlsoWhileTheEntriesAreOff) {
  Window().mnuLanguage(1).UserClick();
  ASSERT_FALSE(Window().mnuEdit(GetParam().entry).Enabled());
  desktop.AnswerNext(true);
  Window().tvwMain.UserKey(Key::Delete);
  EXPECT_THAT(desktop.Questions(), ElementsAre(GetParam().question));
  EXPECT_EQ(Names(), GetParam().left);
}

TEST_P(DeleteTest, TheDeleteButtonActsByTheNode) {
  desktop.AnswerNext(true);
  Delete().UserClick();
  EXPECT_THAT(desktop.Questions(), ElementsAre(GetParam().question));
  EXPECT_EQ(Names(), GetParam().left);
}

TEST_P(DeleteTest, FromThePopupNoSecondMenuOpens) {
  int popups = 0;
  desktop.OnPopup = [&](MenuEntry& /*menu*/) {
    ++popups;
    desktop.AnswerNext(true);
    Edit(GetParam().entry);
  };
  Click(GetParam().key, MouseButton::Right);
  EXPECT_EQ(popups, 1);
  EXPECT_EQ(Names(), GetParam().left);
  ExpectRootActive();
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_P(DeleteTest, ANodeWithoutItsObjectIsToldByTheTrap) {
  Project().Networks().Remove(2);
  Project().Networks().Remove(1);
  Edit(GetParam().entry);
  EXPECT_THAT(desktop.Questions(), IsEmpty());
  EXPECT_THAT(Boxes(), ElementsAre(kNoObject));
}

INSTANTIATE_TEST_SUITE_P(Rows, DeleteTest,
                         testing::Values(DeleteRow{"#1#2", 2, "#22 (Hall)", {{"Line", {"Press", "Saw"}}}},
                                         DeleteRow{"#1#1#1", 4, "#23 (Press)", {{"Line", {"Saw"}}, {"Hall", {}}}},
                                         DeleteRow{"#1#1#2", 4, "#23 (Saw)", {{"Line", {"Press"}}, {"Hall", {}}}}));

TEST_F(StructureTest, ANetworkGoesWithItsDevices) {
  OpenPlant();
  modMain::globals.gbQueryOnDelete = false;
  Click("#1#1");
  Edit(2);
  EXPECT_THAT(Names(), ElementsAre(testing::Pair("Hall", IsEmpty())));
  EXPECT_EQ(Window().tvwMain.Count(), 2);
  Click("#1#2");
  EXPECT_EQ(Current(), std::pair(1, 0));
  EXPECT_EQ(Window().vsgTCPISONW.Text({2, 1}), "Hall.ini");
}

TEST_F(StructureTest, TheDeleteButtonMeansTagsWhileTheyHaveTheKeyboard) {
  OpenPlant();
  Click("#1#1#1");
  EXPECT_EQ(Delete().Tag(), kDeleteDevice);
  Window().vsgTags.UserFocus();
  desktop.AnswerNext(false);
  Delete().UserClick();
  EXPECT_THAT(desktop.Questions(), ElementsAre("#24"));
}

TEST_F(StructureTest, DeleteAndF2OfTheRootDoNothing) {
  OpenPlant();
  Click("#1");
  Window().tvwMain.UserKey(Key::Delete);
  Window().tvwMain.UserKey(Key::F2);
  EXPECT_FALSE(Window().tvwMain.LabelEdit().has_value());
  EXPECT_THAT(desktop.Questions(), IsEmpty());
}

}  // namespace
}  // namespace tavrin
