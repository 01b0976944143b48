#pragma once

#include <chrono>
#include <optional>

#include <open62541/client.h>

#include "online/opc/ServerTable.h"

namespace tavrin::ua {

/// How long a server is given, all in all, to answer the farewell.
constexpr std::chrono::milliseconds kFarewellTime{300};

/// One connection to a server, from its beginning to its loss. All calls come from one thread. Nothing here waits for
/// the server but Iterate, for as long as it is told.
class Client {
 public:
  /// @throws RuntimeError 5 when the certificates that the server asks for cannot be had
  explicit Client(const ServerEntry& server);
  Client(const Client&) = delete;
  Client& operator=(const Client&) = delete;
  /// What is still asked for is answered with a failure. A server that does not answer is not waited for longer than
  /// kFarewellTime, Leave included.
  ~Client();

  /// Begins to connect; IsReady and IsLost tell what has become of it.
  void Begin();
  /// To be called when it is ready. Up to then a secured connection is closed and opened anew by the library, once it
  /// knows what the server offers; from now on a closed connection is a lost one.
  void SettleIn();
  /// Lets come in what the server has sent, at most so long.
  void Iterate(std::chrono::milliseconds most);
  [[nodiscard]] bool IsReady() const;
  [[nodiscard]] bool IsLost() const;
  /// What only looks like a connection is given up.
  void GiveUp() { givenUp_ = true; }
  /// Does what the library calls back for. It knows no exceptions, and none may pass through it: the connection is
  /// given up instead.
  template <class Action>
  void CalledBack(const Action& action) noexcept {
    try {
      action();
    } catch (...) {
      GiveUp();
    }
  }
  /// Tells the server that this is the end, and lets it answer for a moment.
  void Leave();

  [[nodiscard]] UA_Client* Get() { return client_; }

 private:
  void CloseChannel();
  void IterateUntilClosed();
  [[nodiscard]] bool IsChannelOpen() const;

  const ServerEntry server_;
  UA_Client* client_ = nullptr;
  bool givenUp_ = false;
  std::optional<std::chrono::steady_clock::time_point> closedBy_;  ///< since the farewell
};

}  // namespace tavrin::ua
