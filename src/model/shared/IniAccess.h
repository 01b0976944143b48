#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tavrin {

/// What a read of one key gives.
struct IniValue {
  bool present = false;  ///< at least one character came back, from the file or from the default text
  std::string text;      ///< the cleaned value (ParseINISetting); empty when not present
};

/// Reads one key. At most 254 characters of a value are seen. `file` is a full path.
[[nodiscard]] IniValue ReadIniValue(std::string_view section, std::string_view key, std::string_view fallback,
                                    const std::string& file);

/// The section names of a file in their order, without empty ones. The list is read through a buffer of 1024
/// characters: what lies behind its end is not seen, as the server does not see it either.
[[nodiscard]] std::vector<std::string> ReadIniSections(const std::string& file);

/// Writes one key. A failure is not told: the platform's result says nothing that the writers could act on.
void WriteIniValue(std::string_view section, std::string_view key, std::string_view value, const std::string& file);

/// Ends a section with an empty line; a failure is ignored.
void AppendEmptyLine(const std::string& file);

/// Removes a file before it is written anew; a failure is ignored.
void RemoveBeforeRewrite(const std::string& file);

}  // namespace tavrin
