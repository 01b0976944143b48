#include "online/opc/ua/Worker.h"

#include <algorithm>
#include <chrono>
#include <exception>
#include <optional>
#include <thread>
#include <utility>

#include "online/opc/ua/Client.h"
#include "online/opc/ua/Subscription.h"
#include "online/opc/ua/Writer.h"
#include "platform/RuntimeError.h"

namespace tavrin::ua {

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr milliseconds kConnectTime{2800};
constexpr milliseconds kFirstPause{250};
constexpr milliseconds kLongestPause{4000};

/// The library cannot be woken from another thread: values to be sent wait until it has looked for messages. It looks
/// more often for a while after a value, since one seldom comes alone.
constexpr milliseconds kLook{5};
constexpr milliseconds kShortLook{1};
constexpr milliseconds kBusyTime{200};

/// @return false when there was no memory, or no certificate
template <class Action>
bool Try(const Action& action) {
  try {
    action();
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

/// Ends a connection with its block. Made after those whom its last answers go to, it ends the connection before them.
class Ending {
 public:
  explicit Ending(std::optional<Client>& client) : client_(client) {}
  Ending(const Ending&) = delete;
  Ending& operator=(const Ending&) = delete;
  ~Ending() { client_.reset(); }

 private:
  std::optional<Client>& client_;
};

class Worker {
 public:
  Worker(ServerEntry server, std::shared_ptr<Exchange> exchange, std::shared_ptr<Delivery> delivery)
      : server_(std::move(server)), exchange_(std::move(exchange)), delivery_(std::move(delivery)) {}

  void Run() {
    while (!exchange_->Stopped()) {
      if (!Try([this] { ServeOnce(); })) Try([this] { Lose(); });
      if (exchange_->Now() == Exchange::State::Failed) return;
      exchange_->Pause(pause_);
      pause_ = std::min(pause_ * 2, kLongestPause);
    }
  }

 private:
  /// One connection, from its beginning to its loss.
  void ServeOnce() {
    std::optional<Client> client;
    client.emplace(server_);
    Subscription subscription(*client, server_.nodes, delivery_->ItemIDs());
    Writer writer(*client, subscription, server_.nodes, *delivery_);
    const Ending ending(client);
    const bool connected = Connect(*client);
    if (connected) {
      client->SettleIn();
      exchange_->Become(Exchange::State::Connected);
      delivery_->Wake();
      pause_ = kFirstPause;
      subscription.Begin();
      Serve(*client, subscription, writer);
    }
    Lose();
    if (connected) client->Leave();
  }

  bool Connect(Client& client) {
    const auto deadline = Clock::now() + kConnectTime;
    client.Begin();
    while (!client.IsReady()) {
      if (client.IsLost() || exchange_->Stopped() || Clock::now() > deadline) return false;
      client.Iterate(kLook);
    }
    return true;
  }

  void Serve(Client& client, Subscription& subscription, Writer& writer) {
    auto busyUntil = Clock::now();
    while (!exchange_->Stopped() && !client.IsLost()) {
      for (auto& job : exchange_->TakeJobs()) {
        writer.Send(std::move(job));
        busyUntil = Clock::now() + kBusyTime;
      }
      client.Iterate(Clock::now() < busyUntil ? kShortLook : kLook);
      auto told = subscription.TakeTold();
      if (!told.empty()) delivery_->Tell(std::move(told));
    }
  }

  /// Only the first attempt is final: a connection that was made once is taken up again.
  void Lose() {
    using State = Exchange::State;
    const State before = exchange_->Now();
    exchange_->Become(before == State::Connecting ? State::Failed : State::Lost);
    if (before == State::Connected) delivery_->TellNotConnected();
    delivery_->Wake();
  }

  const ServerEntry server_;
  const std::shared_ptr<Exchange> exchange_;
  const std::shared_ptr<Delivery> delivery_;
  milliseconds pause_ = kFirstPause;
};

}  // namespace

void Crew::Enter() {
  const std::lock_guard lock(mutex_);
  ++present_;
}

void Crew::Leave() {
  const std::lock_guard lock(mutex_);
  --present_;
  left_.notify_all();
}

bool Crew::WaitForAll(std::chrono::milliseconds most) {
  std::unique_lock lock(mutex_);
  return left_.wait_for(lock, most, [this] { return present_ == 0; });
}

void StartWorker(ServerEntry server, std::shared_ptr<Exchange> exchange, std::shared_ptr<Delivery> delivery,
                 const std::shared_ptr<Crew>& crew) {
  crew->Enter();
  try {
    std::thread([server = std::move(server), exchange = std::move(exchange), delivery = std::move(delivery),
                 crew]() mutable {
      Worker(std::move(server), std::move(exchange), std::move(delivery)).Run();
      crew->Leave();
    }).detach();
  } catch (const std::exception&) {  // the system has no thread to give
    crew->Leave();
    throw RuntimeError(ErrorNumber::InvalidCall);
  }
}

}  // namespace tavrin::ua
