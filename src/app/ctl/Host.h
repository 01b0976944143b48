#pragma once

#include <chrono>
#include <string>
#include <thread>

#include "app/Machine.h"
#include "platform/headless/HeadlessDesktop.h"

namespace tavrin {

/// The desktop of a program on the command line: time passes.
class ConsoleDesktop : public HeadlessDesktop {
 public:
  void Sleep(int milliseconds) override { std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds)); }
};

/// The machine for a run without a user: boxes are recorded, the files are the real ones. Sets the process-wide
/// state up when it is made and back when it goes.
class Host {
 public:
  /// @param applicationDirectory where texts and Tavrin.INI stand, UTF-8, with a trailing separator
  /// @throws RuntimeError 76 when the directory has characters that the code page does not have, 53 when the texts
  /// cannot be read
  Host(Wording wording, const std::string& applicationDirectory);

  [[nodiscard]] HeadlessDesktop& Desktop() { return desktop_; }
  [[nodiscard]] Files& PlainFiles() { return machine_.PlainFiles(); }
  /// True when something written to an INI file has not reached the disk.
  [[nodiscard]] bool LostWrites() const { return machine_.LostWrites(); }

 private:
  ConsoleDesktop desktop_;
  Machine machine_;
};

}  // namespace tavrin
