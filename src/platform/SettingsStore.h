#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tavrin {

/// The user's settings that outlive the program: three levels, application, section and key, with a text behind each
/// key. Found without regard to case. Texts are in the code page.
/// Source: GetSetting and SaveSetting of Visual Basic.
class SettingsStore {
 public:
  SettingsStore() = default;
  SettingsStore(const SettingsStore&) = delete;
  SettingsStore& operator=(const SettingsStore&) = delete;
  virtual ~SettingsStore() = default;

  /// The text behind the key exactly as it was saved, or `fallback` when there is none or it cannot be read.
  [[nodiscard]] virtual std::string GetSetting(std::string_view application, std::string_view section,
                                               std::string_view key, std::string_view fallback) = 0;

  /// A store that cannot be written loses the value without a word.
  virtual void SaveSetting(std::string_view application, std::string_view section, std::string_view key,
                           std::string_view value) = 0;

  /// How the system's language writes a truth value, e.g. "True" or "Wahr".
  [[nodiscard]] virtual std::string BooleanText(bool value) const = 0;
  /// Reads such a text, in any case: the words of the system's language, "True" and "False", and numbers (0 is false).
  /// Nothing for any other text.
  [[nodiscard]] virtual std::optional<bool> ParseBoolean(std::string_view text) const = 0;
};

}  // namespace tavrin
