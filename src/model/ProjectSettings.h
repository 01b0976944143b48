#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "model/Setting.h"

namespace tavrin {

/// The stored fields of the project root.
struct ProjectSettings {
  std::string szFileName;                      ///< project file, without directory
  std::int32_t nLogFileSize = 10000;           ///< largest size of the server's log file
  std::int32_t nCaseSensitive = 0;             ///< 1: tag names are case-sensitive
  std::string szUsedSeparator = "/";           ///< separator for the server
  std::string szACCEPTEDSEPARATORS = "/\\!|";  ///< what may be chosen as separator; not on disk
  std::int32_t nSaveTagsUppercase = 0;         ///< 1: tag names are saved in upper case
};

/// The fields that a project file holds or is named by.
inline constexpr auto kProjectSettings = std::to_array<NamedSetting<ProjectSettings>>({
    {"szFileName", &ProjectSettings::szFileName},
    {"nLogFileSize", &ProjectSettings::nLogFileSize},
    {"nCaseSensitive", &ProjectSettings::nCaseSensitive},
    {"szUsedSeparator", &ProjectSettings::szUsedSeparator},
    {"nSaveTagsUppercase", &ProjectSettings::nSaveTagsUppercase},
});

}  // namespace tavrin
