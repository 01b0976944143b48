#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "online/opc/Variant.h"
#include "platform/DateTime.h"

namespace tavrin {

class Desktop;
class ProfileFiles;

/// Classic OPC quality codes that the program itself gives.
enum OpcQuality : std::uint16_t { kBad = 0x00, kBadConfiguration = 0x04, kBadNotConnected = 0x08, kGood = 0xC0 };

/// What a server tells of an item.
struct ItemState {
  Variant value;
  std::uint16_t quality = kBad;  ///< OPC quality code
  UtcTime timeStamp;             ///< of the value at its source
};

struct ItemChange {
  std::string itemID;
  ItemState state;
};

struct ItemWrite {
  std::string itemID;
  Variant value;  ///< the server's type of the item decides; a text is read as such a value
};

/// A connection to a server with its subscription. Its destructor ends both at once and without waiting: no change is
/// told any more.
class OpcLink {
 public:
  OpcLink() = default;
  OpcLink(const OpcLink&) = delete;
  OpcLink& operator=(const OpcLink&) = delete;
  virtual ~OpcLink() = default;

  /// Sends values and returns when the server has answered or has let too much time pass.
  /// @throws RuntimeError 5 when a value was not taken
  virtual void Write(const std::vector<ItemWrite>& writes) = 0;
};

/// Connections to OPC servers by their ProgIDs.
class OpcServers {
 public:
  /// Told of changes on the thread of the windows, never from within Connect. All of one delivery come in one call.
  using Sink = std::function<void(const std::vector<ItemChange>& changes)>;

  OpcServers() = default;
  OpcServers(const OpcServers&) = delete;
  OpcServers& operator=(const OpcServers&) = delete;
  virtual ~OpcServers() = default;

  /// Connects and subscribes to the items, the names in the code page. The windows are painted meanwhile. An item that
  /// the server does not know is told once, with bad quality, and does not keep the others from being subscribed.
  /// A connection that is lost later is told as bad quality of all items (not connected), and is taken up again when
  /// the server is back.
  /// @throws RuntimeError 5 when the server is unknown or cannot be reached within a few seconds
  [[nodiscard]] virtual std::unique_ptr<OpcLink> Connect(const std::string& progID,
                                                         const std::vector<std::string>& itemIDs, Sink sink) = 0;
};

/// The servers of this machine's configuration: the demonstration server in this process, and the servers of the
/// section [Servers] of a file over OPC UA, if the program was built with it.
/// @param desktop and profiles outlive the result
[[nodiscard]] std::unique_ptr<OpcServers> MakeOpcServers(Desktop& desktop, ProfileFiles& profiles,
                                                         const std::string& configuration);

}  // namespace tavrin
