#pragma once

#include <string>

#include "platform/ServiceControl.h"

namespace tavrin {

/// The service as a unit of systemd, by its control program systemctl.
class SystemdService : public ServiceControl {
 public:
  /// @param unit e.g. "TheServer.service"
  explicit SystemdService(std::string unit) : unit_(std::move(unit)) {}

  int CmdStopServiceEx() override;
  int CmdStartServiceEx() override;

 private:
  std::string unit_;
};

}  // namespace tavrin
