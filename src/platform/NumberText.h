#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tavrin {

/// True for an optional sign and decimal digits with an optional fraction behind a point, and nothing else:
/// "5", "-5.25", "5.", ".5" and "+5" are numbers; "", " 5", "5 ", "1e3", "0x5" and "." are not.
[[nodiscard]] bool IsNumeric(std::string_view text);

/// The number at the start of a text, read up to the first character that does not belong to it; 0 when there is
/// none, also when the text starts with a blank.
[[nodiscard]] double NumericPrefix(std::string_view text);

/// Nearest integer, ties to even. @throws RuntimeError 6 outside the 32-bit range
[[nodiscard]] std::int32_t RoundToInt32(double value);

/// The number after `value`. @throws RuntimeError 6 when there is none in the 32-bit range
[[nodiscard]] std::int32_t NextNumber(std::int32_t value);

/// Shortest decimal text that reads back as the same number, without exponent: "30", "12.5", "0.001".
[[nodiscard]] std::string DecimalText(double value);

}  // namespace tavrin
