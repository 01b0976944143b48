#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace tavrin {

/// A stored field of a settings struct: a 32-bit number or a text.
template <class Settings>
using SettingMember = std::variant<std::int32_t Settings::*, std::string Settings::*>;

/// A stored field under its name. Tables of these list the fields of a class in the order of their declaration.
template <class Settings>
struct NamedSetting {
  std::string_view name;
  SettingMember<Settings> member;
};

}  // namespace tavrin
