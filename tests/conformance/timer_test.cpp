// Timers in real time, as part of a window on a screen.
#include "platform/controls/Timer.h"

#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <memory>

#include <gtest/gtest.h>

#include "platform/controls/Form.h"
#include "platform/qt/ControlViews.h"
#include "platform/qt/QtDesktop.h"
#include "platform/qt/TimerView.h"

namespace tavrin {
namespace {

constexpr int kLong = 3'600'000;  // milliseconds that no test waits for

class TimerOnScreen : public testing::Test {
 protected:
  TimerOnScreen() {
    timer.Interval(1);
    timer.OnTimer = [this] { ++ticks; };
  }
  void Draw() { view = std::make_unique<TimerView>(timer, nullptr); }
  [[nodiscard]] bool TicksOn() {
    const int before = ticks;
    return QTest::qWaitFor([&] { return ticks > before + 1; });
  }
  [[nodiscard]] bool StandsStill() {
    const int before = ticks;
    QTest::qWait(20);
    return ticks == before;
  }

  Form form{"frmTest"};
  Timer timer{form, "Timer1"};
  std::unique_ptr<TimerView> view;
  int ticks = 0;
};

TEST_F(TimerOnScreen, TicksAgainAndAgainWhileItIsEnabled) {
  Draw();
  EXPECT_TRUE(StandsStill());
  timer.Enabled(true);
  EXPECT_TRUE(TicksOn());
  timer.Enabled(false);
  EXPECT_TRUE(StandsStill());
}

TEST_F(TimerOnScreen, OneThatIsEnabledBeforeItIsDrawnTicksFromThen) {
  timer.Enabled(true);
  EXPECT_TRUE(StandsStill());
  Draw();
  EXPECT_TRUE(TicksOn());
}

TEST_F(TimerOnScreen, StopsWithItsView) {
  timer.Enabled(true);
  Draw();
  EXPECT_TRUE(TicksOn());
  view.reset();
  EXPECT_TRUE(StandsStill());
  EXPECT_TRUE(timer.Enabled());
}

TEST_F(TimerOnScreen, ANewIntervalHoldsFromTheMomentItIsSet) {
  timer.Interval(kLong);
  timer.Enabled(true);
  Draw();
  EXPECT_TRUE(StandsStill());
  timer.Interval(1);
  EXPECT_TRUE(TicksOn());
  timer.Interval(kLong);
  EXPECT_TRUE(StandsStill());
}

TEST_F(TimerOnScreen, AnyOtherChangeLetsTheRunningIntervalRunOn) {
  timer.Interval(100);
  timer.Enabled(true);
  Draw();
  QTimer changes;
  QObject::connect(&changes, &QTimer::timeout, [this] { timer.ToolTip(timer.ToolTip().empty() ? "x" : ""); });
  changes.start(10);
  EXPECT_TRUE(QTest::qWaitFor([&] { return ticks > 0; }));
}

TEST_F(TimerOnScreen, ATickCanStopIt) {
  timer.OnTimer = [this] {
    ++ticks;
    timer.Enabled(false);
  };
  timer.Enabled(true);
  Draw();
  EXPECT_TRUE(QTest::qWaitFor([&] { return ticks > 0; }));
  EXPECT_TRUE(StandsStill());
  EXPECT_EQ(ticks, 1);
}

TEST_F(TimerOnScreen, TicksWaitForABoxThatTheTickHasOpened) {
  QtWords words([] { return std::string("en"); });
  QtDesktop desktop(words, [] { return std::string("Program"); });
  int open = 0;
  int most = 0;
  int duringBox = 0;
  timer.OnTimer = [&] {
    most = std::max(most, ++open);
    if (++ticks == 1) {
      QTimer::singleShot(50, [&] {
        duringBox = ticks;
        QApplication::activeModalWidget()->close();
      });
      desktop.ShowBox("Stop");
    }
    --open;
  };
  timer.Enabled(true);
  Draw();
  EXPECT_TRUE(QTest::qWaitFor([&] { return ticks > 2; })) << "it goes on behind the box";
  EXPECT_EQ(most, 1);
  EXPECT_EQ(duringBox, 1);
}

TEST_F(TimerOnScreen, WhatFallsDueWhileATickRunsIsOneTickAfterIt) {
  timer.Interval(20);
  timer.OnTimer = [this] {
    if (++ticks > 1) return timer.Interval(kLong);
    QTest::qWait(100);  // several intervals, in which events run
  };
  timer.Enabled(true);
  Draw();
  EXPECT_TRUE(QTest::qWaitFor([&] { return ticks == 2; }));
  EXPECT_TRUE(StandsStill());
}

TEST_F(TimerOnScreen, ATickThatStandsStillIsFollowedByOneAndNotByAllThatWereMissed) {
  timer.Interval(10);
  timer.OnTimer = [this] {
    if (++ticks > 1) return timer.Interval(kLong);
    QThread::msleep(60);
  };
  timer.Enabled(true);
  Draw();
  EXPECT_TRUE(QTest::qWaitFor([&] { return ticks == 2; }));
  EXPECT_TRUE(StandsStill());
}

TEST_F(TimerOnScreen, IsDrawnAsPartOfItsWindowWithoutAWidget) {
  QWidget parent;
  const ControlViews views(form, parent, ControlViews::Places::OfLayouts);
  EXPECT_EQ(views.WidgetOf(timer), nullptr);
  timer.Enabled(true);
  EXPECT_TRUE(TicksOn());
}

}  // namespace
}  // namespace tavrin
