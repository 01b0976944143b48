#include "platform/controls/MenuEntry.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/controls/Form.h"
#include "platform/controls/Grid.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A menu of the bar with a menu in it that has an entry.
class MenuEntryTest : public testing::Test {
 protected:
  MenuEntryTest() {
    top.Caption("&File");
    top.Add(middle);
    middle.Caption("&Recent");
    middle.Add(entry);
    entry.Caption("&Save");
    for (MenuEntry* each : {&top, &middle, &entry}) {
      each->OnOpen = [this, each] { events.push_back("open " + each->Name()); };
      each->OnClick = [this, each] { events.push_back("click " + each->Name()); };
    }
  }

  Form form{"frmTest"};
  MenuEntry top{form, "top"};
  MenuEntry middle{form, "middle"};
  MenuEntry entry{form, "entry"};
  std::vector<std::string> events;
};

TEST_F(MenuEntryTest, KnowsWhatIsBelowAndAbove) {
  MenuEntry second(form, "entry", 2);
  middle.Add(second);
  EXPECT_THAT(middle.Entries(), ElementsAre(&entry, &second));
  EXPECT_EQ(second.Parent(), &middle);
  EXPECT_EQ(top.Parent(), nullptr);
}

TEST_F(MenuEntryTest, TellsChangesAndNoEqualValues) {
  int changes = 0;
  const auto counting = entry.Changed.Connect([&] { ++changes; });
  for (int i = 0; i < 2; ++i) {
    entry.Caption("caption");
    entry.Checked(true);
    entry.Tag("tag");
    entry.Shortcut("Ctrl+N");
    EXPECT_EQ(changes, 4);
  }
  EXPECT_EQ(entry.Caption(), "caption");
  EXPECT_TRUE(entry.Checked());
  EXPECT_EQ(entry.Tag(), "tag");
  EXPECT_EQ(entry.Shortcut(), "Ctrl+N");
  MenuEntry below(form, "below");
  entry.Add(below);
  EXPECT_EQ(changes, 5);
}

TEST_F(MenuEntryTest, ALiteralCaptionIsReadAsItStandsAndAnyOtherWithoutItsMark) {
  entry.Caption("R&D && more");
  EXPECT_FALSE(entry.Literal());
  EXPECT_EQ(entry.ShownCaption(), "RD & more");
  int changes = 0;
  const auto counting = entry.Changed.Connect([&] { ++changes; });
  entry.Literal(true);
  entry.Literal(true);
  EXPECT_EQ(changes, 1);
  EXPECT_TRUE(entry.Literal());
  EXPECT_EQ(entry.ShownCaption(), "R&D && more");
  EXPECT_EQ(entry.Caption(), "R&D && more");
}

TEST_F(MenuEntryTest, AClickChoosesTheEntryAndOpensNothing) {
  entry.UserClick();
  EXPECT_THAT(events, ElementsAre("click entry"));
}

TEST_F(MenuEntryTest, AHiddenOrDisabledEntryCannotBeChosen) {
  entry.Visible(false);
  entry.UserClick();
  entry.Visible(true);
  entry.Enabled(false);
  entry.UserClick();
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(MenuEntryTest, NothingBelowADisabledMenuCanBeChosen) {
  top.Enabled(false);
  entry.UserClick();
  top.Enabled(true);
  middle.Enabled(false);
  entry.UserClick();
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(MenuEntryTest, AMenuAboveMayBeHidden) {
  top.Visible(false);
  entry.UserClick();
  EXPECT_THAT(events, ElementsAre("click entry"));
}

TEST_F(MenuEntryTest, ASeparatorCannotBeChosen) {
  entry.Caption("-");
  EXPECT_TRUE(entry.IsSeparator());
  entry.UserClick();
  EXPECT_THAT(events, IsEmpty());
  entry.Caption("--");
  EXPECT_FALSE(entry.IsSeparator());
}

TEST_F(MenuEntryTest, AnEntryWithEntriesBelowCannotBeChosen) {
  middle.UserClick();
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(MenuEntryTest, OpeningRunsTheRuleOfThisMenuOnly) {
  middle.UserOpen();
  EXPECT_THAT(events, ElementsAre("open middle"));
}

TEST_F(MenuEntryTest, AShortcutBringsTheMenusAboveUpToDateFromTheTopDown) {
  entry.UserShortcut();
  EXPECT_THAT(events, ElementsAre("open top", "open middle", "click entry"));
}

TEST_F(MenuEntryTest, AShortcutObeysWhatTheOpenedMenuDecides) {
  entry.Enabled(false);
  middle.OnOpen = [&] { entry.Enabled(true); };
  entry.UserShortcut();
  EXPECT_THAT(events, ElementsAre("open top", "click entry"));
  middle.OnOpen = [&] { entry.Enabled(false); };
  entry.UserShortcut();
  EXPECT_THAT(events, ElementsAre("open top", "click entry", "open top"));
}

TEST_F(MenuEntryTest, OpeningClickingAndShortcutsEndAnOpenEditFirst) {
  Grid grid(form, "grid");
  grid.Shape(2, 1, 1, 0);
  grid.Editable(true);
  grid.OnAfterEdit = [&](int, int) { events.emplace_back("edit ended"); };
  grid.UserBeginEdit();
  top.UserOpen();
  grid.UserBeginEdit();
  entry.UserClick();
  grid.UserBeginEdit();
  entry.UserShortcut();
  EXPECT_THAT(events, ElementsAre("edit ended", "open top", "edit ended", "click entry", "edit ended", "open top",
                                  "open middle", "click entry"));
}

TEST_F(MenuEntryTest, WhatTheRuleOfTheEndedEditSwitchesOffIsNotChosen) {
  Grid grid(form, "grid");
  grid.Shape(2, 1, 1, 0);
  grid.Editable(true);
  grid.OnAfterEdit = [&](int, int) { entry.Enabled(false); };
  grid.UserBeginEdit();
  entry.UserClick();
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(MenuEntryTest, AnEntryWithoutRulesMayBeOpenedAndChosen) {
  MenuEntry bare(form, "bare");
  bare.UserOpen();
  bare.UserClick();
  bare.UserShortcut();
  EXPECT_THAT(events, IsEmpty());
}

TEST(WithoutMnemonicTest, ShowsACaptionWithoutItsMark) {
  EXPECT_EQ(WithoutMnemonic("&Save"), "Save");
  EXPECT_EQ(WithoutMnemonic("Save &as"), "Save as");
  EXPECT_EQ(WithoutMnemonic("Fish && Chips"), "Fish & Chips");
  EXPECT_EQ(WithoutMnemonic("&&&x"), "&x");
  EXPECT_EQ(WithoutMnemonic("end&"), "end");
  EXPECT_EQ(WithoutMnemonic(""), "");
}

}  // namespace
}  // namespace tavrin
