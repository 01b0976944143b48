#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tavrin {

/// The English name of a numbered language as Windows tells it, e.g. "German (Germany)" for 0x0407, in the page in use;
/// "Language Neutral" for a number that stands for no language.
[[nodiscard]] std::string LanguageName(std::uint16_t id);

/// The number of the language that a POSIX locale name stands for, e.g. 0x0C07 for "de_AT.UTF-8" and 0x241A for
/// "sr_RS@latin". An unknown country gives the language's usual one, and so does the script ("@latin", "@cyrillic")
/// that a name does not tell; an unknown language, "C" and "POSIX" among them, English of the United States.
[[nodiscard]] int LanguageIdOf(std::string_view localeName);

}  // namespace tavrin
