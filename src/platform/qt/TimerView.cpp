#include "platform/qt/TimerView.h"

#include <QPointer>
#include <utility>

namespace tavrin {

TimerView::TimerView(Timer& timer, QObject* parent) : QObject(parent), timer_(timer) {
  for (QTimer* const timed : {&clock_, &overdue_}) connect(timed, &QTimer::timeout, this, [this] { Tick(); });
  overdue_.setSingleShot(true);
  changed_ = timer.Changed.Connect([this] { Follow(); });
  Follow();
}

void TimerView::Follow() {
  // A new interval counts from now on; any other change leaves the running one alone.
  if (clock_.interval() != timer_.Interval()) clock_.setInterval(timer_.Interval());
  if (clock_.isActive() == timer_.Enabled()) return;
  due_ = false;
  if (timer_.Enabled()) {
    clock_.start();
  } else {
    clock_.stop();
  }
}

void TimerView::Tick() {
  if (std::exchange(ticking_, true)) {
    due_ = true;
    return;
  }
  const QPointer<QObject> alive(this);
  timer_.Elapse();
  if (!alive) return;
  ticking_ = false;
  if (std::exchange(due_, false)) overdue_.start(0);
}

}  // namespace tavrin
