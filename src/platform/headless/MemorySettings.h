#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "platform/CodePage.h"
#include "platform/SettingsStore.h"

namespace tavrin {

/// Settings that live as long as the process, for scripts and tests: under "application/section/key" in upper case.
class MemorySettings : public SettingsStore {
 public:
  [[nodiscard]] std::string GetSetting(std::string_view application, std::string_view section, std::string_view key,
                                       std::string_view fallback) override {
    const auto found = values.find(Path(application, section, key));
    return found == values.end() ? std::string(fallback) : found->second;
  }
  void SaveSetting(std::string_view application, std::string_view section, std::string_view key,
                   std::string_view value) override {
    values[Path(application, section, key)] = value;
  }
  [[nodiscard]] std::string BooleanText(bool value) const override { return value ? "True" : "False"; }
  [[nodiscard]] std::optional<bool> ParseBoolean(std::string_view text) const override {
    if (EqualIgnoringCase(text, "True")) return true;
    if (EqualIgnoringCase(text, "False")) return false;
    return std::nullopt;
  }

  static std::string Path(std::string_view application, std::string_view section, std::string_view key) {
    return UpperCase(std::string(application) + "/" + std::string(section) + "/" + std::string(key));
  }

  std::map<std::string, std::string> values;
};

}  // namespace tavrin
