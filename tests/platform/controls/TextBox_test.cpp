// Fields for one line of text, and radio buttons.
#include "platform/controls/TextBox.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/controls/Form.h"
#include "platform/controls/Grid.h"

namespace tavrin {
namespace {

using testing::ElementsAre;

class TextBoxTest : public testing::Test {
 protected:
  Form form{"frmTest"};
  TextBox box{form, "txtName"};
  TextBox other{form, "txtOther"};
};

TEST_F(TextBoxTest, TypedCharactersComeToTheEndOfTheText) {
  box.Text("ab");
  box.UserType("c");
  box.UserType("d\xE4 ");
  EXPECT_EQ(box.Text(), "abcd\xE4 ");
}

TEST_F(TextBoxTest, TypingGivesTheKeyboardToTheField) {
  other.UserFocus();
  box.UserType("a");
  EXPECT_TRUE(box.Focused());
}

TEST_F(TextBoxTest, EachTypedCharacterPassesTheRuleWhichMaySwallowOrChangeIt) {
  std::vector<int> asked;
  box.OnKeyPress = [&](int& key) {
    asked.push_back(key);
    if (key == 'b') key = 0;
    if (key == 'c') key = 'C';
  };
  box.UserType("abc\xE4");
  EXPECT_THAT(asked, ElementsAre('a', 'b', 'c', 0xE4));
  EXPECT_EQ(box.Text(), "aC\xE4");
}

TEST_F(TextBoxTest, AFieldWithACursorOfItsOwnAsksForTheCharactersAndSetsTheWholeText) {
  box.OnKeyPress = [](int& key) {
    if (key == 'x') key = 0;
  };
  box.Text("ab");
  EXPECT_EQ(box.FilterTyped("1x2"), "12");
  EXPECT_EQ(box.Text(), "ab");
  box.UserText("a12b");
  EXPECT_EQ(box.Text(), "a12b");
}

TEST_F(TextBoxTest, APastedTextPassesNoRule) {
  box.OnKeyPress = [](int& key) { key = 0; };
  box.UserText("any thing;\xE4");
  EXPECT_EQ(box.Text(), "any thing;\xE4");
}

TEST_F(TextBoxTest, ControlCharactersNeverComeIn) {
  std::vector<int> asked;
  box.OnKeyPress = [&](int& key) { asked.push_back(key); };
  box.UserType(
      "\ta\r\n\x1B"
      "b\x7F");
  EXPECT_EQ(box.Text(), "ab");
  EXPECT_THAT(asked, ElementsAre('a', 'b'));
  box.UserText("c\td\r\ne\x7F");
  EXPECT_EQ(box.Text(), "cde");
  box.OnKeyPress = [](int& key) { key = '\n'; };
  EXPECT_EQ(box.FilterTyped("abc"), "");
}

TEST_F(TextBoxTest, APastedTextThatLosesACharacterIsTold) {
  box.Text("cde");
  int told = 0;
  const auto connection = box.Changed.Connect([&] { ++told; });
  box.UserText("c\nde");
  EXPECT_EQ(box.Text(), "cde");
  EXPECT_EQ(told, 1);
}

TEST_F(TextBoxTest, TheProgramSetsTheTextPastTheRuleAndTellsAChangeOnce) {
  box.OnKeyPress = [](int& key) { key = 0; };
  int told = 0;
  const auto connection = box.Changed.Connect([&] { ++told; });
  box.Text("set");
  box.Text("set");
  EXPECT_EQ(box.Text(), "set");
  EXPECT_EQ(told, 1);
}

TEST_F(TextBoxTest, AHiddenOrDisabledFieldTakesNothing) {
  box.Visible(false);
  box.UserType("a");
  box.UserText("b");
  box.Visible(true);
  box.Enabled(false);
  box.UserType("c");
  box.UserText("d");
  EXPECT_EQ(box.Text(), "");
  EXPECT_FALSE(box.Focused());
}

TEST_F(TextBoxTest, AnotherTextIsToldWhoeverHasChangedIt) {
  std::vector<std::string> told;
  box.OnChange = [&] { told.push_back(box.Text()); };
  box.UserType("a");
  box.UserText("ab");
  box.Text("abc");
  box.Text("abc");
  box.UserText("abc");
  box.UserText("abc\n");
  EXPECT_THAT(told, ElementsAre("a", "ab", "abc"));
}

class RadioButtonTest : public testing::Test {
 protected:
  RadioButtonTest() {
    grid.Shape(2, 1, 1, 0);
    grid.Editable(true);
  }

  Form form{"frmTest"};
  Form another{"frmOther"};
  RadioButton first{form, "rbType", 0};
  RadioButton second{form, "rbType", 1};
  RadioButton elsewhere{another, "rbType", 0};
  Grid grid{form, "grid"};
};

TEST_F(RadioButtonTest, NoneIsChosenAtTheStart) {
  EXPECT_FALSE(first.Checked());
  EXPECT_FALSE(second.Checked());
}

TEST_F(RadioButtonTest, AChoiceIsTakenFromTheOthersOfTheWindow) {
  elsewhere.UserClick();
  first.UserClick();
  second.UserClick();
  EXPECT_FALSE(first.Checked());
  EXPECT_TRUE(second.Checked());
  EXPECT_TRUE(elsewhere.Checked());
  first.Checked(true);
  EXPECT_FALSE(second.Checked());
}

TEST_F(RadioButtonTest, ChoosingItAgainKeepsIt) {
  first.UserClick();
  first.UserClick();
  EXPECT_TRUE(first.Checked());
}

TEST_F(RadioButtonTest, TheProgramCanTakeTheChoiceAway) {
  first.UserClick();
  first.Checked(false);
  EXPECT_FALSE(first.Checked());
  EXPECT_FALSE(second.Checked());
}

TEST_F(RadioButtonTest, AHiddenOrDisabledOneCannotBeChosen) {
  first.Visible(false);
  first.UserClick();
  first.Visible(true);
  first.Enabled(false);
  first.UserClick();
  EXPECT_FALSE(first.Checked());
}

TEST_F(RadioButtonTest, AChoiceEndsAnOpenEditFirst) {
  grid.UserType("x");
  bool chosenBefore = true;
  grid.OnAfterEdit = [&](int, int) { chosenBefore = first.Checked(); };
  first.UserClick();
  EXPECT_EQ(grid.OpenEdit(), nullptr);
  EXPECT_FALSE(chosenBefore);
  EXPECT_TRUE(first.Checked());
}

TEST_F(RadioButtonTest, OneThatTheEndOfTheEditHidesIsNotChosen) {
  grid.UserType("x");
  grid.OnAfterEdit = [&](int, int) { first.Visible(false); };
  first.UserClick();
  EXPECT_FALSE(first.Checked());
}

}  // namespace
}  // namespace tavrin
