#include "online/opc/UaServers.h"

#include <chrono>
#include <utility>

#include "online/opc/Delivery.h"
#include "online/opc/ua/Client.h"
#include "online/opc/ua/Exchange.h"
#include "online/opc/ua/Worker.h"
#include "platform/Desktop.h"
#include "platform/RuntimeError.h"

namespace tavrin {

namespace {

constexpr int kConnectTime = 3000;  // ms
constexpr int kWriteTime = 3000;

/// How long the end of the program waits for its farewell to the servers: no worker may be at it any more when the
/// libraries are taken down.
constexpr std::chrono::milliseconds kFarewell = ua::kFarewellTime + std::chrono::milliseconds(200);

/// Keeps changes back while a call waits, so that none comes in the middle of it.
class Holding {
 public:
  explicit Holding(Delivery& delivery) : delivery_(delivery) { delivery_.Hold(); }
  Holding(const Holding&) = delete;
  Holding& operator=(const Holding&) = delete;
  ~Holding() { delivery_.Release(); }

 private:
  Delivery& delivery_;
};

class UaLink : public OpcLink {
 public:
  UaLink(Desktop& desktop, std::shared_ptr<Delivery> delivery)
      : desktop_(desktop), delivery_(std::move(delivery)), exchange_(std::make_shared<ua::Exchange>()) {}
  ~UaLink() override {
    delivery_->Close();
    exchange_->Stop();
  }

  void Connect(const ServerEntry& server, const std::shared_ptr<ua::Crew>& crew) {
    using State = ua::Exchange::State;
    ua::StartWorker(server, exchange_, delivery_, crew);
    desktop_.WaitUntil([this] { return exchange_->Now() != State::Connecting; }, kConnectTime);
    const State state = exchange_->Now();
    if (state != State::Connected && state != State::Lost) throw RuntimeError(ErrorNumber::InvalidCall);
    delivery_->Release();
  }

  void Write(const std::vector<ItemWrite>& writes) override {
    using State = ua::WriteJob::State;
    const Holding holding(*delivery_);
    const auto job = exchange_->Write(writes);
    if (!job) throw RuntimeError(ErrorNumber::InvalidCall);
    desktop_.WaitUntil([&job] { return job->state != State::UnderWay; }, kWriteTime);
    if (job->state != State::Taken) throw RuntimeError(ErrorNumber::InvalidCall);
  }

 private:
  Desktop& desktop_;
  const std::shared_ptr<Delivery> delivery_;
  const std::shared_ptr<ua::Exchange> exchange_;
};

class LibraryServers : public UaServers {
 public:
  explicit LibraryServers(Desktop& desktop) : desktop_(desktop) {}
  ~LibraryServers() override { crew_->WaitForAll(kFarewell); }

  std::unique_ptr<OpcLink> Connect(const ServerEntry& server, const std::vector<std::string>& itemIDs,
                                   OpcServers::Sink sink) override {
    auto link = std::make_unique<UaLink>(desktop_, std::make_shared<Delivery>(desktop_, itemIDs, std::move(sink)));
    link->Connect(server, crew_);
    return link;
  }

 private:
  Desktop& desktop_;
  const std::shared_ptr<ua::Crew> crew_ = std::make_shared<ua::Crew>();
};

}  // namespace

std::unique_ptr<UaServers> MakeUaServers(Desktop& desktop) { return std::make_unique<LibraryServers>(desktop); }

}  // namespace tavrin
