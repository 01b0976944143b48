#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace tavrin {

/// The number that a free text of a tag stands for, as bounds and test values are typed: with a point or a comma, an
/// exponent, blanks around it; True and False in any case are 1 and 0. Nothing for any other text.
[[nodiscard]] std::optional<double> FreeNumber(std::string_view text);

/// True for a number that is written with a fraction or an exponent.
[[nodiscard]] bool IsWrittenAsReal(std::string_view text);

/// The pieces between the "|" of a test value; one for a text without.
[[nodiscard]] std::vector<std::string_view> TestPieces(std::string_view text);

}  // namespace tavrin
