#pragma once

#include "platform/FileProperties.h"

namespace tavrin {

/// A moment as a disk keeps it, counted from 1970 on, rounded down. Disks keep moments further away than the some
/// 29,000 years that can be told: for those it is the first or last whole day that local time can be told of too.
[[nodiscard]] UtcTime NearestTime(std::int64_t seconds, std::uint32_t nanoseconds);

/// Properties of the files of a POSIX system, links followed. A file is read-only when nobody may write it, hidden when
/// its name begins with a point; of the other attributes none is kept. A folder is never read-only: for a folder the
/// attribute means nothing, and taking the right to write away would lock its files in. Names of eight and three
/// characters do not exist.
class PosixFileProperties : public FileProperties {
 public:
  /// Where the disk keeps no time of creation, it is the earlier one of the last changes of content and of status.
  [[nodiscard]] std::optional<FileRecord> Find(std::string_view path) override;
  /// The time of creation cannot be set.
  bool SetTime(std::string_view path, FileTime which, UtcTime time) override;
  bool SetAttributes(std::string_view path, std::uint32_t attributes) override;
  [[nodiscard]] std::string ShortPath(std::string_view path) override;
  [[nodiscard]] std::string TypeName(std::string_view path) override;
};

}  // namespace tavrin
