#pragma once

#include <atomic>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <vector>

#include "online/opc/OpcServers.h"

namespace tavrin::ua {

/// Values on their way to the server.
struct WriteJob {
  enum class State { UnderWay, Taken, Refused };

  std::vector<ItemWrite> writes;
  std::atomic<State> state = State::UnderWay;
};

/// What a connection on the thread of the windows and its worker tell each other. It lives as long as either.
class Exchange {
 public:
  enum class State { Connecting, Connected, Lost, Failed };

  [[nodiscard]] State Now() const { return state_; }
  /// By the worker. What is to be written while there is no connection is refused.
  void Become(State state);

  /// The connection is no longer wanted. The worker ends as soon as it can.
  void Stop();
  [[nodiscard]] bool Stopped() const { return stopped_; }
  /// By the worker: stands still so long, or until it is to stop.
  void Pause(std::chrono::milliseconds duration);

  /// @return null when there is no connection
  [[nodiscard]] std::shared_ptr<WriteJob> Write(const std::vector<ItemWrite>& writes);
  /// By the worker: the values that are to be sent since the last call.
  [[nodiscard]] std::vector<std::shared_ptr<WriteJob>> TakeJobs();

 private:
  std::mutex mutex_;
  std::condition_variable stopping_;
  std::atomic<State> state_ = State::Connecting;
  std::atomic<bool> stopped_ = false;
  std::vector<std::shared_ptr<WriteJob>> jobs_;
};

}  // namespace tavrin::ua
