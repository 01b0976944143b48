#include "platform/controls/Timer.h"

#include <stdexcept>

#include <gtest/gtest.h>

#include "platform/controls/Form.h"

namespace tavrin {
namespace {

class TimerTest : public testing::Test {
 protected:
  TimerTest() {
    timer.OnTimer = [this] { ++ticks; };
  }

  Form form{"frmTest"};
  Timer timer{form, "Timer1"};
  int ticks = 0;
};

TEST_F(TimerTest, StartsDisabledAndTicksOnlyWhileItIsEnabled) {
  timer.Elapse();
  EXPECT_EQ(ticks, 0);
  timer.Enabled(true);
  timer.Elapse();
  timer.Elapse();
  EXPECT_EQ(ticks, 2);
  timer.Enabled(false);
  timer.Elapse();
  EXPECT_EQ(ticks, 2);
}

TEST_F(TimerTest, ATickDoesNotRunWithinAnother) {
  timer.OnTimer = [this] {
    ++ticks;
    timer.Elapse();
  };
  timer.Enabled(true);
  timer.Elapse();
  EXPECT_EQ(ticks, 1);
  timer.Elapse();
  EXPECT_EQ(ticks, 2);
}

TEST_F(TimerTest, ATickThatEndsInAnErrorIsOver) {
  timer.OnTimer = [this] {
    ++ticks;
    throw std::runtime_error("x");
  };
  timer.Enabled(true);
  EXPECT_THROW(timer.Elapse(), std::runtime_error);
  EXPECT_THROW(timer.Elapse(), std::runtime_error);
  EXPECT_EQ(ticks, 2);
}

TEST_F(TimerTest, AnIntervalIsAtLeastOneMillisecond) {
  timer.Interval(5000);
  EXPECT_EQ(timer.Interval(), 5000);
  timer.Interval(0);
  EXPECT_EQ(timer.Interval(), 1);
  timer.Interval(-7);
  EXPECT_EQ(timer.Interval(), 1);
}

TEST_F(TimerTest, TicksWithoutARule) {
  timer.OnTimer = nullptr;
  timer.Enabled(true);
  timer.Elapse();
  EXPECT_TRUE(timer.Enabled());
}

}  // namespace
}  // namespace tavrin
