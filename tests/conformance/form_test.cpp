// A window on the screen: place, state, closing, keyboard, files that are dropped on it.
#include <QApplication>
#include <QDropEvent>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QTest>
#include <QUrl>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/controls/Button.h"
#include "platform/controls/Grid.h"
#include "platform/controls/MenuEntry.h"
#include "platform/controls/Tree.h"
#include "platform/qt/FormView.h"

namespace tavrin {
namespace {

using testing::ElementsAre;

struct FormRig {
  FormRig() {
    tree.Place({0, 450, 1500, 3000});
    sheet.Place({1500, 450, 4000, 1000});
    tags.Place({1500, 1500, 4000, 1000});
    hidden.Place({1500, 450, 4000, 1000});
    hidden.Visible(false);
    box.Place({0, 0, 1500, 330});
    for (Grid* grid : {&sheet, &tags, &hidden}) {
      grid->Shape(3, 2, 1, 0);
      grid->OnGotFocus = [this, grid] { events.push_back("got " + grid->Name()); };
      grid->OnLostFocus = [this, grid] { events.push_back("lost " + grid->Name()); };
    }
    form.MenuBar({&menu});
    menu.Caption("&File");
    form.Caption("Window");
    form.MinimumSize(3000, 2001);
    form.Place({1500, 1500, 6000, 4620});
    form.OnResize = [this] { ++resizes; };
  }

  std::vector<std::string> events;
  int resizes = 0;
  Form form{"frmTest"};
  MenuEntry menu{form, "mnuMain", 1};
  Tree tree{form, "tvwTest"};
  Grid sheet{form, "vsgSheet"};
  Grid tags{form, "vsgTags"};
  Grid hidden{form, "vsgHidden"};
  CheckBox box{form, "chkTest"};
};

struct ShownForm : FormRig {
  ShownForm() {
    form.Show();
    static_cast<void>(QTest::qWaitForWindowActive(&view));
    QCoreApplication::processEvents();
    events.clear();
    resizes = 0;
  }
  QWidget& Widget(const Control& control) { return *view.Views().WidgetOf(control); }
  QSize Content() { return view.centralWidget()->size(); }
  QWidget* Focused() { return QApplication::focusWidget(); }

