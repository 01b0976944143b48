#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/ProfileFiles.h"
#include "platform/SettingsStore.h"

namespace tavrin {

/// The settings as one INI file an application, APPLICATION.ini in the user's directory for configuration
/// ($XDG_CONFIG_HOME, else .config in the home directory), which is made when it is missing. Every value stands in
/// double quotes, so that blanks at its ends survive; one with a line break or NUL cannot stand in such a file and is
/// not stored, nor is one longer than kMostBytes. Each save is on the disk when it returns, so that runs side by side
/// see each other's. The system's language is that of $LC_ALL, $LC_MESSAGES or $LANG, the first that is set.
/// Source for the directory: XDG Base Directory Specification, which has a relative path ignored and 0700 for what is
/// made.
class PosixSettingsStore : public SettingsStore {
 public:
  /// @param profiles outlives the store
  explicit PosixSettingsStore(ProfileFiles& profiles);

  [[nodiscard]] std::string GetSetting(std::string_view application, std::string_view section, std::string_view key,
                                       std::string_view fallback) override;
  void SaveSetting(std::string_view application, std::string_view section, std::string_view key,
                   std::string_view value) override;
  [[nodiscard]] std::string BooleanText(bool value) const override;
  [[nodiscard]] std::optional<bool> ParseBoolean(std::string_view text) const override;

  /// Longest value that is stored.
  static constexpr std::size_t kMostBytes = 65000;

 private:
  /// Full path in the code page in use; nothing when the user has no directory or the code page cannot spell it.
  [[nodiscard]] std::optional<std::string> FileOf(std::string_view application) const;

  ProfileFiles& profiles_;
  std::string directory_;  // UTF-8, as the code page may change; with a trailing separator; empty when there is none
  bool german_ = false;
};

}  // namespace tavrin
