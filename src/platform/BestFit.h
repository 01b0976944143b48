#pragma once

#include <string>
#include <string_view>

namespace tavrin {

/// UTF-16 as text of the page in use, for texts that are only shown: a character that the page does not have becomes
/// the one that looks most like it (an L with a stroke an "L"), without any likeness a "?". Each half of a surrogate
/// pair is a character of its own. What the program writes back to a file must not come this way: it loses.
[[nodiscard]] std::string FromUtf16(std::u16string_view text);

}  // namespace tavrin