  QtWords words{[] { return std::string("en"); }};
  FormView view{form, words};
};

TEST(FormOnScreen, ShowsAndHidesItselfAsTheWindowSays) {
  FormRig rig;
  QtWords words([] { return std::string("en"); });
  const FormView view(rig.form, words);
  EXPECT_FALSE(view.isVisible());
  rig.form.Show();
  EXPECT_TRUE(view.isVisible());
  rig.form.Hide();
  EXPECT_FALSE(view.isVisible());
}

TEST(FormOnScreen, ItsTitleIsTheCaptionAsItStands) {
  ShownForm rig;
  rig.form.Caption("A[*]B \xE4");
  EXPECT_EQ(rig.view.windowTitle(), QStringLiteral("A[*][*]B ä"));  // which the toolkit shows as "A[*]B ä"
}

TEST(FormOnScreen, TheContentIsTheHeightWithoutTitleAndMenuBar) {
  ShownForm rig;
  EXPECT_EQ(rig.Content(), QSize(400, 270));
  EXPECT_EQ(rig.view.pos(), QPoint(100, 100));
  EXPECT_EQ(rig.view.height(), rig.Content().height() + rig.view.menuBar()->height());
}

TEST(FormOnScreen, ControlsStandAtTheirPlacesInTheContent) {
  ShownForm rig;
  EXPECT_EQ(rig.Widget(rig.sheet).geometry(), QRect(100, 30, 267, 67));
  rig.sheet.Place({1500, 450, 3000, 1500});
  EXPECT_EQ(rig.Widget(rig.sheet).geometry(), QRect(100, 30, 200, 100));
}

TEST(FormOnScreen, TheUserSizesAndMovesTheWindow) {
  ShownForm rig;
  rig.view.resize(500, rig.view.height());
  EXPECT_EQ(rig.form.Place(), (Rect{1500, 1500, 7500, 4620}));
  EXPECT_EQ(rig.resizes, 1);
  rig.view.move(120, 140);
  EXPECT_EQ(rig.form.Place(), (Rect{1800, 2100, 7500, 4620}));
  EXPECT_EQ(rig.resizes, 1);
}

TEST(FormOnScreen, APlaceThatIsNoWholeNumberOfPixelsStays) {
  ShownForm rig;
  rig.form.Place({1507, 1502, 6004, 4627});
  QCoreApplication::processEvents();
  EXPECT_EQ(rig.form.Place(), (Rect{1507, 1502, 6004, 4627}));
  EXPECT_EQ(rig.resizes, 1);
}

TEST(FormOnScreen, TheUserCannotPullItBelowItsMinimum) {
  ShownForm rig;
  rig.view.resize(10, 10);
  EXPECT_GE(rig.form.Place().width, 3000);
  EXPECT_GE(rig.form.Place().height, 2001);
}

TEST(FormOnScreen, AWindowBeyondEveryScreenIsMovedIntoSight) {
  FormRig rig;
  rig.form.Place({900000, -300000, 6000, 4620});
  QtWords words([] { return std::string("en"); });
  const FormView view(rig.form, words);
  rig.form.Show();
  EXPECT_TRUE(view.screen()->availableGeometry().contains(view.pos()));
  EXPECT_EQ(rig.form.Place().left, static_cast<float>(view.pos().x() * 15));
  EXPECT_EQ(rig.form.Place().width, 6000);
}

TEST(FormOnScreen, TellsItsState) {
  ShownForm rig;
  rig.view.showMaximized();
  EXPECT_EQ(rig.form.State(), WindowState::Maximised);
  rig.view.showMinimized();
  EXPECT_EQ(rig.form.State(), WindowState::Minimised);
  rig.view.showNormal();
  EXPECT_EQ(rig.form.State(), WindowState::Normal);
}

TEST(FormOnScreen, TheCloseBoxAsksTheWindow) {
  ShownForm rig;
  bool refuse = true;
  rig.form.OnUnload = [&](bool& cancel) { cancel = refuse; };
  rig.view.close();
  EXPECT_TRUE(rig.view.isVisible());
  refuse = false;
  rig.view.close();
  EXPECT_FALSE(rig.view.isVisible());
  EXPECT_FALSE(rig.form.Visible());
}

TEST(FormOnScreen, TheKeyboardHasOneOwnerOnBothSides) {
  ShownForm rig;
  rig.sheet.SetFocus();
  EXPECT_EQ(rig.Focused(), &rig.Widget(rig.sheet));
  QTest::keyClick(rig.Focused(), Qt::Key_Tab);
  EXPECT_TRUE(rig.tags.Focused());
  EXPECT_THAT(rig.events, ElementsAre("got vsgSheet", "lost vsgSheet", "got vsgTags"));
}

TEST(FormOnScreen, AControlThatIsHiddenLeavesTheKeyboardToNobody) {
  ShownForm rig;
  rig.sheet.SetFocus();
  rig.sheet.Visible(false);
  EXPECT_EQ(rig.form.FocusedControl(), nullptr);
  EXPECT_THAT(rig.events, ElementsAre("got vsgSheet", "lost vsgSheet"));
}

TEST(FormOnScreen, F6WalksThePanesFromLeftToRight) {
  ShownForm rig;
  rig.box.SetFocus();
  std::vector<std::string> order;
  for (int i = 0; i < 4; ++i) {
    QTest::keyClick(rig.Focused(), Qt::Key_F6);
    order.push_back(rig.form.FocusedControl()->Name());
  }
  EXPECT_THAT(order, ElementsAre("tvwTest", "vsgSheet", "vsgTags", "tvwTest"));
  QTest::keyClick(rig.Focused(), Qt::Key_F6, Qt::ShiftModifier);
  EXPECT_TRUE(rig.tags.Focused());
}

TEST(FormOnScreen, TheTabKeyWalksInTheOrderOfTheControls) {
  ShownForm rig;
  rig.tree.SetFocus();
  std::vector<std::string> order;
  for (int i = 0; i < 4; ++i) {
    QTest::keyClick(rig.Focused(), Qt::Key_Tab);
    order.push_back(rig.form.FocusedControl()->Name());
  }
  EXPECT_THAT(order, ElementsAre("vsgSheet", "vsgTags", "chkTest", "tvwTest"));
}

TEST(FormOnScreen, AControlMadeLaterIsDrawnToo) {
  ShownForm rig;
  CheckBox late(rig.form, "chkLate");
  late.Caption("Late");
  EXPECT_EQ(rig.view.Views().WidgetOf(late), nullptr);
  QCoreApplication::processEvents();
  ASSERT_NE(rig.view.Views().WidgetOf(late), nullptr);
  EXPECT_TRUE(rig.Widget(late).isVisible());
}

/// Drops files on the window. @return true when it took them
bool Drop(QWidget& window, const QList<QUrl>& files) {
  QMimeData data;
  data.setUrls(files);
  QDragEnterEvent enter({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  enter.ignore();
  QCoreApplication::sendEvent(&window, &enter);
  if (!enter.isAccepted()) return false;
  QDropEvent drop({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(&window, &drop);
  QCoreApplication::processEvents();
  return true;
}

TEST(FormOnScreen, AFileThatIsDroppedComesWithItsPathInTheCodePage) {
  ShownForm rig;
  std::string dropped;
  rig.form.OnDropFile = [&](const std::string& path) { dropped = path; };
  EXPECT_TRUE(Drop(rig.view, {QUrl::fromLocalFile(QStringLiteral("/plant/Käse.ini"))}));
  EXPECT_EQ(dropped, "/plant/K\xE4se.ini");
}

TEST(FormOnScreen, WhatIsNoSingleFileThatTheProgramCanNameIsNotTaken) {
  ShownForm rig;
  rig.form.OnDropFile = [](const std::string&) { FAIL(); };
  const QUrl file = QUrl::fromLocalFile(QStringLiteral("/plant/A.ini"));
  EXPECT_FALSE(Drop(rig.view, {}));
  EXPECT_FALSE(Drop(rig.view, {file, file}));
  EXPECT_FALSE(Drop(rig.view, {QUrl(QStringLiteral("ftp://host/A.ini"))}));
  EXPECT_FALSE(Drop(rig.view, {QUrl::fromLocalFile(QStringLiteral("/plant/\u65E5.ini"))}));
}

}  // namespace
}  // namespace tavrin
