#include "PlantGenerator.h"

#include <array>
#include <fstream>
#include <string_view>

#include <fmt/format.h>

namespace tavrin {

namespace {

constexpr int kDevices = 10;
constexpr std::array<std::string_view, 5> kSignals{"Speed", "Current", "Running", "Fault", "Setpoint"};

/// About 57 bytes a line, a comment on every second one, bounds on every tenth.
std::string TagLine(int device, std::int64_t tag) {
  const std::string_view signal = kSignals[static_cast<std::size_t>(tag) % kSignals.size()];
  std::string line = fmt::format("Line{:02}_Drive{:06}_{};DB{}.DBW{};{}", device, tag, signal, 10 + tag / 500,
                                 tag % 500 * 2, tag % 3 == 0 ? "RO" : "RW");
  if (tag % 10 == 0) line += ";LB=0;UB=1500";
  if (tag % 2 == 0) line += fmt::format(";CMT=Drive {} of line {}", tag, device);
  return line + "\r\n";
}

void WriteFile(const std::string& path, const std::string& text) {
  std::ofstream(path, std::ios::binary).write(text.data(), static_cast<std::streamsize>(text.size()));
}

}  // namespace

GeneratedProject GenerateProject(const std::string& directory, std::int64_t tags) {
  GeneratedProject project;
  project.rootFile = directory + "ZOPCSRV.ini";
  project.tags = tags;
  WriteFile(project.rootFile,
            "[General]\r\nLogFileSize=10000\r\nCaseSensitive=0\r\nUsedSeparator=/\r\nTagsAlwaysUppercase=0\r\n\r\n"
            "[Plant]\r\nProtocol=RWoverTCPIP\r\nConfiguration=Plant.ini\r\n\r\n");
  std::string network = "[General]\r\nLocalIPAddress=0.0.0.0\r\n\r\n";
  for (int device = 1; device <= kDevices; ++device) {
    network += fmt::format(
        "[PLC{0:02}]\r\nLocalPortRead={1}\r\nLocalPortWrite={2}\r\nRemoteIPAddress=10.0.0.{0}\r\nRemotePortRead="
        "2000\r\n"
        "RemotePortWrite=2001\r\nVariables=PLC{0:02}.csv\r\nDynamicTags=RW\r\nPLCType=S7\r\nSimulation=OFF\r\n"
        "MaxGapSize=30\r\nPingEnabled=1\r\n\r\n",
        device, 3000 + 2 * device, 3001 + 2 * device);
    std::string text;
    for (std::int64_t tag = 0; tag < tags / kDevices; ++tag) text += TagLine(device, tag);
    project.tagFiles.push_back(directory + fmt::format("PLC{:02}.csv", device));
    project.bytes += static_cast<std::int64_t>(text.size());
    WriteFile(project.tagFiles.back(), text);
  }
  WriteFile(directory + "Plant.ini", network);
  return project;
}

}  // namespace tavrin
