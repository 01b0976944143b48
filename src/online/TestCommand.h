#pragma once

#include <cstdint>
#include <string_view>

namespace tavrin {

/// What the test run does next, by the numbers that the partner on the device's side knows. The first three are sent
/// to it.
enum class TestCommand : std::int32_t {
  None = -1,
  Grundstellung = 0,
  Initialisieren = 1,
  Pruefen = 2,
  Update = 3,
  Abonnieren = 4
};

/// Tags of the device under test that do not carry process values but the talk with the partner.
inline constexpr std::string_view kCommandTag = "COMMAND";
inline constexpr std::string_view kResultTag = "RESULT";
inline constexpr std::string_view kResultArrayTag = "RESULTARRAY";

}  // namespace tavrin
