#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tavrin {

/// The full path of a program of the user's search path; nothing when there is none. Pieces of the search path that
/// hang on the working directory are passed over: a folder with projects is no place to take programs from.
[[nodiscard]] std::optional<std::string> FindProgram(std::string_view name);

/// True when the user's session is one of the desktop, e.g. "KDE".
[[nodiscard]] bool IsDesktop(std::string_view name);

/// True when an installed program of the desktop is known to open files of a media type, e.g. "application/pdf":
/// chosen by the user, by the system, or by itself. By the rules of the desktops for such lists (mimeapps.list).
[[nodiscard]] bool HasHandler(std::string_view mediaType);

}  // namespace tavrin
