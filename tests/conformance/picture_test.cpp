// Pictures, bars and labels: what they draw, and bars by their gestures, by the mouse and by keys.
#include "platform/controls/Picture.h"

#include <QScrollBar>
#include <QTest>

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/controls/Button.h"
#include "platform/controls/Label.h"
#include "platform/qt/FormView.h"
#include "platform/qt/Icons.h"
#include "platform/qt/LabelView.h"
#include "platform/qt/PictureView.h"

namespace tavrin {
namespace {

using testing::ElementsAre;

/// A window with a bar that is dragged across and one that is dragged up and down.
struct BarRig {
  BarRig() {
    Listen(across);
    Listen(upDown);
    across.Place({1500, 0, 90, 3000});
    upDown.Place({0, 1500, 5000, 90});
    form.Place({0, 0, 6000, 4000});
    form.Show();
  }

  void Listen(Picture& bar) {
    bar.OnMouseDown = [this](float x, float y) { events.push_back(fmt::format("down {} {}", x, y)); };
    bar.OnMouseMove = [this](float x, float y) { events.push_back(fmt::format("move {} {}", x, y)); };
    bar.OnMouseUp = [this](float x, float y) { events.push_back(fmt::format("up {} {}", x, y)); };
  }

  std::vector<std::string> events;
  Form form{"frmTest"};
  Picture across{form, "imgAcross", PictureKind::Splitter};
  Picture upDown{form, "imgUpDown", PictureKind::Splitter};
  Picture shadow{form, "picShadow", PictureKind::Shadow};
};

struct ShownBars : BarRig {
  ShownBars() { static_cast<void>(QTest::qWaitForWindowActive(&view)); }
  QWidget& Widget(const Control& control) { return *view.Views().WidgetOf(control); }

  QtWords words{[] { return std::string("en"); }};
  FormView view{form, words};
};

TEST(Splitter, ADragByTheMouseTellsWhatTheGesturesTell) {
  BarRig plain;
  plain.across.UserPress(30, 450);
  plain.across.UserMove(630, 450);
  plain.across.UserRelease(630, 450);

  ShownBars shown;
  QWidget& bar = shown.Widget(shown.across);
  QTest::mousePress(&bar, Qt::LeftButton, Qt::NoModifier, {2, 30});
  QTest::mouseMove(&bar, {42, 30});
  QTest::mouseRelease(&bar, Qt::LeftButton, Qt::NoModifier, {42, 30});
  EXPECT_EQ(shown.events, plain.events);
}

TEST(Splitter, MovesOfTheMouseWithoutTheButtonTellNothing) {
  ShownBars shown;
  QTest::mouseMove(&shown.Widget(shown.across), {2, 30});
  QTest::mouseClick(&shown.Widget(shown.across), Qt::RightButton);
  EXPECT_THAT(shown.events, ElementsAre());
}

TEST(Splitter, ArrowKeysAlongItsWayMoveIt) {
  ShownBars shown;
  QTest::keyClick(&shown.Widget(shown.across), Qt::Key_Right);
  QTest::keyClick(&shown.Widget(shown.across), Qt::Key_Down);
  EXPECT_THAT(shown.events, ElementsAre("down 0 0", "move 150 0", "up 150 0"));
  shown.events.clear();
  QTest::keyClick(&shown.Widget(shown.upDown), Qt::Key_Up);
  QTest::keyClick(&shown.Widget(shown.upDown), Qt::Key_Left);
  EXPECT_THAT(shown.events, ElementsAre("down 0 0", "move 0 -150", "up 0 -150"));
}

TEST(Splitter, IsReachedByTabAndSeenWhenItHasTheKeyboard) {
  ShownBars shown;
  QWidget& bar = shown.Widget(shown.across);
  shown.Widget(shown.upDown).setFocus();
  const QImage before = bar.grab().toImage();
  bar.setFocus(Qt::TabFocusReason);
  EXPECT_TRUE(bar.hasFocus());
  EXPECT_TRUE(shown.across.Focused());
  EXPECT_NE(bar.grab().toImage(), before);
}

TEST(Splitter, IsPassedOverByTabWhileOtherControlsCoverIt) {
  ShownBars shown;
  shown.Widget(shown.upDown).setFocus();
  CheckBox cover(shown.form, "chkCover");
  cover.Place({0, 0, 6000, 4000});
  QCoreApplication::processEvents();
  shown.Widget(shown.across).setFocus(Qt::TabFocusReason);
  EXPECT_FALSE(shown.Widget(shown.across).hasFocus());
  EXPECT_TRUE(shown.Widget(cover).hasFocus());
}

TEST(Splitter, TheShadowIsDrawnWhereItIs) {
  ShownBars shown;
  shown.shadow.Place({3000, 0, 90, 3000});
  const QWidget& shadow = shown.Widget(shown.shadow);
  EXPECT_EQ(shadow.geometry(), QRect(200, 0, 6, 200));
  shown.shadow.Visible(false);
  EXPECT_FALSE(shadow.isVisible());
}

QImage Drawn(const std::string& key, const QColor& lines, QSize size = {120, 22}) {
  QImage image(size, QImage::Format_ARGB32);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  PaintPicture(painter, key, QRectF(QPointF(), size), lines);
  return image;
}

bool HasColour(const QImage& image, const QColor& colour) {
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (image.pixelColor(x, y) == colour) return true;
    }
  }
  return false;
}

