#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace tavrin {

/// Tests of the property setters. Each is true for a value that may be stored; otherwise it has told the user what is
/// allowed and is false.

/// A number from `lowest` to `highest`; `allowed` is how the range is told.
[[nodiscard]] bool AcceptRange(std::int32_t value, std::int32_t lowest, std::int32_t highest, std::string_view allowed);
/// One of a few numbers; all are told, joined by "/".
[[nodiscard]] bool AcceptOneOf(std::int32_t value, std::span<const std::int32_t> numbers);
[[nodiscard]] bool AcceptNotEmpty(std::string_view value);
/// An address of four pieces that the server can use; `bAllowZero` decides on 0.0.0.0.
[[nodiscard]] bool AcceptAddress(std::string_view value, bool bAllowZero);
/// One of the words exactly as they stand; `allowed` is how they are told.
[[nodiscard]] bool AcceptWord(std::string_view value, std::span<const std::string_view> words,
                              std::string_view allowed);

/// Numbers joined by "/": "0/1/2".
[[nodiscard]] std::string JoinNumbers(std::span<const std::int32_t> numbers);

}  // namespace tavrin
