#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/ProfileFiles.h"
#include "platform/SettingsStore.h"

namespace tavrin {

/// The settings as one INI file an application, APPLICATION.ini in the user's directory for configuration
/// ($XDG_CONFIG_HOME, else .config in the home directory), which is made when it is missing. Every value stands in
/// double quotes, so that blanks at its ends survive. The system's language is that of $LC_ALL, $LC_MESSAGES or $LANG,
/// the first that is set.
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

 private:
  [[nodiscard]] std::string FileOf(std::string_view application) const;

  ProfileFiles& profiles_;
  std::string directory_;  // with a trailing separator; empty when the user has none
  bool german_ = false;
};

}  // namespace tavrin
