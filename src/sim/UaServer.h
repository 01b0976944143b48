#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "sim/SimPlant.h"

namespace tavrin {

/// Where a server listens.
struct ListenPlace {
  std::string address = "127.0.0.1";  ///< of an interface; empty for all of them
  std::uint16_t port = 4840;          ///< 0: any that is free
};

/// The address for clients: opc.tcp, host, port.
[[nodiscard]] std::string UrlOf(const ListenPlace& place);

/// A plant as an OPC UA server: a folder a device below Objects, in it a variable for each item with the node id
/// `ns=2;s=DEVICE/TAG`. A value is asked of the plant when a client reads or samples it, so items that nobody looks at
/// cost nothing but memory. Everybody may log in, without a name, and nobody may change anything but values.
class UaServer {
 public:
  /// @param plant outlives the server
  explicit UaServer(SimPlant& plant);
  UaServer(const UaServer&) = delete;
  UaServer& operator=(const UaServer&) = delete;
  ~UaServer();

  /// Begins to listen. To be called once.
  /// @return why it cannot, empty when it does
  [[nodiscard]] std::string Start(const ListenPlace& place);
  /// The address for clients, with the port that was found free where any was wanted.
  [[nodiscard]] const std::string& Url() const { return url_; }

  /// Shows to clients what has changed in the plant; those that watch a removed item are told that it is gone.
  /// @return number of devices and items that could not be shown
  [[nodiscard]] std::size_t Publish(const PlantChanges& changes);
  /// Serves what clients have sent and what is due; waits a fifth of a second at most when there is nothing.
  void RunOnce();

 private:
  class Impl;
  std::unique_ptr<Impl> impl_;
  std::string url_;
};

}  // namespace tavrin
