#pragma once

#include <string>
#include <vector>

#include "app/session/Transcript.h"
#include "online/opc/OpcServers.h"

namespace tavrin {

/// The OPC servers of a scripted session: there is one, under every name, when the script says so; it tells only what
/// the script has it tell. Connections and writes stand in the transcript.
class SessionServers : public OpcServers {
 public:
  explicit SessionServers(Transcript& transcript) : transcript_(transcript) {}

  /// Whether a server can be reached from here on. A connection that is made stays.
  bool running = false;

  [[nodiscard]] std::unique_ptr<OpcLink> Connect(const std::string& progID, const std::vector<std::string>& itemIDs,
                                                 Sink sink) override;
  /// Tells everybody who has subscribed to the item. @return false when nobody has
  bool Tell(const ItemChange& change);

 private:
  class Link;

  Transcript& transcript_;
  std::vector<Link*> links_;
};

}  // namespace tavrin
