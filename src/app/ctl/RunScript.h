#pragma once

#include <string>
#include <vector>

#include "app/ctl/Commands.h"

namespace tavrin {

/// A script to run: what the command line says of it. UTF-8.
struct ScriptRequest {
  std::string file;  ///< "-" for standard input
  std::vector<std::string> arguments;
  bool userSettings = false;  ///< the settings are those of the user's own editor, else they last as long as the run
};

/// Runs a script and prints its transcript. @return Warnings when a line could not be done or did not hold
[[nodiscard]] ExitStatus RunScript(Host& host, const ScriptRequest& request);

/// The words of the script language, one line each.
[[nodiscard]] std::string ScriptHelp();

}  // namespace tavrin
