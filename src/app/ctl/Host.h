#pragma once

#include <memory>
#include <string>

#include "model/shared/LengthSyntax.h"
#include "model/shared/modMain.h"
#include "platform/headless/HeadlessDesktop.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/PosixSettingsStore.h"
#include "platform/posix/UnitRegistry.h"
#include "platform/profile/ProfiledFiles.h"

namespace tavrin {

/// In which words a run without a window speaks.
enum class Wording { German, English, Numbers };

/// The machine for a run without a user: boxes are recorded, the files are the real ones. Sets the process-wide
/// state up when it is made and back when it goes.
class Host {
 public:
  /// @param applicationDirectory where texts and Tavrin.INI stand, UTF-8, with a trailing separator
  /// @throws RuntimeError 76 when the directory has characters that the code page does not have, 53 when the texts
  /// cannot be read
  Host(Wording wording, const std::string& applicationDirectory);
  Host(const Host&) = delete;
  Host& operator=(const Host&) = delete;
  ~Host();

  [[nodiscard]] HeadlessDesktop& Desktop() { return desktop_; }
  [[nodiscard]] Files& PlainFiles() { return files_; }
  /// True when something written to an INI file has not reached the disk.
  [[nodiscard]] bool LostWrites() const { return files_.FailedWrites() > 0; }

 private:
  HeadlessDesktop desktop_;
  PosixFiles systemFiles_;
  ProfiledFiles files_{systemFiles_};
  UnitRegistry registry_{files_};
  LengthSyntax syntax_;
  PosixSettingsStore settings_{files_};
  std::string directory_;  // of the program, in the code page in use
  std::unique_ptr<TextLibrary> texts_;
  Services services_;
};

/// Directory of the running program, UTF-8, with a trailing separator; empty when the system does not tell it.
[[nodiscard]] std::string ApplicationDirectory();

}  // namespace tavrin
