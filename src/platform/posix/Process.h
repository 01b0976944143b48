#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace tavrin {

/// How a program ended that was run to its end.
struct ProcessResult {
  enum class End {
    NotStarted,  ///< there is no such program, or it may not be run
    Exited,
    Killed,    ///< by a signal
    Gone,      ///< nobody knows how: this process ignores the end of those that it runs, and their status is lost
    TimedOut,  ///< it was still at work when the time was over, and was killed
  };
  End end = End::NotStarted;
  int status = 0;      ///< of a program that has exited, 0 to 255
  std::string output;  ///< the first 64 KiB of what it has said on its standard output and error

  [[nodiscard]] bool Succeeded() const { return end == End::Exited && status == 0; }
};

/// Runs a program with its arguments and waits for it, at most so long. No shell reads them; the program is looked for
/// in PATH. It reads nothing, speaks in the C locale and gets no file that is open here. For programs that are started
/// and not waited for see PosixPrograms.
[[nodiscard]] ProcessResult RunProcess(const std::vector<std::string>& command, std::chrono::milliseconds limit);

}  // namespace tavrin
