#pragma once

#include <memory>
#include <string>
#include <vector>

#include "online/opc/OpcServers.h"
#include "online/opc/ServerTable.h"

namespace tavrin {

/// Connections to servers over OPC UA.
class UaServers {
 public:
  UaServers() = default;
  UaServers(const UaServers&) = delete;
  UaServers& operator=(const UaServers&) = delete;
  virtual ~UaServers() = default;

  /// As OpcServers::Connect.
  [[nodiscard]] virtual std::unique_ptr<OpcLink> Connect(const ServerEntry& server,
                                                         const std::vector<std::string>& itemIDs,
                                                         OpcServers::Sink sink) = 0;
};

/// Null when the program was built without OPC UA.
[[nodiscard]] std::unique_ptr<UaServers> MakeUaServers(Desktop& desktop);

}  // namespace tavrin
