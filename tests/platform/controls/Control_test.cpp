#include "platform/controls/Control.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/RuntimeError.h"
#include "platform/controls/Button.h"
#include "platform/controls/ControlArray.h"
#include "platform/controls/Form.h"
#include "platform/controls/Grid.h"
#include "platform/controls/Label.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

ErrorNumber NumberOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const RuntimeError& error) {
    return error.Number();
  }
  return ErrorNumber{};
}

class ControlTest : public testing::Test {
 protected:
  Connection Count(Control& control) {
    return control.Changed.Connect([this] { ++changes; });
  }
  void WriteFocus(Control& control) {
    control.OnGotFocus = [this, &control] { events.push_back("got " + control.Name()); };
    control.OnLostFocus = [this, &control] { events.push_back("lost " + control.Name()); };
  }

  int changes = 0;
  std::vector<std::string> events;
  Form form{"frmTest"};
  Label one{form, "one"};
  Label two{form, "two"};
};

TEST_F(ControlTest, KnowsItsNameItsNumberAndItsWindow) {
  const Label third(form, "mnuFile", 3);
  EXPECT_EQ(third.Name(), "mnuFile");
  EXPECT_EQ(third.Index(), 3);
  EXPECT_EQ(&third.Owner(), &form);
  EXPECT_EQ(one.Index(), 0);
}

TEST_F(ControlTest, IsVisibleEnabledAndWithoutTheKeyboardAtFirst) {
  EXPECT_TRUE(one.Visible());
  EXPECT_TRUE(one.Enabled());
  EXPECT_FALSE(one.Focused());
}

TEST_F(ControlTest, TellsEachChangeOfAPropertyOnce) {
  const auto counting = Count(one);
  one.Visible(false);
  one.Enabled(false);
  one.Place({15, 30, 45, 60});
  one.ToolTip("tip");
  one.SpokenName("spoken");
  one.Caption("caption");
  EXPECT_EQ(changes, 6);
  EXPECT_FALSE(one.Visible());
  EXPECT_FALSE(one.Enabled());
  EXPECT_EQ(one.Place(), (Rect{15, 30, 45, 60}));
  EXPECT_EQ(one.ToolTip(), "tip");
  EXPECT_EQ(one.SpokenName(), "spoken");
  EXPECT_EQ(one.Caption(), "caption");
}

TEST_F(ControlTest, TellsNobodyOfAnEqualValue) {
  one.Place({1, 2, 3, 4});
  one.ToolTip("tip");
  const auto counting = Count(one);
  one.Visible(true);
  one.Enabled(true);
  one.Place({1, 2, 3, 4});
  one.ToolTip("tip");
  one.SpokenName("");
  one.Caption("");
  EXPECT_EQ(changes, 0);
}

TEST_F(ControlTest, TakesNoNegativeSize) {
  one.Place({1, 2, 3, 4});
  EXPECT_EQ(NumberOf([&] { one.Place({0, 0, -1, 4}); }), ErrorNumber::InvalidCall);
  EXPECT_EQ(NumberOf([&] { one.Place({0, 0, 3, -1}); }), ErrorNumber::InvalidCall);
  EXPECT_EQ(one.Place(), (Rect{1, 2, 3, 4}));
  one.Place({-5, -6, 0, 0});
  EXPECT_EQ(one.Place(), (Rect{-5, -6, 0, 0}));
}

TEST_F(ControlTest, TheKeyboardIsLostBeforeItIsGot) {
  WriteFocus(one);
  WriteFocus(two);
  one.UserFocus();
  EXPECT_EQ(form.FocusedControl(), &one);
  two.UserFocus();
  EXPECT_TRUE(two.Focused());
  EXPECT_FALSE(one.Focused());
  EXPECT_THAT(events, ElementsAre("got one", "lost one", "got two"));
}

