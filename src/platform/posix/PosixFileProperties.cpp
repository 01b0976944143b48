#include "platform/posix/PosixFileProperties.h"

#include <algorithm>
#include <array>
#include <chrono>

#include <fcntl.h>
#include <sys/stat.h>

#include "platform/CodePage.h"
#include "platform/Files.h"
#include "platform/posix/PosixPath.h"

namespace tavrin {
namespace {

using SystemStatus = struct statx;

constexpr mode_t kWriteBits = S_IWUSR | S_IWGRP | S_IWOTH;
constexpr std::uint64_t kBlockSize = 512;  // of stx_blocks, whatever the disk's own is

/// An entry under its real name.
struct Located {
  std::string path;  ///< in the code page, spelled as on the disk
  SystemStatus status;

  [[nodiscard]] bool IsFolder() const { return S_ISDIR(status.stx_mode); }
  [[nodiscard]] std::string Utf8() const { return ToUtf8(path); }
};

/// One piece more, in any case.
std::optional<Located> Step(const std::string& path) {
  Located located{{}, {}};
  std::string found;
  PosixPathFinder finder;
  const int result = finder.OnExisting(PosixPath(path), [&](const char* name) {
    found = name;
    return statx(AT_FDCWD, name, 0, STATX_BASIC_STATS | STATX_BTIME, &located.status);
  });
  std::optional<std::string> spelled = result == 0 ? FromUtf8(found) : std::nullopt;
  if (!spelled) return std::nullopt;
  located.path = std::move(*spelled);
  return located;
}

/// The entry that a path stands for, every piece of it in any case. A path that ends in a separator names no entry.
std::optional<Located> Locate(std::string_view path) {
  if (path.empty() || path.ends_with(kPathSeparator)) return std::nullopt;
  std::optional<Located> located;
  std::string resolved;
  for (std::size_t at = 0; at < path.size();) {
    const std::size_t begin = std::min(path.find_first_not_of(kPathSeparator, at), path.size());
    const std::size_t end = std::min(path.find(kPathSeparator, begin), path.size());
    resolved += path.substr(at, end - at);
    located = Step(resolved);
    if (!located) return std::nullopt;
    resolved = located->path;
    at = end;
  }
  return located;
}

UtcTime TimeOf(const statx_timestamp& time) { return NearestTime(time.tv_sec, time.tv_nsec); }

UtcTime CreationOf(const SystemStatus& status) {
  if ((status.stx_mask & STATX_BTIME) != 0) return TimeOf(status.stx_btime);
  return std::min(TimeOf(status.stx_mtime), TimeOf(status.stx_ctime));
}

bool IsCompressed(const SystemStatus& status) {
  return (status.stx_attributes_mask & status.stx_attributes & STATX_ATTR_COMPRESSED) != 0;
}

std::uint32_t AttributesOf(const Located& located, std::string_view name) {
  std::uint32_t attributes = 0;
  if (located.IsFolder()) attributes |= kDirectory;
  if (!located.IsFolder() && (located.status.stx_mode & kWriteBits) == 0) attributes |= kReadOnly;
  if (name.starts_with('.') && name != "." && name != "..") attributes |= kHidden;
  if (IsCompressed(located.status)) attributes |= kCompressed;
  return attributes == 0 ? std::uint32_t{kNormal} : attributes;
}

timespec TimespecOf(UtcTime time) {
  const auto seconds = std::chrono::floor<std::chrono::seconds>(time);
  timespec result{};
  result.tv_sec = seconds.time_since_epoch().count();
  result.tv_nsec = std::chrono::nanoseconds(time - seconds).count();
  return result;
}

}  // namespace

UtcTime NearestTime(std::int64_t seconds, std::uint32_t nanoseconds) {
  using std::chrono::days;
  using Ticks = UtcTime::duration;
  // A day is left at either end, for time zones and for whoever counts in whole days.
  constexpr auto kFirst = std::chrono::ceil<days>(Ticks::min()) + days(1);
  constexpr auto kLast = std::chrono::floor<days>(Ticks::max()) - days(1);
  const std::chrono::seconds whole(seconds);
  if (whole < kFirst) return UtcTime(kFirst);
  if (whole >= kLast) return UtcTime(kLast);
  return UtcTime(whole + std::chrono::floor<Ticks>(std::chrono::nanoseconds(nanoseconds)));
}

std::optional<FileRecord> PosixFileProperties::Find(std::string_view path) {
  const std::optional<Located> located = Locate(path);
  if (!located) return std::nullopt;
  const SystemStatus& status = located->status;
  FileRecord record;
  record.name = located->path.substr(located->path.rfind(kPathSeparator) + 1);
  record.attributes = AttributesOf(*located, record.name);
  record.size = status.stx_size;
  record.compressedSize = IsCompressed(status) ? status.stx_blocks * kBlockSize : record.size;
  record.creation = CreationOf(status);
  record.lastAccess = TimeOf(status.stx_atime);
  record.modification = TimeOf(status.stx_mtime);
  return record;
}

bool PosixFileProperties::SetTime(std::string_view path, FileTime which, UtcTime time) {
  const std::optional<Located> located = Locate(path);
  if (!located || which == FileTime::Creation) return false;
  timespec unchanged{};
  unchanged.tv_nsec = UTIME_OMIT;
  std::array<timespec, 2> times{unchanged, unchanged};
  times[which == FileTime::LastAccess ? 0 : 1] = TimespecOf(time);
  return utimensat(AT_FDCWD, located->Utf8().c_str(), times.data(), 0) == 0;
}

bool PosixFileProperties::SetAttributes(std::string_view path, std::uint32_t attributes) {
  const std::optional<Located> located = Locate(path);
  if (!located) return false;
  const mode_t mode = located->status.stx_mode & 07777U;
  const bool readOnly = (mode & kWriteBits) == 0;
  const bool wanted = (attributes & kReadOnly) != 0;
  if (located->IsFolder() || readOnly == wanted) return true;
  return chmod(located->Utf8().c_str(), wanted ? mode & ~kWriteBits : mode | S_IWUSR) == 0;
}

std::string PosixFileProperties::ShortPath(std::string_view path) {
  const std::optional<Located> located = Locate(path);
  return located ? located->path : std::string{};
}

// Nothing that the program shows comes from here, and no desktop is asked for what nobody reads.
std::string PosixFileProperties::TypeName(std::string_view) { return {}; }

}  // namespace tavrin
