#include "app/sim/Simulation.h"

#include <chrono>
#include <cstdio>
#include <optional>
#include <utility>

#include "app/ctl/PlainText.h"
#include "app/sim/PortProbe.h"
#include "app/sim/Readiness.h"
#include "model/ProjectLoad.h"
#include "model/cOPC.h"
#include "model/shared/cWarnings.h"
#include "platform/CodePage.h"
#include "platform/RuntimeError.h"

namespace tavrin {

namespace {

Moment SystemTime() {
  const auto sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
  return std::chrono::duration_cast<std::chrono::milliseconds>(sinceEpoch).count();
}

void TellProblem(const std::string& utf8) {
  const auto text = FromUtf8(utf8);
  PrintLine(stderr, {"tavrin-sim: " + text.value_or("the path has characters that the code page does not have")});
}

/// The full path of the project in the code page; nothing after telling why it cannot be read.
std::optional<std::string> ReadablePath(Host& host, const std::string& utf8) {
  auto path = FromUtf8(utf8);
  if (!path) {
    TellProblem(utf8);
    return std::nullopt;
  }
  if (path->find(kPathSeparator) == std::string::npos) path->insert(0, std::string(".") + kPathSeparator);
  try {
    const auto status = host.PlainFiles().Status(*path);
    if (status && !status->directory) {
      static_cast<void>(host.PlainFiles().ReadAll(*path));
      return path;
    }
    TellProblem(utf8 + (status ? ": this is a directory, a project file is wanted" : ": there is no such file"));
  } catch (const RuntimeError&) {
    TellProblem(utf8 + ": cannot be read: no right to read it, or not a plain file");
  }
  return std::nullopt;
}

void TellFindings(Host& host, const PlantDefinition& plant) {
  for (const cWarning& warning : modMain::ReadWarnings()) {
    PrintLine(stderr, {"tavrin-sim: warning:", warning.szType(), warning.szFileName(), warning.szText()});
  }
  for (const std::string& box : host.Desktop().TakeBoxes()) PrintLine(stderr, {"tavrin-sim: message:", box});
  for (const std::string& name : plant.dropped) {
    PrintLine(stderr, {"tavrin-sim: not published, it has no name or that of another:", name});
  }
}

}  // namespace

Simulation::Simulation(Host& host, SimulationRequest request)
    : host_(host), request_(std::move(request)), plant_(request_.interval), server_(plant_) {}

bool Simulation::Read() {
  const auto path = ReadablePath(host_, request_.project);
  if (!path) return false;
  LoadProject(*path);
  PlantDefinition plant = DefinePlant(modMain::OpenProject(), request_.allGood);
  TellFindings(host_, plant);
  const std::size_t refused = server_.Publish(plant_.Renew(std::move(plant), SystemTime()));
  if (refused > 0) TellProblem(std::to_string(refused) + " items could not be published");
  modMain::globals.gOPC.reset();  // a large project takes as much memory again
  return true;
}

bool Simulation::Start() {
  if (!Read()) return false;
  if (IsTaken(request_.place)) {
    TellProblem("cannot listen at " + UrlOf(request_.place) + ": another program does");
    return false;
  }
  const std::string problem = server_.Start(request_.place);
  if (problem.empty()) {
    TellReady();
    TellServiceManagerReady();
  } else {
    TellProblem(problem);
  }
  return problem.empty();
}

void Simulation::Reload() {
  if (Read()) TellReady();
}

void Simulation::TellReady() {
  std::printf("tavrin-sim: %zu items at %s\n", plant_.ItemCount(), server_.Url().c_str());
  std::fflush(stdout);
}

}  // namespace tavrin
