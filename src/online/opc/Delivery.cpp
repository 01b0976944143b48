#include "online/opc/Delivery.h"

#include <chrono>
#include <utility>

#include "platform/Desktop.h"

namespace tavrin {

Delivery::Delivery(Desktop& desktop, std::vector<std::string> itemIDs, OpcServers::Sink sink)
    : desktop_(&desktop),
      itemIDs_(std::move(itemIDs)),
      sink_(std::move(sink)),
      latest_(itemIDs_.size()),
      isChanged_(itemIDs_.size()) {
  changed_.reserve(itemIDs_.size());
}

void Delivery::Tell(std::vector<Told> told) {
  const std::lock_guard lock(mutex_);
  for (Told& one : told) {
    latest_[one.item] = std::move(one.state);
    Keep(one.item);
  }
  PostOne();
}

void Delivery::TellNotConnected() {
  const std::lock_guard lock(mutex_);
  for (std::size_t item = 0; item < latest_.size(); ++item) {
    latest_[item].quality = kBadNotConnected;
    latest_[item].timeStamp = UtcNow();
    Keep(item);
  }
  PostOne();
}

void Delivery::Wake() {
  const std::lock_guard lock(mutex_);
  if (desktop_ != nullptr) desktop_->Post([] {});
}

void Delivery::Hold() {
  const std::lock_guard lock(mutex_);
  ++holds_;
}

void Delivery::Release() {
  const std::lock_guard lock(mutex_);
  --holds_;
  PostOne();
}

void Delivery::Close() {
  const std::lock_guard lock(mutex_);
  desktop_ = nullptr;
}

void Delivery::Keep(std::size_t item) {
  if (isChanged_[item]) return;
  isChanged_[item] = true;
  changed_.push_back(item);
}

void Delivery::PostOne() {
  if (posted_ || holds_ > 0 || changed_.empty() || desktop_ == nullptr) return;
  desktop_->Post([weak = weak_from_this()] {
    if (const auto self = weak.lock()) self->Deliver();
  });
  posted_ = true;  // it waits for the lock
}

void Delivery::Deliver() {
  std::vector<ItemChange> changes;
  {
    const std::lock_guard lock(mutex_);
    posted_ = false;
    if (holds_ > 0 || desktop_ == nullptr) return;
    changes.reserve(changed_.size());
    for (const std::size_t item : changed_) {
      changes.push_back({itemIDs_[item], latest_[item]});
      isChanged_[item] = false;
    }
    changed_.clear();
  }
  if (!changes.empty()) sink_(changes);
}

UtcTime UtcNow() { return std::chrono::time_point_cast<UtcTime::duration>(std::chrono::system_clock::now()); }

}  // namespace tavrin
