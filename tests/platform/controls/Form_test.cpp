#include "platform/controls/Form.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/controls/Grid.h"
#include "platform/controls/Label.h"
#include "platform/controls/MenuEntry.h"

namespace tavrin {
namespace {

using testing::ElementsAre;

class FormTest : public testing::Test {
 protected:
  FormTest() {
    counting = form.Changed.Connect([this] { ++changes; });
    form.OnResize = [this] { ++resizes; };
  }

  Form form{"frmTest"};
  int changes = 0;
  int resizes = 0;
  Connection counting;
};

/// A grid whose first cell is open, and what its rule has seen.
class PendingEdit {
 public:
  explicit PendingEdit(Form& form) : grid(form, "grid") {
    grid.Shape(2, 1, 1, 0);
    grid.Editable(true);
    grid.OnAfterEdit = [this](int, int) { ++ended; };
    grid.UserType("x");
  }

  Grid grid;
  int ended = 0;
};

TEST_F(FormTest, IsHiddenAndNormalAtFirst) {
  EXPECT_EQ(form.Name(), "frmTest");
  EXPECT_EQ(form.Caption(), "");
  EXPECT_FALSE(form.Visible());
  EXPECT_EQ(form.State(), WindowState::Normal);
  EXPECT_EQ(form.FocusedControl(), nullptr);
  EXPECT_EQ(Form::kTitleHeight, 570);
}

TEST_F(FormTest, TellsEachChangeOnceAndEqualValuesNever) {
  for (int i = 0; i < 2; ++i) {
    form.Caption("caption");
    form.Place({1, 2, 3, 4});
    form.MinimumSize(5, 6);
    form.UserState(WindowState::Maximised);
    form.Show();
    EXPECT_EQ(changes, 5);
  }
  EXPECT_EQ(form.Caption(), "caption");
  EXPECT_EQ(form.Place(), (Rect{1, 2, 3, 4}));
  EXPECT_EQ(form.MinimumWidth(), 5);
  EXPECT_EQ(form.MinimumHeight(), 6);
  EXPECT_EQ(form.State(), WindowState::Maximised);
  form.Hide();
  form.Hide();
  EXPECT_EQ(changes, 6);
}

TEST_F(FormTest, TellsOfControlsThatComeAndGo) {
  {
    const Label label(form, "label");
    EXPECT_EQ(changes, 1);
  }
  EXPECT_EQ(changes, 2);
}

TEST_F(FormTest, ResizesWhenItIsShownAndWhenAShownWindowChangesItsSize) {
  form.Place({0, 0, 100, 100});
  EXPECT_EQ(resizes, 0);
  form.Show();
  EXPECT_EQ(resizes, 1);
  form.Place({10, 10, 100, 100});
  EXPECT_EQ(resizes, 1);
  form.Place({10, 10, 101, 100});
  form.Place({10, 10, 101, 99});
  EXPECT_EQ(resizes, 3);
  form.Hide();
  form.Place({10, 10, 50, 50});
  EXPECT_EQ(resizes, 3);
  form.Show();
  EXPECT_EQ(resizes, 4);
}

TEST_F(FormTest, TheUserResizesItInEveryState) {
  form.Show();
  form.UserState(WindowState::Maximised);
  form.UserPlace({0, 0, 1000, 1000});
  EXPECT_EQ(form.Place(), (Rect{0, 0, 1000, 1000}));
  EXPECT_EQ(resizes, 2);
}

TEST_F(FormTest, KeepsTheOrderInWhichItsControlsWereMade) {
  Label last(form, "last");
  Label first(form, "first");
  Label third(form, "last", 3);
  EXPECT_THAT(form.Controls(), ElementsAre(&last, &first, &third));
  EXPECT_EQ(form.Find("last"), &last);
  EXPECT_EQ(form.Find("last", 3), &third);
  EXPECT_EQ(form.Find("last", 4), nullptr);
  EXPECT_EQ(form.Find("none"), nullptr);
}

TEST_F(FormTest, KeepsItsArrangementAndItsMenuBar) {
  Label label(form, "label");
  MenuEntry menu(form, "menu");
  form.Arrangement({{&label}, {}});
  form.MenuBar({&menu});
  EXPECT_THAT(form.Arrangement(), ElementsAre(ElementsAre(&label), ElementsAre()));
  EXPECT_THAT(form.MenuBar(), ElementsAre(&menu));
}

TEST_F(FormTest, TheCloseBoxHidesTheWindowAfterItsRule) {
  form.Show();
  bool shownThen = false;
  form.OnUnload = [&](bool& cancel) {
    shownThen = form.Visible();
    EXPECT_FALSE(cancel);
  };
  form.UserClose();
  EXPECT_TRUE(shownThen);
  EXPECT_FALSE(form.Visible());
}

TEST_F(FormTest, TheRuleOfTheCloseBoxMayKeepTheWindow) {
  form.Show();
  form.OnUnload = [](bool& cancel) { cancel = true; };
  form.UserClose();
  EXPECT_TRUE(form.Visible());
}

TEST_F(FormTest, HideAsksNobody) {
  form.Show();
  form.OnUnload = [](bool&) { ADD_FAILURE(); };
  form.Hide();
  EXPECT_FALSE(form.Visible());
}

TEST_F(FormTest, ClosingEndsAnOpenEditFirst) {
  PendingEdit edit(form);
  int endedThen = 0;
  form.OnUnload = [&](bool&) { endedThen = edit.ended; };
  form.UserClose();
  EXPECT_EQ(endedThen, 1);
  EXPECT_EQ(edit.grid.Text({1, 0}), "x");
}

TEST_F(FormTest, ADroppedFileEndsAnOpenEditFirst) {
  PendingEdit edit(form);
  std::vector<std::string> dropped;
  form.OnDropFile = [&](const std::string& path) { dropped.push_back(path + std::to_string(edit.ended)); };
  form.UserDropFile("file");
  EXPECT_THAT(dropped, ElementsAre("file1"));
}

TEST_F(FormTest, EndsTheEditsOfAllItsControlsOnce) {
  PendingEdit edit(form);
  edit.grid.OnAfterEdit = [&](int, int) {
    ++edit.ended;
    form.EndPendingEdits();
  };
  form.EndPendingEdits();
  form.EndPendingEdits();
  EXPECT_EQ(edit.ended, 1);
}

TEST_F(FormTest, ARuleOfAnEditMayMakeAndRemoveControls) {
  auto doomed = std::make_unique<Label>(form, "doomed");
  PendingEdit edit(form);
  std::unique_ptr<Label> made;
  edit.grid.OnAfterEdit = [&](int, int) {
    doomed.reset();
    made = std::make_unique<Label>(form, "made");
  };
  form.EndPendingEdits();
  EXPECT_THAT(form.Controls(), ElementsAre(&edit.grid, made.get()));
}

}  // namespace
}  // namespace tavrin
