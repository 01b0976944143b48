#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "online/opc/OpcServers.h"
#include "platform/Desktop.h"

namespace tavrin {

/// An OPC server for pictures: it is always there, all its values are good and of the same moment, and what is written
/// stays. Its device passes every check.
class ShowServers : public OpcServers {
 public:
  explicit ShowServers(Desktop& desktop) : desktop_(desktop) {}

  [[nodiscard]] std::unique_ptr<OpcLink> Connect(const std::string& progID, const std::vector<std::string>& itemIDs,
                                                 Sink sink) override;

 private:
  std::map<std::string, Variant> values_;
  Desktop& desktop_;
};

}  // namespace tavrin
