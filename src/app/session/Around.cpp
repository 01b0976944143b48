// The machine around the program: other programs, the server's service, the clock, the time that passes.
#include "app/session/Around.h"

#include <algorithm>
#include <array>

#include <fmt/format.h>

#include "app/session/Gestures.h"
#include "app/session/Reach.h"
#include "platform/controls/Timer.h"

namespace tavrin {

namespace {

struct PurposeName {
  Administration purpose;
  std::string_view name;
};
constexpr std::array kPurposes{PurposeName{Administration::OpcSettings, "OPC settings"},
                               PurposeName{Administration::UserManager, "user manager"},
                               PurposeName{Administration::UserPasswords, "user passwords"},
                               PurposeName{Administration::Services, "services"},
                               PurposeName{Administration::ServerManager, "server manager"},
                               PurposeName{Administration::EventLog, "event log"},
                               PurposeName{Administration::SystemInformation, "system information"}};

std::string InWords(const RecordingPrograms::Started& started) {
  if (started.what == "document") return fmt::format("open {} page {}", Quoted(started.path), started.number);
  const std::string style = started.number == static_cast<int>(WindowStyle::Minimised) ? " minimised" : "";
  if (started.what == "text") return "start text " + Quoted(started.path) + style;
  const auto* const found = std::find_if(kPurposes.begin(), kPurposes.end(), [&](const PurposeName& row) {
    return std::to_string(static_cast<int>(row.purpose)) == started.what;
  });
  return "start " + std::string(found == kPurposes.end() ? "unknown" : found->name) + style;
}

[[noreturn]] void RefuseMoment() { throw Refusal{"wanted: a date as 2026-11-20 and a time as 14:05:09"}; }

/// The number in a field of the pattern, whose other characters stand as they are.
int Field(const std::string& word, std::size_t from, std::size_t length) {
  int number = 0;
  for (const char c : word.substr(from, length)) {
    if (c < '0' || c > '9') RefuseMoment();
    number = number * 10 + (c - '0');
  }
  return number;
}

DateTime MomentOf(const std::string& date, const std::string& time) {
  const bool date10 = date.size() == 10 && date[4] == '-' && date[7] == '-';
  const bool time8 = time.size() == 8 && time[2] == ':' && time[5] == ':';
  if (!date10 || !time8) RefuseMoment();
  const DateTime moment{Field(date, 0, 4), Field(date, 5, 2), Field(date, 8, 2),
                        Field(time, 0, 2), Field(time, 3, 2), Field(time, 6, 2)};
  // There is no 31st of February.
  if (moment.month < 1 || moment.month > 12 || moment.day < 1 || Split(Join(moment)) != moment) RefuseMoment();
  return moment;
}

}  // namespace

void TellWhatIsAround(HeadlessSurroundings& around, Transcript& transcript) {
  around.programs.OnStarted = [&around, &transcript](const RecordingPrograms::Started& started) {
    transcript.Tell(InWords(started) + (around.programs.missing ? ": no program for it" : ""));
  };
  around.service.OnCalled = [&transcript](std::string_view call, int result) {
    transcript.Tell(fmt::format("service {} -> {}", call, result));
  };
}

void SetPrograms(Stage& stage, Words words) {
  if (words[0] != "none" && words[0] != "all") throw Refusal{"wanted: none or all"};
  stage.around.programs.missing = words[0] == "none";
}

void SetService(Stage& stage, Words words) {
  const int result = NumberOf(words[1]);
  if (words[0] != "stop" && words[0] != "start") throw Refusal{"wanted: stop or start, and a number"};
  (words[0] == "stop" ? stage.around.service.stopResult : stage.around.service.startResult) = result;
}

void SetClock(Stage& stage, Words words) {
  FixedRegional& regional = stage.around.regional;
  regional.now = regional.FromLocal(MomentOf(words[0], words[1]));
}

void ElapseTimer(Stage& stage, Words words) {
  auto* const timer = FindKind<Timer>(stage, words.first(1));
  if (timer == nullptr) throw Refusal{NameOf(FindControl(stage, words.first(1))) + " is no timer"};
  const int ticks = words.size() > 1 ? NumberOf(words[1]) : 1;
  if (ticks < 1) throw Refusal{"a timer ticks at least once"};
  if (!timer->Enabled()) throw Refusal{NameOf(*timer) + " does not run"};
  // The window may be closed by a tick, and the program ended.
  const Form& window = stage.Window();
  for (int tick = 0; tick < ticks && timer->Enabled(); ++tick) {
    timer->Elapse();
    if (!window.Visible() || stage.desktop.Ended()) return;
  }
}

}  // namespace tavrin
