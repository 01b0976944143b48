#include "platform/controls/ListBox.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/controls/Form.h"

namespace tavrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ListBoxTest : public testing::Test {
 protected:
  ListBoxTest() {
    changed = list.Changed.Connect([this] { ++changes; });
  }

  Form form{"frmTest"};
  ListBox list{form, "List1"};
  int changes = 0;
  Connection changed;
};

TEST_F(ListBoxTest, LinesComeBelowEachOtherAndEachIsTold) {
  EXPECT_THAT(list.Lines(), IsEmpty());
  list.AddItem("one");
  list.AddItem("");
  list.AddItem("one");
  EXPECT_THAT(list.Lines(), ElementsAre("one", "", "one"));
  EXPECT_EQ(changes, 3);
}

TEST_F(ListBoxTest, ClearTakesAllLines) {
  list.AddItem("one");
  list.Clear();
  EXPECT_THAT(list.Lines(), IsEmpty());
  EXPECT_EQ(changes, 2);
}

TEST_F(ListBoxTest, TakesTheKeyboardLikeAnyControl) {
  list.UserFocus();
  EXPECT_TRUE(list.Focused());
}

}  // namespace
}  // namespace tavrin
