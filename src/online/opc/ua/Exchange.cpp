#include "online/opc/ua/Exchange.h"

#include <utility>

namespace tavrin::ua {

void Exchange::Become(State state) {
  const std::lock_guard lock(mutex_);
  state_ = state;
  if (state == State::Connected) return;
  for (const auto& job : std::exchange(jobs_, {})) job->state = WriteJob::State::Refused;
}

void Exchange::Stop() {
  {
    const std::lock_guard lock(mutex_);
    stopped_ = true;
  }
  stopping_.notify_all();
}

void Exchange::Pause(std::chrono::milliseconds duration) {
  std::unique_lock lock(mutex_);
  stopping_.wait_for(lock, duration, [this] { return stopped_.load(); });
}

std::shared_ptr<WriteJob> Exchange::Write(const std::vector<ItemWrite>& writes) {
  const std::lock_guard lock(mutex_);
  if (state_ != State::Connected) return nullptr;
  auto job = std::make_shared<WriteJob>();
  job->writes = writes;
  jobs_.push_back(job);
  return job;
}

std::vector<std::shared_ptr<WriteJob>> Exchange::TakeJobs() {
  const std::lock_guard lock(mutex_);
  return std::exchange(jobs_, {});
}

}  // namespace tavrin::ua
