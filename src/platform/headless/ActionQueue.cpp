#include "platform/headless/ActionQueue.h"

#include <utility>

namespace tavrin {

void ActionQueue::Add(std::function<void()> action) {
  {
    const std::lock_guard lock(mutex_);
    actions_.push_back(std::move(action));
  }
  added_.notify_one();
}

void ActionQueue::Run() {
  std::deque<std::function<void()>> due;
  {
    const std::lock_guard lock(mutex_);
    due.swap(actions_);
  }
  for (const auto& action : due) action();
}

bool ActionQueue::RunUntil(const std::function<bool()>& done, std::chrono::milliseconds most) {
  const Clock::time_point deadline = Clock::now() + most;
  Run();
  while (!done()) {
    if (!WaitForOne(deadline)) return false;
    Run();
  }
  return true;
}

bool ActionQueue::WaitForOne(Clock::time_point deadline) {
  std::unique_lock lock(mutex_);
  return added_.wait_until(lock, deadline, [this] { return !actions_.empty(); });
}

}  // namespace tavrin
