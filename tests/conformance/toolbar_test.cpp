// The tool bar by its gestures and by the mouse.
#include <QTest>
#include <QToolButton>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/controls/Button.h"
#include "platform/qt/FormView.h"
#include "platform/qt/ToolbarView.h"

namespace tavrin {
namespace {

using testing::ElementsAre;

struct ToolRig {
  ToolRig() {
    for (const int number : {2, 3, 6}) {
      ToolButton& button = bar.Buttons.Load(number);
      button.Image("SAVE");
      button.ToolTip("Tool " + std::to_string(number));
      button.OnClick = [this, number] { clicks.push_back(number); };
    }
    bar.Place({0, 0, 4000, 330});
    box.Place({0, 600, 3000, 330});
    bar.Buttons(6).Enabled(false);
    form.Place({0, 0, 6000, 4000});
    form.Show();
  }

  std::vector<int> clicks;
  Form form{"frmTest"};
  Toolbar bar{form, "Toolbar1"};
  CheckBox box{form, "chkTest"};
};

struct ShownTools : ToolRig {
  ShownTools() { static_cast<void>(QTest::qWaitForWindowActive(&view)); }
  ToolbarView& Bar() { return dynamic_cast<ToolbarView&>(*view.Views().WidgetOf(bar)); }
  void Click(int number) { QTest::mouseClick(Bar().Button(number), Qt::LeftButton); }

  QtWords words{[] { return std::string("en"); }};
  FormView view{form, words};
};

TEST(Toolbar, AClickTellsWhatTheGestureTells) {
  ToolRig plain;
  plain.bar.Buttons(3).UserClick();
  plain.bar.Buttons(6).UserClick();

  ShownTools shown;
  shown.Click(3);
  shown.Click(6);
  EXPECT_EQ(shown.clicks, plain.clicks);
  EXPECT_THAT(shown.clicks, ElementsAre(3));
}

TEST(Toolbar, NeverTakesTheKeyboard) {
  ShownTools shown;
  shown.box.SetFocus();
  shown.Click(2);
  EXPECT_TRUE(shown.box.Focused());
  EXPECT_TRUE(shown.view.Views().WidgetOf(shown.box)->hasFocus());
  EXPECT_EQ(shown.Bar().Button(2)->focusPolicy(), Qt::NoFocus);
}

TEST(Toolbar, AButtonIsKnownByItsToolTip) {
  ShownTools shown;
  shown.bar.Buttons(2).ToolTip("&Neu");
  EXPECT_EQ(shown.Bar().Button(2)->accessibleName(), QStringLiteral("Neu"));
}

TEST(Toolbar, FollowsItsButtons) {
  ShownTools shown;
  EXPECT_FALSE(shown.Bar().Button(6)->isEnabled());
  shown.bar.Buttons(6).Enabled(true);
  EXPECT_TRUE(shown.Bar().Button(6)->isEnabled());
  shown.bar.Buttons(6).Visible(false);
  EXPECT_FALSE(shown.Bar().Button(6)->isVisible());
}

TEST(Toolbar, ANumberWithoutAButtonIsAGap) {
  ShownTools shown;
  EXPECT_EQ(shown.Bar().Button(4), nullptr);
  const QRect second = shown.Bar().Button(2)->geometry();
  const QRect third = shown.Bar().Button(3)->geometry();
  const QRect sixth = shown.Bar().Button(6)->geometry();
  EXPECT_EQ(third.left(), second.right() + 1);
  EXPECT_GT(sixth.left(), third.right() + 1);
}

TEST(Toolbar, ItsPicturesFitIntoItsHeight) {
  ShownTools shown;
  const QToolButton& button = *shown.Bar().Button(2);
  EXPECT_FALSE(button.icon().isNull());
  EXPECT_GE(shown.Bar().height(), button.iconSize().height());
  EXPECT_LE(button.geometry().bottom(), shown.Bar().height());
}

}  // namespace
}  // namespace tavrin
