#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace tavrin {

/// The 8-bit code page of all texts of the model and of all project files: one byte is one character.
struct CodePage {
  std::array<char32_t, 256> unicode{};  ///< Unicode character of each byte; an unassigned byte stands for itself
  std::array<char, 256> upper{};        ///< upper case of each byte; itself when the page has none
  std::array<char, 256> lower{};        ///< lower case of each byte; itself when the page has none
};

/// Builds the tables of a single-byte page.
/// @param number the page's number as users write it, e.g. "1252" or "1250"
/// @return nothing when the system does not know the page or it is not a single-byte page that contains ASCII
[[nodiscard]] std::optional<CodePage> MakeCodePage(std::string_view number);

/// The page in use: 1252 until UseCodePage is called.
[[nodiscard]] const CodePage& ActiveCodePage();
void UseCodePage(const CodePage& page);

/// Upper or lower case of each character by the page in use; the length stays.
[[nodiscard]] std::string UpperCase(std::string_view text);
[[nodiscard]] std::string LowerCase(std::string_view text);
/// Equal when both are upper-cased.
[[nodiscard]] bool EqualIgnoringCase(std::string_view left, std::string_view right);

/// Always possible; every byte has its Unicode character.
[[nodiscard]] std::string ToUtf8(std::string_view text);
/// Nothing when the text is no valid UTF-8 or holds a character that the page in use does not have.
[[nodiscard]] std::optional<std::string> FromUtf8(std::string_view utf8);

}  // namespace tavrin
