#pragma once

namespace tavrin {

/// Stops and starts the service of the OPC server. Both calls return when the service has changed its state or they
/// give up, and tell what happened by a number:
///
/// | number | stop                                | start                                |
/// |--------|-------------------------------------|--------------------------------------|
/// | 0      | stopped                             | started                              |
/// | 1      | no access to the service manager    | no access to the service manager     |
/// | 2      |                                     | no access to the service             |
/// | 3      | no access to the service            |                                      |
/// | 4      | was not running                     | was already running                  |
/// | 5      | the system refused                  | ended right after the start          |
/// | 6      | did not respond in time             | the system refused                   |
/// | 7      |                                     | did not respond in time              |
class ServiceControl {
 public:
  ServiceControl() = default;
  ServiceControl(const ServiceControl&) = delete;
  ServiceControl& operator=(const ServiceControl&) = delete;
  virtual ~ServiceControl() = default;

  virtual int CmdStopServiceEx() = 0;
  virtual int CmdStartServiceEx() = 0;
};

}  // namespace tavrin
