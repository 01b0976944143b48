#include "app/ctl/Watch.h"

#include <chrono>
#include <cstdio>
#include <optional>
#include <unordered_set>
#include <utility>

#include "app/ctl/Interruption.h"
#include "app/ctl/ItemPrinter.h"
#include "app/ctl/LoadedProject.h"
#include "app/ctl/PlainText.h"
#include "model/cOPC.h"
#include "online/OnlineServer.h"
#include "platform/CodePage.h"
#include "platform/RuntimeError.h"

namespace tavrin {

namespace {

using Names = std::vector<std::string>;

/// Adds the items that a word of the command line names: one tag, or all tags of a device.
/// @return false when the project has no such tag or device
bool AddItems(const std::string& word, Names& names) {
  const std::size_t before = names.size();
  for (const cNetwork& network : modMain::OpenProject().Networks()) {
    for (const cDevice& device : network.Devices()) {
      const std::string prefix = OnlineItemName(device.szDeviceName(), {});
      const bool all = word == device.szDeviceName();
      if (!all && !word.starts_with(prefix)) continue;
      for (const cTag& tag : device.Tags()) {
        if (all || word.substr(prefix.size()) == tag.szTag())
          names.push_back(OnlineItemName(device.szDeviceName(), tag.szTag()));
      }
      if (all) return true;
    }
  }
  return names.size() > before;
}

/// The names of all items, each once, in the code page. Nothing after telling which word names none.
std::optional<Names> ItemNames(const WatchRequest& request) {
  Names names;
  for (const std::string& utf8 : request.items) {
    const auto word = FromUtf8(utf8);
    if (word && request.demo) names.push_back(*word);
    if (word && (request.demo || AddItems(*word, names))) continue;
    NotRun(utf8 + ": the project has no such tag (wanted: DEVICE/TAG, or DEVICE for all its tags)");
    return std::nullopt;
  }
  std::unordered_set<std::string> known;
  std::erase_if(names, [&known](const std::string& name) { return !known.insert(name).second; });
  return names;
}

/// Lets deliveries be printed until the time is up, the process is told to end, or nobody reads any more.
void Run(Desktop& desktop, double seconds) {
  using Clock = std::chrono::steady_clock;
  constexpr int kLook = 200;  // milliseconds between two looks at what ends it
  const Interruption interruption;
  const auto end = Clock::now() + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds));
  while (!interruption.Came() && std::ferror(stdout) == 0 && (seconds <= 0 || Clock::now() < end)) {
    static_cast<void>(desktop.WaitUntil([] { return false; }, kLook));
  }
}

}  // namespace

ExitStatus WatchTags(Host& host, const WatchRequest& request) {
  const auto loaded = Load(host, request.file);
  if (!loaded) return ExitStatus::NotRun;
  TellBoxes(*loaded);
  modMain::globals.gbDemo = request.demo;
  const auto names = ItemNames(request);
  if (!names) return ExitStatus::NotRun;

  ItemPrinter printer(request.json);
  OPCDataControl client(modMain::Platform().around.opc);
  client.OnDataChanged = [&printer](const std::vector<OPCItem*>& changed) { printer.Print(changed); };
  client.ServerProgID(OnlineServerProgID());
  for (const std::string& name : *names) client.ControlItems().AddItem(name);
  try {
    client.ControlConnect();
  } catch (const RuntimeError&) {
    return NotRun("there is no connection to the OPC server " + std::string(OnlineServerProgID()));
  }
  Run(host.Desktop(), request.seconds);
  return printer.GoodItems() == names->size() ? ExitStatus::Clean : ExitStatus::Warnings;
}

}  // namespace tavrin
