#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tavrin {

/// What a run of a program has left.
struct ProgramRun {
  int status = -1;  ///< exit status; 127 when the program could not be started, -1 when a signal ended it
  std::string out;
  std::string err;
};

/// In which conditions a program runs.
struct RunConditions {
  std::string directory{};                  ///< working directory; empty: that of the test
  std::optional<std::uint64_t> fileSize{};  ///< bytes that a file may have before writing fails as on a full disk
  bool unprivileged = false;                ///< as an ordinary user, whom file permissions bind
  std::string output{};                     ///< file that takes the place of the standard output
  std::string input{};                      ///< file that takes the place of the standard input
  std::string program = TAVRINCTL;
};

/// Runs tavrinctl as a process of its own to its end; a run of more than two minutes is ended by a signal.
[[nodiscard]] ProgramRun CallTavrinctl(const std::vector<std::string>& arguments, const RunConditions& conditions = {});

/// The lines of a text without their line ends.
[[nodiscard]] std::vector<std::string> LinesOf(const std::string& text);

/// Below the source tree, e.g. "samples/plant/ZOPCSRV.ini".
[[nodiscard]] std::string InSourceTree(const std::string& path);

/// The bytes of a file; fails the test when it cannot be read.
[[nodiscard]] std::string BytesOf(const std::string& path);

/// A copy of a project's directory, which the test may change.
void CopyFiles(const std::string& from, const std::string& to);

/// Compares two directories by names and bytes of their files; empty when they are equal, else the names that differ.
[[nodiscard]] std::vector<std::string> Differences(const std::string& left, const std::string& right);

}  // namespace tavrin
