#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tavrin {

/// "Wählen Sie einen Ordner aus", in the code page.
inline constexpr std::string_view kBrowseTitle = "W\xE4hlen Sie einen Ordner aus";

/// True when the path exists and is no directory; false on any error.
[[nodiscard]] bool FileExists(std::string_view path);

/// The text up to its first NUL; the argument is cut too.
std::string_view StripNulls(std::string& text);

/// The full paths of the files of a directory whose names match the pattern ("*" and "?", case does not count), in
/// the order of the file system, without directories and without those below. Element 0 is always empty: callers walk
/// from 1.
[[nodiscard]] std::vector<std::string> ListFiles(std::string_view directory, std::string_view pattern);

/// Where the programs of the system lie, without a trailing separator.
[[nodiscard]] std::string SystemDirectory();

/// The user chooses a directory; empty when he gives up. Without a title the dialog asks for a folder in German.
[[nodiscard]] std::string BrowseForFolder(std::string_view title = kBrowseTitle);

/// True when the path is an existing directory.
[[nodiscard]] bool FolderExists(std::string_view path);

}  // namespace tavrin
