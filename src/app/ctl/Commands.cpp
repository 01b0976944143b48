#include "app/ctl/Commands.h"

#include <cstdio>
#include <optional>

#include <fmt/format.h>

#include "app/ctl/LoadedProject.h"
#include "app/ctl/PlainText.h"
#include "app/ctl/ProjectJson.h"
#include "model/ProjectLoad.h"
#include "model/cOPC.h"
#include "model/shared/Messages.h"
#include "model/shared/cWarnings.h"
#include "platform/CodePage.h"
#include "platform/RuntimeError.h"

namespace tavrin {

namespace {

/// True for a name with a piece "..".
bool LeavesDirectory(std::string_view name) {
  while (!name.empty()) {
    const std::size_t end = name.find(kPathSeparator);
    if (name.substr(0, end) == "..") return true;
    name.remove_prefix(end == std::string_view::npos ? name.size() : end + 1);
  }
  return false;
}

/// A file of the open project that does not lie in the project's directory; nothing when all do.
std::optional<std::string> FileOutside() {
  for (const cNetwork& network : modMain::OpenProject().Networks()) {
    if (LeavesDirectory(network.szFileName())) return network.szFileName();
    for (const cDevice& device : network.Devices()) {
      if (LeavesDirectory(device.szTagFileName())) return device.szTagFileName();
    }
  }
  return std::nullopt;
}

/// True when the directory, under whatever name, is the one that the open project was read from.
bool IsProjectDirectory(Files& files, const std::string& directory) {
  const auto own = files.Status(modMain::globals.gszProjectDir);
  const auto other = files.Status(directory);
  return own && other && own->stamp.disk == other->stamp.disk && own->stamp.identity == other->stamp.identity;
}

ExitStatus StatusFor(const cWarnings& warnings) {
  return warnings.Count() == 0 ? ExitStatus::Clean : ExitStatus::Warnings;
}

}  // namespace

ExitStatus ShowProject(Host& host, const std::string& file) {
  const auto outcome = Load(host, file);
  if (!outcome) return ExitStatus::NotRun;
  PrintLoadedProject(*outcome, stdout);
  return StatusFor(modMain::ReadWarnings());
}

ExitStatus CheckProject(Host& host, const std::string& file) {
  const auto outcome = Load(host, file);
  if (!outcome) return ExitStatus::NotRun;
  for (const cWarning& warning : modMain::ReadWarnings()) {
    PrintLine(stdout, {warning.szType(), warning.szFileName(), warning.szText()});
  }
  TellBoxes(*outcome);
  return StatusFor(modMain::ReadWarnings());
}

ExitStatus ResaveProject(Host& host, const std::string& file, const std::string& directory) {
  auto path = ModelPath(directory);
  if (!path) return ExitStatus::NotRun;
  const auto status = host.PlainFiles().Status(*path);
  if (!status || !status->directory) {
    return NotRun(directory + (status ? ": is no directory" : ": there is no such directory"));
  }
  const auto loaded = Load(host, file);
  if (!loaded) return ExitStatus::NotRun;
  TellBoxes(*loaded);
  if (modMain::globals.nTrappedErrors > 0 && IsProjectDirectory(host.PlainFiles(), *path)) {
    return NotRun(directory + ": the project was not read to the end, so it is not written over itself");
  }
  if (const auto outside = FileOutside()) {
    return NotRun(ToUtf8(*outside) + ": this file of the project would be written outside of " + directory);
  }
  if (path->back() != kPathSeparator) *path += kPathSeparator;
  modMain::globals.gszProjectDir = *path;
  Outcome outcome;
  modMain::OpenProject().UpdateAll(false, outcome.bOK);
  outcome.boxes = host.Desktop().TakeBoxes();
  PrintSaved(outcome, stdout);
  const ExitStatus told = StatusFor(modMain::WriteWarnings());
  // A settings file that could not be written is not told by the save itself.
  if (told == ExitStatus::Clean && host.LostWrites()) return NotRun(directory + ": not every file could be written");
  return told;
}

}  // namespace tavrin
