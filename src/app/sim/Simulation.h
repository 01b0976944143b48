#pragma once

#include <string>

#include "app/ctl/Host.h"
#include "sim/UaServer.h"

namespace tavrin {

/// What a simulation is started with. Paths are UTF-8, as the command line has them.
struct SimulationRequest {
  std::string project;
  ListenPlace place;
  bool allGood = false;  ///< also devices that are not simulated have good, moving values
  int interval = 500;    ///< milliseconds between two steps of a moving value
};

/// Reads a project and serves it. What the user is to know goes to standard error, the line that tells that clients can
/// come to standard output.
class Simulation {
 public:
  /// @param host outlives the simulation
  Simulation(Host& host, SimulationRequest request);

  /// False after telling why it cannot begin: no project, or no place to listen at.
  [[nodiscard]] bool Start();
  void RunOnce() { server_.RunOnce(); }
  /// Reads the project again. One that cannot be read changes nothing.
  void Reload();

 private:
  [[nodiscard]] bool Read();
  void TellReady();

  Host& host_;
  SimulationRequest request_;
  SimPlant plant_;
  UaServer server_;
};

}  // namespace tavrin
