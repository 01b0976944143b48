#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>

namespace tavrin {

/// Actions that any thread hands in and one thread runs, in the order in which they came.
class ActionQueue {
 public:
  /// From any thread.
  void Add(std::function<void()> action);

  /// Runs what has been handed in up to now.
  void Run();

  /// Runs what comes in until `done` says so, at most so long. @return what `done` says at the end
  bool RunUntil(const std::function<bool()>& done, std::chrono::milliseconds most);

 private:
  using Clock = std::chrono::steady_clock;

  /// @return false when nothing came in time
  bool WaitForOne(Clock::time_point deadline);

  std::mutex mutex_;
  std::condition_variable added_;
  std::deque<std::function<void()>> actions_;
};

}  // namespace tavrin
