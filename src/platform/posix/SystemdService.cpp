#include "platform/posix/SystemdService.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <thread>

#include "platform/posix/Process.h"

namespace tavrin {

namespace {

using Clock = std::chrono::steady_clock;

/// systemctl's status for a unit that does not exist.
constexpr int kNotInstalled = 5;

/// A start that took all the time is looked at for so much longer: it may have come to nothing.
constexpr std::chrono::seconds kLastLook{1};

std::chrono::milliseconds Until(Clock::time_point deadline) {
  const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
  return std::max(left, std::chrono::milliseconds(0));
}

/// The value of a line "key=value".
std::string ValueOf(std::string_view key, std::string_view lines) {
  while (!lines.empty()) {
    const std::size_t end = lines.find('\n');
    const std::string_view line = lines.substr(0, end);
    if (line.starts_with(key) && line.substr(key.size()).starts_with('=')) {
      return std::string(line.substr(key.size() + 1));
    }
    lines.remove_prefix(end == std::string_view::npos ? lines.size() : end + 1);
  }
  return {};
}

bool Says(const ProcessResult& result, std::string_view words) {
  return result.output.find(words) != std::string::npos;
}

}  // namespace

int SystemdService::CmdStopServiceEx() {
  // By Outcome; a stop does not end at once.
  static constexpr std::array<int, 7> kNumbers{0, 1, 3, 4, 5, 5, 6};
  return kNumbers[static_cast<std::size_t>(Stop())];
}

int SystemdService::CmdStartServiceEx() {
  static constexpr std::array<int, 7> kNumbers{0, 1, 2, 4, 6, 5, 7};
  return kNumbers[static_cast<std::size_t>(Start())];
}

SystemdService::Outcome SystemdService::Stop() const {
  const Deadline deadline = Clock::now() + limit_;
  const State before = Look(deadline);
  if (!before.known) return before.timedOut ? Outcome::TimedOut : Outcome::NoManager;
  const bool runs = before.active != "inactive" && before.active != "failed";
  if (!runs) return before.exists ? Outcome::AlreadyThere : Outcome::NoService;

  const ProcessResult stop = Run("stop", deadline);
  if (stop.Succeeded()) return Outcome::Done;
  if (stop.end == ProcessResult::End::TimedOut) return Outcome::TimedOut;
  return stop.status == kNotInstalled ? Outcome::NoService : Outcome::Refused;
}

SystemdService::Outcome SystemdService::Start() const {
  const Deadline deadline = Clock::now() + limit_;
  const State before = Look(deadline);
  if (!before.known) return before.timedOut ? Outcome::TimedOut : Outcome::NoManager;
  if (!before.exists) return Outcome::NoService;
  if (before.active == "active" || before.active == "reloading") return Outcome::AlreadyThere;

  const ProcessResult start = Run("start", deadline);
  if (start.end == ProcessResult::End::TimedOut) return Outcome::TimedOut;
  if (start.status == kNotInstalled) return Outcome::NoService;
  if (!start.Succeeded()) {
    if (Says(start, "timeout was exceeded")) return Outcome::TimedOut;
    // A start that was begun and failed is told as a job; one that was not allowed is not.
    return Says(start, "Job for ") ? Outcome::EndedAtOnce : Outcome::Refused;
  }
  // Most services count as started as soon as their process is there.
  std::this_thread::sleep_for(std::min(settle_, Until(deadline)));
  const State after = Look(deadline + kLastLook);
  return after.known && after.Ended() ? Outcome::EndedAtOnce : Outcome::Done;
}

SystemdService::State SystemdService::Look(Deadline deadline) const {
  const ProcessResult told = RunProcess(
      {"systemctl", "--no-pager", "--property=LoadState,ActiveState,SubState", "show", "--", unit_}, Until(deadline));
  State state;
  state.timedOut = told.end == ProcessResult::End::TimedOut;
  state.active = ValueOf("ActiveState", told.output);
  state.sub = ValueOf("SubState", told.output);
  const std::string loaded = ValueOf("LoadState", told.output);
  state.known = told.Succeeded() && !state.active.empty();
  state.exists = !unit_.empty() && loaded != "not-found";
  return state;
}

ProcessResult SystemdService::Run(const std::string& verb, Deadline deadline) const {
  return RunProcess({"systemctl", "--no-ask-password", "--no-pager", verb, "--", unit_}, Until(deadline));
}

}  // namespace tavrin
