#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

#include "platform/profile/ProfileImage.h"

namespace tavrin {

// The answers of the reading profile operations, put into the caller's buffer as ProfileFiles describes. They return
// the bytes copied without the last closing NUL, and never write more than the closing NULs behind them: a buffer of
// one byte gets a NUL, an empty one nothing.

/// The value of a key without its quotes, else the fallback.
std::size_t AnswerValue(const ProfileImage& image, std::string_view section, std::string_view key,
                        std::string_view fallback, std::span<char> buffer);

/// The names of the keys of a section; the fallback when there is none. A key without name is left out, since an
/// empty text would end the list.
std::size_t AnswerKeys(const ProfileImage& image, std::string_view section, std::string_view fallback,
                       std::span<char> buffer);

/// The names of all sections. Those without name are left out, since an empty text would end the list.
std::size_t AnswerSectionNames(const ProfileImage& image, std::span<char> buffer);

/// The lines of a section: a key with its value, in its quotes but without blanks around the equal sign, or the text
/// of a line without one. Nothing to list is told by two NULs.
std::size_t AnswerSection(const ProfileImage& image, std::string_view section, std::span<char> buffer);

}  // namespace tavrin
