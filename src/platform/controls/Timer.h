#pragma once

#include <algorithm>
#include <functional>
#include <string>
#include <utility>

#include "platform/controls/Control.h"

namespace tavrin {

/// Runs its handler again and again while it is enabled. Not to be seen. Ticks never overlap: one that falls due while
/// a handler runs comes after it, and several of them as one.
class Timer : public Control {
 public:
  /// Starts disabled.
  Timer(Form& form, std::string name, int index = 0) : Control(form, std::move(name), index) { Enabled(false); }

  /// Milliseconds between two ticks; below 1 counts as 1.
  [[nodiscard]] int Interval() const { return interval_; }
  void Interval(int milliseconds) { Assign(interval_, std::max(milliseconds, 1)); }

  /// The time has come. Without effect while it is disabled or the handler runs.
  void Elapse();

  std::function<void()> OnTimer;

 private:
  int interval_ = 1000;
  bool running_ = false;
};

}  // namespace tavrin
