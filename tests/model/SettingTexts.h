#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "model/NetworkSettings.h"
#include "model/ProjectSettings.h"
#include "model/Setting.h"

namespace tavrin {

/// All fields of a table as "name=value", in the order of the table.
template <class Settings, std::size_t N>
std::vector<std::string> FieldTexts(const std::array<NamedSetting<Settings>, N>& table, const Settings& settings) {
  std::vector<std::string> texts;
  for (const NamedSetting<Settings>& field : table) {
    const auto* number = std::get_if<std::int32_t Settings::*>(&field.member);
    texts.push_back(std::string(field.name) + "=" +
                    (number != nullptr ? std::to_string(settings.**number)
                                       : settings.*std::get<std::string Settings::*>(field.member)));
  }
  return texts;
}

inline std::vector<std::string> Fields(const NetworkSettings& settings) {
  return FieldTexts(kNetworkSettings, settings);
}
inline std::vector<std::string> Fields(const ProjectSettings& settings) {
  return FieldTexts(kProjectSettings, settings);
}

/// `fields` with another value for one of them.
inline std::vector<std::string> With(std::vector<std::string> fields, std::string_view name, std::string_view value) {
  const std::string start = std::string(name) + "=";
  for (std::string& field : fields) {
    if (field.compare(0, start.size(), start) == 0) field = start + std::string(value);
  }
  return fields;
}

}  // namespace tavrin
