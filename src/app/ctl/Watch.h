#pragma once

#include <string>
#include <vector>

#include "app/ctl/Commands.h"

namespace tavrin {

/// What `tavrinctl watch` is asked to do. Texts are UTF-8, as the command line has them.
struct WatchRequest {
  std::string file;                ///< root file of the project
  std::vector<std::string> items;  ///< DEVICE/TAG, or DEVICE for all its tags
  bool json = false;               ///< one JSON document a line
  bool demo = false;               ///< at the demonstration server; the items are its own names
  double seconds = 0;              ///< ends after so long; 0: when it is told to
};

/// Prints value, quality and time stamp of tags as the server tells them, one line a change, until the time is up or
/// the process is told to end.
/// @return Clean when the last quality of every tag was good, else Warnings; NotRun when the project cannot be read, it
/// has no such tag, or the server cannot be reached
[[nodiscard]] ExitStatus WatchTags(Host& host, const WatchRequest& request);

}  // namespace tavrin
