#include "platform/posix/PosixSettingsStore.h"

#include <array>
#include <cstdlib>
#include <exception>
#include <vector>

#include <sys/stat.h>

#include "platform/CodePage.h"
#include "platform/Files.h"
#include "platform/NumberText.h"

namespace tavrin {

namespace {

/// No stored value holds it: found nothing.
constexpr std::string_view kNothing = "\n";
constexpr std::string_view kUnstorable("\r\n\0", 3);

std::string_view Environment(const char* name) {
  const char* const value = std::getenv(name);  // NOLINT(concurrency-mt-unsafe): the program has one thread here
  return value == nullptr ? std::string_view{} : std::string_view(value);
}

std::string ConfigDirectory() {
  const std::string_view configured = Environment("XDG_CONFIG_HOME");
  if (configured.starts_with(kPathSeparator)) return std::string(configured) + kPathSeparator;
  const std::string_view home = Environment("HOME");
  return home.starts_with(kPathSeparator) ? std::string(home) + "/.config/" : std::string{};
}

bool SpeaksGerman() {
  for (const char* const name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const std::string_view locale = Environment(name);
    if (!locale.empty()) return locale.substr(0, locale.find_first_of("_.@")) == "de";
  }
  return false;
}

/// Makes a directory with those above it. What cannot be made is seen when the file is written.
void MakeDirectories(const std::string& directory) {
  for (std::size_t end = directory.find(kPathSeparator, 1); end != std::string::npos;
       end = directory.find(kPathSeparator, end + 1)) {
    static_cast<void>(mkdir(directory.substr(0, end).c_str(), S_IRWXU));
  }
}

/// The words for false and true.
using BooleanWords = std::array<std::string_view, 2>;
constexpr BooleanWords kEnglishWords{"False", "True"};
constexpr BooleanWords kGermanWords{"Falsch", "Wahr"};

std::optional<bool> Meaning(const BooleanWords& words, std::string_view text) {
  if (EqualIgnoringCase(text, words[1])) return true;
  if (EqualIgnoringCase(text, words[0])) return false;
  return std::nullopt;
}

}  // namespace

PosixSettingsStore::PosixSettingsStore(ProfileFiles& profiles)
    : profiles_(profiles), directory_(ConfigDirectory()), german_(SpeaksGerman()) {}

std::optional<std::string> PosixSettingsStore::FileOf(std::string_view application) const {
  if (directory_.empty()) return std::nullopt;
  const auto directory = FromUtf8(directory_);
  if (!directory) return std::nullopt;
  return *directory + std::string(application) + ".ini";
}

std::string PosixSettingsStore::GetSetting(std::string_view application, std::string_view section, std::string_view key,
                                           std::string_view fallback) {
  try {
    const auto file = FileOf(application);
    if (!file) return std::string(fallback);
    std::vector<char> buffer(kMostBytes + 1);
    const std::size_t length = profiles_.GetString(section, key, kNothing, buffer, *file);
    const std::string_view found(buffer.data(), length);
    return std::string(found == kNothing ? fallback : found);
  } catch (const std::exception&) {
    return std::string(fallback);  // settings that cannot be had never stop the program
  }
}

void PosixSettingsStore::SaveSetting(std::string_view application, std::string_view section, std::string_view key,
                                     std::string_view value) {
  if (value.size() > kMostBytes || value.find_first_of(kUnstorable) != std::string_view::npos) return;
  try {
    const auto file = FileOf(application);
    if (!file) return;
    MakeDirectories(directory_);
    static_cast<void>(profiles_.WriteString(section, key, '"' + std::string(value) + '"', *file));
    static_cast<void>(profiles_.WriteString({}, {}, {}, *file));
  } catch (const std::exception&) {  // NOLINT(bugprone-empty-catch): lost without a word, as the interface says
  }
}

std::string PosixSettingsStore::BooleanText(bool value) const {
  return std::string((german_ ? kGermanWords : kEnglishWords)[value ? 1 : 0]);
}

std::optional<bool> PosixSettingsStore::ParseBoolean(std::string_view text) const {
  if (IsNumeric(text)) return NumericPrefix(text) != 0;
  const auto german = german_ ? Meaning(kGermanWords, text) : std::nullopt;
  return german ? german : Meaning(kEnglishWords, text);
}

}  // namespace tavrin
