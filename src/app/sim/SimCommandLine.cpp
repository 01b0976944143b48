#include "app/sim/SimCommandLine.h"

#include <cstdio>
#include <exception>
#include <sstream>
#include <string>

#include <CLI/CLI.hpp>

#include "app/sim/Signals.h"
#include "app/sim/Simulation.h"

namespace tavrin {

namespace {

constexpr int kCannotBegin = 2;

constexpr const char* kFooter =
    "SIGHUP: reads the project again. SIGTERM, SIGINT: ends.\n"
    "Exit status: 0 ended by a signal, 2 could not begin.\n"
    "More in the manual page tavrin-sim(1).";

void Define(CLI::App& app, SimulationRequest& request) {
  app.description("tavrin-sim: a simulation of the OPC server, over OPC UA");
  app.footer(kFooter);
  app.set_version_flag("--version", "tavrin-sim " TAVRIN_VERSION);
  app.add_option("PROJECT", request.project, "Root file of the project, usually ZOPCSRV.ini")->required();
  app.add_option("--port", request.place.port, "Port to listen at, 0 for any that is free")->capture_default_str();
  app.add_option("--listen", request.place.address, "Address of an interface to listen at, 0.0.0.0 for all")
      ->capture_default_str();
  app.add_flag("--all-good", request.allGood, "Values of all devices move and are good, not only of simulated ones");
  app.add_option("--interval", request.interval, "Milliseconds between two steps of a moving value")
      ->check(CLI::Range(10, 86'400'000))
      ->capture_default_str();
}

int Serve(const SimulationRequest& request) {
  const Signals signals;
  Host host(Wording::English, ApplicationDirectory());
  Simulation simulation(host, request);
  if (!simulation.Start()) return kCannotBegin;
  while (!Signals::EndWanted()) {
    if (Signals::TakeReloadWanted()) simulation.Reload();
    simulation.RunOnce();
  }
  return 0;
}

}  // namespace

int RunTavrinSim(int argc, const char* const* argv) try {
  CLI::App app("", "tavrin-sim");
  SimulationRequest request;
  Define(app, request);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    std::ostringstream out;
    std::ostringstream problem;
    const bool isAnswer = app.exit(error, out, problem) == 0;
    std::fputs(out.str().c_str(), stdout);
    std::fputs(problem.str().c_str(), stderr);
    return isAnswer ? 0 : kCannotBegin;
  }
  return Serve(request);
} catch (const std::exception& error) {
  std::fprintf(stderr, "tavrin-sim: the work was broken off: %s\n", error.what());
  return kCannotBegin;
}

}  // namespace tavrin
