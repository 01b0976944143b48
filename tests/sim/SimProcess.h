#pragma once

#include <string>
#include <vector>

#include <sys/types.h>

namespace tavrin {

/// tavrin-sim as a process of its own, ended with the object.
class SimProcess {
 public:
  /// Starts it at a free port, unless the arguments name one.
  explicit SimProcess(const std::string& project, std::vector<std::string> arguments = {});
  SimProcess(const SimProcess&) = delete;
  SimProcess& operator=(const SimProcess&) = delete;
  ~SimProcess();

  /// The next line of its standard output; empty when it has ended, or when none has come for some seconds.
  [[nodiscard]] std::string NextLine();
  /// The address in a line that tells that the server is ready.
  [[nodiscard]] static std::string UrlOf(const std::string& line);
  void Signal(int signal) const;
  /// Waits for its end. @return exit status; -1 when a signal has ended it
  int Wait();
  /// What it has printed on standard error; after Wait only.
  [[nodiscard]] std::string Problems();

 private:
  pid_t process_ = -1;
  int out_ = -1;
  int err_ = -1;
  std::string pending_;
};

}  // namespace tavrin
