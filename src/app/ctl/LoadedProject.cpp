#include "app/ctl/LoadedProject.h"

#include <fmt/format.h>

#include "app/ctl/PlainText.h"
#include "model/ProjectLoad.h"
#include "model/shared/Messages.h"
#include "platform/CodePage.h"
#include "platform/RuntimeError.h"

namespace tavrin {

namespace {

std::string WithDirectory(const std::string& path) {
  return path.find(kPathSeparator) == std::string::npos ? std::string(".") + kPathSeparator + path : path;
}

/// Why a file cannot be read; nothing when it can.
std::optional<std::string> WhyUnreadable(Files& files, const std::string& path) {
  const auto status = files.Status(path);
  if (!status) return ToUtf8(TextAnd(201, path));
  if (status->directory) return ToUtf8(path) + ": this is a directory, a project file is wanted";
  try {
    static_cast<void>(files.ReadAll(path));
  } catch (const RuntimeError& error) {
    return fmt::format("{}: cannot be read ({}): no right to read it, or not a plain file", ToUtf8(path),
                       error.Description());
  }
  return std::nullopt;
}

}  // namespace

ExitStatus NotRun(const std::string& message) {
  Tell(message);
  return ExitStatus::NotRun;
}

std::optional<std::string> ModelPath(const std::string& utf8) {
  auto path = FromUtf8(utf8);
  if (!path) NotRun(utf8 + ": the path has characters that the code page of project files does not have");
  return path;
}

std::optional<Outcome> Load(Host& host, const std::string& file) {
  auto path = ModelPath(file);
  if (!path) return std::nullopt;
  *path = WithDirectory(*path);
  if (const auto reason = WhyUnreadable(host.PlainFiles(), *path)) {
    NotRun(*reason);
    return std::nullopt;
  }
  Outcome outcome;
  outcome.bOK = LoadProject(*path);
  outcome.boxes = host.Desktop().TakeBoxes();
  return outcome;
}

void TellBoxes(const Outcome& outcome) {
  for (const std::string& box : outcome.boxes) PrintLine(stderr, {"tavrinctl: message:", box});
}

}  // namespace tavrin
