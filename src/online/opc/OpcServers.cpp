#include "online/opc/OpcServers.h"

#include <utility>

#include "online/opc/DemoServer.h"
#include "online/opc/ServerTable.h"
#include "online/opc/UaServers.h"
#include "platform/RuntimeError.h"

namespace tavrin {

namespace {

class ConfiguredServers : public OpcServers {
 public:
  ConfiguredServers(Desktop& desktop, ProfileFiles& profiles, std::string configuration)
      : profiles_(profiles), configuration_(std::move(configuration)), demo_(desktop), ua_(MakeUaServers(desktop)) {}

  std::unique_ptr<OpcLink> Connect(const std::string& progID, const std::vector<std::string>& itemIDs,
                                   Sink sink) override {
    if (progID == DemoServer::kProgID) return demo_.Connect(itemIDs, std::move(sink));
    const auto entry = FindServer(profiles_, configuration_, progID);
    if (!entry || !ua_) throw RuntimeError(ErrorNumber::InvalidCall);
    return ua_->Connect(*entry, itemIDs, std::move(sink));
  }

 private:
  ProfileFiles& profiles_;
  const std::string configuration_;
  DemoServer demo_;
  std::unique_ptr<UaServers> ua_;
};

}  // namespace

std::unique_ptr<OpcServers> MakeOpcServers(Desktop& desktop, ProfileFiles& profiles, const std::string& configuration) {
  return std::make_unique<ConfiguredServers>(desktop, profiles, configuration);
}

}  // namespace tavrin
