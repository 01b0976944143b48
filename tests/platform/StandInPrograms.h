#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "support/TemporaryDirectory.h"

namespace tavrin {

/// A machine whose programs are all stand-ins in one directory: each notes with which words it was started. The
/// environment of the test is that machine's as long as the object lives.
class StandInPrograms {
 public:
  StandInPrograms();
  StandInPrograms(const StandInPrograms&) = delete;
  StandInPrograms& operator=(const StandInPrograms&) = delete;
  ~StandInPrograms();

  /// @param before lines of the shell that run before the words are noted
  void Install(std::string_view name, std::string_view before = {}) const;
  /// Makes a program known that opens files of a type.
  void InstallHandler(std::string_view mediaType) const;
  void SetVariable(const std::string& name, const std::string& value);

  /// The name of the program that has started and its arguments. Waits for it; empty when nothing starts. Then the
  /// note is gone.
  [[nodiscard]] std::vector<std::string> TakeStarted() const;
  /// Lets all programs go on that wait for it by "wait_for_go".
  void Go() const { directory_.Write("go", ""); }

  [[nodiscard]] const TemporaryDirectory& Directory() const { return directory_; }
  [[nodiscard]] std::string ProgramPath(std::string_view name) const;

 private:
  TemporaryDirectory directory_;
  std::map<std::string, std::optional<std::string>> before_;
};

}  // namespace tavrin