TEST_F(ControlTest, WhatHasTheKeyboardDoesNotGetItAgain) {
  one.UserFocus();
  WriteFocus(one);
  one.UserFocus();
  one.SetFocus();
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(ControlTest, AHiddenOrDisabledControlDoesNotGetTheKeyboard) {
  one.Visible(false);
  two.Enabled(false);
  one.UserFocus();
  one.SetFocus();
  two.UserFocus();
  two.SetFocus();
  EXPECT_EQ(form.FocusedControl(), nullptr);
}

TEST_F(ControlTest, AHiddenControlLosesTheKeyboard) {
  one.UserFocus();
  WriteFocus(one);
  one.Visible(false);
  EXPECT_EQ(form.FocusedControl(), nullptr);
  EXPECT_THAT(events, ElementsAre("lost one"));
}

TEST_F(ControlTest, ADisabledControlKeepsTheKeyboard) {
  one.UserFocus();
  one.Enabled(false);
  EXPECT_TRUE(one.Focused());
}

TEST_F(ControlTest, OnlyTheProgramHasToTellWhereTheKeyboardWent) {
  int told = 0;
  const auto counting = form.FocusChanged.Connect([&] { ++told; });
  one.UserFocus();
  EXPECT_EQ(told, 0);
  two.SetFocus();
  EXPECT_EQ(told, 1);
  two.SetFocus();
  EXPECT_EQ(told, 1);
}

TEST_F(ControlTest, AnOpenEditEndsBeforeTheKeyboardGoesElsewhere) {
  Grid grid(form, "grid");
  grid.Shape(2, 1, 1, 0);
  grid.Editable(true);
  grid.UserBeginEdit();
  WriteFocus(grid);
  WriteFocus(one);
  grid.OnAfterEdit = [&](int, int) { events.push_back(grid.Focused() ? "edit ended" : "too late"); };
  one.UserFocus();
  EXPECT_THAT(events, ElementsAre("edit ended", "lost grid", "got one"));
}

TEST_F(ControlTest, WhatARuleOfTheEndedEditHidesDoesNotGetTheKeyboard) {
  Grid grid(form, "grid");
  grid.Shape(2, 1, 1, 0);
  grid.Editable(true);
  grid.UserBeginEdit();
  grid.OnAfterEdit = [&](int, int) { one.Visible(false); };
  one.UserFocus();
  EXPECT_EQ(form.FocusedControl(), &grid);
}

TEST_F(ControlTest, AHandlerMayTakeTheKeyboardAway) {
  one.UserFocus();
  WriteFocus(two);
  one.OnLostFocus = [&] { one.UserFocus(); };
  two.UserFocus();
  EXPECT_EQ(form.FocusedControl(), &one);
  EXPECT_THAT(events, ElementsAre("lost two"));
}

TEST_F(ControlTest, AControlThatGoesTakesTheKeyboardWithIt) {
  {
    Label third(form, "third");
    third.UserFocus();
    EXPECT_EQ(form.FocusedControl(), &third);
  }
  EXPECT_EQ(form.FocusedControl(), nullptr);
  EXPECT_EQ(form.Find("third"), nullptr);
}

TEST(ControlArrayTest, FindsItsControlsByNumber) {
  Form form("frmTest");
  ControlArray<Label> labels(form, "lbl");
  Label& third = labels.Load(3);
  labels.Load(1);
  EXPECT_EQ(&labels(3), &third);
  EXPECT_EQ(third.Name(), "lbl");
  EXPECT_EQ(third.Index(), 3);
  EXPECT_EQ(labels.Name(), "lbl");
  EXPECT_EQ(labels.Count(), 2U);
  EXPECT_TRUE(labels.Has(1));
  EXPECT_FALSE(labels.Has(2));
}

TEST(ControlArrayTest, ANumberWithoutAControlAndOneInUseAreErrors) {
  Form form("frmTest");
  ControlArray<Label> labels(form, "lbl");
  Label& first = labels.Load(1);
  EXPECT_EQ(NumberOf([&] { (void)labels(2); }), ErrorNumber::SubscriptOutOfRange);
  EXPECT_EQ(NumberOf([&] { labels.Load(1); }), ErrorNumber::KeyInUse);
  EXPECT_EQ(&labels(1), &first);
  EXPECT_EQ(labels.Count(), 1U);
}

TEST(ControlArrayTest, GoesThroughItsControlsInTheOrderOfTheirNumbers) {
  Form form("frmTest");
  ControlArray<Label> labels(form, "lbl");
  for (const int index : {7, 2, 5}) labels.Load(index);
  std::vector<int> seen;
  labels.ForEach([&](const Label& label) { seen.push_back(label.Index()); });
  EXPECT_THAT(seen, ElementsAre(2, 5, 7));
}

TEST(SignalTest, TellsThoseWhoListenUntilTheyLetGo) {
  Signal<int> signal;
  std::vector<int> heard;
  auto first = signal.Connect([&](int value) { heard.push_back(value); });
  const auto second = signal.Connect([&](int value) { heard.push_back(-value); });
  signal(1);
  first.reset();
  signal(2);
  EXPECT_THAT(heard, ElementsAre(1, -1, -2));
}

TEST(SignalTest, AListenerMayComeAndGoWhileItIsTold) {
  Signal<> signal;
  int heard = 0;
  Connection second;
  Connection third;
  auto first = signal.Connect([&] {
    second.reset();
    third = signal.Connect([&] { heard += 10; });
  });
  second = signal.Connect([&] { heard += 100; });
  signal();
  EXPECT_EQ(heard, 0);
  first.reset();
  signal();
  EXPECT_EQ(heard, 10);
}

}  // namespace
}  // namespace tavrin
