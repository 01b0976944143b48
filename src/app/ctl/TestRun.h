#pragma once

#include <string>

#include "app/ctl/Commands.h"

namespace tavrin {

/// What `tavrinctl test` is asked to do. Texts are UTF-8, as the command line has them.
struct TestRequest {
  std::string file;        ///< root file of the project
  std::string device;      ///< its name
  int runs = 1;            ///< cycles wanted
  int interval = 1000;     ///< milliseconds between two steps, and before the check
  double timeout = 60;     ///< seconds that one run may take
  bool subscribe = false;  ///< subscribe anew in every run
  bool noCheck = false;    ///< leave the partner's check out
  bool demo = false;       ///< against the demonstration server
};

/// Runs the test cycle of a device against the server, as its window does, with the same protocol; prints each act
/// with the number of its run, and at the end a line a tag: name, set value, actual value, quality.
/// @return Clean when all runs were done and no error was told, else Warnings; NotRun when the project cannot be read,
/// it has no such device, or the server cannot be reached
[[nodiscard]] ExitStatus RunDeviceTest(Host& host, const TestRequest& request);

}  // namespace tavrin
