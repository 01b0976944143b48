#pragma once

#include <string>
#include <vector>

namespace tavrin {

/// Starts a program that goes its own way: it is not waited for, outlives this one, is no child of it, and has none of
/// its files, input or output. No shell comes between: each argument arrives as it stands.
/// @param program full path @param arguments without the program's own name
/// @return false when the system could not run it
[[nodiscard]] bool StartDetached(const std::string& program, const std::vector<std::string>& arguments);

}  // namespace tavrin
