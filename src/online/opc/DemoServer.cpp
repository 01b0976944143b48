#include "online/opc/DemoServer.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "platform/RuntimeError.h"

namespace tavrin {

class DemoServer::Link : public OpcLink {
 public:
  Link(DemoServer& server, std::shared_ptr<Delivery> delivery) : server_(server), delivery_(std::move(delivery)) {
    for (const std::string& name : delivery_->ItemIDs()) places_.push_back(server_.items_.Find(name));
  }
  ~Link() override {
    delivery_->Close();
    server_.Remove(this);
  }

  void Write(const std::vector<ItemWrite>& writes) override { server_.Write(writes); }

  [[nodiscard]] Delivery& Changes() const { return *delivery_; }
  /// Where each of the items is with the server; nothing for an unknown one.
  [[nodiscard]] const std::vector<std::optional<std::size_t>>& Places() const { return places_; }

 private:
  DemoServer& server_;
  std::shared_ptr<Delivery> delivery_;
  std::vector<std::optional<std::size_t>> places_;
};

DemoServer::~DemoServer() {
  {
    const std::lock_guard lock(mutex_);
    ended_ = true;
  }
  ending_.notify_all();
  if (ticker_.joinable()) ticker_.join();
}

std::unique_ptr<OpcLink> DemoServer::Connect(const std::vector<std::string>& itemIDs, OpcServers::Sink sink) {
  auto delivery = std::make_shared<Delivery>(desktop_, itemIDs, std::move(sink));
  auto link = std::make_unique<Link>(*this, delivery);
  const std::lock_guard lock(mutex_);
  links_.push_back(link.get());
  TellSome(*link, [](const std::optional<std::size_t>&) { return true; });
  delivery->Release();
  if (!ticker_.joinable()) ticker_ = std::thread([this] { Run(); });
  return link;
}

void DemoServer::Run() {
  std::unique_lock lock(mutex_);
  while (!ending_.wait_for(lock, pace_, [this] { return ended_; })) {
    items_.Step(UtcNow());
    for (const Link* link : links_) {
      TellSome(*link, [this](const std::optional<std::size_t>& place) { return place && items_.Moves(*place); });
    }
  }
}

void DemoServer::Write(const std::vector<ItemWrite>& writes) {
  const std::lock_guard lock(mutex_);
  const DemoItems before = items_;
  bool allTaken = true;
  for (const ItemWrite& write : writes) {
    const auto place = items_.Find(write.itemID);
    try {
      if (place) items_.Write(*place, write.value);
    } catch (const RuntimeError&) {
      allTaken = false;
    }
    allTaken = allTaken && place;
  }
  for (const Link* link : links_) {
    TellSome(*link, [&before, this](const std::optional<std::size_t>& place) {
      return place && before.Value(*place) != items_.Value(*place);
    });
  }
  if (!allTaken) throw RuntimeError(ErrorNumber::InvalidCall);
}

void DemoServer::Remove(const Link* link) {
  const std::lock_guard lock(mutex_);
  links_.erase(std::remove(links_.begin(), links_.end(), link), links_.end());
}

template <class Wanted>
void DemoServer::TellSome(const Link& link, Wanted wanted) {
  std::vector<Delivery::Told> told;
  const UtcTime now = UtcNow();
  for (std::size_t item = 0; item < link.Places().size(); ++item) {
    const auto& place = link.Places()[item];
    if (!wanted(place)) continue;
    told.push_back(
        {item, place ? ItemState{items_.Value(*place), kGood, now} : ItemState{Variant(), kBadConfiguration, now}});
  }
  link.Changes().Tell(std::move(told));
}

}  // namespace tavrin
