#include "online/TestProtocol.h"

#include <array>
#include <string>

#include "model/cDevice.h"
#include "model/cNetwork.h"
#include "model/cOPC.h"
#include "model/shared/modMain.h"
#include "online/TestError.h"
#include "platform/Regional.h"

namespace tavrin {

namespace {

constexpr std::string_view kFile = "TESTPROT.TXT";
constexpr std::int32_t kNameWidth = 12;

/// By the numbers of the commands.
constexpr std::array<std::string_view, 5> kLabels{"Grundstellung", "Initialisierung",
                                                  "Pr\xFC"
                                                  "fen",
                                                  "Update", "TagsAbonnieren"};

std::string_view LabelOf(TestCommand command) {
  const auto number = static_cast<std::size_t>(command);  // none is beyond all
  return number < kLabels.size() ? kLabels[number] : "unbekanntes Kommando";
}

std::string DateAndTime() {
  Regional& regional = modMain::Platform().around.regional;
  const DateTime now = regional.Now();
  return regional.ShortDate(now) + " " + regional.LongTime(now);
}

/// What every line begins with, up to its last field.
std::string LineStart(std::int32_t run) {
  struct Column {
    std::string text;
    std::int32_t width;
  };
  const cNetwork& network = modMain::CurrentNetwork();
  const std::array columns{Column{" ", 1},
                           Column{std::to_string(run), 4},
                           Column{DateAndTime(), 18},
                           Column{std::string(network.szNetworkTypeName()), 25},
                           Column{network.szNetworkName(), 15},
                           Column{modMain::CurrentDevice().szDeviceName(), 15}};
  std::string line;
  for (const Column& column : columns) {
    line += modMain::PadRight(column.text, column.width);
    line += modMain::OpenProject().szUsedSeparator();
  }
  return line;
}

void Append(const std::string& line) {
  const Services& services = modMain::Platform();
  std::string path = services.applicationDirectory;
  path += kPathSeparator;
  path += "LOG";
  path += kPathSeparator;
  path += kFile;
  services.files.Append(path, line + "\r\n");
}

}  // namespace

void SaveRunHeader(std::int32_t run, TestCommand command) try {
  Append(LineStart(run) + std::string(LabelOf(command)));
} catch (...) {
  TellTestError("SaveRunHeader");
}

bool SaveResultArray(std::int32_t run, std::string_view name, std::string_view value) try {
  std::string line = LineStart(run) + modMain::PadRight(name, kNameWidth);
  line += modMain::OpenProject().szUsedSeparator();
  line += value;
  Append(line);
  return true;
} catch (...) {
  TellTestError("SaveResultArray");
  return false;
}

}  // namespace tavrin
