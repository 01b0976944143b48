#include "model/ProjectFile.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <variant>

#include "model/NetworkFile.h"
#include "model/cOPC.h"
#include "model/shared/IniAccess.h"
#include "model/shared/Messages.h"
#include "model/shared/cWarnings.h"
#include "model/shared/modMain.h"
#include "model/shared/modText.h"
#include "platform/NumberText.h"

namespace tavrin {

namespace {

using S = ProjectSettings;

struct ProjectKey {
  std::string_view key;
  std::string_view fallback;  ///< what a missing key counts as
  SettingMember<S> member;
  std::string_view toldKey;   ///< the key's name in a warning
  SettingMember<S> toldFile;  ///< the field whose text stands for the file in a warning
};

// Numbers have no upper bound here and the separator is not held against the accepted ones: a load takes what the
// server would take, and only the setters are stricter. What a warning names as key and as file is fixed row by row:
// warning lists are compared with each other, so the words must not change.
constexpr auto kKeys = std::to_array<ProjectKey>({
    {"LogFileSize", "", &S::nLogFileSize, "LogFileSize", &S::szFileName},
    {"CaseSensitive", "0", &S::nCaseSensitive, "CaseSensitive", &S::nCaseSensitive},
    {"UsedSeparator", "/", &S::szUsedSeparator, "UsedSeparator", &S::szUsedSeparator},
    {"TagsAlwaysUppercase", "0", &S::nSaveTagsUppercase, "CaseSensitive", &S::nCaseSensitive},
});

/// Names of the network types in the project file, by type number.
constexpr std::array<std::string_view, kNetworkTypes> kProtocols{"MPIoverCOMPORT", "H1", "ISOoverTCPIP", "RWoverTCPIP",
                                                                 "IPKoverTCPIP"};

std::string TextOf(const SettingMember<S>& member, const S& settings) {
  if (const auto* number = std::get_if<std::int32_t S::*>(&member)) return std::to_string(settings.**number);
  return settings.*std::get<std::string S::*>(member);
}

/// False when the value is refused; the field then stays.
bool StoreValue(const SettingMember<S>& member, const IniValue& value, S& settings) {
  if (!value.present) return false;
  if (const auto* text = std::get_if<std::string S::*>(&member)) {
    settings.** text = value.text;
    return true;
  }
  const double number = NumericPrefix(value.text);
  if (!IsNumeric(value.text) || number < 0) return false;
  settings.*std::get<std::int32_t S::*>(member) = RoundToInt32(number);
  return true;
}

void Warn(std::string_view file, std::string text, WarningKind kind = WarningKind::Opc) {
  modMain::ReadWarnings().AddWarning(kind, file, std::move(text));
}

void ReadProtocol(cNetwork& network, const std::string& file, bool& bOK) {
  const IniValue value = ReadIniValue(network.szNetworkName(), "Protocol", "", file);
  if (value.text.empty()) {
    Warn(modMain::RootFileName(), BadKey("Protocol", ""));
    bOK = false;
    return;
  }
  // Exact spelling; any other word is silently a network of type 0.
  const auto protocol = std::find(kProtocols.begin(), kProtocols.end(), value.text);
  if (protocol != kProtocols.end()) network.nNetworkType(static_cast<std::int32_t>(protocol - kProtocols.begin()));
}

void ReadConfiguration(cNetwork& network, const std::string& file, bool& bOK) {
  const IniValue value = ReadIniValue(network.szNetworkName(), "Configuration", "", file);
  if (value.text.empty()) {
    Warn(modMain::RootFileName(), value.present ? BadKey("Configuration", "") : TextAnd(207, "Configuration:"));
    bOK = false;
    return;
  }
  if (!modMain::OpenProject().CheckFilenameUnique(value.text)) {
    Warn(modMain::RootFileName(), NameProblem(212, value.text), WarningKind::Network);
  }
  network.szFileName(value.text);
}

}  // namespace

void ReadProjectKeys(ProjectSettings& settings, const std::string& file, bool& bOK) {
  for (const ProjectKey& row : kKeys) {
    const IniValue value = ReadIniValue(kGeneralSection, row.key, row.fallback, file);
    if (StoreValue(row.member, value, settings)) continue;
    Warn(TextOf(row.toldFile, settings), BadKey(row.toldKey, value.text));
    bOK = false;
  }
}

void WriteProjectKeys(const ProjectSettings& settings, const std::string& file) {
  for (const ProjectKey& row : kKeys) WriteIniValue(kGeneralSection, row.key, TextOf(row.member, settings), file);
}

void ReadNetworkEntry(cNetwork& network, const std::string& file, bool& bOK) {
  ReadProtocol(network, file, bOK);
  ReadConfiguration(network, file, bOK);
}

void WriteNetworkEntry(const cNetwork& network, const std::string& file) {
  const std::string& section = network.szNetworkName();
  WriteIniValue(section, "Protocol", kProtocols.at(static_cast<std::size_t>(network.nNetworkType())), file);
  WriteIniValue(section, "Configuration", network.szFileName(), file);
}

}  // namespace tavrin
