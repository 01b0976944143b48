#include "platform/headless/ActionQueue.h"

#include <utility>

namespace tavrin {

void ActionQueue::Add(Action action) {
  {
    const std::lock_guard lock(mutex_);
    if (closed_) return;
    actions_.push_back(std::move(action));
  }
  changed_.notify_one();
}

void ActionQueue::Run() {
  const std::uint64_t count = HandedIn();
  while (const Action action = TakeOneOf(count)) action();
}

bool ActionQueue::RunUntil(const std::function<bool()>& done, std::chrono::milliseconds most) {
  const Clock::time_point deadline = Clock::now() + most;
  while (Clock::now() < deadline) {
    if (done()) return true;
    const Action action = WaitForOne(deadline);
    if (!action) break;
    action();
  }
  const std::uint64_t count = HandedIn();  // who goes on handing in must not keep the wait from its end
  while (!done()) {
    const Action action = TakeOneOf(count);
    if (!action) return done();
    action();
  }
  return true;
}

void ActionQueue::Close() {
  {
    const std::lock_guard lock(mutex_);
    closed_ = true;
    taken_ += actions_.size();
    actions_.clear();
  }
  changed_.notify_one();
}

void ActionQueue::Open() {
  const std::lock_guard lock(mutex_);
  closed_ = false;
}

std::uint64_t ActionQueue::HandedIn() {
  const std::lock_guard lock(mutex_);
  return taken_ + actions_.size();
}

ActionQueue::Action ActionQueue::TakeOneOf(std::uint64_t count) {
  const std::lock_guard lock(mutex_);
  return taken_ < count ? TakeFront() : Action();
}

ActionQueue::Action ActionQueue::WaitForOne(Clock::time_point deadline) {
  std::unique_lock lock(mutex_);
  changed_.wait_until(lock, deadline, [this] { return closed_ || !actions_.empty(); });
  return TakeFront();
}

ActionQueue::Action ActionQueue::TakeFront() {
  if (actions_.empty()) return {};
  Action action = std::move(actions_.front());
  actions_.pop_front();
  ++taken_;
  return action;
}

}  // namespace tavrin
