#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <mutex>

namespace tavrin {

/// Actions that any thread hands in and one thread runs, in the order in which they came. Each is taken out before it
/// runs: one that waits for others in turn, or throws, neither doubles nor loses nor overtakes any.
class ActionQueue {
 public:
  /// From any thread. Without effect while the queue is closed.
  void Add(std::function<void()> action);

  /// Runs what has been handed in up to now.
  void Run();

  /// Runs what comes in until `done`, asked before the first and after each, says so; at most so long and then what is
  /// there by that time, or until the queue is closed. @return what `done` says at the end
  bool RunUntil(const std::function<bool()>& done, std::chrono::milliseconds most);

  /// Drops what waits and takes nothing more, until Open.
  void Close();
  void Open();

 private:
  using Action = std::function<void()>;
  using Clock = std::chrono::steady_clock;

  /// How many were ever handed in.
  std::uint64_t HandedIn();
  /// The oldest action, if it is one of the first `count` that were ever handed in; else none.
  Action TakeOneOf(std::uint64_t count);
  /// None when nothing came in time.
  Action WaitForOne(Clock::time_point deadline);
  Action TakeFront();

  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<Action> actions_;
  std::uint64_t taken_ = 0;  // and dropped
  bool closed_ = false;
};

}  // namespace tavrin
