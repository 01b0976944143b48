#pragma once

#include "platform/FileProperties.h"

namespace tavrin {

/// Properties of the files of a POSIX system.
class PosixFileProperties : public FileProperties {
 public:
  [[nodiscard]] std::optional<FileRecord> Find(std::string_view path) override;
  bool SetTime(std::string_view path, FileTime which, UtcTime time) override;
  bool SetAttributes(std::string_view path, std::uint32_t attributes) override;
  [[nodiscard]] std::string ShortPath(std::string_view path) override;
  [[nodiscard]] std::string TypeName(std::string_view path) override;
};

}  // namespace tavrin
