#pragma once

namespace tavrin {

/// From its making on, SIGTERM and SIGINT ask for the end and SIGHUP for another look at the project; a reader that has
/// gone away is no reason to end. They interrupt a wait for the network.
class Signals {
 public:
  Signals();
  Signals(const Signals&) = delete;
  Signals& operator=(const Signals&) = delete;

  [[nodiscard]] static bool EndWanted();
  /// True once for any number of requests since the last call.
  [[nodiscard]] static bool TakeReloadWanted();
};

}  // namespace tavrin
