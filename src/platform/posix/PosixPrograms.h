#pragma once

#include <span>
#include <string>

#include "platform/Programs.h"
#include "platform/posix/PosixPath.h"

namespace tavrin {

struct CommandRow;

/// The programs of a POSIX desktop: for each purpose the first one found of a table (ProgramTable.h), which is started
/// directly, without a shell. There is one generation of programs for users and for services, so that UserPasswords and
/// ServerManager always are error 53. How a window comes up is the desktop's matter: the style means nothing here.
///
/// Only plain files are shown: one that is a FIFO or a device is error 75, or false for a document.
class PosixPrograms : public Programs {
 public:
  /// @param applicationDirectory where Tavrin.INI, the table of the OPC servers, stands, with a trailing separator
  /// @param unit of the server's service, e.g. "TheServer.service"
  PosixPrograms(std::string applicationDirectory, std::string unit)
      : directory_(std::move(applicationDirectory)), unit_(std::move(unit)) {}

  void Start(Administration purpose, WindowStyle style) override;
  void ShowText(std::string_view path, WindowStyle style) override;
  [[nodiscard]] bool OpenDocument(std::string_view path, int page) override;

 private:
  /// What the arguments of a command are filled with.
  struct Subject;
  [[nodiscard]] static bool StartFirst(std::span<const CommandRow> commands, const Subject& subject);

  std::string directory_;
  std::string unit_;
  PosixPathFinder finder_;
};

}  // namespace tavrin
