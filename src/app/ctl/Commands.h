#pragma once

#include <string>

#include "app/ctl/Host.h"

namespace tavrin {

/// Exit statuses of tavrinctl.
enum class ExitStatus : int { Clean = 0, Warnings = 1, NotRun = 2 };

/// The commands of tavrinctl. Paths are UTF-8, as the command line has them. What cannot be run at all is told on
/// standard error with the path and the reason.
[[nodiscard]] ExitStatus ShowProject(Host& host, const std::string& file);
[[nodiscard]] ExitStatus CheckProject(Host& host, const std::string& file);
[[nodiscard]] ExitStatus ResaveProject(Host& host, const std::string& file, const std::string& directory);

}  // namespace tavrin
