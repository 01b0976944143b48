#pragma once

#include <string>

#include "platform/Programs.h"

namespace tavrin {

/// The programs of a POSIX desktop: for each purpose the first one found of a table.
class PosixPrograms : public Programs {
 public:
  /// @param applicationDirectory where Tavrin.INI stands, with a trailing separator
  explicit PosixPrograms(std::string applicationDirectory) : directory_(std::move(applicationDirectory)) {}

  void Start(Administration purpose, WindowStyle style) override;
  void ShowText(std::string_view path, WindowStyle style) override;
  [[nodiscard]] bool OpenDocument(std::string_view path, int page) override;

 private:
  std::string directory_;
};

}  // namespace tavrin
