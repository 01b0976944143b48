#pragma once

#include <memory>
#include <string>

#include "model/shared/LengthSyntax.h"
#include "model/shared/modMain.h"
#include "platform/Desktop.h"
#include "platform/posix/PosixFileProperties.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/PosixPrograms.h"
#include "platform/posix/PosixRegional.h"
#include "platform/posix/PosixSettingsStore.h"
#include "platform/posix/SystemdService.h"
#include "platform/posix/UnitRegistry.h"
#include "platform/profile/ProfiledFiles.h"

namespace tavrin {

/// In which words a program speaks, where nobody has chosen a language yet.
enum class Wording { German, English, Numbers };

/// The machine that a program runs on, but for its desktop: the real files, texts, services. Sets the process-wide
/// state up when it is made and back when it goes. The texts are not read yet (TextLibrary::Init).
class Machine {
 public:
  /// @param desktop and settings outlive the machine; settings nullptr: the user's own
  /// @param applicationDirectory where texts and Tavrin.INI stand, UTF-8, with a trailing separator
  /// @throws RuntimeError 76 when the directory has characters that the code page does not have
  Machine(Desktop& desktop, SettingsStore* settings, Wording wording, const std::string& applicationDirectory);
  Machine(const Machine&) = delete;
  Machine& operator=(const Machine&) = delete;
  ~Machine();

  [[nodiscard]] TextLibrary& Texts() { return *texts_; }
  [[nodiscard]] Files& PlainFiles() { return files_; }
  /// True when something written to an INI file has not reached the disk.
  [[nodiscard]] bool LostWrites() const { return files_.FailedWrites() > 0; }

 private:
  PosixFiles systemFiles_;
  ProfiledFiles files_{systemFiles_};
  UnitRegistry registry_{files_};
  LengthSyntax syntax_;
  PosixSettingsStore settings_{files_};
  PosixRegional regional_;
  PosixFileProperties fileProperties_;
  SystemdService service_;
  std::string directory_;  // of the program, in the code page in use
  std::unique_ptr<TextLibrary> texts_;
  PosixPrograms programs_;
  std::unique_ptr<OpcServers> opc_;
  Surroundings around_;
  Services services_;
};

/// Directory of the running program, UTF-8, with a trailing separator; empty when the system does not tell it.
[[nodiscard]] std::string ApplicationDirectory();

/// What every program does first: a standard stream that is closed is opened on nothing, so that no project file gets
/// its number and receives what is printed there; a file that becomes too large is an error and not the end.
void PrepareProcess();

}  // namespace tavrin
