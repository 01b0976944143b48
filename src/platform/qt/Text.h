#pragma once

#include <QString>
#include <optional>
#include <string>
#include <string_view>

namespace tavrin {

/// A text of the code page as it is drawn. Always possible.
[[nodiscard]] QString ToQt(std::string_view text);
/// Nothing when the text holds a character that the code page does not have. A letter whose accent comes as a character
/// of its own counts as the one letter that it is.
[[nodiscard]] std::optional<std::string> FromQt(const QString& text);
/// The text without the characters that the code page does not have: what of typed or pasted text can be kept.
[[nodiscard]] std::string KnownCharacters(const QString& text);

}  // namespace tavrin