class Icons : public testing::TestWithParam<const char*> {};

TEST_P(Icons, AreDrawnWithLinesInTheColourOfTheText) {
  for (const QColor lines : {QColor(Qt::black), QColor(Qt::white)}) {
    EXPECT_TRUE(HasColour(Drawn(GetParam(), lines, {128, 128}), lines)) << lines.name().toStdString();
  }
}

TEST_P(Icons, AreAsSharpAsTheScreen) {
  const QPixmap picture = IconOf(GetParam()).pixmap(QSize(16, 16), 2.0);
  EXPECT_EQ(picture.size(), QSize(32, 32));
  EXPECT_EQ(picture.devicePixelRatio(), 2.0);
}

INSTANTIATE_TEST_SUITE_P(All, Icons,
                         testing::Values("ROOT", "NET", "DEVICE", "NEW", "OPEN", "SAVE", "RECONFIGURE", "ZELKAR",
                                         "QORVANE"));

TEST(Icon, OfADisabledButtonLooksFaint) {
  const QIcon icon = IconOf("DELETE");
  EXPECT_NE(icon.pixmap(QSize(16, 16), QIcon::Normal).toImage(), icon.pixmap(QSize(16, 16), QIcon::Disabled).toImage());
}

TEST(Icon, OfAnUnknownKeyShowsNothing) {
  EXPECT_TRUE(IconOf("NO SUCH KEY").isNull());
  EXPECT_EQ(Drawn("NO SUCH KEY", Qt::black), Drawn("", Qt::black));
}

TEST(Icon, FollowsThePalette) {
  const QPalette before = QApplication::palette();
  const QIcon icon = IconOf("SAVE");
  const QImage light = icon.pixmap(QSize(16, 16)).toImage();
  QApplication::setPalette(
      QPalette(Qt::white, Qt::black, Qt::gray, Qt::darkGray, Qt::gray, Qt::white, Qt::white, Qt::black, Qt::black));
  EXPECT_NE(icon.pixmap(QSize(16, 16)).toImage(), light);
  QApplication::setPalette(before);
}

TEST(Image, KeepsItsProportions) {
  const QImage wide = Drawn("TAVRIN", Qt::black, {200, 40});
  EXPECT_EQ(wide.pixelColor(100, 20).alpha(), 0);  // the picture is a square at the left
  EXPECT_NE(wide.pixelColor(20, 20).alpha(), 0);
}

struct LabelRig {
  LabelRig() {
    label.Place({0, 0, 3000, 330});
    form.Place({0, 0, 6000, 4000});
    form.Show();
    static_cast<void>(QTest::qWaitForWindowActive(&view));
  }
  LabelView& View() { return dynamic_cast<LabelView&>(*view.Views().WidgetOf(label)); }

  Form form{"frmTest"};
  Label label{form, "lblTest"};
  QtWords words{[] { return std::string("en"); }};
  FormView view{form, words};
};

TEST(LabelOnScreen, ShowsItsTextAsItStands) {
  LabelRig rig;
  rig.label.Caption("<b>A & B</b> \xE4");
  EXPECT_EQ(rig.View().toPlainText(), QStringLiteral("<b>A & B</b> ä"));
}

TEST(LabelOnScreen, AShortTextLeavesTheKeyboardAlone) {
  LabelRig rig;
  rig.label.Caption("short");
  QCoreApplication::processEvents();
  EXPECT_EQ(rig.View().focusPolicy(), Qt::NoFocus);
  EXPECT_EQ(rig.View().verticalScrollBar()->maximum(), 0);
}

TEST(LabelOnScreen, ALongTextCanBeReadToItsEndByKeys) {
  LabelRig rig;
  rig.label.Caption(std::string(2000, 'w'));  // not even a blank to break it at
  QCoreApplication::processEvents();
  ASSERT_GT(rig.View().verticalScrollBar()->maximum(), 0);
  EXPECT_EQ(rig.View().horizontalScrollBar()->maximum(), 0);
  rig.View().setFocus(Qt::TabFocusReason);
  ASSERT_TRUE(rig.View().hasFocus());
  for (int i = 0; i < 200; ++i) QTest::keyClick(&rig.View(), Qt::Key_Down);
  EXPECT_GE(rig.View().verticalScrollBar()->value(), rig.View().verticalScrollBar()->maximum() - 2);  // the margin
  rig.label.Caption(std::string(2000, 'v'));
  EXPECT_EQ(rig.View().verticalScrollBar()->value(), 0) << "a new text is read from its start";
}

}  // namespace
}  // namespace tavrin
