#pragma once

#include <utility>

#include "model/shared/modMain.h"

namespace tavrin {

/// Runs an action when its scope is left, also by an error. Errors of the action itself mean nothing.
template <class Action>
class AtExit {
 public:
  explicit AtExit(Action action) : action_(std::move(action)) {}
  AtExit(const AtExit&) = delete;
  AtExit& operator=(const AtExit&) = delete;
  ~AtExit() { modMain::IgnoreErrors(action_); }

 private:
  Action action_;
};

}  // namespace tavrin
