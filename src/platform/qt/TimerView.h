#pragma once

#include <QObject>
#include <QTimer>

#include "platform/controls/Timer.h"

namespace tavrin {

/// Lets a timer tick in real time for as long as its window is drawn. What falls due while the handler runs, also while
/// a box that the handler has opened is up, is one tick right after it.
class TimerView : public QObject {
 public:
  /// @param timer outlives the view
  TimerView(Timer& timer, QObject* parent);

 private:
  void Follow();
  void Tick();

  Timer& timer_;
  QTimer clock_;
  QTimer overdue_;  // for the tick that fell due while another ran
  bool ticking_ = false;
  bool due_ = false;
  Connection changed_;
};

}  // namespace tavrin
