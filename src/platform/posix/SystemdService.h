#pragma once

#include <chrono>
#include <string>

#include "platform/ServiceControl.h"

namespace tavrin {

struct ProcessResult;

/// The service as a unit of systemd, by its control program systemctl. Nobody is asked for a password: who may restart
/// the service is settled by the system's policy, and without a right the call is refused.
class SystemdService : public ServiceControl {
 public:
  using Milliseconds = std::chrono::milliseconds;

  /// @param unit e.g. "TheServer.service"
  /// @param limit how long a call waits for the service, all in all; a last look after a start has a second more
  /// @param settle how long a service must have run after the start to count as started
  explicit SystemdService(std::string unit, Milliseconds limit = std::chrono::seconds(30),
                          Milliseconds settle = Milliseconds(500))
      : unit_(std::move(unit)), limit_(limit), settle_(settle) {}

  int CmdStopServiceEx() override;
  int CmdStartServiceEx() override;

 private:
  /// What came of a call, before it has its number.
  enum class Outcome { Done, NoManager, NoService, AlreadyThere, Refused, EndedAtOnce, TimedOut };

  /// What the service manager tells of the unit.
  struct State {
    bool known = false;     ///< it answered
    bool timedOut = false;  ///< it did not answer in time
    bool exists = false;    ///< there is such a unit
    std::string active;     ///< e.g. "active", "inactive", "failed", "activating"
    std::string sub;        ///< e.g. "running", "auto-restart"

    /// It has ended, or waits for another try after it has ended.
    [[nodiscard]] bool Ended() const { return active == "inactive" || active == "failed" || sub == "auto-restart"; }
  };
  using Deadline = std::chrono::steady_clock::time_point;

  [[nodiscard]] Outcome Stop() const;
  [[nodiscard]] Outcome Start() const;
  [[nodiscard]] State Look(Deadline deadline) const;
  [[nodiscard]] ProcessResult Run(const std::string& verb, Deadline deadline) const;

  std::string unit_;
  Milliseconds limit_;
  Milliseconds settle_;
};

}  // namespace tavrin
