#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tavrin {

/// The few shapes in which catalogue texts and literal pieces are joined to messages and warnings.

/// A value was out of range: what is allowed stands behind it.
[[nodiscard]] std::string RangeRefused(std::string_view allowed);
/// An empty text was given where one is needed.
[[nodiscard]] std::string EmptyRefused();
/// A key is missing (empty value) or has a bad value.
[[nodiscard]] std::string BadKey(std::string_view key, std::string_view value);
/// A name or a line is not acceptable for the reason of the text number.
[[nodiscard]] std::string NameProblem(std::int32_t textNumber, std::string_view name);
/// A catalogue text, a blank and what it speaks of.
[[nodiscard]] std::string TextAnd(std::int32_t textNumber, std::string_view what);

/// Catalogue numbers for the results 1, 2 and 3 of a name check (model/shared/modParser.h); 0 for any other result.
[[nodiscard]] std::int32_t NameCheckText(std::int32_t result);
/// The same for the check of a tag's data source.
[[nodiscard]] std::int32_t SourceCheckText(std::int32_t result);

/// Shows a refusal to the user; false, so that a setter's test can end in it.
bool Refuse(std::string_view message);

}  // namespace tavrin
