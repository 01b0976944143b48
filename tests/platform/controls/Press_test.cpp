// The controls that are pressed: buttons, boxes, tool buttons, pictures.
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/controls/Button.h"
#include "platform/controls/Form.h"
#include "platform/controls/Grid.h"
#include "platform/controls/Picture.h"
#include "platform/controls/Toolbar.h"

namespace tavrin {
namespace {

using testing::ElementsAre;

template <class T>
class PressTest : public testing::Test {
 protected:
  PressTest() {
    control.OnClick = [this] { ++clicks; };
    grid.Shape(2, 1, 1, 0);
    grid.Editable(true);
  }

  Form form{"frmTest"};
  T control{form, "control"};
  Grid grid{form, "grid"};
  int clicks = 0;
};

using Pressed = testing::Types<Button, CheckBox, ToolButton>;
TYPED_TEST_SUITE(PressTest, Pressed);

TYPED_TEST(PressTest, APressRunsTheRule) {
  this->control.UserClick();
  EXPECT_EQ(this->clicks, 1);
}

TYPED_TEST(PressTest, APressWithoutARuleDoesNothing) {
  this->control.OnClick = nullptr;
  this->control.UserClick();
  EXPECT_EQ(this->clicks, 0);
}

TYPED_TEST(PressTest, APressOnAHiddenOrDisabledControlHasNoEffect) {
  this->grid.UserBeginEdit();
  this->control.Visible(false);
  this->control.UserClick();
  this->control.Visible(true);
  this->control.Enabled(false);
  this->control.UserClick();
  EXPECT_EQ(this->clicks, 0);
  EXPECT_NE(this->grid.OpenEdit(), nullptr);
}

TYPED_TEST(PressTest, APressEndsAnOpenEditFirst) {
  this->grid.UserType("x");
  std::string seen;
  this->control.OnClick = [&] { seen = this->grid.Text({1, 0}); };
  this->control.UserClick();
  EXPECT_EQ(seen, "x");
}

TYPED_TEST(PressTest, WhatTheRuleOfTheEndedEditSwitchesOffIsNotPressed) {
  this->grid.UserBeginEdit();
  this->grid.OnAfterEdit = [&](int, int) { this->control.Enabled(false); };
  this->control.UserClick();
  EXPECT_EQ(this->clicks, 0);
}

TYPED_TEST(PressTest, APressLeavesTheKeyboardWhereItIs) {
  this->grid.UserFocus();
  this->control.UserClick();
  EXPECT_TRUE(this->grid.Focused());
}

TEST(ButtonTest, TellsChangesAndNoEqualValues) {
  Form form("frmTest");
  Button button(form, "button");
  int changes = 0;
  const auto counting = button.Changed.Connect([&] { ++changes; });
  EXPECT_EQ(button.Role(), ButtonRole::Plain);
  for (int i = 0; i < 2; ++i) {
    button.Caption("&OK");
    button.Role(ButtonRole::Default);
    EXPECT_EQ(changes, 2);
  }
  EXPECT_EQ(button.Caption(), "&OK");
  EXPECT_EQ(button.Role(), ButtonRole::Default);
}

TEST(CheckBoxTest, APressTurnsTheTickBeforeTheRuleRuns) {
  Form form("frmTest");
  CheckBox box(form, "box");
  std::vector<bool> seen;
  box.OnClick = [&] { seen.push_back(box.Checked()); };
  box.UserClick();
  box.UserClick();
  EXPECT_THAT(seen, ElementsAre(true, false));
}

TEST(CheckBoxTest, TheProgramTicksWithoutTheRule) {
  Form form("frmTest");
  CheckBox box(form, "box");
  int changes = 0;
  const auto counting = box.Changed.Connect([&] { ++changes; });
  box.OnClick = [] { ADD_FAILURE(); };
  box.Checked(true);
  box.Checked(true);
  box.Caption("box");
  box.Caption("box");
  EXPECT_TRUE(box.Checked());
  EXPECT_EQ(box.Caption(), "box");
  EXPECT_EQ(changes, 2);
}

TEST(CheckBoxTest, APressOnADisabledBoxLeavesItsTick) {
  Form form("frmTest");
  CheckBox box(form, "box");
  box.Enabled(false);
  box.UserClick();
  EXPECT_FALSE(box.Checked());
}

TEST(ToolbarTest, NumbersItsButtonsAndLeavesGaps) {
  Form form("frmTest");
  Toolbar bar(form, "Toolbar1");
  ToolButton& button = bar.Buttons.Load(2);
  bar.Buttons.Load(4);
  int changes = 0;
  const auto counting = button.Changed.Connect([&] { ++changes; });
  for (int i = 0; i < 2; ++i) {
    button.Image("NEW");
    button.Tag(7);
    EXPECT_EQ(changes, 2);
  }
  EXPECT_EQ(button.Image(), "NEW");
  EXPECT_EQ(button.Tag(), 7);
  EXPECT_EQ(button.Name(), "Toolbar1");
  EXPECT_EQ(button.Index(), 2);
  EXPECT_FALSE(bar.Buttons.Has(3));
}

TEST(PictureTest, IsPressedMovedAndLetGo) {
  Form form("frmTest");
  Picture bar(form, "bar", PictureKind::Splitter);
  std::vector<std::string> events;
  const auto write = [&](const std::string& what) {
    return [&events, what](float x, float y) {
      events.push_back(what + " " + std::to_string(static_cast<int>(x)) + " " + std::to_string(static_cast<int>(y)));
    };
  };
  bar.OnMouseDown = write("down");
  bar.OnMouseMove = write("move");
  bar.OnMouseUp = write("up");
  bar.UserPress(1, 2);
  bar.UserMove(-30, 4);
  bar.UserRelease(5, 6);
  EXPECT_THAT(events, ElementsAre("down 1 2", "move -30 4", "up 5 6"));
  EXPECT_EQ(bar.Kind(), PictureKind::Splitter);
}

TEST(PictureTest, APressEndsAnOpenEditFirst) {
  Form form("frmTest");
  Picture bar(form, "bar", PictureKind::Splitter);
  Grid grid(form, "grid");
  grid.Shape(2, 1, 1, 0);
  grid.Editable(true);
  grid.UserBeginEdit();
  bar.OnMouseDown = [&](float, float) { EXPECT_EQ(grid.OpenEdit(), nullptr); };
  bar.UserPress(0, 0);
  EXPECT_EQ(grid.OpenEdit(), nullptr);
}

TEST(PictureTest, TellsAnotherImageOnce) {
  Form form("frmTest");
  Picture picture(form, "picture", PictureKind::Image);
  int changes = 0;
  const auto counting = picture.Changed.Connect([&] { ++changes; });
  picture.Image("ROOT");
  picture.Image("ROOT");
  EXPECT_EQ(picture.Image(), "ROOT");
  EXPECT_EQ(changes, 1);
}

}  // namespace
}  // namespace tavrin
