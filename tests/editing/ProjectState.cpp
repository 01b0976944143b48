#include "editing/ProjectState.h"

#include "model/DeviceSettings.h"
#include "model/SettingTexts.h"

namespace tavrin {

namespace {

void Append(std::vector<std::string>& lines, std::vector<std::string> more) {
  lines.insert(lines.end(), more.begin(), more.end());
}

}  // namespace

std::vector<std::string> StateOf(const cNetwork& network) {
  auto lines = Fields(network.Settings());
  lines.push_back("szNetworkTypeName=" + std::string(network.szNetworkTypeName()));
  return lines;
}

std::vector<std::string> StateOf(const cDevice& device) {
  auto lines = FieldTexts(kDeviceSettings, device.Settings());
  lines.push_back("szTagFileName=" + device.szTagFileName());
  lines.push_back("szH1_PLCType=" + std::string(device.szH1_PLCType()));
  lines.push_back("szTCPRW_PLCType=" + std::string(device.szTCPRW_PLCType()));
  lines.push_back("szTCPIPK_PLCType=" + std::string(device.szTCPIPK_PLCType()));
  return lines;
}

std::vector<std::string> StateOf(const cOPC& project) {
  auto lines = Fields(project.Settings());
  for (const cNetwork& network : project.Networks()) {
    Append(lines, StateOf(network));
    for (const cDevice& device : network.Devices()) {
      Append(lines, StateOf(device));
      for (const cTag& tag : device.Tags()) lines.push_back(TextsOf(tag));
    }
  }
  return lines;
}

std::string TextsOf(const cTag& tag) {
  std::string texts(tag.szTag());
  for (const std::string_view text : {tag.szData(), tag.szRW(), tag.szHystLB(), tag.szHystUB(), tag.szLB(), tag.szUB(),
                                      tag.szTest(), tag.szComment()}) {
    texts.append(1, '|').append(text);
  }
  return texts;
}

}  // namespace tavrin
