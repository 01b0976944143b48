#pragma once

#include <optional>
#include <string>

#include "app/ctl/Commands.h"
#include "app/ctl/Host.h"
#include "app/ctl/ProjectJson.h"

namespace tavrin {

// What every command that loads a project begins with.

/// Tells why a command cannot be run.
ExitStatus NotRun(const std::string& message);

/// The path in the code page, or nothing after telling why it cannot be one.
[[nodiscard]] std::optional<std::string> ModelPath(const std::string& utf8);

/// Loads the project as the editor's open command does. Nothing after telling why it cannot be loaded at all.
[[nodiscard]] std::optional<Outcome> Load(Host& host, const std::string& file);

/// Prints the message boxes of a load on standard error.
void TellBoxes(const Outcome& outcome);

}  // namespace tavrin
