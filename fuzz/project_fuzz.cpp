// Any project of a root file, a network file and a tag file: it is loaded and saved without a crash and without a
// mark left, and a saved project that is regular is loaded again as it was. A line "---" ends a file of the input.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "MemoryProject.h"
#include "model/ProjectLoad.h"
#include "platform/CodePage.h"

namespace {

using namespace tavrin;

constexpr std::array<std::string_view, 3> kFiles{"ZOPCSRV.ini", "net.ini", "tags.csv"};
constexpr std::string_view kEndOfFile = "\n---\n";
constexpr std::size_t kSectionList = 1022;  // characters of a section list that are seen

void WriteFiles(MemoryProject& project, std::string_view input) {
  for (const std::string_view name : kFiles) {
    const std::size_t end = input.find(kEndOfFile);
    project.Write(name, input.substr(0, end == input.npos ? input.size() : end + 1));
    input.remove_prefix(end == input.npos ? input.size() : end + kEndOfFile.size());
  }
}

/// Texts that a model can hold but that do not come back from an INI file as they are.
bool IsPlain(std::string_view text) {
  const bool plain = std::all_of(text.begin(), text.end(),
                                 [](char c) { return static_cast<unsigned char>(c) >= ' ' && c != '"' && c != '\''; });
  return plain && (text.empty() || (text.front() != ' ' && text.back() != ' '));
}

/// Collects names of one kind; false for one that is there already in any case.
class NameSet {
 public:
  bool Add(std::string_view name) { return names_.insert(UpperCase(name)).second; }

 private:
  std::set<std::string> names_;
};

/// The sections of one file: the names tell them apart and fit into the list in which they are looked for.
class Sections {
 public:
  Sections() { static_cast<void>(Add("General")); }
  bool Add(std::string_view name) {
    characters_ += name.size() + 1;
    return !name.empty() && IsPlain(name) && name.find(']') == name.npos && names_.Add(name) &&
           characters_ < kSectionList;
  }

 private:
  NameSet names_;
  std::size_t characters_ = 0;
};

template <class Settings, class Table>
bool TextsArePlain(const Settings& settings, const Table& table) {
  return std::all_of(table.begin(), table.end(), [&](const auto& setting) {
    const auto* text = std::get_if<std::string Settings::*>(&setting.member);
    return text == nullptr || IsPlain(settings.**text);
  });
}

/// True when each object has a file or section of its own and each text comes back from a file: only then nothing of
/// the project is lost or joined on disk.
bool IsRegular(const cOPC& root) {
  NameSet files;
  Sections networks;
  // An empty separator is written as a key without a value, which counts as missing.
  bool regular = files.Add(root.szFileName()) && TextsArePlain(root.Settings(), kProjectSettings) &&
                 !root.szUsedSeparator().empty();
  for (const cNetwork& network : root.Networks()) {
    regular = regular && networks.Add(network.szNetworkName()) && files.Add(network.szFileName()) &&
              TextsArePlain(network.Settings(), kNetworkSettings);
    Sections devices;
    for (const cDevice& device : network.Devices()) {
      regular = regular && devices.Add(device.szDeviceName()) && IsPlain(device.szTagFileName()) &&
                (device.szTagFileName().empty() || files.Add(device.szTagFileName())) &&
                TextsArePlain(device.Settings(), kDeviceSettings);
    }
  }
  return regular;
}

template <class Settings, class Table>
void Describe(std::vector<std::string>& lines, const Settings& settings, const Table& table) {
  for (const auto& setting : table) {
    std::string line = std::string(setting.name) + "=";
    if (const auto* text = std::get_if<std::string Settings::*>(&setting.member)) {
      line += settings.**text;
    } else {
      line += std::to_string(settings.*std::get<std::int32_t Settings::*>(setting.member));
    }
    // Kept as text with its fraction, written rounded.
    if (setting.name != "nTCPRW_MaxGapSize") lines.push_back(line);
  }
}

/// The lines of a tag list that can be read back: with a name, and in upper case each name once.
void DescribeTags(std::vector<std::string>& lines, const cTags& tags) {
  std::set<std::string> names;
  for (const cTag& tag : tags) {
    const std::string line = tag.szComplete();
    if (!line.empty() && names.insert(line.substr(0, line.find(';'))).second) lines.push_back(line);
  }
}

/// What a saved project has on disk, a line for each value.
std::vector<std::string> Model(const cOPC& root) {
  std::vector<std::string> lines;
  Describe(lines, root.Settings(), kProjectSettings);
  for (const cNetwork& network : root.Networks()) {
    Describe(lines, network.Settings(), kNetworkSettings);
    for (const cDevice& device : network.Devices()) {
      Describe(lines, device.Settings(), kDeviceSettings);
      lines.push_back("MaxGapSize=" + std::to_string(device.nTCPRW_MaxGapSize()));
      lines.push_back("Variables=" + device.szTagFileName());
      DescribeTags(lines, device.Tags());
    }
  }
  return lines;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  MemoryProject project;
  const std::string input(data, data + size);
  WriteFiles(project, input);
  const std::string path = MemoryProject::Path(kFiles[0]);

  static_cast<void>(LoadProject(path));
  const cOPC& root = modMain::OpenProject();
  Require(!root.bOpcProjectDirty());
  const bool regular = IsRegular(root);
  const std::vector<std::string> model = Model(root);

  bool bOK = false;
  modMain::OpenProject().UpdateAll(false, bOK);
  Require(bOK || !regular);
  Require(!bOK || !root.bOpcProjectDirty());
  if (regular) Require(Model(root) == model);

  static_cast<void>(LoadProject(path));
  if (regular) Require(Model(modMain::OpenProject()) == model);
  return 0;
}
